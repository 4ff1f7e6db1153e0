#include "platform/dao/schema.h"

#include "platform/dao/ddl.h"
#include "platform/dao/sqlite.h"

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

std::vector<ddl::StoredColumn> readColumns(sqlite3 *connection, const QString &table)
{
    std::vector<ddl::StoredColumn> columns;
    Statement info(connection, "PRAGMA table_info(" + quoted(table) + ')');
    while (info.step()) {
        columns.push_back({ info.text(1), info.text(2), info.integer(3) != 0, info.text(4),
                            static_cast<int>(info.integer(5)) });
    }
    return columns;
}

QString sqlOf(sqlite3 *connection, const QString &index)
{
    Statement statement(connection, "SELECT sql FROM sqlite_master WHERE type = 'index' AND name = ?1");
    statement.bind(1, index.toUtf8());
    const ResetGuard reset(statement);
    return statement.step() ? statement.text(0) : QString();
}

QStringList columnsOf(sqlite3 *connection, const QString &index)
{
    QStringList names;
    Statement info(connection, "PRAGMA index_info(" + quoted(index) + ')');
    while (info.step()) {
        if (!info.isNull(2))
            names.append(info.text(2));
    }
    return names;
}

std::vector<ddl::StoredIndex> readIndexes(sqlite3 *connection, const QString &table)
{
    std::vector<ddl::StoredIndex> indexes;
    Statement list(connection, "PRAGMA index_list(" + quoted(table) + ')');
    while (list.step()) {
        ddl::StoredIndex index;
        index.name = list.text(1);
        index.unique = list.integer(2) != 0;
        index.primary = list.text(3) == u"pk";
        indexes.push_back(index);
    }
    // The store lists the newest first.
    std::reverse(indexes.begin(), indexes.end());
    for (ddl::StoredIndex &index : indexes) {
        index.sql = sqlOf(connection, index.name);
        index.columns = columnsOf(connection, index.name);
    }
    return indexes;
}

bool answersRowId(sqlite3 *connection, const QString &table)
{
    sqlite3_stmt *statement = nullptr;
    const QByteArray sql = "SELECT rowid FROM " + quoted(table);
    const bool prepared = sqlite3_prepare_v2(connection, sql.constData(), -1, &statement, nullptr) == SQLITE_OK;
    sqlite3_finalize(statement);
    return prepared;
}

std::unique_ptr<StoredTable> readTable(sqlite3 *connection, const QString &name, const QString &sql, bool view)
{
    auto table = std::make_unique<StoredTable>();
    table->view = view;
    table->def = ddl::readTable(name, sql, readColumns(connection, name),
                                view ? std::vector<ddl::StoredIndex>() : readIndexes(connection, name));
    table->hasRowId = !view && answersRowId(connection, name);
    table->design.name = name;
    for (const FieldDef &field : table->def.Fields) {
        const bool counter = (field.Attributes & dbAutoIncrField) != 0;
        if (counter)
            table->counter = field.Name;
        table->design.columns.push_back({ field.Name, field.Type, field.Size, counter, field.AllowZeroLength });
    }
    return table;
}

// A view whose tables are gone keeps its name, so that it can be deleted; a virtual table of a module that is not there is
// passed over. Neither hinders the rest of the file. A table that cannot be read is damage.
std::unique_ptr<StoredTable> readEntry(sqlite3 *connection, const QString &name, const QString &sql, bool view)
{
    try {
        return readTable(connection, name, sql, view);
    } catch (const EngineError &error) {
        const bool broken = error.number() == err::InvalidOperation;
        if (!broken || !(view || sql.startsWith(u"CREATE VIRTUAL", Qt::CaseInsensitive)))
            throw;
    }
    if (!view)
        return nullptr;
    auto unread = std::make_unique<StoredTable>();
    unread->view = true;
    unread->def.Name = unread->design.name = name;
    return unread;
}

}

const FieldDef *StoredTable::field(QStringView name) const
{
    for (const FieldDef &candidate : def.Fields) {
        if (name.compare(candidate.Name, Qt::CaseInsensitive) == 0)
            return &candidate;
    }
    return nullptr;
}

StoredSchema::StoredSchema(sqlite3 *connection)
{
    struct Entry {
        QString name, sql;
        bool view;
    };
    std::vector<Entry> entries;
    Statement list(connection, "SELECT name, sql, type FROM sqlite_master WHERE type IN ('table', 'view')"
                               " AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid");
    while (list.step())
        entries.push_back({ list.text(0), list.text(1), list.text(2) == u"view" });
    for (const Entry &entry : entries) {
        auto table = readEntry(connection, entry.name, entry.sql, entry.view);
        if (!table)
            continue;
        m_tables.push_back(std::move(table));
        m_byName.insert(entry.name.toLower(), m_tables.back().get());
    }
}

const StoredTable *StoredSchema::stored(QStringView name) const
{
    return m_byName.value(name.toString().toLower());
}

const jet::TableDesign *StoredSchema::table(QStringView name) const
{
    const StoredTable *found = stored(name);
    return found ? &found->design : nullptr;
}

}
