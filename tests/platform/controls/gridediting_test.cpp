#include "people.h"
#include "platform/controls/grid.h"
#include "support/scriptedprompts.h"
#include "support/steps.h"

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
    QComboBox *list() { return grid.viewport()->findChild<QComboBox *>(u"EMAILS"_s); }
    void play(const char *table);
};

// Steps in controls.tsv: typein and keyin go to the open cell, typelist and keylist to its list.
void Editing::play(const char *table)
{
    test::Verbs verbs;
    const auto act = [&verbs](const QString &verb, const std::function<void(const QString &)> &step) {
        verbs[verb] = [step](const QString &rest) { step(rest); return QString(); };
    };
    const auto column = [](const QString &cell) {
        return static_cast<int>(QStringList{u"Id"_s, u"Name"_s, u"Email"_s, u"Owed"_s, u"Born"_s, u"Friend"_s}.indexOf(test::word(cell, 0)));
    };
    const auto row = [](const QString &cell) { return test::word(cell, 1).toInt(); };
    const auto keyOf = [](const QString &name) { return static_cast<Qt::Key>(QKeySequence(name)[0].key()); };
    act(u"click"_s, [=, this](const QString &at) { click(column(at), row(at)); QCoreApplication::processEvents(); });
    act(u"clickbeside"_s, [=, this](const QString &at) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.cellRect(column(at), row(at)).topLeft() + QPoint(3, 3));
    });
    act(u"dblclick"_s, [=, this](const QString &at) { QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, cell(column(at), row(at))); });
    act(u"type"_s, [this](const QString &text) { type(text); });
    act(u"typein"_s, [this](const QString &text) { QTest::keyClicks(editor(), text); });
    act(u"typelist"_s, [this](const QString &text) { QTest::keyClicks(list(), text); });
    act(u"key"_s, [=, this](const QString &name) { key(keyOf(name)); });
    act(u"keyin"_s, [=, this](const QString &name) { key(keyOf(name), editor()); });
    act(u"keylist"_s, [=, this](const QString &name) { key(keyOf(name), list()); });
    act(u"EditNewRow"_s, [this](const QString &) { grid.EditNewRow(); });
    act(u"expect"_s, [this](const QString &text) { prompts.expect(text, basic::Answer::Ok); });
    act(u"sql"_s, [this](const QString &sql) { people.execute(sql); });
    act(u"open"_s, [this](const QString &sql) { people.open(data, sql); });
    verbs[u"cell"_s] = [=, this](const QString &at) { return grid.CellText(column(at), row(at)); };
    verbs[u"stored"_s] = [this](const QString &rest) { return people.text(test::word(rest, 0).toInt(), test::word(rest, 1)); };
    verbs[u"changed"_s] = [this](const QString &) { return test::yes(grid.isRowChanged()); };
    verbs[u"current"_s] = [this](const QString &) { return QString::number(grid.currentRow()); };
    verbs[u"rows"_s] = [this](const QString &) { return QString::number(grid.rows()); };
    verbs[u"lines"_s] = [this](const QString &) { return QString::number(grid.model()->rowCount()); };
    verbs[u"list"_s] = [this](const QString &) { return list() ? QString::number(list()->count()) : u"none"_s; };
    verbs[u"editor"_s] = [this](const QString &) { return test::yes(editor()); };
    verbs[u"told"_s] = [this](const QString &) {
        return std::exchange(events, {}).filter(QRegularExpression(u"before|after"_s)).join(u',');
    };
    test::play("controls", table, verbs);
}

}

TEST_F(Editing, TypedTextIsWrittenWhenTheRowIsLeft) { play("typed cells"); }
TEST_F(Editing, EscapeDropsTheCellThenTheRow) { play("escape"); }
TEST_F(Editing, NewRowLineTakesRowAfterRow) { play("new rows"); }
TEST_F(Editing, ReadOnlyRowsTakeNoTypingAndShowNoNewLine) { play("read-only"); }
TEST_F(Editing, RowThatSomebodyElseDeletedIsToldAndLetGo) { play("deleted row"); }

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

TEST_F(Editing, ChecksAreToggledByTheBoxAndSpace)
{
    int opened = 0;
    QObject::connect(&grid, &Grid::DblClick, [&] { ++opened; });
    play("checks");
    EXPECT_EQ(0, opened);
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
    ASSERT_TRUE(list() && list()->view()->isVisible()) << "the mark of a list opens it";
    list()->hidePopup();
    key(Qt::Key_Escape, list());
    told.clear();
    click(Name, 1);
    EXPECT_EQ(QStringList{u"2 to 1"_s}, told);
}

