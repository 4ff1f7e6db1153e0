#include "platform/dao/definition.h"

#include "platform/dao/ddl.h"

#include <algorithm>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

bool nameTaken(Connection &file, const QString &name)
{
    Statement statement(file.handle(), "SELECT count(*) FROM sqlite_master WHERE name = ?1 COLLATE NOCASE");
    statement.bind(1, name.toUtf8());
    const ResetGuard reset(statement);
    return statement.step() && statement.integer(0) > 0;
}

FieldDef fieldOf(const jet::ColumnDesign &column)
{
    FieldDef field;
    field.Name = column.name;
    field.Type = column.type;
    field.Size = column.type == dbText ? (column.size > 0 ? column.size : 255) : ddl::sizeOf(column.type);
    field.Attributes = column.autoIncrement ? dbAutoIncrField : 0;
    field.AllowZeroLength = column.allowZeroLength && (column.type == dbText || column.type == dbMemo);
    return field;
}

void addIndex(TableDef &design, const jet::IndexDesign &asked)
{
    IndexDef index { asked.name, {}, asked.primary, asked.unique || asked.primary, asked.disallowNull || asked.primary };
    for (const auto &part : asked.fields)
        index.Fields.append(part.first);      // the store walks an index either way
    for (const IndexDef &other : design.Indexes) {
        if (other.Name.compare(index.Name, Qt::CaseInsensitive) == 0)
            throw EngineError(err::IndexExists);
        if (other.Primary && index.Primary)
            throw EngineError(err::PrimaryKeyExists);
    }
    design.Indexes.push_back(std::move(index));
}

void addColumns(TableDef &design, const jet::TableDesign &asked)
{
    for (const jet::ColumnDesign &column : asked.columns) {
        const auto same = [&](const FieldDef &field) { return field.Name.compare(column.name, Qt::CaseInsensitive) == 0; };
        if (std::any_of(design.Fields.begin(), design.Fields.end(), same))
            throw EngineError(err::FieldExists, column.name);
        design.Fields.push_back(fieldOf(column));
    }
}

void dropColumns(TableDef &design, const QStringList &names)
{
    for (const QString &name : names) {
        const auto before = design.Fields.size();
        std::erase_if(design.Fields, [&](const FieldDef &field) { return field.Name.compare(name, Qt::CaseInsensitive) == 0; });
        if (design.Fields.size() == before)
            throw EngineError(err::FieldNotFound, name);
        for (const IndexDef &index : design.Indexes) {
            if (index.Fields.contains(name, Qt::CaseInsensitive))
                throw EngineError(err::FieldInUse);
        }
        design.Helpers.removeIf([&](const QString &helper) { return helper.compare(name, Qt::CaseInsensitive) == 0; });
    }
}

// The store cannot drop a column or name a key later: the table is created anew and takes over the rows.
void rebuild(Connection &file, const TableDef &before, const TableDef &design)
{
    const QByteArray old = quoted(before.Name + u"$old"_s);
    QByteArrayList shared;
    for (const FieldDef &field : design.Fields) {
        const auto same = [&](const FieldDef &other) { return other.Name == field.Name; };
        if (std::any_of(before.Fields.begin(), before.Fields.end(), same))
            shared.append(quoted(field.Name));
    }
    execute(file.handle(), "ALTER TABLE " + quoted(before.Name) + " RENAME TO " + old);
    // Its indexes go first, so that the new ones get their names.
    QByteArrayList indexes;
    Statement list(file.handle(), "SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL AND tbl_name = ?1");
    list.bind(1, (before.Name + u"$old"_s).toUtf8());
    while (list.step())
        indexes.append("DROP INDEX " + quoted(list.text(0)));
    for (const QByteArray &drop : indexes)
        execute(file.handle(), drop);
    createTable(file, design);
    if (!shared.isEmpty()) {
        execute(file.handle(), "INSERT INTO " + quoted(design.Name) + " (" + shared.join(", ") + ") SELECT "
                                   + shared.join(", ") + " FROM " + old + " ORDER BY rowid");
    }
    execute(file.handle(), "DROP TABLE " + old);
}

TableDef designNamed(Connection &file, const QString &name)
{
    const StoredTable *table = file.schema().stored(name);
    if (!table || table->view)
        throw EngineError(err::NoSuchTable, name);
    return table->def;
}

void createAsked(Connection &file, const jet::Translation &statement)
{
    const QString name = statement.created.name.isEmpty() ? statement.keyTable : statement.created.name;
    if (file.schema().stored(name))
        throw EngineError(err::TableExists, name);
    TableDef design;
    design.Name = name;
    addColumns(design, statement.created);
    for (const jet::IndexDesign &index : statement.constraints)
        addIndex(design, index);
    createTable(file, design);
}

void changeDesign(Connection &file, const jet::Translation &statement)
{
    const TableDef before = designNamed(file, statement.keyTable);
    TableDef design = before;
    if (statement.kind == jet::StatementKind::CreateIndex) {
        addIndex(design, statement.index);
    } else if (statement.kind == jet::StatementKind::DropIndex) {
        const auto named = [&](const IndexDef &index) {
            return index.Name.compare(statement.index.name, Qt::CaseInsensitive) == 0;
        };
        if (std::erase_if(design.Indexes, named) == 0)
            throw EngineError(err::NoSuchIndex, statement.index.name);
    } else {
        dropColumns(design, statement.dropped);
        addColumns(design, statement.created);
        for (const jet::IndexDesign &index : statement.constraints)
            addIndex(design, index);
    }
    rebuild(file, before, design);
}

}

void createTable(Connection &file, const TableDef &design)
{
    const auto taken = [&](const QString &name) { return nameTaken(file, name); };
    execute(file.handle(), ddl::createTable(design));
    for (const IndexDef &index : design.Indexes) {
        if (!ddl::isRowId(design, index))
            execute(file.handle(), ddl::createIndex(design, index, taken));
    }
    for (const QString &field : design.Helpers)
        createHelper(file, design, field);
}

void createHelper(Connection &file, const TableDef &design, const QString &field)
{
    execute(file.handle(), ddl::createHelper(design, field, [&](const QString &name) { return nameTaken(file, name); }));
}

void define(Connection &file, const jet::Translation &statement)
{
    file.poll();
    file.atomically([&] {
        if (statement.kind == jet::StatementKind::CreateTable)
            createAsked(file, statement);
        else if (statement.kind == jet::StatementKind::DropTable)
            execute(file.handle(), "DROP TABLE " + quoted(designNamed(file, statement.keyTable).Name));
        else
            changeDesign(file, statement);
    });
    file.schemaChanged();
}

}
