#include "app/caddyscreen.h"
#include "frame/menus.h"
#include "platform/controls/richtextbox.h"

namespace vorel {

using namespace Qt::StringLiterals;
using test::Grid;

class Menus : public test::CaddyScreen {};

TEST_F(Menus, DisplayAndViewTurnTheSection)
{
    start();
    const std::pair<QString, QString> cases[] = {
        {u"mnuDisplayA"_s, u"A"_s},  {u"mnuDisplayAB"_s, u"AB"_s}, {u"mnuDisplayAE"_s, u"AE"_s},
        {u"mnuDisplayB"_s, u"B"_s},  {u"mnuDisplayBE"_s, u"BE"_s}, {u"mnuDisplayE"_s, u"E"_s},
        {u"mnuCatNumbers"_s, u"D"_s}, {u"mnuXmasList"_s, u"C"_s},  {u"mnuEmergencyPhone"_s, u"X"_s},
        {u"mnuViewPrivateNums"_s, u"T"_s}, {u"mnuViewHowTo"_s, u"Y"_s}, {u"mnuViewNotes"_s, u"N"_s},
        {u"mnuViewRecipes"_s, u"R"_s}};
    for (const auto &[name, code] : cases) {
        menu(name)->trigger();
        EXPECT_EQ(state().selection.gSection, code) << qPrintable(name);
    }
    EXPECT_TRUE(m_prompts.shown().empty());
}

TEST_F(Menus, WhatComesLaterSaysSoInOneBox)
{
    start();
    for (const QString &name : {u"mnuSetup"_s, u"mnuAdmin"_s, u"mnuImport"_s, u"mnuInvoice"_s}) {
        m_prompts.expect(u"is not part of this version yet"_s, basic::Answer::Ok);
        menu(name)->trigger();
        EXPECT_TRUE(m_prompts.isDone()) << qPrintable(name);
    }
}

TEST_F(Menus, HelpShowsThePageOfTheSectionOnShow)
{
    m_folder.write(u"INFOBILLS.RTF"_s, "{\\rtf1 on bills}");
    m_folder.write(u"INFOMUSIC.RTF"_s, "{\\rtf1 on music}");
    start();
    const auto shown = [this] {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto *box = screen().findChild<controls::RichTextBox *>(u"txtInfo"_s);
        return box ? box->window()->windowTitle() + u": "_s + box->Text() : QString();
    };
    screen().DisplayCategory(u"Bills"_s);
    menu(u"mnuHelp"_s)->trigger();
    EXPECT_TRUE(shown().endsWith(u": on bills"_s));
    screen().DisplayCategory(u"Music"_s);
    EXPECT_EQ(shown(), QString()) << "another section takes the page away";
    click(u"cmdInfo"_s);
    EXPECT_TRUE(shown().endsWith(u": on music"_s));
    screen().DisplayCategory(u"Help"_s);
    EXPECT_TRUE(shown().endsWith(u": on music"_s));
    click(u"cmdCat(8)"_s);
    EXPECT_TRUE(shown().startsWith(u"Vorel Reminder 1 - Missing Contacts:  PLEASE NOTE:\n"_s)) << qPrintable(shown());
    EXPECT_EQ(shown().count(u'\n'), 5);
}

TEST_F(Menus, TheCalculatorStandsBesideTheSectionUntilItChanges)
{
    start();
    const auto open = [this] {
        const QList<QWidget *> found = screen().findChildren<QWidget *>(u"frmCalculator"_s);
        return std::any_of(found.begin(), found.end(), [](const QWidget *one) { return one->isVisible(); });
    };
    const QString before = state().selection.gSection;
    for (const std::function<void()> &step : std::initializer_list<std::function<void()>>{
             [this] { menu(u"mnuCalculator"_s)->trigger(); }, [this] { click(u"cmdCalculator"_s); },
             [this] { c().toolbarKeys.at(u"CALCULATOR"_s)->trigger(); }}) {
        step();
        EXPECT_TRUE(open());
        EXPECT_FALSE(QApplication::activeModalWidget());
        EXPECT_EQ(state().selection.gSection, before);
        screen().DisplayCategory(u"Books"_s);
        EXPECT_FALSE(open());
        screen().DisplayCategory(u"All"_s);
    }
}

TEST_F(Menus, ColourOfTheScreenIsChosenAndKept)
{
    start();
    m_prompts.expectColour(0x102030u);
    click(u"cmdColor"_s);
    EXPECT_EQ(GetIniValue(iniSettings, u"ScreenBackColour"_s, {}), QString::number(0x302010));
    start();
    EXPECT_EQ(at(u"Page"_s)->palette().color(QPalette::Window), QColor(0x10, 0x20, 0x30));
    EXPECT_GT(at(u"Page"_s)->palette().color(QPalette::WindowText).lightness(), 128);
}

TEST_F(Menus, TabGoesAsTheEyeDoes)
{
    start();
    screen().activateWindow();
    at(u"txtSearch"_s)->setFocus();
    QStringList way;
    for (int i = 0; i < 40; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (!QApplication::focusWidget() || QApplication::focusWidget()->objectName() == u"txtSearch"_s)
            break;
        way << QApplication::focusWidget()->objectName();
    }
    const auto place = [&way](const QString &name) { return way.indexOf(name); };
    EXPECT_GE(place(u"cmdCat(3)"_s), 0);
    EXPECT_LT(place(u"cmdCat(3)"_s), place(u"cmdCat(24)"_s));
    EXPECT_LT(place(u"cmdCat(24)"_s), place(u"panNew"_s));
    EXPECT_LT(place(u"panNew"_s), place(u"APPOINTMENTSGRID"_s));
}

TEST_F(Menus, QuitSavesTheLayout)
{
    start();
    at<Grid>(u"BILLSGRID"_s)->setRowHeightTwips(360);
    menu(u"mnuQuit"_s)->trigger();
    EXPECT_FALSE(screen().isVisible());
    EXPECT_EQ(GetIniValue(iniSettings, u"BILLSROWHEIGHT"_s, {}), u"360"_s);
}

}
