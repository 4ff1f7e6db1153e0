#include "platform/dao/dao.h"

#include "platform/dao/database_p.h"
#include "platform/dao/definition.h"
#include "platform/dao/recordset_p.h"

#include <algorithm>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

DatabasePrivate &opened(const std::shared_ptr<DatabasePrivate> &d)
{
    if (!d)
        throw EngineError(err::ObjectInvalid);
    d->connection();
    return *d;
}

// A row that a unique index or a rule refuses is passed over without an error, as Execute does unless it is asked to fail.
QByteArray passingOverFailures(QByteArray sql)
{
    for (const QByteArray &verb : { QByteArray("INSERT INTO "), QByteArray("UPDATE ") }) {
        if (sql.startsWith(verb)) {
            const qsizetype word = verb.indexOf(' ');
            return sql.insert(word, " OR IGNORE");
        }
    }
    return sql;
}

bool changesRows(jet::StatementKind kind)
{
    return kind == jet::StatementKind::Insert || kind == jet::StatementKind::Update || kind == jet::StatementKind::Delete;
}

const StoredTable &storedTable(Connection &file, QStringView name, int error = err::ItemNotFound)
{
    const StoredTable *table = file.schema().stored(name);
    if (!table || table->view)
        throw EngineError(error, name.toString());
    return *table;
}

}

QString Database::Name() const { return opened(d).connection().path(); }

void Database::Close()
{
    opened(d).close();
    d.reset();
}

void Database::letGo()
{
    if (d && d->isOpen())
        d->close();
    d.reset();
}

Recordset Database::OpenRecordset(const QString &source, RecordsetType type)
{
    opened(d);
    return Recordset(std::make_shared<RecordsetPrivate>(d, source, jet::Refinement(), type));
}

void Database::Execute(const QString &sql)
{
    opened(d).connection().pollNowAndThen();
    const auto translation = d->connection().translation(sql);
    if (translation->kind == jet::StatementKind::Select)
        throw EngineError(err::SelectExecuted);
    Connection &file = d->writable();
    d->affected = 0;
    if (!changesRows(translation->kind))
        return define(file, *translation);
    try {
        Statement statement(file.handle(), passingOverFailures(translation->sql));
        statement.run();
    } catch (...) {
        file.afterFailure();
        throw;
    }
    d->affected = sqlite3_changes(file.handle());
    // Emptying a whole table is not reported row by row.
    if (translation->kind == jet::StatementKind::Delete)
        file.everythingChanged();
}

int Database::RecordsAffected() const { return opened(d).affected; }
int Database::QueryTimeout() const { return opened(d).timeout; }
void Database::setQueryTimeout(int seconds) { opened(d).timeout = seconds; }

std::vector<TableDef> Database::TableDefs() const
{
    Connection &file = opened(d).connection();
    file.poll();
    std::vector<TableDef> designs;
    for (const auto &table : file.schema().tables()) {
        if (!table->view)
            designs.push_back(table->def);
    }
    return designs;
}

TableDef Database::TableDefByName(QStringView name) const
{
    Connection &file = opened(d).connection();
    file.poll();
    return storedTable(file, name).def;
}

bool Database::hasTable(QStringView name) const
{
    Connection &file = opened(d).connection();
    file.poll();
    const StoredTable *table = file.schema().stored(name);
    return table && !table->view;
}

void Database::AppendTable(const TableDef &design)
{
    Connection &file = opened(d).writable();
    file.poll();
    if (file.schema().stored(design.Name))
        throw EngineError(err::TableExists, design.Name);
    file.atomically([&] { createTable(file, design); });
    file.schemaChanged();
}

void Database::DeleteTable(QStringView name)
{
    Connection &file = opened(d).writable();
    const QString stored = storedTable(file, name).def.Name;
    file.atomically([&] { execute(file.handle(), "DROP TABLE " + quoted(stored)); });
    file.schemaChanged();
}

void Database::RenameTable(QStringView oldName, const QString &newName)
{
    Connection &file = opened(d).writable();
    const QString stored = storedTable(file, oldName).def.Name;
    const bool otherCase = stored.compare(newName, Qt::CaseInsensitive) == 0;
    if (newName.isEmpty())
        throw EngineError(err::InvalidProperty);
    if (!otherCase && file.schema().stored(newName))
        throw EngineError(err::TableExists, newName);
    const auto rename = [&](const QString &from, const QString &to) {
        execute(file.handle(), "ALTER TABLE " + quoted(from) + " RENAME TO " + quoted(to));
    };
    file.atomically([&] {
        // The store takes a name that differs in case only for the same one.
        if (otherCase)
            rename(stored, stored + u"$case"_s);
        rename(otherCase ? stored + u"$case"_s : stored, newName);
    });
    file.schemaChanged();
}

void Database::appendHelpers(const TableDef &design)
{
    Connection &file = opened(d).writable();
    const TableDef stored = storedTable(file, design.Name).def;
    file.atomically([&] {
        for (const QString &field : design.Helpers) {
            if (!stored.Helpers.contains(field, Qt::CaseInsensitive))
                createHelper(file, stored, field);
        }
    });
    file.schemaChanged();
}

void Database::writeUnsynced()
{
    opened(d).connection().writeUnsynced();
}

QStringList Database::QueryDefs() const
{
    Connection &file = opened(d).connection();
    file.poll();
    QStringList names;
    for (const auto &table : file.schema().tables()) {
        if (table->view)
            names.append(table->def.Name);
    }
    return names;
}

void Database::DeleteQuery(const QString &name)
{
    Connection &file = opened(d).writable();
    const StoredTable *view = file.schema().stored(name);
    if (!view || !view->view)
        throw EngineError(err::ItemNotFound);
    execute(file.handle(), "DROP VIEW " + quoted(view->def.Name));
    file.schemaChanged();
}

ManyReads::ManyReads(Database &database) : m_database(database.d)
{
    if (!m_database)
        throw EngineError(err::ObjectInvalid);
    m_database->connection().useLargeCache(true);
}

ManyReads::~ManyReads()
{
    if (m_database->isOpen())
        m_database->connection().useLargeCache(false);
}

}
