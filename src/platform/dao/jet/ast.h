#pragma once

#include "platform/dao/jet/translator.h"

#include <memory>
#include <optional>

// The typed tree of a statement. The parser fills the shape, the binder the types and the columns.
namespace vorel::dao::jet {

struct Select;
struct FunctionInfo;
struct Source;

enum class ExprKind {
    Null, Text, Integer, Decimal, Date, Boolean,    // literals
    Name,           // a column once it is bound
    Alias,          // an earlier output column, or the output column that a criteria text names
    Unary, Binary,
    Between, In, InSelect, IsNull, Exists, SubSelect,
    Call, Aggregate
};

enum class Operator {
    None,
    Negate, Not,
    Power, Multiply, Divide, IntegerDivide, Modulo, Add, Subtract, Concatenate,
    Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual, Like,
    And, Or, Xor, Equivalent, Implies
};

enum class AggregateKind { None, CountAll, Count, Sum, Min, Max, Average, First, Last };

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

struct Expr {
    ExprKind kind = ExprKind::Null;
    Operator op = Operator::None;
    AggregateKind aggregate = AggregateKind::None;
    bool negated = false;           // Not Between, Not In, Is Not Null
    bool parenthesized = false;
    int depth = 4;                  // what it takes of SQLite's parser stack, at most
    int weight = 1;                 // of an output column: nodes, with those of the columns that it names
    qsizetype begin = 0;            // where it begins in the text
    qsizetype end = 0;

    QString text;                   // text, name, function name; a decimal as written; a date in stored form
    QString qualifier;              // the T of T.Name
    qint64 integer = 0;
    std::vector<ExprPtr> operands;
    std::unique_ptr<Select> select;

    // Set by the binder.
    DataType type = dbUnknown;      // dbUnknown: Null, or a name that nothing explains
    const Source *source = nullptr;
    const ColumnDesign *column = nullptr;
    const FunctionInfo *function = nullptr;
    const Expr *target = nullptr;   // of an Alias

    bool isLiteral() const { return kind <= ExprKind::Boolean; }
};

struct Ordering {
    ExprPtr expr;
    bool descending = false;
};

// One table, or one sub-query, of a FROM clause.
struct Source {
    QString name;                   // as written
    QString alias;                  // as written, else the name
    const TableDesign *design = nullptr;
    std::unique_ptr<Select> select; // a sub-query; its columns are in derived
    TableDesign derived;
};

enum class JoinKind { Inner, Left, Right };

struct FromNode {
    std::unique_ptr<Source> source;             // a leaf
    JoinKind join = JoinKind::Inner;            // otherwise
    std::unique_ptr<FromNode> left;
    std::unique_ptr<FromNode> right;
    ExprPtr on;
};

struct SelectItem {
    ExprPtr expr;                   // null: a star
    QString qualifier;              // the T of T.*
    QString alias;
};

struct Select {
    int depth = 0;
    bool distinct = false;
    bool topPercent = false;
    int top = -1;
    bool all = false;               // joined to the branch before by UNION ALL
    std::vector<SelectItem> items;
    std::vector<std::unique_ptr<FromNode>> from;
    ExprPtr where;
    std::vector<ExprPtr> groupBy;
    ExprPtr having;
    std::vector<std::unique_ptr<Select>> branches;  // the further parts of a UNION
    std::vector<Ordering> orderBy;

    // Set by the binder.
    std::vector<const Source *> sources;
    bool aggregated = false;
    std::vector<OutputColumn> columns;
};

struct Assignment {
    QString column;
    ExprPtr value;
    const ColumnDesign *design = nullptr;
};

struct Statement {
    StatementKind kind = StatementKind::Select;
    std::unique_ptr<Select> select;             // Select, Insert ... Select
    QString table;                              // all but Select
    std::unique_ptr<Source> source;             // the table of Update and Delete
    bool allColumns = false;                    // Insert without a list of columns
    std::vector<Assignment> assignments;        // Insert (no values with a select), Update
    ExprPtr where;

    // Data definition.
    TableDesign created;
    QStringList dropped;
    IndexDesign index;
    std::vector<IndexDesign> constraints;
};

}
