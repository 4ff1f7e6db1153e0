#include "app/caddyscreen.h"

#include <QMenu>

namespace vorel {

using namespace Qt::StringLiterals;

class Start : public test::CaddyScreen {
protected:
    qsizetype keysWritten() const { return m_folder.read(u"vorelreminder.ini"_s).count('='); }
};

TEST_F(Start, FreshFolderGetsTheMainFileAndThePathKeys)
{
    m_firstRun = true;
    start();
    EXPECT_TRUE(QFile::exists(m_folder.path(u"VOREL.MDB"_s)));
    EXPECT_EQ(keysWritten(), 13);
    EXPECT_EQ(state().selection.gSection, u"All"_s);
    EXPECT_EQ(state().settings.gUserName, u"User"_s);
    EXPECT_EQ(state().settings.gBackupAfterDays, 14);
    EXPECT_EQ(screen().windowTitle(), u"Vorel Reminder 1"_s);
    EXPECT_TRUE(c().Timer2->isActive());
    EXPECT_EQ(c().Timer2->interval(), 6000);
    EXPECT_TRUE(c().TimerMessages->isActive());
    EXPECT_EQ(text(u"lblTime"_s), u"12:00 PM"_s);
    for (const QString &grid : {u"APPOINTMENTSGRID"_s, u"BILLSGRID"_s, u"EVENTSGRID"_s})
        EXPECT_TRUE(isShown(grid)) << qPrintable(grid);
    EXPECT_FALSE(isShown(u"SUBJECTGRID"_s));
    EXPECT_TRUE(m_prompts.shown().empty());
    for (const QWidget *window : QApplication::topLevelWidgets())
        EXPECT_FALSE(qobject_cast<const QMenu *>(window) && window->isVisible()) << qPrintable(window->objectName());
}

// The paths are all that a folder gets in any country, and the same row reads in each one's own order.
TEST_F(Start, OtherCountries)
{
    for (const auto &[region, shown] : {std::pair{u"en_AU"_s, u"22/11/2026"_s}, {u"de_DE"_s, u"22.11.2026"_s}}) {
        stop();
        for (const QString &name : {u"VOREL.MDB"_s, u"vorelreminder.ini"_s})
            QFile::remove(m_folder.path(name));
        setRegion(region);
        start();
        EXPECT_EQ(keysWritten(), 13) << qPrintable(region);
        execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/22/2026#,'Gas',12.35)"_s);
        menu(u"mnuThisWeek"_s)->trigger();
        EXPECT_EQ(column(u"BILLSGRID"_s, 1), QStringList{shown}) << qPrintable(region);
        EXPECT_EQ(state().settings.gDateShort, u"dd/mm/yyyy"_s);
    }
}

TEST_F(Start, SplashPausesThenGivesWay)
{
    Startup splash;
    splash.Load();
    EXPECT_TRUE(splash.isVisible());
    EXPECT_EQ(splash.findChild<QLabel *>(u"lblVersion"_s)->text(),
              VOREL_REVISION > 0 ? u" Build #%1"_s.arg(VOREL_REVISION) : QString());
    EXPECT_EQ(splash.findChild<QLabel *>(u"lblLine"_s)->text(), u"Probably the Handiest Software you will own"_s);
    EXPECT_FALSE(splash.mainScreen()->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return splash.mainScreen()->isVisible(); }));
    EXPECT_FALSE(splash.isVisible());
    splash.mainScreen()->close();
}

TEST_F(Start, SettingsOfTheScreenAreTaken)
{
    struct Case { const char *name; QString key, value; std::function<bool()> holds; };
    const Case cases[] = {
        {"category", u"Category"_s, u"Bills"_s, [] { return state().selection.gSection == u"B"_s; }},
        {"unknown category", u"Category"_s, u"Nonsense"_s, [] { return state().selection.gSection == u"All"_s; }},
        {"user", u"UserName"_s, u"Ann"_s, [this] { return text(u"lblUsername"_s) == u"Ann"_s; }},
        {"maximized", u"Screen"_s, u"2"_s, [this] { return screen().isMaximized(); }},
        {"no network", u"Network"_s, u"False"_s, [this] { return !c().TimerMessages->isActive(); }},
        {"no hints", u"DisplayAds"_s, u"False"_s, [this] { return !isShown(u"panInfo"_s); }},
        {"period", u"DisplayPeriod"_s, u"This Year"_s,
         [this] { return text(u"panPeriod"_s) == u" (1/1/2026 - 12/31/2026)"_s; }},
    };
    for (const Case &one : cases) {
        QFile::remove(m_folder.path(u"vorelreminder.ini"_s));
        set(one.key, one.value);
        start();
        EXPECT_TRUE(one.holds()) << one.name;
    }
}

TEST_F(Start, SwitchedOffRemindersTakeTheirMenusAlong)
{
    for (const QString &key : {u"Appointments"_s, u"Bills"_s, u"Events"_s, u"Accounts"_s})
        set(key, u"0"_s, iniFeatures);
    start();
    for (const QString &name : {u"cmdCat(0)"_s, u"cmdCat(1)"_s, u"cmdCat(2)"_s, u"cmdCat(3)"_s, u"cmdCat(23)"_s, u"cmdCat(24)"_s,
                                u"cmdInvoice"_s, u"panPeriod"_s, u"TODAY"_s, u"NEXT YEAR"_s})
        EXPECT_FALSE(isShown(name)) << qPrintable(name);
    for (const QString &name : {u"mnuDisplay"_s, u"mnuDisplayPeriod"_s, u"mnuPrintBills"_s, u"mnuInvoice"_s})
        EXPECT_FALSE(menu(name)->isVisible()) << qPrintable(name);
    EXPECT_TRUE(isShown(u"cmdCat(9)"_s));
}

TEST_F(Start, WithoutAMainFileTheProgramGoesOn)
{
    m_folder.write(u"VOREL.MDB"_s, QByteArray(5000, 'x'));
    m_prompts.expect(u"Would you like to create a new database?"_s, basic::Answer::No);     // once, and where it lies
    m_prompts.expect(u"No row could be read from it.\r\n    The damaged file is kept as "_s + m_folder.path(u"VOREL.MDB.damaged"_s));
    start();
    EXPECT_TRUE(m_prompts.isDone());
    EXPECT_FALSE(QFile::exists(m_folder.path(u"VOREL.MDB"_s)));
    EXPECT_EQ(m_folder.read(u"VOREL.MDB.damaged"_s), QByteArray(5000, 'x'));
    EXPECT_TRUE(isShown(u"APPOINTMENTSGRID"_s));
}

}
