#include "support/scriptedprompts.h"
#include "support/testfolder.h"
#include "utilities/frmInformation.h"
#include "utilities/frmInformationFormat.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

frmInformation *openScreen()
{
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QList<frmInformation *> open;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *form = qobject_cast<frmInformation *>(window))
            open.append(form);
    }
    EXPECT_LE(open.size(), 1) << "one at a time";
    return open.value(0);
}

class Information : public ::testing::Test {
protected:
    ~Information() override { unloadInformation(); }

    const test::TestFolder folder;
    test::ScriptedPrompts user;
};

}

TEST_F(Information, ShowsThePageOfTheSection)
{
    folder.write(u"infobooks.rtf"_s, "{\\rtf1{\\b Books}\\par of all kinds}");
    ShowInfoPage(u"K");
    ASSERT_TRUE(openScreen());
    EXPECT_EQ(u"frmInformation"_s, openScreen()->objectName());
    EXPECT_EQ(u"Books\nof all kinds"_s, openScreen()->txtInfo().Text());
    EXPECT_TRUE(openScreen()->windowTitle().startsWith(u"Books - "_s));
    EXPECT_TRUE(openScreen()->txtInfo().isReadOnly());
    EXPECT_FALSE(openScreen()->isModal());
    openScreen()->resize(700, 500);
    QApplication::processEvents();
    EXPECT_EQ(700, openScreen()->txtInfo().width());
    EXPECT_EQ(500, openScreen()->txtInfo().geometry().bottom() + 1) << "the whole below the menu";
    folder.write(u"INFOMUSIC.RTF"_s, "");
    ShowInfoPage(u"U");
    EXPECT_EQ(u""_s, openScreen()->txtInfo().Text());
    ShowInfoPage(u"R");
    EXPECT_TRUE(openScreen()->txtInfo().Text().startsWith(u"This page describes the section as it is going to be"_s));
    ShowInfoPage(u"A");
    EXPECT_TRUE(openScreen()->txtInfo().Text().startsWith(u"Not part of this version yet: Setup.\nAppointments"_s));
    ShowInfoPage(u"H");
    EXPECT_TRUE(openScreen()->txtInfo().Text().startsWith(u"Shopping"_s)) << "names nothing that is missing";
    folder.write(u"INFOCONTACTS.RTF"_s, "{\\rtf1 my own}");
    ShowInfoPage(u"P");
    EXPECT_EQ(u"my own"_s, openScreen()->txtInfo().Text());
    openScreen()->findChild<QAction *>(u"mnuClose"_s)->trigger();
    EXPECT_FALSE(openScreen());
}

TEST_F(Information, ANoteHasItsTitleAndHeight)
{
    QMainWindow main;
    main.resize(800, 700);
    main.show();
    showNote(u"Vorel Reminder 1 - Missing Contacts"_s, u" PLEASE NOTE:\n two"_s);
    ASSERT_TRUE(openScreen());
    EXPECT_EQ(u"Vorel Reminder 1 - Missing Contacts"_s, openScreen()->windowTitle());
    EXPECT_EQ(490, openScreen()->height());
    EXPECT_EQ(u" PLEASE NOTE:\n two"_s, openScreen()->txtInfo().Text());
    EXPECT_EQ(&main, openScreen()->parentWidget());
    unloadInformation();
}

TEST_F(Information, IsOfUseOverAModalScreen)
{
    QDialog modal;
    modal.setModal(true);
    modal.show();
    ShowInfoPage(u"K");
    ASSERT_TRUE(openScreen());
    EXPECT_EQ(&modal, openScreen()->parentWidget());
    unloadInformation();
}

TEST_F(Information, TheFormatMenuWorksOnItsBox)
{
    folder.write(u"Profile.rtf"_s, "{\\rtf1 {\\i sample}}");
    controls::RichTextBox box;
    QMenu *menu = formatMenu(&box);
    EXPECT_EQ(u"mnuFormat"_s, menu->objectName());
    const auto run = [menu](const char16_t *name) {
        auto *action = menu->findChild<QAction *>(QString::fromUtf16(name));
        ASSERT_TRUE(action);
        emit menu->aboutToShow();
        EXPECT_TRUE(action->isEnabled()) << qPrintable(action->objectName());
        action->trigger();
    };
    const auto rtfAfter = [&](const char16_t *name) {
        box.selectAll();
        run(name);
        box.selectAll();
        return box.TextRTF();
    };
    box.setText(u"pie"_s);
    EXPECT_TRUE(rtfAfter(u"mnuFontBold").contains(u"\\plain\\b pie"_s));
    EXPECT_FALSE(rtfAfter(u"mnuFontBold").contains(u"\\b"_s)) << "a second time takes it away";
    user.expectColour(0x00FF00);
    EXPECT_TRUE(rtfAfter(u"mnuFontColour").contains(u"\\red0\\green255\\blue0;"_s));
    user.expectFont(basic::FontChoice{u"Courier New"_s, 20, false, false, true, false});
    EXPECT_TRUE(rtfAfter(u"mnuFontGeneral").contains(u"\\fs40\\ul"_s));
    user.expectFont(std::nullopt);
    EXPECT_TRUE(rtfAfter(u"mnuFontGeneral").contains(u"\\fs40\\ul"_s));
    rtfAfter(u"mnuFontNormal");
    EXPECT_EQ(u"pie"_s, box.stored());
    EXPECT_TRUE(rtfAfter(u"mnuRecipeProcess").contains(u"Arial;}}"_s) && box.SelFontSize() == 9.0);
    EXPECT_TRUE(rtfAfter(u"mnuRecipeTitle").contains(u"\\b pie"_s) && box.SelFontSize() > 9.0);
    rtfAfter(u"mnuCut");
    EXPECT_EQ(u""_s, box.Text());
    run(u"mnuPaste");
    EXPECT_EQ(u"pie"_s, box.Text());
    run(u"mnuUndo");
    EXPECT_EQ(u""_s, box.Text());
    run(u"mnuImportExample");
    box.selectAll();
    EXPECT_EQ(true, box.SelItalic());
    run(u"mnuClear");
    EXPECT_EQ(u""_s, box.Text());
    box.setReadOnly(true);
    emit menu->aboutToShow();
    EXPECT_FALSE(menu->findChild<QAction *>(u"mnuPaste"_s)->isEnabled());
    EXPECT_EQ(u"Choose a font"_s, menu->findChild<QAction *>(u"mnuFontGeneral"_s)->text());
}
