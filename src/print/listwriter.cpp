#include "print/listwriter.h"

#include "platform/basic/clock.h"
#include "platform/basic/format.h"
#include "platform/printer/printer.h"
#include "print/report.h"

#include <QTextBoundaryFinder>
#include <cmath>

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

namespace {

constexpr double hair = 0.5;            // keeps rules from touching each other
constexpr double headGap = 20;          // below a heading
constexpr double fullPage = 0.9;        // of the page's height
constexpr double blockIndent = 100;     // twips
constexpr int blockWidth = 80;          // characters
constexpr double sliver = 0.03;         // of the page's width: less between two rules looks like an empty column
constexpr double recordGap = 0.3;       // of a line, behind a record of several lines
constexpr double baseline = 0.8;        // of a line's height above it: smaller figures share the baseline of the others

bool isRightAligned(const ListColumn &column)
{
    return column.alignment == u"R";
}

QStringList splitLines(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n');
}

// How many characters of the text fit the width; at least one.
qsizetype fitting(const PrintJob &job, const QString &text, double room)
{
    qsizetype low = 1, high = text.size();
    while (low < high) {
        const qsizetype middle = (low + high + 1) / 2;
        if (job.GetTextWidth(text.left(middle)) <= room)
            low = middle;
        else
            high = middle - 1;
    }
    return wholeCharacters(text, low);
}

}

qsizetype wholeCharacters(const QString &text, qsizetype most)
{
    if (most >= text.size())
        return text.size();
    const auto isPlain = [&text](qsizetype at) { return text[at] > u'\x1f' && text[at] < u'\x7f'; };
    if (most > 0 && isPlain(most - 1) && isPlain(most))
        return most;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(most);
    if (most > 0 && finder.isAtBoundary())
        return most;
    if (const qsizetype before = finder.toPreviousBoundary(); before > 0)
        return before;
    finder.setPosition(most);
    return finder.toNextBoundary();
}

QStringList fitLines(const PrintJob &job, const QString &text, double room, int mostCharacters)
{
    // No line is longer than this, however narrow its letters: a text of any length is measured piece by piece.
    constexpr qsizetype longestLine = 400;
    QStringList lines;
    qsizetype p = 0;
    while (p < text.size()) {
        QString piece = text.mid(p, longestLine);
        if (mostCharacters > 0 && text.size() - p > mostCharacters) {
            const qsizetype blank = QStringView(piece).left(mostCharacters).lastIndexOf(u' ');
            if (blank >= 0)
                piece.truncate(blank);
        }
        const bool isCut = piece.size() == longestLine && p + longestLine < text.size();
        if (isCut || job.GetTextWidth(piece) > room) {
            const qsizetype most = fitting(job, piece, room);
            const qsizetype blank = most < piece.size() || isCut ? piece.lastIndexOf(u' ', most) : -1;
            piece.truncate(blank > 0 ? blank : most);
        }
        p += piece.size();
        if (p < text.size() && text[p] == u' ')
            ++p;
        if (mostCharacters == 0 || !piece.trimmed().isEmpty())      // texts that are wrapped have no blank lines
            lines << piece;
    }
    return lines.isEmpty() ? QStringList{QString()} : lines;
}

ListWriter::ListWriter(const ListReport &report) : m_report(report)
{
    m_title = report.titleWord;
    if (report.isDated)
        m_title += basic::Format(Value(basic::Date()), u"dd/MM/yyyy");
}

void ListWriter::write(dao::Recordset &rows)
{
    ReportStart(m_job, {u"Arial"_s, m_report.size, printer::Twips, m_report.orientation});
    m_job.SetPreviewCaption(m_title);
    m_job.hideEmail = m_report.hideEmail;
    findPlaces();
    headPage();
    m_count = static_cast<int>(rows.RecordCount());
    for (; !rows.EOF_(); rows.MoveNext()) {
        if (isFull())
            breakPage();
        writeRecord(rows);
        ++m_rowsOnPage;
    }
    close();
}

void ListWriter::findPlaces()
{
    m_width = m_job.GetScaleWidth();
    const auto at = [this](double percent) { return std::floor(percent / 100 * m_width); };
    double left = 0;
    for (std::size_t i = 0; i < m_report.columns.size(); ++i) {
        const ListColumn &column = m_report.columns[i];
        Place place;
        place.position = at(column.percent);
        place.body = at(column.bodyPercent > 0 ? column.bodyPercent : column.percent);
        place.left = left;
        const bool isLast = i + 1 == m_report.columns.size();
        const double end = column.roomPercent > 0 ? at(column.roomPercent) : isLast ? m_width : at(m_report.columns[i + 1].percent);
        place.room = end - place.position - 2 * ruleGap;
        left = isRightAligned(column) ? place.body : end;
        m_places.push_back(place);
    }
    placeRules();
}

// A column is ruled at its position, which for figures is their right edge. Where the next column begins right behind that
// edge, its own rule parts the two, and the figures are ruled at their left instead: two rules with nothing between them
// would look like an empty column.
void ListWriter::placeRules()
{
    for (std::size_t i = 0; i < m_places.size(); ++i) {
        Place &place = m_places[i];
        const bool isRight = isRightAligned(m_report.columns[i]) && place.body == place.position;
        const bool isNextNear = i + 1 < m_places.size() && m_places[i + 1].position - place.position < sliver * m_width;
        place.rule = !isRight ? place.position - ruleGap : isNextNear ? place.left - ruleGap : place.position + ruleGap;
    }
}

bool ListWriter::isFull() const
{
    return m_rowsOnPage >= m_report.rowLimit || (m_report.heightTest && m_job.GetCurrentY() >= fullPage * m_job.GetScaleHeight());
}

void ListWriter::breakPage()
{
    ruleColumns(m_job.GetCurrentY());
    m_job.PrintNewPage();
    m_rowsOnPage = 0;
    headPage();
}

// Long texts take several lines. A page that they fill is ended and ruled here, before the recorder would break it.
void ListWriter::makeRoom(int lines)
{
    if (m_job.GetCurrentY() + (lines + 1) * m_job.GetTextHeight(u"A"_s) > m_job.GetScaleHeight())
        breakPage();
}

void ListWriter::headPage()
{
    if (m_report.head == ListHead::Block) {
        ReportHeading(m_job, m_title);
    } else {
        m_job.SetFontSize(8.0);
        m_job.SetFontBold(true);
        m_job.PrintField(m_width / 2, u"C"_s, m_title, true);
    }
    m_job.SetCurrentY(m_job.GetCurrentY() + headGap);
    if (m_report.isTable) {
        headTable();
        return;
    }
    m_job.SetFontBold(false);
    if (m_report.size > 0)
        m_job.SetFontSize(m_report.size);
}

void ListWriter::headTable()
{
    PrintRule(m_job);
    m_tableTop = m_job.GetCurrentY();
    m_job.SetCurrentY(m_job.GetCurrentY() + headGap);
    // The wider reports keep the size that the heading set.
    if (m_report.head == ListHead::Line && m_report.orientation == printer::Portrait)
        m_job.SetFontSize(7.0);
    m_job.SetFontBold(true);
    std::vector<QStringList> names;
    for (std::size_t i = 0; i < m_places.size(); ++i)
        names.push_back(isRightAligned(m_report.columns[i]) ? QStringList{m_report.columns[i].heading}
                                                            : fitLines(m_job, m_report.columns[i].heading, m_places[i].room));
    writeLines(names, true);
    m_job.SetFontBold(false);
    if (m_report.size > 0)
        m_job.SetFontSize(m_report.size);
    PrintRule(m_job);
    m_job.SetCurrentY(m_job.GetCurrentY() + hair);
}

// From the table's top to the given height, so that the rules are as long as the rows of the page.
void ListWriter::ruleColumns(double bottom)
{
    if (!m_report.isTable)
        return;
    const double x = m_job.GetCurrentX(), y = m_job.GetCurrentY();
    for (const Place &place : m_places)
        PrintLineTo(m_job, place.rule, m_tableTop, 0, bottom - m_tableTop);
    m_job.SetCurrentX(x);
    m_job.SetCurrentY(y);
}

QStringList ListWriter::cellLines(const ListColumn &column, const Place &place, QString text) const
{
    if (isRightAligned(column))
        return {text};
    if (column.cut > 0)
        text.truncate(wholeCharacters(text, column.cut));
    QStringList lines;
    for (const QString &line : splitLines(text)) {
        if (column.wrap == 0 || !line.trimmed().isEmpty())      // wrapped texts leave blank lines out
            lines += fitLines(m_job, line, place.room, column.wrap);
    }
    return lines;
}

void ListWriter::writeRecord(const dao::Recordset &rows)
{
    if (m_report.total)
        m_total = m_total + m_report.total(rows);
    std::vector<QString> texts;
    for (const ListColumn &column : m_report.columns)
        texts.push_back(column.cell(rows));
    if (texts.front().trimmed().isEmpty())
        return;                     // counts, but shows nothing
    if (!m_report.isTable) {
        writeBlock(texts);
        return;
    }
    std::vector<QStringList> cells;
    for (std::size_t i = 0; i < texts.size(); ++i)
        cells.push_back(cellLines(m_report.columns[i], m_places[i], texts[i]));
    writeLines(cells, false);
}

// By how much the figures of a row that cover a neighbour must be smaller. One size for them all: figures of many sizes
// side by side read badly.
double ListWriter::shrinkOf(const std::vector<QStringList> &cells) const
{
    double shrink = 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (!isRightAligned(m_report.columns[i]))
            continue;
        const double width = m_job.GetTextWidth(cells[i].value(0)), room = m_places[i].figureRoom();
        if (width > room && room > 0)
            shrink = std::min(shrink, room / width);
    }
    return shrink;
}

void ListWriter::writeCell(std::size_t column, const QString &text, bool isHeading, double shrink)
{
    const Place &place = m_places[column];
    const bool isMoved = isHeading && place.body != place.position;
    const QString alignment = isMoved ? u"L"_s : m_report.columns[column].alignment;
    const double x = isHeading ? place.position : place.body;
    if (shrink >= 1 || alignment != u"R" || m_job.GetTextWidth(text) <= place.figureRoom()) {
        m_job.PrintField(x, alignment, text, false);
        return;
    }
    const double size = m_job.device().FontSize(), y = m_job.GetCurrentY(), height = m_job.GetTextHeight(u"A"_s);
    m_job.SetFontSize(size * shrink);
    m_job.SetCurrentY(y + (height - m_job.GetTextHeight(u"A"_s)) * baseline);
    m_job.PrintField(x, alignment, text, false);
    m_job.SetFontSize(size);
    m_job.SetCurrentY(y);
}

void ListWriter::writeLines(const std::vector<QStringList> &cells, bool isHeading)
{
    qsizetype lines = 1;
    for (const QStringList &cell : cells)
        lines = std::max(lines, cell.size());
    const double shrink = isHeading ? 1 : shrinkOf(cells);
    for (qsizetype line = 0; line < lines; ++line) {
        if (!isHeading)
            makeRoom();
        for (std::size_t i = 0; i < cells.size(); ++i)
            writeCell(i, cells[i].value(line), isHeading, shrink);
        m_job.PrintLeft(u"\r\n"_s);
    }
    if (!isHeading && lines > 1)    // shows where a record of several lines ends
        m_job.SetCurrentY(m_job.GetCurrentY() + m_job.GetTextHeight(u"A"_s) * recordGap);
}

// The labels in bold, each with its text under it; the last one wrapped and set in. A label stays with the first line of
// its text.
void ListWriter::writeBlock(const std::vector<QString> &texts)
{
    for (std::size_t i = 0; i < texts.size(); ++i) {
        makeRoom(2);
        m_job.SetFontBold(true);
        m_job.PrintField(0, u"L"_s, m_report.columns[i].heading, true);
        m_job.SetFontBold(false);
        const bool isLast = i + 1 == texts.size();
        const double x = isLast ? blockIndent : 0;
        for (const QString &line : splitLines(texts[i])) {
            if (isLast && line.trimmed().isEmpty())
                continue;
            for (const QString &piece : fitLines(m_job, line, m_width - x, isLast ? blockWidth : 0)) {
                makeRoom();
                m_job.PrintField(x, u"L"_s, piece, true);
            }
        }
    }
    m_job.SetCurrentY(m_job.GetCurrentY() + m_job.GetTextHeight(u"A"_s) / 2);
}

void ListWriter::close()
{
    const double bottom = m_job.GetCurrentY() + hair;
    PrintRule(m_job);
    m_job.SetCurrentY(m_job.GetCurrentY() + hair);
    bool isRuled = isAtPageFoot(m_job);
    if (isRuled)                    // the closing lines have a page of their own
        ruleColumns(bottom);
    PageFootCheck(m_job);
    m_job.SetFontBold(true);
    const QString count = m_report.countWord + QString::number(m_count);
    if (m_report.total) {
        m_job.PrintField(0, u"L"_s, count, false);
        m_job.PrintField(m_places[static_cast<std::size_t>(m_report.totalColumn)].body, u"R"_s,
                   basic::Format(Value(m_total), m_report.totalFormat), true);
    } else {
        m_job.PrintField(0, u"L"_s, count, true);
    }
    PrintRule(m_job);
    PrintPageNumber(m_job);
    if (!isRuled)
        ruleColumns(bottom);
    m_job.PrintEndDoc();
}

}
