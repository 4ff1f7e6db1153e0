#include "calendar/month.h"

#include "calendar/monthrows.h"
#include "store/mainfile.h"

#include <QDate>
#include <functional>

namespace vorel {

using namespace Qt::StringLiterals;

class Month : public test::MainFileTest {
protected:
    static basic::DateTime day(int year, int month, int number) { return basic::DateTime::fromParts(year, month, number); }
    void event(const QString &date, const QString &subject, const QString &text, bool recurring = false)
    {
        execute(u"INSERT INTO EVENTS ([DATE],[SUBJECT],[EVENT],[Recurring]) VALUES (#%1#,'%2','%3',%4)"_s
                    .arg(date, subject, text, recurring ? u"True"_s : u"False"_s));
    }
    // "5 Mum" for each event of the span.
    QStringList events(const DaySpan &span, const QString &category = {})
    {
        dao::Database database = open();
        QStringList found;
        for (const DayEntry &entry : readRows(database, DayKind::Event, eventsQuery(span, RowOrder::Listed, category), span))
            found << QString::number(entry.day.day()) + u' ' + entry.text;
        found.sort();
        return found;
    }
};

// The days counted from the calendar's first one, without the arithmetic of the layout.
TEST_F(Month, DaysStandUnderTheirWeekDays)
{
    const std::pair<int, int> months[] = {{2026, 8}, {2025, 3}, {2028, 2}, {2100, 2}, {2000, 2}, {2026, 2}, {2026, 12}, {2027, 1},
                                          {1900, 2}, {1850, 12}, {9999, 12}, {100, 1}};
    const auto isLeap = [](int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; };
    const auto lengthOf = [&](int year, int month) {
        return month == 2 ? (isLeap(year) ? 29 : 28) : month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
    };
    for (const auto &[year, month] : months) {
        int weekDay = 5;                        // 1 January 100 was a Friday; Sunday is 0
        for (int y = 100; y < year; ++y)
            weekDay = (weekDay + (isLeap(y) ? 366 : 365)) % 7;
        for (int m = 1; m < month; ++m)
            weekDay = (weekDay + lengthOf(year, m)) % 7;
        for (const int start : {1, 2, 7, 0, 99}) {          // damaged settings count as the nearest day
            const MonthCells cells = monthCells(year, month, start);
            const int first = std::clamp(start, 1, 7) - 1;
            int counted = 0;
            for (int cell = 0; cell < monthCellCount; ++cell) {
                const int number = cells.dayAt(cell);
                if (number == 0)
                    continue;
                EXPECT_EQ(number, ++counted);
                EXPECT_EQ((first + cell) % 7, (weekDay + number - 1) % 7) << year << '-' << month << '-' << number << " from " << start;
                EXPECT_EQ(cells.cellOf(number), cell);
            }
            EXPECT_EQ(counted, lengthOf(year, month)) << year << '-' << month;
            EXPECT_LT(cells.cellOf(1), 7);
            EXPECT_EQ(cells.last(), day(year, month, counted));
        }
    }
    EXPECT_EQ(monthCells(2026, 8, 1).rows(), 6);
    EXPECT_EQ(monthCells(2026, 2, 1).rows(), 4);
    EXPECT_EQ(weekDayHeads(2)[0] + weekDayHeads(2)[6], u"MonSun"_s);
    EXPECT_EQ(monthTitle(2026, 11), u"November 2026"_s);
}

TEST_F(Month, WeeksAreNumberedByTheirFirstDay)
{
    struct Case { int year, month, start; QList<int> numbers; };
    const Case cases[] = {
        {2026, 11, 2, {44, 45, 46, 47, 48, 49}},        // ISO: 1 November 2026 is the Sunday of week 44
        {2027, 1, 2, {53, 1, 2, 3, 4}},                 // 1 January 2027 is a Friday
        {2026, 1, 1, {1, 2, 3, 4, 5}},                  // from Sunday: the week of 1 January is the first
        {2026, 12, 1, {49, 50, 51, 52, 1}},
        {9999, 12, 1, {49, 50, 51, 52, 1}},             // ends on a Friday: the week's last day is no date any more
    };
    for (const Case &c : cases) {
        const MonthCells cells = monthCells(c.year, c.month, c.start);
        QList<int> numbers;
        for (int row = 0; row < cells.rows(); ++row)
            numbers << weekNumber(cells, row, c.start);
        EXPECT_EQ(numbers, c.numbers) << c.year << ' ' << c.month << ' ' << c.start;
    }
}

TEST_F(Month, StepsKeepToTheCalendar)
{
    EXPECT_EQ(monthsAway(day(2027, 1, 31), 1), day(2027, 2, 28));
    EXPECT_EQ(monthsAway(day(9999, 12, 31), 1), day(9999, 12, 31));
    EXPECT_EQ(daysAway(day(9999, 12, 31), 1), day(9999, 12, 31));
    EXPECT_EQ(daysAway(day(100, 1, 1), -1), day(100, 1, 1));
    for (const auto &[format, joined] : {std::pair{u"dd/mm/yyyy"_s, u"05-11-2026"_s}, {u"mm/dd/yyyy"_s, u"11-05-2026"_s},
                                         {u"ddd d mmm yyyy"_s, u"05-11-2026"_s}, {u"yyyy.mm.dd"_s, u"2026-11-05"_s}, {u""_s, u"2026-11-05"_s}})
        EXPECT_EQ(joinedDate(day(2026, 11, 5), format), joined) << qPrintable(format);
}

TEST_F(Month, NamesOnPaperAreTheReaders)
{
    EXPECT_EQ(paperMonthTitle(2026, 3), u"March 2026"_s);
    EXPECT_EQ(paperDayHeads(1), weekDayHeads(1));
    QString letters;
    for (const QString &letter : paperDayLetters(1))
        letters += letter;
    EXPECT_EQ(letters, u"SMTWTFS"_s);
    EXPECT_EQ(paperMonthDay(day(2026, 11, 5)), u"Nov 5"_s);
    setRegion(u"de_DE"_s);
    EXPECT_EQ(paperMonthTitle(2026, 3), u"März 2026"_s);
    EXPECT_EQ(paperDayHeads(2)[0], u"Mo"_s);
    EXPECT_EQ(paperWeekDay(day(2026, 11, 24)), u"Di 24"_s);
}

TEST_F(Month, EventsComeBackByTheQuery)
{
    event(u"11/10/1950"_s, u"BIRTHDAY"_s, u"Mum"_s);
    event(u"11/12/1850"_s, u"ANNIVERSARY"_s, u"Old"_s);
    event(u"11/14/2020"_s, u"GENERAL"_s, u"Plain"_s);
    event(u"11/16/2020"_s, u"GENERAL"_s, u"Fair"_s, true);
    event(u"11/18/2020"_s, u"HOLIDAY"_s, u"Off"_s, true);
    event(u"11/20/2026"_s, u"GENERAL"_s, u"Once"_s);
    event(u"11/22/9999"_s, u"BIRTHDAY"_s, u"Far"_s, true);
    event(u"02/29/2000"_s, u"BIRTHDAY"_s, u"Leap"_s);
    struct Case { int year, month; QString category; QStringList events; };
    const Case cases[] = {
        {2026, 11, {}, {u"10 Mum"_s, u"12 Old"_s, u"16 Fair"_s, u"18 Off"_s, u"20 Once"_s}},
        {2026, 11, u"ALL"_s, {u"10 Mum"_s, u"12 Old"_s, u"16 Fair"_s, u"18 Off"_s, u"20 Once"_s}},
        {2026, 11, u"HOLIDAY"_s, {u"10 Mum"_s, u"12 Old"_s, u"18 Off"_s, u"20 Once"_s}},       // narrows what recurs
        {2026, 11, u"O'Hara"_s, {u"10 Mum"_s, u"12 Old"_s, u"20 Once"_s}},
        {1949, 11, {}, {u"12 Old"_s}},                      // nothing comes back before it began
        {1850, 11, {}, {u"12 Old"_s}},
        {9999, 11, {}, {u"10 Mum"_s, u"12 Old"_s, u"16 Fair"_s, u"18 Off"_s, u"22 Far"_s}},
        {2028, 2, {}, {u"29 Leap"_s}},
        {2027, 2, {}, {}},
        {2027, 3, {}, {u"1 Leap"_s}},                       // a year without that day
    };
    for (const Case &c : cases) {
        QStringList expected = c.events;
        expected.sort();
        EXPECT_EQ(events(monthSpan(c.year, c.month), c.category).join(u'|'), expected.join(u'|'))
            << c.year << ' ' << c.month << ' ' << qPrintable(c.category);
    }
    dao::Database database = open();
    const std::vector<DayCount> year = countDays(database, yearSpan(2027));
    QStringList marked;
    for (std::size_t i = 0; i < year.size(); ++i)
        if (!year[i].isEmpty())
            marked << QDate(2027, 1, 1).addDays(static_cast<qint64>(i)).toString(u"d.M"_s);
    EXPECT_EQ(marked.join(u' '), u"1.3 10.11 12.11 16.11 18.11"_s);
    EXPECT_EQ(year.size(), 365U);
}

TEST_F(Month, DaysHoldTheirRowsInOrder)
{
    for (const auto &[time, text] : {std::pair{u"02:00 Pm"_s, u"Tea"_s}, {u"09:00 Am"_s, u"Dentist"_s}, {u"All Day"_s, u"Fair"_s}})
        execute(u"INSERT INTO APPOINTMENTS ([DATE],[APPTIME],[APPOINTMENT]) VALUES (#11/23/2026#,'%1','%2')"_s.arg(time, text));
    execute(u"INSERT INTO BILLS ([DATE],[BILL],[AMOUNT]) VALUES (#11/23/2026#,'RENT',450)"_s);
    event(u"11/23/1950"_s, u"BIRTHDAY"_s, u"Mum"_s);
    for (const QString &until : {u"11/26/2026"_s, u"11/24/2026"_s, u"01/01/1900"_s, u"soon"_s})
        execute(u"INSERT INTO EVENTS ([DATE],[DATETO],[SUBJECT],[EVENT]) VALUES (#11/24/2026#,'%1','GENERAL','Trip')"_s.arg(until));
    dao::Database database = open();
    const auto texts = [&](const MonthKinds &kinds) {
        QStringList found;
        for (const DayEntry &entry : readDays(database, monthSpan(2026, 11), kinds))
            found << entryText(entry);
        return found.join(u'|');
    };
    EXPECT_EQ(texts({}), u"BIRTHDAY - Mum (1950)|All Day - Fair|09:00 am - Dentist|02:00 pm - Tea|RENT 450.00"
                         "|GENERAL - Trip, until 11/26/2026|GENERAL - Trip|GENERAL - Trip|GENERAL - Trip"_s);
    EXPECT_EQ(texts({.appointments = false, .events = false}), u"RENT 450.00"_s);
    const std::vector<DayCount> counts = countDays(database, monthSpan(2026, 11));
    EXPECT_EQ(dayText(day(2026, 11, 23), counts[22]), u"Monday 23 November 2026, 3 appointments, 1 bill, 1 event"_s);
    EXPECT_EQ(dayText(day(2026, 11, 24), counts[23]), u"Tuesday 24 November 2026, 4 events"_s);
    EXPECT_EQ(dayText(day(2026, 11, 25), counts[24]), u"Wednesday 25 November 2026"_s);
}

}
