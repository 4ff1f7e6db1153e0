#include "platform/dao/jet/parser.h"

using namespace Qt::StringLiterals;

namespace vorel::dao::jet {

namespace {

constexpr size_t maximumBranches = 50;

}

void Parser::expectWord(QStringView word, int error)
{
    if (!acceptWord(word))
        throw EngineError(error);
}

void Parser::expectSymbol(char16_t symbol, int error)
{
    if (!acceptSymbol(symbol))
        throw EngineError(error);
}

QString Parser::expectName(int error)
{
    if (peek().kind == TokenKind::OpenBracket)
        failAt(peek(), {});
    if (!isName(peek()))
        throw EngineError(error);
    return next().text.toString();
}

Statement Parser::statement()
{
    const Token &first = peek();
    Statement result;
    if (isWord(first, u"SELECT") || isSymbol(first, u'(')) {
        result.select = selectStatement();
    } else if (isWord(first, u"INSERT")) {
        result = insertStatement();
    } else if (isWord(first, u"UPDATE")) {
        result = updateStatement();
    } else if (isWord(first, u"DELETE")) {
        result = deleteStatement();
    } else if (isWord(first, u"CREATE")) {
        result = createStatement();
    } else if (isWord(first, u"DROP")) {
        result = dropStatement();
    } else if (isWord(first, u"ALTER")) {
        result = alterStatement();
    } else {
        throw EngineError(err::InvalidStatement);
    }
    endOfStatement();
    return result;
}

void Parser::endOfStatement()
{
    if (acceptSymbol(u';')) {
        if (peek().kind != TokenKind::End)
            throw EngineError(err::TrailingCharacters);
        return;
    }
    const Token &token = peek();
    if (token.kind == TokenKind::End)
        return;
    if (isSymbol(token, u')'))
        failAt(token, u"Extra )");
    if (isSymbol(token, u','))
        failAt(token, u"Syntax error (comma)");
    failAt(token, u"Syntax error (missing operator)");
}

std::unique_ptr<Select> Parser::selectStatement()
{
    std::unique_ptr<Select> select = selectBranch();
    while (acceptWord(u"UNION")) {
        const bool all = acceptWord(u"ALL");
        if (select->branches.size() >= maximumBranches)
            throw EngineError(err::TooComplex);
        select->branches.push_back(selectBranch());
        select->branches.back()->all = all;
    }
    if (acceptWord(u"ORDER")) {
        expectWord(u"BY", err::OrderBySyntax);
        select->orderBy = orderByList();
    }
    return select;
}

std::unique_ptr<Select> Parser::selectBranch()
{
    if (isSymbol(peek(), u'(') && isWord(peek(1), u"SELECT")) {
        next();
        std::unique_ptr<Select> inner = selectBranch();
        expectSymbol(u')', err::FromSyntax);
        return inner;
    }
    expectWord(u"SELECT", err::SelectSyntax);
    auto select = std::make_unique<Select>();
    selectOptions(*select);
    do
        select->items.push_back(selectItem());
    while (acceptSymbol(u','));
    if (acceptWord(u"FROM"))
        select->from = fromClause();
    else if (!isWord(peek(), u"UNION") && !isSymbol(peek(), u')') && !isSymbol(peek(), u';')
             && peek().kind != TokenKind::End)
        failAt(peek(), u"Syntax error (missing operator)");
    if (acceptWord(u"WHERE"))
        select->where = clauseExpression(false);
    if (acceptWord(u"GROUP")) {
        expectWord(u"BY", err::SelectSyntax);
        do
            select->groupBy.push_back(clauseExpression(true));
        while (acceptSymbol(u','));
    }
    if (acceptWord(u"HAVING"))
        select->having = clauseExpression(false);
    return select;
}

void Parser::selectOptions(Select &select)
{
    while (true) {
        if (acceptWord(u"DISTINCT")) {
            select.distinct = true;
        } else if (isWord(peek(), u"TOP") && peek(1).kind == TokenKind::Integer) {
            next();
            bool ok = false;
            select.top = next().text.toInt(&ok);
            if (!ok || select.top < 1)
                throw EngineError(err::SelectSyntax);
            select.topPercent = acceptWord(u"PERCENT");
        } else if (!acceptWord(u"ALL") && !acceptWord(u"DISTINCTROW")) {
            return;
        }
    }
}

SelectItem Parser::selectItem()
{
    SelectItem item;
    if (acceptSymbol(u'*'))
        return item;
    if (isName(peek()) && isSymbol(peek(1), u'.') && isSymbol(peek(2), u'*')) {
        item.qualifier = next().text.toString();
        next();
        next();
        return item;
    }
    if (isWord(peek(), u"FROM") || peek().kind == TokenKind::End || isSymbol(peek(), u','))
        throw EngineError(err::SelectSyntax);
    item.expr = clauseExpression(true);
    if (acceptWord(u"AS")) {
        item.alias = expectName(err::SelectSyntax);
        if (item.alias.isEmpty())
            throw EngineError(err::SelectSyntax);
    }
    return item;
}

std::vector<std::unique_ptr<FromNode>> Parser::fromClause()
{
    std::vector<std::unique_ptr<FromNode>> list;
    do
        list.push_back(joined());
    while (acceptSymbol(u','));
    const Token &token = peek();
    const bool ends = token.kind == TokenKind::End || isSymbol(token, u';') || isSymbol(token, u')') || isWord(token, u"WHERE")
        || isWord(token, u"GROUP") || isWord(token, u"HAVING") || isWord(token, u"ORDER") || isWord(token, u"UNION");
    if (!ends)
        throw EngineError(err::FromSyntax);
    return list;
}

std::unique_ptr<FromNode> Parser::joined()
{
    std::unique_ptr<FromNode> left = fromPrimary();
    while (true) {
        auto join = std::make_unique<FromNode>();
        const Token &token = peek();
        if (isWord(token, u"LEFT") || isWord(token, u"RIGHT")) {
            join->join = isWord(token, u"LEFT") ? JoinKind::Left : JoinKind::Right;
            next();
            acceptWord(u"OUTER");
        } else if (isWord(token, u"INNER")) {
            next();
        } else if (!isWord(token, u"JOIN")) {
            return left;
        }
        expectWord(u"JOIN", err::FromSyntax);
        if (++m_nesting > 60)
            throw EngineError(err::TooComplex);
        join->left = std::move(left);
        join->right = fromPrimary();
        expectWord(u"ON", err::FromSyntax);
        join->on = clauseExpression(false);
        left = std::move(join);
    }
}

std::unique_ptr<FromNode> Parser::fromPrimary()
{
    if (isSymbol(peek(), u'(') && !isWord(peek(1), u"SELECT")) {
        next();
        if (++m_nesting > 60)
            throw EngineError(err::TooComplex);
        std::unique_ptr<FromNode> inner = joined();
        --m_nesting;
        expectSymbol(u')', err::FromSyntax);
        return inner;
    }
    auto node = std::make_unique<FromNode>();
    node->source = std::make_unique<Source>();
    if (acceptSymbol(u'(')) {
        node->source->select = subSelect();
    } else {
        static const QStringList reserved = {u"WHERE"_s, u"ORDER"_s, u"GROUP"_s, u"SELECT"_s, u"HAVING"_s, u"UNION"_s};
        if (peek().kind == TokenKind::Name && reserved.contains(peek().text, Qt::CaseInsensitive))
            throw EngineError(err::FromSyntax);
        node->source->name = expectName(err::FromSyntax);
    }
    const QString alias = tableAlias();
    node->source->alias = alias.isEmpty() ? node->source->name : alias;
    return node;
}

QString Parser::tableAlias()
{
    static const QStringList following = {u"WHERE"_s, u"ORDER"_s, u"GROUP"_s, u"HAVING"_s, u"UNION"_s, u"INNER"_s,
                                          u"LEFT"_s, u"RIGHT"_s, u"JOIN"_s, u"ON"_s, u"SET"_s};
    if (acceptWord(u"AS"))
        return expectName(err::FromSyntax);
    if (!isName(peek()) || (peek().kind == TokenKind::Name && following.contains(peek().text, Qt::CaseInsensitive)))
        return {};
    return next().text.toString();
}

std::vector<Ordering> Parser::orderByList()
{
    std::vector<Ordering> list;
    do {
        if (peek().kind == TokenKind::End || isSymbol(peek(), u';') || isSymbol(peek(), u','))
            throw EngineError(err::OrderBySyntax);
        Ordering ordering;
        ordering.expr = clauseExpression(true);
        ordering.descending = acceptWord(u"DESC") || acceptWord(u"DESCENDING");
        if (!ordering.descending && !acceptWord(u"ASC"))
            acceptWord(u"ASCENDING");
        list.push_back(std::move(ordering));
    } while (acceptSymbol(u','));
    return list;
}

std::vector<Ordering> Parser::orderings()
{
    std::vector<Ordering> list = orderByList();
    endOfStatement();
    return list;
}

Statement Parser::insertStatement()
{
    next();
    Statement statement;
    statement.kind = StatementKind::Insert;
    expectWord(u"INTO", err::InsertSyntax);
    statement.table = expectName(err::InsertSyntax);
    if (isSymbol(peek(), u'(') && !isWord(peek(1), u"SELECT")) {
        next();
        do {
            Assignment assignment;
            assignment.column = expectName(err::InsertSyntax);
            if (acceptSymbol(u'.'))
                assignment.column = expectName(err::InsertSyntax);
            statement.assignments.push_back(std::move(assignment));
        } while (acceptSymbol(u','));
        expectSymbol(u')', err::InsertSyntax);
    } else {
        statement.allColumns = true;
    }
    if (acceptWord(u"VALUES"))
        insertValues(statement);
    else if (isWord(peek(), u"SELECT") || isSymbol(peek(), u'('))
        statement.select = selectStatement();
    else
        throw EngineError(err::InsertSyntax);
    return statement;
}

void Parser::insertValues(Statement &statement)
{
    expectSymbol(u'(', err::InsertSyntax);
    size_t position = 0;
    do {
        ExprPtr value = clauseExpression(true);
        if (statement.allColumns)
            statement.assignments.emplace_back();
        else if (position >= statement.assignments.size())
            throw EngineError(err::ValueCountDiffers);
        statement.assignments[position].value = std::move(value);
        ++position;
    } while (acceptSymbol(u','));
    if (peek().kind == TokenKind::End || isSymbol(peek(), u';'))
        throw EngineError(err::InsertSyntax);
    if (!acceptSymbol(u')'))
        failAt(peek(), u"Syntax error (missing operator)");
    if (position != statement.assignments.size())
        throw EngineError(err::ValueCountDiffers);
}

Statement Parser::updateStatement()
{
    next();
    Statement statement;
    statement.kind = StatementKind::Update;
    statement.source = std::make_unique<Source>();
    statement.table = expectName(err::UpdateSyntax);
    statement.source->name = statement.table;
    const QString alias = tableAlias();
    statement.source->alias = alias.isEmpty() ? statement.table : alias;
    expectWord(u"SET", err::UpdateSyntax);
    do {
        Assignment assignment;
        assignment.column = expectName(err::UpdateSyntax);
        if (acceptSymbol(u'.'))
            assignment.column = expectName(err::UpdateSyntax);
        expectSymbol(u'=', err::UpdateSyntax);
        assignment.value = clauseExpression(true);
        statement.assignments.push_back(std::move(assignment));
    } while (acceptSymbol(u','));
    if (acceptWord(u"WHERE"))
        statement.where = clauseExpression(false);
    return statement;
}

Statement Parser::deleteStatement()
{
    next();
    Statement statement;
    statement.kind = StatementKind::Delete;
    if (!acceptSymbol(u'*') && isName(peek()) && isSymbol(peek(1), u'.') && isSymbol(peek(2), u'*')) {
        next();
        next();
        next();
    }
    expectWord(u"FROM", err::DeleteSyntax);
    statement.source = std::make_unique<Source>();
    statement.table = expectName(err::FromSyntax);
    statement.source->name = statement.table;
    const QString alias = tableAlias();
    statement.source->alias = alias.isEmpty() ? statement.table : alias;
    if (acceptWord(u"WHERE"))
        statement.where = clauseExpression(false);
    else if (isName(peek()))
        throw EngineError(err::FromSyntax);
    return statement;
}

}
