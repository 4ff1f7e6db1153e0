#pragma once

#include "platform/dao/jet/ast.h"

namespace vorel::dao::jet {

// Gives every name its column and every expression its type. Throws EngineError: 3078 for an unknown table, 3079,
// 3085, 3464, 3061 for names that nothing explains, ...
class Binder {
public:
    Binder(QStringView text, const Schema &schema) : m_text(text), m_schema(schema) {}

    void bind(Statement &statement);
    // Over the rows that a bound select gives: its output names first, then (if allowed) its tables' fields.
    void bindFilter(Expr &filter, const Select &select);
    void bindOrdering(std::vector<Ordering> &orderBy, const Select &select);
    // Output names only; an unknown one is 3070.
    void bindCriteria(Expr &criteria, const Select &select);
    // 3061 if names stayed unexplained.
    void checkParameters() const;

private:
    enum class Outputs { Hidden, Earlier, First, Only };
    struct Scope {
        const std::vector<const Source *> *sources = nullptr;
        const Select *select = nullptr;         // whose output names are seen
        Outputs outputs = Outputs::Hidden;
        size_t outputCount = 0;                 // how many of them
        Select *aggregating = nullptr;          // who may hold aggregates; null: nobody here
        const Scope *parent = nullptr;
    };

    void bindSelect(Select &select, const Scope *parent);
    void bindBranch(Select &select, const Scope *parent);
    void bindFrom(FromNode &node, Select &select, const Scope *parent);
    void bindJoins(FromNode &node, const Scope &scope);
    void bindItems(Select &select, const Scope *parent);
    void expandStars(Select &select);
    void nameColumns(Select &select);
    void checkGrouping(const Select &select) const;
    static void requireColumn(const Expr &expr, const Select &select);
    void bindOrderBy(Select &select, const Scope *parent);
    void bindUnionOrderBy(Select &select);
    void joinBranchTypes(Select &select);
    void bindInsert(Statement &statement);
    void bindTarget(Statement &statement);

    void bindExpr(Expr &expr, const Scope &scope);
    void bindName(Expr &expr, const Scope &scope);
    bool bindColumn(Expr &expr, const Scope &scope) const;
    bool bindOutput(Expr &expr, const Scope &scope) const;
    void bindUnary(Expr &expr);
    void bindRange(Expr &expr);
    void bindBinary(Expr &expr);
    void bindCall(Expr &expr);
    void bindAggregate(Expr &expr, const Scope &scope);
    void bindSubSelect(Expr &expr, const Scope &scope);
    void bindCondition(Expr &expr, const Scope &scope);
    QString textOf(const Expr &expr) const;

    QStringView m_text;
    const Schema &m_schema;
    QStringList m_unknown;
    int m_depth = 0;
};

// The same computation over the same columns.
bool sameExpression(const Expr &a, const Expr &b);
const ColumnDesign *findColumn(const TableDesign &design, QStringView name);

}
