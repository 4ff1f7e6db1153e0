#include "records/recordrows.h"

#include "session/datafiles.h"

namespace vorel::records {

using namespace Qt::StringLiterals;

namespace {

const dao::RecordsetField *findField(const dao::Recordset &rows, QStringView name)
{
    for (const dao::RecordsetField &field : rows.Fields()) {
        if (name.compare(field.Name, Qt::CaseInsensitive) == 0)
            return &field;
    }
    return nullptr;
}

}

dao::Bookmark addRow(dao::Recordset &rows, const RecordDesign &design)
{
    constexpr int ownerSize = 20;           // of UsersName in every table
    dao::NewRow row(rows);
    for (const FirstValue &first : design.newRow) {
        const dao::RecordsetField *field = findField(rows, first.field);
        if (!field)
            continue;
        const auto *now = std::get_if<dao::Value (*)()>(&first.value);
        const dao::Value value = now ? (*now)() : std::get<dao::Value>(first.value);
        const bool isText = field->Type == dao::dbText || field->Type == dao::dbMemo;
        row.set(first.field, value.text().isEmpty() && !isText ? dao::Value() : value);
    }
    if (findField(rows, u"UsersName"))          // the books' table has no owner
        row.set(u"UsersName", state().settings.gUserName.left(ownerSize));
    row.save();
    return rows.LastModified();
}

void deleteChildren(dao::Database &database, const RecordDesign &design, qint32 id, const QString &name)
{
    for (QString sql : design.childDeletes) {
        sql.replace(u"%id"_s, dao::literal(id));         // before the name, which may contain it
        sql.replace(u"%name"_s, dao::literal(name));
        database.Execute(sql);
    }
}

namespace {

// field: "" = the first one.
QStringList valuesOf(const QString &databasePath, const QString &sql, const QString &field = {})
{
    QStringList values;
    dao::Database file = openDataFileAt(databasePath);
    dao::Recordset rows = file.CreateSnapshot(sql);
    const int column = field.isEmpty() ? 0 : rows.fieldIndex(field);
    for (; !rows.EOF_(); rows.MoveNext())
        values += rows.Get(column).text();
    return values;
}

}

QStringList listValues(const QString &databasePath, const Choices &list)
{
    if (list.sql.isEmpty())
        return list.starts;
    return list.starts + valuesOf(list.file ? state().path(*list.file) : databasePath, list.sql, list.field);
}

QStringList Tracks(const QString &databasePath, qint32 id)
{
    return valuesOf(databasePath, u"Select [TRACK] from [TRACKS] WHERE [ID]="_s + dao::literal(id) + u';');
}

}
