#include "calendar/monthrows.h"

#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "session/datetexts.h"
#include "session/shared.h"
#include "session/state.h"

#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;

namespace {

QString inSpan(const DaySpan &span)
{
    return u" between #%1# and #%2#"_s.arg(sqlDate(span.first), sqlDate(span.last));
}

// The rows of earlier days that come back: their month and day in the span's year.
QString comesBack(const DaySpan &span, const QString &before, const QString &condition)
{
    return u" OR "_s + before + u"[DATE]<#"_s + sqlDate(span.first) + u"# AND "_s + condition
           + u" AND DATESERIAL( %1,MONTH([DATE]),DAY([DATE]))"_s.arg(span.first.year()) + inSpan(span);
}

bool isChosen(const QString &category)
{
    return !category.isEmpty() && category != u"ALL";
}

QString whereEvents(const DaySpan &span, const QString &category)
{
    const QString recurring = u"[RECURRING]=-1"_s;
    return u" where [DATE]"_s + inSpan(span) + comesBack(span, {}, u"[SUBJECT]='ANNIVERSARY'"_s)
           + comesBack(span, {}, u"[SUBJECT]='BIRTHDAY'"_s)
           + (isChosen(category) ? comesBack(span, recurring + u" AND "_s, u"[SUBJECT]="_s + dao::literal(category))
                                 : comesBack(span, {}, recurring));
}

// Minutes from midnight, so that "09:00 Am" comes before "02:00 Pm"; a text that is no time, such as "All Day", comes first.
int minutesOf(const QString &time)
{
    if (!basic::IsDate(time))
        return -1;
    const QTime read = basic::CDate(time).time();
    return read.hour() * 60 + read.minute();
}

int placeOf(const DaySpan &span, DateTime day)
{
    return static_cast<int>(span.first.date().daysTo(day.date()));
}

int &countOf(DayCount &count, DayKind kind)
{
    return kind == DayKind::Event ? count.events : kind == DayKind::Appointment ? count.appointments : count.bills;
}

QString counted(int count, const QString &what)
{
    return u"%1 %2%3"_s.arg(count).arg(what, count == 1 ? QString() : u"s"_s);
}

// Where the fields of the kind's rows stand, so that no name is looked up for each row.
struct Columns {
    Columns(const dao::Recordset &rows, DayKind kind) : m_rows(rows)
    {
        id = rows.fieldIndex(u"ID");
        date = rows.fieldIndex(u"DATE");
        switch (kind) {
        case DayKind::Event:
            text = rows.fieldIndex(u"EVENT");
            subject = rows.fieldIndex(u"SUBJECT");
            dateTo = rows.fieldIndex(u"DATETO");
            break;
        case DayKind::Appointment:
            text = rows.fieldIndex(u"APPOINTMENT");
            time = rows.fieldIndex(u"APPTIME");
            done = rows.fieldIndex(u"MET");
            break;
        case DayKind::Bill:
            text = rows.fieldIndex(u"BILL");
            amount = rows.fieldIndex(u"AMOUNT");
            done = rows.fieldIndex(u"PAID");
            break;
        }
    }
    QString textOf(int column) const
    {
        return column < 0 ? QString() : shownApostrophes(m_rows.Get(column).text()).simplified();
    }

    int id = -1, date = -1, text = -1, time = -1, subject = -1, dateTo = -1, amount = -1, done = -1;

private:
    const dao::Recordset &m_rows;
};

}

DaySpan monthSpan(int year, int month)
{
    const MonthCells cells = monthCells(year, month, 1);
    return {cells.first(), cells.last()};
}

DaySpan yearSpan(int year)
{
    return {basic::DateSerial(year, 1, 1), basic::DateSerial(year, 12, 31)};
}

QString appointmentsQuery(const DaySpan &span, RowOrder order)
{
    return u"select * from APPOINTMENTS where [DATE]"_s + inSpan(span)
           + (order == RowOrder::Listed ? u" ORDER BY [DATE],[APPTIME],[APPOINTMENT] DESC"_s : u" ORDER BY DAY([Date]),[APPOINTMENT]"_s);
}

QString billsQuery(const DaySpan &span, RowOrder order)
{
    return u"select * from BILLS where [DATE]"_s + inSpan(span)
           + (order == RowOrder::Listed ? u" ORDER BY [DATE],[BILL] DESC"_s : u" ORDER BY DAY([Date]),[BILL]"_s);
}

QString eventsQuery(const DaySpan &span, RowOrder order, const QString &category)
{
    static const QString orders[] = {u" ORDER BY [Date],[Subject],[Event]"_s, u" ORDER BY DAY([Date]),[Subject],[Event]"_s,
                                     u" ORDER BY DAY([DATE])"_s};
    return u"select * from EVENTS"_s + whereEvents(span, category) + orders[static_cast<int>(order)];
}

QString toDoQuery()
{
    return u"SELECT [TODO],[PRIORITY] FROM [TODO] WHERE [ACTIONED]=False ORDER BY [PRIORITY],[TODO] "_s;
}

DateTime returnDay(DateTime date, const DaySpan &span)
{
    const DateTime day = date.dayOnly();
    return day < span.first ? basic::DateSerial(span.first.year(), day.month(), day.day()) : day;
}

std::vector<DayEntry> readRows(dao::Database &database, DayKind kind, const QString &query, const DaySpan &span)
{
    std::vector<DayEntry> entries;
    dao::Recordset rows = database.CreateSnapshot(query);
    const Columns at(rows, kind);
    for (; !rows.EOF_(); rows.MoveNext()) {
        const basic::Value date = rows.Get(at.date);
        if (!date.isDate())
            continue;
        DayEntry entry;
        entry.kind = kind;
        entry.began = date.get<DateTime>().dayOnly();
        entry.id = static_cast<qint32>(basic::Val(rows.Get(at.id).text()));
        entry.day = returnDay(entry.began, span);
        entry.text = at.textOf(at.text);
        entry.time = typedTime(at.textOf(at.time));
        entry.subject = at.textOf(at.subject);
        entry.dateTo = at.textOf(at.dateTo);
        if (at.amount >= 0) {
            const basic::Value amount = rows.Get(at.amount);
            entry.amount = amount.type() == basic::ValueType::Currency ? amount.get<basic::Currency>() : basic::Currency();
        }
        if (at.done >= 0) {
            const basic::Value done = rows.Get(at.done);
            entry.isDone = !done.isNull() && basic::CBool(done);
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::vector<DayEntry> readDays(dao::Database &database, const DaySpan &span, const MonthKinds &kinds)
{
    std::vector<DayEntry> all;
    const auto add = [&](bool wanted, DayKind kind, const QString &query) {
        if (!wanted)
            return;
        std::vector<DayEntry> more = readRows(database, kind, query, span);
        if (kind == DayKind::Appointment)
            std::stable_sort(more.begin(), more.end(),
                             [](const DayEntry &a, const DayEntry &b) { return minutesOf(a.time) < minutesOf(b.time); });
        std::move(more.begin(), more.end(), std::back_inserter(all));
    };
    add(kinds.events, DayKind::Event, eventsQuery(span, RowOrder::Listed, kinds.category));
    add(kinds.appointments, DayKind::Appointment, appointmentsQuery(span, RowOrder::Listed));
    add(kinds.bills, DayKind::Bill, billsQuery(span, RowOrder::Listed));
    std::stable_sort(all.begin(), all.end(), [](const DayEntry &a, const DayEntry &b) { return a.day < b.day; });
    return all;
}

std::vector<DayCount> countDays(dao::Database &database, const DaySpan &span)
{
    std::vector<DayCount> counts(static_cast<std::size_t>(placeOf(span, span.last)) + 1);
    const auto add = [&](DayKind kind, const QString &source) {
        dao::Recordset rows = database.CreateSnapshot(source);
        for (; !rows.EOF_(); rows.MoveNext()) {
            const basic::Value date = rows.Get(0);
            if (!date.isDate())
                continue;
            const int place = placeOf(span, returnDay(date.get<DateTime>(), span));
            if (place >= 0 && place < static_cast<int>(counts.size()))
                ++countOf(counts[static_cast<std::size_t>(place)], kind);
        }
    };
    add(DayKind::Event, u"select [DATE] from EVENTS"_s + whereEvents(span, {}));
    add(DayKind::Appointment, u"select [DATE] from APPOINTMENTS where [DATE]"_s + inSpan(span));
    add(DayKind::Bill, u"select [DATE] from BILLS where [DATE]"_s + inSpan(span));
    return counts;
}

std::vector<DayCount> countDays(const std::vector<DayEntry> &entries, const DaySpan &span)
{
    std::vector<DayCount> counts(static_cast<std::size_t>(placeOf(span, span.last)) + 1);
    for (const DayEntry &entry : entries) {
        const int place = placeOf(span, entry.day);
        if (place >= 0 && place < static_cast<int>(counts.size()))
            ++countOf(counts[static_cast<std::size_t>(place)], entry.kind);
    }
    return counts;
}

std::vector<ToDoTask> readToDo(dao::Database &database)
{
    std::vector<ToDoTask> tasks;
    dao::Recordset rows = database.CreateSnapshot(toDoQuery());
    for (; !rows.EOF_(); rows.MoveNext())
        tasks.push_back({shownApostrophes(rows.Get(0).text()).trimmed(), rows.Get(1).text().trimmed()});
    return tasks;
}

bool isOnCalendar(const QString &table)
{
    return QStringList{u"APPOINTMENTS"_s, u"BILLS"_s, u"EVENTS"_s, u"TODO"_s}.contains(table);
}

QStringList GetEventCategories(dao::Database &database)
{
    QStringList categories{u"ALL"_s};
    dao::Recordset rows = database.CreateSnapshot(u"select [Subject] from [SUBJECTS] ORDER BY [Subject]"_s);
    for (; !rows.EOF_(); rows.MoveNext()) {
        const QString subject = rows.Get(0).text().trimmed();
        if (!subject.isEmpty() && !categories.contains(subject))
            categories << subject;
    }
    return categories;
}

QString entryText(const DayEntry &entry)
{
    switch (entry.kind) {
    case DayKind::Appointment:
        return entry.time.isEmpty() ? entry.text : entry.time + u" - "_s + entry.text;
    case DayKind::Bill:
        return entry.text + u' ' + basic::Format(entry.amount, state().settings.gNumberFormat);
    case DayKind::Event:
        break;
    }
    QString text = entry.subject.isEmpty() || entry.text.isEmpty() ? entry.subject + entry.text : entry.subject + u" - "_s + entry.text;
    if (entry.isBack())
        return text + u" (%1)"_s.arg(entry.began.year());
    // It stands on its first day alone, so it says how long it lasts.
    const std::optional<DateTime> end = entry.dateTo.isEmpty() ? std::nullopt : typedDate(entry.dateTo, {});
    if (end && entry.began < end->dayOnly() && !isNoDate(basic::Value(*end)))
        text += u", until "_s + displayDate(*end);
    return text;
}

QString countText(const DayCount &count)
{
    QStringList parts;
    if (count.appointments > 0)
        parts << counted(count.appointments, u"appointment"_s);
    if (count.bills > 0)
        parts << counted(count.bills, u"bill"_s);
    if (count.events > 0)
        parts << counted(count.events, u"event"_s);
    return parts.join(u", "_s);
}

QString dayText(DateTime day, const DayCount &count)
{
    const QString rows = countText(count);
    return basic::Format(day, u"dddd d mmmm yyyy") + (rows.isEmpty() ? QString() : u", "_s + rows);
}

}
