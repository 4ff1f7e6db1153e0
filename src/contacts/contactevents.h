#pragma once

#include "platform/basic/value.h"
#include "platform/dao/dao.h"

#include <optional>

// Birthdays and anniversaries of contacts as rows of the events. A row is a copy: a later change of the contact does not
// reach it.
namespace vorel::contacts {

// The day that a box of a contact shows; nothing for a text that is no date, and for the two days that stand for none.
std::optional<basic::DateTime> contactDay(const QString &text);

struct Birthday {
    QString surname, otherName;
    // "Jo Smith" and "Smith, Jo": an event may bear either.
    QString naturalForm() const;
    QString sortedForm() const;
};
struct BirthdayEvent {
    basic::DateTime date;
    QString picture;
    bool isGreeted = false;
    QString address;                    // for the greeting
    qint32 contact = 0;
};
bool hasEvent(dao::Database &main, const Birthday &birthday);
// Nothing is added where either form is there already. false: added without its picture, whose path an event cannot hold. An error
// for what else is too long.
bool addEvent(dao::Database &main, const Birthday &birthday, const BirthdayEvent &event);
void deleteEvents(dao::Database &main, const Birthday &birthday);

struct Anniversary {
    QString reason, name;
};
bool hasEvent(dao::Database &main, const Anniversary &anniversary);
void addEvent(dao::Database &main, const Anniversary &anniversary, basic::DateTime date, qint32 contact);
void deleteEvents(dao::Database &main, const Anniversary &anniversary);

// "11/23/1984 Sagittarius - Age 42" for the tip of a birthday box; "" for no date.
QString birthdayTip(const QString &text);

}
