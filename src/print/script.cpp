#include "print/script.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/basic/format.h"
#include "print/player.h"
#include "session/state.h"

#include <QSet>
#include <cmath>

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

namespace {

constexpr int accessError = 75;
const QString scriptName = u"PRINT.TMP"_s;

QString placeOf(const QString &name)
{
    return QDir::isAbsolutePath(name) ? name : QDir(basic::programFolder()).filePath(name);
}

// The scripts that jobs of this program record or show. A second job takes the next name: its script must not replace one
// that is still being read.
QSet<QString> &scriptsInUse()
{
    static QSet<QString> paths;
    return paths;
}

QString freeScriptPath()
{
    QString path = placeOf(scriptName);
    for (int number = 2; scriptsInUse().contains(path); ++number)
        path = placeOf(u"PRINT%1.TMP"_s.arg(number));
    return path;
}

void writeHtml(QFile &html, std::initializer_list<const char *> lines)
{
    for (const char *line : lines)
        html.write(QByteArray(line) + "\r\n");
}

}

// However the playing ends, the job is ready for a new script.
struct PrintJob::EndOfReport {
    PrintJob &job;
    ~EndOfReport()
    {
        job.m_player->CurrentPage = 0;
        job.closeScript();
        job.SetCurrentX(0);
        job.SetCurrentY(0);
        job.closeHtml();
    }
};

PrintJob::PrintJob() : m_player(std::make_unique<PrintPlayer>(*this)) {}

PrintJob::~PrintJob()
{
    const QString path = m_script.fileName();
    const bool isHalfWritten = m_script.isOpen() && !m_isPlayed;
    closeScript();
    if (isHalfWritten)
        QFile::remove(path);
}

void PrintJob::closeScript()
{
    m_script.close();
    scriptsInUse().remove(m_script.fileName());
}

void PrintJob::openHtml()
{
    if (EmailFileName.trimmed().isEmpty())
        return;
    m_html.setFileName(placeOf(EmailFileName));
    if (m_html.open(QIODevice::WriteOnly))
        writeHtml(m_html, {"<html>", "<head>"});
}

void PrintJob::closeHtml()
{
    if (m_html.isOpen())
        writeHtml(m_html, {"</tr>", "</table>", "</body>", "</html>"});
    m_html.close();
    EmailFileName.clear();
}

void PrintJob::writeHeader()
{
    const QString stars = u"'"_s + QString(62, u'*');
    const Value now(basic::Now());
    write(stars);
    write(u"'*      GENERATED: "_s + shortDate(now) + u' ' + basic::Format(now, u"hh:nn:ss"));
    write(u"'* SOURCE PROGRAM: "_s + state().gProductTitle);
    write(stars);
}

void PrintJob::write(const QString &line)
{
    m_script.write(line.toUtf8() + "\r\n");
}

void PrintJob::record(const QString &line)
{
    if (!isRecording())
        OpenPrintScript();
    write(line);
}

void PrintJob::turnPage()
{
    record(u"NEWPAGE"_s);
    ++m_recordedPage;
}

void PrintJob::OpenPrintScript()
{
    closeScript();
    m_isPlayed = false;
    m_recordedPage = 1;
    m_script.setFileName(freeScriptPath());
    QFile::remove(m_script.fileName());
    // Nobody else may read the pages, at no moment; an earlier file with weaker permissions is never written into.
    if (!m_script.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner)) {
        const QFileInfo place(m_script);
        throw basic::Error(accessError, u"%1 cannot be written in the folder %2: %3. Nothing was printed."_s
                                            .arg(place.fileName(), place.path(), m_script.errorString()));
    }
    scriptsInUse().insert(m_script.fileName());
    writeHeader();
    openHtml();
}

void PrintJob::PrintEndDoc()
{
    const EndOfReport cleanUp{*this};
    record(u"ENDDOC"_s);
    const bool isWhole = m_script.flush() && m_script.error() == QFileDevice::NoError;
    const QString reason = m_script.errorString();
    m_script.close();
    if (!isWhole) {
        QFile::remove(m_script.fileName());
        throw basic::Error(accessError, u"The pages do not fit into the folder %1: %2. Nothing was printed."_s
                                            .arg(QFileInfo(m_script).path(), reason));
    }
    m_isPlayed = true;
    m_player->RunPrintScript(m_script.fileName(), ScriptStrings, GetPrintTarget());
}

void removePrintScripts()
{
    const QDir folder(basic::programFolder());
    const QStringList left = folder.entryList({u"PRINT*.TMP"_s}, QDir::Files | QDir::Hidden);
    for (const QString &name : left) {
        const QString path = folder.filePath(name);
        if (!scriptsInUse().contains(path))
            QFile::remove(path);
    }
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

QString PrintJob::GetPrintTarget() const
{
    return m_target.isEmpty() ? u"PRINTER"_s : m_target;
}

void PrintJob::SetFontName(const QString &name)
{
    const QString trimmed = name.trimmed();
    record(u"FONTNAME = \"%1\""_s.arg(trimmed));
    m_device.setFontName(trimmed);
}

double PrintJob::SetFontSize(const Value &size)
{
    const double wanted = numberOf(size);
    const double points = wanted == 0 ? m_device.FontSize() : wanted;
    record(u"FONTSIZE = "_s + scriptNumber(points));
    m_device.setFontSize(points);
    return points;
}

void PrintJob::SetFontBold(bool on)
{
    record(on ? u"FONTBOLD = TRUE"_s : u"FONTBOLD = FALSE"_s);
    m_device.setFontBold(on);
}

void PrintJob::SetForeColor(quint32 colour)
{
    record(u"FORECOLOR = %1"_s.arg(colour));
    m_device.setForeColor(colour);
}

void PrintJob::SetOrientation(int orientation)
{
    record(u"ORIENTATION = %1"_s.arg(orientation));
    m_device.setOrientation(orientation);
}

void PrintJob::SetScaleMode(int mode)
{
    record(u"SCALEMODE = %1"_s.arg(mode));
    m_device.setScaleMode(mode);
}

void PrintJob::SetScaleWidth(double width)
{
    record(u"SCALEWIDTH = "_s + scriptNumber(width));
    m_device.setScaleWidth(width);
}

bool IsOddNumber(int number)
{
    return number % 2 != 0;
}

}
