#include "reminders/record.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "platform/basic/text.h"
#include "session/datafiles.h"
#include "session/datetexts.h"
#include "session/state.h"

#include <algorithm>
#include <array>
#include <limits>

namespace vorel::reminders {

using namespace Qt::StringLiterals;
using basic::DateTime;

namespace {

constexpr std::array<ReminderDesign, 3> designs{{
    {ReminderKind::Appointment, u"A", u"Appointment", u"Appointments", u"APPOINTMENT", u"txtAppointment", u"appoints",
     u" Frequency ", u"select * from [APPOINTMENTS] ORDER BY [DATE],[APPTIME],[APPOINTMENT]"},
    {ReminderKind::Bill, u"B", u"Bill", u"Bills", u"BILL", u"txtBill", u"appoints",
     u" Payment Frequency ", u"select * from [BILLS] ORDER BY [DATE],[BILL],[AMOUNT]"},
    {ReminderKind::Event, u"E", u"Event", u"Events", u"EVENT", u"txtEvent", u"events",
     u"", u"select * from [EVENTS] ORDER BY [DATE],[DATETO],[SUBJECT],[EVENT]"},
}};

bool same(QStringView a, QStringView b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

void copyRow(const dao::Recordset &source, dao::Recordset &rows)
{
    for (const dao::RecordsetField &field : source.Fields()) {
        if (same(field.Name, u"ID"))
            continue;
        if (same(field.Name, u"DATE"))
            rows.Set(field.Name, basic::Date());
        else
            rows.Set(field.Name, source.Get(field.Name));
    }
}

void fillRow(dao::Recordset &rows, const ReminderDesign &design, const dao::Recordset &source, DateTime day)
{
    rows.Set(u"UsersName", state().settings.gUserName);
    if (source)
        copyRow(source, rows);
    else
        rows.Set(u"DATE", day);
    if (design.kind != ReminderKind::Appointment)
        return;
    if (!source)
        rows.Set(u"APPTIME", basic::Format(basic::Now(), u"hh:mm am/pm"));
    // Otherwise the housekeeping would overwrite the time with the one that older files kept elsewhere.
    rows.Set(u"TimeUpdate", true);
}

}

const ReminderDesign &reminderDesign(const QString &recordCode)
{
    for (const ReminderDesign &design : designs) {
        if (same(recordCode, design.code))
            return design;
    }
    return designs.front();
}

namespace {

// What a series is looked for by.
SeriesFields storedSeries(dao::Database &file, const ReminderDesign &design, qint32 id)
{
    SeriesFields fields;
    fields.kind = design.kind;
    const dao::Recordset row = file.CreateSnapshot(u"SELECT * FROM [%1] WHERE [ID]="_s.arg(design.table) + dao::literal(id));
    if (row.EOF_())
        return fields;
    fields.text = row.Get(design.textField).text();
    fields.date = storedDay(row.Get(u"DATE"));
    return fields;
}

}

int otherDates(dao::Database &file, const ReminderDesign &design, qint32 id)
{
    const SeriesFields fields = storedSeries(file, design, id);
    if (fields.kind == ReminderKind::Event || !fields.date || fields.text.trimmed().isEmpty() || !canHaveSeries(fields))
        return 0;
    const dao::Recordset others = file.CreateSnapshot(
        u"SELECT COUNT(*) FROM [%1] WHERE [%2]="_s.arg(design.table, design.textField) + dao::literal(fields.text)
        + u" AND [DATE]<>"_s + dao::literal(*fields.date));
    return basic::CLng(others.Get(0));
}

void deleteRow(dao::Database &file, const ReminderDesign &design, qint32 id, bool whole)
{
    dao::Transaction all(file);
    if (whole)
        DeleteFutureDates(file, storedSeries(file, design, id));
    file.Execute(u"DELETE * FROM [%1] WHERE [ID]="_s.arg(design.table) + dao::literal(id));
    all.Commit();
}

std::optional<dao::Bookmark> addRow(dao::Recordset &rows, const ReminderDesign &design, const QString &sourceID,
                                    const std::optional<DateTime> &day)
{
    dao::Database file;
    dao::Recordset source;
    if (const QString id = basic::Trim(sourceID); !id.isEmpty()) {
        file = openDataFile(DataFile::Main);
        source = file.CreateSnapshot(u"select * from [%1] WHERE [ID]="_s.arg(design.table) + dao::literal(rowNumber(id)) + u';');
        dao::DBEngine::Idle(dao::dbRefreshCache);
        if (source.RecordCount() == 0)
            return std::nullopt;
    }
    dao::NewRow row(rows);
    fillRow(rows, design, source, day.value_or(basic::Date()));
    row.save();
    return rows.LastModified();
}

std::optional<DateTime> storedDay(const basic::Value &stored)
{
    if (stored.isDate())
        return stored.get<DateTime>().dayOnly();
    return typedDate(stored.text(), {});        // stored texts are the region's
}

QString weekDayOf(const std::optional<DateTime> &date)
{
    return date ? basic::Format(*date, u"ddd") : QString();
}

double number(const QString &text) { return basic::valOr(text, 0); }

int wholeNumber(const QString &text)
{
    constexpr double most = 1'000'000;
    return static_cast<int>(std::clamp(basic::Round(number(text)), -most, most));
}

qint32 rowNumber(const QString &text)
{
    constexpr double most = std::numeric_limits<qint32>::max();
    return static_cast<qint32>(std::clamp(number(text), -most, most));
}

// An amount typed with its sign or separators is read whole; Val alone would cut "1,250.00" to 1.
basic::Value amount(const QString &text)
{
    return basic::IsNumeric(text) ? basic::Value(basic::CDbl(text)) : basic::Value(number(text));
}

QString moneyText(const QString &text) { return basic::Format(amount(text), state().settings.gNumberFormat); }

QString savedWords(const SeriesResult &added)
{
    if (added.rows == 0)
        return u"Saved"_s;
    const QString dates = added.rows == 1 ? u"1 further date on "_s : u"%1 further dates up to "_s.arg(added.rows);
    return dates + displayDate(*added.last);
}

QStringList timeList()
{
    QStringList times{u"All Day"_s};
    for (int minute = 8 * 60; minute < 24 * 60; minute += 5)
        times += basic::Format(basic::TimeSerial(0, minute, 0), u"hh:mm am/pm");
    return times;
}

Frequency frequencyOf(const QString &periodMonth, const QString &periodDays, const QString &weekNum, const QString &weekDay)
{
    Frequency panel;
    const double months = number(periodMonth);
    const bool byDays = number(periodDays) != 0;
    if (!basic::Trim(weekNum).isEmpty())
        panel.option = 3;
    if (byDays) {
        panel.option = 4;
        panel.days = periodDays;
    }
    if (months == 1)
        panel.option = 0;
    else if (months == 2 || months == 3)    // two months show as a quarter: the panel has no option of their own for them
        panel.option = 1;
    else if (months == 12)
        panel.option = 2;
    panel.shown = byDays || months != 0 || number(weekNum) != 0 || !weekDay.isEmpty();
    return panel;
}

std::optional<DateTime> nextDate(int option, const std::optional<DateTime> &date, const QString &days)
{
    constexpr std::array<int, 3> months{1, 3, 12};
    // A day count that leads out of the calendar shows nothing.
    if (date && option >= 0 && option < 3)
        return basic::tryDateAdd(u"m", months[static_cast<std::size_t>(option)], *date);
    if (date && option == 4)
        return basic::tryDateAdd(u"d", number(days), *date);
    return std::nullopt;
}

Period appliedPeriod(int option, const QString &days)
{
    switch (option) {
    case 0: return {u"1"_s, u"0"_s};
    case 1: return {u"3"_s, u"0"_s};
    case 2: return {u"12"_s, u"0"_s};
    case 4: return {u"0"_s, basic::Value(basic::Round(number(days))).text()};   // no half days
    default: return {u"0"_s, u"0"_s};
    }
}

bool isBirthday(const QString &subject) { return same(basic::Trim(subject), u"BIRTHDAY"); }

Greeting greetingOf(bool birthday, bool email, const QString &address, const QString &emailID, bool card)
{
    if (!birthday)
        return {};
    // An address that no contact gave stays hidden until the greeting is ticked again.
    return {true, email && number(emailID) != 0, !address.isEmpty(), card};
}

QString contactAddress(const QString &emailID)
{
    dao::Database contacts = openDataFile(DataFile::Contacts);
    const dao::Recordset rows =
        contacts.CreateSnapshot(u"SELECT [EMAIL1ADDRESS] FROM [CONTACTS] WHERE [ID]="_s + dao::literal(rowNumber(emailID)) + u';');
    return rows.RecordCount() == 0 ? QString() : rows.Get(u"EMAIL1ADDRESS").text();
}

QStringList subjects()
{
    QStringList names;
    dao::Database file = openDataFile(DataFile::Main);
    dao::Recordset rows = file.CreateSnapshot(u"select * from [Subjects];"_s);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    for (; !rows.EOF_(); rows.MoveNext())
        names += rows.Get(u"SUBJECT").text();
    return names;
}

QString webAddress(const QString &text)
{
    const QString address = text.trimmed();
    if (address.isEmpty())
        return {};
    for (const QStringView scheme : {u"http://", u"https://"}) {
        if (address.startsWith(scheme, Qt::CaseInsensitive))
            return address;
    }
    return u"http://"_s + address;
}

}
