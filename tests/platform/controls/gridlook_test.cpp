#include "platform/controls/colours.h"
#include "platform/controls/grid.h"
#include "platform/controls/griddelegate.h"
#include "people.h"

#include <QFontDatabase>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel;

TEST(Colours, AnyBackCanBeReadOn)
{
    for (int red = 0; red < 256; red += 15) {
        for (int green = 0; green < 256; green += 15) {
            for (int blue = 0; blue < 256; blue += 15) {
                const QColor back(red, green, blue);
                EXPECT_GE(controls::contrast(controls::blackOrWhiteOn(back), back), 4.5) << qPrintable(back.name());
                for (const QColor fore : {QColor(Qt::black), QColor(Qt::yellow), QColor(Qt::red), back})
                    EXPECT_GE(controls::contrast(controls::readable(fore, back), back), 3.0) << qPrintable(back.name());
            }
        }
    }
    EXPECT_EQ(QColor(Qt::red), controls::readable(Qt::red, Qt::white)) << "a choice that can be read stays";
}

TEST(GridText, IsCutToItsCell)
{
    const QFontMetrics metrics{QFont()};
    const int line = metrics.lineSpacing();
    const int wide = 4000;
    const QString words = u"one two three four five six"_s;
    EXPECT_EQ(u"a b"_s, controls::fittedText(u"a\r\nb"_s, metrics, {wide, line}));
    EXPECT_EQ(u"a\nb\nc"_s, controls::fittedText(u"a\r\nb\nc"_s, metrics, {wide, 3 * line}));
    EXPECT_EQ(u"a\n\nb"_s, controls::fittedText(u"a\n\nb"_s, metrics, {wide, 4 * line}));
    const int room = metrics.horizontalAdvance(u"one two three "_s);
    EXPECT_EQ(u"one two three\nfour five six"_s, controls::fittedText(words, metrics, {room, 2 * line}));
    for (const int height : {1, 2, 3}) {
        for (const int width : {0, 10, 40, 90}) {
            const QString cut = controls::fittedText(words + u"\nsupercalifragilistic"_s, metrics, {width, height * line});
            EXPECT_LE(cut.split(u'\n').size(), height);
            for (const QString &part : cut.split(u'\n'))
                EXPECT_LE(metrics.horizontalAdvance(part), std::max(width, metrics.horizontalAdvance(u"…"_s))) << part.toStdString();
        }
    }
}

namespace {

// The colour that fills most of a cell.
QColor backOf(const QImage &picture, const QRect &cell)
{
    QHash<QRgb, int> counts;
    for (int y = cell.top() + 1; y < cell.bottom(); ++y) {
        for (int x = cell.left(); x < cell.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    QRgb best = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > counts.value(best))
            best = it.key();
    }
    return QColor(best);
}

// The pixel with the most contrast to the cell's background.
double inkOf(const QImage &picture, const QRect &cell)
{
    const QColor back = backOf(picture, cell);
    double most = 1;
    for (int y = cell.top() + 2; y < cell.bottom() - 2; ++y) {
        for (int x = cell.left() + 2; x < cell.right() - 2; ++x)
            most = std::max(most, controls::contrast(QColor(picture.pixel(x, y)), back));
    }
    return most;
}

QPalette palette(bool dark)
{
    QPalette made;
    made.setColor(QPalette::Base, dark ? QColor(30, 30, 34) : QColor(Qt::white));
    made.setColor(QPalette::Text, dark ? QColor(235, 235, 235) : QColor(20, 20, 20));
    made.setColor(QPalette::Button, dark ? QColor(60, 60, 66) : QColor(240, 240, 240));
    made.setColor(QPalette::ButtonText, made.color(QPalette::Text));
    return made;
}

}

TEST(GridLook, StylesColourTheirCellsAndStayReadable)
{
    for (const bool dark : {false, true}) {
        test::People people;
        people.execute(u"UPDATE [People] SET [Friend]=True"_s);
        controls::DataControl data;
        controls::Grid grid;
        grid.setPalette(palette(dark));
        grid.resize(500, 200);
        grid.setColumns({{u"Name"_s, u"NAME"_s, 1500}, {u"Email"_s, u"EMAIL"_s, 1500},
                         {u"Friend"_s, u"FRIEND"_s, 900, true, controls::GridColumn::Style::Check}});
        grid.setStyleSet(u"TODAY"_s, {QColor(255, 255, 128), {}, true});
        grid.setStyleSet(u"REDALERT"_s, {QColor(128, 0, 0), QColor(100, 0, 0), false});
        grid.setStyleSet(u"HILITE"_s, {QColor(0, 200, 0), {}, false});
        grid.setRowLoad([](controls::RowPaint &paint) {
            paint.rowStyle = paint.row == 1 ? u"today"_s : u""_s;
            if (paint.row == 2)
                paint.style[0] = u"REDALERT"_s;
        });
        grid.setDataControl(&data);
        people.open(data);
        grid.show();
        const auto look = [&] { return grid.viewport()->grab().toImage(); };
        const auto cell = [&](int row, int column) { return grid.visualRect(grid.model()->index(row, column)); };
        QImage picture = look();
        EXPECT_EQ(QColor(255, 255, 128), backOf(picture, cell(1, 0)));
        EXPECT_EQ(QColor(255, 255, 128), backOf(picture, cell(1, 1))) << "the row's style colours all its cells";
        EXPECT_EQ(QColor(128, 0, 0), backOf(picture, cell(2, 0)));
        EXPECT_EQ(grid.palette().color(QPalette::Base), backOf(picture, cell(2, 1))) << "a cell's style is its own";
        for (int row = 0; row < 3; ++row) {
            EXPECT_GE(inkOf(picture, cell(row, 0)), 3.0) << row << (dark ? " dark" : " light");
            EXPECT_GE(inkOf(picture, cell(row, 2)), 3.0) << "the check mark";
            EXPECT_LT(inkOf(picture, cell(row, 1)), 1.5) << "nothing to show";
        }
        grid.setBookmark(grid.getBookmark(1));
        grid.clearFocus();
        EXPECT_EQ(QColor(255, 255, 128), backOf(look(), cell(1, 0))) << "kept while the user is elsewhere";
        const auto edge = [&](int row) { return QColor(look().pixel(cell(row, 1).topLeft() + QPoint(3, 0))); };
        EXPECT_GE(controls::contrast(edge(1), QColor(255, 255, 128)), 3.0) << "and marked as the current row";
        grid.setBookmark(grid.getBookmark(2));
        EXPECT_EQ(backOf(look(), cell(2, 0)), backOf(look(), cell(2, 1))) << "a selected row is of one piece";
        EXPECT_EQ(edge(1), QColor(255, 255, 128));
        grid.setBookmark(grid.getBookmark(0));
        EXPECT_NE(grid.palette().color(QPalette::Base), backOf(look(), cell(0, 0))) << "the current row is marked";
        grid.setBookmark(grid.getBookmark(1));
        grid.setActiveRowStyleSet(u"HILITE"_s);
        EXPECT_EQ(QColor(0, 200, 0), backOf(look(), cell(1, 0)));
        grid.setActiveRowStyleSet({});
        grid.setStyleSet({}, {QColor(200, 220, 255), {}, false});
        EXPECT_EQ(QColor(200, 220, 255), backOf(look(), cell(2, 1)));
        EXPECT_GE(inkOf(look(), cell(0, 0)), 3.0);
    }
}
