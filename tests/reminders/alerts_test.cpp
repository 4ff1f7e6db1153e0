#include "session/ini.h"
#include "frame/periods.h"
#include "session/shared.h"
#include "frame/startup.h"
#include "reminders/alerts.h"
#include "store/mainfile.h"
#include "support/table.h"

#include <ostream>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;

namespace {

const QDate today(2026, 11, 22);

DateTime at(const QString &time)
{
    return DateTime::fromQDateTime(QDateTime(today, QTime::fromString(time, u"HH:mm:ss"_s)));
}

AppointmentRow row(const QString &time, qint32 id = 7, bool met = false, QDate day = today)
{
    return {id, DateTime::fromQDate(day), time, u"Dentist"_s, met};
}

// "green 15", "red -4", "" : what the panel shows, with the minutes.
std::string shown(const std::vector<AppointmentRow> &rows, const AlertRule &rule, DateTime now)
{
    const std::vector<Alert> alerts = alertsFor(rows, rule, now);
    if (alerts.empty())
        return {};
    return (alerts.back().colour == AlertColour::Red ? "red " : "green ") + std::to_string(alerts.back().minutes);
}

class Alerts : public test::MainFileTest {};

}

// With 15 minutes before and 5 after: green from 09:45 to 09:59, red from 10:00 to 10:04. The seconds do not count.
TEST_F(Alerts, MinuteByMinute)
{
    const AlertRule rule{true, 15, 5};
    for (int minute = -40; minute <= 40; ++minute) {
        for (const int second : {0, 59}) {
            const DateTime now = DateTime::fromQDateTime(QDateTime(today, QTime(10, 0)).addSecs(minute * 60 + second));
            const std::string wanted = minute >= -15 && minute < 0 ? "green " + std::to_string(-minute)
                : minute >= 0 && minute < 5 ? "red " + std::to_string(-minute) : "";
            EXPECT_EQ(shown({row(u"10:00 am"_s)}, rule, now), wanted) << minute << ":" << second;
        }
    }
}

TEST_F(Alerts, RulesOfBeforeAndAfter)
{
    test::forEachRow("alerts", "rules", [](const test::Row &c) {
        const AlertRule rule{c.flag("on"), c.number("before"), c.number("after")};
        EXPECT_EQ(shown({row(u"10:00 am"_s)}, rule, at(c["now"])), c.text("wanted"));
    });
}

TEST_F(Alerts, RowsThatWarnNever)
{
    const AlertRule rule{true, 15, 5};
    for (const QString &time : {u"All Day"_s, u""_s, u"   "_s, u"ten o'clock"_s, u"25:00"_s, u"10:61 am"_s, u"10:00 am sharp"_s, u"'"_s, u"#"_s})
        EXPECT_EQ(shown({row(time)}, rule, at(u"10:00:00"_s)), "") << time.toStdString();
    EXPECT_EQ(shown({row(u"10:00 am"_s, 7, true)}, rule, at(u"10:00:00"_s)), "") << "met";
    EXPECT_EQ(shown({row(u"10:00 am"_s, 7, false, today.addDays(1))}, rule, at(u"10:00:00"_s)), "") << "tomorrow";
    EXPECT_EQ(shown({row(u"10:00 am"_s, 7, false, today.addYears(-1))}, rule, at(u"10:00:00"_s)), "") << "last year";
    EXPECT_EQ(shown({{7, basic::Value(), u"10:00 am"_s, u"Dentist"_s, false}}, rule, at(u"10:00:00"_s)), "") << "no date";
    // A row of another day that follows one of today takes nothing over from it.
    EXPECT_EQ(alertsFor({row(u"10:00 am"_s, 1), row(u"10:00 am"_s, 2, false, today.addDays(1))}, rule, at(u"10:00:00"_s)).size(), 1u);
}

TEST_F(Alerts, LastRowWinsAndEachIsToldOnceAColour)
{
    const AlertRule rule{true, 15, 5};
    const std::vector<AppointmentRow> rows{row(u"10:02 am"_s, 1), row(u"10:00 am"_s, 2), row(u"11:00 am"_s, 3), row(u"10:12 am"_s, 4)};
    const std::vector<Alert> alerts = alertsFor(rows, rule, at(u"10:01:00"_s));
    ASSERT_EQ(alerts.size(), 3u);
    EXPECT_EQ(alerts.back().id, 4);
    EXPECT_EQ(alerts[1].colour, AlertColour::Red);
    EXPECT_EQ(alerts[2].colour, AlertColour::Green) << "green again after a red row";

    AlertLog log;
    const auto told = [&](const QString &time, const QString &now) {
        const std::vector<Alert> one = alertsFor({row(time)}, rule, at(now));
        return !one.empty() && log.isNew(one.back());
    };
    EXPECT_TRUE(told(u"02:30 am"_s, u"02:20:00"_s));
    EXPECT_FALSE(told(u"02:30 am"_s, u"02:20:06"_s));
    EXPECT_TRUE(told(u"02:30 am"_s, u"02:31:00"_s)) << "red is another word";
    EXPECT_FALSE(told(u"02:30 am"_s, u"02:20:00"_s)) << "the hour that comes twice in autumn";
    EXPECT_FALSE(told(u"02:30 am"_s, u"09:00:00"_s)) << "slept through: nothing is left of it";
    EXPECT_TRUE(told(u"09:10 am"_s, u"09:00:00"_s)) << "moved to a later time";
    EXPECT_EQ(shown({row(u"02:30 am"_s)}, {true, 15, 90}, at(u"03:00:00"_s)), "red -30") << "the hour that spring lacks";
}

TEST_F(Alerts, TextsInTheUsersFormat)
{
    state().settings.gDateDisplay = u"dd/mm/yyyy"_s;      // in a region that reads the month first
    const DateTime now = DateTime::fromQDateTime(QDateTime(QDate(2026, 5, 12), QTime(9, 50, 30)));
    const std::vector<Alert> alerts =
        alertsFor({row(u"10:00 Am"_s, 7, false, QDate(2026, 5, 12))}, {true, 15, 5}, now);
    ASSERT_EQ(alerts.size(), 1u);
    EXPECT_EQ(alerts[0].caption, u" Appointment Reminder 10:00 am "_s);
    EXPECT_EQ(alerts[0].toolTip, u" Appointment scheduled for 12/05/2026 10:00 am "_s);
    EXPECT_EQ(alerts[0].text, u" Appointment scheduled for \t12/05/2026 10:00 am\n It is Now \t12/05/2026 09:50 am\n"
                              "10 minute/s remaining\n"_s + u"-"_s.repeated(85) + u"\nDentist"_s);
    state().settings.gDateDisplay = u"dddd, dd mmmm"_s;   // and one that no region reads
    EXPECT_EQ(alertsFor({row(u"10:00 Am"_s, 7, false, QDate(2026, 5, 12))}, {true, 15, 5}, now).size(), 1u);
}

TEST_F(Alerts, TodaysRowsOfAnyPeriod)
{
    const auto add = [&](const QString &date, const QString &time, const QString &text) {
        execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[MET]) VALUES (#%1#,'%2','%3',False)"_s.arg(date, time, text));
    };
    add(u"11/22/2026"_s, u"10:00 am"_s, u"b"_s);
    add(u"11/22/2026"_s, u"10:00 am"_s, u"a"_s);
    add(u"11/22/2026"_s, u"09:00 am"_s, u"c"_s);
    add(u"11/23/2026"_s, u"10:00 am"_s, u"tomorrow"_s);
    DetectDateOrder();
    openMainDatabase();
    struct Case { const char *name; std::function<void()> choose; QString wanted; };
    const Case cases[] = {
        {"day", [] { SetDayPeriod(u"Today"_s); }, u"cba"_s}, {"year", SetThisYear, u"cba"_s}, {"all", SetAllRecords, u"cba"_s},
        {"tomorrow", [] { SetDayPeriod(u"Tomorrow"_s); }, u"cba"_s}, {"no query yet", [] { state().period.gSqlAppointments.clear(); }, u"cba"_s}};
    for (const Case &c : cases) {
        c.choose();
        QString texts;
        for (const AppointmentRow &one : appointmentsOfToday())
            texts += one.appointment;
        EXPECT_EQ(texts, c.wanted) << c.name;
    }
}

TEST_F(Alerts, PopUpFile)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[MET]) VALUES (#11/22/2026#,'09:00 Am','Say \"hi\", Zoë',True)"_s);
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME]) VALUES (#11/22/2026#,'All Day')"_s);
    m_folder.write(u"popapps.txt"_s, "an older and much longer list\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
    DetectDateOrder();
    openMainDatabase();
    SetDayPeriod(u"Today"_s);
    EXPECT_TRUE(writeAppointsFile());
    EXPECT_EQ(m_folder.read(u"popapps.txt"_s), "\"11/22/2026\",\"09:00 Am\",\"Say \"hi\", Zo\xC3\xAB\",\"True\",\"1\"\r\n"
                                               "\"11/22/2026\",\"All Day\",\"\",\"False\",\"2\"\r\n");
    SetDayPeriod(u"Tomorrow"_s);
    EXPECT_FALSE(writeAppointsFile());
    EXPECT_EQ(m_folder.read(u"popapps.txt"_s), "");
    ASSERT_TRUE(QDir(m_folder.path()).remove(u"popapps.txt"_s) && QDir(m_folder.path()).mkdir(u"POPAPPS.TXT"_s));
    EXPECT_EQ(test::errorOf([] { writeAppointsFile(); }), 75);
}

}
