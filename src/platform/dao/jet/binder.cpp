#include "platform/dao/jet/binder.h"

#include "platform/dao/jet/functions.h"

using namespace Qt::StringLiterals;

namespace vorel::dao::jet {

namespace {

constexpr int maximumDepth = 8;         // of selects within selects
constexpr int maximumWeight = 500;
constexpr size_t maximumColumns = 255;
constexpr size_t maximumSources = 32;
constexpr int maximumOutputDepth = 80;

bool sameName(QStringView a, QStringView b)
{
    return a.size() == b.size() && a.compare(b, Qt::CaseInsensitive) == 0;
}

bool isPlainColumn(const Expr &expr)
{
    return expr.kind == ExprKind::Name && expr.column;
}

bool usesField(const Expr &expr, QStringView name)
{
    if (expr.kind == ExprKind::Name && expr.qualifier.isEmpty() && sameName(expr.text, name))
        return true;
    return std::any_of(expr.operands.begin(), expr.operands.end(),
                       [&](const ExprPtr &operand) { return usesField(*operand, name); });
}

// Nodes of the expression with the output columns that it names written out.
int weightOf(const Expr &expr)
{
    if (expr.kind == ExprKind::Alias)
        return expr.target->weight + 1;
    int weight = 1;
    for (const ExprPtr &operand : expr.operands)
        weight += weightOf(*operand);
    return weight;
}

// Raises the depth by that of the output columns named; true if there are any.
bool usesOutput(Expr &expr)
{
    if (expr.kind == ExprKind::Alias)
        return true;
    bool any = false;
    for (const ExprPtr &operand : expr.operands) {
        if (usesOutput(*operand)) {
            any = true;
            expr.depth = std::max(expr.depth, operand->depth + 4);
        }
    }
    return any;
}

bool isGrouped(const Expr &expr, const Select &select)
{
    if (expr.isLiteral() || expr.kind == ExprKind::Aggregate)
        return true;
    for (const ExprPtr &group : select.groupBy) {
        if (sameExpression(expr, *group))
            return true;
    }
    if (expr.kind == ExprKind::Alias)
        return !expr.target || isGrouped(*expr.target, select);
    if (expr.kind == ExprKind::Name)
        return expr.column == nullptr;
    return std::all_of(expr.operands.begin(), expr.operands.end(),
                       [&](const ExprPtr &operand) { return isGrouped(*operand, select); });
}

ExprPtr columnExpr(const Source *source, const ColumnDesign &column)
{
    auto expr = std::make_unique<Expr>();
    expr->kind = ExprKind::Name;
    expr->text = column.name;
    expr->source = source;
    expr->column = &column;
    expr->type = column.type;
    return expr;
}

}

void Binder::checkParameters() const
{
    if (!m_unknown.isEmpty())
        throw EngineError(err::TooFewParameters, QString::number(m_unknown.size()));
}

void Binder::bind(Statement &statement)
{
    switch (statement.kind) {
    case StatementKind::Select:
        bindSelect(*statement.select, nullptr);
        break;
    case StatementKind::Insert:
        bindInsert(statement);
        break;
    case StatementKind::Update:
    case StatementKind::Delete:
        bindTarget(statement);
        break;
    default:
        return;
    }
    checkParameters();
}

void Binder::bindSelect(Select &select, const Scope *parent)
{
    if (++m_depth > maximumDepth)
        throw EngineError(err::TooComplex);
    bindBranch(select, parent);
    for (const auto &branch : select.branches)
        bindBranch(*branch, parent);
    if (select.branches.empty()) {
        bindOrderBy(select, parent);
    } else {
        joinBranchTypes(select);
        bindUnionOrderBy(select);
    }
    --m_depth;
}

void Binder::bindBranch(Select &select, const Scope *parent)
{
    for (const auto &node : select.from)
        bindFrom(*node, select, parent);
    Scope scope{.sources = &select.sources, .parent = parent};
    for (const auto &node : select.from)
        bindJoins(*node, scope);
    bindItems(select, parent);
    if (select.where)
        bindCondition(*select.where, scope);
    for (const ExprPtr &group : select.groupBy)
        bindExpr(*group, scope);
    if (select.having) {
        scope.aggregating = &select;
        bindCondition(*select.having, scope);
    }
    checkGrouping(select);
}

void Binder::bindFrom(FromNode &node, Select &select, const Scope *parent)
{
    if (!node.source) {
        bindFrom(*node.left, select, parent);
        bindFrom(*node.right, select, parent);
        return;
    }
    Source &source = *node.source;
    if (source.select) {
        bindSelect(*source.select, nullptr);
        for (const OutputColumn &output : source.select->columns)
            source.derived.columns.push_back({.name = output.name, .type = output.type});
        source.design = &source.derived;
        if (source.alias.isEmpty())
            source.alias = u"%$##@_Alias"_s;
    } else {
        source.design = m_schema.table(source.name);
        if (!source.design)
            throw EngineError(err::TableNotFound, source.name);
    }
    for (const Source *other : select.sources) {
        if (sameName(other->alias, source.alias))
            throw EngineError(err::FromSyntax);
    }
    select.sources.push_back(&source);
    if (select.sources.size() > maximumSources)
        throw EngineError(err::TooComplex);
}

void Binder::bindJoins(FromNode &node, const Scope &scope)
{
    if (node.source)
        return;
    bindJoins(*node.left, scope);
    bindJoins(*node.right, scope);
    bindCondition(*node.on, scope);
}

void Binder::expandStars(Select &select)
{
    std::vector<SelectItem> items;
    for (SelectItem &item : select.items) {
        if (item.expr) {
            items.push_back(std::move(item));
            continue;
        }
        bool found = false;
        for (const Source *source : select.sources) {
            if (!item.qualifier.isEmpty() && !sameName(item.qualifier, source->alias))
                continue;
            found = true;
            items.reserve(items.size() + source->design->columns.size());
            for (const ColumnDesign &column : source->design->columns)
                items.push_back({.expr = columnExpr(source, column), .qualifier = {}, .alias = {}});
        }
        if (!found)
            throw item.qualifier.isEmpty() ? EngineError(err::SelectSyntax) : EngineError(err::TableNotFound, item.qualifier);
    }
    if (items.size() > maximumColumns)
        throw EngineError(err::TooManyFields);
    select.items = std::move(items);
}

void Binder::bindItems(Select &select, const Scope *parent)
{
    const bool loneStar = select.items.size() == 1 && !select.items[0].expr;
    expandStars(select);
    select.columns.reserve(select.items.size());
    Scope scope{.sources = &select.sources, .select = &select, .outputs = Outputs::Earlier, .aggregating = &select,
                .parent = parent};
    for (size_t i = 0; i < select.items.size(); ++i) {
        SelectItem &item = select.items[i];
        scope.outputCount = i;
        if (!item.expr->column)
            bindExpr(*item.expr, scope);
        item.expr->weight = weightOf(*item.expr);
        if (usesOutput(*item.expr) && (item.expr->weight > maximumWeight || item.expr->depth > maximumOutputDepth))
            throw EngineError(err::TooComplex);
        OutputColumn output;
        output.type = item.expr->type == dbUnknown ? dbText : item.expr->type;
        if (isPlainColumn(*item.expr)) {
            output.sourceTable = item.expr->source->design->name;
            output.sourceField = item.expr->column->name;
            output.name = output.sourceField;
        } else {
            output.name = u"Expr%1"_s.arg(1000 + i);
        }
        if (!item.alias.isEmpty()) {
            if (usesField(*item.expr, item.alias))
                throw EngineError(err::CircularAlias, item.alias);
            output.name = item.alias;
        }
        select.columns.push_back(std::move(output));
    }
    if (!loneStar || select.sources.size() > 1)
        nameColumns(select);
}

// Two output columns of one name become T1.Col and T2.Col.
void Binder::nameColumns(Select &select)
{
    std::vector<bool> clash(select.columns.size(), false);
    for (size_t i = 0; i < select.columns.size(); ++i) {
        for (size_t j = i + 1; j < select.columns.size(); ++j) {
            if (!sameName(select.columns[i].name, select.columns[j].name))
                continue;
            if (!select.items[i].alias.isEmpty() && !select.items[j].alias.isEmpty())
                throw EngineError(err::DuplicateAlias, select.columns[i].name);
            const Expr &first = *select.items[i].expr;
            const Expr &second = *select.items[j].expr;
            if (isPlainColumn(first) && isPlainColumn(second) && first.source != second.source)
                clash[i] = clash[j] = true;
            else if (select.items[j].alias.isEmpty())
                select.columns[j].name = u"Expr%1"_s.arg(1000 + j);
        }
    }
    for (size_t i = 0; i < clash.size(); ++i) {
        if (clash[i] && select.items[i].alias.isEmpty())
            select.columns[i].name = select.items[i].expr->source->alias + u'.' + select.columns[i].name;
    }
}

void Binder::checkGrouping(const Select &select) const
{
    if (!select.aggregated && select.groupBy.empty() && !select.having)
        return;
    for (const SelectItem &item : select.items) {
        if (!isGrouped(*item.expr, select)) {
            throw EngineError(err::NotInAggregate, item.expr->end > item.expr->begin ? textOf(*item.expr) : item.expr->text);
        }
    }
}

// A number in ORDER BY is a column's, from 1.
void Binder::requireColumn(const Expr &expr, const Select &select)
{
    if (expr.kind == ExprKind::Integer && (expr.integer < 1 || expr.integer > static_cast<qint64>(select.items.size())))
        throw EngineError(err::OrderBySyntax);
}

void Binder::bindOrderBy(Select &select, const Scope *parent)
{
    const bool grouped = select.aggregated || !select.groupBy.empty();
    const Scope scope{.sources = &select.sources, .aggregating = grouped ? &select : nullptr, .parent = parent};
    for (const Ordering &ordering : select.orderBy) {
        Expr &expr = *ordering.expr;
        bindExpr(expr, scope);
        requireColumn(expr, select);
        if (expr.kind == ExprKind::Integer)
            continue;
        const bool selected = std::any_of(select.items.begin(), select.items.end(), [&](const SelectItem &item) {
            return sameExpression(*item.expr, expr);
        });
        if (select.distinct && !selected && !expr.isLiteral() && m_unknown.isEmpty())
            throw EngineError(err::OrderConflictsWithDistinct, textOf(expr));
    }
}

void Binder::bindUnionOrderBy(Select &select)
{
    for (const Ordering &ordering : select.orderBy) {
        Expr &expr = *ordering.expr;
        qint64 position = expr.kind == ExprKind::Integer ? expr.integer : 0;
        for (size_t i = 0; i < select.columns.size() && expr.kind == ExprKind::Name && position == 0; ++i) {
            if (sameName(select.columns[i].name, expr.text))
                position = static_cast<qint64>(i) + 1;
        }
        if (position < 1 || position > static_cast<qint64>(select.columns.size()))
            throw EngineError(err::OrderNotSelected, textOf(expr));
        expr.kind = ExprKind::Integer;
        expr.integer = position;
    }
}

void Binder::joinBranchTypes(Select &select)
{
    for (const auto &branch : select.branches) {
        if (branch->columns.size() != select.columns.size())
            throw EngineError(err::UnionColumnsDiffer);
    }
    for (size_t i = 0; i < select.columns.size(); ++i) {
        DataType type = select.items[i].expr->type;
        for (const auto &branch : select.branches)
            type = commonType(type, branch->items[i].expr->type);
        select.columns[i].type = type == dbUnknown ? dbText : type;
    }
}

void Binder::bindInsert(Statement &statement)
{
    const TableDesign *design = m_schema.table(statement.table);
    if (!design)
        throw EngineError(err::TableNotFound, statement.table);
    statement.table = design->name;
    if (statement.select) {
        bindSelect(*statement.select, nullptr);
        if (statement.allColumns) {
            for (const OutputColumn &output : statement.select->columns) {
                statement.assignments.emplace_back();
                statement.assignments.back().column = output.name;
            }
        }
        if (statement.assignments.size() != statement.select->columns.size())
            throw EngineError(err::ValueCountDiffers);
    } else if (statement.allColumns) {
        if (statement.assignments.size() != design->columns.size())
            throw EngineError(err::ValueCountDiffers);
        for (size_t i = 0; i < statement.assignments.size(); ++i)
            statement.assignments[i].column = design->columns[i].name;
    }
    for (Assignment &assignment : statement.assignments) {
        assignment.design = findColumn(*design, assignment.column);
        if (!assignment.design)
            throw EngineError(err::UnknownInsertField, assignment.column);
        const auto same = [&](const Assignment &other) { return other.design == assignment.design; };
        if (std::count_if(statement.assignments.begin(), statement.assignments.end(), same) > 1)
            throw EngineError(err::DuplicateDestination, assignment.column);
        if (assignment.value)
            bindExpr(*assignment.value, {});
    }
}

void Binder::bindTarget(Statement &statement)
{
    Source &source = *statement.source;
    source.design = m_schema.table(source.name);
    if (!source.design)
        throw EngineError(err::TableNotFound, source.name);
    statement.table = source.design->name;
    const std::vector<const Source *> sources = {&source};
    const Scope scope{.sources = &sources};
    for (Assignment &assignment : statement.assignments) {
        assignment.design = findColumn(*source.design, assignment.column);
        if (!assignment.design && !m_unknown.contains(assignment.column, Qt::CaseInsensitive))
            m_unknown.append(assignment.column);
        bindExpr(*assignment.value, scope);
    }
    if (statement.where)
        bindCondition(*statement.where, scope);
}

void Binder::bindFilter(Expr &filter, const Select &select)
{
    bindCondition(filter, {.sources = &select.sources, .select = &select, .outputs = Outputs::First,
                           .outputCount = select.columns.size()});
}

void Binder::bindCriteria(Expr &criteria, const Select &select)
{
    bindCondition(criteria, {.select = &select, .outputs = Outputs::Only, .outputCount = select.columns.size()});
}

void Binder::bindOrdering(std::vector<Ordering> &orderBy, const Select &select)
{
    const Scope scope{.sources = &select.sources, .select = &select, .outputs = Outputs::First,
                      .outputCount = select.columns.size()};
    for (const Ordering &ordering : orderBy) {
        bindExpr(*ordering.expr, scope);
        requireColumn(*ordering.expr, select);
    }
}

}
