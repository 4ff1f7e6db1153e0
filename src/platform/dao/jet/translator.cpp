#include "platform/dao/jet/translator.h"

#include "platform/dao/jet/binder.h"
#include "platform/dao/jet/emitter.h"
#include "platform/dao/jet/parser.h"

using namespace Qt::StringLiterals;

namespace vorel::dao::jet {

namespace {

std::unique_ptr<Select> selectAll(const QString &table)
{
    auto select = std::make_unique<Select>();
    select->items.emplace_back();
    auto node = std::make_unique<FromNode>();
    node->source = std::make_unique<Source>();
    node->source->name = node->source->alias = table;
    select->from.push_back(std::move(node));
    return select;
}

Statement parse(QStringView text, const Schema &schema)
{
    const QStringView name = text.trimmed();
    Parser parser(text);
    Statement statement;
    const std::optional<QString> lone = parser.loneName();
    if (const TableDesign *design = lone ? nullptr : schema.table(name)) {
        statement.select = selectAll(design->name);     // a name with blanks, without brackets
    } else if (lone) {
        statement.select = selectAll(*lone);
    } else {
        statement = parser.statement();
    }
    return statement;
}

bool isKeyed(const Select &select)
{
    return select.branches.empty() && !select.distinct && !select.aggregated && select.groupBy.empty() && !select.having
        && select.sources.size() == 1 && !select.sources[0]->select && !select.topPercent;
}

// SQLite's name for the row key, beside a design that uses it for a field.
const char *rowKey(const TableDesign &design)
{
    for (const char *name : {"rowid", "_rowid_"}) {
        if (!findColumn(design, QString::fromLatin1(name)))
            return name;
    }
    return "oid";
}

ExprPtr both(ExprPtr first, ExprPtr second)
{
    if (!first)
        return second;
    auto expr = std::make_unique<Expr>();
    expr->kind = ExprKind::Binary;
    expr->op = Operator::And;
    expr->type = dbBoolean;
    expr->operands.push_back(std::move(first));
    expr->operands.push_back(std::move(second));
    return expr;
}

// What only the rows of the finished query have must be asked of them from outside.
bool needsEnclosing(const Select &select)
{
    return !isKeyed(select) || select.top >= 0;
}

void enclose(Statement &statement)
{
    auto outer = std::make_unique<Select>();
    outer->items.emplace_back();
    auto node = std::make_unique<FromNode>();
    node->source = std::make_unique<Source>();
    node->source->select = std::move(statement.select);
    outer->from.push_back(std::move(node));
    statement.select = std::move(outer);
}

void refine(Statement &statement, const Schema &schema, const Refinement &refinement)
{
    Select *select = statement.select.get();
    if (!refinement.filter.trimmed().isEmpty()) {
        ExprPtr filter = Parser(refinement.filter).filter();
        Binder binder(refinement.filter, schema);
        binder.bindFilter(*filter, *select);
        binder.checkParameters();
        select->where = both(std::move(select->where), std::move(filter));
    }
    if (!refinement.sort.trimmed().isEmpty()) {
        std::vector<Ordering> orderBy = Parser(refinement.sort).orderings();
        Binder binder(refinement.sort, schema);
        binder.bindOrdering(orderBy, *select);
        binder.checkParameters();
        select->orderBy = std::move(orderBy);
    }
}

void emitSelect(const Select &select, Translation &result)
{
    Emitter whole;
    whole.select(select);
    result.sql = whole.take();
    result.columns = select.columns;
    result.keyed = isKeyed(select);
    if (!result.keyed)
        return;
    const TableDesign &design = *select.sources[0]->design;
    const char *key = rowKey(design);
    result.keyTable = design.name;
    Emitter keys;
    keys.keys(select, key);
    result.keySql = keys.take();
    Emitter sorted;
    if (sorted.unsortedKeys(select, key, result.sortKeys))
        result.sortSql = sorted.take();
    result.top = select.top;
    Emitter columns;
    columns.items(select);
    columns.fromClause(select);
    const QByteArray body = columns.take();
    result.rowSql = "SELECT " + body + " WHERE " + key + "=?1";
    result.rangeSql = QByteArray("SELECT ") + key + ',' + body + " WHERE " + key + " BETWEEN ?1 AND ?2 ORDER BY " + key;
    if (!select.where)
        return;
    Emitter wanted;
    wanted.condition(*select.where);
    result.wantedRangeSql = QByteArray("SELECT ") + key + ',' + body + " NOT INDEXED WHERE " + key + " BETWEEN ?1 AND ?2 AND "
        + wanted.take() + " ORDER BY " + key;
}

void emitInsert(const Statement &statement, Emitter &out)
{
    out.raw("INSERT INTO ");
    out.identifier(statement.table);
    const char *separator = " (";
    for (const Assignment &assignment : statement.assignments) {
        out.raw(separator);
        out.identifier(assignment.design->name);
        separator = ",";
    }
    out.raw(") ");
    if (statement.select) {
        out.insertSelect(*statement.select, statement.assignments);
        return;
    }
    separator = "VALUES (";
    for (const Assignment &assignment : statement.assignments) {
        out.raw(separator);
        out.assigned(*assignment.value, *assignment.design);
        separator = ",";
    }
    out.raw(")");
}

void emitChange(const Statement &statement, Emitter &out)
{
    out.raw(statement.kind == StatementKind::Update ? "UPDATE " : "DELETE FROM ");
    out.identifier(statement.table);
    const char *separator = " SET ";
    for (const Assignment &assignment : statement.assignments) {
        out.raw(separator);
        out.identifier(assignment.design->name);
        out.raw("=");
        out.assigned(*assignment.value, *assignment.design);
        separator = ",";
    }
    if (statement.where) {
        out.raw(" WHERE ");
        out.condition(*statement.where);
    }
}

Translation emitStatement(Statement &statement)
{
    Translation result;
    result.kind = statement.kind;
    if (statement.kind == StatementKind::Select) {
        emitSelect(*statement.select, result);
        return result;
    }
    result.keyTable = statement.table;
    Emitter out;
    if (statement.kind == StatementKind::Insert)
        emitInsert(statement, out);
    else if (statement.source)
        emitChange(statement, out);
    result.sql = out.take();
    result.created = std::move(statement.created);
    result.dropped = std::move(statement.dropped);
    result.index = std::move(statement.index);
    result.constraints = std::move(statement.constraints);
    return result;
}

}

Translation translate(QStringView text, const Schema &schema)
{
    return translate(text, schema, {});
}

Translation translate(QStringView text, const Schema &schema, const Refinement &refinement)
{
    Statement statement = parse(text, schema);
    Binder binder(text, schema);
    binder.bind(statement);
    const bool refined = !refinement.filter.trimmed().isEmpty() || !refinement.sort.trimmed().isEmpty();
    if (!refined)
        return emitStatement(statement);
    if (statement.kind != StatementKind::Select)
        throw EngineError(err::InvalidOperation);
    if (needsEnclosing(*statement.select)) {
        statement = parse(text, schema);
        enclose(statement);
        Binder again(text, schema);
        again.bind(statement);
    }
    refine(statement, schema, refinement);
    return emitStatement(statement);
}

QByteArray translateCriteria(QStringView query, QStringView criteria, const Schema &schema)
{
    Statement statement = parse(query, schema);
    Binder binder(query, schema);
    binder.bind(statement);
    if (statement.kind != StatementKind::Select || !isKeyed(*statement.select))
        throw EngineError(err::NotSupported);
    Select &select = *statement.select;
    ExprPtr expr = Parser(criteria).criteria();
    Binder criteriaBinder(criteria, schema);
    criteriaBinder.bindCriteria(*expr, select);
    const char *key = rowKey(*select.sources[0]->design);
    Emitter out;
    // Of a query with TOP these are more; the caller looks for them among its rows.
    select.where = both(std::move(select.where), std::move(expr));
    select.orderBy.clear();
    select.top = -1;
    out.keys(select, key);
    return out.take();
}

}
