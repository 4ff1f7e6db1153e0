#include "platform/dao/jet/emitter.h"

#include "platform/dao/jet/functions.h"
#include "platform/dao/jet/operators.h"

namespace vorel::dao::jet {

namespace {

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

void collectConcatenated(const Expr &expr, std::vector<const Expr *> &parts)
{
    for (const ExprPtr &operand : expr.operands) {
        if (operand->kind == ExprKind::Binary && operand->op == Operator::Concatenate)
            collectConcatenated(*operand, parts);
        else
            parts.push_back(operand.get());
    }
}

}

void Emitter::identifier(QStringView name)
{
    if (!isAscii(name) || name.contains(u'"')) {
        m_out += '"' + name.toUtf8().replace('"', "\"\"") + '"';
        return;
    }
    const qsizetype at = m_out.size();
    m_out.resize(at + name.size() + 2);
    char *out = m_out.data() + at;
    *out++ = '"';
    for (const QChar c : name)
        *out++ = static_cast<char>(c.unicode());
    *out = '"';
}

void Emitter::textLiteral(QStringView text)
{
    if (text.contains(QChar(0))) {      // SQLite's own text ends there
        m_out += "CAST(x'" + text.toUtf8().toHex() + "' AS TEXT)";
        return;
    }
    m_out += '\'';
    m_out += text.contains(u'\'') ? text.toUtf8().replace('\'', "''") : text.toUtf8();
    m_out += '\'';
}

void Emitter::column(const Expr &expr)
{
    if (qualified && expr.source) {
        identifier(expr.source->alias);
        m_out += '.';
    }
    identifier(expr.column->name);
}

void Emitter::value(const Expr &expr)
{
    if (isCondition(expr)) {
        m_out += "(-";
        condition(expr);
        m_out += ')';
        return;
    }
    switch (expr.kind) {
    case ExprKind::Null:
        m_out += "NULL";
        break;
    case ExprKind::Text:
    case ExprKind::Date:
        textLiteral(expr.text);
        break;
    case ExprKind::Integer:
    case ExprKind::Boolean:
        m_out += QByteArray::number(expr.integer);
        break;
    case ExprKind::Decimal:
        m_out += expr.text.toLatin1();
        if (!expr.text.contains(u'.') && !expr.text.contains(u'e', Qt::CaseInsensitive))
            m_out += ".0";
        break;
    case ExprKind::Name:
        column(expr);
        break;
    case ExprKind::Alias:
        value(*expr.target);
        break;
    case ExprKind::Unary:
        unary(expr);
        break;
    case ExprKind::Binary:
        binary(expr);
        break;
    case ExprKind::SubSelect:
        m_out += '(';
        derivedSelect(*expr.select);
        m_out += ')';
        break;
    case ExprKind::Call:
        call(expr);
        break;
    case ExprKind::Aggregate:
        aggregate(expr);
        break;
    case ExprKind::Between:
    case ExprKind::In:
    case ExprKind::InSelect:
    case ExprKind::IsNull:
    case ExprKind::Exists:     // conditions, each of them
        break;
    }
}

void Emitter::unary(const Expr &expr)
{
    const Expr &operand = *expr.operands[0];
    m_out += expr.op == Operator::Not ? "(~" : "(- ";
    if (expr.op == Operator::Not)
        whole(operand);
    else if (operand.type == dbCurrency)
        value(operand);
    else
        number(operand);
    m_out += ')';
}

void Emitter::infix(const Expr &expr, const char *op, void (Emitter::*operand)(const Expr &))
{
    m_out += '(';
    (this->*operand)(*expr.operands[0]);
    m_out += op;
    (this->*operand)(*expr.operands[1]);
    m_out += ')';
}

void Emitter::call2(const char *function, const Expr &a, const Expr &b, void (Emitter::*operand)(const Expr &))
{
    m_out += function;
    m_out += '(';
    (this->*operand)(a);
    m_out += ',';
    (this->*operand)(b);
    m_out += ')';
}

void Emitter::binary(const Expr &expr)
{
    const OperatorKind kind = rowOf(expr.op).kind;
    if (kind == OperatorKind::Concatenation)
        concatenation(expr);
    else if (kind == OperatorKind::Logical)
        bitwise(expr);
    else if (isTextType(expr.type))
        infix(expr, "||", &Emitter::text);
    else if (expr.type == dbDate)
        dateArithmetic(expr);
    else if (expr.type == dbCurrency)
        moneyArithmetic(expr);
    else
        signOrFunction(expr, &Emitter::number);
}

void Emitter::signOrFunction(const Expr &expr, void (Emitter::*operand)(const Expr &))
{
    const OperatorRow &row = rowOf(expr.op);
    if (row.sign)
        infix(expr, row.sign, operand);
    else
        call2(row.function, *expr.operands[0], *expr.operands[1], operand);
}

// Money stays whole ten-thousandths throughout; a product or quotient is rounded once, half to even.
void Emitter::moneyArithmetic(const Expr &expr)
{
    const Expr &left = *expr.operands[0];
    const Expr &right = *expr.operands[1];
    if (expr.op == Operator::Add || expr.op == Operator::Subtract) {
        infix(expr, expr.op == Operator::Add ? "+" : "- ", &Emitter::currency);
        return;
    }
    const bool fraction = left.kind != ExprKind::Decimal && right.kind != ExprKind::Decimal
        && ((left.type != dbCurrency && !isIntegerType(left.type))
            || (right.type != dbCurrency && !isIntegerType(right.type)));
    if (fraction) {
        const bool moneyFirst = left.type == dbCurrency;
        m_out += expr.op == Operator::Multiply ? "j_curmulr(" : "j_curdivr(";
        currency(moneyFirst ? left : right);
        m_out += ',';
        number(moneyFirst ? right : left);
        m_out += ')';
        return;
    }
    call2(expr.op == Operator::Multiply ? "j_curmul" : "j_curdiv", left, right, &Emitter::currency);
}

void Emitter::dateArithmetic(const Expr &expr)
{
    const Expr &left = *expr.operands[0];
    const Expr &right = *expr.operands[1];
    const bool leftDate = left.type == dbDate;
    if (expr.op == Operator::Subtract && !leftDate) {       // a number less a date
        m_out += "j_todate(";
        infix(expr, "- ", &Emitter::number);
        m_out += ')';
        return;
    }
    m_out += "j_dateplus(";
    date(leftDate ? left : right);
    m_out += expr.op == Operator::Subtract ? ",- " : ",";
    number(leftDate ? right : left);
    m_out += ')';
}

void Emitter::bitwise(const Expr &expr)
{
    if (expr.op != Operator::Implies) {
        signOrFunction(expr, &Emitter::whole);
        return;
    }
    m_out += "(~";
    whole(*expr.operands[0]);
    m_out += '|';
    whole(*expr.operands[1]);
    m_out += ')';
}

// & takes Null for an empty text, but gives Null if there is nothing else.
void Emitter::concatenation(const Expr &expr)
{
    std::vector<const Expr *> parts;
    collectConcatenated(expr, parts);
    if (parts.size() > 90)      // a function of SQLite takes at most 100 arguments
        throw EngineError(err::TooComplex);
    const bool neverNull = std::any_of(parts.begin(), parts.end(), [](const Expr *part) {
        return part->isLiteral() && part->kind != ExprKind::Null;
    });
    m_out += neverNull ? "(" : "j_amp(";
    const char *separator = "";
    for (const Expr *part : parts) {
        m_out += separator;
        separator = neverNull ? "||" : ",";
        if (!neverNull || part->isLiteral()) {
            text(*part);
            continue;
        }
        m_out += "ifnull(";
        text(*part);
        m_out += ",'')";
    }
    m_out += ')';
}

}
