#include "print/envelope.h"

#include "platform/basic/locale.h"
#include "platform/basic/prompts.h"
#include "print/fittedtext.h"
#include "print/player.h"
#include "print/report.h"
#include "print/script.h"
#include "session/ini.h"

#include <QRegularExpression>
#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

const QString sizeKey = QStringLiteral("EnvelopeSize"), senderKey = QStringLiteral("EnvelopeReturnAddress");

constexpr double millimetre = printer::twipsPerInch / 25.4;
// The addressee's block begins past the middle of the envelope and keeps clear of the strip at the foot that the sorting
// machines read; the sender has the corner opposite the stamp.
constexpr double addressLeft = 0.42, addressTop = 0.44;     // of the sheet
constexpr double footStrip = 18 * millimetre, sideStrip = 15 * millimetre;
constexpr double senderRoom = 0.4;                          // of the sheet's width
constexpr double senderGap = 6 * millimetre;                // between the two blocks
constexpr double addressSize = 13, leastAddressSize = 8, senderSize = 9, leastSenderSize = 6;     // points

printer::Paper paperOf(const EnvelopeSize &size)
{
    return printer::withBorder({size.height, size.width});          // upright, as the printers name it
}

bool isBlank(const QStringList &lines)
{
    return std::all_of(lines.begin(), lines.end(), [](const QString &line) { return line.trimmed().isEmpty(); });
}

void writeEnvelope(PrintJob &job, const QStringList &address, const QStringList &sender)
{
    const double border = (job.device().Width() - job.GetScaleWidth()) / 2;
    const double width = job.GetScaleWidth(), height = job.GetScaleHeight();
    const double x = addressLeft * job.device().Width() - border, y = addressTop * job.device().Height() - border;
    job.SetFontName(u"Arial"_s);
    job.SetFontBold(false);
    if (!isBlank(sender))
        writeFitted(job, fitText(job, sender, senderRoom * width, y - senderGap, senderSize, leastSenderSize), 0, 0);
    const double right = width + border - sideStrip, bottom = height + border - footStrip;
    writeFitted(job, fitText(job, address, right - x, bottom - y, addressSize, leastAddressSize), x, y);
}

}

const std::vector<EnvelopeSize> &envelopeSizes()
{
    static const std::vector<EnvelopeSize> sizes{{u"DL"_s, 220 * millimetre, 110 * millimetre},
                                                 {u"C5"_s, 229 * millimetre, 162 * millimetre},
                                                 {u"#10"_s, 9.5 * printer::twipsPerInch, 4.125 * printer::twipsPerInch}};
    return sizes;
}

const EnvelopeSize &envelopeSize()
{
    const QString usual = basic::regional().metricPaper ? u"DL"_s : u"#10"_s;
    const QString kept = GetIniValue(iniSettings, sizeKey, usual);
    const auto named = [](const QString &name) {
        return std::find_if(envelopeSizes().begin(), envelopeSizes().end(), [&](const EnvelopeSize &size) { return size.name == name; });
    };
    const auto found = named(kept);
    return found != envelopeSizes().end() ? *found : *named(usual);
}

void keepEnvelopeSize(const QString &name)
{
    PutIniValue(iniSettings, sizeKey, QString(name));
}

QStringList returnAddress()
{
    static const QRegularExpression gap(u" {2,}"_s);
    QStringList lines;
    for (const QString &line : GetIniValue(iniSettings, senderKey, {}).split(gap)) {
        if (!line.trimmed().isEmpty())
            lines << line.trimmed();
    }
    return lines;
}

void keepReturnAddress(const QString &text)
{
    QStringList lines;
    for (const QString &line : QString(text).replace(u'\r', u'\n').split(u'\n')) {
        if (const QString words = line.simplified(); !words.isEmpty())
            lines << words;
    }
    PutIniValue(iniSettings, senderKey, lines.join(u"\r\n"_s));
}

void printEnvelopes(const std::vector<QStringList> &addresses, const QStringList &sender, const EnvelopeSize &size)
{
    if (!PrinterReady())
        return;
    if (std::all_of(addresses.begin(), addresses.end(), isBlank)) {
        basic::MsgBox(u"There is no address to print."_s, {}, basic::Icon::Information);
        return;
    }
    const Hourglass hourglass;
    PrintJob job;
    job.device().setPaper(paperOf(size));
    ReportStart(job, {u"Arial"_s, addressSize, printer::Twips, printer::Landscape});
    job.fitsPreview = true;
    job.SetPreviewCaption(u"Envelope "_s + size.name);
    bool isFirst = true;
    for (const QStringList &address : addresses) {
        if (isBlank(address))
            continue;
        if (!isFirst)
            job.PrintNewPage();
        isFirst = false;
        writeEnvelope(job, address, sender);
    }
    job.PrintEndDoc();
}

void printEnvelope(const QStringList &address)
{
    printEnvelopes({address}, returnAddress(), envelopeSize());
}

QStringList addressLines(const PostalAddress &address)
{
    QStringList town;
    for (const QString &part : {address.city, address.state, address.postalCode}) {
        if (!part.trimmed().isEmpty())
            town << part.trimmed();
    }
    const QString box = address.postOfficeBox.trimmed();
    const bool saysBox = box.contains(u"box"_s, Qt::CaseInsensitive);       // typed with its words
    const QString way = box.isEmpty() ? address.street.trimmed() : saysBox ? box : u"PO BOX "_s + box;
    QStringList lines;
    for (const QString &line : {address.name.trimmed(), way, town.join(u' '), address.country.trimmed()}) {
        if (!line.isEmpty())
            lines << line;
    }
    return lines;
}

}
