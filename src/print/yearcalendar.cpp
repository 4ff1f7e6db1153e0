#include "print/yearcalendar.h"

#include "calendar/month.h"
#include "platform/basic/clock.h"
#include "print/fittedtext.h"
#include "print/script.h"
#include "session/state.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// Twips. Seven columns and the right edge of the last: eight places to the block.
constexpr double dayPitch = 220, blockPitch = 1760, blockWidth = 7 * dayPitch;
constexpr double headHeight = 400, barHeight = 340, lettersHeight = 190, weekHeight = 170, blockGap = 90;
constexpr double headSize = 14, leastHeadSize = 8, daySize = 7;
constexpr int blocksInRow = 3, barColour = 7, presentColour = 1;
constexpr quint32 black = 0;

double middleOf(double left, int column) { return left + (column + 0.5) * dayPitch; }

void printName(PrintJob &job, int month, bool isPresent, double left, double top)
{
    const int colour = isPresent ? presentColour : barColour;
    job.PrintLine(left, top, u"STEP"_s, blockWidth, barHeight, basic::Value(colour), u"BF"_s);
    job.SetForeColor(printer::QBColor(isPresent ? 15 : 0));
    const FittedText name = fitText(job, {paperMonthName(month)}, blockWidth - 60, barHeight, headSize, leastHeadSize);
    job.SetFontSize(name.size);
    job.SetCurrentY(top + (barHeight - job.GetTextHeight(u"A"_s)) / 2);
    job.PrintField(left + blockWidth / 2, u"C"_s, name.lines.value(0), false);
    job.SetForeColor(black);
}

void printBlock(PrintJob &job, const MonthCells &month, bool isPresent, double left, double top)
{
    const int weekStart = state().settings.gWeekStartDay;
    printName(job, month.month, isPresent, left, top);
    job.SetFontSize(daySize);
    job.SetFontBold(true);
    const std::array<QString, 7> letters = paperDayLetters(weekStart);
    for (int column = 0; column < monthColumns; ++column) {
        job.SetCurrentY(top + barHeight + 20);
        job.PrintField(middleOf(left, column), u"C"_s, letters[static_cast<std::size_t>(column)], false);
    }
    job.SetFontBold(false);
    for (int day = 1; day <= month.days; ++day) {
        const int cell = month.cellOf(day);
        job.SetCurrentY(top + barHeight + lettersHeight + cell / monthColumns * weekHeight);
        job.PrintField(middleOf(left, cell % monthColumns), u"C"_s, QString::number(day), false);
    }
}

}

double PrintYearCalendar(PrintJob &job, double top)
{
    const basic::DateTime today = basic::Date();
    job.SetFontBold(true);
    job.SetFontSize(headSize);
    job.SetCurrentY(top);
    job.PrintField((yearStripLeft + yearStripRight) / 2, u"C"_s, QString::number(today.year()), false);
    job.SetFontBold(false);
    const double blockHeight = barHeight + lettersHeight + 6 * weekHeight + blockGap;
    for (int month = 1; month <= 12; ++month) {
        const int row = (month - 1) / blocksInRow, column = (month - 1) % blocksInRow;
        printBlock(job, monthCells(today.year(), month, state().settings.gWeekStartDay), month == today.month(),
                   yearStripLeft + column * blockPitch, top + headHeight + row * blockHeight);
    }
    return top + headHeight + 4 * blockHeight;
}

}
