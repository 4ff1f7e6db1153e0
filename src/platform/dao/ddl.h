#pragma once

#include "platform/dao/dao.h"

#include <optional>

// Table designs as SQL text and back. A design is written so that any SQLite tool can open and write the file, and
// that the design reads back field by field as it was appended:
//  - the declared type names the DAO type in a spelling with the right affinity (VARCHAR(50), LONGTEXT, DATETEXT,
//    CURRENCY_INT, BOOLEAN_INT, TINYINT, SMALLINT, LONGINT, FLOAT, DOUBLE, BLOB);
//  - what SQL has no word for is kept in a comment of the field's definition: /* ValidationText=... */;
//  - an auto-increment field is the row id; its index, if the design has one, is the constraint's name;
//  - other indexes are named "INDEX on TABLE", the store's own helpers "~FIELD on TABLE".
namespace vorel::dao::ddl {

// One column as the store itself reports it (PRAGMA table_info).
struct StoredColumn {
    QString name;
    QString declaredType;
    bool notNull = false;
    QString defaultSql;
    int keyPosition = 0;        // within the primary key, from 1; 0 outside
};

// One index as the store reports it.
struct StoredIndex {
    QString name;
    QString sql;                // "" for one that belongs to a constraint
    bool unique = false;
    bool primary = false;       // created by PRIMARY KEY
    QStringList columns;        // without expressions
};

QByteArray createTable(const TableDef &design);
// `name` is the index's own name; takenName says whether a name of the store is in use.
QByteArray createIndex(const TableDef &design, const IndexDef &index, const std::function<bool(const QString &)> &takenName);
QByteArray createHelper(const TableDef &design, const QString &field, const std::function<bool(const QString &)> &takenName);

TableDef readTable(const QString &name, const QString &sql, const std::vector<StoredColumn> &columns,
                   const std::vector<StoredIndex> &indexes);

// The design's type for a declared one of any origin, by its spelling or else by its affinity.
DataType typeOf(QStringView declared, int *size);
int sizeOf(DataType type);      // DAO's byte size of a type; 0 where it has none

// The value that a new row starts with.
Value defaultValue(const FieldDef &field);
// Whether the field is the index's one field and the row id, so that no index of its own is needed.
bool isRowId(const TableDef &design, const IndexDef &index);

}
