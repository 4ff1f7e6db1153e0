#include "app/caddyscreen.h"
#include "frame/frmCaddyInfo.h"
#include "frame/frmCaddyStrip.h"
#include "session/shared.h"
#include "platform/desktop/notify.h"


namespace vorel::test {

using namespace Qt::StringLiterals;

namespace {

// What the program says through the desktop, and plays.
class Ears : public desktop::Notifier {
public:
    Ears()
    {
        desktop::setNotifier(this);
        setSoundPlayer([this](const QString &path) { sounds << path; });
    }
    ~Ears() override
    {
        desktop::setNotifier(nullptr);
        setSoundPlayer({});
    }
    void show(const desktop::Notice &notice) override { notices.push_back(notice); }

    std::vector<desktop::Notice> notices;
    QStringList sounds;
};

// Noon on 22 November 2026; warnings from 15 minutes before to 5 after.
class AlertScreen : public CaddyScreen {
protected:
    void startWith(std::initializer_list<std::pair<const char *, const char *>> times)
    {
        for (const auto &[time, text] : times)
            execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[MET],[TimeUpdate]) VALUES (#11/22/2026#,'%1','%2',False,True)"_s
                        .arg(QString::fromUtf8(time), QString::fromUtf8(text)));
        set(u"AWarningBefore"_s, u"15"_s);
        set(u"AWarningAfter"_s, u"5"_s);
        set(u"DisplayPeriod"_s, u"Today"_s);
        start();
    }
    void tickAt(int hour, int minute)
    {
        m_clock.set(QDate(2026, 11, 22), QTime(hour, minute));
        tick();
    }
    QColor ground() { return c().panAppoint->palette().color(QPalette::Button); }

    Ears ears;
};

}

TEST_F(AlertScreen, PanelFollowsTheClock)
{
    startWith({{"12:10 pm", "BANK"}});
    tick();
    EXPECT_TRUE(isShown(u"panAppoint"_s));
    EXPECT_EQ(text(u"panAppoint"_s), u" Appointment Reminder 12:10 pm "_s);
    EXPECT_EQ(c().panAppoint->toolTip(), u" Appointment scheduled for 11/22/2026 12:10 pm "_s);
    EXPECT_EQ(ground(), QColor(0, 255, 0));
    EXPECT_TRUE(c().panInfo->warning());
    tickAt(12, 10);
    EXPECT_EQ(text(u"lblTime"_s), u"12:10 PM"_s);
    EXPECT_EQ(ground(), QColor(255, 0, 0));
    tickAt(12, 15);
    EXPECT_FALSE(isShown(u"panAppoint"_s));
    EXPECT_FALSE(c().panInfo->warning());
    EXPECT_EQ(c().panAppoint->toolTip(), QString());
    tickAt(12, 12);                             // the clock was set back: shown again without a second notice
    EXPECT_TRUE(isShown(u"panAppoint"_s));
    EXPECT_EQ(ears.notices.size(), 2u);
    EXPECT_EQ(ears.sounds.size(), 2);
    execute(u"UPDATE [APPOINTMENTS] SET [MET]=True"_s);
    tick();
    EXPECT_FALSE(isShown(u"panAppoint"_s));
}

TEST_F(AlertScreen, WarnsWhileAnotherSectionIsOnShow)
{
    set(u"Category"_s, u"Books"_s);
    startWith({{"12:10 pm", "BANK"}});
    tick();
    EXPECT_TRUE(isShown(u"panAppoint"_s));
}

TEST_F(AlertScreen, ClickShowsTheTextAndOpensTheRow)
{
    startWith({{"09:00 am", "EARLY"}, {"12:10 pm", "BANK"}, {"06:00 pm", "LATE"}});
    tick();
    const auto open = [this] {
        m_prompts.expect(u"10 minute/s remaining"_s);
        click(u"panAppoint"_s);
    };
    const auto isBank = [](frmRecord &record) {
        EXPECT_EQ(record.findChild<QLineEdit *>(u"txtAppointment"_s)->text(), u"BANK"_s);
    };
    inRecord(open, isBank);
    // The notice opens it as well, whatever the period on show has become.
    menu(u"mnuTomorrow"_s)->trigger();
    ASSERT_EQ(ears.notices.size(), 1u);
    inRecord(ears.notices[0].opened, isBank);
    const auto opened = ears.notices[0].opened;
    stop();
    opened();                                   // a click that comes when the screen has gone
}

// A failing file is reported once, not every six seconds.
TEST_F(AlertScreen, FailureIsToldOnce)
{
    startWith({{"12:10 pm", "BANK"}});
    execute(u"DROP TABLE [APPOINTMENTS]"_s);
    m_prompts.expect({});
    tick();
    tick();
    tick();
    EXPECT_EQ(m_prompts.shown().size(), 1u);
}

// Whatever is on show, and on the next day too.
TEST_F(AlertScreen, WarnsOverAnyPeriodAndPastMidnight)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[MET],[TimeUpdate]) VALUES (#11/23/2026#,'00:05 am','NIGHT',False,True)"_s);
    startWith({{"12:10 pm", "BANK"}});
    click(u"NEXT MONTH"_s);
    tick();
    EXPECT_TRUE(isShown(u"panAppoint"_s));
    click(u"TODAY"_s);
    m_clock.set(QDate(2026, 11, 23), QTime(0, 1));
    tick();
    EXPECT_EQ(text(u"panAppoint"_s), u" Appointment Reminder 12:05 am "_s);
    EXPECT_EQ(text(u"lblDate"_s), u"11/23/2026"_s);
    EXPECT_EQ(text(u"panPeriod"_s), u" (Today - Mon 11/23/2026)"_s);
    EXPECT_EQ(menu(u"mnuToday"_s)->text(), u"Today ......... 11/23/2026"_s);
    EXPECT_EQ(appointments(), QStringList{u"NIGHT"_s});
}

TEST_F(AlertScreen, StartHandsOverToTheOtherPrograms)
{
    const QString popUp = m_folder.write(u"vorelpopup.EXE"_s, "#!/bin/sh\n");
    QFile::setPermissions(popUp, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    start();
    EXPECT_FALSE(at(u"cmdPopUpCloser"_s)->isEnabled()) << "no appointments";
    startWith({{"12:10 pm", "BANK"}});
    EXPECT_TRUE(at(u"cmdPopUpCloser"_s)->isEnabled());
    EXPECT_EQ(m_folder.read(u"POPAPPS.TXT"_s), "\"11/22/2026\",\"12:10 pm\",\"BANK\",\"False\",\"1\"\r\n");
}

TEST_F(AlertScreen, SignalsOfMessagesAndBackups)
{
    execute(u"INSERT INTO [MESSAGES] ([TO],[FROM],[MESSAGE],[Read]) VALUES ('Pat','Sam','Call',False)"_s);
    execute(u"INSERT INTO [MESSAGES] ([TO],[FROM],[MESSAGE],[Read]) VALUES ('Sam','Pat','Done',False)"_s);
    execute(u"INSERT INTO [FILEBACKUP] ([FILEDATE],[LASTBACKUPDATE],[BACKUPAFTERDAYS]) VALUES (#11/01/2026#,#10/01/2026#,7)"_s);
    set(u"UserName"_s, u"Pat"_s);
    m_folder.write(u"hints.txt"_s, "Press F3");
    start();
    EXPECT_TRUE(text(u"panInfo"_s).startsWith(u"Press F3 ........... Vorel Reminder"));
    EXPECT_EQ(c().panMessages->toolTip(), u"Click to View Messages"_s);
    click(u"panBackup"_s);
    EXPECT_EQ(state().selection.gSection, u"F"_s);
    click(u"panMessages"_s);
    EXPECT_EQ(state().selection.gSection, u"M"_s);
    const auto messages = [this](const QString &view) {
        menu(view)->trigger();
        return column(u"SUBJECTGRID"_s, 4).join(u',');
    };
    EXPECT_EQ(messages(u"mnuMessagesSent"_s), u"Done"_s);
    EXPECT_EQ(messages(u"mnuMessagesReceived"_s), u"Call"_s);
    EXPECT_EQ(column(u"SUBJECTGRID"_s, 4).size(), 1);
    menu(u"mnuMessagesBoth"_s)->trigger();
    EXPECT_EQ(column(u"SUBJECTGRID"_s, 4).size(), 2);
    execute(u"UPDATE [MESSAGES] SET [Read]=True"_s);
    screen().CheckForMessages();
    EXPECT_FALSE(isShown(u"panMessages"_s));
}

}
