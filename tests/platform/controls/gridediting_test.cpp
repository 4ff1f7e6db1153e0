#include "people.h"
#include "platform/controls/grid.h"
#include "support/scriptedprompts.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace vorel;
using controls::CellChange;
using controls::DataControl;
using controls::Grid;
using controls::GridColumn;
using controls::RowUpdate;
using controls::UpdateFailure;

namespace {

enum Column { Id, Name, Email, Owed, Born, Friend, Age };

struct Editing : testing::Test {
    test::People people;
    test::ScriptedPrompts prompts;
    DataControl data;
    Grid grid;
    controls::EditHandlers handlers;
    QStringList events;

    Editing()
    {
        grid.resize(900, 300);
        grid.setColumns({{u"ID"_s, u"ID"_s, 600, false},
                         {u"Name"_s, u"NAME"_s, 2250},
                         {u"Email"_s, u"EMAIL"_s, 2250},
                         {u"Owed"_s, u"OWED"_s, 1500, true, GridColumn::Style::Text, u"0.00"_s},
                         {u"Born"_s, u"BORN"_s, 1500, true, GridColumn::Style::Text, u"yyyy-mm-dd"_s},
                         {u"Friend"_s, u"FRIEND"_s, 900, true, GridColumn::Style::Check},
                         {u"Age"_s, u"AGE"_s, 900}});
        grid.setDataControl(&data);
        people.open(data);
        grid.setAllowAddNew(true);
        handlers.beforeCellChange = [this](CellChange &c) { events << u"cell %1 %2>%3"_s.arg(c.column).arg(c.before, c.text); };
        handlers.beforeUpdate = [this](RowUpdate &u) { events << u"before %1%2"_s.arg(u.row).arg(u.isNew ? u" new"_s : QString()); };
        handlers.afterUpdate = [this](const RowUpdate &u) { events << u"after %1"_s.arg(u.row); };
        use();
        grid.show();
        grid.activateWindow();
        grid.setFocus();
    }
    void use()
    {
        grid.setEditing({{u"Name"_s}, {u"Email"_s, [] { return QStringList{u"a@x"_s, u"b@x"_s}; }, u"EMAILS"_s}, {u"Owed"_s},
                         {u"Born"_s, {}, {}, true}, {u"Friend"_s}}, handlers);
    }
    QPoint cell(int column, int row) { return grid.visualRect(grid.model()->index(row, column)).center(); }
    void click(int column, int row) { QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell(column, row)); }
    QWidget *editor()
    {
        for (auto *open : grid.viewport()->findChildren<QWidget *>(u"txtCell"_s))
            if (open->isVisible())
                return open;
        return nullptr;
    }
    void key(Qt::Key key, QWidget *target = nullptr)
    {
        QTest::keyClick(target ? target : &grid, key);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void type(const QString &text)                       // as a user: the first letter opens the cell
    {
        QTest::keyClick(&grid, text.front().toLatin1());
        ASSERT_TRUE(editor()) << qPrintable(text);
        QTest::keyClicks(editor(), text.mid(1));
    }
    QStringList taken() { return std::exchange(events, {}); }
};

}

TEST_F(Editing, TypedTextIsWrittenWhenTheRowIsLeft)
{
    click(Name, 1);
    type(u"Ben"_s);
    EXPECT_EQ(u"Bob"_s, people.text(2, u"Name"_s));
    key(Qt::Key_Tab, editor());
    EXPECT_EQ(u"Ben"_s, grid.CellText(Name, 1));
    EXPECT_TRUE(grid.isRowChanged());
    EXPECT_EQ(u"Bob"_s, people.text(2, u"Name"_s)) << "the cell was left, not the row";
    ASSERT_TRUE(grid.viewport()->findChild<QComboBox *>(u"EMAILS"_s)) << "Tab opens the next cell";
    click(Name, 0);
    EXPECT_EQ(u"Ben"_s, people.text(2, u"Name"_s));
    EXPECT_EQ(0, grid.currentRow());
    EXPECT_FALSE(grid.isRowChanged());
    EXPECT_TRUE(taken().contains(u"after 1"_s));
}

TEST_F(Editing, EveryRoadWritesTheRow)
{
    const std::vector<std::pair<const char *, std::function<void()>>> roads {
        {"Enter", [this] { key(Qt::Key_Return, editor()); }},
        {"down", [this] { key(Qt::Key_Down, editor()); }},
        {"a click on another row", [this] { click(Friend, 2); }},
        {"code selects a row", [this] { grid.setBookmark(grid.getBookmark(2)); }},
        {"the control moves", [this] { data.MoveLast(); }},
        {"another query", [this] { data.Refresh(); }},
        {"a sorted recordset", [this] { data.setRecordset(data.Recordset().OpenRecordset()); }},
    };
    int number = 0;
    for (const auto &[road, go] : roads) {
        const QString name = u"n%1"_s.arg(++number);
        click(Name, 1);
        type(name);
        go();
        EXPECT_EQ(name, people.text(2, u"Name"_s)) << road;
        EXPECT_FALSE(grid.isRowChanged()) << road;
        EXPECT_FALSE(editor()) << road;
    }
}

TEST_F(Editing, RefusedRowIsNotLeftByAnyRoad)
{
    click(Owed, 1);
    type(u"much"_s);
    key(Qt::Key_Tab, editor());
    const std::vector<std::pair<const char *, std::function<void()>>> roads {
        {"a click", [this] { click(Name, 2); }},
        {"down", [this] { key(Qt::Key_Down); }},
        {"code selects a row", [this] { grid.setBookmark(grid.getBookmark(2)); }},
        {"the control moves", [this] { data.MoveLast(); }},
        {"another query", [this] { data.setRecordSource(u""_s); data.Refresh(); }},
        {"Enter", [this] { key(Qt::Key_Return); }},
    };
    for (const auto &[road, go] : roads) {
        prompts.expect(u"is not saved.\nOWED: \"much\" is not an amount"_s, basic::Answer::Ok);
        go();
        QCoreApplication::processEvents();
        EXPECT_TRUE(prompts.isDone()) << road;
        EXPECT_EQ(1, grid.currentRow()) << road;
        EXPECT_EQ(u"much"_s, grid.CellText(Owed, 1)) << road;
        EXPECT_EQ(3, grid.rows()) << road;
    }
    key(Qt::Key_Escape);
    EXPECT_EQ(u""_s, grid.CellText(Owed, 1));
    key(Qt::Key_Down);
    EXPECT_EQ(2, grid.currentRow());
}

TEST_F(Editing, EscapeDropsTheCellThenTheRow)
{
    click(Name, 0);
    type(u"Amy"_s);
    key(Qt::Key_Tab, editor());
    auto *list = grid.viewport()->findChild<QComboBox *>(u"EMAILS"_s);
    ASSERT_TRUE(list);
    EXPECT_EQ(2, list->count());
    QTest::keyClicks(list, u"zz"_s);
    key(Qt::Key_Escape, list);
    EXPECT_EQ(u""_s, grid.CellText(Email, 0));
    EXPECT_EQ(u"Amy"_s, grid.CellText(Name, 0));
    key(Qt::Key_Escape);
    EXPECT_EQ(u"Ann"_s, grid.CellText(Name, 0));
    EXPECT_FALSE(grid.isRowChanged());
    EXPECT_EQ(u"Ann"_s, people.text(1, u"Name"_s));
}

TEST_F(Editing, NewRowLineTakesRowAfterRow)
{
    grid.EditNewRow();
    ASSERT_TRUE(editor());
    QTest::keyClicks(editor(), u"Dan"_s);
    key(Qt::Key_Return, editor());
    EXPECT_EQ(u"Dan"_s, people.text(4, u"Name"_s));
    EXPECT_EQ(4, grid.rows());
    EXPECT_EQ(4, grid.currentRow()) << "on the next new line";
    type(u"Eve"_s);
    key(Qt::Key_Tab, editor());
    key(Qt::Key_Escape, grid.viewport()->findChild<QComboBox *>(u"EMAILS"_s));
    EXPECT_EQ(u"Eve"_s, grid.CellText(Name, 4));
    key(Qt::Key_Up);
    EXPECT_EQ(u"Eve"_s, people.text(5, u"Name"_s));
    EXPECT_EQ(3, grid.currentRow());
    EXPECT_EQ(u"5"_s, grid.CellText(Id, 4));
    EXPECT_EQ((QStringList{u"before 3 new"_s, u"after 3"_s, u"before 4 new"_s, u"after 4"_s}),
              taken().filter(QRegularExpression(u"before|after"_s)));
    prompts.expect(u"duplicate"_s, basic::Answer::Ok);      // the name has a unique index
    grid.EditNewRow();
    QTest::keyClicks(editor(), u"Eve"_s);
    key(Qt::Key_Return, editor());
    EXPECT_EQ(5, grid.rows());
    EXPECT_EQ(5, grid.currentRow());
    key(Qt::Key_Escape);
    EXPECT_EQ(u""_s, grid.CellText(Name, 5));
}

TEST_F(Editing, ChecksAreToggledByTheBoxAndSpace)
{
    click(Friend, 1);
    EXPECT_EQ(u"-1"_s, grid.CellText(Friend, 1));
    EXPECT_TRUE(people.stored(2, u"Friend"_s).get<bool>()) << "at once, for it is all there is to write";
    key(Qt::Key_Space);
    EXPECT_FALSE(people.stored(2, u"Friend"_s).get<bool>());
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.cellRect(Friend, 0).topLeft() + QPoint(3, 3));
    EXPECT_EQ(u"0"_s, grid.CellText(Friend, 0)) << "beside the box";
    int opened = 0;
    QObject::connect(&grid, &Grid::DblClick, [&] { ++opened; });
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, cell(Friend, 0));
    EXPECT_EQ(0, opened);
    click(Name, 0);
    type(u"Amy"_s);
    click(Friend, 0);
    EXPECT_EQ(u"Ann"_s, people.text(1, u"Name"_s)) << "with more to write it waits for the row";
    key(Qt::Key_Down);
    EXPECT_EQ(u"Amy"_s, people.text(1, u"Name"_s));
}

TEST_F(Editing, HandlersChangeRefuseAndAnswer)
{
    handlers.beforeCellChange = [](CellChange &c) {
        if (c.text == u"nobody")
            c.cancel = true;
        c.text = c.text.toUpper();
    };
    handlers.afterCellChange = [this](int column) {
        if (column == Name)
            grid.setEditValue(Age, std::int32_t{7});        // a column that is closed to typing
    };
    handlers.beforeUpdate = [](RowUpdate &u) {
        u.more.emplace_back(u"Notes"_s, u"noted"_s);
    };
    QList<int> answered;
    handlers.updateError = [&](UpdateFailure &f) {
        answered << f.number;
        f.answered = true;
    };
    use();
    click(Name, 0);
    type(u"nobody"_s);
    key(Qt::Key_Return, editor());
    EXPECT_EQ(u"Ann"_s, grid.CellText(Name, 0));
    type(u"zoe"_s);
    key(Qt::Key_Return, editor());
    EXPECT_EQ(u"ZOE"_s, people.text(1, u"Name"_s));
    EXPECT_EQ(u"7"_s, people.text(1, u"Age"_s));
    EXPECT_EQ(u"noted"_s, people.text(1, u"Notes"_s));
    type(u"bob"_s);
    key(Qt::Key_Return, editor());
    EXPECT_EQ(QList<int>{16389}, answered) << "told by the handler, no box of the grid's own";
    EXPECT_EQ(u"BOB"_s, grid.CellText(Name, 0));
}

TEST_F(Editing, ButtonAtTheCellsEndAndKeys)
{
    QStringList told;
    QObject::connect(&grid, &Grid::BtnClick, [&](int c, qsizetype r) { told << u"button %1 %2"_s.arg(c).arg(r); });
    QObject::connect(&grid, &Grid::DeleteKey, [&] { told << u"delete"_s; });
    QObject::connect(&grid, &Grid::HeadClick, [&](int c) { told << u"head %1"_s.arg(c); });
    QObject::connect(&grid, &Grid::CellMove, [&](int from, int to) { told << u"%1 to %2"_s.arg(from).arg(to); });
    const QRect born = grid.cellRect(Born, 1);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, {born.right() - 8, born.center().y()});
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, {born.left() + 8, born.center().y()});
    QTest::keyClick(&grid, Qt::Key_F4);
    QTest::keyClick(&grid, Qt::Key_Delete);
    QTest::keyClick(&grid, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ((QStringList{u"button 4 1"_s, u"button 4 1"_s, u"delete"_s, u"head 4"_s}), told);
    const QRect mail = grid.cellRect(Email, 1);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, {mail.right() - 8, mail.center().y()});
    auto *list = grid.viewport()->findChild<QComboBox *>(u"EMAILS"_s);
    ASSERT_TRUE(list && list->view()->isVisible()) << "the mark of a list opens it";
    list->hidePopup();
    key(Qt::Key_Escape, list);
    told.clear();
    click(Name, 1);
    EXPECT_EQ(QStringList{u"2 to 1"_s}, told);
}

TEST_F(Editing, ReadOnlyRowsTakeNoTypingAndShowNoNewLine)
{
    people.open(data, u"SELECT DISTINCT [ID],[Name],[Friend] FROM [People] ORDER BY [ID]"_s);
    EXPECT_EQ(3, grid.model()->rowCount());
    click(Name, 0);
    QTest::keyClick(&grid, Qt::Key_X);
    EXPECT_FALSE(editor());
    click(Friend, 0);
    EXPECT_EQ(u"0"_s, grid.CellText(Friend, 0));
    grid.EditNewRow();
    EXPECT_FALSE(editor());
}

TEST_F(Editing, RowThatSomebodyElseDeletedIsToldAndLetGo)
{
    click(Name, 1);
    type(u"Ben"_s);
    key(Qt::Key_Tab, editor());
    people.execute(u"DELETE FROM [People] WHERE [ID]=2"_s);
    prompts.expect(u"deleted"_s, basic::Answer::Ok);
    click(Name, 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(u"Ben"_s, grid.CellText(Name, 1)) << "kept to be read off";
    key(Qt::Key_Escape);
    key(Qt::Key_Down);
    EXPECT_EQ(2, grid.currentRow());
}
