#include "platform/dao/jet/emitter.h"

#include "platform/dao/jet/functions.h"

namespace vorel::dao::jet {

namespace {

bool removesDuplicates(const Select &select)
{
    return std::any_of(select.branches.begin(), select.branches.end(), [](const auto &branch) { return !branch->all; });
}

}

void Emitter::select(const Select &select)
{
    const bool outer = qualified;
    qualified = qualified || select.sources.size() > 1;
    branch(select, select);
    for (const auto &other : select.branches) {
        m_out += other->all ? " UNION ALL " : " UNION ";
        branch(*other, select);
    }
    if (select.branches.empty()) {
        orderBy(select);
        limit(select);
    } else {
        unionOrderBy(select);
    }
    qualified = outer;
}

// A select inside of another statement: its names could be taken for those around it.
void Emitter::derivedSelect(const Select &inner)
{
    const bool outer = qualified;
    const Select *targeting = m_targeting;
    qualified = true;
    m_targeting = nullptr;
    select(inner);
    m_targeting = targeting;
    qualified = outer;
}

void Emitter::insertSelect(const Select &source, std::span<const Assignment> targets)
{
    m_targets = targets;
    m_targeting = &source;
    select(source);
    m_targeting = nullptr;
}

void Emitter::keys(const Select &select, const char *head)
{
    m_out += "SELECT ";
    m_out += head;
    fromClause(select);
    if (select.where) {
        m_out += " WHERE ";
        condition(*select.where);
    }
    orderBy(select);
    // Else the keys would come in the order of whatever index covers the query; rows keep the order in which they were written.
    if (select.orderBy.empty())
        m_out += QByteArray(" ORDER BY ") + head;
    limit(select);
}

bool Emitter::unsortedKeys(const Select &select, const char *head, std::vector<Translation::SortKey> &sortKeys)
{
    m_out += "SELECT ";
    m_out += head;
    bool texts = false;
    for (const Ordering &ordering : select.orderBy) {
        const bool place = ordering.expr->kind == ExprKind::Integer;
        const Expr &expr = place ? *select.items[static_cast<size_t>(ordering.expr->integer) - 1].expr : *ordering.expr;
        if (!place && expr.isLiteral())
            continue;
        m_out += ',';
        value(expr);
        sortKeys.push_back({ isTextType(expr.type), ordering.descending });
        texts = texts || isTextType(expr.type);
    }
    fromClause(select);
    if (select.where) {
        m_out += " WHERE ";
        condition(*select.where);
    }
    return texts || (select.top >= 0 && !sortKeys.empty());
}

void Emitter::items(const Select &select)
{
    for (size_t i = 0; i < select.items.size(); ++i) {
        if (i > 0)
            m_out += ',';
        item(select, i, select);
    }
}

void Emitter::branch(const Select &select, const Select &first)
{
    const bool compound = !first.branches.empty();
    const bool enclosed = compound && select.top >= 0;      // SQLite limits a compound as a whole only
    if (enclosed)
        m_out += "SELECT * FROM (";
    m_out += select.distinct ? "SELECT DISTINCT " : "SELECT ";
    for (size_t i = 0; i < select.items.size(); ++i) {
        if (i > 0)
            m_out += ',';
        item(select, i, first);
    }
    fromClause(select);
    if (select.where) {
        m_out += " WHERE ";
        condition(*select.where);
    }
    for (size_t i = 0; i < select.groupBy.size(); ++i) {
        m_out += i == 0 ? " GROUP BY " : ",";
        value(*select.groupBy[i]);
        if (isTextType(select.groupBy[i]->type))
            m_out += " COLLATE JET";
    }
    if (select.having) {
        if (select.groupBy.empty())
            m_out += " GROUP BY NULL";
        m_out += " HAVING ";
        condition(*select.having);
    }
    if (enclosed) {
        limit(select);
        m_out += ')';
    }
}

void Emitter::item(const Select &select, size_t index, const Select &first)
{
    const Expr &expr = *select.items[index].expr;
    const DataType type = first.columns[index].type;
    if (m_targeting == &first)
        assigned(expr, *m_targets[index].design);
    else if (m_soleType)
        as(expr, *m_soleType);
    else
        as(expr, type);
    if (isTextType(type) && (select.distinct || !first.branches.empty()))
        m_out += " COLLATE JET";
    if (m_named && !m_soleType) {
        m_out += " AS ";
        identifier(first.columns[index].name);
    }
}

void Emitter::fromClause(const Select &select)
{
    for (size_t i = 0; i < select.from.size(); ++i) {
        m_out += i == 0 ? " FROM " : ",";
        from(*select.from[i], i > 0);
    }
}

void Emitter::from(const FromNode &node, bool nested)
{
    if (!node.source) {
        const bool right = node.join == JoinKind::Right;    // SQLite has no right join
        if (nested)
            m_out += '(';
        from(right ? *node.right : *node.left, false);
        m_out += node.join == JoinKind::Inner ? " JOIN " : " LEFT JOIN ";
        from(right ? *node.left : *node.right, true);
        m_out += " ON ";
        condition(*node.on);
        if (nested)
            m_out += ')';
        return;
    }
    const Source &source = *node.source;
    if (source.select) {
        const bool named = m_named;
        const DataType *soleType = m_soleType;
        m_named = true;
        m_soleType = nullptr;
        m_out += '(';
        derivedSelect(*source.select);
        m_out += ')';
        m_named = named;
        m_soleType = soleType;
    } else {
        identifier(source.design->name);
    }
    if (source.select || source.alias.compare(source.design->name, Qt::CaseInsensitive) != 0) {
        m_out += " AS ";
        identifier(source.alias);
    }
}

void Emitter::orderBy(const Select &select)
{
    const char *separator = " ORDER BY ";
    const auto key = [&](const Expr &expr, bool descending) {
        m_out += separator;
        separator = ",";
        value(expr);
        if (isTextType(expr.type))
            m_out += " COLLATE JET";
        if (descending)
            m_out += " DESC";
    };
    for (const Ordering &ordering : select.orderBy) {
        const Expr &expr = *ordering.expr;
        if (expr.kind == ExprKind::Integer)
            key(*select.items[static_cast<size_t>(expr.integer) - 1].expr, ordering.descending);
        else if (!expr.isLiteral())
            key(expr, ordering.descending);
    }
    // The engine removes duplicates by sorting, so what is distinct comes out in order.
    if (select.distinct && select.orderBy.empty() && m_targeting == nullptr && !m_soleType) {
        for (const SelectItem &item : select.items) {
            if (!item.expr->isLiteral())
                key(*item.expr, false);
        }
    }
}

void Emitter::unionOrderBy(const Select &select)
{
    const char *separator = " ORDER BY ";
    const auto key = [&](qint64 position, bool descending) {
        m_out += separator + QByteArray::number(position);
        separator = ",";
        if (isTextType(select.columns[static_cast<size_t>(position) - 1].type))
            m_out += " COLLATE JET";
        if (descending)
            m_out += " DESC";
    };
    for (const Ordering &ordering : select.orderBy)
        key(ordering.expr->integer, ordering.descending);
    if (select.orderBy.empty() && removesDuplicates(select)) {
        for (size_t i = 1; i <= select.columns.size(); ++i)
            key(static_cast<qint64>(i), false);
    }
}

void Emitter::limit(const Select &select)
{
    if (select.top < 0)
        return;
    m_out += " LIMIT ";
    if (!select.topPercent) {
        m_out += QByteArray::number(select.top);
        return;
    }
    m_out += "(SELECT (COUNT(*)*" + QByteArray::number(select.top) + "+99)/100 FROM (SELECT 1";
    fromClause(select);
    if (select.where) {
        m_out += " WHERE ";
        condition(*select.where);
    }
    m_out += "))";
}

}
