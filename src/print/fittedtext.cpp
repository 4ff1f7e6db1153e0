#include "print/fittedtext.h"

#include "print/listwriter.h"
#include "print/script.h"

#include <algorithm>
#include <cmath>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr double step = 0.5;                // points
constexpr double leastUnbroken = 0.85;      // of the size: a line is set that much smaller before it is broken
constexpr QChar ellipsis(0x2026);

// Measures at other sizes without a line in the script.
class MeasuringSize {
public:
    explicit MeasuringSize(PrintJob &job) : m_job(job), m_before(job.device().FontSize()) {}
    ~MeasuringSize() { m_job.device().setFontSize(m_before); }
    MeasuringSize(const MeasuringSize &) = delete;
    MeasuringSize &operator=(const MeasuringSize &) = delete;
    void set(double points) { m_job.device().setFontSize(points); }

private:
    PrintJob &m_job;
    double m_before;
};

QStringList separateLines(const QStringList &texts)
{
    QStringList lines;
    for (QString text : texts) {
        text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
        for (const QString &line : text.split(u'\n')) {
            if (!line.trimmed().isEmpty())
                lines << line.trimmed();
        }
    }
    return lines;
}

qsizetype linesIn(const PrintJob &job, double height)
{
    return std::max<qsizetype>(1, static_cast<qsizetype>(std::floor(height / job.GetTextHeight(u"A"_s) + 1e-6)));
}

bool isAsWide(const PrintJob &job, const QStringList &lines, double width)
{
    return std::all_of(lines.begin(), lines.end(), [&](const QString &line) { return job.GetTextWidth(line) <= width; });
}

QStringList broken(const PrintJob &job, const QStringList &lines, double width)
{
    QStringList result;
    for (const QString &line : lines)
        result += fitLines(job, line, width);
    return result;
}

}

QString elided(const PrintJob &job, const QString &text, double room)
{
    if (job.GetTextWidth(text) <= room)
        return text;
    qsizetype low = 0, high = text.size();
    while (low < high) {
        const qsizetype middle = (low + high + 1) / 2;
        if (job.GetTextWidth(text.left(middle).trimmed() + ellipsis) <= room)
            low = middle;
        else
            high = middle - 1;
    }
    return text.left(low > 0 ? wholeCharacters(text, low) : 0).trimmed() + ellipsis;
}

FittedText fitText(PrintJob &job, const QStringList &texts, double width, double height, double size, double leastSize)
{
    const QStringList lines = separateLines(texts);
    MeasuringSize measured(job);
    for (double points = size; points >= std::max(leastSize, size * leastUnbroken); points -= step) {
        measured.set(points);
        if (lines.size() <= linesIn(job, height) && isAsWide(job, lines, width))
            return {lines, points};
    }
    for (double points = size; points >= leastSize; points -= step) {
        measured.set(points);
        if (const QStringList all = broken(job, lines, width); all.size() <= linesIn(job, height))
            return {all, points};
    }
    measured.set(leastSize);
    QStringList cut = broken(job, lines, width);
    const qsizetype most = linesIn(job, height);
    if (cut.size() > most) {
        cut = cut.mid(0, most);
        QString &last = cut.last();
        const QString whole = last + ellipsis;
        last = job.GetTextWidth(whole) <= width ? whole : elided(job, last + u' ' + last, width);
    }
    return {cut, leastSize};
}

void writeFitted(PrintJob &job, const FittedText &text, double x, double y)
{
    job.SetFontSize(text.size);
    const double height = job.GetTextHeight(u"A"_s);
    for (const QString &line : text.lines) {
        job.SetCurrentY(y);
        job.PrintField(x, u"L"_s, line, false);
        y += height;
    }
}

}
