#include "print/monthcalendar.h"

#include "calendar/monthpicture.h"
#include "media/pictures.h"
#include "platform/basic/format.h"
#include "platform/desktop/picturefile.h"
#include "print/fittedtext.h"
#include "print/listwriter.h"
#include "print/player.h"
#include "print/report.h"
#include "print/script.h"
#include "print/yearcalendar.h"
#include "session/datafiles.h"
#include "session/datetexts.h"

#include <algorithm>
#include <deque>
#include <functional>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// Twips.
constexpr double left = 200, pitch = 800, weekRight = left + monthColumns * pitch;
constexpr double gap = 200, mostRight = 10986;
constexpr double titleHeight = 620, headTop = 760, headsHeight = 300, mostRowHeight = 900, leastRowHeight = 620;
constexpr double footHeight = 420, cellPad = 40, leastRegion = 1500, barHeight = 300;
constexpr double titleSize = 24, headSize = 9, numberSize = 11, cellSize = 6, bodySize = 8.5;
constexpr int appointmentColour = 1, eventColour = 2, billColour = 4, toDoColour = 8;
constexpr quint32 black = 0;

int colourOf(DayKind kind)
{
    return kind == DayKind::Event ? eventColour : kind == DayKind::Bill ? billColour : appointmentColour;
}

// A place on the page that the blocks fill from top to bottom.
struct Region {
    double left, top, right, bottom;
};

// One optional block of the page. Columns: where they begin as a part of the width; the last may be set to the right.
struct Block {
    QString title;
    int colour;
    std::array<QString, 3> heads;       // "" = no such column
    std::array<double, 3> places;
    bool lastAtRight = false;
    std::vector<std::array<QString, 3>> rows{};
};

class CalendarWriter {
public:
    CalendarWriter(int year, int month, const CalendarPaper &paper);
    void write(dao::Database &database);

private:
    void setFont(double size, bool bold);
    void writeTitle();
    double writeHead();                 // the picture and the year; returns where they end
    void writePicture(const Region &place);
    double writeMonth(double top);      // returns where it ends
    void ruleMonth(double top, double rowHeight);
    void writeDay(int cell, const std::vector<const DayEntry *> &entries, double top, double rowHeight);
    void writeFoot();
    std::vector<Block> blocks(dao::Database &database) const;
    void writeBlock(const Block &block);
    void headBlock(const Block &block, bool isContinued);
    void writeRow(const Block &block, const std::array<QString, 3> &row);
    void makeRoom(const Block &block, double height);
    void nextRegion();
    void text(double x, const QString &alignment, double y, const QString &words);

    PrintJob m_job;
    const CalendarPaper &m_paper;
    MonthCells m_month;
    DaySpan m_span;
    QString m_picture;
    std::vector<DayEntry> m_entries;
    std::deque<Region> m_regions;       // the first is the one at work
    double m_right = 0, m_bottom = 0, m_y = 0;
};

CalendarWriter::CalendarWriter(int year, int month, const CalendarPaper &paper)
    : m_paper(paper), m_month(monthCells(year, month, state().settings.gWeekStartDay)), m_span(monthSpan(year, month)),
      m_picture(pictureFile(monthPicture(month)))
{
    ReportStart(m_job, {u"Arial"_s, bodySize, printer::Twips, printer::Portrait});
    m_job.SetPreviewCaption(u"Calendar "_s + monthTitle(year, month));
    m_right = std::min(m_job.GetScaleWidth() - left, mostRight);
    m_bottom = m_job.GetScaleHeight() - footHeight;
}

// Each page says its font anew: the preview shows any of them by itself.
void CalendarWriter::setFont(double size, bool bold)
{
    m_job.SetFontName(u"Arial"_s);
    m_job.SetFontSize(size);
    m_job.SetFontBold(bold);
}

void CalendarWriter::text(double x, const QString &alignment, double y, const QString &words)
{
    m_job.SetCurrentY(y);
    m_job.PrintField(x, alignment, words, false);
}

void CalendarWriter::writeTitle()
{
    m_job.SetForeColor(black);
    setFont(titleSize, true);
    text(left, u"L"_s, 0, paperMonthTitle(m_month.year, m_month.month));
    PrintLineTo(m_job, left, titleHeight, m_right - left, 0);
}

// A picture that is damaged is left out: the page is worth more than its picture.
void CalendarWriter::writePicture(const Region &place)
{
    QSizeF size = desktop::inspectPicture(m_picture).size;
    if (size.isEmpty())
        return;
    size.scale(place.right - place.left, place.bottom - place.top, Qt::KeepAspectRatio);
    m_job.PrintPicture(m_picture, place.left + (place.right - place.left - size.width()) / 2,
                       place.top + (place.bottom - place.top - size.height()) / 2, size.width(), size.height());
}

double CalendarWriter::writeHead()
{
    const bool hasPicture = !m_picture.isEmpty() && desktop::inspectPicture(m_picture).size.isValid();
    double end = headTop;
    if (m_paper.yearStrip)
        end = PrintYearCalendar(m_job, headTop) + gap;
    if (hasPicture && m_paper.yearStrip)
        writePicture({left, headTop, yearStripLeft - gap, end - gap});
    else if (hasPicture)
        writePicture({left, headTop, m_right, end = headTop + (m_bottom - headTop) * 0.4});
    else if (m_paper.yearStrip)
        m_regions.push_back({left, headTop, yearStripLeft - gap, end - gap});
    return hasPicture && !m_paper.yearStrip ? end + gap : end;
}

void CalendarWriter::ruleMonth(double top, double rowHeight)
{
    const double height = headsHeight + m_month.rows() * rowHeight;
    for (int column = 0; column <= monthColumns; ++column)
        PrintLineTo(m_job, left + column * pitch, top, 0, height);
    PrintLineTo(m_job, left, top, weekRight - left, 0);
    for (int row = 0; row <= m_month.rows(); ++row)
        PrintLineTo(m_job, left, top + headsHeight + row * rowHeight, weekRight - left, 0);
}

double CalendarWriter::writeMonth(double top)
{
    const double rowHeight = std::clamp((m_bottom - top - headsHeight) / m_month.rows(), leastRowHeight, mostRowHeight);
    ruleMonth(top, rowHeight);
    setFont(headSize, true);
    const std::array<QString, 7> heads = paperDayHeads(state().settings.gWeekStartDay);
    for (int column = 0; column < monthColumns; ++column)
        text(left + (column + 0.5) * pitch, u"C"_s, top + (headsHeight - m_job.GetTextHeight(u"A"_s)) / 2,
             elided(m_job, heads[static_cast<std::size_t>(column)], pitch - 2 * cellPad));
    std::vector<std::vector<const DayEntry *>> ofDay(32);
    for (const DayEntry &entry : m_entries)
        ofDay[static_cast<std::size_t>(entry.day.day())].push_back(&entry);
    for (int day = 1; day <= m_month.days; ++day)
        writeDay(m_month.cellOf(day), ofDay[static_cast<std::size_t>(day)], top + headsHeight, rowHeight);
    return top + headsHeight + m_month.rows() * rowHeight;
}

// The number, and as many short texts as the cell holds; all of them are in the blocks.
void CalendarWriter::writeDay(int cell, const std::vector<const DayEntry *> &entries, double top, double rowHeight)
{
    constexpr double markWidth = 45, markGap = 40;
    const double x = left + cell % monthColumns * pitch + cellPad;
    double y = top + cell / monthColumns * rowHeight + cellPad;
    const double bottom = y + rowHeight - 2 * cellPad;
    setFont(numberSize, true);
    text(x, u"L"_s, y, QString::number(m_month.dayAt(cell)));
    y += m_job.GetTextHeight(u"A"_s);
    if (entries.empty())
        return;
    setFont(cellSize, false);
    const double line = m_job.GetTextHeight(u"A"_s);
    const auto room = static_cast<std::size_t>(std::max(1.0, (bottom - y) / line));
    const std::size_t shown = entries.size() > room ? room - 1 : entries.size();
    for (std::size_t i = 0; i < shown; ++i, y += line) {
        m_job.PrintLine(x, y + line * 0.15, u"STEP"_s, markWidth, line * 0.7, basic::Value(colourOf(entries[i]->kind)), u"BF"_s);
        const QString &words = entries[i]->text.isEmpty() ? entries[i]->subject : entries[i]->text;
        text(x + markWidth + markGap, u"L"_s, y, elided(m_job, words, pitch - 2 * cellPad - markWidth - markGap));
    }
    if (shown < entries.size())
        text(x, u"L"_s, y, u"+%1"_s.arg(entries.size() - shown));
}

void CalendarWriter::writeFoot()
{
    m_job.SetForeColor(black);
    m_job.SetFontName(u"Small Fonts"_s);
    m_job.SetFontSize(6.0);
    m_job.SetFontBold(false);
    const double y = m_job.GetScaleHeight() - 2 * m_job.GetTextHeight(u"A"_s);
    text(left, u"L"_s, y, u"%1 - Reminders and household records"_s.arg(state().gProductTitle.trimmed()));
    text(m_right, u"R"_s, y, u"Page %1"_s.arg(m_job.GetPageNumber()));
}

std::vector<Block> CalendarWriter::blocks(dao::Database &database) const
{
    const MonthKinds &kinds = m_paper.blocks.reminders;
    std::vector<Block> all;
    const auto rowsOf = [&](DayKind kind, const QString &query) {
        std::vector<DayEntry> rows = readRows(database, kind, query, m_span);
        std::stable_sort(rows.begin(), rows.end(), [](const DayEntry &a, const DayEntry &b) { return a.day < b.day; });
        return rows;
    };
    if (kinds.appointments) {
        Block block{u"THIS MONTHS APPOINTMENTS"_s, appointmentColour, {u"Day"_s, u"Time"_s, u"Appointment"_s}, {0, 0.15, 0.33}};
        for (const DayEntry &row : rowsOf(DayKind::Appointment, appointmentsQuery(m_span, RowOrder::Printed)))
            block.rows.push_back({paperWeekDay(row.day), row.time, row.text});
        all.push_back(std::move(block));
    }
    if (kinds.events) {
        Block block{u"THIS MONTHS EVENTS"_s, eventColour, {u"Day"_s, u"Event"_s, u"Details"_s}, {0, 0.26, 0.53}};
        for (const DayEntry &row : rowsOf(DayKind::Event, eventsQuery(m_span, RowOrder::Printed, kinds.category))) {
            const auto end = row.dateTo.isEmpty() ? std::nullopt : typedDate(row.dateTo, {});
            const bool lasts = end && !isNoDate(basic::Value(*end)) && end->dayOnly() != row.began;
            block.rows.push_back({paperMonthDay(row.day) + (lasts ? u" - "_s + paperMonthDay(*end) : QString()), row.subject, row.text});
        }
        all.push_back(std::move(block));
    }
    if (kinds.bills) {
        Block block{u"THIS MONTHS BILLS"_s, billColour, {u"Day"_s, u"Bill"_s, u"Amount"_s}, {0, 0.15, 1}, true};
        for (const DayEntry &row : rowsOf(DayKind::Bill, billsQuery(m_span, RowOrder::Printed)))
            block.rows.push_back({paperWeekDay(row.day), row.text, basic::Format(row.amount, u"currency")});
        all.push_back(std::move(block));
    }
    if (m_paper.blocks.toDo) {
        Block block{u"TO DO LIST"_s, toDoColour, {u"Task"_s, u"Priority"_s, {}}, {0, 0.8, 1}};
        for (const ToDoTask &task : readToDo(database))
            block.rows.push_back({task.task, task.priority, {}});
        all.push_back(std::move(block));
    }
    return all;
}

void CalendarWriter::nextRegion()
{
    if (!m_regions.empty())
        m_regions.pop_front();
    if (m_regions.empty()) {
        writeFoot();
        m_job.PrintNewPage();
        writeTitle();
        m_regions = {{left, headTop, weekRight, m_bottom}, {weekRight + gap, headTop, m_right, m_bottom}};
    }
    m_y = m_regions.front().top;
}

// A block that goes on elsewhere has its bar there again.
void CalendarWriter::makeRoom(const Block &block, double height)
{
    if (m_y + height <= m_regions.front().bottom)
        return;
    nextRegion();
    headBlock(block, true);
}

void CalendarWriter::headBlock(const Block &block, bool isContinued)
{
    const Region &place = m_regions.front();
    m_job.PrintLine(place.left, m_y, u"STEP"_s, place.right - place.left, barHeight, basic::Value(block.colour), u"BF"_s);
    setFont(headSize, true);
    m_job.SetForeColor(printer::QBColor(15));
    text(place.left + 2 * cellPad, u"L"_s, m_y + (barHeight - m_job.GetTextHeight(u"A"_s)) / 2,
         elided(m_job, isContinued ? block.title + u" (continued)"_s : block.title, place.right - place.left - 4 * cellPad));
    m_job.SetForeColor(black);
    m_y += barHeight + cellPad;
    setFont(bodySize, true);
    const double width = place.right - place.left;
    for (std::size_t i = 0; i < block.heads.size(); ++i) {
        const bool atRight = block.lastAtRight && i == block.heads.size() - 1;
        if (!block.heads[i].isEmpty())
            text(place.left + block.places[i] * width, atRight ? u"R"_s : u"L"_s, m_y, block.heads[i]);
    }
    m_y += m_job.GetTextHeight(u"A"_s) + cellPad / 2;
    PrintLineTo(m_job, place.left, m_y, width, 0);
    m_y += cellPad;
    setFont(bodySize, false);
}

// The fields of a row are beside each other, each in as many lines as it needs.
void CalendarWriter::writeRow(const Block &block, const std::array<QString, 3> &row)
{
    const double width = m_regions.front().right - m_regions.front().left, line = m_job.GetTextHeight(u"A"_s);
    std::array<QStringList, 3> cells;
    qsizetype lines = 1;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const bool atRight = block.lastAtRight && i == row.size() - 1;
        const double before = block.lastAtRight && i == 1 ? 0.78 : i + 1 < row.size() ? block.places[i + 1] : 1.0;
        cells[i] = atRight ? QStringList{row[i]} : fitLines(m_job, row[i], (before - block.places[i]) * width - 2 * cellPad);
        lines = std::max(lines, cells[i].size());
    }
    makeRoom(block, std::min<double>(static_cast<double>(lines), 4) * line);      // a long row may be parted, a short one not
    for (qsizetype k = 0; k < lines; ++k) {
        makeRoom(block, line);
        const double x = m_regions.front().left;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const bool atRight = block.lastAtRight && i == row.size() - 1;
            if (k < cells[i].size() && !cells[i][k].isEmpty())
                text(x + block.places[i] * (m_regions.front().right - x), atRight ? u"R"_s : u"L"_s, m_y, cells[i][k]);
        }
        m_y += line;
    }
    m_y += cellPad / 2;
}

void CalendarWriter::writeBlock(const Block &block)
{
    constexpr double leastBlock = barHeight + 900;      // the bar, the heads and some rows: never the bar alone
    if (m_regions.empty() || m_y + leastBlock > m_regions.front().bottom)
        nextRegion();
    headBlock(block, false);
    if (block.rows.empty()) {
        text(m_regions.front().left, u"L"_s, m_y, u"None"_s);
        m_y += m_job.GetTextHeight(u"A"_s);
    }
    for (const auto &row : block.rows)
        writeRow(block, row);
    m_y += gap;
}

void CalendarWriter::write(dao::Database &database)
{
    m_entries = readDays(database, m_span, m_paper.blocks.reminders);
    const std::vector<Block> all = blocks(database);
    writeTitle();
    const double top = writeHead();
    const double end = writeMonth(top) + gap;
    m_regions.push_back({weekRight + gap, top, m_right, m_bottom});
    if (m_bottom - end >= leastRegion)
        m_regions.push_back({left, end, weekRight, m_bottom});
    m_y = m_regions.front().top;
    for (const Block &block : all)
        writeBlock(block);
    writeFoot();
    m_job.PrintEndDoc();
}

}

void PrintMonthCalendar(int month, int year, const CalendarPaper &paper)
{
    if (!PrinterReady())
        return;
    const Hourglass hourglass;
    dao::Database database = openDataFile(DataFile::Main);
    CalendarWriter(year, month, paper).write(database);
}

}
