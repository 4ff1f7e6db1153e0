#include "app/caddyscreen.h"
#include "calendar/frmCalendar.h"
#include "calendar/frmCalendarDay.h"
#include "calendar/frmCalendarSmallMonth.h"
#include "support/table.h"

#include <QToolButton>

namespace vorel {

using namespace Qt::StringLiterals;

class Periods : public test::CaddyScreen {
protected:
    void fill()
    {
        // 22 November 2026 is a Sunday: the week runs to the 28th.
        const std::pair<QString, QString> rows[] = {
            {u"11/21/2026"_s, u"yesterday"_s}, {u"11/22/2026"_s, u"today"_s},     {u"11/23/2026"_s, u"tomorrow"_s},
            {u"11/28/2026"_s, u"saturday"_s},  {u"11/29/2026"_s, u"nextweek"_s},  {u"11/15/2026"_s, u"lastweek"_s},
            {u"11/01/2026"_s, u"first"_s},     {u"12/31/2026"_s, u"silvester"_s}, {u"10/31/2026"_s, u"october"_s},
            {u"01/01/2027"_s, u"newyear"_s},   {u"12/31/2025"_s, u"lastyear"_s}};
        for (const auto &[date, text] : rows) {
            execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#%1#,'All Day','%2',True)"_s.arg(date, text));
            execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#%1#,'%2')"_s.arg(date, text));
            execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT]) VALUES (#%1#,'GENERAL','%2')"_s.arg(date, text));
        }
    }
};

TEST_F(Periods, EachKeyShowsItsRowsInAllThreeGrids)
{
    fill();
    start();
    test::forEachRow("sections", "periods", [this](const test::Row &row) {
        const QString key = row["key"];
        const QStringList rows = row["rows"].split(u' ');
        click(key);
        EXPECT_EQ(appointments(), rows) << qPrintable(key);
        EXPECT_EQ(bills(), rows) << qPrintable(key);
        EXPECT_EQ(events(), rows) << qPrintable(key);
        EXPECT_TRUE(c().toolbarKeys.at(key)->isChecked()) << qPrintable(key);
    });
    // The group carries the name of what is on show; where no period applies the keys are off.
    const auto named = [this](const QString &key) { return at<QToolButton>(key)->text(); };
    EXPECT_EQ(named(u"THIS YEAR"_s), u"Last Year"_s);
    EXPECT_EQ(named(u"THIS WEEK"_s), u"This Week"_s);
    screen().DisplayCategory(u"Books"_s);
    EXPECT_FALSE(at(u"NEXT WEEK"_s)->isEnabled());
    screen().DisplayCategory(u"All"_s);
    EXPECT_TRUE(at(u"NEXT WEEK"_s)->isEnabled());
    click(u"ALL RECORDS"_s);
    EXPECT_EQ(appointments().size(), 11);
    EXPECT_EQ(appointments().value(0), u"lastyear"_s);
    EXPECT_EQ(text(u"panPeriod"_s), u" (All Records)"_s);
}

// At the start the grids show the week; so does the state, and the row under a double click is the one that opens.
TEST_F(Periods, FirstViewAndItsQueriesAreOne)
{
    fill();
    start();
    EXPECT_EQ(state().period.gPeriodEnd, u"11/28/2026"_s);
    select(u"BILLSGRID"_s, 2);
    inRecord([this] { click(u"panEditB"_s); }, [](frmRecord &record) {
        EXPECT_EQ(record.findChild<QLineEdit *>(u"txtBill"_s)->text().toLower(), u"saturday"_s);
    });
    EXPECT_EQ(bills().size(), 3) << "the view stays after the screen has closed";
}

TEST_F(Periods, CaptionsAndToolTips)
{
    setRegion(u"en_AU"_s);
    set(u"DateDisplay"_s, u"dd/mm/yyyy"_s);
    start();
    for (const auto &[entry, key, caption] : {std::tuple{u"mnuToday"_s, u"TODAY"_s, u"Today ......... 22/11/2026"_s},
                                              {u"mnuThisWeek"_s, u"THIS WEEK"_s, u"This Week ... 22/11/2026 - 28/11/2026"_s},
                                              {u"mnuNextYear"_s, u"NEXT YEAR"_s, u"Next Year ... 2027"_s}}) {
        EXPECT_EQ(menu(entry)->text(), caption);
        EXPECT_EQ(c().toolbarKeys.at(key)->toolTip(), caption);
    }
    click(u"TODAY"_s);
    EXPECT_EQ(text(u"panPeriod"_s), u" (Today - Sun 22/11/2026)"_s);
}

TEST_F(Periods, YearlyRowsComeInEveryLaterYear)
{
    for (const QString &row : {u"#11/24/1947#,'BIRTHDAY','Grandmother',False"_s, u"#11/25/2001#,'GENERAL','Fair',True"_s,
                               u"#11/26/2001#,'GENERAL','Once',False"_s, u"#11/27/2030#,'BIRTHDAY','Unborn',False"_s})
        execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT],[RECURRING]) VALUES (%1)"_s.arg(row));
    start();
    click(u"THIS WEEK"_s);
    EXPECT_EQ(events(), (QStringList{u"Grandmother"_s, u"Fair"_s}));
    // The days of 2026, not those of 1947 and 2001.
    EXPECT_EQ(column(u"EVENTSGRID"_s, dayColumn), (QStringList{u"Tue"_s, u"Wed"_s}));
}

TEST_F(Periods, KeysOfTheKeyboard)
{
    fill();
    start();
    click(u"NEXT MONTH"_s);
    QTest::keyClick(&screen(), Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(appointments(), QStringList{u"today"_s});
    click(u"NEXT MONTH"_s);
    at(u"BILLSGRID"_s)->setFocus();
    QTest::keyClick(at(u"BILLSGRID"_s), Qt::Key_Home);
    EXPECT_EQ(appointments(), QStringList{u"today"_s});
    click(u"NEXT MONTH"_s);
    at(u"txtSearch"_s)->setFocus();
    QTest::keyClick(at(u"txtSearch"_s), Qt::Key_Home);
    EXPECT_EQ(appointments(), QStringList{u"silvester"_s});
}

TEST_F(Periods, SmallMonthShowsADay)
{
    fill();
    start();
    screen().DisplayCategory(u"Books"_s);
    auto *month = at<MonthBox>(u"picMonth"_s);
    month->grab();
    QTest::mouseClick(month, Qt::LeftButton, {}, month->dayPlace(28).center());
    EXPECT_EQ(state().selection.gSection, u"All"_s);
    EXPECT_EQ(appointments(), QStringList{u"saturday"_s});
    EXPECT_EQ(text(u"panPeriod"_s), u" ("_s + displayDate(basic::DateTime::fromParts(2026, 11, 28)) + u')');
    EXPECT_TRUE(month->accessibleDescription().startsWith(u"Saturday 28 November 2026, 1 appointment"_s));
    QTest::keyClick(month, Qt::Key_PageDown);
    EXPECT_EQ(month->accessibleName(), u"December 2026"_s);
    EXPECT_TRUE(appointments().isEmpty());
    click(u"TODAY"_s);
    EXPECT_FALSE(month->picked().hasDate());
}

// The calendar opens at the start where it is asked for; a new row of a free day has that day, and the month follows.
TEST_F(Periods, CalendarOpensAtTheStartAndItsDaysTakeRows)
{
    set(u"CalendarStart"_s, u"True"_s);
    test::inModal<frmCalendar>([this] { start(); }, [this](frmCalendar &calendar) {
        EXPECT_TRUE(calendar.isModal());
        calendar.showDay(basic::DateTime::fromParts(2026, 11, 25));
        auto *cell = test::control<CalendarDay>(calendar, u"LBL_Date(25)"_s);
        m_prompts.expect(u"Create a New Blank Record?"_s, basic::Answer::Yes);
        test::inModal<frmRecord>([cell] { QTest::keyClick(cell, Qt::Key_Return); },
                           [](frmRecord &record) { test::control<QLineEdit>(record, u"txtDate"_s); });
        QTest::qWait(20);
        ASSERT_EQ(cell->entries().size(), 1U) << "read from the file by its day";
    });
    EXPECT_TRUE(at(u"SSPanel1"_s)->isEnabled());
}

}
