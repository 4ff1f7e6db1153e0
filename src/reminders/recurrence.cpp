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

// The rows on a day within a query.
QString onDay(DateTime day) { return u"[Date]="_s + dao::literal(day); }

// One save of a series: its fields, the open file, and the rule at work.
class SeriesWriter {
public:
    SeriesWriter(const SeriesFields &fields, dao::Database &database)
        : m_fields(fields), m_database(database),
          m_table(fields.kind == ReminderKind::Bill ? recurrence::billsTable() : recurrence::appointmentsTable()),
          m_start(fields.date->dayOnly())
    {
    }

    void deleteOthers();
    void createByPeriods();
    void createByWeekday();
    const SeriesResult &result() const { return m_result; }

private:
    bool isBill() const { return m_fields.kind == ReminderKind::Bill; }
    void createByDays();
    void createByMonths();
    void createInMonth(int year, int month);
    void openRule(const QString &condition);
    bool exists(DateTime date) const { return m_taken.contains(date); }
    void addRow(DateTime date, const basic::Value &amount, const std::function<void(dao::NewRow &)> &more);

    const SeriesFields &m_fields;
    dao::Database &m_database;
    const recurrence::ReminderTable &m_table;
    DateTime m_start;
    dao::Recordset m_rows;
    std::set<DateTime> m_taken;     // the days that hold a row of the rule
    SeriesResult m_result;
};

// The text alone decides what belongs to a series: past rows go too, and rows that merely have the same text. The rows of
// the day itself stay. Rows without a text have nothing in common and stay too.
void SeriesWriter::deleteOthers()
{
    // Some texts with a quote would still parse, and delete the wrong rows.
    if (!canHaveSeries(m_fields))
        throw dao::EngineError(dao::err::QuerySyntax, u"The text \""_s + m_fields.text + u"\" holds an apostrophe, so its series cannot be changed."_s,
                               nullptr);
    m_result = {};
    m_database.Execute(u"DELETE * FROM [%1] WHERE [%2]="_s.arg(m_table.name, m_table.textField) + dao::asTyped(m_fields.text)
                       + u" AND [DATE]<>"_s + dao::literal(m_start));
}

// Looks for rows of the rule, by the fields that it leaves on them. The same question holds for each further day, but
// needs no query there: all other days have just been cleared in this transaction, so they hold only what is added here.
// Rows without a text have not been cleared, and are stored without one: their days are asked for.
void SeriesWriter::openRule(const QString &condition)
{
    m_taken.clear();
    const QString query = u"select * from ["_s + m_table.name + u"] WHERE "_s;
    const QString own = m_fields.text.isEmpty()
        ? u"([%1] IS NULL OR [%1]='')"_s.arg(m_table.textField)
        : onDay(m_start) + u" AND ["_s + m_table.textField + u"]="_s + dao::asTyped(m_fields.text);
    m_rows = m_database.OpenRecordset(query + own + u" AND "_s + condition + u';', dao::dbOpenDynaset);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    for (; !m_rows.EOF_(); m_rows.MoveNext()) {
        if (const basic::Value date = m_rows.Get(u"DATE"); date.isDate())
            m_taken.insert(date.get<DateTime>().dayOnly());
    }
}

// The fields that the three rules have in common, and those of the rule.
void SeriesWriter::addRow(DateTime date, const basic::Value &amount, const std::function<void(dao::NewRow &)> &more)
{
    dao::NewRow row(m_rows);
    row.set(u"DATE", date).set(u"DAY", basic::Format(date, u"ddd"));
    if (!m_fields.text.isEmpty())
        row.set(m_table.textField, m_fields.text);
    if (isBill())
        row.set(u"AMOUNT", amount);
    else
        row.set(u"APPTIME", m_fields.time).set(u"TimeUpdate", true);     // so that the housekeeping leaves APPTIME alone
    row.set(u"Delete", m_fields.deleteAfter);
    row.set(u"PeriodMonth", std::int16_t{0}).set(u"PeriodDays", std::int16_t{0});
    more(row);
    row.save();
    m_taken.insert(date);
    ++m_result.rows;
    m_result.last = std::max(m_result.last.value_or(date), date);
}

void SeriesWriter::createByDays()
{
    if (m_fields.days <= 0)
        return;
    openRule(u"[PeriodDays]="_s + dao::literal(m_fields.days));
    // Only this rule asks whether the amount is fixed; the others always copy it.
    const basic::Value amount = m_fields.fixedAmount ? m_fields.amount : basic::Value(std::int16_t{0});
    const DateTime end = recurrence::lastDayOfNextYear();
    for (DateTime date = m_start; date <= end; date = basic::DateAdd(u"d", m_fields.days, date)) {
        if (!exists(date))
            addRow(date, amount, [&](dao::NewRow &row) { row.set(u"PeriodDays", m_fields.days); });
    }
}

// The test comes before the step, so that the last row may lie a period beyond the end; and each step goes from the
// date before, so that a series of the 31st sinks to the 28th and stays there.
void SeriesWriter::createByMonths()
{
    if (m_fields.months <= 0)
        return;
    openRule(u"[PeriodMonth]="_s + dao::literal(m_fields.months));
    const DateTime end = recurrence::lastDayOfNextYear();
    for (DateTime date = m_start; date <= end;) {
        date = basic::DateAdd(u"m", m_fields.months, date);
        if (exists(date))
            continue;
        addRow(date, m_fields.amount, [&](dao::NewRow &row) {
            row.set(u"PeriodMonth", m_fields.months);
            if (isBill())
                row.set(u"Website", m_fields.website);
        });
    }
}

void SeriesWriter::createInMonth(int year, int month)
{
    const double wanted = basic::valOr(basic::Left(m_fields.weekNum, 1), 0);
    int found = 0;
    DateTime day = DateTime::fromParts(year, month, 1);
    for (; day.month() == month; day = basic::DateAdd(u"d", 1, day)) {
        if (basic::Format(day, u"ddd") == m_fields.weekDay && ++found == wanted)
            break;
    }
    if (day.month() != month || exists(day))
        return;
    addRow(day, m_fields.amount,
           [&](dao::NewRow &row) { row.set(u"WeekNum", m_fields.weekNum).set(u"WeekDay", m_fields.weekDay); });
}

// The horizon follows the row's own year, and its first month is taken whole: the day found there may lie before it.
void SeriesWriter::createByWeekday()
{
    deleteOthers();
    openRule(u"[WeekNum]="_s + dao::literal(m_fields.weekNum) + u" AND [WeekDay]="_s + dao::literal(m_fields.weekDay));
    const int year = m_start.year();
    for (int month = m_start.month(); month <= 12; ++month)
        createInMonth(year, month);
    for (int month = 1; month <= 12; ++month)
        createInMonth(year + 1, month);
}

void SeriesWriter::createByPeriods()
{
    deleteOthers();
    createByDays();
    createByMonths();
}

// Runs steps in one transaction: a kill or an error leaves the series as it was.
SeriesResult write(dao::Database &database, const SeriesFields &fields, const std::function<void(SeriesWriter &)> &steps)
{
    if (fields.kind == ReminderKind::Event || !fields.date)
        return {};
    dao::Transaction all(database);
    SeriesWriter writer(fields, database);
    steps(writer);
    all.Commit();
    return writer.result();
}

// The weekday rule adds nothing unless the row's own date falls on the day chosen; no message says so.
bool weekdayRuleApplies(const SeriesFields &fields)
{
    return fields.weekdayRule && !fields.weekDay.isEmpty() && !fields.weekNum.isEmpty() && fields.date
        && basic::Format(*fields.date, u"ddd") == fields.weekDay;
}

bool periodRuleApplies(const SeriesFields &fields)
{
    return (fields.days != 0 || fields.months != 0) && fields.date;
}

}

bool canHaveSeries(const SeriesFields &fields)
{
    return !fields.text.contains(u'\'');
}

int seriesLength(const SeriesFields &fields)
{
    if (fields.kind == ReminderKind::Event || !periodRuleApplies(fields))
        return 0;
    const DateTime end = recurrence::lastDayOfNextYear();
    if (*fields.date > end)
        return 0;
    const int byDays = fields.days > 0 ? basic::DateDiff(u"d", *fields.date, end) / fields.days : 0;
    const int byMonths = fields.months > 0 ? basic::DateDiff(u"m", *fields.date, end) / fields.months + 1 : 0;
    return byDays + byMonths;
}

void DeleteFutureDates(dao::Database &database, const SeriesFields &fields)
{
    write(database, fields, [](SeriesWriter &writer) { writer.deleteOthers(); });
}

SeriesResult CreateFutureDates(dao::Database &database, const SeriesFields &fields)
{
    return write(database, fields, [](SeriesWriter &writer) { writer.createByPeriods(); });
}

SeriesResult CreateMonthDates(dao::Database &database, const SeriesFields &fields)
{
    return write(database, fields, [](SeriesWriter &writer) { writer.createByWeekday(); });
}

SeriesResult createSeries(dao::Database &database, const SeriesFields &fields)
{
    const bool weekdays = weekdayRuleApplies(fields);
    const bool periods = periodRuleApplies(fields);
    if (!weekdays && !periods)
        return {};
    return write(database, fields, [=](SeriesWriter &writer) {
        if (weekdays)
            writer.createByWeekday();
        if (periods)
            writer.createByPeriods();   // begins by removing what the weekday rule added
    });
}

}
