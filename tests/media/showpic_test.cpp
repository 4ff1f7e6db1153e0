#include "media/frmShowPic.h"
#include "platform/controls/picturebox.h"
#include "support/testfolder.h"

#include <QImage>
#include <QLabel>

using namespace Qt::StringLiterals;
using namespace vorel;

TEST(ShowPic, TheNoteStandsOnlyOverADefault)
{
    const test::TestFolder folder;
    QImage drawn(40, 30, QImage::Format_RGB32);
    drawn.fill(Qt::blue);
    ASSERT_TRUE(drawn.save(folder.path(u"own.jpg"_s)) && drawn.save(folder.path(u"DefaultPicE.jpg"_s)));
    QWidget screen;
    auto *image = new controls::PictureBox(u"picImage"_s, &screen);
    auto *note = new QLabel(u"note"_s, &screen);
    for (const bool record : {true, false}) {
        const PictureView view{image, record ? std::vector{note} : std::vector<QLabel *>{}, !record};
        note->hide();
        QString path = folder.path(u"gone.jpg"_s);
        ShowPic(view, path, u"K"_s);
        EXPECT_EQ(path.isEmpty(), record);
        EXPECT_EQ(!note->isHidden(), record);
        EXPECT_EQ(image->isShown(), record);
        path = folder.path(u"own.jpg"_s);
        ShowPic(view, path, u"K"_s);
        EXPECT_TRUE(note->isHidden());
        EXPECT_EQ(image->path(), path);
        EXPECT_EQ(image->pictureSize(), QSize(40, 30));
    }
}
