#include "app/caddyscreen.h"
#include "support/otherprocess.h"

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Answer;
using test::Grid;

class Edit : public test::CaddyScreen {
protected:
    // A bill that comes every month, entered as a user does from the Bills section.
    void enterMonthlyRent()
    {
        screen().DisplayCategory(u"Bills"_s);
        m_prompts.expect(u"Create a New Blank Record?"_s, Answer::Yes);
        inRecord([this] { click(u"panNew"_s); }, [this](frmRecord &record) {
            type(record, u"txtDate"_s, u"11/25/2026"_s);
            type(record, u"txtBill"_s, u"RENT"_s);
            type(record, u"txtAmount"_s, u"900"_s);
            press(record, u"cmdSchedule"_s);
            press(record, u"optPeriod(0)"_s);
            m_prompts.expect(u"Do you want to Commence on"_s, Answer::Yes);
            press(record, u"cmdApply"_s);
            press(record, u"cmdUpdate"_s);
        });
    }
};

TEST_F(Edit, RepeatingBillIsSeenInEachPeriodChangedAndDeleted)
{
    start();
    enterMonthlyRent();
    const std::pair<QString, qsizetype> counts[] = {
        {u"THIS WEEK"_s, 1}, {u"NEXT WEEK"_s, 0}, {u"THIS MONTH"_s, 1}, {u"NEXT MONTH"_s, 1},
        {u"THIS YEAR"_s, 2}, {u"NEXT YEAR"_s, 12}, {u"ALL RECORDS"_s, 15}};       // the last row may pass the horizon by a month
    for (const auto &[key, rows] : counts) {
        click(key);
        EXPECT_EQ(bills().size(), rows) << qPrintable(key);
    }
    EXPECT_EQ(bills().value(0), u"RENT"_s);
    EXPECT_EQ(column(u"BILLSGRID"_s, 4).value(0), u"900.00"_s);

    startOn(u"Bills"_s);
    click(u"NEXT YEAR"_s);
    EXPECT_EQ(bills().size(), 12);
    click(u"THIS WEEK"_s);
    select(u"BILLSGRID"_s, 0);
    inRecord([this] { click(u"panEditB"_s); }, [](frmRecord &record) {
        EXPECT_EQ(record.findChild<QLineEdit *>(u"txtBill"_s)->text(), u"RENT"_s);
        type(record, u"txtAmount"_s, u"950"_s);
        press(record, u"cmdUpdate"_s);
    });
    EXPECT_EQ(column(u"BILLSGRID"_s, 4), QStringList{u"950.00"_s});
    EXPECT_EQ(text(u"panPeriod"_s).contains(u" - "_s), true);       // the week is still on show

    select(u"BILLSGRID"_s, 0);
    m_prompts.expect({}, Answer::Yes);
    inRecord([this] { emit at<Grid>(u"BILLSGRID"_s)->DblClick(400); }, [this](frmRecord &record) {
        press(record, u"cmdDelete"_s);
        while (!m_prompts.isDone())
            basic::askYesNo(u"not asked"_s);
    });
    click(u"ALL RECORDS"_s);
    EXPECT_EQ(bills(), QStringList());      // the whole series goes with one of its rows
}

TEST_F(Edit, DeleteKeyOfAReminderListAsksForItsOtherDates)
{
    for (const QString &row : {u"#11/23/2026#,'RENT'"_s, u"#11/24/2026#,'GAS'"_s, u"#12/23/2026#,'RENT'"_s})
        execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (%1)"_s.arg(row));
    startOn(u"Bills"_s);
    click(u"ALL RECORDS"_s);
    const auto press = [this](std::vector<Answer> answers) {
        select(u"BILLSGRID"_s, 0);
        const QString questions[] = {u"Do you want to Delete this Record ?"_s, u"other dates: 1."_s};
        for (std::size_t i = 0; i < answers.size(); ++i)
            m_prompts.expect(questions[i], answers[i]);
        QTest::keyClick(at(u"BILLSGRID"_s), Qt::Key_Delete);
        EXPECT_TRUE(m_prompts.isDone());
    };
    press({Answer::No});
    EXPECT_EQ(bills().size(), 3);
    press({Answer::Yes, Answer::No});
    EXPECT_EQ(bills(), (QStringList{u"GAS"_s, u"RENT"_s}));
    EXPECT_EQ(at<Grid>(u"BILLSGRID"_s)->currentRow(), 0) << "the row after it is current";
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#11/20/2026#,'RENT')"_s);
    QCoreApplication::processEvents();
    press({Answer::Yes, Answer::Yes});
    EXPECT_EQ(bills(), QStringList{u"GAS"_s});
}

TEST_F(Edit, WhateverTheProgramWritesIsSeenAtOnceAndThePlaceIsKept)
{
    for (const QString &text : {u"b"_s, u"d"_s})
        execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#11/22/2026#,'%1','%1',True)"_s.arg(text));
    execute(u"INSERT INTO [Inventory] ([Item]) VALUES ('Saw')"_s);
    startOn(u"All"_s);
    click(u"TODAY"_s);
    select(u"APPOINTMENTSGRID"_s, 1);
    dao::Database file = dao::DBEngine::OpenDatabase(m_folder.path(u"VOREL.MDB"_s));
    for (const QString &text : {u"a"_s, u"c"_s, u"e"_s})
        file.Execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#11/22/2026#,'%1','%1',True)"_s.arg(text));
    QCoreApplication::processEvents();
    EXPECT_EQ(appointments(), (QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s}));
    EXPECT_EQ(at<Grid>(u"APPOINTMENTSGRID"_s)->CellText(4), u"d"_s);
    screen().DisplayCategory(u"Inventory"_s);
    file.Execute(u"DELETE FROM [APPOINTMENTS] WHERE [APPOINTMENT]='a'"_s);
    file.Execute(u"INSERT INTO [Inventory] ([Item]) VALUES ('Axe')"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(column(u"SUBJECTGRID"_s, 1), (QStringList{u"Axe"_s, u"Saw"_s}));
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->CellText(1), u"Saw"_s);
    screen().DisplayCategory(u"Appointments"_s);
    EXPECT_EQ(appointments().size(), 4) << "read when it is shown again";
}

TEST_F(Edit, NoLeavesNothingBehind)
{
    startOn(u"Appointments"_s);
    m_prompts.expect(u"Create a New Blank Record?"_s, Answer::No);
    click(u"panNew"_s);
    click(u"ALL RECORDS"_s);
    EXPECT_EQ(appointments(), QStringList());
    EXPECT_TRUE(m_prompts.isDone());
}

TEST_F(Edit, EachGridOpensItsOwnRecord)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#11/22/2026#,'All Day','one',True)"_s);
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#11/23/2026#,'All Day','two',True)"_s);
    execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT]) VALUES (#11/24/2026#,'GENERAL','fair')"_s);
    start();
    click(u"THIS WEEK"_s);
    select(u"APPOINTMENTSGRID"_s, 1);
    inRecord([this] { QTest::keyClick(at(u"APPOINTMENTSGRID"_s), Qt::Key_Return); }, [](frmRecord &record) {
        EXPECT_EQ(record.findChild<QLineEdit *>(u"txtAppointment"_s)->text(), u"two"_s);
    });
    EXPECT_EQ(at<Grid>(u"APPOINTMENTSGRID"_s)->CellText(4), u"two"_s);      // the cursor stays on the row
    select(u"EVENTSGRID"_s, 0);
    inRecord([this] { click(u"panEditE"_s); }, [](frmRecord &record) {
        EXPECT_EQ(record.findChild<QLineEdit *>(u"txtEvent"_s)->text(), u"fair"_s);
    });
    // The keyboard is the main screen's again.
    QCoreApplication::processEvents();
    QTest::keyClick(&screen(), Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(appointments(), QStringList{u"one"_s});
}

TEST_F(Edit, EmptyGridOpensOnANewRow)
{
    startOn(u"Appointments"_s);
    inRecord([this] { click(u"panEditA"_s); }, [](frmRecord &record) {
        type(record, u"txtAppointment"_s, u"fresh"_s);
        press(record, u"cmdUpdate"_s);
    });
    click(u"TODAY"_s);
    EXPECT_EQ(appointments(), QStringList{u"fresh"_s});
}

TEST_F(Edit, NewWorksOnTheGridUsedLastAndTheSearchIsEmptied)
{
    startOn(u"All"_s);
    screen().activateWindow();
    at(u"EVENTSGRID"_s)->setFocus();
    at<QLineEdit>(u"txtSearch"_s)->setText(u"x"_s);
    m_prompts.expect(u"Create a New Blank Record?"_s, Answer::Yes);
    inRecord([this] { QTest::keyClick(&screen(), Qt::Key_N, Qt::ControlModifier); },
             [](frmRecord &record) { EXPECT_TRUE(record.findChild<QLineEdit *>(u"txtEvent"_s)->isVisible()); });
    EXPECT_EQ(text(u"txtSearch"_s), QString());
    EXPECT_TRUE(c().Timer2->isActive() && c().TimerMessages->isActive());
}

TEST_F(Edit, RefreshThatFailsIsQuietAndReadingAnewTells)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/22/2026#,'Gas',5)"_s);
    start();
    screen().DisplayCategory(u"Bills"_s);
    execute(u"DROP TABLE [BILLS]"_s);
    screen().RefreshData();
    m_prompts.expect(u"input table or query 'BILLS'"_s);
    screen().GetData();
    EXPECT_TRUE(m_prompts.isDone());
}

// What is being typed is stored when the desktop ends the program, on a record screen as in a grid.
TEST_F(Edit, EndOfTheSessionKeepsWhatIsTyped)
{
    startOn(u"Appointments"_s);
    inRecord([this] { click(u"panEditA"_s); }, [this](frmRecord &record) {
        type(record, u"txtAppointment"_s, u"half typed"_s);
        screen().endSession();
        EXPECT_FALSE(record.isVisible());
    });
    EXPECT_TRUE(QTest::qWaitFor([this] { return !screen().isVisible(); }));
    start();
    EXPECT_EQ(appointments(), QStringList{u"half typed"_s});
}

TEST_F(Edit, NewWithoutAMainFileIsRefusedInWords)
{
    m_folder.write(u"VOREL.MDB"_s, QByteArray(5000, 'x'));
    m_prompts.expect(u"Would you like to create a new database?"_s, Answer::No);
    m_prompts.expect(u"No row could be read from it."_s);
    start();
    EXPECT_TRUE(isShown(u"lblNotice"_s));
    m_prompts.expect(u"There is no main data file"_s);
    click(u"panNew"_s);
    EXPECT_TRUE(m_prompts.isDone());
}

// One wait, no box, and the rows on show stay with their caption until the file is free.
TEST_F(Edit, LockedFileIsSaidOverTheGridsAndReadAgain)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/22/2026#,'Gas',5)"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/23/2026#,'Rent',5)"_s);
    startOn(u"Bills"_s);
    click(u"TODAY"_s);
    dao::DBEngine::setLockWait(20);
    auto other = std::make_unique<test::OtherProcess>(m_folder.path(u"VOREL.MDB"_s));
    click(u"TOMORROW"_s);
    EXPECT_TRUE(isShown(u"lblNotice"_s));
    EXPECT_EQ(text(u"panPeriod"_s), u" (Today - Sun 11/22/2026)"_s);
    EXPECT_EQ(bills(), QStringList{u"Gas"_s});
    other.reset();
    tick();
    EXPECT_FALSE(isShown(u"lblNotice"_s));
    EXPECT_EQ(text(u"panPeriod"_s), u" (Tomorrow - Mon 11/23/2026)"_s);
    EXPECT_EQ(bills(), QStringList{u"Rent"_s});
    dao::DBEngine::setLockWait(5000);
}

}
