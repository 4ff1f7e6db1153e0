#include "platform/dao/copy.h"

#include <limits>
#include <numeric>

namespace vorel::dao::copy {

using namespace Qt::StringLiterals;

namespace {

struct Item {
    QByteArray type, name, sql;
};

// A damaged row of the schema table must not hide those before it.
std::vector<Item> items(Connection &from, bool tolerant)
{
    std::vector<Item> found;
    try {
        Statement list(from.handle(), "SELECT type, name, sql FROM sqlite_master WHERE sql IS NOT NULL"
                                      " AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid");
        while (list.step())
            found.push_back({ list.bytes(0), list.bytes(1), list.bytes(2) });
    } catch (const EngineError &) {
        if (!tolerant)
            throw;
    }
    return found;
}

bool isVirtual(const Item &item)
{
    return item.sql.first(std::min<qsizetype>(14, item.sql.size())).toUpper() == "CREATE VIRTUAL";
}

QByteArray columnsOf(Connection &file, const QByteArray &table, int *count)
{
    QByteArrayList names;
    Statement info(file.handle(), "PRAGMA table_info(" + quoted(QString::fromUtf8(table)) + ')');
    while (info.step())
        names.append(quoted(info.text(1)));
    *count = static_cast<int>(names.size());
    return names.join(", ");
}

// One table's way from file to file.
class TableCopy {
public:
    TableCopy(Connection &from, Connection &to, const QByteArray &table)
        : m_from(from), m_table(quoted(QString::fromUtf8(table)))
    {
        m_columns = columnsOf(from, table, &m_count);
        m_insert = Statement(to.handle(), "INSERT OR IGNORE INTO " + m_table + " (" + m_columns + ") VALUES ("
                                 + QByteArrayList(m_count, "?").join(", ") + ')');
    }

    void all()
    {
        Statement rows(m_from.handle(), "SELECT " + m_columns + " FROM " + m_table);
        while (rows.step())
            put(rows, 0);
    }

    // Reads from both ends up to the first damage, then halves what lies between.
    void readable()
    {
        try {
            m_up = Statement(m_from.handle(), select("ASC"));
            m_down = Statement(m_from.handle(), select("DESC"));
        } catch (const EngineError &) {
            all();              // without row ids, as far as it reads
            m_whole = true;
            return;
        }
        // Counted rows first: where nothing can be read, looking further soon ends.
        constexpr qint64 lastCounted = std::numeric_limits<qint32>::max();
        m_whole = true;
        between(1, lastCounted);
        between(std::numeric_limits<qint64>::min(), 0);
        between(lastCounted + 1, std::numeric_limits<qint64>::max());
    }

    qsizetype copied() const { return m_copied; }
    bool isWhole() const { return m_whole; }    // nothing was passed over

private:
    QByteArray select(const char *order) const
    {
        return "SELECT rowid, " + m_columns + " FROM " + m_table + " NOT INDEXED WHERE rowid BETWEEN ?1 AND ?2 ORDER BY rowid "
            + order;
    }

    void put(Statement &row, int first)
    {
        for (int i = 0; i < m_count; ++i)
            m_insert.bindCopy(i + 1, sqlite3_column_value(row.get(), first + i));
        m_insert.run();
        ++m_copied;
    }

    // Copies the rows of the range in the statement's order. True if all were read; else `reached` is the last one read.
    bool sweep(Statement &rows, qint64 low, qint64 high, qint64 &reached)
    {
        const ResetGuard reset(rows);
        rows.reset();
        rows.bind(1, low);
        rows.bind(2, high);
        while (true) {
            try {
                if (!rows.step())
                    return true;
            } catch (const EngineError &) {
                m_whole = false;
                return false;
            }
            put(rows, 1);
            reached = rows.integer(0);
            m_inVain = 0;
        }
    }

    void between(qint64 low, qint64 high)
    {
        constexpr int mostProbes = 100'000;
        constexpr int mostInVain = 2000;
        constexpr qint64 unreadLow = std::numeric_limits<qint64>::min();
        constexpr qint64 unreadHigh = std::numeric_limits<qint64>::max();
        if (low > high || ++m_probes > mostProbes || ++m_inVain > mostInVain)
            return;
        qint64 reached = unreadLow;
        if (sweep(m_up, low, high, reached))
            return;
        const qint64 up = reached == unreadLow ? low : reached + 1;
        reached = unreadHigh;
        if (up > high || sweep(m_down, up, high, reached))
            return;
        const qint64 down = reached == unreadHigh ? high : reached - 1;
        if (up >= down)
            return;
        const qint64 middle = std::midpoint(up, down);
        between(up, middle);
        between(middle + 1, down);
    }

    Connection &m_from;
    QByteArray m_table;
    QByteArray m_columns;
    int m_count = 0;
    int m_probes = 0;
    int m_inVain = 0;       // since the last row that was read
    qsizetype m_copied = 0;
    bool m_whole = false;
    Statement m_insert;
    Statement m_up;
    Statement m_down;
};

void copyHeader(Connection &from, Connection &to)
{
    for (const QByteArray &pragma : { QByteArray("user_version"), QByteArray("application_id") })
        execute(to.handle(), "PRAGMA " + pragma + " = " + QByteArray::number(integerOf(from.handle(), "PRAGMA " + pragma)));
}

}

void everything(Connection &from, Connection &to)
{
    // One read for the whole file: no other process can change it half-way.
    execute(from.handle(), "SAVEPOINT copying");
    try {
        const std::vector<Item> all = items(from, false);
        const int level = to.begin();
        for (const bool tables : { true, false }) {
            for (const Item &item : all) {
                if ((item.type == "table") != tables)
                    continue;
                // What rests on a table or a module that is not there hinders nothing but itself.
                const bool dependent = item.type == "view" || item.type == "trigger" || isVirtual(item);
                if (dependent) {
                    executeQuietly(to.handle(), item.sql.constData());
                    continue;
                }
                execute(to.handle(), item.sql);
                if (tables)
                    TableCopy(from, to, item.name).all();
            }
        }
        copyHeader(from, to);
        to.commitTo(level);
    } catch (...) {
        executeQuietly(from.handle(), "RELEASE copying");
        throw;
    }
    execute(from.handle(), "RELEASE copying");
}

bool readableRows(Connection &from, Connection &to, RepairReport &report)
{
    int tables = 0;
    const std::vector<Item> all = items(from, true);
    const int level = to.begin();
    for (const Item &item : all) {
        if (item.type != "table" || isVirtual(item))
            continue;
        if (executeQuietly(to.handle(), item.sql.constData()) != SQLITE_OK) {
            report.lost.append(QString::fromUtf8(item.name));
            continue;
        }
        ++tables;
        TableCopy copy(from, to, item.name);
        copy.readable();
        report.rowsSaved += copy.copied();
        if (!copy.isWhole())
            report.lost.append(QString::fromUtf8(item.name));
    }
    for (const Item &item : all) {
        if (item.type != "table")
            executeQuietly(to.handle(), item.sql.constData());
    }
    report.rowsSeen = report.rowsSaved;     // an enciphered page that is damaged shows nothing of its rows
    to.commitTo(level);
    return tables > 0;
}

}
