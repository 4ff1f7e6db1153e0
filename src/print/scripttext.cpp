#include "platform/basic/format.h"
#include "session/state.h"
#include "print/script.h"

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

namespace {

constexpr QChar quoteStandIn(255);          // replaces a double quote of the text in the script
const QString lineEnd = QStringLiteral("\r\n");

// A text in the form that the script can hold. Texts that were typed here end their lines with LF alone: any line end counts as
// CR LF, since a line end inside a quoted text would be a line of the script.
QString scriptText(const Value &value)
{
    QString text = value.text();
    text.replace(u'"', quoteStandIn);
    if (!text.contains(u'\n') && !text.contains(u'\r'))
        return text;
    text.replace(lineEnd, u"\n"_s).replace(u'\r', u'\n').replace(u'\n', lineEnd);
    return text;
}

QString shownPiece(QString piece)
{
    return piece.replace(quoteStandIn, u'"');
}

QString lineOf(double x, double y)
{
    return u'(' + scriptNumber(x) + u',' + scriptNumber(y) + u')';
}

QString argument(const Value &value)
{
    return value.isNumber() ? scriptNumber(numberOf(value)) : value.text();
}

}

void PrintJob::writeText(QStringView command, const QString &piece)
{
    write(command.toString() + scriptNumber(GetCurrentX()) + u',' + scriptNumber(GetCurrentY()) + u", \""_s + piece
                    + u'"');
}

void PrintJob::stepDown()
{
    SetCurrentX(0);
    SetCurrentY(GetCurrentY() + GetTextHeight(u"A"_s));
}

// The pen keeps its x: the next field of the line sets its own.
void PrintJob::breakFullPage()
{
    if (GetScaleHeight() >= GetCurrentY() + GetTextHeight(u"A"_s))
        return;
    SetCurrentY(0);
    turnPage();
}

void PrintJob::printPieces(QStringView command, const Value &value)
{
    if (!isRecording())
        OpenPrintScript();
    const QString text = scriptText(value);
    qsizetype p = 0;
    do {
        const qsizetype end = text.indexOf(lineEnd, p);
        const QString piece = text.mid(p, end < 0 ? -1 : end - p);
        if (!piece.isEmpty()) {
            writeText(command, piece);
            SetCurrentX(GetCurrentX() + GetTextWidth(shownPiece(piece)));
        }
        p += piece.size();
        if (p < text.size()) {
            stepDown();
            p += lineEnd.size();
        }
    } while (p < text.size());
    breakFullPage();
}

void PrintJob::PrintLeft(const Value &text)
{
    printPieces(u"LPRINT ", text);
}

void PrintJob::PrintRight(const Value &text)
{
    printPieces(u"RPRINT ", text);
}

void PrintJob::PrintCentre(const Value &value)
{
    if (!isRecording())
        OpenPrintScript();
    const QString text = scriptText(value);
    const qsizetype cut = text.indexOf(u'\r');
    writeText(u"CPRINT ", cut < 0 ? text : text.left(cut));
    if (text.endsWith(lineEnd))
        stepDown();
    else
        SetCurrentX(GetCurrentX() + GetTextWidth(shownPiece(text)) / 2);
    breakFullPage();
}

void PrintJob::PrintLine(double x1, double y1, const QString &step, double x2, double y2, const Value &colour, const QString &flag)
{
    const QString relative = step.trimmed().toUpper();
    // A colour is a whole number of up to seven digits and more, which single precision would round.
    const QString number = colour.isNumber() ? QString::number(static_cast<qint64>(numberOf(colour))) : colour.text();
    record(u"LINE "_s + lineOf(x1, y1) + u'-' + relative + lineOf(x2, y2) + u',' + number + u',' + flag);
    SetCurrentX(relative.isEmpty() ? x2 : x1 + x2);
    SetCurrentY(relative.isEmpty() ? y2 : y1 + y2);
}

void PrintJob::PrintPicture(const QString &path, double x, double y, const Value &width, const Value &height,
                            const std::vector<Value> &further)
{
    PictureWidth = numberOf(width);
    PictureHeight = numberOf(height);
    QString line = u"PAINTPICTURE ["_s + path + u"]("_s + scriptNumber(x) + u")<"_s + scriptNumber(y);
    if (width.isNull()) {
        line += u'>';
    } else {
        line += u' ' + argument(width) + u',' + argument(height) + u',';
        for (const Value &value : further)
            line += argument(value) + u',';
    }
    record(line);
}

void PrintJob::PrintNewPage()
{
    turnPage();
    SetCurrentX(0);
    SetCurrentY(0);
}

void PrintJob::PrintField(double x, const QString &alignment, const Value &text, bool newLine)
{
    SetCurrentX(x);
    if (alignment == u"C")
        PrintCentre(text);
    else if (alignment == u"L")
        PrintLeft(text);
    else if (alignment == u"R")
        PrintRight(text);
    if (newLine)
        PrintLeft(lineEnd);
}

void PrintJob::PrintDateField(double x, const QString &alignment, const Value &date, bool newLine)
{
    PrintField(x, alignment, basic::Format(date, state().settings.gDateLong), newLine);
}

void PrintJob::PrintCurrencyField(double x, const QString &alignment, const Value &number, bool newLine)
{
    PrintField(x, alignment, basic::Format(number, u"currency"), newLine);
}

void PrintJob::PrintDollarField(double x, const QString &alignment, const Value &number, bool newLine)
{
    PrintField(x, alignment, basic::Format(number, u"$#,##0.00;($#,##0.00)"), newLine);
}

QStringList wrapLines(const QString &text, int width)
{
    QStringList lines;
    const qsizetype room = std::max(width, 1);
    qsizetype p = 0;
    while (p < text.size()) {
        const QStringView window = QStringView(text).mid(p, room);
        QStringView line;
        if (const qsizetype end = window.indexOf(lineEnd); end >= 0) {
            line = window.left(end);
            p += end + lineEnd.size();
        } else if (text.size() - p > room && window.lastIndexOf(u' ') >= 0) {
            line = window.left(window.lastIndexOf(u' '));
            p += line.size() + 1;
        } else {
            line = QStringView(text).mid(p);
            p = text.size();
        }
        if (!line.trimmed().isEmpty())
            lines << line.toString();
    }
    return lines;
}

void PrintJob::PrintWrapped(const QString &alignment, double x, int width, const Value &value)
{
    QString text = value.text();
    if (text.contains(u'\n') || text.contains(u'\r'))
        text.replace(lineEnd, u"\n"_s).replace(u'\r', u'\n').replace(u'\n', lineEnd);
    for (const QString &line : wrapLines(text, width))
        PrintField(x, alignment, line, true);
}

}
