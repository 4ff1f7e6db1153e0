#include "records/recordrows.h"

#include "platform/basic/error.h"

namespace vorel::records {

using namespace Qt::StringLiterals;

dao::Bookmark addRow(dao::Recordset &rows, const RecordDesign &design)
{
    constexpr int ownerSize = 20;
    dao::NewRow row(rows);
    for (const FirstValue &first : design.newRow) {
        const dao::RecordsetField &column = rows.Fields()[static_cast<std::size_t>(rows.fieldIndex(first.field))];
        const bool isText = column.Type == dao::dbText || column.Type == dao::dbMemo;
        row.set(first.field, first.text.isEmpty() && !isText ? dao::Value() : dao::Value(first.text.toString()));
    }
    for (const dao::RecordsetField &column : rows.Fields()) {       // the books' table names no owner
        if (column.Name.compare(u"UsersName", Qt::CaseInsensitive) == 0)
            row.set(column.Name, state().settings.gUserName.left(ownerSize));
    }
    row.save();
    return rows.LastModified();
}

namespace {

QStringList firstColumn(const QString &databasePath, const QString &sql)
{
    QStringList values;
    dao::Database file = dao::DBEngine::OpenDatabase(databasePath);
    dao::Recordset rows = file.CreateSnapshot(sql);
    for (; !rows.EOF_(); rows.MoveNext())
        values += rows.Get(0).text();
    return values;
}

}

QStringList listValues(const QString &databasePath, const Choices &list)
{
    return list.starts + firstColumn(databasePath, list.sql.toString());
}

QStringList Tracks(const QString &databasePath, qint32 id)
{
    return firstColumn(databasePath, u"Select [TRACK] from [TRACKS] WHERE [ID]="_s + QString::number(id) + u';');
}

}
