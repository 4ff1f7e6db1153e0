#include "platform/dao/jet/parser.h"

#include "platform/dao/jet/dateliteral.h"

#include <array>

using namespace Qt::StringLiterals;

namespace vorel::dao::jet {

namespace {

struct AggregateName { QStringView name; AggregateKind kind; };
constexpr std::array aggregateNames = {
    AggregateName{u"COUNT", AggregateKind::Count}, AggregateName{u"SUM", AggregateKind::Sum},
    AggregateName{u"MIN", AggregateKind::Min}, AggregateName{u"MAX", AggregateKind::Max},
    AggregateName{u"AVG", AggregateKind::Average}, AggregateName{u"FIRST", AggregateKind::First},
    AggregateName{u"LAST", AggregateKind::Last}};

}

ExprPtr Parser::primary()
{
    const Token &token = peek();
    switch (token.kind) {
    case TokenKind::Text:
    case TokenKind::Date:
        return literal();
    case TokenKind::Integer:
    case TokenKind::Decimal:
        return number();
    case TokenKind::Name:
    case TokenKind::Bracketed:
        return nameOrCall();
    case TokenKind::Symbol:
        if (token.symbol == u'(')
            return parenthesized();
        if (token.symbol == u')')
            failAt(token, u"Extra )");
        if (token.symbol == u',')
            failAt(token, u"Syntax error (comma)");
        failAt(token, u"Syntax error (missing operator)");
    case TokenKind::End:
        failAt(token, m_at > m_clauseBegin ? u"Syntax error (missing operator)" : u"Syntax error");
    default:
        failAt(token, u"Syntax error");
    }
}

ExprPtr Parser::literal()
{
    const Token &token = next();
    ExprPtr expr = node(token.kind == TokenKind::Text ? ExprKind::Text : ExprKind::Date, token.begin);
    if (token.kind == TokenKind::Text) {
        expr->text = unquoted(m_text, token);
    } else {
        const std::optional<QString> stored = parseDateLiteral(token.text);
        if (!stored)
            failClause(u"Syntax error in date");
        expr->text = *stored;
    }
    return finish(std::move(expr), {});
}

ExprPtr Parser::number()
{
    const Token &token = next();
    ExprPtr expr = node(ExprKind::Integer, token.begin);
    bool ok = false;
    if (token.text.startsWith(u'&')) {
        expr->integer = token.text.mid(2).toLongLong(&ok, 16);
        expr->text = QString::number(expr->integer);
        if (!ok)
            failClause(u"Syntax error");
        return finish(std::move(expr), {});
    }
    expr->text = token.text.toString();
    if (token.kind == TokenKind::Integer)
        expr->integer = token.text.toLongLong(&ok);
    if (!ok) {
        expr->kind = ExprKind::Decimal;
        expr->integer = 0;
        if (qIsInf(expr->text.toDouble()))
            throw EngineError(6, u"Overflow"_s, nullptr);
    }
    return finish(std::move(expr), {});
}

ExprPtr Parser::parenthesized()
{
    const Token &open = next();
    if (isWord(peek(), u"SELECT")) {
        ExprPtr expr = node(ExprKind::SubSelect, open.begin);
        expr->select = subSelect();
        return finish(std::move(expr), {});
    }
    ExprPtr inner = expression();
    if (!acceptSymbol(u')')) {
        const Token &token = peek();
        failAt(token, token.kind == TokenKind::End ? u"Missing ), ], or Item"
                      : isSymbol(token, u',')      ? u"Syntax error (comma)"
                                                   : u"Syntax error (missing operator)");
    }
    inner->parenthesized = true;
    return inner;
}

ExprPtr Parser::nameOrCall()
{
    const Token &token = next();
    if (token.kind == TokenKind::Name) {
        struct Constant { QStringView word; ExprKind kind; qint64 value; };
        static constexpr std::array constants = {
            Constant{u"TRUE", ExprKind::Boolean, -1}, Constant{u"FALSE", ExprKind::Boolean, 0},
            Constant{u"YES", ExprKind::Boolean, -1}, Constant{u"NO", ExprKind::Boolean, 0},
            Constant{u"ON", ExprKind::Boolean, -1}, Constant{u"OFF", ExprKind::Boolean, 0},
            Constant{u"NULL", ExprKind::Null, 0}};
        for (const Constant &constant : constants) {
            if (!isWord(token, constant.word))
                continue;
            ExprPtr expr = node(constant.kind, token.begin);
            expr->integer = constant.value;
            return finish(std::move(expr), {});
        }
        if (isWord(token, u"EXISTS") && isSymbol(peek(), u'(')) {
            next();
            ExprPtr expr = node(ExprKind::Exists, token.begin);
            expr->select = subSelect();
            return finish(std::move(expr), {});
        }
        if (isSymbol(peek(), u'('))
            return call(token);
        if (token.isReserved()) {
            --m_at;
            failAt(token, u"Syntax error (missing operator)");
        }
    }
    ExprPtr expr = node(ExprKind::Name, token.begin);
    expr->text = token.text.toString();
    if ((isSymbol(peek(), u'.') || isSymbol(peek(), u'!')) && isName(peek(1))) {
        next();
        expr->qualifier = expr->text;
        expr->text = next().text.toString();
    }
    return finish(std::move(expr), {});
}

ExprPtr Parser::call(const Token &name)
{
    next();
    ExprPtr expr = node(ExprKind::Call, name.begin);
    expr->text = name.text.toString().toUpper();
    for (const AggregateName &candidate : aggregateNames) {
        if (candidate.name != expr->text)
            continue;
        expr->kind = ExprKind::Aggregate;
        expr->aggregate = candidate.kind;
        if (candidate.kind == AggregateKind::Count && isSymbol(peek(), u'*') && isSymbol(peek(1), u')')) {
            next();
            next();
            expr->aggregate = AggregateKind::CountAll;
            return finish(std::move(expr), {});
        }
    }
    if (!acceptSymbol(u')')) {
        do
            expr->operands.push_back(expression());
        while (acceptSymbol(u','));
        if (!acceptSymbol(u')'))
            failAt(peek(), peek().kind == TokenKind::End ? u"Missing ), ], or Item" : u"Syntax error (missing operator)");
    }
    return finish(std::move(expr), {});
}

}
