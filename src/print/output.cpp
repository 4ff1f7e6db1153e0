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

bool offerPdfInstead()
{
    if (printer::thePrinter().hasHardware())
        return false;
    if (basic::askYesNo(u"There is no printer on this machine. Save the pages as PDF instead?"_s))
        savePdf();
    return true;
}

void printEach(int first)
{
    PlayerState &state = playerState();
    for (int page = first; page <= state.TotalPages; page += 2) {
        state.FirstPrintPage = state.LastPrintPage = page;
        PlayScript(u"PRINTER"_s);
    }
}

QString suggestedFile()
{
    QString name = scriptState().PreviewCaption;
    name.replace(QRegularExpression(u"[\\\\/:*?\"<>|\\s]+"_s), u" "_s);
    if (name.trimmed().isEmpty())
        name = u"Report"_s;
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).filePath(name.trimmed() + u".pdf"_s);
}

}

void printPages()
{
    if (!offerPdfInstead())
        PlayScript(u"PRINTER"_s);
}

void printBooklet()
{
    if (offerPdfInstead())
        return;
    printEach(1);
    if (basic::askYesNo(u"Take out your Odd Printouts and re-align them in your Printer so the Even pages can be printed!"_s,
                        u"Booklet Printing"_s, basic::Icon::Critical))
        printEach(2);
}

void savePdf(const QString &path)
{
    PlayerState &state = playerState();
    const PlayerState before = state;
    state.FirstPrintPage = 1;
    state.LastPrintPage = 0;
    struct Restore {
        PlayerState &state;
        const PlayerState &before;
        ~Restore()
        {
            state.FirstPrintPage = before.FirstPrintPage;
            state.LastPrintPage = before.LastPrintPage;
        }
    } const restore{state, before};
    bool isStarted = false;
    const printer::Printer::Redirection toFile(printer::thePrinter(), [&](const printer::JobSettings &settings) {
        isStarted = true;
        return printer::startPdf(path, settings);
    });
    PlayScript(u"PRINTER"_s);
    if (!isStarted) {           // pages without anything on them are still a document
        printer::thePrinter().NewPage();
        printer::thePrinter().EndDoc();
    }
}

bool savePdf()
{
    std::optional<QString> path = basic::prompts().chooseFile({u"Save as PDF"_s, suggestedFile(), u"PDF documents (*.pdf)"_s, true});
    if (!path || path->isEmpty())
        return false;
    if (!path->endsWith(u".pdf"_s, Qt::CaseInsensitive))
        *path += u".pdf"_s;
    savePdf(*path);
    return true;
}

}
