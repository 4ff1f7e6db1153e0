#include "people.h"
#include "platform/controls/grid.h"
#include "support/scriptedprompts.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace vorel;
using controls::DataControl;
using controls::Grid;
using controls::GridColumn;
using controls::RowPaint;

namespace {

struct Screen {
    test::People people;
    DataControl data;
    Grid grid;
    QStringList events;

    Screen()
    {
        grid.resize(500, 300);
        grid.setColumns({
            {u"ID"_s, u"ID"_s, 600, false},
            {u"name"_s, u"NAME"_s, 2250},
            {u"Friend"_s, u"FRIEND"_s, 900, true, GridColumn::Style::Check},
            {u""_s, u""_s, 600, true, GridColumn::Style::Button},
            {u"Age"_s, u"AGE"_s, 900, true, GridColumn::Style::Text, u"0000"_s, Qt::AlignRight},
            {u"nowhere"_s, u"EXTRA"_s, 900},
        });
        grid.setDataControl(&data);
        people.open(data);
        grid.show();
        QObject::connect(&grid, &Grid::RowChange, [this] { events.append(u"row %1"_s.arg(grid.currentRow())); });
        QObject::connect(&grid, &Grid::HeadClick, [this](int column) { events.append(u"head %1"_s.arg(column)); });
        QObject::connect(&grid, &Grid::EnterKey, [this] { events.append(u"enter"_s); });
        QObject::connect(&grid, &Grid::RowResize, [this] { events.append(u"height"_s); });
        QObject::connect(&grid, &Grid::ColResize, [this](int column) { events.append(u"width %1"_s.arg(column)); });
        QObject::connect(&grid, &Grid::BtnClick,
                         [this](int column, qsizetype row) { events.append(u"button %1 %2"_s.arg(column).arg(row)); });
    }
    QStringList taken() { return std::exchange(events, {}); }
    QPoint cell(int column, int row) { return grid.visualRect(grid.model()->index(row, column)).center(); }
    QWidget *area() { return grid.viewport(); }
};

}

TEST(Grid, ShowsTheControlsRows)
{
    Screen s;
    EXPECT_EQ(3, s.grid.rows());
    EXPECT_EQ(0, s.grid.currentRow()) << "the control's current row";
    struct Case { int column; qsizetype row; QString shown; };
    const std::vector<Case> cases {
        {0, 1, u"2"_s}, {1, 0, u"Ann"_s}, {1, 2, u"Cid"_s}, {2, 0, u"0"_s}, {4, 0, u"0030"_s}, {5, 0, u""_s},
        {1, 3, u""_s}, {1, -1, u""_s}, {-1, 0, u""_s}, {9, 0, u""_s},
    };
    for (const Case &c : cases)
        EXPECT_EQ(c.shown, s.grid.CellText(c.column, c.row)) << c.column << ',' << c.row;
    s.people.execute(u"UPDATE [People] SET [Friend]=True WHERE [ID]=2"_s);
    s.data.Refresh();
    EXPECT_EQ(u"-1"_s, s.grid.CellText(2, 1));
    const auto *model = s.grid.model();
    EXPECT_EQ(u"Yes"_s, model->index(1, 2).data(Qt::AccessibleTextRole).toString());
    EXPECT_EQ(u"No"_s, model->index(0, 2).data(Qt::AccessibleTextRole).toString());
    s.data.setRecordSource(u""_s);
    s.data.Refresh();
    EXPECT_EQ(0, s.grid.rows());
    EXPECT_EQ(-1, s.grid.currentRow());
    EXPECT_FALSE(s.grid.Bookmark().isValid());
}

TEST(Grid, GridAndControlShareTheCurrentRow)
{
    Screen s;
    QTest::mouseClick(s.area(), Qt::LeftButton, {}, s.cell(1, 2));
    EXPECT_EQ(u"Cid"_s, s.data.Recordset().Get(u"Name").text());
    s.data.FindFirst(u"ID=2"_s);
    EXPECT_EQ(1, s.grid.currentRow());
    EXPECT_EQ(s.data.Recordset().Bookmark(), s.grid.Bookmark());
    s.grid.setBookmark(s.grid.getBookmark(0));
    EXPECT_EQ(u"Ann"_s, s.data.Recordset().Get(u"Name").text());
    EXPECT_EQ((QStringList{u"row 2"_s, u"row 1"_s, u"row 0"_s}), s.taken()) << "once for each change";
    s.grid.setBookmark({});
    s.grid.MoveFirst();
    EXPECT_EQ(QStringList(), s.taken());
}

TEST(Grid, RowWhoseTypingIsRefusedIsNotLeft)
{
    Screen s;
    QLineEdit age;
    s.data.bind(&age, u"Age"_s);
    QList<int> errors;
    QObject::connect(&s.data, &DataControl::Error, [&](int number) { errors.append(number); });
    age.setText(u"old"_s);
    QTest::mouseClick(s.area(), Qt::LeftButton, {}, s.cell(1, 2));
    QCoreApplication::processEvents();
    EXPECT_EQ(QList<int>{3421}, errors);
    EXPECT_EQ(0, s.grid.currentRow());
    EXPECT_EQ(u"old"_s, age.text());
}

TEST(Grid, Keys)
{
    Screen s;
    s.grid.setAllowAddNew(true);
    struct Case { Qt::Key key; Qt::KeyboardModifiers modifiers; QStringList events; };
    const std::vector<Case> cases {
        {Qt::Key_Down, {}, {u"row 1"_s}},
        {Qt::Key_Return, {}, {u"enter"_s}},
        {Qt::Key_Enter, Qt::KeypadModifier, {u"enter"_s}},
        {Qt::Key_F4, {}, {u"button 3 1"_s}},
        {Qt::Key_Down, Qt::AltModifier, {u"button 3 1"_s}},
        {Qt::Key_End, {}, {u"row 3"_s}},
        {Qt::Key_F4, {}, {}},                       // the new line has no button
        {Qt::Key_Down, {}, {}},
        {Qt::Key_Home, {}, {u"row 0"_s}},
        {Qt::Key_C, {}, {}},                        // no search by letters of its own
    };
    s.taken();
    for (const Case &c : cases) {
        QTest::keyClick(&s.grid, c.key, c.modifiers);
        EXPECT_EQ(c.events, s.taken()) << c.key;
    }
}

TEST(Grid, DoubleClickTellsHeadsFromRows)
{
    Screen s;
    s.grid.setTitle(u"APPOINTMENTS"_s);
    int told = -1;
    QObject::connect(&s.grid, &Grid::DblClick, [&](int y) { told = y; });
    const auto *title = s.grid.findChild<QWidget *>(u"title"_s);
    auto *heads = s.grid.horizontalHeader()->viewport();
    ASSERT_TRUE(title && title->isVisible());
    struct Case { const char *name; QWidget *target; QPoint where; bool isHead; };
    const std::vector<Case> cases {
        {"title's top", const_cast<QWidget *>(title), {40, 1}, true},
        {"title's lowest line", const_cast<QWidget *>(title), {40, title->height() - 1}, true},
        {"column head", heads, {60, heads->height() - 3}, true},
        {"right of all heads", heads, {heads->width() - 2, heads->height() - 3}, true},
        {"first row", s.area(), s.cell(1, 0), false},
        {"first row's top line", s.area(), {60, 0}, false},
        {"below the last row", s.area(), {60, s.area()->height() - 2}, false},
    };
    for (const Case &c : cases) {
        told = -1;
        QTest::mouseDClick(c.target, Qt::LeftButton, {}, c.where);
        ASSERT_GE(told, 0) << c.name;
        EXPECT_EQ(c.isHead, told <= 275) << c.name << ": " << told;
    }
    told = -1;
    QTest::mouseDClick(s.area(), Qt::LeftButton, {}, s.cell(3, 0));
    QTest::mouseDClick(s.area(), Qt::RightButton, {}, s.cell(1, 0));
    EXPECT_EQ(-1, told) << "a button is pressed, not opened";
}

TEST(Grid, HeadClickAndColumnDrag)
{
    Screen s;
    s.grid.setTitle(u"PEOPLE"_s);
    auto *header = s.grid.horizontalHeader();
    auto *heads = header->viewport();
    const int y = heads->height() - 4;
    const auto left = [&](int column) { return header->sectionViewportPosition(column); };
    QTest::mouseClick(heads, Qt::LeftButton, {}, {left(4) + 20, y});
    EXPECT_EQ(QStringList{u"head 4"_s}, s.taken());
    QTest::mousePress(heads, Qt::LeftButton, {}, {left(2) - 1, y});
    QTest::mouseMove(heads, {left(2) + 19, y});
    QTest::mouseMove(heads, {left(1) + 150 + 29, y});
    QTest::mouseRelease(heads, Qt::LeftButton, {}, {left(1) + 150 + 29, y});
    EXPECT_EQ(QStringList{u"width 1"_s}, s.taken()) << "told once, when let go";
    EXPECT_EQ(2250 + 30 * 15, s.grid.columnWidthTwips(1));
    s.grid.setColumnWidthTwips(1, 1500);
    s.data.Refresh();
    EXPECT_EQ(1500, s.grid.columnWidthTwips(1)) << "a refresh keeps the widths";
    EXPECT_EQ(100, s.grid.columnWidth(1));
    EXPECT_FALSE(s.taken().contains(u"width 1"_s)) << "code is no user";
}

TEST(Grid, DraggingOneRowsEdgeSetsAllRows)
{
    Screen s;
    s.grid.setRowHeightTwips(300);
    auto *selectors = s.grid.verticalHeader()->viewport();
    s.taken();
    QTest::mousePress(selectors, Qt::LeftButton, {}, {8, 40});      // the edge below the second row of 20 pixels
    QTest::mouseMove(selectors, {8, 50});
    QTest::mouseMove(selectors, {8, 55});
    EXPECT_EQ(QStringList(), s.taken());
    QTest::mouseRelease(selectors, Qt::LeftButton, {}, {8, 55});
    EXPECT_EQ(QStringList{u"height"_s}, s.taken());
    EXPECT_EQ(35 * 15, s.grid.rowHeightTwips());
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(35, s.grid.rowHeight(row));
    EXPECT_EQ(35, s.grid.visualRect(s.grid.model()->index(1, 1)).top());
    s.data.Refresh();
    EXPECT_EQ(35, s.grid.rowHeight(2));
    QTest::mouseClick(selectors, Qt::LeftButton, {}, {8, 50});
    EXPECT_EQ(1, s.grid.currentRow()) << "away from the edges it selects";
}

TEST(Grid, RowLoadIsAskedOnceForEachVisibleRow)
{
    Screen s;
    QList<qsizetype> asked;
    s.grid.setRowLoad([&](RowPaint &paint) {
        asked.append(paint.row);
        paint.text[5] = u"day "_s + paint.cell(0).text();
        EXPECT_EQ(u""_s, paint.text[1]);
        if (paint.row == 1) {
            paint.rowStyle = u"TODAY"_s;
            paint.style[3] = u"PICTURE"_s;
            paint.text[1] = u""_s;                  // blanked, not left alone
        }
    });
    s.grid.grab();
    s.grid.grab();
    std::sort(asked.begin(), asked.end());
    EXPECT_EQ((QList<qsizetype>{0, 1, 2}), asked);
    EXPECT_EQ(u"day 2"_s, s.grid.CellText(5, 1));
    EXPECT_EQ(u""_s, s.grid.CellText(1, 1));
    EXPECT_EQ(u"Cid"_s, s.grid.CellText(1, 2));
    EXPECT_EQ(u"Picture"_s, s.grid.model()->index(1, 3).data(Qt::AccessibleTextRole).toString());
    asked.clear();
    s.grid.Repaint();
    s.grid.grab();
    EXPECT_EQ(3, asked.size());
    s.grid.setRowLoad([](RowPaint &) { throw basic::BasicError(13); });
    s.grid.grab();                                  // painting shows no box
    EXPECT_EQ(u"Ann"_s, s.grid.CellText(1, 0));
}

TEST(Grid, HundredThousandRowsAreReadAsTheyAreSeen)
{
    Screen s;
    s.people.execute(u"DELETE FROM [People]"_s);
    {
        dao::Database database = dao::DBEngine::OpenDatabase(s.people.file());
        dao::Transaction all(database);
        dao::Recordset rows = database.OpenRecordset(u"SELECT * FROM [People]"_s);
        for (int i = 0; i < 100'000; ++i) {
            rows.AddNew();
            rows.Set(u"Name", u"P%1"_s.arg(i));
            rows.Update();
        }
        all.Commit();
    }
    QSet<qsizetype> asked;
    s.grid.setRowLoad([&](RowPaint &paint) { asked.insert(paint.row); });
    s.people.open(s.data, u"SELECT * FROM [People] ORDER BY [ID]"_s);
    s.grid.grab();
    EXPECT_EQ(100'000, s.grid.rows());
    EXPECT_LE(asked.size(), s.grid.VisibleRows() + 2);
    s.grid.Scroll(50'000);
    s.grid.grab();
    EXPECT_EQ(50'000, s.grid.FirstRow());
    QTest::keyClick(&s.grid, Qt::Key_End);
    s.grid.grab();
    EXPECT_EQ(99'999, s.grid.currentRow());
    EXPECT_EQ(u"P99999"_s, s.grid.CellText(1));
    EXPECT_LE(asked.size(), 3 * (s.grid.VisibleRows() + 2));
    s.grid.setRowHeightTwips(450);
    EXPECT_EQ(30 * 100'000, s.grid.verticalHeader()->length());
    s.people.execute(u"DELETE FROM [People] WHERE [ID]>100"_s);     // behind the grid's back
    s.grid.Repaint();
    s.grid.grab();
    EXPECT_EQ(u""_s, s.grid.CellText(1, 99'999));
}

TEST(Grid, KeepsItsPlaceOverARequery)
{
    Screen s;
    for (int i = 0; i < 60; ++i)
        s.people.execute(u"INSERT INTO [People] ([Name]) VALUES ('x%1')"_s.arg(i));
    s.data.Refresh();
    s.grid.setBookmark(s.grid.getBookmark(50));
    s.grid.Scroll(45);
    const int place = s.grid.verticalScrollBar()->value();
    s.grid.Requery();
    EXPECT_EQ(50, s.grid.currentRow());
    EXPECT_EQ(place, s.grid.verticalScrollBar()->value());
    s.data.Recordset().Delete();
    s.data.MoveNext();
    EXPECT_EQ(62, s.grid.rows()) << "a row that went through the control's own recordset";
    EXPECT_EQ(50, s.grid.currentRow());
}

TEST(Grid, MayOutliveItsControl)
{
    Screen s;
    auto data = std::make_unique<DataControl>();
    s.people.open(*data);
    s.grid.setDataControl(data.get());
    EXPECT_EQ(3, s.grid.rows());
    data.reset();
    s.grid.grab();
    QTest::keyClick(&s.grid, Qt::Key_Down);
    EXPECT_EQ(u""_s, s.grid.CellText(1, 0));
    s.grid.Requery();
    EXPECT_EQ(0, s.grid.rows());
}
