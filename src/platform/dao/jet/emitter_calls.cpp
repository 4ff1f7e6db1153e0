#include "platform/dao/jet/emitter.h"

#include "platform/dao/jet/functions.h"

namespace vorel::dao::jet {

void Emitter::call(const Expr &expr)
{
    const FunctionInfo &function = *expr.function;
    switch (function.form) {
    case CallForm::Left:
    case CallForm::Right:
    case CallForm::Mid:
        substring(expr);
        break;
    case CallForm::IIf:
    case CallForm::Switch:
    case CallForm::Choose:
        cases(expr);
        break;
    case CallForm::Convert:
        conversion(expr);
        break;
    case CallForm::Int:
    case CallForm::Fix:
    case CallForm::Abs: {
        const bool money = expr.type == dbCurrency;
        m_out += function.sql;
        m_out += '(';
        if (money)
            value(*expr.operands[0]);
        else
            number(*expr.operands[0]);
        if (function.form != CallForm::Abs)
            m_out += money ? ",10000" : ",1";
        m_out += ')';
        break;
    }
    case CallForm::Round:
        m_out += expr.type == dbCurrency ? "j_cur(j_round(" : "j_round(";
        number(*expr.operands[0]);
        m_out += ',';
        if (expr.operands.size() > 1)
            whole(*expr.operands[1]);
        else
            m_out += '0';
        m_out += expr.type == dbCurrency ? "))" : ")";
        break;
    case CallForm::InStr:
        inStr(expr);
        break;
    case CallForm::IsNull:      // a condition
    case CallForm::Plain:
        plainCall(expr);
        break;
    }
}

// The start, which comes first, may be left out.
void Emitter::inStr(const Expr &expr)
{
    const bool started = expr.operands.size() > 2;
    m_out += "j_instr(";
    if (started)
        whole(*expr.operands[0]);
    else
        m_out += '1';
    for (size_t i = started ? 1 : 0; i < expr.operands.size(); ++i) {
        m_out += ',';
        if (i == 3)
            whole(*expr.operands[i]);
        else
            text(*expr.operands[i]);
    }
    m_out += ')';
}

void Emitter::plainCall(const Expr &expr)
{
    m_out += expr.function->sql;
    m_out += '(';
    const char *parameter = expr.function->parameters;
    for (size_t i = 0; i < expr.operands.size(); ++i, ++parameter) {
        if (*parameter == '|')
            ++parameter;
        if (i > 0)
            m_out += ',';
        const Expr &operand = *expr.operands[i];
        switch (*parameter) {
        case 'T':
            text(operand);
            break;
        case 'N':
            number(operand);
            break;
        case 'L':
            whole(operand);
            break;
        case 'D':
            date(operand);
            break;
        case 'V':
            value(operand);
            m_out += ',' + QByteArray::number(operand.type);
            break;
        }
    }
    m_out += ')';
}

// With literal counts SQLite's own substr does it without a detour.
void Emitter::substring(const Expr &expr)
{
    const CallForm form = expr.function->form;
    const auto literalAtLeast = [&](size_t index, qint64 least) {
        return expr.operands[index]->kind == ExprKind::Integer && expr.operands[index]->integer >= least
            && expr.operands[index]->integer < 100000;
    };
    const bool plain = form == CallForm::Mid
        ? literalAtLeast(1, 1) && (expr.operands.size() < 3 || literalAtLeast(2, 0))
        : literalAtLeast(1, form == CallForm::Right ? 1 : 0);
    if (!plain) {
        plainCall(expr);
        return;
    }
    m_out += "substr(";
    text(*expr.operands[0]);
    if (form == CallForm::Left)
        m_out += ",1";
    for (size_t i = 1; i < expr.operands.size(); ++i)
        m_out += (form == CallForm::Right ? ",-" : ",") + QByteArray::number(expr.operands[i]->integer);
    m_out += ')';
}

void Emitter::cases(const Expr &expr)
{
    const CallForm form = expr.function->form;
    m_out += "(CASE ";
    if (form == CallForm::Choose) {
        whole(*expr.operands[0]);
        for (size_t i = 1; i < expr.operands.size(); ++i) {
            m_out += " WHEN " + QByteArray::number(static_cast<qint64>(i)) + " THEN ";
            as(*expr.operands[i], expr.type);
        }
    } else {
        for (size_t i = 0; i + 1 < expr.operands.size(); i += 2) {
            m_out += "WHEN ";
            condition(*expr.operands[i]);
            m_out += " THEN ";
            as(*expr.operands[i + 1], expr.type);
            m_out += ' ';
        }
        if (form == CallForm::IIf) {
            m_out += "ELSE ";
            as(*expr.operands[2], expr.type);
        }
    }
    m_out += " END)";
}

void Emitter::conversion(const Expr &expr)
{
    const Expr &operand = *expr.operands[0];
    switch (expr.type) {
    case dbByte:
    case dbInteger:
    case dbLong:
        assignedWhole(operand, expr.type);
        break;
    case dbSingle:
        wrapped("j_single", operand, &Emitter::number);
        break;
    case dbBoolean:
        wrapped(isTextType(operand.type) ? "j_cbool" : "j_bool", operand,
                isTextType(operand.type) ? &Emitter::value : &Emitter::number);
        break;
    case dbDouble:
        m_out += "(1.0*";
        number(operand);
        m_out += ')';
        break;
    case dbCurrency:
    case dbDate:
    case dbText:
    case dbMemo:
    case dbLongBinary:
    case dbUnknown:
        as(operand, expr.type);
        break;
    }
}

void Emitter::aggregate(const Expr &expr)
{
    if (expr.aggregate == AggregateKind::CountAll) {
        m_out += "COUNT(*)";
        return;
    }
    const Expr &operand = *expr.operands[0];
    const bool money = operand.type == dbCurrency;
    switch (expr.aggregate) {
    case AggregateKind::Count:
        wrapped("COUNT", operand, &Emitter::value);
        break;
    case AggregateKind::Sum:
        wrapped("SUM", operand, money ? &Emitter::value : &Emitter::number);
        break;
    case AggregateKind::Average:
        if (!money) {
            wrapped("AVG", operand, &Emitter::number);
            break;
        }
        m_out += "j_curdiv(";
        wrapped("SUM", operand, &Emitter::value);
        m_out += ",10000*";
        wrapped("COUNT", operand, &Emitter::value);
        m_out += ')';
        break;
    case AggregateKind::First:
        wrapped("j_first", operand, &Emitter::value);
        break;
    case AggregateKind::Last:
        wrapped("j_last", operand, &Emitter::value);
        break;
    case AggregateKind::Min:
    case AggregateKind::Max:
        m_out += expr.aggregate == AggregateKind::Min ? "MIN(" : "MAX(";
        value(operand);
        m_out += isTextType(operand.type) ? " COLLATE JET)" : ")";
        break;
    case AggregateKind::CountAll:
    case AggregateKind::None:
        break;
    }
}

}
