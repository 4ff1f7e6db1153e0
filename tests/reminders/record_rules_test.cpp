#include "reminders/record.h"
#include "store/mainfile.h"
#include "support/table.h"

#include <QTest>

namespace vorel {

using namespace Qt::StringLiterals;
using namespace reminders;

class RecordRules : public test::MainFileTest {};

static std::optional<basic::DateTime> day(int year, int month, int dayOfMonth)
{
    return basic::DateTime::fromParts(year, month, dayOfMonth);
}

static std::optional<basic::DateTime> day(const QString &iso)
{
    return iso.isEmpty() ? std::nullopt : std::optional(basic::DateTime::fromQDate(QDate::fromString(iso, Qt::ISODate)));
}

TEST_F(RecordRules, PanelIsSetBackFromTheFields)
{
    // Two months show as a quarter.
    test::forEachRow("rules", "frequency", [](const test::Row &row) {
        EXPECT_EQ(frequencyOf(row["months"], row["days"], row["weekNum"], row["weekDay"]),
                  (Frequency{row.flag("repeats"), row.number("option", noOption), row["shownDays"]}));
    });
}

TEST_F(RecordRules, OptionsLeadToTheNextDate)
{
    // Cut back to the month's last day; nothing where the day lies beyond the calendar.
    test::forEachRow("rules", "next", [](const test::Row &row) {
        EXPECT_EQ(nextDate(row.number("option", noOption), day(row["date"]), row["days"]), day(row["next"]));
    });
}

TEST_F(RecordRules, ApplyFillsThePeriodBoxes)
{
    test::forEachRow("rules", "periods", [](const test::Row &row) {
        EXPECT_EQ(appliedPeriod(row.number("option", noOption), row["days"]), (Period{row["monthBox"], row["dayBox"]}));
    });
}

TEST_F(RecordRules, TextsAreReadAsDaysAndAmounts)
{
    EXPECT_EQ(storedDay(u"12/31/2026 10:30 PM"_s), day(2026, 12, 31));      // a row lies on a day, not on a moment
    EXPECT_EQ(storedDay(u"10:30 PM"_s), std::nullopt);
    EXPECT_EQ(storedDay(u"31 February 2026"_s), std::nullopt);
    EXPECT_EQ(weekDayOf(day(2026, 11, 22)), u"Sun"_s);
    EXPECT_EQ(weekDayOf(std::nullopt), QString());

    state().settings.gNumberFormat = u"######0.00"_s;
    EXPECT_EQ(moneyText(u"12.5"_s), u"12.50"_s);
    EXPECT_EQ(moneyText(u"$1,250"_s), u"1250.00"_s);
    EXPECT_EQ(moneyText(u"12 dollars"_s), u"12.00"_s);
    EXPECT_EQ(moneyText({}), u"0.00"_s);
}

TEST_F(RecordRules, TimeListRunsInFiveMinutesFromEight)
{
    const QStringList times = timeList();
    ASSERT_GT(times.size(), 12 * 9);            // the working day at least
    EXPECT_EQ(times[0], u"All Day"_s);
    EXPECT_EQ(times[1].compare(u"08:00 AM"_s, Qt::CaseInsensitive), 0);
    EXPECT_EQ(times[2].compare(u"08:05 AM"_s, Qt::CaseInsensitive), 0);
    EXPECT_EQ(times[1 + 12 * 5].compare(u"01:00 PM"_s, Qt::CaseInsensitive), 0);
}

TEST_F(RecordRules, GreetingControls)
{
    EXPECT_EQ(greetingOf(false, true, u"a@b.c"_s, u"4"_s, true), (Greeting{false, false, false, false}));
    EXPECT_EQ(greetingOf(true, false, {}, u"4"_s, false), (Greeting{true, false, false, false}));
    EXPECT_EQ(greetingOf(true, true, u"a@b.c"_s, u"4"_s, true), (Greeting{true, true, true, true}));
    EXPECT_EQ(greetingOf(true, true, u"a@b.c"_s, u"0"_s, false), (Greeting{true, false, true, false}));
}

TEST_F(RecordRules, WebsiteIsNeverAProgram)
{
    EXPECT_EQ(webAddress(u"  "_s), QString());
    EXPECT_EQ(webAddress(u"www.example.org"_s), u"http://www.example.org"_s);
    EXPECT_EQ(webAddress(u"https://example.org/pay"_s), u"https://example.org/pay"_s);
    EXPECT_EQ(webAddress(u"/bin/sh"_s), u"http:///bin/sh"_s);
    EXPECT_EQ(webAddress(u"file:///etc/passwd"_s), u"http://file:///etc/passwd"_s);
}

TEST_F(RecordRules, NewRowsAndCopies)
{
    setToday(u"2026-11-22"_s);
    state().settings.gUserName = u"Ann"_s;
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[MET],[Delete],[PeriodDays],[WeekNum],[UsersName],[IDNUM])"
            " VALUES (#03/04/2025#,'10:15 am','Gym',-1,-1,7,'2nd','Bob',9)"_s);
    dao::Database file = open();
    dao::Recordset rows = file.OpenRecordset(reminderDesign(u"A"_s).allRows.toString());
    ASSERT_TRUE(addRow(rows, reminderDesign(u"A"_s), {}));
    const auto copy = addRow(rows, reminderDesign(u"A"_s), u" 1 "_s);
    ASSERT_TRUE(copy);
    rows.setBookmark(*copy);
    EXPECT_EQ(rows.Get(u"ID").text(), u"3"_s);
    for (const QString &gone : {u"77"_s, u"x'y"_s})
        EXPECT_EQ(addRow(rows, reminderDesign(u"A"_s), gone), std::nullopt);
    EXPECT_FALSE(rows.editPending());
    rows.Close();

    const QStringList expected{
        u"2025-03-04|10:15 am|Gym|True|True|7|2nd|Bob|9|False"_s,
        u"2026-11-22|12:00 pm|Null|False|False|0|Null|Ann|0|True"_s,
        u"2026-11-22|10:15 am|Gym|True|True|7|2nd|Bob|9|True"_s,
    };
    EXPECT_EQ(this->rows(u"SELECT [DATE],[APPTIME],[APPOINTMENT],[MET],[Delete],[PeriodDays],[WeekNum],[UsersName],[IDNUM],[TimeUpdate]"
                         " FROM [APPOINTMENTS] ORDER BY [ID]"_s), expected);
}

}
