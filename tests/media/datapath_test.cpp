#include "session/shared.h"
#include "frame/startup.h"
#include "media/frmDataPath.h"
#include "media/pictureeditor.h"
#include "platform/controls/picturebox.h"
#include "store/mainfile.h"
#include "session/datafiles.h"

#include <QAbstractButton>
#include <QImage>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace vorel {

namespace {

class DataPath : public test::MainFileTest {
protected:
    DataPath()
    {
        test::putEmptyFiles(m_folder.path());
        for (const DataFileEntry &entry : dataFiles())
            state().path(entry.file) = m_folder.path(entry.defaultName.mid(1));
        state().gIniFile = m_folder.path(u"vorelreminder.ini"_s);
        screen.setObjectName(u"frmBooks"_s);
        setSearchRoots({m_folder.path()});
        picture(u"DefaultPicE.jpg"_s);
    }
    ~DataPath() override
    {
        setSearchRoots({});
        setPictureEditor({});
        setSoundPlayer({});
    }

    QString picture(const QString &name) const
    {
        QImage drawn(40, 30, QImage::Format_RGB32);
        drawn.fill(Qt::blue);
        QDir().mkpath(QFileInfo(m_folder.path(name)).path());
        EXPECT_TRUE(drawn.save(m_folder.path(name)));
        return m_folder.path(name);
    }
    void open(const DataPathCall &call)
    {
        form = std::make_unique<frmDataPath>(call);
        form->show();
    }
    void openBooks(const QString &path) { open({.caption = u"Book Picture"_s, .path = path, .name = u"A title"_s, .screen = &screen, .section = u"K"_s}); }
    QAbstractButton *key(const QString &name) { return form->findChild<QAbstractButton *>(name); }
    void click(const QString &name)
    {
        ASSERT_TRUE(key(name) && key(name)->isVisible() && key(name)->isEnabled()) << qPrintable(name);
        QTest::mouseClick(key(name), Qt::LeftButton);
    }
    void transfer()
    {
        click(u"cmdTransfer"_s);
        EXPECT_FALSE(key(u"cmdApply"_s)->isEnabled()) << "not while the file is copied";
        EXPECT_TRUE(key(u"cmdClose"_s)->isEnabled());
        ASSERT_TRUE(QTest::qWaitFor([&] { return key(u"cmdTransfer"_s)->isEnabled(); }));
    }
    QString words(const QString &name) { return form->findChild<QLabel *>(name)->text(); }
    controls::PictureBox *box() { return form->findChild<controls::PictureBox *>(u"picImage"_s); }

    QWidget screen;
    std::unique_ptr<frmDataPath> form;
};

}

TEST_F(DataPath, AChosenPictureIsShownAppliedAndSetOnTheScreen)
{
    openBooks({});
    EXPECT_FALSE(key(u"cmdApply"_s)->isEnabled() || key(u"cmdTransfer"_s)->isEnabled());
    EXPECT_EQ(box()->path(), m_folder.path(u"DefaultPicE.jpg"_s));
    EXPECT_EQ(box()->toolTip(), QString());
    const QString file = picture(u"elsewhere/own.jpg"_s);
    m_prompts.expectFile(u"Book Picture"_s, file);
    click(u"cmdSearch"_s);
    EXPECT_EQ(box()->path(), file);
    EXPECT_EQ(box()->toolTip(), file + u" CLICK TO EDIT "_s);
    transfer();
    const QString moved = m_folder.path(u"BookPictures/own.jpg"_s);
    EXPECT_EQ(words(u"lblSelectedPath"_s), moved);
    EXPECT_EQ(words(u"lblCurrentPath"_s), moved);
    EXPECT_EQ(form->path(), QString()) << "nothing is taken before it is applied";
    click(u"cmdApply"_s);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->path(), u"\\BookPictures\\own.jpg"_s) << "kept so that it moves with the folder";

    openBooks(form->path());
    EXPECT_TRUE(box()->isShown());
    EXPECT_EQ(box()->path(), moved);
}

TEST_F(DataPath, WhatIsNotAppliedLeavesThePathAsItWas)
{
    const QString own = picture(u"own.jpg"_s);
    openBooks(own);
    m_prompts.expectFile({}, m_folder.write(u"letter.txt"_s, "x"));
    click(u"cmdSearch"_s);
    EXPECT_FALSE(box()->isVisible()) << "no picture's name";
    EXPECT_FALSE(words(u"lblSearch"_s).isEmpty());
    click(u"cmdClose"_s);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->path(), own);

    openBooks(own);
    click(u"cmdApply"_s);
    EXPECT_EQ(form->path(), u"\\DefaultS.jpg"_s) << "applied without a choice";

    openBooks(own);
    click(u"cmdRemove"_s);
    EXPECT_FALSE(key(u"cmdApply"_s)->isEnabled());
    EXPECT_EQ(box()->path(), m_folder.path(u"DefaultPicE.jpg"_s));
    form->Close();
    EXPECT_EQ(form->path(), QString());
}

TEST_F(DataPath, ALostPictureIsSearchedForAndTheSearchStops)
{
    const QString lost = u"C:\\Pictures\\Lost.jpg"_s;
    openBooks(lost);
    EXPECT_EQ(box()->path(), lost) << "a broken path is shown as it is";
    EXPECT_FALSE(box()->isShown());
    const auto text = [&] { return words(u"lblSearch"_s); };
    click(u"cmdAutoSearch"_s);
    EXPECT_EQ(text(), u" Searching ... Please wait "_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return text() == u" Sorry Picture Not Found "_s; }));
    click(u"cmdAutoSearch"_s);
    click(u"cmdAutoSearch"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(text(), QString()) << "stopped";
    const QString found = picture(u"a/b/lost.jpg"_s);
    click(u"cmdAutoSearch"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return words(u"lblSelectedPath"_s) == found; }));
    click(u"cmdAutoSearch"_s);
    form->Close();
    form.reset();
}

TEST_F(DataPath, AClickEditsAndASoundPlays)
{
    QStringList edited, played;
    setPictureEditor([&](const QString &path) { edited << path; return edited.size() < 2; });
    setSoundPlayer([&](const QString &path) { played << path; });
    openBooks(picture(u"own.jpg"_s));
    QTest::mouseClick(box(), Qt::LeftButton);
    m_prompts.expect(u"Unable to open "_s);
    QTest::keyClick(box(), Qt::Key_Space);
    EXPECT_EQ(edited, QStringList({m_folder.path(u"own.jpg"_s), m_folder.path(u"own.jpg"_s)}));
    click(u"cmdRemove"_s);
    QTest::mouseClick(box(), Qt::LeftButton);
    EXPECT_EQ(edited.size(), 2) << "a default is not the user's to edit";

    const QString sound = m_folder.write(u"song.wav"_s, "x");
    open({u"Movie Sound"_s, sound, {}, nullptr});
    EXPECT_FALSE(box()->isVisible());
    click(u"cmdSound"_s);
    EXPECT_EQ(played, QStringList(sound));
}

TEST_F(DataPath, ATakenNameAndAPathThatIsTooLongAreRefusedInWords)
{
    const auto choose = [&](const QString &path) {
        m_prompts.expectFile(u"Book Picture"_s, path);
        click(u"cmdSearch"_s);
    };
    // What lies in the program folder counts from there on, anything else with its whole path.
    const QTemporaryDir outside;
    const QString deep = QString(120, u'd'), wide = QString(100, u'n') + u".jpg"_s;
    const QString advised = u"Transfer copies"_s, refused = u"Give the file a shorter name."_s;
    const struct {
        QString path;
        qsizetype size;
        QString advice;
    } cases[] = {
        {picture(wide), 1 + wide.size(), refused},
        {outside.filePath(wide), outside.filePath(wide).size(), refused},
        {outside.filePath(deep + u"/own.jpg"_s), outside.filePath(deep + u"/own.jpg"_s).size(), advised},
        {picture(deep + u"/own.jpg"_s), 1 + deep.size() + 8, advised},
    };
    for (const auto &tooLong : cases) {
        open({u"Book Picture"_s, {}, u"A title"_s, &screen, 100});
        choose(tooLong.path);
        m_prompts.expect(u"This path has %1 characters, but the field holds only 100.\r\n"_s.arg(tooLong.size)
                         + tooLong.advice);
        click(u"cmdApply"_s);
        EXPECT_TRUE(form->isVisible()) << qPrintable(tooLong.path);
        EXPECT_EQ(form->path(), QString()) << qPrintable(tooLong.path);
    }
    transfer();
    EXPECT_EQ(words(u"lblSearch"_s), QString());
    click(u"cmdApply"_s);
    EXPECT_EQ(form->path(), u"\\BookPictures\\own.jpg"_s);

    openBooks({});
    choose(m_folder.write(u"other/own.jpg"_s, "another picture"));
    transfer();
    EXPECT_TRUE(words(u"lblSearch"_s).contains(u"Another file named own.jpg"_s));
    EXPECT_EQ(box()->path(), m_folder.path(u"BookPictures/own.jpg"_s)) << "the one that will be taken is on show";
    EXPECT_TRUE(box()->isShown());
}

TEST_F(DataPath, TheSlideShowStepsRoundAndByItself)
{
    const QString first = picture(u"1.jpg"_s), second = picture(u"2.jpg"_s);
    PictureSet set{{}, {{second, u"Second"_s, 2}, {first, u"First"_s, 1}, {m_folder.path(u"gone.jpg"_s), {}, 3}}};
    savePictureRow(u"P"_s, {4, u"Name"_s}, set);
    DataPathCall call;
    call.caption = u"Slide Show - Name"_s;
    call.slideShow = true;
    call.section = u"P"_s;
    call.owner = {4, {}};
    open(call);
    EXPECT_TRUE(form->findChild<QWidget *>(u"panSlide"_s)->isVisible());
    EXPECT_FALSE(key(u"cmdApply"_s)->isVisible());
    EXPECT_EQ(words(u"lblNum"_s), u"1/3"_s);
    EXPECT_EQ(box()->path(), first);
    click(u"cmdNext"_s);
    EXPECT_EQ(words(u"lblSlideCaption"_s), u"Second"_s);
    click(u"cmdNext"_s);
    EXPECT_FALSE(box()->isShown()) << "its file has gone";
    click(u"cmdNext"_s);
    EXPECT_EQ(words(u"lblNum"_s), u"1/3"_s);
    click(u"cmdPrevious"_s);
    EXPECT_EQ(words(u"lblNum"_s), u"3/3"_s);
    auto *timer = form->findChild<QTimer *>(u"Timer1"_s);
    EXPECT_EQ(timer->interval(), 5000);
    click(u"cmdAuto"_s);
    EXPECT_TRUE(timer->isActive() && key(u"cmdAuto"_s)->text() == u"Stop"_s);
    click(u"cmdAuto"_s);
    EXPECT_TRUE(!timer->isActive() && key(u"cmdAuto"_s)->text() == u"Auto"_s);
    call.owner = {5, {}};
    open(call);
    EXPECT_EQ(words(u"lblSlideCaption"_s), u"NO PICTURES TO VIEW"_s);
    EXPECT_FALSE(key(u"cmdNext"_s)->isEnabled());
}

}
