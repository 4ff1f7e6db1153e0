#include "reminders/alerts.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/basic/format.h"
#include "platform/basic/text.h"
#include "platform/desktop/desktop.h"
#include "session/datetexts.h"
#include "session/shared.h"
#include "session/state.h"

#include <QSaveFile>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;

namespace {

constexpr int userSound = 6;             // the user's own file; 1 to 5 are the program's
constexpr int pathError = 75;           // "Path/File access error"

QString longText(const Alert &alert, const AppointmentRow &row, DateTime now)
{
    const QStringList lines{
        u" Appointment scheduled for \t"_s + alert.when,
        u" It is Now \t"_s + displayDate(now.dayOnly()) + u' ' + basic::Format(now, u"hh:mm am/pm"),
        QString::number(alert.minutes) + u" minute/s remaining"_s,
        QString(85, u'-'),
        shownApostrophes(row.appointment),
    };
    return lines.join(u'\n');
}

// The minutes from now to the time of today; nothing for a text that is not a time ("All Day"). The date goes before it in the
// region's own form: the display format may be one that does not read back.
std::optional<std::int16_t> minutesTo(const QString &timeText, DateTime now)
{
    const QString when = shortDate(now.dayOnly()) + u' ' + timeText;
    if (!basic::IsDate(when))
        return std::nullopt;
    const DateTime time = basic::CDate(when);
    const DateTime moment(now.dayOnly().serial() + time.serial() - time.dayOnly().serial());
    return static_cast<std::int16_t>(basic::DateDiff(u"n", now, moment));
}

QString quoted(const QString &text)
{
    return u'"' + text + u'"';          // a quote inside stays as it is: the pop-up program reads the file so
}

}

AlertRule alertRule()
{
    return {state().settings.gAppointmentWarning, state().settings.gWarnBefore, state().settings.gWarnAfter};
}

std::vector<Alert> alertsFor(const std::vector<AppointmentRow> &rows, const AlertRule &rule, DateTime now)
{
    std::vector<Alert> alerts;
    if (!rule.on || (rule.before == 0 && rule.after == 0))
        return alerts;
    const QString today = displayDate(now.dayOnly());
    for (const AppointmentRow &row : rows) {
        const QString date = displayDate(row.date);
        if (row.met || basic::Trim(row.time).isEmpty() || date != today)
            continue;
        Alert alert;
        // Files of before hold "09:00 Am" beside "09:00 am".
        const QString time = typedTime(row.time);
        alert.when = date + u' ' + time;
        const std::optional<std::int16_t> minutes = minutesTo(row.time, now);
        if (!minutes)
            continue;
        if (*minutes >= 1 && *minutes <= rule.before)
            alert.colour = AlertColour::Green;
        else if (*minutes > -rule.after && *minutes < 1)
            alert.colour = AlertColour::Red;
        else
            continue;
        alert.id = row.id;
        alert.minutes = *minutes;
        alert.caption = u" Appointment Reminder "_s + time + u' ';
        alert.toolTip = u" Appointment scheduled for "_s + alert.when + u' ';
        alert.text = longText(alert, row, now);
        alerts.push_back(std::move(alert));
    }
    return alerts;
}

ReminderQuery appointmentsOf(DateTime day)
{
    return {.from = u"select * from APPOINTMENTS"_s,
            .order = u"[APPTIME],[APPOINTMENT] DESC"_s,
            .narrowing = u"[DATE]>=#%1# and [DATE]<#%2#"_s.arg(sqlDate(day), sqlDate(basic::DateAdd(u"d", 1, day)))};
}

std::vector<AppointmentRow> appointmentsOfToday()
{
    std::vector<AppointmentRow> rows;
    if (!state().gMainDb)
        return rows;
    dao::Recordset set = state().gMainDb.CreateSnapshot(appointmentsOf(basic::Date()).text());
    dao::DBEngine::Idle(dao::dbRefreshCache);
    for (; !set.EOF_(); set.MoveNext()) {
        const dao::Value met = set.Get(u"MET");
        rows.push_back({basic::CLng(set.Get(u"ID")), set.Get(u"DATE"), set.Get(u"APPTIME").text(),
                        set.Get(u"APPOINTMENT").text(), !met.isNull() && basic::CBool(met)});
    }
    set.Close();
    return rows;
}

void SoundReminder()
{
    PlaySoundNumber(userSound);
}

bool writeAppointsFile()
{
    QString lines;
    bool any = false;
    if (state().gMainDb && !state().period.gSqlAppointments.isEmpty()) {
        dao::Recordset set = state().gMainDb.CreateSnapshot(state().period.gSqlAppointments);
        for (; !set.EOF_(); set.MoveNext()) {
            any = true;
            const dao::Value met = set.Get(u"MET");
            const QStringList fields{quoted(set.Get(u"DATE").text()), quoted(set.Get(u"APPTIME").text()),
                                     quoted(set.Get(u"APPOINTMENT").text()),
                                     quoted(!met.isNull() && basic::CBool(met) ? u"True"_s : u"False"_s),
                                     quoted(set.Get(u"ID").text())};
            lines += fields.join(u',') + u"\r\n"_s;
        }
        set.Close();
    }
    QSaveFile file(basic::realPath(basic::programFolder() + u"/POPAPPS.TXT"_s));
    const QByteArray bytes = lines.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw basic::Error(pathError, u"The file cannot be written: "_s + file.fileName());
    return any;
}

bool hasProgram(const QString &name)
{
    return !basic::Dir(basic::programFolder() + u'/' + name).isEmpty();
}

bool startProgram(const QString &name)
{
    return hasProgram(name) && desktop::ShellExecute(basic::realPath(basic::programFolder() + u'/' + name));
}

}
