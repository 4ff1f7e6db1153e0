#include "reminders/recurrence.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "platform/basic/text.h"
#include "reminders/recurrence_tables.h"
#include "session/state.h"

#include <set>

namespace vorel {

using basic::DateTime;
using namespace Qt::StringLiterals;

namespace recurrence {

const ReminderTable &appointmentsTable()
{
    static const ReminderTable table = {u"Appointments"_s, u"Appointment"_s};
    return table;
}

const ReminderTable &billsTable()
{
    static const ReminderTable table = {u"Bills"_s, u"Bill"_s};
    return table;
}

QString queryDate(DateTime date)
{
    const QDate day = date.date();
    constexpr QChar zero = u'0';
    return u"%1/%2/%3"_s.arg(day.month(), 2, 10, zero).arg(day.day(), 2, 10, zero).arg(day.year(), 4, 10, zero);
}

DateTime lastDayOfNextYear()
{
    return DateTime::fromParts(basic::Date().year() + 1, 12, 31);
}

}

ReminderKind reminderKind(const QString &recordCode)
{
    if (recordCode == u"A")
        return ReminderKind::Appointment;
    return recordCode == u"B" ? ReminderKind::Bill : ReminderKind::Event;
}

namespace {

// One save of a series: its fields, the open file, and the rule at work.
class SeriesWriter {
public:
    SeriesWriter(const SeriesFields &fields, dao::Database &database)
        : m_fields(fields), m_database(database),
          m_table(fields.kind == ReminderKind::Bill ? recurrence::billsTable() : recurrence::appointmentsTable()),
          m_start(basic::CDate(fields.date)), m_days(basic::Val(fields.periodDays)),
          m_months(basic::Val(fields.periodMonth))
    {
    }

    void deleteOthers();
    void createByDays();
    void createByMonths();
    void createByWeekday();

private:
    bool isBill() const { return m_fields.kind == ReminderKind::Bill; }
    void openRule(const QString &condition);
    bool exists(DateTime date) const { return m_taken.contains(date.dayOnly()); }
    void addRow(DateTime date, const basic::Value &amount);
    void updateRow();
    void createInMonth(int year, int month);

    const SeriesFields &m_fields;
    dao::Database &m_database;
    const recurrence::ReminderTable &m_table;
    DateTime m_start;
    double m_days;
    double m_months;
    dao::Recordset m_rows;
    std::set<DateTime> m_taken;     // the days that hold a row of the rule
};

// The text alone tells what belongs to a series: past rows go too, and rows that merely have the same text. The rows of
// the day itself stay.
void SeriesWriter::deleteOthers()
{
    // A quote ends the text within the query. Some such texts would still parse, and delete what nobody meant.
    if (m_fields.text.contains(u'\'')) {
        const QString where = u'[' + m_table.textField + u"]='"_s + m_fields.text + u'\'';
        throw dao::EngineError(3075, u"Syntax error (missing operator) in query expression '"_s + where + u"'."_s,
                               nullptr);
    }
    m_database.Execute(u"DELETE * FROM [%1] WHERE [%2]='"_s.arg(m_table.name, m_table.textField) + m_fields.text
                       + u"' AND [DATE]<>#"_s + recurrence::queryDate(m_start) + u'#');
}

// Looks for rows of the rule, by the fields that it leaves on them. The same question stands for each further day, but
// needs no query there: all other days have just been cleared in this transaction, so they hold only what is made here.
void SeriesWriter::openRule(const QString &condition)
{
    m_taken.clear();
    m_rows = m_database.OpenRecordset(u"select * from ["_s + m_table.name + u"] WHERE [Date]=#"_s
                                          + recurrence::queryDate(m_start) + u"# AND ["_s + m_table.textField + u"]='"_s
                                          + m_fields.text + u"' AND "_s + condition + u';',
                                      dao::dbOpenDynaset);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    if (m_rows.RecordCount() != 0)
        m_taken.insert(m_start.dayOnly());
}

// The fields that the three rules have in common; the row waits for updateRow.
void SeriesWriter::addRow(DateTime date, const basic::Value &amount)
{
    m_rows.AddNew();
    m_rows.Set(u"DATE", date);
    m_rows.Set(u"DAY", basic::Format(date, u"ddd"));
    m_rows.Set(m_table.textField, m_fields.text);
    if (isBill()) {
        m_rows.Set(u"AMOUNT", amount);
    } else {
        m_rows.Set(u"APPTIME", m_fields.time);
        m_rows.Set(u"TimeUpdate", true);    // so that the housekeeping leaves APPTIME alone
    }
    m_rows.Set(u"Delete", m_fields.deleteAfter);
    m_rows.Set(u"PeriodMonth", std::int16_t{0});
    m_rows.Set(u"PeriodDays", std::int16_t{0});
}

void SeriesWriter::updateRow()
{
    m_taken.insert(basic::CDate(m_rows.Get(u"DATE")));
    m_rows.Update();
}

void SeriesWriter::createByDays()
{
    if (m_days <= 0)
        return;
    openRule(u"[PeriodDays]="_s + m_fields.periodDays);
    // Only this rule asks whether the amount is fixed; the others always copy it.
    const basic::Value amount = m_fields.fixedAmount ? basic::Value(m_fields.amount) : basic::Value(std::int16_t{0});
    const DateTime end = recurrence::lastDayOfNextYear();
    for (DateTime date = m_start; date <= end;) {
        if (!exists(date)) {
            addRow(date, amount);
            m_rows.Set(u"DATE", displayDate(date));     // by its shown text, in this rule only
            m_rows.Set(u"PeriodDays", m_days);
            updateRow();
        }
        const DateTime next = basic::DateAdd(u"d", m_days, date);
        if (next <= date)
            return;     // less than half a day: there is no next one
        date = next;
    }
}

// The test comes before the step, so that the last row may lie a period beyond the end; and each step goes from the
// date before, so that a series of the 31st sinks to the 28th and stays there.
void SeriesWriter::createByMonths()
{
    if (m_months <= 0)
        return;
    openRule(u"[PeriodMonth]="_s + m_fields.periodMonth);
    const DateTime end = recurrence::lastDayOfNextYear();
    for (DateTime date = m_start; date <= end;) {
        const DateTime next = basic::DateAdd(u"m", m_months, date);
        if (next <= date)
            return;
        date = next;
        if (exists(date))
            continue;
        addRow(date, m_fields.amount);
        m_rows.Set(u"PeriodMonth", m_months);
        if (isBill())
            m_rows.Set(u"Website", m_fields.website);
        updateRow();
    }
}

void SeriesWriter::createInMonth(int year, int month)
{
    const double wanted = basic::Val(basic::Left(m_fields.weekNum, 1));
    int found = 0;
    DateTime day = DateTime::fromParts(year, month, 1);
    for (; day.month() == month; day = basic::DateAdd(u"d", 1, day)) {
        if (basic::Format(day, u"ddd") == m_fields.weekDay && ++found == wanted)
            break;
    }
    if (day.month() != month || exists(day))
        return;
    addRow(day, m_fields.amount);
    m_rows.Set(u"WeekNum", m_fields.weekNum);
    m_rows.Set(u"WeekDay", m_fields.weekDay);
    updateRow();
}

// The horizon follows the row's own year, and its first month is taken whole: the day found there may lie before it.
void SeriesWriter::createByWeekday()
{
    openRule(u"[WeekNum]='"_s + m_fields.weekNum + u"' AND [WeekDay]='"_s + m_fields.weekDay + u'\'');
    const int year = m_start.year();
    for (int month = m_start.month(); month <= 12; ++month)
        createInMonth(year, month);
    for (int month = 1; month <= 12; ++month)
        createInMonth(year + 1, month);
}

// Runs steps on the main file in one transaction: a kill or an error leaves the series as it was.
void write(const SeriesFields &fields, const std::function<void(SeriesWriter &)> &steps)
{
    if (fields.kind == ReminderKind::Event)
        return;
    dao::Database database = dao::DBEngine::OpenDatabase(state().path(DataFile::Main));
    dao::Transaction all(database);
    SeriesWriter writer(fields, database);
    steps(writer);
    all.Commit();
    database.Close();
}

void createByPeriods(SeriesWriter &writer)
{
    writer.deleteOthers();
    writer.createByDays();
    writer.createByMonths();
}

void createByWeekdays(SeriesWriter &writer)
{
    writer.deleteOthers();
    writer.createByWeekday();
}

// The weekday rule makes nothing unless the row's own date falls on the day chosen; no message says so.
bool weekdayRuleApplies(const SeriesFields &fields)
{
    return fields.weekdayRule && !fields.weekDay.isEmpty() && !fields.weekNum.isEmpty() && basic::IsDate(fields.date)
        && basic::Format(basic::CDate(fields.date), u"ddd") == fields.weekDay;
}

bool periodRuleApplies(const SeriesFields &fields)
{
    return (basic::Val(fields.periodDays) != 0 || basic::Val(fields.periodMonth) != 0) && basic::IsDate(fields.date);
}

}

void DeleteFutureDates(const SeriesFields &fields)
{
    write(fields, [](SeriesWriter &writer) { writer.deleteOthers(); });
}

void CreateFutureDates(const SeriesFields &fields)
{
    write(fields, createByPeriods);
}

void CreateMonthDates(const SeriesFields &fields)
{
    if (basic::IsDate(fields.date))
        write(fields, createByWeekdays);
}

void createSeries(const SeriesFields &fields)
{
    const bool weekdays = weekdayRuleApplies(fields);
    const bool periods = periodRuleApplies(fields);
    if (!weekdays && !periods)
        return;
    write(fields, [=](SeriesWriter &writer) {
        if (weekdays)
            createByWeekdays(writer);
        if (periods)
            createByPeriods(writer);    // begins by removing what the weekday rule made
    });
}

}
