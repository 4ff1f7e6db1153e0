#include "platform/dao/jet/parser.h"

#include <array>

using namespace Qt::StringLiterals;

namespace vorel::dao::jet {

namespace {

constexpr int maximumNesting = 60;
constexpr int maximumDepth = 80;        // SQLite's parser stack has 100 places
constexpr int maximumNodes = 800;       // with operands; SQLite's trees are at most 1000 deep
constexpr int callDepth = 4;
constexpr int subSelectDepth = 12;

enum Precedence {
    precedenceImplies = 1, precedenceEquivalent, precedenceXor, precedenceOr, precedenceAnd, precedenceNot,
    precedenceComparison, precedenceConcatenate, precedenceAdd, precedenceModulo, precedenceIntegerDivide,
    precedenceMultiply, precedenceNegate, precedencePower
};

struct BinaryOperator {
    QStringView word;       // or
    char16_t symbol;
    Operator op;
    int precedence;
};

constexpr std::array binaryOperators = {
    BinaryOperator{{}, u'=', Operator::Equal, precedenceComparison},
    BinaryOperator{{}, symbolNotEqual, Operator::NotEqual, precedenceComparison},
    BinaryOperator{{}, u'<', Operator::Less, precedenceComparison},
    BinaryOperator{{}, symbolLessEqual, Operator::LessEqual, precedenceComparison},
    BinaryOperator{{}, u'>', Operator::Greater, precedenceComparison},
    BinaryOperator{{}, symbolGreaterEqual, Operator::GreaterEqual, precedenceComparison},
    BinaryOperator{{}, u'&', Operator::Concatenate, precedenceConcatenate},
    BinaryOperator{{}, u'+', Operator::Add, precedenceAdd},
    BinaryOperator{{}, u'-', Operator::Subtract, precedenceAdd},
    BinaryOperator{{}, u'\\', Operator::IntegerDivide, precedenceIntegerDivide},
    BinaryOperator{{}, u'*', Operator::Multiply, precedenceMultiply},
    BinaryOperator{{}, u'/', Operator::Divide, precedenceMultiply},
    BinaryOperator{{}, u'^', Operator::Power, precedencePower},
    BinaryOperator{u"AND", 0, Operator::And, precedenceAnd},
    BinaryOperator{u"OR", 0, Operator::Or, precedenceOr},
    BinaryOperator{u"LIKE", 0, Operator::Like, precedenceComparison},
    BinaryOperator{u"MOD", 0, Operator::Modulo, precedenceModulo},
    BinaryOperator{u"XOR", 0, Operator::Xor, precedenceXor},
    BinaryOperator{u"EQV", 0, Operator::Equivalent, precedenceEquivalent},
    BinaryOperator{u"IMP", 0, Operator::Implies, precedenceImplies},
};

const BinaryOperator *binaryOperator(const Token &token)
{
    for (const BinaryOperator &candidate : binaryOperators) {
        if (token.kind == TokenKind::Symbol ? candidate.symbol == token.symbol
                                            : token.kind == TokenKind::Name && !candidate.word.isEmpty()
                                                  && token.text.compare(candidate.word, Qt::CaseInsensitive) == 0)
            return &candidate;
    }
    return nullptr;
}

bool endsClause(const Token &token)
{
    static constexpr std::array<QStringView, 7> words = {
        u"FROM", u"WHERE", u"GROUP", u"HAVING", u"ORDER", u"UNION", u"INTO"};
    return token.kind == TokenKind::Name
        && std::any_of(words.begin(), words.end(),
                       [&](QStringView w) { return w.compare(token.text, Qt::CaseInsensitive) == 0; });
}

}

Parser::Parser(QStringView text) : m_text(text), m_tokens(tokenize(text)) {}

const Token &Parser::peek(qsizetype ahead) const
{
    return m_tokens[std::min(m_at + static_cast<size_t>(ahead), m_tokens.size() - 1)];
}

const Token &Parser::next()
{
    const Token &token = peek();
    if (m_at + 1 < m_tokens.size())
        ++m_at;
    return token;
}

bool Parser::isWord(const Token &token, QStringView word) const
{
    return token.kind == TokenKind::Name && token.text.compare(word, Qt::CaseInsensitive) == 0;
}

bool Parser::isSymbol(const Token &token, char16_t symbol) const
{
    return token.kind == TokenKind::Symbol && token.symbol == symbol;
}

bool Parser::isName(const Token &token) const
{
    return token.kind == TokenKind::Name || token.kind == TokenKind::Bracketed;
}

bool Parser::acceptWord(QStringView word)
{
    const bool matches = isWord(peek(), word);
    if (matches)
        next();
    return matches;
}

bool Parser::acceptSymbol(char16_t symbol)
{
    const bool matches = isSymbol(peek(), symbol);
    if (matches)
        next();
    return matches;
}

std::optional<QString> Parser::loneName() const
{
    if (m_tokens.size() != 2 || !isName(m_tokens[0]) || m_tokens[0].isReserved())
        return {};
    return m_tokens[0].text.toString();
}

// The whole clause that holds the fault, as the engine quotes it.
QString Parser::clauseText() const
{
    int depth = 0;
    size_t last = m_clauseBegin;
    for (size_t i = m_clauseBegin; i + 1 < m_tokens.size(); ++i) {
        const Token &token = m_tokens[i];
        if (isSymbol(token, u'('))
            ++depth;
        else if (isSymbol(token, u')'))
            --depth;
        if (depth <= 0 && (isSymbol(token, u';') || endsClause(token) || (m_clauseInList && isSymbol(token, u','))))
            break;
        last = i;
    }
    const qsizetype begin = m_tokens[m_clauseBegin].begin;
    return m_text.mid(begin, std::max(begin, m_tokens[last].end) - begin).toString();
}

void Parser::failClause(QStringView message)
{
    if (m_criteria)
        throw EngineError(err::ExpressionSyntax, message.toString() + u" in expression."_s, nullptr);
    throw EngineError(err::QuerySyntax, message.toString() + u" in query expression '"_s + clauseText() + u"'."_s, nullptr);
}

void Parser::failAt(const Token &token, QStringView message)
{
    switch (token.kind) {
    case TokenKind::OpenText:
        failClause(u"Syntax error in string");
    case TokenKind::OpenDate:
        failClause(u"Syntax error in date");
    case TokenKind::OpenBracket:
        throw EngineError(err::BadBracketing, token.text.toString());
    case TokenKind::Unknown:
        failClause(u"Syntax error");
    default:
        failClause(message);
    }
}

ExprPtr Parser::node(ExprKind kind, qsizetype begin)
{
    auto expr = std::make_unique<Expr>();
    expr->kind = kind;
    expr->begin = begin;
    expr->end = begin;
    return expr;
}

ExprPtr Parser::finish(ExprPtr expr, std::initializer_list<ExprPtr *> operands)
{
    for (ExprPtr *operand : operands)
        expr->operands.push_back(std::move(*operand));
    const bool infix = expr->kind == ExprKind::Binary || expr->kind == ExprKind::Unary;
    for (size_t i = 0; i < expr->operands.size(); ++i) {
        const Expr &operand = *expr->operands[i];
        const bool chained = i == 0 && expr->op != Operator::None && operand.op == expr->op
            && (expr->op == Operator::And || expr->op == Operator::Or || expr->op == Operator::Concatenate);
        const int cost = chained ? 0 : !infix ? callDepth : i == 0 ? 1 : 3;
        expr->depth = std::max(expr->depth, operand.depth + cost);
    }
    if (expr->select)
        expr->depth = std::max(expr->depth, expr->select->depth + subSelectDepth);
    m_nodes += expr->operands.empty() ? 0 : 1;
    if (m_nodes > maximumNodes || expr->depth > maximumDepth)
        throw EngineError(err::TooComplex);
    if (m_at > 0)
        expr->end = m_tokens[m_at - 1].end;
    return expr;
}

// An expression that makes up a clause (or an item of its list): what follows must end it.
ExprPtr Parser::clauseExpression(bool inList)
{
    m_clauseBegin = m_at;
    m_clauseInList = inList;
    return expression();
}

ExprPtr Parser::expression(int minimum)
{
    if (++m_nesting > maximumNesting)
        throw EngineError(err::TooComplex);
    ExprPtr left = unary();
    while (true) {
        const Token &token = peek();
        const bool negated = isWord(token, u"NOT");
        const Token &word = negated ? peek(1) : token;
        if (isWord(word, u"BETWEEN") || isWord(word, u"IN") || (!negated && isWord(word, u"IS"))
            || (negated && isWord(word, u"LIKE"))) {
            if (precedenceComparison < minimum)
                break;
            left = comparison(std::move(left), negated);
            continue;
        }
        const BinaryOperator *found = negated ? nullptr : binaryOperator(token);
        if (!found || found->precedence < minimum)
            break;
        next();
        ExprPtr binary = node(ExprKind::Binary, left->begin);
        binary->op = found->op;
        ExprPtr right = expression(found->precedence + 1);
        left = finish(std::move(binary), {&left, &right});
    }
    --m_nesting;
    return left;
}

ExprPtr Parser::comparison(ExprPtr left, bool negated)
{
    if (negated)
        next();
    if (isWord(peek(), u"BETWEEN"))
        return between(std::move(left), negated);
    if (isWord(peek(), u"IN"))
        return inList(std::move(left), negated);
    if (isWord(peek(), u"IS"))
        return isNull(std::move(left));
    next();
    ExprPtr like = node(ExprKind::Binary, left->begin);
    like->op = Operator::Like;
    ExprPtr pattern = expression(precedenceComparison + 1);
    like = finish(std::move(like), {&left, &pattern});
    ExprPtr inverse = node(ExprKind::Unary, like->begin);
    inverse->op = Operator::Not;
    return finish(std::move(inverse), {&like});
}

ExprPtr Parser::between(ExprPtr left, bool negated)
{
    next();
    ExprPtr range = node(ExprKind::Between, left->begin);
    range->negated = negated;
    ExprPtr low = expression(precedenceComparison + 1);
    if (!acceptWord(u"AND"))
        failAt(peek(), u"Between operator without And");
    ExprPtr high = expression(precedenceComparison + 1);
    return finish(std::move(range), {&left, &low, &high});
}

ExprPtr Parser::inList(ExprPtr left, bool negated)
{
    next();
    if (!acceptSymbol(u'('))
        failAt(peek(), u"In operator without ()");
    ExprPtr list = node(ExprKind::In, left->begin);
    list->negated = negated;
    if (isWord(peek(), u"SELECT")) {
        list->kind = ExprKind::InSelect;
        list->select = subSelect();
        return finish(std::move(list), {&left});
    }
    list->operands.push_back(std::move(left));
    do
        list->operands.push_back(expression());
    while (acceptSymbol(u','));
    if (!acceptSymbol(u')'))
        failAt(peek(), peek().kind == TokenKind::End ? u"Missing ), ], or Item" : u"Syntax error (comma)");
    return finish(std::move(list), {});
}

ExprPtr Parser::isNull(ExprPtr left)
{
    next();
    ExprPtr test = node(ExprKind::IsNull, left->begin);
    test->negated = acceptWord(u"NOT");
    if (!acceptWord(u"NULL"))
        failAt(peek(), u"Syntax error (missing operator)");
    return finish(std::move(test), {&left});
}

ExprPtr Parser::unary()
{
    const Token &token = peek();
    const bool negates = isSymbol(token, u'-');
    if (isSymbol(token, u'+')) {
        next();
        return expression(precedencePower);
    }
    if (!negates && !isWord(token, u"NOT"))
        return primary();
    next();
    ExprPtr operand = expression(negates ? precedencePower : precedenceComparison);
    if (negates && (operand->kind == ExprKind::Integer || operand->kind == ExprKind::Decimal)
        && !operand->text.startsWith(u'-') && operand->integer >= 0 && !operand->parenthesized) {
        operand->begin = token.begin;
        operand->integer = -operand->integer;
        operand->text.prepend(u'-');
        return operand;
    }
    ExprPtr result = node(ExprKind::Unary, token.begin);
    result->op = negates ? Operator::Negate : Operator::Not;
    return finish(std::move(result), {&operand});
}

std::unique_ptr<Select> Parser::subSelect()
{
    if (++m_nesting > maximumNesting)
        throw EngineError(err::TooComplex);
    const size_t clauseBegin = m_clauseBegin;
    const bool clauseInList = m_clauseInList;
    std::unique_ptr<Select> select = selectStatement();
    for (const SelectItem &item : select->items)
        select->depth = std::max(select->depth, item.expr ? item.expr->depth : 0);
    for (const ExprPtr *clause : {&select->where, &select->having})
        select->depth = std::max(select->depth, *clause ? (*clause)->depth : 0);
    m_clauseBegin = clauseBegin;
    m_clauseInList = clauseInList;
    if (!acceptSymbol(u')'))
        failAt(peek(), u"Missing ), ], or Item");
    --m_nesting;
    return select;
}

ExprPtr Parser::criteria()
{
    m_criteria = true;
    return filter();
}

ExprPtr Parser::filter()
{
    ExprPtr expr = clauseExpression(false);
    const Token &token = peek();
    if (token.kind != TokenKind::End)
        failAt(token, isSymbol(token, u')') ? u"Extra )" : u"Syntax error (missing operator)");
    return expr;
}

}
