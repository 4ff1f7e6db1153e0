#include "frame/framefixture.h"
#include "session/ini.h"
#include "frame/periods.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace vorel {

class PeriodsTest : public test::FrameTest {
protected:
    static QString period() { return state().period.gPeriodStart + u'-' + state().period.gPeriodEnd; }
};

TEST_F(PeriodsTest, weeksMonthsAndYears)
{
    const QHash<QString, void (*)()> setters{
        {u"SetThisWeek"_s, SetThisWeek}, {u"SetLastWeek"_s, SetLastWeek}, {u"SetNextWeek"_s, SetNextWeek},
        {u"SetThisMonth"_s, SetThisMonth}, {u"SetLastMonth"_s, SetLastMonth}, {u"SetNextMonth"_s, SetNextMonth},
        {u"SetThisYear"_s, SetThisYear}, {u"SetLastYear"_s, SetLastYear}, {u"SetNextYear"_s, SetNextYear}};
    // Week starts that lie later in the week, a new year, leap days.
    test::forEachRow("periods", "spans", [&](const test::Row &row) {
        clock.set(QDate::fromString(row["today"], Qt::ISODate));
        state().settings.gWeekStartDay = static_cast<std::int16_t>(row.number("weekStart"));
        setters.value(row["set"])();
        EXPECT_EQ(period(), row["start"] + u'-' + row["end"]);
        EXPECT_NE(state().settings.gWeekStartDay, 0);
    });
}

TEST_F(PeriodsTest, periodTextFollowsTheMachineButQueriesAndYearsDoNot)
{
    test::forEachRow("periods", "regions", [this](const test::Row &row) {
        use(row["locale"]);
        SetThisWeek();
        EXPECT_EQ(period(), row["weekStart"] + u'-' + row["weekEnd"]);
        EXPECT_TRUE(state().period.gSqlBills.contains(u"between #06/12/2005# and #06/18/2005#"_s)) << state().period.gSqlBills;

        SetThisYear();
        EXPECT_EQ(state().period.gPeriodEnd, u"31/12/2005"_s);
        EXPECT_TRUE(state().period.gSqlBills.contains(u"between #01/01/2005# and #12/31/2005#"_s)) << state().period.gSqlBills;
        periodCaption();
        EXPECT_EQ(period(), u"01/01/2005-"_s + row["yearEndShown"]);
        BuildPeriodQueries();
        EXPECT_TRUE(state().period.gSqlBills.contains(u"between #01/01/2005# and #12/31/2005#"_s)) << state().period.gSqlBills;
    });
}

TEST_F(PeriodsTest, periodQueries)
{
    clock.set({2004, 12, 31});
    SetThisWeek();
    const State &s = state();
    EXPECT_EQ(s.period.gSqlAppointments, u"select * from APPOINTMENTS where [DATE] between #12/26/2004# and #01/01/2005# "
                                  "ORDER BY [DATE],[APPTIME],[APPOINTMENT] DESC"_s);
    EXPECT_EQ(s.period.gSqlBills, u"select * from BILLS where [DATE] between #12/26/2004# and #01/01/2005# "
                           "ORDER BY [DATE],[BILL] DESC"_s);
    EXPECT_EQ(s.period.gSqlEvents,
              u"select * from EVENTS where [DATE] between #12/26/2004# and #01/01/2005#"
              " OR [DATE]<#12/26/2004# AND [SUBJECT]='ANNIVERSARY' AND DATESERIAL( 2004,MONTH([DATE]),DAY([DATE])) between #12/26/2004# and #01/01/2005#"
              " OR [DATE]<#12/26/2004# AND [SUBJECT]='BIRTHDAY' AND DATESERIAL( 2004,MONTH([DATE]),DAY([DATE])) between #12/26/2004# and #01/01/2005#"
              " OR [DATE]<#12/26/2004# AND [SUBJECT]='ON THIS DAY' AND DATESERIAL( 2004,MONTH([DATE]),DAY([DATE])) between #12/26/2004# and #01/01/2005#"
              " OR [DATE]<#12/26/2004# AND [RECURRING]=True AND DATESERIAL( 2004,MONTH([DATE]),DAY([DATE])) between #12/26/2004# and #01/01/2005#"
              " ORDER BY [Date],[Subject],[Event]"_s);
    // They follow the period, not the day.
    EXPECT_EQ(s.period.gTodayMonth, 12);
    EXPECT_EQ(s.period.gTodayYear, 2004);
    SetNextWeek();
    EXPECT_EQ(s.period.gTodayMonth, 1);
    EXPECT_EQ(s.period.gTodayYear, 2005);
}

TEST_F(PeriodsTest, dayQueries)
{
    clock.set({2005, 2, 28});
    SetDayPeriod(u"Tomorrow"_s);
    const State &s = state();
    EXPECT_EQ(period(), u"01/03/2005-01/03/2005"_s);
    EXPECT_EQ(s.period.gSqlAppointments, u"select * from APPOINTMENTS where [DATE]=#03/01/2005# ORDER BY [APPTIME],[APPOINTMENT] DESC"_s);
    EXPECT_EQ(s.period.gSqlBills, u"select * from BILLS where [DATE]=#03/01/2005# ORDER BY [DATE],[BILL],[AMOUNT] DESC"_s);
    EXPECT_EQ(s.period.gSqlEvents, u"select * from EVENTS where [DATE]=#03/01/2005#"
                            " OR [SUBJECT]='ANNIVERSARY' AND month([DATE]) = 3 AND day([DATE]) = 1"
                            " OR [SUBJECT]='BIRTHDAY' AND month([DATE]) = 3 AND day([DATE]) = 1"
                            " OR [SUBJECT]='ON THIS DAY' AND month([DATE]) = 3 AND day([DATE]) = 1"
                            " OR [SUBJECT]='HOLIDAY' AND month([DATE]) = 3 AND day([DATE]) = 1"
                            " OR [RECURRING]=True AND month([DATE]) = 3 AND day([DATE]) = 1"
                            " ORDER BY [DATE],[SUBJECT],[EVENT]"_s);
}

TEST_F(PeriodsTest, dayPeriods)
{
    clock.set({2005, 1, 1});
    const struct { QString name, start; int year; } cases[] = {
        {u"Yesterday"_s, u"31/12/2004"_s, 2004},
        {u"Today"_s, u"01/01/2005"_s, 2005},
        {u"Tomorrow"_s, u"02/01/2005"_s, 2005},
        // Any other name keeps the period that is set.
        {u"Someday"_s, u"02/01/2005"_s, 2005},
    };
    for (const auto &c : cases) {
        SetDayPeriod(c.name);
        EXPECT_EQ(period(), c.start + u'-' + c.start) << c.name;
        EXPECT_EQ(state().period.gTodayYear, c.year) << c.name;
    }
    EXPECT_TRUE(state().period.gSqlBills.contains(u"#01/02/2005#"_s));
}

TEST_F(PeriodsTest, allRecordsFilterNothing)
{
    SetThisWeek();
    SetAllRecords();
    EXPECT_EQ(period(), u"-"_s);
    EXPECT_EQ(state().period.gSqlAppointments, u"select * from [APPOINTMENTS] ORDER BY [DATE],[APPTIME],[APPOINTMENT]"_s);
    EXPECT_EQ(state().period.gSqlBills, u"select * from [BILLS] ORDER BY [DATE],[BILL],[AMOUNT]"_s);
    EXPECT_EQ(state().period.gSqlEvents, u"select * from [EVENTS] ORDER BY [DATE],[SUBJECT],[EVENT]"_s);
    EXPECT_EQ(periodCaption(), u" (All Records)"_s);
    EXPECT_EQ(state().period.gPeriodStart, QString());
}

TEST_F(PeriodsTest, captionOfThePeriod)
{
    clock.set({2005, 6, 15});
    const struct { QString locale, display; void (*set)(); QString caption; } cases[] = {
        {u"en_AU"_s, u"dd mmm yyyy"_s, [] { SetDayPeriod(u"Today"_s); }, u" (Today - Wed 15 Jun 2005)"_s},
        {u"en_US"_s, u"mm/dd/yyyy"_s, [] { SetDayPeriod(u"Yesterday"_s); }, u" (Yesterday - Tue 06/14/2005)"_s},
        {u"de_DE"_s, u"dd/mm/yyyy"_s, [] { SetDayPeriod(u"Tomorrow"_s); }, u" (Tomorrow - Thu 16/06/2005)"_s},
        {u"en_AU"_s, u"dd/mm/yyyy"_s, SetThisWeek, u" (12/06/2005 - 18/06/2005)"_s},
        {u"en_US"_s, u"dd mmm yyyy"_s, SetThisYear, u" (01 Jan 2005 - 31 Dec 2005)"_s},
        // Another single day.
        {u"en_US"_s, u"mm/dd/yyyy"_s, [] { state().period.gPeriodStart = state().period.gPeriodEnd = u"06/20/2005"_s; }, u" (06/20/2005)"_s},
        // Nothing chosen yet: the machine's own form.
        {u"en_US"_s, {}, SetThisWeek, u" (6/12/2005 - 6/18/2005)"_s},
        {u"en_US"_s, {}, [] { SetDayPeriod(u"Today"_s); }, u" (Today - Wed 6/15/2005)"_s},
    };
    for (const auto &c : cases) {
        use(c.locale);
        state().settings.gDateDisplay = c.display;
        c.set();
        EXPECT_EQ(periodCaption(), c.caption);
    }
}

TEST_F(PeriodsTest, menuCaptionsTellTheirDates)
{
    clock.set({2005, 1, 31});
    state().settings.gDateDisplay = u"dd/mm/yyyy"_s;
    const QStringList expected{
        u"Today ......... 31/01/2005"_s, u"Tomorrow ... 01/02/2005"_s, u"Yesterday ... 30/01/2005"_s,
        u"This Week ... 30/01/2005 - 05/02/2005"_s, u"Next Week ... 06/02/2005 - 12/02/2005"_s,
        u"Last Week ... 23/01/2005 - 29/01/2005"_s, u"This Month ... January 2005"_s,
        u"Next Month ... February 2005"_s, u"Last Month ... December 2004"_s, u"This Year ... 2005"_s,
        u"Next Year ... 2006"_s, u"Last Year ... 2004"_s, u"All Records"_s};
    QStringList captions;
    for (const PeriodEntry &entry : periodTable())
        captions << entry.caption();
    EXPECT_EQ(captions, expected) << captions.join(u'\n');
    // The last week that was written is the period.
    EXPECT_EQ(state().period.gPeriodStart, u"23/01/2005"_s);
}

TEST_F(PeriodsTest, startPeriodOfTheSetting)
{
    EXPECT_EQ(QStringView(startPeriod().menu), u"mnuThisWeek");
    test::forEachRow("periods", "starts", [](const test::Row &row) {
        PutIniValue(iniSettings, u"DisplayPeriod"_s, row["setting"]);
        EXPECT_EQ(QStringView(startPeriod().menu), row["menu"]);
    });
}

}
