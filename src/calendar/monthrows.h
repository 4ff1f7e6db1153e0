#pragma once

#include "calendar/month.h"
#include "platform/dao/dao.h"

#include <vector>

// What falls on the days of a month or a year: the reminders of the main file, by the queries that let events return.
namespace vorel {

enum class DayKind { Event, Appointment, Bill };        // in the order in which a day shows them

struct DayEntry {
    DayKind kind = DayKind::Event;
    qint32 id = 0;
    basic::DateTime day;            // on which it stands
    basic::DateTime began;          // the row's own day: earlier for an event that comes back
    QString time;                   // of an appointment, as stored: "09:00 Am"
    QString subject;                // of an event: "BIRTHDAY"
    QString text;
    QString dateTo;                 // of an event that lasts, as stored
    basic::Currency amount;         // of a bill
    bool isDone = false;            // met, paid

    bool isBack() const { return began < day; }
};

// A month, or a whole year; never more than one year.
struct DaySpan {
    basic::DateTime first, last;
};
DaySpan monthSpan(int year, int month);
DaySpan yearSpan(int year);

// What is asked for. A category other than "" and "ALL" narrows which of the recurring events come back.
struct MonthKinds {
    bool appointments = true, bills = true, events = true;
    QString category{};
};

// The queries. Where the rows are listed by their day, the order says so.
enum class RowOrder { Listed, ByDay, Printed };
QString appointmentsQuery(const DaySpan &span, RowOrder order);
QString billsQuery(const DaySpan &span, RowOrder order);
QString eventsQuery(const DaySpan &span, RowOrder order, const QString &category = {});
QString toDoQuery();
// The day on which a row of one of these queries stands: an event of an earlier time is back on its month and day of the
// span's year. One of 29 February stands on 1 March where the year has no such day.
basic::DateTime returnDay(basic::DateTime date, const DaySpan &span);

// The rows of a query in its order; those of readDays day by day, events first, then appointments by their time, then bills.
std::vector<DayEntry> readRows(dao::Database &database, DayKind kind, const QString &query, const DaySpan &span);
std::vector<DayEntry> readDays(dao::Database &database, const DaySpan &span, const MonthKinds &kinds);

// How many rows each day of the span has; the first at 0.
struct DayCount {
    int events = 0, appointments = 0, bills = 0;
    bool isEmpty() const { return events + appointments + bills == 0; }
};
std::vector<DayCount> countDays(dao::Database &database, const DaySpan &span);
std::vector<DayCount> countDays(const std::vector<DayEntry> &entries, const DaySpan &span);

struct ToDoTask {
    QString task, priority;
};
std::vector<ToDoTask> readToDo(dao::Database &database);

bool isOnCalendar(const QString &table);        // its rows stand on days or in the list

// The categories that can be chosen: "ALL" and the subjects.
QStringList GetEventCategories(dao::Database &database);

// The words of a row, whole: "09:00 Am - Dentist", "RENT 450.00", "BIRTHDAY - Mum (1950)".
QString entryText(const DayEntry &entry);
// "2 appointments, 1 bill"; "" for none.
QString countText(const DayCount &count);
// "Monday 23 November 2026, 2 appointments, 1 bill".
QString dayText(basic::DateTime day, const DayCount &count);

}
