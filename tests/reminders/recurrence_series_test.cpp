#include "platform/basic/format.h"
#include "reminders/recurrence.h"
#include "store/mainfile.h"

namespace vorel {

using namespace Qt::StringLiterals;

static QDate day(const QString &iso)
{
    return QDate::fromString(iso, Qt::ISODate);
}

// Saves rows and series the way the record screen does: first the row, then what follows from it.
class SeriesTest : public test::MainFileTest, public testing::WithParamInterface<const char *> {
protected:
    static SeriesFields fieldsOn(const QString &iso, ReminderKind kind = ReminderKind::Appointment)
    {
        SeriesFields fields;
        fields.kind = kind;
        fields.text = u"Gym"_s;
        fields.date = basic::DateTime::fromQDate(day(iso));
        fields.time = u"09:00 AM"_s;
        fields.amount = 12;
        fields.website = u"www.example.org"_s;
        return fields;
    }
    static QString table(const SeriesFields &fields)
    {
        return fields.kind == ReminderKind::Bill ? u"[Bills]"_s : u"[Appointments]"_s;
    }
    static QString textField(const SeriesFields &fields)
    {
        return fields.kind == ReminderKind::Bill ? u"[Bill]"_s : u"[Appointment]"_s;
    }
    void saveRow(const SeriesFields &fields, const QString &iso) const
    {
        execute(u"INSERT INTO %1 (%2, [Date], [PeriodDays], [PeriodMonth], [WeekNum], [WeekDay]) VALUES (%3, #%4#, "
                "%5, %6, '%7', '%8');"_s.arg(table(fields), textField(fields),
                                             fields.text.isEmpty() ? u"Null"_s : dao::literal(fields.text),
                                             day(iso).toString(u"MM/dd/yyyy"_s)).arg(fields.days).arg(fields.months)
                    .arg(fields.weekNum, fields.weekDay));
    }
    SeriesResult createSeries(const SeriesFields &fields) const
    {
        dao::Database database = open();
        return vorel::createSeries(database, fields);
    }
    QStringList dates(const SeriesFields &fields) const
    {
        return rows(u"SELECT [Date] FROM %1 WHERE %2='%3' ORDER BY [Date];"_s.arg(table(fields), textField(fields),
                                                                                  fields.text));
    }
};

struct PeriodCase {
    const char *name;
    const char *today;
    const char *start;
    int days;
    int months;
    int count;                  // rows of the series afterwards, the saved one included
    const char *dates;          // all of them, or the first ones
    const char *last;
};

const PeriodCase periodCases[] = {
    {"the 31st sinks to the 28th and stays", "2026-11-22", "2027-01-31", 0, 1, 13,
     "2027-01-31 2027-02-28 2027-03-28 2027-04-28", "2028-01-28"},
    {"in a leap year to the 29th", "2027-03-01", "2027-12-31", 0, 1, 14,
     "2027-12-31 2028-01-31 2028-02-29 2028-03-29", "2029-01-29"},
    {"a leap day every year", "2026-11-22", "2024-02-29", 0, 12, 5, "2024-02-29 2025-02-28 2026-02-28", "2028-02-28"},
    {"quarters from a month's end", "2026-11-22", "2026-11-30", 0, 3, 6, "2026-11-30 2027-02-28 2027-05-28",
     "2028-02-28"},
    {"a year from the first of next year", "2026-11-22", "2027-01-01", 0, 12, 2, "2027-01-01 2028-01-01", "2028-01-01"},
    {"a month from the last day", "2026-11-22", "2027-12-31", 0, 1, 2, "2027-12-31 2028-01-31", "2028-01-31"},
    {"months beyond the end", "2026-11-22", "2028-01-01", 0, 1, 1, "2028-01-01", "2028-01-01"},
    {"every day", "2026-11-22", "2026-11-22", 1, 0, 405, "2026-11-22 2026-11-23", "2027-12-31"},
    {"every day over a leap day", "2027-06-01", "2028-02-27", 1, 0, 309,
     "2028-02-27 2028-02-28 2028-02-29 2028-03-01", "2028-12-31"},
    {"every week", "2026-11-22", "2026-12-30", 7, 0, 53, "2026-12-30 2027-01-06", "2027-12-29"},
    {"a day on the last day", "2026-11-22", "2027-12-31", 1, 0, 1, "2027-12-31", "2027-12-31"},
    {"days beyond the end", "2026-11-22", "2028-01-01", 1, 0, 1, "2028-01-01", "2028-01-01"},
    {"the end follows today, not the row", "2026-01-01", "2025-12-31", 365, 0, 3, "2025-12-31 2026-12-31 2027-12-31",
     "2027-12-31"},
    {"on the last day of the year", "2026-12-31", "2027-12-01", 15, 0, 3, "2027-12-01 2027-12-16 2027-12-31",
     "2027-12-31"},
    {"days and months together", "2026-11-22", "2027-11-30", 20, 1, 4,
     "2027-11-30 2027-12-20 2027-12-30 2028-01-30", "2028-01-30"},
    {"a period below nothing", "2026-11-22", "2026-11-22", -7, 0, 1, "2026-11-22", "2026-11-22"},
};

// Under each date order and with each way of showing dates: what is stored is the same.
TEST_P(SeriesTest, periods)
{
    setRegion(QString::fromLatin1(GetParam()));
    for (const QString &format : {u""_s, u"dd/mm/yyyy"_s, u"mm/dd/yyyy"_s}) {
        state().settings.gDateDisplay = format;
        for (const PeriodCase &wanted : periodCases) {
            for (const ReminderKind kind : {ReminderKind::Appointment, ReminderKind::Bill}) {
                if (kind == ReminderKind::Bill && !format.isEmpty())
                    continue;
                SCOPED_TRACE(wanted.name);
                setToday(QString::fromLatin1(wanted.today));
                SeriesFields fields = fieldsOn(QString::fromLatin1(wanted.start), kind);
                fields.days = wanted.days;
                fields.months = wanted.months;
                execute(u"DELETE * FROM "_s + table(fields));
                saveRow(fields, QString::fromLatin1(wanted.start));
                const SeriesResult added = createSeries(fields);
                const QStringList found = dates(fields);
                EXPECT_EQ(added.rows, wanted.count - 1);
                EXPECT_LE(std::abs(seriesLength(fields) - added.rows), 1);
                const QStringList first = QString::fromLatin1(wanted.dates).split(u' ');
                EXPECT_EQ(found.size(), wanted.count);
                EXPECT_EQ(found.first(first.size()), first);
                EXPECT_EQ(found.last(), QString::fromLatin1(wanted.last));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Regions, SeriesTest, testing::Values("en_US", "en_AU", "de_DE"),
                         [](const auto &region) { return std::string(region.param); });

class SeriesRowsTest : public SeriesTest {};

// Rows without a text belong to no series: nothing removes them, and a second save adds no day twice.
TEST_F(SeriesRowsTest, WithoutATextNoDayIsDoubled)
{
    for (const auto &[days, months] : {std::pair{7, 0}, {0, 1}}) {
        execute(u"DELETE * FROM [Appointments]"_s);
        SeriesFields fields = fieldsOn(u"2027-11-23"_s);
        fields.text.clear();
        fields.days = days;
        fields.months = months;
        saveRow(fields, u"2027-11-23"_s);
        execute(u"INSERT INTO [Appointments] ([Date]) VALUES (#12/24/2026#);"_s);
        EXPECT_EQ(createSeries(fields).rows, days ? 5 : 2);
        EXPECT_EQ(createSeries(fields).rows, 0);
        EXPECT_EQ(count(u"Appointments"_s), days ? 7 : 4);
        EXPECT_EQ(rows(u"SELECT [ID] FROM [Appointments] WHERE [Date]=#11/23/2027#"_s).size(), 1);
    }
}

TEST_F(SeriesRowsTest, fieldsOfTheRowsMade)
{
    const struct {
        ReminderKind kind;
        int days, months;
        bool weekday, fixed, deleteAfter;
        const char *row;
    } cases[] = {
        {ReminderKind::Appointment, 7, 0, false, false, true, "Mon|09:00 AM|True|False|True|7|0|Null|Null|Null|0"},
        {ReminderKind::Appointment, 0, 1, false, true, false, "Wed|09:00 AM|True|False|False|0|1|Null|Null|Null|0"},
        {ReminderKind::Appointment, 0, 0, true, true, false, "Mon|09:00 AM|True|False|False|0|0|4th|Mon|Null|0"},
        {ReminderKind::Bill, 7, 0, false, false, false, "Mon|0|Null|False|False|7|0|Null|Null|Null|0|False"},
        {ReminderKind::Bill, 7, 0, false, true, true, "Mon|12|Null|False|True|7|0|Null|Null|Null|0|False"},
        {ReminderKind::Bill, 0, 1, false, false, false,
         "Wed|12|www.example.org|False|False|0|1|Null|Null|Null|0|False"},
        {ReminderKind::Bill, 0, 0, true, false, false, "Mon|12|Null|False|False|0|0|4th|Mon|Null|0|False"},
    };
    for (const auto &wanted : cases) {
        SCOPED_TRACE(wanted.row);
        SeriesFields fields = fieldsOn(u"2026-11-23"_s, wanted.kind);
        fields.days = wanted.days;
        fields.months = wanted.months;
        fields.weekdayRule = wanted.weekday;
        fields.weekNum = u"4th"_s;
        fields.weekDay = u"Mon"_s;
        fields.fixedAmount = wanted.fixed;
        fields.deleteAfter = wanted.deleteAfter;
        execute(u"DELETE * FROM "_s + table(fields));
        saveRow(fields, u"2026-11-23"_s);
        createSeries(fields);
        const bool bill = wanted.kind == ReminderKind::Bill;
        const QStringList made = rows(
            u"SELECT [Day], %1 [Delete], [PeriodDays], [PeriodMonth], [WeekNum], [WeekDay], [UsersName], [IDNUM]%2 "
            "FROM %3 WHERE [Date]>#11/23/2026# ORDER BY [Date];"_s.arg(
                bill ? u"[Amount], [Website], [Paid],"_s : u"[AppTime], [TimeUpdate], [Met],"_s,
                bill ? u", [FixedAmount]"_s : u""_s, table(fields)));
        ASSERT_FALSE(made.isEmpty());
        EXPECT_EQ(made.first(), QString::fromLatin1(wanted.row));
    }
}

// The series is whatever has the text, as the engine compares texts; only the rows of the day itself stay.
TEST_F(SeriesRowsTest, theTextAloneTellsTheSeries)
{
    SeriesFields fields = fieldsOn(u"2026-11-23"_s);
    for (const char *values : {"'Gym', #11/23/2026#", "'GYM', #11/23/2026#", "'gym ', #01/01/2020#", "'Gym', #11/24/2026#",
                               "'Gym', Null", "'Gym two', #11/24/2026#", "'Gymnastics', #01/01/2020#"})
        execute(u"INSERT INTO [Appointments] ([Appointment], [Date]) VALUES (%1);"_s.arg(QString::fromLatin1(values)));
    execute(u"INSERT INTO [Bills] ([Bill], [Date]) VALUES ('Gym', #11/24/2026#);"_s);
    dao::Database database = open();
    DeleteFutureDates(database, fields);
    EXPECT_EQ(rows(u"SELECT [Appointment], [Date] FROM [Appointments] ORDER BY [ID];"_s),
              QStringList({u"Gym|2026-11-23"_s, u"GYM|2026-11-23"_s, u"Gym|Null"_s, u"Gym two|2026-11-24"_s,
                           u"Gymnastics|2020-01-01"_s}));
    EXPECT_EQ(count(u"Bills"_s), 1);

    fields.kind = ReminderKind::Event;
    fields.days = 7;
    const QByteArray before = bytes();
    DeleteFutureDates(database, fields);
    createSeries(fields);
    EXPECT_EQ(bytes(), before);
}

// The day that the rule names in a month, by the calendar.
static QDate nthWeekday(int year, int month, int nth, Qt::DayOfWeek weekday)
{
    const QDate first(year, month, 1);
    return first.addDays((weekday - first.dayOfWeek() + 7) % 7 + 7 * (nth - 1));
}

TEST_P(SeriesTest, weekdays)
{
    setRegion(QString::fromLatin1(GetParam()));
    const QStringList names = {u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s, u"Sun"_s};
    const QStringList numbers = {u"1st"_s, u"2nd"_s, u"3rd"_s, u"4th"_s};
    for (int weekday = 1; weekday <= 7; ++weekday) {
        for (int nth = 1; nth <= 4; ++nth) {
            // A row late in October: the month's own day may lie before it.
            const QDate start = nthWeekday(2027, 10, 4, static_cast<Qt::DayOfWeek>(weekday)).addDays(-7);
            SeriesFields fields = fieldsOn(start.toString(Qt::ISODate));
            fields.weekdayRule = true;
            fields.weekDay = names[weekday - 1];
            fields.weekNum = numbers[nth - 1];
            SCOPED_TRACE(qPrintable(fields.weekNum + u' ' + fields.weekDay));
            execute(u"DELETE * FROM [Appointments]"_s);
            saveRow(fields, start.toString(Qt::ISODate));
            createSeries(fields);
            QStringList wanted;
            for (int month = 10; month <= 24; ++month) {
                const int year = month <= 12 ? 2027 : 2028;
                wanted << nthWeekday(year, (month - 1) % 12 + 1, nth, static_cast<Qt::DayOfWeek>(weekday))
                              .toString(Qt::ISODate);
            }
            if (!wanted.contains(start.toString(Qt::ISODate)))
                wanted << start.toString(Qt::ISODate);
            wanted.sort();
            EXPECT_EQ(dates(fields), wanted);
        }
    }
}

TEST_F(SeriesRowsTest, theWeekdayRuleMayMakeNothing)
{
    const struct { const char *name, *weekNum, *weekDay; bool chosen; int count; } cases[] = {
        {"the row's own day is another", "1st", "Mon", true, 2},
        {"no number", "", "Tue", true, 2},
        {"no day", "1st", "", true, 2},
        {"the rule is not chosen", "1st", "Tue", false, 2},
        {"no such number", "6th", "Tue", true, 1},      // applies, so that the other row goes, and finds no day
    };
    for (const auto &wanted : cases) {
        SCOPED_TRACE(wanted.name);
        SeriesFields fields = fieldsOn(u"2026-11-24"_s);
        fields.weekNum = QString::fromLatin1(wanted.weekNum);
        fields.weekDay = QString::fromLatin1(wanted.weekDay);
        fields.weekdayRule = wanted.chosen;
        execute(u"DELETE * FROM [Appointments]"_s);
        saveRow(fields, u"2026-11-24"_s);
        saveRow(fields, u"2026-12-24"_s);
        createSeries(fields);
        EXPECT_EQ(count(u"Appointments"_s), wanted.count);
    }
}

// A period takes over from the weekday rule: what that made goes.
TEST_F(SeriesRowsTest, bothRulesOnOneSave)
{
    SeriesFields fields = fieldsOn(u"2026-11-24"_s);
    fields.weekdayRule = true;
    fields.weekNum = u"1st"_s;
    fields.weekDay = u"Tue"_s;
    fields.months = 12;
    saveRow(fields, u"2026-11-24"_s);
    createSeries(fields);
    EXPECT_EQ(dates(fields), QStringList({u"2026-11-24"_s, u"2027-11-24"_s, u"2028-11-24"_s}));
}

// An error on the way leaves the file as it was, to the byte.
TEST_F(SeriesRowsTest, aFailedSaveLeavesEverything)
{
    execute(u"INSERT INTO [Appointments] ([Appointment], [Date]) VALUES ('Mum''s', #11/24/2026#);"_s);
    execute(u"INSERT INTO [Appointments] ([Appointment], [Date]) VALUES ('Gym', #11/24/2026#);"_s);
    const struct { const char *name, *text; int days; const char *time; } cases[] = {
        {"a quote", "Mum's", 7, "09:00 AM"},
        {"a doubled quote", "Mum''s", 7, "09:00 AM"},
        {"quotes that would widen the query", "' OR [ID]>0 OR ''='", 7, "09:00 AM"},
        {"a period that no field holds", "Gym", 40000, "09:00 AM"},
        {"a time that is too long", "Gym", 7, "nine in the morning"},
        {"a text that is too long", nullptr, 7, "09:00 AM"},
    };
    for (const auto &wanted : cases) {
        SCOPED_TRACE(wanted.name);
        SeriesFields fields = fieldsOn(u"2026-11-23"_s);
        fields.text = wanted.text ? QString::fromLatin1(wanted.text) : QString(256, u'x');
        fields.days = wanted.days;
        fields.time = QString::fromLatin1(wanted.time);
        const QStringList before = rows(u"SELECT * FROM [Appointments] ORDER BY [ID];"_s);
        EXPECT_NE(test::errorOf([&] { createSeries(fields); }), 0);
        EXPECT_EQ(rows(u"SELECT * FROM [Appointments] ORDER BY [ID];"_s), before);
    }
    dao::Database database = open();
    SeriesFields quote = fieldsOn(u"2026-11-23"_s);
    quote.text = u"Mum's"_s;
    EXPECT_EQ(test::errorOf([&] { DeleteFutureDates(database, quote); }), 3075);

    SeriesFields undated = fieldsOn(u"2026-11-23"_s);
    undated.date.reset();
    undated.days = 7;
    EXPECT_EQ(test::errorOf([&] { createSeries(undated); CreateMonthDates(database, undated); }), 0);
    EXPECT_EQ(count(u"Appointments"_s), 2);
}

// Counted before anything is written: a year with a digit missing asks for hundreds of thousands of rows.
TEST_F(SeriesRowsTest, TheLengthIsKnownBefore)
{
    const struct { int year, days, months, length; } cases[] = {
        {2026, 1, 0, 404}, {2026, 0, 1, 14}, {206, 1, 0, 665000}, {206, 0, 1, 21854}, {2028, 1, 0, 0}, {2026, 0, 0, 0}};
    for (const auto &c : cases) {
        SeriesFields fields = fieldsOn(u"2026-11-22"_s);
        fields.date = basic::DateTime::fromParts(c.year, 11, 22);
        fields.days = c.days;
        fields.months = c.months;
        // 1821 years have 665,106 days and 39 more to the end of the year.
        EXPECT_NEAR(seriesLength(fields), c.length, c.length / 1000 + 0.5) << c.year;
    }
}

}
