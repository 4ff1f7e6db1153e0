#include "app/caddyscreen.h"
#include "calendar/frmCalendarDrop.h"

#include <QComboBox>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Answer;
using test::Grid;

class Cells : public test::CaddyScreen {
protected:
    void show(const QString &section)
    {
        if (!m_shown)
            start();
        m_shown = true;
        screen().activateWindow();
        screen().DisplayCategory(section);
    }
    static QPoint cell(const Grid *grid, int column, int row) { return grid->visualRect(grid->model()->index(row, column)).center(); }
    void press(const QString &grid, int column, int row)
    {
        QTest::mouseClick(at<Grid>(grid)->viewport(), Qt::LeftButton, {}, cell(at<Grid>(grid), column, row));
    }
    QWidget *editor(const QString &grid)
    {
        for (QWidget *open : at<Grid>(grid)->viewport()->findChildren<QWidget *>())
            if (open->isVisible() && (qobject_cast<QComboBox *>(open) || open->objectName() == u"txtCell"))
                return open;
        return nullptr;
    }
    // Types into the cell, then the key that leaves it.
    void enter(const QString &grid, int column, int row, const QString &text, Qt::Key leave = Qt::Key_Return)
    {
        press(grid, column, row);
        QTest::keyClick(at(grid), Qt::Key_F2);
        QWidget *open = editor(grid);
        ASSERT_TRUE(open) << column << ',' << row;
        auto *line = qobject_cast<QComboBox *>(open) ? qobject_cast<QComboBox *>(open)->lineEdit() : qobject_cast<QLineEdit *>(open);
        line->selectAll();
        text.isEmpty() ? QTest::keyClick(open, Qt::Key_Delete) : QTest::keyClicks(open, text);
        QTest::keyClick(open, leave);
        QCoreApplication::processEvents();
    }
    QStringList stored(const QString &sql)
    {
        dao::Database file = dao::DBEngine::OpenDatabase(m_folder.path(u"VOREL.MDB"_s));
        QStringList found;
        for (dao::Recordset rows = file.CreateSnapshot(sql); !rows.EOF_(); rows.MoveNext())
            for (std::size_t i = 0; i < rows.Fields().size(); ++i)
                found << rows.Get(static_cast<int>(i)).text();
        return found;
    }
    const QString subjects = u"SUBJECTGRID"_s;

private:
    bool m_shown = false;
};

TEST_F(Cells, ToDoIsKeptWithAPriority)
{
    show(u"To Do"_s);
    m_prompts.expect(u"Create a New Blank Record?"_s, Answer::Yes);
    click(u"panNew"_s);
    ASSERT_TRUE(editor(subjects)) << "New opens the new line";
    QTest::keyClicks(editor(subjects), u"Paint"_s);
    QTest::keyClick(editor(subjects), Qt::Key_Return);
    QCoreApplication::processEvents();
    enter(subjects, 1, 1, u"Sweep"_s, Qt::Key_Tab);
    auto *list = qobject_cast<QComboBox *>(editor(subjects));
    ASSERT_TRUE(list);
    EXPECT_EQ((QStringList{u"1 - High"_s, u"2 - Normal"_s, u"3 - Low"_s}),
              (QStringList{list->itemText(0), list->itemText(1), list->itemText(2)}));
    QTest::keyClicks(list, u"3"_s);
    QTest::keyClick(list, Qt::Key_Tab);
    QTest::keyClick(at(subjects), Qt::Key_Space);
    press(subjects, 1, 0);
    EXPECT_EQ((QStringList{u"Paint"_s, u"1 - High"_s, u"False"_s, u"Sweep"_s, u"3 - Low"_s, u"True"_s}),
              stored(u"SELECT [TODO],[PRIORITY],[ACTIONED] FROM [TODO] ORDER BY [ID]"_s));
    enter(subjects, 2, 1, {});
    EXPECT_EQ(u"1 - High"_s, at<Grid>(subjects)->CellText(2, 1)) << "emptied again";
    QTest::mouseDClick(at<Grid>(subjects)->viewport(), Qt::LeftButton, {}, cell(at<Grid>(subjects), 1, 0));
    EXPECT_TRUE(editor(subjects)) << "a double click opens the cell, there is no other screen";
    QTest::keyClick(editor(subjects), Qt::Key_Escape);
    m_prompts.expect(u"Do you want to Delete this Record ?"_s, Answer::Yes);
    QTest::keyClick(at(subjects), Qt::Key_Delete);
    EXPECT_EQ(QStringList{u"Sweep"_s}, column(subjects, 1));
}

TEST_F(Cells, ShoppingCountsWhatIsPicked)
{
    execute(u"INSERT INTO [SHOPPING] ([ITEM],[STORE],[NUMBER],[AMOUNT],[TOTAL],[PICK]) VALUES ('Bread','Baker',1,3.25,3.25,True)"_s);
    show(u"Shopping"_s);
    const Grid *grid = at<Grid>(subjects);
    EXPECT_EQ(u"SHOPPING LIST ... 3.25"_s, grid->title());
    EXPECT_EQ(u"Clear"_s, text(u"panEditS"_s));
    enter(subjects, 1, 1, u"Tea"_s, Qt::Key_Tab);
    EXPECT_TRUE(qobject_cast<QComboBox *>(editor(subjects)));
    enter(subjects, 3, 1, u"2"_s, Qt::Key_Tab);
    enter(subjects, 5, 1, u"3.90"_s, Qt::Key_Tab);
    EXPECT_EQ(u"7.80"_s, grid->CellText(6, 1));
    QTest::keyClick(at(subjects), Qt::Key_Space);
    EXPECT_EQ(u"SHOPPING LIST ... 11.05"_s, grid->title()) << "with the row that is being typed";
    press(subjects, 1, 0);
    EXPECT_EQ((QStringList{u"Tea"_s, u"7.8"_s, u"True"_s}), stored(u"SELECT [ITEM],[TOTAL],[PICK] FROM [SHOPPING] WHERE [ID]=2"_s));
    enter(subjects, 3, 0, u"3"_s, Qt::Key_Tab);
    EXPECT_EQ(u"SHOPPING LIST ... 17.55"_s, grid->title());
    QTest::keyClick(editor(subjects), Qt::Key_Escape);
    QTest::keyClick(at(subjects), Qt::Key_Escape);
    EXPECT_EQ(u"SHOPPING LIST ... 11.05"_s, grid->title()) << "taken back";
    press(subjects, 7, 0);
    EXPECT_EQ(u"SHOPPING LIST ... 7.80"_s, grid->title());
    click(u"panEditS"_s);
    EXPECT_EQ(u"SHOPPING LIST ... 0.00"_s, grid->title());
    EXPECT_EQ((QStringList{u"False"_s, u"3.25"_s, u"False"_s, u"7.8"_s}),
              stored(u"SELECT [PICK],[TOTAL] FROM [SHOPPING] ORDER BY [ID]"_s));
    show(u"To Do"_s);
    EXPECT_EQ(u"Edit"_s, text(u"panEditS"_s));
    EXPECT_EQ(u"To Do's"_s, grid->title());
}

TEST_F(Cells, ShoppingTakesNoItemTwiceAndNobodyGetsPast)
{
    execute(u"INSERT INTO [SHOPPING] ([ITEM]) VALUES ('Tea')"_s);
    show(u"Shopping"_s);
    const auto refused = [this] { m_prompts.expect(u"This item has been entered already !"_s, Answer::Ok); };
    refused();
    enter(subjects, 1, 1, u"Tea"_s);
    const std::pair<const char *, std::function<void()>> roads[] = {
        {"another row", [this] { press(subjects, 1, 0); }},
        {"another section", [this] { click(u"cmdCat(9)"_s); }},
        {"a section by code", [this] { screen().DisplayCategory(u"All"_s); }},
        {"new query", [this] { screen().GetData(); }},
        {"sorting", [this] { emit at<Grid>(subjects)->HeadClick(2); }},
        {"the search", [this] { at<QLineEdit>(u"txtSearch"_s)->setText(u"Tea"_s); }},
        {"Edit", [this] { QTest::keyClick(at(u"txtSearch"_s), Qt::Key_Return); }},
        {"Clear", [this] { click(u"panEditS"_s); }},
        {"the end", [this] { screen().close(); }},
    };
    for (const auto &[road, go] : roads) {
        refused();
        go();
        QCoreApplication::processEvents();
        EXPECT_TRUE(m_prompts.isDone()) << road;
        EXPECT_EQ(u"H"_s, state().selection.gSection) << road;
        EXPECT_TRUE(screen().isVisible() && at<QAbstractButton>(u"cmdCat(14)"_s)->isChecked()) << road;
        EXPECT_EQ(u"Tea"_s, at<Grid>(subjects)->CellText(1, 1)) << road;
        EXPECT_EQ(1, at<Grid>(subjects)->currentRow()) << road;
    }
    enter(subjects, 1, 1, u"Tea "_s);                       // a blank makes another item
    EXPECT_EQ((QStringList{u"Tea"_s, u"Tea "_s}), stored(u"SELECT [ITEM] FROM [SHOPPING]"_s));
}

TEST_F(Cells, LeavingTheSectionOrTheProgramKeepsWhatWasTyped)
{
    show(u"To Do"_s);
    enter(subjects, 1, 0, u"first"_s, Qt::Key_Tab);
    click(u"cmdCat(9)"_s);
    show(u"To Do"_s);
    enter(subjects, 1, 1, u"second"_s, Qt::Key_Tab);
    at<QLineEdit>(u"txtSearch"_s)->setText(u"first"_s);
    enter(subjects, 1, 2, u"third"_s, Qt::Key_Tab);
    screen().close();
    EXPECT_EQ((QStringList{u"first"_s, u"second"_s, u"third"_s}), stored(u"SELECT [TODO] FROM [TODO] ORDER BY [ID]"_s));
}

TEST_F(Cells, ReminderCells)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#11/22/2026#,'All Day','Dentist',True)"_s);
    show(u"Appointments"_s);
    const QString name = u"APPOINTMENTSGRID"_s;
    Grid *grid = at<Grid>(name);
    grid->EditCell();
    EXPECT_FALSE(c().Timer2->isActive()) << "no alert over a cell";
    QTest::keyClick(editor(name), Qt::Key_Escape);
    EXPECT_TRUE(c().Timer2->isActive());
    enter(name, 1, 0, u"11/25/2026"_s, Qt::Key_Tab);
    EXPECT_EQ(u"Wed"_s, grid->CellText(2, 0));
    enter(name, 1, 0, u"some day"_s, Qt::Key_Tab);
    EXPECT_EQ(displayDate(basic::Date()), grid->CellText(1, 0)) << "no date is today";
    press(name, 3, 0);
    press(name, 4, 0);
    EXPECT_EQ(u"Dentist"_s, grid->CellText(4, 0));
    press(name, 2, 0);
    press(name, 4, 0);
    EXPECT_EQ(u"DENTIST"_s, grid->CellText(4, 0)) << "straight from the day to the text";
    enter(name, 3, 0, u"9:30"_s);
    EXPECT_EQ((QStringList{u"09:30 AM"_s, u"DENTIST"_s, u"Sun"_s}),
              stored(u"SELECT UCASE([APPTIME]),[APPOINTMENT],[DAY] FROM [APPOINTMENTS]"_s));
    enter(name, 4, 1, u"Walk"_s);
    EXPECT_EQ((QStringList{u"2026"_s, u"Sun"_s, u"12:00 PM"_s, u"True"_s, u"User"_s}),
              stored(u"SELECT YEAR([DATE]),[DAY],UCASE([APPTIME]),[TimeUpdate],[UsersName] FROM [APPOINTMENTS] WHERE [APPOINTMENT]='Walk'"_s))
        << "a new row is whole whatever was typed";
}

TEST_F(Cells, DateButtonOpensThePickerOnTheCell)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#11/22/2026#,'Gas')"_s);
    show(u"Bills"_s);
    Grid *grid = at<Grid>(u"BILLSGRID"_s);
    const QRect place = grid->visualRect(grid->model()->index(0, 1));
    test::inModal<frmCalendarDrop>(
        [&] { QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, {place.right() - 8, place.center().y()}); },
        [](frmCalendarDrop &picker) {
            EXPECT_EQ(22, picker.selectedDate().day());
            QTest::keyClick(&picker, Qt::Key_Right);
            test::click(picker, u"cmdApply"_s);
        });
    QTest::keyClick(grid, Qt::Key_Return);
    EXPECT_EQ((QStringList{u"23"_s, u"Mon"_s}), stored(u"SELECT DAY([DATE]),[DAY] FROM [BILLS]"_s));
}

TEST_F(Cells, BillOfTheSameNameIsToldInTheProgramsWords)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#11/22/2026#,'Gas')"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#11/22/2026#,'Water')"_s);
    execute(u"CREATE UNIQUE INDEX [ByName] ON [BILLS] ([BILL])"_s);
    show(u"Bills"_s);
    m_prompts.expect(u"You already have a Bill by that Name\r\nPlease re-enter"_s, Answer::Ok);
    enter(u"BILLSGRID"_s, 3, 0, at<Grid>(u"BILLSGRID"_s)->CellText(3, 1));
    EXPECT_TRUE(m_prompts.isDone());
    EXPECT_TRUE(at<Grid>(u"BILLSGRID"_s)->isRowChanged());
    QTest::keyClick(at(u"BILLSGRID"_s), Qt::Key_Escape);
}

TEST_F(Cells, EventSubjectsComeFromTheirTableAndMessagesAreReadAtOnce)
{
    execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT]) VALUES (#11/22/2026#,'SPORT','match')"_s);
    execute(u"INSERT INTO [MESSAGES] ([DATE],[FROM],[TO],[MESSAGE]) VALUES (#11/22/2026#,'Ann','User','hello')"_s);
    show(u"Events"_s);
    press(u"EVENTSGRID"_s, 3, 0);
    QTest::keyClick(at(u"EVENTSGRID"_s), Qt::Key_F2);
    auto *list = qobject_cast<QComboBox *>(editor(u"EVENTSGRID"_s));
    ASSERT_TRUE(list);
    EXPECT_EQ(u"SUBJECTLIST"_s, list->objectName());
    EXPECT_EQ(stored(u"select [SUBJECT] from [Subjects]"_s).size(), list->count());
    QTest::keyClick(list, Qt::Key_Escape);
    show(u"Messages"_s);
    press(subjects, 5, 0);
    EXPECT_EQ(QStringList{u"True"_s}, stored(u"SELECT [READ] FROM [MESSAGES]"_s));
    press(subjects, 4, 0);
    QTest::keyClick(at(subjects), Qt::Key_F2);
    EXPECT_FALSE(editor(subjects)) << "a message is not written over";
}

}
