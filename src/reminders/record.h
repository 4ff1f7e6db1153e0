#pragma once

#include "platform/basic/value.h"
#include "platform/dao/dao.h"
#include "reminders/recurrence.h"

#include <QStringList>
#include <optional>

// What the screen of an appointment, a bill or an event decides, without its widgets. Texts are those of its controls.
namespace vorel::record {

struct Section {
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
const Section &section(const QString &recordCode);      // an unknown code is served as an appointment

// Adds a row to the recordset: blank, dated today, or with a source number a copy of that row (but for ID and DATE).
// Gives where the new row stands. nullopt: there is no such source row. Engine errors leave no half-made row.
std::optional<dao::Bookmark> addRow(dao::Recordset &rows, const Section &section, const QString &sourceID);

// A day as typed: nullopt when the text is no date or only a time of day.
std::optional<basic::DateTime> dateOf(const QString &text);
QString weekDayOf(const std::optional<basic::DateTime> &date);      // "Sun", "" without a date
QString dayMonthYear(basic::DateTime date);     // a spelling that reads the same under any regional order
double number(const QString &text);                                 // at the text's head; 0 for what is none
QString moneyText(const QString &amount);                           // in the money format
QStringList timeList();                                             // "All Day", then every five minutes from 8 o'clock

// The four date boxes after a save. Those of the last three that hold a date follow the row's date: the settled
// behaviour of this screen.
struct DateBoxes {
    QString date, dateTo, billingDate, paymentDate;
    bool operator==(const DateBoxes &) const = default;
};
DateBoxes FormatDates(const DateBoxes &boxes, const std::optional<basic::DateTime> &date);

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
