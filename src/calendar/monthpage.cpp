#include "calendar/monthpage.h"

#include "calendar/monthpicture.h"
#include "media/pictures.h"
#include "platform/basic/files.h"
#include "platform/basic/format.h"
#include "platform/desktop/picturefile.h"
#include "session/shared.h"
#include "session/state.h"
#include "session/webpage.h"

#include <QDir>
#include <QFile>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <functional>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr int sunday = 1, mostWidth = 220, mostHeight = 185;
constexpr int mostInDay = 5;                // rows that a day shows; all of them stand below

// In the browser's own colours, light or dark; on paper without a break within a week or a row.
const QString pageStyle = uR"(@page { margin: 12mm; }
body { font-family: Arial, "Liberation Sans", sans-serif; margin: 2em auto; max-width: 62em; padding: 0 1em; }
table { border-collapse: collapse; width: 100%; }
.month { table-layout: fixed; }
.month th { font-size: 2.2em; font-weight: normal; text-align: left; padding: 0 0 0.4em; vertical-align: bottom; }
.month img { border-radius: 4px; margin-left: 1em; }
.month td { border: 1px solid #8888; height: 5.6em; padding: 0.3em 0.4em; vertical-align: top; overflow-wrap: anywhere; }
.month .days td { border: 0; border-bottom: 2px solid #8888; height: auto; text-align: center; font-weight: bold; font-size: 0.9em; }
.month .none { border: 0; height: auto; padding: 0; }
.day { font-weight: bold; }
.row { font-size: 0.72em; line-height: 1.25; margin-top: 0.25em; padding-left: 0.4em; border-left: 3px solid #2a7fd4; }
.event { border-color: #2ea043; }
.bill { border-color: #d98c00; }
.more { font-size: 0.72em; margin-top: 0.25em; opacity: 0.7; }
h2 { font-size: 1.1em; margin: 2em 0 0.5em; break-after: avoid; }
.list th { text-align: left; font-size: 0.85em; padding: 0.2em 1em 0.2em 0; border-bottom: 2px solid #8888; }
.list td { padding: 0.25em 1em 0.25em 0; vertical-align: top; border-bottom: 1px solid #8884; overflow-wrap: anywhere; }
.list .narrow { white-space: nowrap; width: 1%; }
.list .amount { text-align: right; white-space: nowrap; }
tr { break-inside: avoid; }
@media print { body { margin: 0; max-width: none; padding: 0; } }
)"_s;

bool isSameFile(const QString &one, const QString &other)
{
    QFile a(one), b(other);
    return a.size() == b.size() && a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly) && a.readAll() == b.readAll();
}

// The address by which the page finds the picture, relative to the page, so that both move together. A picture that lies
// elsewhere is copied beside the program's own; "" if there is none.
QString pictureAddress(const QString &picture)
{
    const QString file = pictureFile(picture);
    if (file.isEmpty() || file.startsWith(u':'))
        return {};
    const QDir folder(QFileInfo(pagePath(u"\\CALENDAR.HTML"_s)).absolutePath());
    QString relative = folder.relativeFilePath(QFileInfo(file).absoluteFilePath());
    if (relative.startsWith(u".."_s) || QDir::isAbsolutePath(relative)) {
        const QDir pictures(pictureFolder(u"CalendarPictures"_s));
        const QString copy = pictures.absoluteFilePath(QFileInfo(file).fileName());
        if (QFile::exists(copy) ? isSameFile(copy, file) : QFile::copy(file, copy))
            relative = folder.relativeFilePath(copy);
    }
    return QString::fromLatin1(QUrl::toPercentEncoding(relative, "/"));
}

QString pictureElement(const QString &picture)
{
    const QString address = pictureAddress(picture);
    if (address.isEmpty())
        return {};
    const QSize size = pagePictureSize(desktop::inspectPicture(pictureFile(picture)).size);
    const QString measures = size.isEmpty() ? QString() : u" width='%1' height='%2'"_s.arg(size.width()).arg(size.height());
    return u"<img src='"_s + address.toHtmlEscaped().replace(u'\'', u"&#39;"_s) + u"'"_s + measures + u" align='right' alt=''>"_s;
}

QString rowElement(const DayEntry &entry)
{
    const QString kind = entry.kind == DayKind::Event ? u"row event"_s : entry.kind == DayKind::Bill ? u"row bill"_s : u"row"_s;
    return u"<div class='"_s + kind + u"'>"_s + escapedForPage(entry.kind == DayKind::Event && !entry.text.isEmpty() ? entry.text : entryText(entry))
           + u"</div>"_s;
}

QString dayElement(int day, const std::vector<const DayEntry *> &entries)
{
    if (day == 0)
        return u"<td class='none'></td>"_s;
    QString html = u"<td><div class='day'>%1</div>"_s.arg(day);
    const std::size_t shown = entries.size() > mostInDay ? mostInDay - 1 : entries.size();
    for (std::size_t i = 0; i < shown; ++i)
        html += rowElement(*entries[i]);
    if (shown < entries.size())
        html += u"<div class='more'>and %1 more</div>"_s.arg(entries.size() - shown);
    return html + u"</td>"_s;
}

QString monthTable(const MonthCells &cells, const std::vector<DayEntry> &entries, const QString &picture)
{
    QString html = u"<table class='month'>\n<tr><th colspan='7'>"_s + pictureElement(picture) + monthTitle(cells.year, cells.month)
                   + u"</th></tr>\n<tr class='days'>"_s;
    for (const QString &head : weekDayHeads(sunday))
        html += u"<td width='14%'>"_s + head + u"</td>"_s;
    html += u"</tr>\n"_s;
    std::vector<std::vector<const DayEntry *>> ofDay(32);
    for (const DayEntry &entry : entries)
        ofDay[static_cast<std::size_t>(entry.day.day())].push_back(&entry);
    for (int cell = 0; cell < monthCellCount; ++cell) {
        const int day = cells.dayAt(cell);
        html += (cell % monthColumns == 0 ? u"<tr>"_s : QString()) + dayElement(day, ofDay[static_cast<std::size_t>(day)])
                + (cell % monthColumns == monthColumns - 1 ? u"</tr>\n"_s : QString());
    }
    return html + u"</table>\n"_s;
}

QString listTable(const QString &title, const QStringList &heads, const std::vector<DayEntry> &rows,
                  const std::function<QString(const DayEntry &)> &cells)
{
    QString html = u"<h2>"_s + title + u"</h2>\n<table class='list'>\n<tr>"_s;
    for (const QString &head : heads)       // an amount's head stands over its figures
        html += (head == u"Amount" ? u"<th class='amount'>"_s : u"<th>"_s) + head + u"</th>"_s;
    html += u"</tr>\n"_s;
    for (const DayEntry &row : rows)
        html += u"<tr><td class='narrow'>"_s + basic::Format(row.day, u"ddd d") + u"</td>"_s + cells(row) + u"</tr>\n"_s;
    return html + u"</table>\n"_s;
}

QString cellElement(const QString &text, const QString &kind = {})
{
    return (kind.isEmpty() ? u"<td>"_s : u"<td class='"_s + kind + u"'>"_s) + escapedForPage(text) + u"</td>"_s;
}

QString detailsOf(const DayEntry &event)
{
    return event.isBack() ? event.text + u" (%1)"_s.arg(event.began.year()) : event.text;
}

QString whole(const MonthCells &cells, const QString &body)
{
    return u"<!DOCTYPE html>\n<html lang='en'>\n<head>\n<meta charset='utf-8'>\n<meta name='viewport' content='width=device-width'>\n"
           "<meta name='color-scheme' content='light dark'>\n<title>"_s + monthTitle(cells.year, cells.month) + u"</title>\n<style>\n"_s
           + pageStyle + u"</style>\n</head>\n<body>\n"_s + body + u"</body>\n</html>\n"_s;
}

}

QSize pagePictureSize(QSize picture)
{
    if (picture.isEmpty())
        return {};
    const double factor = std::min(double(mostWidth) / picture.width(), double(mostHeight) / picture.height());
    return {std::max(1, static_cast<int>(std::lround(picture.width() * factor))),
            std::max(1, static_cast<int>(std::lround(picture.height() * factor)))};
}

QString blankPageText(int year, int month, const QString &picture)
{
    const MonthCells cells = monthCells(year, month, sunday);
    return whole(cells, monthTable(cells, {}, picture));
}

QString monthPageText(dao::Database &database, int year, int month, const MonthKinds &kinds, const QString &picture)
{
    const MonthCells cells = monthCells(year, month, sunday);
    const DaySpan span = monthSpan(year, month);
    QString body = monthTable(cells, readDays(database, span, kinds), picture);
    const auto rows = [&](DayKind kind, const QString &query) {
        std::vector<DayEntry> read = readRows(database, kind, query, span);
        std::stable_sort(read.begin(), read.end(), [](const DayEntry &a, const DayEntry &b) { return a.day < b.day; });
        return read;
    };
    if (kinds.appointments)
        body += listTable(u"THIS MONTHS APPOINTMENTS"_s, {u"Day"_s, u"Time"_s, u"Appointment"_s},
                          rows(DayKind::Appointment, appointmentsQuery(span, RowOrder::ByDay)),
                          [](const DayEntry &row) { return cellElement(row.time, u"narrow"_s) + cellElement(row.text); });
    if (kinds.events)
        body += listTable(u"THIS MONTHS EVENTS"_s, {u"Day"_s, u"Event"_s, u"Details"_s},
                          rows(DayKind::Event, eventsQuery(span, RowOrder::ByDay, kinds.category)),
                          [](const DayEntry &row) { return cellElement(row.subject, u"narrow"_s) + cellElement(detailsOf(row)); });
    if (kinds.bills)
        body += listTable(u"THIS MONTHS BILLS"_s, {u"Day"_s, u"Bill"_s, u"Amount"_s},
                          rows(DayKind::Bill, billsQuery(span, RowOrder::ByDay)), [](const DayEntry &row) {
                              return cellElement(row.text) + cellElement(basic::Format(row.amount, u"currency"), u"amount"_s);
                          });
    return whole(cells, body);
}

void PrintCalendarList(dao::Database &database, int year, int month, const MonthKinds &kinds)
{
    const QString path = pagePath(u"\\CALENDARLIST.HTML"_s);
    writePage(path, monthPageText(database, year, month, kinds, monthPicture(month)));
    openPage(path);
}

void ShowBlankCalendar(int year, int month)
{
    const QString path = pagePath(u"\\CALENDAR.HTML"_s);
    writePage(path, blankPageText(year, month, monthPicture(month)));
    openPage(path);
}

}
