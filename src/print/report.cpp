#include "print/report.h"

#include "platform/basic/clock.h"
#include "platform/basic/format.h"
#include "print/player.h"
#include "print/script.h"
#include "session/state.h"

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

namespace {

constexpr double hair = 0.5;            // keeps rules from touching
constexpr quint32 black = 0;

}

ReportStyle ReportStart(PrintJob &job, ReportStyle style)
{
    showHourglass(true);
    job.SetPrintTarget(u"SCREEN"_s);
    if (style.fontName.isEmpty())
        style.fontName = u"Arial"_s;
    if (style.fontSize == 0)
        style.fontSize = 10;
    if (style.orientation == 0)
        style.orientation = printer::Portrait;
    if (style.scaleMode == 0)
        style.scaleMode = printer::Millimetres;
    job.SetFontName(style.fontName);
    job.SetFontSize(style.fontSize);
    job.SetOrientation(style.orientation);
    job.SetScaleMode(style.scaleMode);
    return style;
}

void ReportHeading(PrintJob &job, const QString &title)
{
    job.SetPreviewCaption(title + u" - REPORT"_s);
    job.SetFontName(u"Arial"_s);
    job.SetFontSize(14.0);
    job.SetFontBold(true);
    const double middle = job.GetScaleWidth() / 2;
    job.PrintField(middle, u"C"_s, title, true);
    job.SetFontSize(job.GetOrientation() == printer::Landscape ? 9.0 : 10.0);
    job.PrintField(middle, u"C"_s, basic::Format(Value(basic::Date()), state().settings.gDateLong), true);
    job.SetCurrentY(job.GetCurrentY() + 10);
    job.SetForeColor(black);
    job.SetFontBold(false);
}

void PrintRule(PrintJob &job)
{
    const double y = job.GetCurrentY();
    job.PrintLine(hair, y + hair, u"STEP"_s, job.GetScaleWidth(), 0, u"0"_s);
}

void PrintLineTo(PrintJob &job, double x1, double y1, double x2, double y2)
{
    job.PrintLine(x1, y1, u"STEP"_s, x2, y2, u"0"_s);
}

bool isAtPageFoot(const PrintJob &job)
{
    return job.GetCurrentY() > job.GetScaleHeight() - 5 * job.GetTextHeight(u"A"_s);
}

void PageFootCheck(PrintJob &job)
{
    if (!isAtPageFoot(job))
        return;
    job.SetFontBold(true);
    job.SetFontBold(false);
    PrintRule(job);
    job.SetCurrentY(job.GetCurrentY() + hair);
    job.SetForeColor(black);
    const int page = job.GetPageNumber();
    job.PrintField(5, u"L"_s, u"PAGE: %1      Dated:  %2"_s.arg(page).arg(shortDate(Value(basic::Date()))), true);
    if (job.GetPageNumber() == page) {
        job.PrintNewPage();
    } else {                        // the foot line filled the page and turned it already
        job.SetCurrentX(0);
        job.SetCurrentY(0);
    }
}

void PrintPageNumber(PrintJob &job)
{
    job.SetForeColor(black);
    job.SetFontBold(true);
    job.PrintField(50, u"L"_s, u"PAGE:%1"_s.arg(job.GetPageNumber()), true);
    job.SetFontBold(false);
}

}
