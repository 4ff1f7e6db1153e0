#pragma once

#include "platform/basic/value.h"

#include <QString>
#include <set>
#include <tuple>
#include <vector>

// The warnings before and after an appointment, decided without a window.
namespace vorel {

struct AppointmentRow {
    qint32 id = 0;
    basic::Value date;          // DATE
    QString time;               // APPTIME: "09:00 Am", "All Day", or whatever was typed
    QString appointment;
    bool met = false;
};

enum class AlertColour { Green, Red };     // before the time; at it and after

struct Alert {
    qint32 id = 0;
    AlertColour colour = AlertColour::Green;
    std::int16_t minutes = 0;   // to the appointment, 0 and less once its time has come
    QString when;               // date, blank, time as typed
    QString caption;            // of the panel
    QString toolTip;
    QString text;               // what a click on the panel shows, five lines
};

struct AlertRule {
    bool on = true;
    int before = 0;             // minutes before the time at which the warning starts
    int after = 0;              // minutes after the time at which it stops
};
AlertRule alertRule();          // as set

// The rows that warn at this moment, in the rows' order: the panel shows the last. `now` is the wall clock; each moment is
// judged by itself, so a clock that was set, or a machine that slept, leaves nothing behind.
std::vector<Alert> alertsFor(const std::vector<AppointmentRow> &rows, const AlertRule &rule, basic::DateTime now);

// Today's appointments in the order of the day, whatever period is on show. Engine errors.
std::vector<AppointmentRow> appointmentsOfToday();

// Which alerts were announced already: each appointment once a colour, whatever the clock does, and again when it is moved.
class AlertLog {
public:
    bool isNew(const Alert &alert) { return m_told.emplace(alert.id, alert.when, alert.colour).second; }

private:
    std::set<std::tuple<qint32, QString, AlertColour>> m_told;
};

// Plays the chosen sound if PlaySound allows it.
void SoundReminder();

// POPAPPS.TXT for the pop-up program: a line for each row of the current appointments query, in UTF-8. True if the query
// has rows. Engine errors; error 75 with the file's name when it cannot be written.
bool writeAppointsFile();
// A program of the program folder, whatever the case of its name; false if it is not there or does not start.
bool startProgram(const QString &name);
bool hasProgram(const QString &name);

}
