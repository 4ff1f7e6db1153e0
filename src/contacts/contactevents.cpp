#include "contacts/contactevents.h"

#include "platform/basic/clock.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "session/datetexts.h"
#include "session/ini.h"
#include "session/recordtree.h"
#include "session/shared.h"
#include "session/state.h"

#include <limits>

namespace vorel::contacts {

using namespace Qt::StringLiterals;
using basic::DateTime;
using records::MixedCaseName;

namespace {

bool isFound(dao::Database &main, const QString &condition)
{
    return !main.OpenRecordset(u"select * from [Events] WHERE "_s + condition + u';').EOF_();
}

QString birthdayIs(const QString &form)
{
    return u"UCASE([Subject])='BIRTHDAY' AND [EVENT]="_s + dao::literal(form);
}

QString anniversaryIs(const Anniversary &anniversary)
{
    return u"UCASE([Subject])="_s + dao::literal(anniversary.reason.toUpper()) + u" AND [EVENT]="_s + dao::literal(anniversary.name);
}

int sizeOf(const dao::Recordset &rows, QStringView field)
{
    return rows.Fields()[static_cast<std::size_t>(rows.fieldIndex(field))].Size;
}

QString fitting(const dao::Recordset &events, QStringView field, const QString &what, const QString &text)
{
    if (const int most = sizeOf(events, field); text.size() > most)
        throw basic::Error(dao::err::TooLong, u"%1 is too long for an event: %2 of %3 characters."_s.arg(what).arg(text.size()).arg(most));
    return text;
}

// The number of an e-mail's contact is a short one; the contact's own field holds any.
qint32 mailNumber(qint32 contact)
{
    return contact <= std::numeric_limits<qint16>::max() ? contact : 0;
}

}

std::optional<DateTime> contactDay(const QString &text)
{
    const std::optional<DateTime> day = typedDate(text, state().settings.gDateShort);
    return day && isNoDate(*day) ? std::nullopt : day;
}

QString Birthday::naturalForm() const
{
    return (otherName.trimmed() + u' ' + surname.trimmed()).trimmed();
}

QString Birthday::sortedForm() const
{
    return surname.trimmed() + u", "_s + otherName.trimmed();
}

bool hasEvent(dao::Database &main, const Birthday &birthday)
{
    return isFound(main, birthdayIs(birthday.naturalForm()) + u" OR "_s + birthdayIs(birthday.sortedForm()));
}

bool addEvent(dao::Database &main, const Birthday &birthday, const BirthdayEvent &event)
{
    dao::Transaction all(main);
    if (hasEvent(main, birthday))
        return true;
    const bool natural = GetIniValue(iniSettings, u"BirthdayFormat"_s, u"FIRSTNAME/S LASTNAME"_s).toUpper() == u"FIRSTNAME/S LASTNAME";
    dao::Recordset events = main.OpenRecordset(u"Events"_s);
    const bool hasRoom = event.picture.size() <= sizeOf(events, u"FILENAME");
    const QString name = MixedCaseName(natural ? birthday.naturalForm() : birthday.sortedForm());
    dao::NewRow(events)
        .set(u"Date", event.date)
        .set(u"Subject", u"Birthday"_s)
        .set(u"FILENAME", hasRoom ? event.picture : QString())
        .set(u"EMAIL", event.isGreeted)
        .set(u"EMAILADDRESS", fitting(events, u"EMAILADDRESS", u"The e-mail address"_s, event.address))
        .set(u"EMAILID", mailNumber(event.contact))
        .set(u"CONTACTID", event.contact)
        .set(u"EVENT", fitting(events, u"EVENT", u"The name"_s, name))
        .save();
    all.Commit();
    return hasRoom;
}

void deleteEvents(dao::Database &main, const Birthday &birthday)
{
    dao::Transaction all(main);
    for (const QString &form : {birthday.naturalForm(), birthday.sortedForm()})
        main.Execute(u"DELETE * FROM [EVENTS] WHERE "_s + birthdayIs(MixedCaseName(form)) + u';');
    all.Commit();
}

bool hasEvent(dao::Database &main, const Anniversary &anniversary)
{
    return isFound(main, anniversaryIs(anniversary));
}

void addEvent(dao::Database &main, const Anniversary &anniversary, DateTime date, qint32 contact)
{
    dao::Transaction all(main);
    if (hasEvent(main, anniversary))
        return;
    dao::Recordset events = main.OpenRecordset(u"Events"_s);
    dao::NewRow(events)
        .set(u"Date", date)
        .set(u"Subject", fitting(events, u"Subject", u"The reason \"%1\""_s.arg(anniversary.reason), anniversary.reason))
        .set(u"CONTACTID", contact)
        .set(u"EVENT", MixedCaseName(anniversary.name))
        .save();
    all.Commit();
}

void deleteEvents(dao::Database &main, const Anniversary &anniversary)
{
    main.Execute(u"DELETE * FROM [EVENTS] WHERE "_s + anniversaryIs(anniversary));
}

QString birthdayTip(const QString &text)
{
    const std::optional<DateTime> day = contactDay(text);
    if (!day)
        return {};
    constexpr int daysAYear = 365;
    const int age = basic::DateDiff(u"d", *day, basic::Date()) / daysAYear;
    return shortDate(*day) + u' ' + GetStarSign(*day).trimmed() + u" - Age "_s + QString::number(age);
}

}
