#pragma once

#include "platform/dao/jet/ast.h"
#include "platform/dao/jet/translator.h"

#include <QByteArray>
#include <span>

namespace vorel::dao::jet {

// Writes bound trees as SQLite's SQL. How values are kept: dates as "YYYY-MM-DD HH:MM:SS", money as ten-thousandths,
// truth as -1 or 0; every expression yields the form of its type.
class Emitter {
public:
    Emitter() { m_out.reserve(512); }
    QByteArray take() { return std::move(m_out); }
    void raw(const char *sql) { m_out += sql; }
    void identifier(QStringView name);

    void select(const Select &select);
    // SELECT <head> FROM <the select's> WHERE ... ORDER BY ... LIMIT, without the select's own columns.
    void keys(const Select &select, const char *head);
    // The same in no order, each with what orders it. False if the store does it as well.
    bool unsortedKeys(const Select &select, const char *head, std::vector<Translation::SortKey> &sortKeys);
    void items(const Select &select);
    void fromClause(const Select &select);

    void value(const Expr &expr);
    void condition(const Expr &expr);
    // The value converted to the target's type and checked against its design.
    void assigned(const Expr &expr, const ColumnDesign &target);
    void insertSelect(const Select &select, std::span<const Assignment> targets);
    bool qualified = false;             // names are written with their table

private:
    // emitter.cpp
    void textLiteral(QStringView text);
    void column(const Expr &expr);
    void unary(const Expr &expr);
    void binary(const Expr &expr);
    void signOrFunction(const Expr &expr, void (Emitter::*operand)(const Expr &));
    void moneyArithmetic(const Expr &expr);
    void dateArithmetic(const Expr &expr);
    void bitwise(const Expr &expr);
    void concatenation(const Expr &expr);
    void infix(const Expr &expr, const char *op, void (Emitter::*operand)(const Expr &));
    void call2(const char *function, const Expr &a, const Expr &b, void (Emitter::*operand)(const Expr &));
    // emitter_convert.cpp
    void as(const Expr &expr, DataType type);
    void text(const Expr &expr);
    void number(const Expr &expr);
    void whole(const Expr &expr);
    void date(const Expr &expr);
    void currency(const Expr &expr);
    void wrapped(const char *function, const Expr &expr, void (Emitter::*operand)(const Expr &));
    void assignedText(const Expr &expr, const ColumnDesign &target);
    void assignedWhole(const Expr &expr, DataType type);
    // emitter_conditions.cpp
    void truth(const Expr &expr);       // exactly 1, 0 or Null
    void comparison(const Expr &expr);
    void between(const Expr &expr);
    void in(const Expr &expr);
    void logical(const Expr &expr);
    void chain(const Expr &expr);
    void operandAs(const Expr &expr, DataType type, bool collated);
    // emitter_calls.cpp
    void call(const Expr &expr);
    void inStr(const Expr &expr);
    void plainCall(const Expr &expr);
    void substring(const Expr &expr);
    void cases(const Expr &expr);
    void conversion(const Expr &expr);
    void aggregate(const Expr &expr);
    // emitter_select.cpp
    void branch(const Select &select, const Select &first);
    void item(const Select &select, size_t index, const Select &first);
    void orderBy(const Select &select);
    void unionOrderBy(const Select &select);
    void limit(const Select &select);
    void from(const FromNode &node, bool nested);
    void derivedSelect(const Select &select);

    QByteArray m_out;
    std::span<const Assignment> m_targets;      // of an Insert ... Select
    const Select *m_targeting = nullptr;
    bool m_alternative = false;                 // within a branch of an Or
    bool m_named = false;                       // items carry their output names (a sub-query's)
    const DataType *m_soleType = nullptr;       // the type that a sub-query's one column is to have
};

// Written as SQLite's 1, 0, Null rather than as a value.
bool isCondition(const Expr &expr);
// The type in which these meet when compared.
DataType meetingType(std::span<const ExprPtr> operands);

}
