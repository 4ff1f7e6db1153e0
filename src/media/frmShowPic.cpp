#include "media/frmShowPic.h"

#include "platform/basic/files.h"
#include "platform/controls/picturebox.h"

namespace vorel {

using namespace Qt::StringLiterals;

void ShowPic(QWidget *screen, QString &path)
{
    auto *image = screen->findChild<controls::PictureBox *>(u"picImage"_s);
    if (basic::Dir(path).isEmpty())
        path.clear();
    image->showFile(path);
}

}
