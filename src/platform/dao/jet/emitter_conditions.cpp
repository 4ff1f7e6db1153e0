#include "platform/dao/jet/emitter.h"

#include "platform/dao/jet/collation.h"
#include "platform/dao/jet/functions.h"
#include "platform/dao/jet/operators.h"

namespace vorel::dao::jet {

namespace {

bool isLogical(Operator op)
{
    return rowOf(op).kind == OperatorKind::Logical;
}

// Whether the bounds of a Between are in the wrong order; nothing if that is known only when it runs.
std::optional<bool> boundsSwapped(const Expr &low, const Expr &high)
{
    const bool numbers = (low.kind == ExprKind::Integer || low.kind == ExprKind::Decimal)
        && (high.kind == ExprKind::Integer || high.kind == ExprKind::Decimal);
    if (numbers)
        return low.text.toDouble() > high.text.toDouble();
    if (low.kind == ExprKind::Date && high.kind == ExprKind::Date)
        return low.text > high.text;
    if (low.kind == ExprKind::Text && high.kind == ExprKind::Text)
        return compareText(low.text.toStdString(), high.text.toStdString()) > 0;
    return {};
}

}

bool isCondition(const Expr &expr)
{
    switch (expr.kind) {
    case ExprKind::Between:
    case ExprKind::In:
    case ExprKind::InSelect:
    case ExprKind::IsNull:
    case ExprKind::Exists:
        return true;
    case ExprKind::Unary:
        return expr.op == Operator::Not && expr.type == dbBoolean;
    case ExprKind::Binary:
        return (expr.op >= Operator::Equal && expr.op <= Operator::Like)
            || (isLogical(expr.op) && expr.type == dbBoolean);
    case ExprKind::Call:
        return expr.function->form == CallForm::IsNull;
    case ExprKind::Null:
    case ExprKind::Text:
    case ExprKind::Integer:
    case ExprKind::Decimal:
    case ExprKind::Date:
    case ExprKind::Boolean:
    case ExprKind::Name:
    case ExprKind::Alias:
    case ExprKind::SubSelect:
    case ExprKind::Aggregate:
        break;
    }
    return false;
}

DataType meetingType(std::span<const ExprPtr> operands)
{
    DataType type = dbUnknown;
    bool numbers = false;
    for (const ExprPtr &operand : operands) {
        type = comparisonType(type, operand->type);
        numbers = numbers || (isNumericType(operand->type) && !operand->isLiteral());
    }
    return type == dbDate && numbers ? dbDouble : type;
}

void Emitter::operandAs(const Expr &expr, DataType type, bool collated)
{
    as(expr, isNumericType(type) && type != dbCurrency ? dbDouble : type);
    if (collated && isTextType(type))
        m_out += " COLLATE JET";
}

void Emitter::condition(const Expr &expr)
{
    if (!isCondition(expr)) {
        if (expr.kind == ExprKind::Alias)
            condition(*expr.target);
        else if (expr.type == dbDate)
            number(expr);
        else
            value(expr);
        return;
    }
    switch (expr.kind) {
    case ExprKind::Between:
        between(expr);
        break;
    case ExprKind::In:
    case ExprKind::InSelect:
        in(expr);
        break;
    case ExprKind::IsNull:
    case ExprKind::Call:
        m_out += '(';
        value(*expr.operands[0]);
        m_out += expr.negated ? " IS NOT NULL)" : " IS NULL)";
        break;
    case ExprKind::Exists:
        m_out += "EXISTS(";
        derivedSelect(*expr.select);
        m_out += ')';
        break;
    case ExprKind::Unary:
        m_out += "(NOT ";
        condition(*expr.operands[0]);
        m_out += ')';
        break;
    case ExprKind::Binary:
        if (isLogical(expr.op))
            logical(expr);
        else
            comparison(expr);
        break;
    case ExprKind::Null:
    case ExprKind::Text:
    case ExprKind::Integer:
    case ExprKind::Decimal:
    case ExprKind::Date:
    case ExprKind::Boolean:
    case ExprKind::Name:
    case ExprKind::Alias:
    case ExprKind::SubSelect:
    case ExprKind::Aggregate:
        break;
    }
}

void Emitter::truth(const Expr &expr)
{
    if (isCondition(expr)) {
        condition(expr);
        return;
    }
    m_out += '(';
    condition(expr);
    m_out += "<>0)";
}

void Emitter::logical(const Expr &expr)
{
    if (expr.op == Operator::Xor || expr.op == Operator::Equivalent) {
        infix(expr, rowOf(expr.op).truth, &Emitter::truth);
        return;
    }
    m_out += '(';
    if (expr.op == Operator::Implies) {
        m_out += "NOT ";
        condition(*expr.operands[0]);
        m_out += " OR ";
        condition(*expr.operands[1]);
    } else {
        chain(expr);
    }
    m_out += ')';
}

// a Or b Or c without brackets: SQLite's parser takes no deep nesting.
void Emitter::chain(const Expr &expr)
{
    const bool outer = m_alternative;
    m_alternative = outer || expr.op == Operator::Or;
    const Expr &left = *expr.operands[0];
    if (left.kind == ExprKind::Binary && left.op == expr.op && isCondition(left))
        chain(left);
    else
        condition(left);
    m_out += rowOf(expr.op).truth;
    condition(*expr.operands[1]);
    m_alternative = outer;
}

void Emitter::comparison(const Expr &expr)
{
    const Expr &left = *expr.operands[0];
    const Expr &right = *expr.operands[1];
    if (expr.op == Operator::Like) {
        call2("j_like", left, right, &Emitter::text);
        return;
    }
    m_out += '(';
    if (expr.op == Operator::NotEqual && right.kind == ExprKind::Null) {    // the engine reads it as Is Not Null
        value(left);
        m_out += " IS NOT NULL)";
        return;
    }
    const DataType type = meetingType(expr.operands);
    // A half-open range among alternatives keeps most rows: one pass over the table beats an index search for each,
    // which SQLite would try if it saw a bare column.
    const bool openRange = expr.op >= Operator::Less && expr.op <= Operator::GreaterEqual;
    if (m_alternative && openRange && left.kind == ExprKind::Name && !isTextType(type))
        m_out += '+';
    operandAs(left, type, true);
    m_out += rowOf(expr.op).sign;
    operandAs(right, type, false);
    m_out += ')';
}

void Emitter::between(const Expr &expr)
{
    const DataType type = meetingType(expr.operands);
    const Expr *low = expr.operands[1].get();
    const Expr *high = expr.operands[2].get();
    const std::optional<bool> swapped = boundsSwapped(*low, *high);
    if (swapped.value_or(false))
        std::swap(low, high);
    const auto range = [&](const Expr &from, const Expr &to) {
        operandAs(*expr.operands[0], type, true);
        m_out += " BETWEEN ";
        operandAs(from, type, false);
        m_out += " AND ";
        operandAs(to, type, false);
    };
    m_out += expr.negated ? "(NOT (" : "(";
    range(*low, *high);
    if (!swapped) {
        m_out += " OR ";
        range(*high, *low);
    }
    m_out += expr.negated ? "))" : ")";
}

void Emitter::in(const Expr &expr)
{
    DataType type = meetingType(expr.operands);
    if (expr.select)
        type = comparisonType(type, expr.select->columns[0].type);
    m_out += '(';
    operandAs(*expr.operands[0], type, true);
    m_out += expr.negated ? " NOT IN (" : " IN (";
    if (expr.select) {
        const DataType *outer = m_soleType;
        m_soleType = &type;
        derivedSelect(*expr.select);
        m_soleType = outer;
    }
    for (size_t i = 1; i < expr.operands.size(); ++i) {
        if (i > 1)
            m_out += ',';
        operandAs(*expr.operands[i], type, false);
    }
    m_out += "))";
}

}
