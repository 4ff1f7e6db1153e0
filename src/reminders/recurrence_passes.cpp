#include "reminders/recurrence.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/prompts.h"
#include "reminders/recurrence_tables.h"
#include "session/datafiles.h"
#include "session/ini.h"
#include "session/state.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

// The two passes of every start. Both must cost little over 100,000 rows of which hardly any needs a change: they ask
// for the rows that may need one, and write to no other.
namespace vorel {

using basic::DateTime;
using dao::Recordset;
using namespace Qt::StringLiterals;

namespace {

// An error ends the pass, but what was done before it is kept: each row was complete.
void commitWhatWasDone(const std::function<void(dao::Database &)> &pass)
{
    dao::Database database = openDataFile(DataFile::Main);
    dao::Transaction all(database);
    try {
        pass(database);
    } catch (const basic::Error &) {
        all.Commit();
        throw;
    }
    all.Commit();
    database.Close();
}

// The days of each repeating text, so that the rows of a full series, which all have the same spelling, need no query. What
// it does not know is left to the query.
class Occurrences {
public:
    void add(const QString &text, DateTime date)
    {
        if (!date.hasTime())
            m_keys.push_back(key(idOf(text), date));
    }
    void finish() { std::sort(m_keys.begin(), m_keys.end()); }
    bool surelyHas(const QString &text, DateTime date) const
    {
        const auto id = m_ids.find(text);
        if (id == m_ids.end())
            return false;
        const quint64 wanted = key(id->second, date);
        return std::binary_search(m_keys.begin(), m_keys.end(), wanted) && !m_left.contains(wanted);
    }
    // A row of this text has moved away from the day.
    void leave(const QString &text, DateTime date) { m_left.insert(key(idOf(text), date)); }

private:
    struct Hash {
        std::size_t operator()(const QString &text) const { return qHash(text); }
    };
    static quint64 key(quint32 id, DateTime date)
    {
        return quint64{id} << 32 | static_cast<quint32>(static_cast<qint32>(date.serial()));
    }
    quint32 idOf(const QString &text)
    {
        return m_ids.try_emplace(text, static_cast<quint32>(m_ids.size())).first->second;
    }

    std::unordered_map<QString, quint32, Hash> m_ids;
    std::vector<quint64> m_keys;
    std::unordered_set<quint64> m_left;
};

struct PastRow {
    dao::Bookmark mark;
    QString text;
    DateTime date;
    double months;
    double days;
};

double period(const basic::Value &value)
{
    return value.isNumber() ? basic::CDbl(value) : 0;
}

// A period from a damaged or imported file may lead out of the calendar: the row is not moved.
std::optional<DateTime> stepped(QStringView interval, double number, DateTime date)
{
    const std::optional<DateTime> day = basic::tryDateAdd(interval, number, date);
    return day ? std::optional(day->dayOnly()) : std::nullopt;      // a time of day does not outlive the date format
}

// A text with a quote cannot be part of the query for the next row.
bool canRoll(const QString &text) { return !text.contains(u'\''); }

class RollForward {
public:
    RollForward(dao::Database &database, const recurrence::ReminderTable &table)
        : m_database(database), m_table(table), m_today(basic::Date())
    {
    }
    void run();
    const QStringList &left() const { return m_left; }

private:
    void read(Recordset &rows);
    bool staysAt(const PastRow &row) const;
    void roll(Recordset &rows, const PastRow &row);
    void moveTo(Recordset &rows, const QString &text, DateTime day);
    bool exists(const QString &text, DateTime date);

    dao::Database &m_database;
    const recurrence::ReminderTable &m_table;
    DateTime m_today;
    Occurrences m_occurrences;
    std::vector<PastRow> m_past;
    QStringList m_left;             // the texts of rows that cannot be carried forward
};

void RollForward::run()
{
    Recordset rows = m_database.OpenRecordset(
        u"select * from [%1] WHERE [PeriodMonth]<>0 or [PeriodDays]<>0 ;"_s.arg(m_table.name), dao::dbOpenDynaset);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    read(rows);
    for (const PastRow &row : m_past) {
        if (staysAt(row))
            continue;
        if (!canRoll(row.text)) {
            m_left << row.text;
            continue;
        }
        rows.setBookmark(row.mark);
        roll(rows, row);
    }
    rows.Close();
}

void RollForward::read(Recordset &rows)
{
    const int textColumn = rows.fieldIndex(m_table.textField);
    const int dateColumn = rows.fieldIndex(u"Date");
    const int monthsColumn = rows.fieldIndex(u"PeriodMonth");
    const int daysColumn = rows.fieldIndex(u"PeriodDays");
    for (; !rows.EOF_(); rows.MoveNext()) {
        const basic::Value dateValue = rows.Get(dateColumn);
        if (!dateValue.isDate())
            continue;       // none, or unreadable in the file
        const basic::Value text = rows.Get(textColumn);
        const DateTime date = dateValue.get<DateTime>();
        if (text.isText())
            m_occurrences.add(text.get<QString>(), date);
        if (date < m_today)
            m_past.push_back({rows.Bookmark(), text.text(), date, period(rows.Get(monthsColumn)),
                              period(rows.Get(daysColumn))});
    }
    m_occurrences.finish();
}

// Whether the next rows surely exist, so that no query need be asked.
bool RollForward::staysAt(const PastRow &row) const
{
    const auto has = [&](QStringView interval, double number) {
        const auto next = number > 0 ? stepped(interval, number, row.date) : std::nullopt;
        return !next || m_occurrences.surelyHas(row.text, *next);
    };
    return has(u"m", row.months) && has(u"d", row.days);
}

// One period of each kind at most for each start; the days count from where the months left the row.
void RollForward::roll(Recordset &rows, const PastRow &row)
{
    const auto step = [&](QStringView interval, double number) {
        if (number <= 0)
            return;
        if (const auto next = stepped(interval, number, basic::CDate(rows.Get(u"Date"))))
            moveTo(rows, row.text, *next);
    };
    step(u"m", row.months);
    step(u"d", row.days);
}

void RollForward::moveTo(Recordset &rows, const QString &text, DateTime day)
{
    if (exists(text, day))
        return;
    m_occurrences.leave(text, basic::CDate(rows.Get(u"Date")));
    rows.Edit();
    rows.Set(u"Date", day);
    rows.Update();
}

bool RollForward::exists(const QString &text, DateTime date)
{
    Recordset found = m_database.OpenRecordset(u"select * from ["_s + m_table.name + u"] WHERE ["_s + m_table.textField
                                                   + u"]="_s + dao::asTyped(text) + u" AND [DATE]="_s
                                                   + dao::literal(date) + u';',
                                               dao::dbOpenSnapshot);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    const bool any = found.RecordCount() != 0;
    found.Close();
    return any;
}

// The passes may run before anybody has read the setup row; a count of 0 is what the row says then, or is not read yet.
int deleteAfterDays(dao::Database &database)
{
    if (state().settings.gDeleteAfterDays != 0)
        return state().settings.gDeleteAfterDays;
    Recordset setup = database.OpenRecordset(u"SELECT * FROM [Setup];"_s, dao::dbOpenSnapshot);
    const double days = setup.RecordCount() == 0 ? 0 : basic::valOr(setup.Get(u"DeleteAfterDays").text(), 0);
    setup.Close();
    constexpr double forEver = 10'000'000;      // more days than the calendar has
    return static_cast<int>(std::clamp(days, -forEver, forEver));
}

void purgeTable(dao::Database &database, const QString &table, int keepDays)
{
    Recordset rows = database.OpenRecordset(u"select * from [%1] WHERE [Delete]=-1;"_s.arg(table), dao::dbOpenDynaset);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    for (const DateTime today = basic::Date(); !rows.EOF_(); rows.MoveNext()) {
        const basic::Value date = rows.Get(u"Date");
        if (date.isDate() && basic::DateDiff(u"d", date.get<DateTime>(), today) > keepDays)
            rows.Delete();
    }
    rows.Close();
}

// Older files held the time of day as a date-time; it is carried into the shown text once for each row.
void carryTimes(dao::Database &database)
{
    Recordset rows = database.OpenRecordset(u"select * from [Appointments] WHERE [TimeUpdate]=0;"_s,
                                            dao::dbOpenDynaset);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    for (; !rows.EOF_(); rows.MoveNext()) {
        rows.Edit();
        rows.Set(u"APPTIME", rows.Get(u"TIME").text());
        rows.Set(u"TimeUpdate", true);
        rows.Update();
    }
    rows.Close();
}

// The texts are reported once: a start that finds no others is silent.
void tellOnce(QStringList texts)
{
    texts.removeDuplicates();
    texts.sort();
    const QString key = u"ApostrophesTold"_s;
    const QString found = QString::number(qChecksum(texts.join(u'\n').toUtf8()));
    if (texts.isEmpty() || GetIniValue(iniSettings, key, {}) == found)
        return;
    tryPutIniValue(iniSettings, key, found);
    constexpr qsizetype shown = 10;         // a longer list would not fit a message box
    QString message = u"The dates of these repeating reminders cannot be carried forward, because their texts hold an apostrophe:\r\n\r\n"_s
        + texts.first(std::min(texts.size(), shown)).join(u"\r\n"_s);
    if (texts.size() > shown)
        message += u"\r\nand %1 more"_s.arg(texts.size() - shown);
    basic::MsgBox(message + u"\r\n\r\nOpen each one, type its text again and choose Update."_s, {}, basic::Icon::Information);
}

}

void RollForwardDates()
{
    QStringList left;
    for (const auto *table : {&recurrence::appointmentsTable(), &recurrence::billsTable()}) {
        commitWhatWasDone([&](dao::Database &database) {
            RollForward pass(database, *table);
            pass.run();
            left += pass.left();
        });
    }
    tellOnce(left);
}

void PurgeExpiredRows()
{
    commitWhatWasDone([](dao::Database &database) {
        const int keepDays = deleteAfterDays(database);
        for (const QString &table : {u"Appointments"_s, u"Bills"_s, u"Events"_s, u"Messages"_s})
            purgeTable(database, table, keepDays);
        carryTimes(database);
    });
}

}
