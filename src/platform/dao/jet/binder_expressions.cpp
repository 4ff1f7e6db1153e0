#include "platform/dao/jet/binder.h"

#include "platform/dao/jet/functions.h"
#include "platform/dao/jet/operators.h"

using namespace Qt::StringLiterals;

namespace vorel::dao::jet {

namespace {

bool sameName(QStringView a, QStringView b)
{
    return a.size() == b.size() && a.compare(b, Qt::CaseInsensitive) == 0;
}

DataType arithmeticType(Operator op, DataType a, DataType b)
{
    if (op == Operator::Power)
        return dbDouble;
    if (op == Operator::IntegerDivide || op == Operator::Modulo)
        return dbLong;
    if (op == Operator::Add && isTextType(a) && isTextType(b))
        return dbText;
    if (a == dbDate || b == dbDate) {
        if (op == Operator::Subtract && a == b)
            return dbDouble;
        return op == Operator::Add || op == Operator::Subtract ? dbDate : dbDouble;
    }
    if (a == dbUnknown || b == dbUnknown)       // with Null: Null
        return commonType(a, b);
    if (op == Operator::Divide)
        return a == dbCurrency ? dbCurrency : dbDouble;
    if (a == dbCurrency || b == dbCurrency)
        return dbCurrency;
    return isIntegerType(a) && isIntegerType(b) ? dbLong : dbDouble;
}

DataType logicalType(DataType a, DataType b)
{
    const auto logical = [](DataType t) { return t == dbBoolean || t == dbUnknown; };
    return logical(a) && logical(b) ? dbBoolean : dbLong;
}

void requireNoText(const Expr &expr)
{
    if (isTextType(expr.type))
        throw EngineError(err::CriteriaMismatch);
}

}

const ColumnDesign *findColumn(const TableDesign &design, QStringView name)
{
    for (const ColumnDesign &column : design.columns) {
        if (sameName(column.name, name))
            return &column;
    }
    return nullptr;
}

bool sameExpression(const Expr &a, const Expr &b)
{
    if (a.kind == ExprKind::Alias && a.target)
        return sameExpression(*a.target, b);
    if (b.kind == ExprKind::Alias && b.target)
        return sameExpression(a, *b.target);
    if (a.kind != b.kind || a.op != b.op || a.aggregate != b.aggregate || a.negated != b.negated
        || a.operands.size() != b.operands.size() || a.select || b.select)
        return false;
    if (a.kind == ExprKind::Name ? a.column != b.column || a.source != b.source
                                 : a.text != b.text || a.integer != b.integer)
        return false;
    for (size_t i = 0; i < a.operands.size(); ++i) {
        if (!sameExpression(*a.operands[i], *b.operands[i]))
            return false;
    }
    return true;
}

QString Binder::textOf(const Expr &expr) const
{
    return m_text.mid(expr.begin, expr.end - expr.begin).toString();
}

void Binder::bindCondition(Expr &expr, const Scope &scope)
{
    bindExpr(expr, scope);
    requireNoText(expr);
}

void Binder::bindExpr(Expr &expr, const Scope &scope)
{
    if (expr.kind == ExprKind::Aggregate) {
        bindAggregate(expr, scope);
        return;
    }
    for (const ExprPtr &operand : expr.operands)
        bindExpr(*operand, scope);
    switch (expr.kind) {
    case ExprKind::Null:
        expr.type = dbUnknown;
        break;
    case ExprKind::Text:
        expr.type = dbText;
        break;
    case ExprKind::Integer:
        expr.type = expr.integer == static_cast<qint32>(expr.integer) ? dbLong : dbDouble;
        break;
    case ExprKind::Decimal:
        expr.type = dbDouble;
        break;
    case ExprKind::Date:
        expr.type = dbDate;
        break;
    case ExprKind::Boolean:
    case ExprKind::IsNull:
        expr.type = dbBoolean;
        break;
    case ExprKind::Name:
        bindName(expr, scope);
        break;
    case ExprKind::Unary:
        bindUnary(expr);
        break;
    case ExprKind::Binary:
        bindBinary(expr);
        break;
    case ExprKind::Between:
    case ExprKind::In:
        bindRange(expr);
        break;
    case ExprKind::InSelect:
    case ExprKind::Exists:
    case ExprKind::SubSelect:
        bindSubSelect(expr, scope);
        break;
    case ExprKind::Call:
        bindCall(expr);
        break;
    case ExprKind::Alias:
    case ExprKind::Aggregate:
        break;
    }
}

void Binder::bindName(Expr &expr, const Scope &scope)
{
    for (const Scope *at = &scope; at; at = at->parent) {
        const bool outputsFirst = at->outputs == Outputs::First || at->outputs == Outputs::Only;
        if (outputsFirst && bindOutput(expr, *at))
            return;
        if (at->outputs != Outputs::Only && bindColumn(expr, *at))
            return;
        if (at->outputs == Outputs::Earlier && bindOutput(expr, *at))
            return;
        if (at->outputs == Outputs::Only)
            throw EngineError(err::UnknownNameInExpression, expr.text);
    }
    const QString name = expr.qualifier.isEmpty() ? expr.text : expr.qualifier + u'.' + expr.text;
    if (!m_unknown.contains(name, Qt::CaseInsensitive))
        m_unknown.append(name);
}

bool Binder::bindColumn(Expr &expr, const Scope &scope) const
{
    if (!scope.sources)
        return false;
    for (const Source *source : *scope.sources) {
        if (!expr.qualifier.isEmpty() && !sameName(source->alias, expr.qualifier))
            continue;
        const ColumnDesign *column = findColumn(*source->design, expr.text);
        if (!column)
            continue;
        if (expr.column)
            throw EngineError(err::AmbiguousField, expr.text);
        expr.source = source;
        expr.column = column;
        expr.type = column->type;
    }
    return expr.column != nullptr;
}

bool Binder::bindOutput(Expr &expr, const Scope &scope) const
{
    for (size_t i = 0; i < scope.outputCount; ++i) {
        const OutputColumn &output = scope.select->columns[i];
        const bool matches = expr.qualifier.isEmpty()
            ? sameName(output.name, expr.text)
            : sameName(output.sourceTable, expr.qualifier) && sameName(output.sourceField, expr.text);
        if (!matches)
            continue;
        expr.kind = ExprKind::Alias;
        expr.target = scope.select->items[i].expr.get();
        expr.type = output.type;
        expr.depth = expr.target->depth + 1;
        return true;
    }
    return false;
}

void Binder::bindRange(Expr &expr)
{
    ExprPtr &subject = expr.operands[0];
    // Several tables keep their dates as text, and their reports ask for a period all the same.
    if (expr.kind == ExprKind::Between && isTextType(subject->type) && expr.operands[1]->kind == ExprKind::Date
        && expr.operands[2]->kind == ExprKind::Date) {
        auto reading = std::make_unique<Expr>();
        reading->kind = ExprKind::Call;
        reading->function = &textAsDate();
        reading->type = dbDate;
        reading->depth = subject->depth + 1;
        reading->operands.push_back(std::move(subject));
        subject = std::move(reading);
    }
    for (size_t i = 1; i < expr.operands.size(); ++i)
        comparisonType(subject->type, expr.operands[i]->type);
    expr.type = dbBoolean;
}

void Binder::bindUnary(Expr &expr)
{
    const Expr &operand = *expr.operands[0];
    if (expr.op == Operator::Not) {
        requireNoText(operand);
        expr.type = logicalType(operand.type, dbBoolean);
        return;
    }
    expr.type = operand.type == dbBoolean                                          ? dbLong
        : isTextType(operand.type) || operand.type == dbDate ? dbDouble
                                                                                    : operand.type;
}

void Binder::bindBinary(Expr &expr)
{
    const Expr &left = *expr.operands[0];
    const Expr &right = *expr.operands[1];
    switch (rowOf(expr.op).kind) {
    case OperatorKind::Comparison:
        comparisonType(left.type, right.type);
        expr.type = dbBoolean;
        break;
    case OperatorKind::Like:
        expr.type = dbBoolean;
        break;
    case OperatorKind::Concatenation:
        expr.type = left.type == dbMemo || right.type == dbMemo ? dbMemo : dbText;
        break;
    case OperatorKind::Logical:
        requireNoText(left);
        requireNoText(right);
        expr.type = logicalType(left.type, right.type);
        break;
    case OperatorKind::None:
    case OperatorKind::Unary:
    case OperatorKind::Arithmetic:
        expr.type = arithmeticType(expr.op, left.type, right.type);
    }
}

void Binder::bindCall(Expr &expr)
{
    expr.function = findFunction(expr.text);
    if (!expr.function)
        throw EngineError(err::UndefinedFunction, expr.text);
    const auto count = static_cast<int>(expr.operands.size());
    if (count < expr.function->minimum() || count > expr.function->maximum()
        || (expr.function->form == CallForm::Switch && count % 2 != 0))
        throw EngineError(err::QuerySyntax, u"Wrong number of arguments used with function in query expression '"_s + textOf(expr)
                                    + u"'."_s, nullptr);
    expr.type = expr.function->type;
    switch (expr.function->form) {
    case CallForm::IIf:
    case CallForm::Choose:
        for (size_t i = 1; i < expr.operands.size(); ++i)
            expr.type = commonType(expr.type, expr.operands[i]->type);
        break;
    case CallForm::Switch:
        for (size_t i = 1; i < expr.operands.size(); i += 2)
            expr.type = commonType(expr.type, expr.operands[i]->type);
        break;
    case CallForm::Int:
    case CallForm::Fix:
    case CallForm::Abs:
    case CallForm::Round:
        expr.type = isIntegerType(expr.operands[0]->type) ? dbLong
            : expr.operands[0]->type == dbCurrency        ? dbCurrency
                                                          : dbDouble;
        break;
    default:
        break;
    }
    if (expr.function->form == CallForm::IIf)
        requireNoText(*expr.operands[0]);
}

void Binder::bindAggregate(Expr &expr, const Scope &scope)
{
    if (!scope.aggregating)
        throw EngineError(err::AggregateInWhere, textOf(expr));
    scope.aggregating->aggregated = true;
    Scope inner = scope;
    inner.aggregating = nullptr;
    for (const ExprPtr &operand : expr.operands)
        bindExpr(*operand, inner);
    if (expr.aggregate == AggregateKind::CountAll) {
        expr.type = dbLong;
        return;
    }
    if (expr.operands.size() != 1)
        throw EngineError(err::QuerySyntax, u"Wrong number of arguments used with function in query expression '"_s + textOf(expr)
                                    + u"'."_s, nullptr);
    const DataType type = expr.operands[0]->type;
    switch (expr.aggregate) {
    case AggregateKind::Count:
        expr.type = dbLong;
        break;
    case AggregateKind::Sum:
    case AggregateKind::Average:
        if (isTextType(type))
            throw EngineError(err::CriteriaMismatch);
        expr.type = type == dbCurrency ? dbCurrency : dbDouble;
        break;
    default:
        expr.type = type;
    }
}

void Binder::bindSubSelect(Expr &expr, const Scope &scope)
{
    if (++m_depth > 8)
        throw EngineError(err::TooComplex);
    bindSelect(*expr.select, &scope);
    --m_depth;
    expr.type = dbBoolean;
    if (expr.kind == ExprKind::Exists)
        return;
    if (expr.select->columns.size() != 1)
        throw EngineError(err::TooManyFieldsInSubquery);
    if (expr.kind == ExprKind::InSelect)
        comparisonType(expr.operands[0]->type, expr.select->columns[0].type);
    else
        expr.type = expr.select->columns[0].type;
}

}
