#include "print/output.h"

#include "platform/basic/prompts.h"
#include "platform/printer/printer.h"
#include "print/player.h"
#include "print/script.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

bool offerPdfInstead(PrintJob &job, SavedPages which)
{
    if (job.device().hasHardware())
        return false;
    if (basic::askYesNo(u"There is no printer on this machine. Save the pages as PDF instead?"_s))
        savePdf(job, which);
    return true;
}

void printEach(PrintPlayer &player, int first)
{
    for (int page = first; page <= player.TotalPages; page += 2) {
        player.FirstPrintPage = player.LastPrintPage = page;
        player.PlayScript(u"PRINTER"_s);
    }
}

QString suggestedFile(const PrintJob &job)
{
    QString name = job.PreviewCaption;
    name.replace(QRegularExpression(u"[\\\\/:*?\"<>|\\s]+"_s), u" "_s);
    if (name.trimmed().isEmpty())
        name = u"Report"_s;
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).filePath(name.trimmed() + u".pdf"_s);
}

}

void printPages(PrintJob &job)
{
    if (!offerPdfInstead(job, SavedPages::Bounds))
        job.player().PlayScript(u"PRINTER"_s);
}

void printBooklet(PrintJob &job)
{
    if (offerPdfInstead(job, SavedPages::All))
        return;
    printEach(job.player(), 1);
    if (basic::askYesNo(u"Take out your Odd Printouts and re-align them in your Printer so the Even pages can be printed!"_s,
                        u"Booklet Printing"_s, basic::Icon::Critical))
        printEach(job.player(), 2);
}

void savePdf(PrintJob &job, const QString &path, SavedPages which)
{
    PrintPlayer &player = job.player();
    struct Restore {
        PrintPlayer &player;
        int first = player.FirstPrintPage, last = player.LastPrintPage;
        ~Restore()
        {
            player.FirstPrintPage = first;
            player.LastPrintPage = last;
        }
    } const restore{player};
    if (which == SavedPages::All) {
        player.FirstPrintPage = 1;
        player.LastPrintPage = 0;
    }
    bool isStarted = false;
    const printer::Printer::Redirection toFile(job.device(), [&](const printer::JobSettings &settings) {
        isStarted = true;
        return printer::startPdf(path, settings);
    });
    player.PlayScript(u"PRINTER"_s);
    if (!isStarted) {           // pages without anything on them are still a document
        job.device().NewPage();
        job.device().EndDoc();
    }
}

bool savePdf(PrintJob &job, SavedPages which)
{
    std::optional<QString> path = basic::prompts().chooseFile({u"Save as PDF"_s, suggestedFile(job), u"PDF documents (*.pdf)"_s, true});
    if (!path || path->isEmpty())
        return false;
    if (!path->endsWith(u".pdf"_s, Qt::CaseInsensitive))
        *path += u".pdf"_s;
    savePdf(job, *path, which);
    return true;
}

QString chosenPages(PrintJob &job)
{
    const PrintPlayer &player = job.player();
    const int first = std::max(player.FirstPrintPage, 1);
    const bool isToEnd = player.LastPrintPage > player.TotalPages || player.LastPrintPage < first;
    const int last = isToEnd ? player.TotalPages : player.LastPrintPage;
    if (first <= 1 && last >= player.TotalPages)
        return {};
    return first == last ? u"page %1"_s.arg(first) : u"pages %1 to %2"_s.arg(first).arg(last);
}

}
