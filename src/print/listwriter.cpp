#include "print/listwriter.h"

#include "platform/basic/clock.h"
#include "platform/basic/format.h"
#include "platform/printer/printer.h"
#include "print/report.h"
#include "print/script.h"

#include <cmath>

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

namespace {

constexpr double hair = 0.5;            // keeps rules from touching each other
constexpr double ruleGap = 30;          // and keeps them from touching the text
constexpr double headGap = 20;
constexpr double fullPage = 0.9;        // of the page's height
constexpr double blockIndent = 100;
constexpr int blockWidth = 80;          // characters

QStringList splitLines(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n');
}

// How many characters of the text the room holds; one at least.
qsizetype fitting(const QString &text, double room)
{
    qsizetype low = 1, high = text.size();
    while (low < high) {
        const qsizetype middle = (low + high + 1) / 2;
        if (GetTextWidth(text.left(middle)) <= room)
            low = middle;
        else
            high = middle - 1;
    }
    if (low < text.size() && text[low].isLowSurrogate() && low > 1)
        --low;
    return low;
}

}

QStringList fitLines(const QString &text, double room)
{
    QStringList lines;
    QString rest = text;
    while (!rest.isEmpty() && GetTextWidth(rest) > room) {
        // A line is never longer than this, however narrow the letters: a text of any length is measured piece by piece.
        const qsizetype most = fitting(rest.left(400), room);
        const qsizetype blank = most < rest.size() ? rest.lastIndexOf(u' ', most) : -1;
        const qsizetype end = blank > 0 ? blank : most;
        lines << rest.left(end);
        rest = rest.mid(blank > 0 ? end + 1 : end);
    }
    lines << rest;
    return lines;
}

ListWriter::ListWriter(const ListReport &report) : m_report(report)
{
    m_title = report.titleWord;
    if (report.isDated)
        m_title += basic::Format(Value(basic::Date()), u"dd/MM/yyyy");
}

void ListWriter::write(dao::Recordset &rows)
{
    ReportStart(u"Arial"_s, m_report.size, printer::Twips, m_report.orientation);
    SetPreviewCaption(m_title);
    scriptState().hideEmail = m_report.hideEmail;
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
    m_width = GetScaleWidth();
    const auto at = [this](double percent) { return std::floor(percent / 100 * m_width); };
    for (std::size_t i = 0; i < m_report.columns.size(); ++i) {
        const ListColumn &column = m_report.columns[i];
        Place place{at(column.percent), at(column.bodyPercent > 0 ? column.bodyPercent : column.percent), 0};
        const bool isLast = i + 1 == m_report.columns.size();
        const double end = column.roomPercent > 0 ? at(column.roomPercent) : isLast ? m_width : at(m_report.columns[i + 1].percent);
        place.room = end - place.position - 2 * ruleGap;
        m_places.push_back(place);
    }
}

bool ListWriter::isFull() const
{
    return m_rowsOnPage >= m_report.rowLimit || (m_report.heightTest && GetCurrentY() >= fullPage * GetScaleHeight());
}

void ListWriter::breakPage()
{
    ruleColumns(GetCurrentY());
    PrintNewPage();
    m_rowsOnPage = 0;
    headPage();
}

// Long texts take several lines. A page that they fill is ended and ruled here, before the recorder would break it.
void ListWriter::makeRoom()
{
    if (GetCurrentY() + 2 * GetTextHeight(u"A"_s) > GetScaleHeight())
        breakPage();
}

void ListWriter::headPage()
{
    if (m_report.head == ListHead::Block) {
        ReportHeading(m_title);
    } else {
        SetFontSize(8.0);
        SetFontBold(true);
        PrintField(m_width / 2, u"C"_s, m_title, true);
    }
    SetCurrentY(GetCurrentY() + headGap);
    if (m_report.isTable) {
        headTable();
        return;
    }
    SetFontBold(false);
    if (m_report.size > 0)
        SetFontSize(m_report.size);
}

void ListWriter::headTable()
{
    PrintRule();
    m_tableTop = GetCurrentY();
    SetCurrentY(GetCurrentY() + headGap);
    // The wider reports keep the size that the heading set.
    if (m_report.head == ListHead::Line && m_report.orientation == printer::Portrait)
        SetFontSize(7.0);
    SetFontBold(true);
    std::vector<QStringList> names;
    for (std::size_t i = 0; i < m_places.size(); ++i)
        names.push_back(m_report.columns[i].alignment == u"R" ? QStringList{m_report.columns[i].heading}
                                                              : fitLines(m_report.columns[i].heading, m_places[i].room));
    writeLines(names, true);
    SetFontBold(false);
    if (m_report.size > 0)
        SetFontSize(m_report.size);
    PrintRule();
    SetCurrentY(GetCurrentY() + hair);
}

// From the table's top to the given height, so that the rules are as long as the rows of the page.
void ListWriter::ruleColumns(double bottom)
{
    if (!m_report.isTable)
        return;
    const double x = GetCurrentX(), y = GetCurrentY();
    for (std::size_t i = 0; i < m_places.size(); ++i) {
        const bool isRight = m_report.columns[i].alignment == u"R" && m_places[i].body == m_places[i].position;
        PrintLineTo(m_places[i].position + (isRight ? ruleGap : -ruleGap), m_tableTop, 0, bottom - m_tableTop);
    }
    SetCurrentX(x);
    SetCurrentY(y);
}

QStringList ListWriter::cellLines(const ListColumn &column, const Place &place, QString text) const
{
    if (column.alignment == u"R")
        return {text};
    if (column.cut > 0)
        text.truncate(column.cut);
    QStringList lines;
    for (const QString &line : splitLines(text)) {
        for (const QString &piece : column.wrap > 0 ? wrapLines(line, column.wrap) : QStringList{line})
            lines += fitLines(piece, place.room);
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

void ListWriter::writeLines(const std::vector<QStringList> &cells, bool isHeading)
{
    qsizetype lines = 1;
    for (const QStringList &cell : cells)
        lines = std::max(lines, cell.size());
    for (qsizetype line = 0; line < lines; ++line) {
        if (!isHeading)
            makeRoom();
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const bool moves = isHeading && m_places[i].body != m_places[i].position;
            PrintField(isHeading ? m_places[i].position : m_places[i].body, moves ? u"L"_s : m_report.columns[i].alignment,
                       cells[i].value(line), i + 1 == cells.size());
        }
    }
}

// The labels in bold, each with its text under it; the last one wrapped and set in.
void ListWriter::writeBlock(const std::vector<QString> &texts)
{
    for (std::size_t i = 0; i < texts.size(); ++i) {
        makeRoom();
        SetFontBold(true);
        PrintField(0, u"L"_s, m_report.columns[i].heading, true);
        SetFontBold(false);
        const bool isLast = i + 1 == texts.size();
        const double x = isLast ? blockIndent : 0;
        for (const QString &line : splitLines(texts[i])) {
            for (const QString &wrapped : isLast ? wrapLines(line, blockWidth) : QStringList{line}) {
                for (const QString &piece : fitLines(wrapped, m_width - x)) {
                    makeRoom();
                    PrintField(x, u"L"_s, piece, true);
                }
            }
        }
    }
    SetCurrentY(GetCurrentY() + GetTextHeight(u"A"_s) / 2);
}

void ListWriter::close()
{
    const double bottom = GetCurrentY() + hair;
    PrintRule();
    SetCurrentY(GetCurrentY() + hair);
    bool isRuled = isAtPageFoot();
    if (isRuled)                    // the closing lines stand on a page of their own
        ruleColumns(bottom);
    PageFootCheck();
    SetFontBold(true);
    const QString count = m_report.countWord + QString::number(m_count);
    if (m_report.total) {
        PrintField(0, u"L"_s, count, false);
        PrintField(m_places[static_cast<std::size_t>(m_report.totalColumn)].body, u"R"_s,
                   basic::Format(Value(m_total), m_report.totalFormat), true);
    } else {
        PrintField(0, u"L"_s, count, true);
    }
    PrintRule();
    PrintPageNumber();
    if (!isRuled)
        ruleColumns(bottom);
    PrintEndDoc();
}

}
