#include "app/caddyscreen.h"
#include "frame/frmCaddyGround.h"

#include <QImage>

namespace vorel {

using namespace Qt::StringLiterals;
using test::Grid;

class Layout : public test::CaddyScreen {
protected:
    QString stored(const QString &key) { return GetIniValue(iniSettings, key, u"(none)"_s); }
    // Drags the right edge of a column's head.
    void widen(Grid *grid, int column, int by)
    {
        QWidget *head = grid->horizontalHeader()->viewport();
        const QPoint edge(grid->columnViewportPosition(column) + grid->columnWidth(column) - 2, head->height() - 5);
        QTest::mousePress(head, Qt::LeftButton, {}, edge);
        QTest::mouseMove(head, edge + QPoint(by / 2, 0));
        QTest::mouseMove(head, edge + QPoint(by, 0));
        QTest::mouseRelease(head, Qt::LeftButton, {}, edge + QPoint(by, 0));
    }
};

TEST_F(Layout, DraggedWidthsAndHeightsSurviveARestart)
{
    execute(u"INSERT INTO [Inventory] ([Item]) VALUES ('Axe')"_s);
    startOn(u"Inventory"_s);
    Grid *grid = at<Grid>(u"SUBJECTGRID"_s);
    const int before = grid->columnWidth(1);
    widen(grid, 1, 40);
    EXPECT_EQ(grid->columnWidth(1), before + 40);
    grid->setRowHeightTwips(405);
    const int width = grid->columnWidthTwips(1);
    const auto showBills = [this] {
        screen().resize(1272, 760);
        screen().DisplayCategory(u"Bills"_s);
        QCoreApplication::processEvents();
    };
    showBills();
    Grid *bills = at<Grid>(u"BILLSGRID"_s);
    const auto isFull = [](const Grid *list) { return list->horizontalHeader()->length() == list->viewport()->width(); };
    const int name = bills->columnWidth(3), dates = bills->columnWidthTwips(1) + 30 * 15;
    widen(bills, 1, 30);
    EXPECT_EQ(bills->columnWidthTwips(1), dates);
    EXPECT_EQ(bills->columnWidth(3), name - 30) << "the column that names the row gives and takes";
    screen().resize(screen().width() + 100, screen().height());
    QCoreApplication::processEvents();
    EXPECT_TRUE(isFull(bills)) << "also after a width was set";
    widen(bills, 3, -30);
    EXPECT_TRUE(isFull(bills));
    stop();
    EXPECT_EQ(stored(u"INVENTORYCOL1WIDTH"_s), QString::number(width));
    EXPECT_EQ(stored(u"INVENTORYROWHEIGHT"_s), u"405"_s);
    EXPECT_EQ(stored(u"BILLSCOL1WIDTH"_s), QString::number(dates));
    EXPECT_EQ(stored(u"BILLSCOL4WIDTH"_s), u"1000"_s);          // not set: the first width
    EXPECT_EQ(stored(u"BOOKSCOL1WIDTH"_s), u"2000"_s);          // not opened: as read
    startOn(u"Inventory"_s);
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->columnWidthTwips(1), width);
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->rowHeightTwips(), 405);
    bills = at<Grid>(u"BILLSGRID"_s);
    EXPECT_EQ(bills->columnWidthTwips(1), dates);
    showBills();
    emit bills->HeadMenu(bills->mapToGlobal(QPoint(5, 5)));
    auto *fit = bills->findChild<QAction *>(u"mnuFitColumns"_s);
    ASSERT_TRUE(fit);
    fit->trigger();
    EXPECT_LT(bills->columnWidthTwips(1), dates);
    EXPECT_TRUE(isFull(bills));
    screen().DisplayCategory(u"Books"_s);
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->rowHeightTwips(), 270);
}

TEST_F(Layout, LongDatesAndNamesWidenNothing)
{
    startOn(u"All"_s);
    screen().resize(640, 600);
    QCoreApplication::processEvents();
    const QWidget *period = at(u"panPeriod"_s);
    EXPECT_GE(period->width(), period->sizeHint().width()) << "on a line of its own where the buttons leave too little";
    screen().resize(1272, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(period->geometry().center().y(), at(u"panNew"_s)->geometry().center().y());
    set(u"DateDisplay"_s, u"dddd, d mmmm yyyy"_s);
    set(u"UserName"_s, QString(255, u'W'));
    startOn(u"All"_s);
    click(u"THIS YEAR"_s);
    QCoreApplication::processEvents();
    EXPECT_LE(screen().minimumSizeHint().width(), 1024);
    EXPECT_EQ(text(u"lblUsername"_s), QString(255, u'W'));
}

TEST_F(Layout, EmptyListsSayWhatToDo)
{
    startOn(u"Books"_s);
    Grid *grid = at<Grid>(u"SUBJECTGRID"_s);
    const auto isBlank = [grid] {
        const QImage seen = grid->viewport()->grab().toImage();
        for (int y = 0; y < seen.height(); ++y)
            for (int x = 0; x < seen.width(); ++x)
                if (seen.pixel(x, y) != seen.pixel(0, seen.height() - 1))
                    return false;
        return true;
    };
    EXPECT_TRUE(grid->accessibleDescription().startsWith(u"No books yet."_s));
    EXPECT_FALSE(isBlank());
    grid->setEmptyText({});
    EXPECT_TRUE(isBlank());
}

TEST_F(Layout, RowsOfSeveralLinesAreHighUntilTheUserSetsThem)
{
    startOn(u"Emergency"_s);
    Grid *grid = at<Grid>(u"SUBJECTGRID"_s);
    EXPECT_GE(grid->rowHeightTwips(), controls::toTwips(4 * grid->fontMetrics().lineSpacing()));
    screen().DisplayCategory(u"Christmas Cards"_s);
    grid->setRowHeightTwips(330);
    screen().DisplayCategory(u"Emergency"_s);
    stop();
    EXPECT_EQ(stored(u"EMERGENCYROWHEIGHT"_s), u"270"_s);       // never touched
    EXPECT_EQ(stored(u"CARDSROWHEIGHT"_s), u"330"_s);
}

TEST_F(Layout, EachGridHasItsOwnColours)
{
    set(u"AppointsGridColour"_s, u"255"_s);
    set(u"BillsGridColour"_s, u"65280"_s);
    set(u"BooksGridColour"_s, u"16711680"_s);
    start();
    EXPECT_EQ(at<Grid>(u"APPOINTMENTSGRID"_s)->styleSet(u"TODAY"_s).back, QColor(255, 0, 0));
    EXPECT_EQ(at<Grid>(u"BILLSGRID"_s)->styleSet(u"TODAY"_s).back, QColor(0, 255, 0));
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->styleSet(u"BOOKS"_s).back, QColor(0, 0, 255));
    screen().DisplayCategory(u"Books"_s);
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->styleSet({}).back, QColor(0, 0, 255));
    screen().DisplayCategory(u"Movies"_s);
    EXPECT_FALSE(at<Grid>(u"SUBJECTGRID"_s)->styleSet({}).back.isValid());
}

TEST_F(Layout, PictureAndFontColourOfTheScreen)
{
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(QColor(0, 120, 0));
    const QString file = m_folder.path(u"behind.png"_s);
    ASSERT_TRUE(picture.save(file));
    m_folder.write(u"broken.png"_s, "no picture");
    set(u"SetupPicture"_s, file);
    set(u"ScreenFontColour"_s, u"4"_s);
    start();
    auto *page = at<CaddyGround>(u"Page"_s);
    EXPECT_TRUE(page->hasPicture());
    const QColor seen = page->grab(QRect(1, 1, 4, 4)).toImage().pixelColor(1, 1);
    EXPECT_GT(seen.green(), seen.red() + 20);
    EXPECT_EQ(at(u"panPeriod"_s)->palette().color(QPalette::WindowText), QColor(0x80, 0, 0));
    EXPECT_EQ(at(u"lblDate"_s)->palette().color(QPalette::WindowText), QColor(0x80, 0, 0));
    m_prompts.expectFile({}, m_folder.path(u"broken.png"_s));
    m_prompts.expect(u"not a picture"_s);
    click(u"cmdBackground"_s);
    EXPECT_FALSE(page->hasPicture());
    m_prompts.expectFile({}, file);
    click(u"cmdBackground"_s);
    EXPECT_TRUE(page->hasPicture());
    EXPECT_EQ(stored(u"SetupPicture"_s), u"\\behind.png"_s) << "moves with the folder";
    m_prompts.expectFile({}, std::nullopt);
    click(u"cmdBackground"_s);
    EXPECT_TRUE(page->hasPicture());
}

}
