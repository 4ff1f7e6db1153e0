#include "print/labels.h"

#include "platform/basic/prompts.h"
#include "print/fittedtext.h"
#include "print/player.h"
#include "print/report.h"
#include "print/script.h"

#include <algorithm>
#include <array>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// Twips. The labels are cut 5,620 wide and 2,160 high; their text keeps off the cuts, also where the sheet is fed a little
// askew.
constexpr double oddX = 273, evenX = 6113;
constexpr std::array<double, labelsPerSheet / 2> rows{692, 2846, 5029, 7184, 9339, 11493, 13653};
constexpr double textWidth = 4900, textHeight = 1860;
constexpr double labelSize = 12, leastLabelSize = 7;        // points
constexpr double countedBorder = 360;       // that the places leave out; a printer with another one is corrected for

bool hasName(const QStringList &label)
{
    return !label.value(0).trimmed().isEmpty();
}

void startSheet(PrintJob &job)
{
    job.SetFontName(u"Arial"_s);        // set on each page again, because the preview shows any of them by itself
    job.SetFontBold(false);
    job.SetFontSize(labelSize);
}

}

LabelPlace labelPlace(int number, double pageHeight)
{
    const int place = std::clamp(number, 1, labelsPerSheet);
    const double y = rows[static_cast<std::size_t>((place - 1) / 2)];
    return {IsOddNumber(place) ? oddX : evenX, y, textWidth, std::min(textHeight, pageHeight - y)};
}

int labelStart(const QString &typed)
{
    bool isNumber = false;
    const int number = typed.trimmed().toInt(&isNumber);
    return isNumber && number >= 1 && number <= labelsPerSheet ? number : labelsPerSheet;
}

void PrintLabels(const std::vector<QStringList> &labels, int first)
{
    if (!PrinterReady())
        return;
    if (std::none_of(labels.begin(), labels.end(), hasName)) {
        basic::MsgBox(u"No Selected Labels to Print"_s, {}, basic::Icon::Information);
        return;
    }
    const Hourglass hourglass;
    PrintJob job;
    ReportStart(job, {u"Arial"_s, labelSize, printer::Twips, printer::Portrait});
    job.SetPreviewCaption(u"Labels"_s);
    startSheet(job);
    const double across = countedBorder - job.device().paper().left, down = countedBorder - job.device().paper().top;
    int number = first >= 1 && first <= labelsPerSheet ? first : labelsPerSheet;
    for (const QStringList &label : labels) {
        if (number > labelsPerSheet) {          // only now: a full last sheet is followed by no empty one
            job.PrintNewPage();
            startSheet(job);
            number = 1;
        }
        if (hasName(label)) {
            const LabelPlace place = labelPlace(number, job.GetScaleHeight() - down);
            writeFitted(job, fitText(job, label, place.width, place.height, labelSize, leastLabelSize), place.x + across,
                        place.y + down);
        }
        ++number;
    }
    job.PrintEndDoc();
}

}
