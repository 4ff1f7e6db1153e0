#include "print/report.h"

#include "platform/basic/clock.h"
#include "platform/basic/format.h"
#include "platform/printer/printer.h"
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

void ReportStart(QString &fontName, double &fontSize, int &scaleMode, int &orientation)
{
    showHourglass(true);
    abandonScript();                    // of a report that failed half-way
    printer::thePrinter().adoptPaper();
    SetPrintTarget(u"SCREEN"_s);
    if (fontName.isEmpty())
        fontName = u"Arial"_s;
    if (fontSize == 0)
        fontSize = 10;
    if (orientation == 0)
        orientation = printer::Portrait;
    if (scaleMode == 0)
        scaleMode = printer::Millimetres;
    SetFontName(fontName);
    SetFontSize(fontSize);
    SetOrientation(orientation);
    SetScaleMode(scaleMode);
}

void ReportStart(const QString &fontName, double fontSize, int scaleMode, int orientation)
{
    QString name = fontName;
    ReportStart(name, fontSize, scaleMode, orientation);
}

void ReportHeading(const QString &title)
{
    SetPreviewCaption(title + u" - REPORT"_s);
    SetFontName(u"Arial"_s);
    SetFontSize(14.0);
    SetFontBold(true);
    const double middle = GetScaleWidth() / 2;
    PrintField(middle, u"C"_s, title, true);
    SetFontSize(GetOrientation() == printer::Landscape ? 9.0 : 10.0);
    PrintField(middle, u"C"_s, basic::Format(Value(basic::Date()), state().settings.gDateLong), true);
    SetCurrentY(GetCurrentY() + 10);
    SetForeColor(black);
    SetFontBold(false);
}

void PrintRule()
{
    const double y = GetCurrentY();
    PrintLine(hair, y + hair, u"STEP"_s, GetScaleWidth(), 0, u"0"_s);
}

void PrintLineTo(double x1, double y1, double x2, double y2)
{
    PrintLine(x1, y1, u"STEP"_s, x2, y2, u"0"_s);
}

bool isAtPageFoot()
{
    return GetCurrentY() > GetScaleHeight() - 5 * GetTextHeight(u"A"_s);
}

void PageFootCheck()
{
    if (!isAtPageFoot())
        return;
    SetFontBold(true);
    SetFontBold(false);
    PrintRule();
    SetCurrentY(GetCurrentY() + hair);
    SetForeColor(black);
    const int page = GetPageNumber();
    PrintField(5, u"L"_s, u"PAGE: %1      Dated:  %2"_s.arg(page).arg(shortDate(Value(basic::Date()))), true);
    if (GetPageNumber() == page) {
        PrintNewPage();
    } else {                        // the foot line filled the page and turned it already
        SetCurrentX(0);
        SetCurrentY(0);
    }
}

void PrintPageNumber()
{
    SetForeColor(black);
    SetFontBold(true);
    PrintField(50, u"L"_s, u"PAGE:%1"_s.arg(GetPageNumber()), true);
    SetFontBold(false);
}

}
