#include "platform/basic/format.h"
#include "reminders/recurrence.h"
#include "store/mainfile.h"
#include "support/table.h"

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

// Under each date order and with each way of showing dates: what is stored is the same.
TEST_P(SeriesTest, periods)
{
    setRegion(QString::fromLatin1(GetParam()));
    for (const QString &format : {u""_s, u"dd/mm/yyyy"_s, u"mm/dd/yyyy"_s}) {
        state().settings.gDateDisplay = format;
        test::forEachRow("recurrence", "periods", [&](const test::Row &row) {
            for (const ReminderKind kind : {ReminderKind::Appointment, ReminderKind::Bill}) {
                if (kind == ReminderKind::Bill && !format.isEmpty())
                    continue;
                setToday(row["today"]);
                SeriesFields fields = fieldsOn(row["start"], kind);
                fields.days = row.number("days");
                fields.months = row.number("months");
                execute(u"DELETE * FROM "_s + table(fields));
                saveRow(fields, row["start"]);
                const SeriesResult added = createSeries(fields);
                const QStringList found = dates(fields), first = row["dates"].split(u' ');
                EXPECT_EQ(added.rows, row.number("count") - 1);
                EXPECT_LE(std::abs(seriesLength(fields) - added.rows), 1);
                EXPECT_EQ(found.size(), row.number("count"));
                EXPECT_EQ(found.first(first.size()), first);
                EXPECT_EQ(found.last(), row["last"]);
            }
        });
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
    test::forEachRow("recurrence", "rows", [this](const test::Row &row) {
        const bool bill = row["kind"] == u"Bill"_s;
        SeriesFields fields = fieldsOn(u"2026-11-23"_s, bill ? ReminderKind::Bill : ReminderKind::Appointment);
        fields.days = row.number("days");
        fields.months = row.number("months");
        fields.weekdayRule = row.flag("weekday");
        fields.weekNum = u"4th"_s;
        fields.weekDay = u"Mon"_s;
        fields.fixedAmount = row.flag("fixed");
        fields.deleteAfter = row.flag("deleteAfter");
        execute(u"DELETE * FROM "_s + table(fields));
        saveRow(fields, u"2026-11-23"_s);
        createSeries(fields);
        const QStringList made = rows(
            u"SELECT [Day], %1 [Delete], [PeriodDays], [PeriodMonth], [WeekNum], [WeekDay], [UsersName], [IDNUM]%2 "
            "FROM %3 WHERE [Date]>#11/23/2026# ORDER BY [Date];"_s.arg(
                bill ? u"[Amount], [Website], [Paid],"_s : u"[AppTime], [TimeUpdate], [Met],"_s,
                bill ? u", [FixedAmount]"_s : u""_s, table(fields)));
        ASSERT_FALSE(made.isEmpty());
        EXPECT_EQ(made.first(), row["row"]);
    });
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
    // A number that no month has applies, so that the other row goes, and finds no day.
    test::forEachRow("recurrence", "weekdays", [this](const test::Row &row) {
        SeriesFields fields = fieldsOn(u"2026-11-24"_s);
        fields.weekNum = row["weekNum"];
        fields.weekDay = row["weekDay"];
        fields.weekdayRule = row.flag("chosen");
        execute(u"DELETE * FROM [Appointments]"_s);
        saveRow(fields, u"2026-11-24"_s);
        saveRow(fields, u"2026-12-24"_s);
        createSeries(fields);
        EXPECT_EQ(count(u"Appointments"_s), row.number("count"));
    });
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
