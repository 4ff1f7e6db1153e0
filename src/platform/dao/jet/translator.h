#pragma once

#include "platform/dao/types.h"

#include <QByteArray>
#include <QStringList>
#include <utility>
#include <vector>

struct sqlite3;

// From Jet's query dialect to SQLite. A text is lexed, parsed to a typed tree and emitted; nothing is searched and
// replaced. A translation depends on the schema only (names and types), so callers may keep it until that changes.
namespace vorel::dao::jet {

struct ColumnDesign {
    QString name;               // as spelt in the design
    DataType type = dbText;
    int size = 0;               // characters of a dbText
    bool autoIncrement = false;
    bool allowZeroLength = true;
};

struct TableDesign {
    QString name;
    std::vector<ColumnDesign> columns;
};

struct IndexDesign {
    QString name;
    std::vector<std::pair<QString, bool>> fields;   // name, descending
    bool unique = false;
    bool primary = false;
    bool disallowNull = false;
};

class Schema {
public:
    virtual ~Schema() = default;
    // Names compare without regard to case. nullptr if there is no such table.
    virtual const TableDesign *table(QStringView name) const = 0;
};

enum class StatementKind { Select, Insert, Update, Delete, CreateTable, DropTable, AlterTable, CreateIndex, DropIndex };

struct OutputColumn {
    QString name;               // alias, field name or Expr1000 + position
    DataType type = dbText;     // of the result; decides how a stored cell is decoded (dates, money, booleans)
    QString sourceTable;        // of a plain column; "" for an expression
    QString sourceField;
};

struct Translation {
    StatementKind kind = StatementKind::Select;
    QByteArray sql;                     // the whole statement, UTF-8
    std::vector<OutputColumn> columns;  // Select only
    // A Select over one table without DISTINCT, grouping, aggregates or UNION has row keys, and can be edited:
    bool keyed = false;
    QString keyTable;                   // design spelling
    QByteArray keySql;                  // SELECT rowid FROM ... WHERE ... ORDER BY ... (and LIMIT for TOP)
    // The same rows where a text orders them, which is done sooner outside of the store, or where TOP takes the first of
    // them, which are more than asked for if others are equal to the last: "" or SELECT rowid, <the keys of the order>
    // FROM ... WHERE ...
    QByteArray sortSql;
    struct SortKey {
        bool text = false;              // compares by the collation JET, else as the store itself compares
        bool descending = false;
    };
    std::vector<SortKey> sortKeys;
    qint64 top = -1;                    // of those, -1 for all
    QByteArray rowSql;                  // SELECT <columns> FROM keyTable WHERE rowid = ?1
    QByteArray rangeSql;                // SELECT rowid, <columns> FROM keyTable WHERE rowid BETWEEN ?1 AND ?2 ORDER BY rowid
    // rangeSql, with the query's own conditions: passes over the rows between that were never wanted. "" without any.
    QByteArray wantedRangeSql;
    // Data definition is carried out by the caller; sql is empty and keyTable names the table.
    TableDesign created;                // CreateTable: the design asked for; AlterTable: the columns to add
    QStringList dropped;                // AlterTable: the columns to drop
    IndexDesign index;                  // CreateIndex, DropIndex
    std::vector<IndexDesign> constraints;   // CreateTable, AlterTable: keys declared with the columns
};

// Throws EngineError with Jet's number and text (3075, 3061, 3078, 3142, 3464, ...) and its quoting of the expression.
// A bare table name is the select of all its columns.
Translation translate(QStringView text, const Schema &schema);

struct Refinement {
    QString sort;       // Recordset.Sort: "[A], [B] desc"; replaces the query's ORDER BY when not empty
    QString filter;     // Recordset.Filter: WHERE text, joined to the query's own by And
};
Translation translate(QStringView text, const Schema &schema, const Refinement &refinement);

// FindFirst's criteria over the rows of a keyed query: a statement that gives the row ids which match (in no order), among
// them those that the query's TOP leaves out.
// Errors are 3077 (syntax) and 3070 (unknown name). Names are the output names of the query.
QByteArray translateCriteria(QStringView query, QStringView criteria, const Schema &schema);

// Registers what translated statements call: the text collation JET (case-insensitive, accent-sensitive, trailing
// blanks ignored) and the functions. To be called once for each connection.
void registerFunctions(sqlite3 *connection);

// A function that fails inside a running statement (CDate of a text that is no date) ends it with SQLITE_ERROR and a
// message that carries the number. Throws that failure as an EngineError; returns if the message is SQLite's own.
void throwFunctionError(const char *sqliteMessage);

}
