#include "print/script.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/basic/format.h"
#include "platform/printer/printer.h"
#include "print/player.h"
#include "print/recorder.h"
#include "session/state.h"

#include <cmath>

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

namespace {

constexpr int accessError = 75;

struct OpenFiles {
    QFile script;
    QFile html;
};

OpenFiles &openFiles()
{
    static OpenFiles files;
    return files;
}

printer::Printer &target()
{
    return printer::thePrinter();
}

QString placeOf(const QString &name)
{
    return QDir::isAbsolutePath(name) ? name : QDir(basic::programFolder()).filePath(name);
}

void writeHtml(std::initializer_list<const char *> lines)
{
    for (const char *line : lines)
        openFiles().html.write(QByteArray(line) + "\r\n");
}

void openHtml()
{
    if (scriptState().EmailFileName.trimmed().isEmpty())
        return;
    QFile &html = openFiles().html;
    html.setFileName(placeOf(scriptState().EmailFileName));
    if (!html.open(QIODevice::WriteOnly))
        return;
    scriptState().HtmlFile = 2;
    writeHtml({"<html>", "<head>"});
}

void closeHtml()
{
    if (scriptState().EmailFileName.trimmed().isEmpty())
        return;
    if (scriptState().HtmlFile)
        writeHtml({"</tr>", "</table>", "</body>", "</html>"});
    openFiles().html.close();
    scriptState().HtmlFile = 0;
    scriptState().EmailFileName.clear();
}

void writeHeader()
{
    const QString stars = u"'"_s + QString(62, u'*');
    const Value now(basic::Now());
    recorder::write(stars);
    recorder::write(u"'*      GENERATED: "_s + shortDate(now) + u' ' + basic::Format(now, u"hh:nn:ss"));
    recorder::write(u"'* SOURCE PROGRAM: "_s + state().gProductTitle);
    recorder::write(stars);
}

// What a report chose for its preview ends with it, also where it failed half-way.
void forgetChoices()
{
    scriptState().hideEmail = false;
    scriptState().PreviewCaption.clear();
}

// Whatever happens while the script plays, the next report starts with a new one.
struct EndOfReport {
    ~EndOfReport()
    {
        playerState().CurrentPage = 0;
        abandonScript();
        target().setCurrentX(0);
        target().setCurrentY(0);
        closeHtml();
    }
};

}

namespace recorder {

void ensureOpen()
{
    if (scriptState().ScriptFile == 0)
        OpenPrintScript();
}

void write(const QString &line)
{
    openFiles().script.write(line.toUtf8() + "\r\n");
}

void record(const QString &line)
{
    ensureOpen();
    write(line);
}

void newPage()
{
    record(u"NEWPAGE"_s);
    ++scriptState().RecordedPage;
}

}

ScriptState &scriptState()
{
    static ScriptState script;
    return script;
}

void OpenPrintScript()
{
    ScriptState &script = scriptState();
    script.RecordedPage = 1;
    QFile &file = openFiles().script;
    file.close();
    file.setFileName(placeOf(script.ScriptName));
    QFile::remove(file.fileName());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw basic::Error(accessError, u"%1 cannot be written in the folder %2: %3. Nothing was printed."_s
                                            .arg(script.ScriptName, QFileInfo(file).path(), file.errorString()));
    script.ScriptFile = 1;
    writeHeader();
    openHtml();
}

void abandonScript()
{
    openFiles().script.close();
    scriptState().ScriptFile = 0;
    forgetChoices();
}

void PrintEndDoc()
{
    const EndOfReport cleanUp;
    recorder::record(u"ENDDOC"_s);
    QFile &file = openFiles().script;
    const bool isWhole = file.flush() && file.error() == QFileDevice::NoError;
    const QString reason = file.errorString();
    file.close();
    if (!isWhole)
        throw basic::Error(accessError, u"The pages do not fit into the folder %1: %2. Nothing was printed."_s
                                            .arg(QFileInfo(file).path(), reason));
    RunPrintScript(placeOf(scriptState().ScriptName), scriptState().ScriptStrings, GetPrintTarget());
}

QString scriptNumber(double number)
{
    const auto single = static_cast<float>(number);
    return QString::number(std::isfinite(single) ? static_cast<double>(single) : 0.0, 'g', 7);
}

// Unlike Val it ends at a blank between digits, and no text is an error.
double scanNumber(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    qsizetype p = 0;
    const auto isAt = [&](QStringView marks) { return p < trimmed.size() && marks.contains(trimmed[p]); };
    const auto digits = [&] {
        while (p < trimmed.size() && trimmed[p] >= u'0' && trimmed[p] <= u'9')
            ++p;
    };
    if (isAt(u"+-"))
        ++p;
    digits();
    if (isAt(u"."))
        ++p;
    digits();
    const qsizetype mantissa = p;
    if (isAt(u"eE")) {
        ++p;
        if (isAt(u"+-"))
            ++p;
        const qsizetype exponent = p;
        digits();
        if (p == exponent)
            p = mantissa;
    }
    const double number = trimmed.left(p).toDouble();
    return std::isfinite(number) ? number : 0;
}

double numberOf(const Value &value)
{
    if (value.isText() || value.isNull())
        return scanNumber(value.text());
    return basic::CDbl(value);
}

void SetPrintTarget(const QString &printTarget)
{
    scriptState().PrintTarget = printTarget;
}

QString GetPrintTarget()
{
    const QString &printTarget = scriptState().PrintTarget;
    return printTarget.isEmpty() ? u"PRINTER"_s : printTarget;
}

void SetPreviewCaption(const QString &caption)
{
    scriptState().PreviewCaption = caption;
}

void SetFontName(const QString &name)
{
    const QString trimmed = name.trimmed();
    recorder::record(u"FONTNAME = \"%1\""_s.arg(trimmed));
    target().setFontName(trimmed);
}

void SetFontSize(Value &size)
{
    if (numberOf(size) == 0)
        size = Value(target().FontSize());
    const double points = numberOf(size);
    recorder::record(u"FONTSIZE = "_s + scriptNumber(points));
    target().setFontSize(points);
}

void SetFontSize(double size)
{
    Value value(size);
    SetFontSize(value);
}

void SetFontBold(bool on)
{
    recorder::record(on ? u"FONTBOLD = TRUE"_s : u"FONTBOLD = FALSE"_s);
    target().setFontBold(on);
}

void SetForeColor(quint32 colour)
{
    recorder::record(u"FORECOLOR = %1"_s.arg(colour));
    target().setForeColor(colour);
}

quint32 GetForeColor()
{
    return target().ForeColor();
}

void SetOrientation(int orientation)
{
    recorder::record(u"ORIENTATION = %1"_s.arg(orientation));
    target().setOrientation(orientation);
}

int GetOrientation()
{
    return target().Orientation();
}

void SetScaleMode(int mode)
{
    recorder::record(u"SCALEMODE = %1"_s.arg(mode));
    target().setScaleMode(mode);
}

int GetScaleMode()
{
    return target().ScaleMode();
}

void SetScaleWidth(double width)
{
    recorder::record(u"SCALEWIDTH = "_s + scriptNumber(width));
    target().setScaleWidth(width);
}

double GetScaleWidth()
{
    return target().ScaleWidth();
}

double GetScaleHeight()
{
    return target().ScaleHeight();
}

double GetCurrentX()
{
    return target().CurrentX();
}

double GetCurrentY()
{
    return target().CurrentY();
}

void SetCurrentX(double x)
{
    target().setCurrentX(x);
}

void SetCurrentY(double y)
{
    target().setCurrentY(y);
}

double GetTextWidth(const QString &text)
{
    return target().TextWidth(text);
}

double GetTextHeight(const QString &text)
{
    return target().TextHeight(text);
}

int GetPageNumber()
{
    return scriptState().RecordedPage;
}

bool IsOddNumber(int number)
{
    return number % 2 != 0;
}

}
