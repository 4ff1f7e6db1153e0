#include "print/scriptfile.h"

#include "platform/basic/error.h"
#include "print/script.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr int subscriptError = 9;

// What a line of the file says. Blanks are those of ASCII alone: a no-break space belongs to the text.
QString lineText(const QByteArray &line)
{
    return QString::fromUtf8(line.trimmed());
}

// By the same rule as the player's, but without decoding the lines that begin with an ASCII character, which nearly all do.
bool endsPage(const QByteArray &line)
{
    const QByteArray trimmed = line.trimmed();
    if (trimmed.isEmpty() || static_cast<unsigned char>(trimmed[0]) >= 0x80)
        return FirstWord(lineText(line)) == u"NEWPAGE";
    const qsizetype blank = trimmed.indexOf(' ');
    return (blank < 0 ? trimmed : trimmed.left(blank)).toUpper() == "NEWPAGE";
}

QString between(const QString &line, QChar open, QChar close)
{
    const qsizetype from = line.indexOf(open);
    if (from < 0)
        return {};
    const qsizetype to = line.indexOf(close, from + 1);
    return line.mid(from + 1, to < 0 ? -1 : to - from - 1);
}

// The items behind the numbers: quoted texts and [n], joined. What is neither is passed over.
QString assembleText(QStringView items, const std::vector<QString> &table)
{
    QString text;
    qsizetype p = 0;
    while (p < items.size() && items[p] != u'\'') {
        const QChar kind = items[p++];
        if (kind != u'"' && kind != u'[')
            continue;
        const qsizetype close = items.indexOf(kind == u'"' ? u'"' : u']', p);
        const QStringView item = items.mid(p, close < 0 ? -1 : close - p);
        p = close < 0 ? items.size() : close + 1;
        if (kind == u'"') {
            text += item;
            continue;
        }
        const double entry = scanNumber(item);
        if (!(entry >= 0 && entry < static_cast<double>(table.size())))
            throw basic::BasicError(subscriptError);
        text += table[static_cast<std::size_t>(entry)];
    }
    return text.replace(QChar(255), u'"');
}

}

QString FirstWord(const QString &line)
{
    const qsizetype blank = line.indexOf(u' ');
    return (blank < 0 ? line : line.left(blank)).toUpper();
}

bool PrintScriptFile::open(const QString &path)
{
    close();
    m_file.setFileName(path);
    if (!m_file.open(QIODevice::ReadOnly))
        return false;
    m_pages = {0};
    while (!m_file.atEnd()) {
        if (endsPage(m_file.readLine()))
            m_pages.push_back(m_file.pos());
    }
    return true;
}

void PrintScriptFile::close()
{
    m_file.close();
    m_pages.clear();
}

void PrintScriptFile::seekPage(int page)
{
    if (page >= pages())
        m_file.seek(m_file.size());
    else
        m_file.seek(m_pages[static_cast<std::size_t>(std::max(page, 0))]);
}

std::optional<QString> PrintScriptFile::nextLine()
{
    while (!m_file.atEnd()) {
        const QString line = lineText(m_file.readLine());
        if (!line.isEmpty() && !line.startsWith(u'\''))
            return line;
    }
    return std::nullopt;
}

TextLine parseTextLine(const QString &line, const std::vector<QString> &table)
{
    const qsizetype blank = line.indexOf(u' ');
    if (blank < 0)
        return {};
    const QStringView rest = QStringView(line).mid(blank + 1);
    const qsizetype first = rest.indexOf(u',');
    if (first < 0)
        return {scanNumber(rest), 0, {}};
    const qsizetype second = rest.indexOf(u',', first + 1);
    TextLine parsed{scanNumber(rest.left(first)), scanNumber(rest.mid(first + 1, second < 0 ? -1 : second - first - 1)), {}};
    if (second >= 0)
        parsed.text = assembleText(rest.mid(second + 1), table);
    return parsed;
}

DrawnLine parseDrawnLine(const QString &line)
{
    DrawnLine parsed;
    QStringView rest(line);
    const auto point = [&rest](double &x, double &y) {
        const qsizetype open = rest.indexOf(u'(');
        const qsizetype close = open < 0 ? -1 : rest.indexOf(u')', open);
        const QStringView inside = open < 0 ? QStringView() : rest.mid(open + 1, close < 0 ? -1 : close - open - 1);
        const qsizetype comma = inside.indexOf(u',');
        x = scanNumber(comma < 0 ? inside : inside.left(comma));
        y = comma < 0 ? 0 : scanNumber(inside.mid(comma + 1));
        rest = close < 0 ? QStringView() : rest.mid(close + 1);
    };
    point(parsed.x1, parsed.y1);
    point(parsed.x2, parsed.y2);
    parsed.step = line.contains(u"STEP"_s, Qt::CaseInsensitive);
    const QList<QStringView> arguments = rest.split(u',');      // ",colour,flag"
    if (arguments.size() > 1 && !arguments[1].trimmed().isEmpty())
        parsed.colour = scanNumber(arguments[1]);
    if (arguments.size() > 2)
        parsed.flag = arguments[2].trimmed().toString().toUpper();
    return parsed;
}

PictureLine parsePictureLine(const QString &line)
{
    return {between(line, u'[', u']'), scanNumber(between(line, u'(', u')')), scanNumber(between(line, u'<', u'>'))};
}

double parseSetting(const QString &line)
{
    const qsizetype equals = line.indexOf(u'=');
    return equals < 0 ? 0 : scanNumber(QStringView(line).mid(equals + 1));
}

QString parseQuoted(const QString &line)
{
    return between(line, u'"', u'"');
}

}
