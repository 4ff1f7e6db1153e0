#include "calendar/picker.h"
#include "store/mainfile.h"


namespace vorel {

using namespace Qt::StringLiterals;

class PickerRules : public test::MainFileTest {};

TEST_F(PickerRules, MonthStandsUnderItsWeekDays)
{
    struct Case { int year, month, start; int firstCell, days; };
    const Case cases[] = {
        {2026, 11, 1, 0, 30},       // 1 November 2026 is a Sunday
        {2026, 11, 2, 6, 30},
        {2026, 11, 7, 1, 30},
        {2026, 8, 1, 6, 31},        // a Saturday and 31 days: six rows
        {2028, 2, 1, 2, 29},
        {2100, 2, 1, 1, 28},        // no leap year
        {2026, 11, 0, 0, 30},       // a damaged setting counts as Sunday
        {2026, 11, 99, 1, 30},
    };
    for (const Case &c : cases) {
        const MonthCells cells = monthCells(c.year, c.month, c.start);
        EXPECT_EQ(cells.firstCell, c.firstCell) << c.year << ' ' << c.month << ' ' << c.start;
        EXPECT_EQ(cells.days, c.days) << c.year << ' ' << c.month;
        EXPECT_LE(cells.firstCell + cells.days, monthCellCount);
    }
    EXPECT_EQ(weekDayHeads(1)[0], u"Sun"_s);
    EXPECT_EQ(weekDayHeads(2)[0], u"Mon"_s);
    EXPECT_EQ(weekDayHeads(2)[6], u"Sun"_s);
    EXPECT_EQ(monthTitle(2026, 11), u"November 2026"_s);
}

TEST_F(PickerRules, MonthsAway)
{
    EXPECT_EQ(monthsAway(basic::DateTime::fromParts(2027, 1, 31), 1), basic::DateTime::fromParts(2027, 2, 28));
    EXPECT_EQ(monthsAway(basic::DateTime::fromParts(9999, 12, 31), 1), basic::DateTime::fromParts(9999, 12, 31));
}

TEST_F(PickerRules, CodesStandForTheirBoxes)
{
    for (const auto &[code, box] : {std::pair{u"R1"_s, u"txtDate"_s}, {u"R2"_s, u"txtDateTo"_s}, {u"R3"_s, u"txtBillingDate"_s},
                                    {u"R4"_s, u"txtPaymentDate"_s}}) {
        const PickerTarget *target = pickerTarget(code);
        ASSERT_TRUE(target) << qPrintable(code);
        EXPECT_EQ(target->screen, u"frmRecord");
        EXPECT_EQ(target->box, box);
    }
    EXPECT_TRUE(pickerTarget(u"A  "_s));            // a fixed text of three characters
    EXPECT_EQ(pickerTarget(u"R5"_s), nullptr);
}

}
