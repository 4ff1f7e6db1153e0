#pragma once

#include "platform/basic/value.h"
#include "platform/dao/dao.h"
#include "reminders/recurrence.h"

#include <QStringList>
#include <optional>

// What the screen of an appointment, a bill or an event decides, without its widgets. Texts are those of its controls.
namespace vorel::reminders {

struct ReminderDesign {
    ReminderKind kind;
    QStringView code;           // "A", "B", "E"
    QStringView title;          // of the screen
    QStringView table;
    QStringView textField;      // the field that holds the row's text
    QStringView textControl;
    QStringView picture;
    QStringView frequencyTitle; // of fraBill
    QStringView allRows;        // the query over the whole table
};
const ReminderDesign &reminderDesign(const QString &recordCode);      // an unknown code is served as an appointment

// Adds a row to the recordset: blank, of the day or of today, or with a source number a copy of that row (but for ID and DATE).
// Returns the new row. nullopt: there is no such source row. Engine errors leave no row behind.
std::optional<dao::Bookmark> addRow(dao::Recordset &rows, const ReminderDesign &design, const QString &sourceID,
                                    const std::optional<basic::DateTime> &day = {});

// The rows of the same text on other dates, which the record screen takes for the row's series; 0 for an event, and for a
// text that cannot be looked for.
int otherDates(dao::Database &file, const ReminderDesign &design, qint32 id);
// In one transaction; with the other dates if `whole`.
void deleteRow(dao::Database &file, const ReminderDesign &design, qint32 id, bool whole);

// The day in a stored date or a stored text of one; nullopt: there is none.
std::optional<basic::DateTime> storedDay(const basic::Value &stored);
QString weekDayOf(const std::optional<basic::DateTime> &date);      // "Sun", "" without a date
double number(const QString &text);                                 // at the text's head; 0 without a number
int wholeNumber(const QString &text);                               // rounded as the fields round, kept within a million
qint32 rowNumber(const QString &text);                              // an ID as a box shows it; 0 without one
basic::Value amount(const QString &text);                           // as typed, with its sign and separators
QString moneyText(const QString &amount);                           // in the money format
QStringList timeList();                                             // "All Day", then every five minutes from 8 o'clock
QString savedWords(const SeriesResult &added);                      // "24 further dates up to 12/28/2027"

// The frequency panel. Options: 0 month, 1 quarter, 2 year, 3 nth weekday, 4 every so many days.
inline constexpr int noOption = 5;
struct Frequency {
    bool shown = false;
    int option = noOption;
    QString days;               // cboDays
    bool operator==(const Frequency &) const = default;
};
Frequency frequencyOf(const QString &periodMonth, const QString &periodDays, const QString &weekNum, const QString &weekDay);
std::optional<basic::DateTime> nextDate(int option, const std::optional<basic::DateTime> &date, const QString &days);
struct Period {
    QString months, days;
    bool operator==(const Period &) const = default;
};
Period appliedPeriod(int option, const QString &days);

// Which of an event's greeting controls show.
struct Greeting {
    bool offered = false;       // lblEmail1, chkEmail, lblCard, chkCard
    bool address = false;       // lblEmail2, txtEmail
    bool write = false;         // the e-mail button
    bool card = false;          // lblCardBuy, chkCardBuy, lblCardSent, chkCardSent
    bool operator==(const Greeting &) const = default;
};
bool isBirthday(const QString &subject);
Greeting greetingOf(bool birthday, bool email, const QString &address, const QString &emailID, bool card);
// The address that the linked contact has now; "" if there is no such contact.
QString contactAddress(const QString &emailID);
QStringList subjects();

// What a browser is given for the text of txtWebsite: never a program or a file, whatever the text. "" for a blank one.
QString webAddress(const QString &text);

}
