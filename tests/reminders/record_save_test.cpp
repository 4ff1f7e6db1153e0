#include "reminders/recordscreen.h"

#include <QClipboard>
#include <QFile>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Answer;

class RecordSave : public test::RecordScreen {
protected:
    QStringList bills() { return rows(u"SELECT [DATE],[BILL],[AMOUNT] FROM [BILLS] ORDER BY [DATE],[ID]"_s); }
    QStringList appointments() { return rows(u"SELECT [DATE],[APPOINTMENT] FROM [APPOINTMENTS] ORDER BY [DATE],[ID]"_s); }
};

TEST_F(RecordSave, TypedFieldsAreStored)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#11/22/2026#,'x')"_s);
    openScreen(u"B"_s, 1);
    type(u"txtDate"_s, u"12/24/2026"_s);
    type(u"txtBill"_s, u"Gas"_s);
    type(u"txtAmount"_s, u"12.5"_s);
    type(u"txtWebsite"_s, u"www.example.org"_s);
    click(u"chkPaid"_s);
    click(u"chkFixedAmount"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(text(u"txtAmount"_s), u"12.50"_s);
    EXPECT_EQ(text(u"lblDay"_s), u"Thu"_s);
    EXPECT_EQ(rows(u"SELECT [DATE],[DAY],[BILL],[AMOUNT],[PAID],[FixedAmount],[Website],[BillingDate] FROM [BILLS]"_s),
              QStringList{u"2026-12-24|Thu|Gas|12.5|True|True|www.example.org|Null"_s});
}

// What the view puts in place of empty fields is stored by the first save, not only by a second one.
TEST_F(RecordSave, WeekDayAndFullDetailsAreStoredAtOnce)
{
    execute(u"INSERT INTO [EVENTS] ([DATE],[EVENT]) VALUES (#11/22/2026#,'Fair')"_s);
    execute(u"INSERT INTO [EVENTS] ([DATE],[EVENT],[SUBJECT],[FULLEVENT]) VALUES (#11/22/2026#,'Show','GENERAL','long')"_s);
    openScreen(u"E"_s, 1);
    EXPECT_EQ(text(u"rtbFullDetails"_s), u"Fair"_s);
    type(u"cboSubject"_s, u"GENERAL"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(text(u"lblDay"_s) + text(u"rtbFullDetails"_s), u"SunFair"_s);
    form->dtaData().MoveNext();
    EXPECT_EQ(text(u"lblCategory"_s) + text(u"rtbFullDetails"_s), u"GENERALlong"_s);
    EXPECT_EQ(rows(u"SELECT [SUBJECT],[FULLEVENT] FROM [EVENTS] ORDER BY [ID]"_s),
              (QStringList{u"GENERAL|Fair"_s, u"GENERAL|long"_s}));
    EXPECT_EQ(rows(u"SELECT [DAY] FROM [EVENTS] WHERE [ID]=1"_s), QStringList{u"Sun"_s});
}

TEST_F(RecordSave, EmptyDateStoresToday)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT]) VALUES (#01/02/2026#,'x')"_s);
    openScreen(u"A"_s, 1);
    at<QLineEdit>(u"txtDate"_s)->clear();
    at<QPushButton>(u"cmdUpdate"_s)->click();       // the focus stays where it is
    EXPECT_EQ(appointments(), QStringList{u"2026-11-22|x"_s});
}

TEST_F(RecordSave, FilledInDatesFollowTheDueDate)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[BillingDate]) VALUES (#11/22/2026#,'x',#10/05/2026#)"_s);
    openScreen(u"B"_s, 1);
    type(u"txtDate"_s, u"12/24/2026"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(text(u"txtBillingDate"_s), u"12/24/2026"_s);
    EXPECT_EQ(text(u"txtPaymentDate"_s), QString());
    EXPECT_EQ(rows(u"SELECT [DATE],[BillingDate],[PaymentDate] FROM [BILLS]"_s), QStringList{u"2026-12-24|2026-12-24|Null"_s});
}

TEST_F(RecordSave, SeriesIsMadeAndRebuilt)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/30/2027#,'Rent',900)"_s);
    openScreen(u"B"_s, 1);
    click(u"cmdSchedule"_s);
    click(u"optPeriod(0)"_s);
    user.expect(u"Do you want to Commence on"_s, Answer::Yes);
    click(u"cmdApply"_s);
    click(u"cmdUpdate"_s);
    // To the end of next year, tested before the step: one row may lie beyond.
    EXPECT_EQ(bills(), (QStringList{u"2027-11-30|Rent|900"_s, u"2027-12-30|Rent|900"_s, u"2028-01-30|Rent|900"_s}));
    EXPECT_EQ(text(u"lblID1"_s), u"1"_s);

    type(u"txtDate"_s, u"12/05/2027"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(bills(), (QStringList{u"2027-12-05|Rent|900"_s, u"2028-01-05|Rent|900"_s}));
    click(u"cmdUpdate"_s);                      // saving again changes nothing
    EXPECT_EQ(bills().size(), 2);
}

TEST_F(RecordSave, WeekdayRuleNeedsTheRowsOwnDateOnThatDay)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT]) VALUES (#11/03/2026#,'Club')"_s);     // a Tuesday
    openScreen(u"A"_s, 1);
    click(u"cmdSchedule"_s);
    click(u"optPeriod(3)"_s);
    type(u"cboDay"_s, u"1st"_s);
    type(u"cboWeekDay"_s, u"Mon"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(appointments(), QStringList{u"2026-11-03|Club"_s});
    type(u"cboWeekDay"_s, u"Tue"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(appointments().size(), 1 + 1 + 12);     // itself, December, next year's months
    EXPECT_TRUE(appointments().contains(u"2026-12-01|Club"_s));
    EXPECT_TRUE(appointments().contains(u"2027-12-07|Club"_s));
}

// Typed, pasted or dropped, an apostrophe becomes a grave accent, so that the text can be used in the queries of its series.
TEST_F(RecordSave, ATypedApostropheDoesNotHinderTheSeries)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[PeriodMonth]) VALUES (#11/22/2027#,'Gas',1)"_s);
    openScreen(u"B"_s, 1);
    type(u"txtBill"_s, u"Bob's"_s);
    QApplication::clipboard()->setText(u" gas' bill"_s);
    at<QLineEdit>(u"txtBill"_s)->paste();
    click(u"cmdUpdate"_s);
    EXPECT_EQ(bills(), (QStringList{u"2027-11-22|Bob`s gas` bill|0"_s, u"2027-12-22|Bob`s gas` bill|0"_s, u"2028-01-22|Bob`s gas` bill|0"_s}));
    EXPECT_EQ(text(u"lblState"_s), u"2 further dates up to 1/22/2028"_s);
    EXPECT_EQ(form->windowTitle(), u"Bill - Bob's gas' bill[*]"_s);
}

// A text with an apostrophe from before: its row is saved, and goes, alone.
TEST_F(RecordSave, AStoredApostropheHindersItsSeriesAlone)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[PeriodMonth]) VALUES (#11/22/2026#,'Bob''s gas',1)"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#12/22/2026#,'Gas')"_s);
    openScreen(u"B"_s, 1);
    type(u"txtAmount"_s, u"5"_s);
    user.expect(u"The row is saved, but not repeated: its text holds an apostrophe. Type the text again and choose Update."_s);
    click(u"cmdUpdate"_s);
    EXPECT_TRUE(user.isDone());
    EXPECT_EQ(bills(), (QStringList{u"2026-11-22|Bob's gas|5"_s, u"2026-12-22|Gas|0"_s}));
    user.expect(u"Do you want to Delete this Record ?"_s, Answer::Yes);
    click(u"cmdDelete"_s);
    EXPECT_EQ(bills(), QStringList{u"2026-12-22|Gas|0"_s});
}

// The row and its series are one change: where a row of the series is refused half-way, the saved row is as it was too.
TEST_F(RecordSave, AFailureHalfWayLeavesRowAndSeriesAsTheyWere)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[PeriodMonth]) VALUES (#11/22/2026#,'Gas',1)"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#06/22/2027#,'Other')"_s);
    execute(u"CREATE UNIQUE INDEX [OnePerDay] ON [BILLS] ([DATE])"_s);
    const QStringList before = bills();
    openScreen(u"B"_s, 1);
    type(u"txtAmount"_s, u"99"_s);
    user.expect({});
    click(u"cmdUpdate"_s);
    EXPECT_TRUE(user.isDone());
    EXPECT_EQ(bills(), before);
    EXPECT_EQ(text(u"txtAmount"_s), u"99"_s);
    EXPECT_TRUE(form->dtaData().isDirty());
    execute(u"DROP INDEX [OnePerDay] ON [BILLS]"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(bills().size(), 16);
    EXPECT_EQ(bills().first(), u"2026-11-22|Gas|99"_s);
}

TEST_F(RecordSave, ManyDatesAreAskedFor)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT],[PeriodDays]) VALUES (#11/22/2026#,'Gym',1)"_s);
    openScreen(u"A"_s, 1);
    type(u"txtDate"_s, u"11/22/206"_s);
    user.expect(u"This makes 665146 dates, from the year 206 on.\r\nDo you want to create them?"_s, Answer::No);
    click(u"cmdUpdate"_s);
    EXPECT_TRUE(user.isDone());
    EXPECT_EQ(appointments(), QStringList{u"2026-11-22|Gym"_s});
}

// A time of day that another program stored in the date does not make the row a stranger to its own series.
TEST_F(RecordSave, ADateWithATimeOfDayOutlivesItsSave)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT],[PeriodMonth]) VALUES (#11/22/2027 10:30:00#,'Gym',1)"_s);
    openScreen(u"A"_s, 1);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(appointments(), (QStringList{u"2027-11-22|Gym"_s, u"2027-12-22|Gym"_s, u"2028-01-22|Gym"_s}));
    EXPECT_EQ(text(u"lblID1"_s), u"1"_s);
}

TEST_F(RecordSave, TimesAreKeptAsTheGridKeepsThem)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT],[APPTIME]) VALUES (#11/22/2026#,'Gym','09:00 Am')"_s);
    openScreen(u"A"_s, 1);
    EXPECT_EQ(text(u"cboTime"_s), u"09:00 am"_s);
    EXPECT_FALSE(form->dtaData().isDirty());
    for (const auto &[typed, kept] : {std::pair{u"9:15"_s, u"09:15 am"_s}, {u"21:30"_s, u"09:30 pm"_s}, {u"noon"_s, u"noon"_s}}) {
        type(u"cboTime"_s, typed);
        click(u"cmdUpdate"_s);
        EXPECT_EQ(text(u"cboTime"_s), kept);
        EXPECT_EQ(rows(u"SELECT [APPTIME] FROM [APPOINTMENTS]"_s), QStringList{kept});
    }
}

TEST_F(RecordSave, RefusedTextIsKeptOnTheScreen)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#11/22/2026#,'Gas')"_s);
    struct Case { QString control, typed; };
    const Case cases[] = {{u"txtAmount"_s, u"a lot"_s}, {u"txtPaymentDate"_s, u"soon"_s}, {u"txtPeriodDays"_s, u"99999"_s}};
    for (const Case &c : cases) {
        openScreen(u"B"_s, 1);
        if (c.control == u"txtPeriodDays")
            click(u"cmdSchedule"_s);
        type(c.control, c.typed);
        user.expect({});
        click(u"cmdUpdate"_s);
        EXPECT_EQ(text(c.control), c.typed);
        EXPECT_EQ(bills(), QStringList{u"2026-11-22|Gas|0"_s});

        user.expect({});                        // the first attempt to leave stays
        EXPECT_FALSE(form->Close());
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(text(c.control), c.typed);
        user.expect({});
        user.expect(u"Leave without saving the changes?"_s, Answer::Yes);
        EXPECT_TRUE(form->Close());
        EXPECT_TRUE(user.isDone()) << qPrintable(c.control);
    }
    EXPECT_EQ(bills(), QStringList{u"2026-11-22|Gas|0"_s});
}

TEST_F(RecordSave, DigitsOnlyInThePeriods)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT]) VALUES (#11/22/2026#,'x')"_s);
    openScreen(u"A"_s, 1);
    click(u"cmdSchedule"_s);
    type(u"txtPeriodDays"_s, u"-1a4.b"_s);
    EXPECT_EQ(text(u"txtPeriodDays"_s), u"14"_s);
    type(u"txtPeriodMonth"_s, u"x2"_s);
    EXPECT_EQ(text(u"txtPeriodMonth"_s), u"2"_s);
}

TEST_F(RecordSave, DeleteTakesTheSeries)
{
    for (const char *iso : {"01/05/2025", "11/22/2026", "11/29/2026"})
        execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT]) VALUES (#%1#,'Gym')"_s.arg(QLatin1String(iso)));
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT]) VALUES (#12/01/2026#,'Other')"_s);
    openScreen(u"A"_s, 2);
    user.expect(u"Do you want to Delete this Record ?"_s, Answer::No);
    click(u"cmdDelete"_s);
    EXPECT_EQ(user.shown().back().title, u"Question?"_s);
    EXPECT_EQ(appointments().size(), 4);
    user.expect(u"Do you want to Delete this Record ?"_s, Answer::Yes);
    click(u"cmdDelete"_s);
    EXPECT_EQ(appointments(), QStringList{u"2026-12-01|Other"_s});
    EXPECT_EQ(text(u"txtAppointment"_s), u"Other"_s);
    user.expect(u"Do you want to Delete this Record ?"_s, Answer::Yes);
    click(u"cmdDelete"_s);
    EXPECT_EQ(count(u"APPOINTMENTS"_s), 0);
    EXPECT_FALSE(at(u"cmdDelete"_s)->isEnabled());
    EXPECT_TRUE(form->Close());

    execute(u"INSERT INTO [APPOINTMENTS] ([ID],[DATE]) VALUES (2000000,#12/02/2026#)"_s);
    openScreen(u"A"_s, 2000000);
    user.expect(u"Do you want to Delete this Record ?"_s, Answer::Yes);
    click(u"cmdDelete"_s);
    EXPECT_EQ(count(u"APPOINTMENTS"_s), 0) << "however great its number";
}

TEST_F(RecordSave, EveryWayOutWritesTheTyping)
{
    const std::function<void()> ways[] = {
        [this] { click(u"cmdClose"_s); },
        [this] { QTest::keyClick(form.get(), Qt::Key_Escape); },
        [this] { QTest::keyClick(form.get(), Qt::Key_W, Qt::ControlModifier); },
        [this] { form->close(); },
    };
    execute(u"INSERT INTO [EVENTS] ([DATE],[EVENT],[SUBJECT]) VALUES (#11/22/2026#,'x','GENERAL')"_s);
    int number = 0;
    for (const auto &way : ways) {
        openScreen(u"E"_s, 1);
        const QString typed = u"Way %1"_s.arg(++number);
        type(u"txtEvent"_s, typed);
        type(u"txtDate"_s, u"junk"_s);
        user.expect(u"Invalid Date ... defaulting to todays date"_s);
        way();
        EXPECT_FALSE(form->isVisible()) << number;
        EXPECT_EQ(rows(u"SELECT [DATE],[EVENT] FROM [EVENTS]"_s), QStringList{u"2026-11-22|"_s + typed});
    }
}

TEST_F(RecordSave, KeyboardSavesAndAdds)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT]) VALUES (#11/22/2026#,'x')"_s);
    openScreen(u"A"_s, 1);
    type(u"txtAppointment"_s, u"Dentist"_s);
    QTest::keyClick(at(u"txtAppointment"_s), Qt::Key_Return);
    EXPECT_EQ(appointments(), QStringList{u"2026-11-22|Dentist"_s});
    EXPECT_TRUE(form->isVisible());
    type(u"txtAppointment"_s, u"Dentist 2"_s);
    form->AddNewRecord({});                     // what was typed before is written first
    EXPECT_EQ(appointments(), (QStringList{u"2026-11-22|Dentist 2"_s, u"2026-11-22|Null"_s}));
}

}
