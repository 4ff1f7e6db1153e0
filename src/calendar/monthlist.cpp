#include "calendar/monthlist.h"

#include "session/state.h"

#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

QString heading(const QString &text, bool isFirst)
{
    return u"<p style='margin-top:%1px;margin-bottom:4px'><b>%2</b></p>"_s.arg(isFirst ? 0 : 16).arg(text);
}

QString line(const QString &lead, const QString &text)
{
    return u"<p style='margin-top:0;margin-bottom:4px'>"_s + (lead.isEmpty() ? QString() : lead.toHtmlEscaped() + u"&nbsp; "_s)
           + text.toHtmlEscaped() + u"</p>"_s;
}

}

QString GetCalendarData(dao::Database &database, const DaySpan &span, const ListKinds &kinds)
{
    QString html;
    const auto add = [&](bool wanted, const QString &title, DayKind kind, const QString &query) {
        if (!wanted)
            return;
        html += heading(title, html.isEmpty());
        std::vector<DayEntry> rows = readRows(database, kind, query, span);
        // What comes back stands among the others by its day of this year.
        std::stable_sort(rows.begin(), rows.end(), [](const DayEntry &a, const DayEntry &b) { return a.day < b.day; });
        for (const DayEntry &row : rows)
            html += line(displayDate(row.day), entryText(row));
        if (rows.empty())
            html += line({}, u"None this month."_s);
    };
    add(kinds.reminders.appointments, u"APPOINTMENTS"_s, DayKind::Appointment, appointmentsQuery(span, RowOrder::Listed));
    add(kinds.reminders.bills, u"BILLS"_s, DayKind::Bill, billsQuery(span, RowOrder::Listed));
    add(kinds.reminders.events, u"EVENTS"_s, DayKind::Event, eventsQuery(span, RowOrder::Listed, kinds.reminders.category));
    if (kinds.toDo) {
        html += heading(u"TO DO LIST"_s, html.isEmpty());
        const std::vector<ToDoTask> tasks = readToDo(database);
        for (const ToDoTask &task : tasks)
            html += line(task.priority, task.task);
        if (tasks.empty())
            html += line({}, u"Nothing to do."_s);
    }
    return u"<div style='font-family:Arial'>"_s + html + u"</div>"_s;
}

}
