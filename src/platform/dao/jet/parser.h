#pragma once

#include "platform/dao/jet/ast.h"
#include "platform/dao/jet/lexer.h"

namespace vorel::dao::jet {

// Recursive descent over one text. Throws EngineError.
class Parser {
public:
    explicit Parser(QStringView text);

    Statement statement();
    ExprPtr criteria();                     // a whole text; errors are 3077
    ExprPtr filter();                       // a whole text; errors are 3075
    std::vector<Ordering> orderings();      // a whole text

    // The text if it is one name and nothing else, with or without brackets.
    std::optional<QString> loneName() const;

private:
    // parser.cpp: operators
    ExprPtr clauseExpression(bool inList);
    ExprPtr expression(int minimum = 0);        // of operators that bind at least so tightly
    ExprPtr unary();
    ExprPtr comparison(ExprPtr left, bool negated);
    ExprPtr between(ExprPtr left, bool negated);
    ExprPtr inList(ExprPtr left, bool negated);
    ExprPtr isNull(ExprPtr left);
    std::unique_ptr<Select> subSelect();
    ExprPtr node(ExprKind kind, qsizetype begin);
    ExprPtr finish(ExprPtr expr, std::initializer_list<ExprPtr *> operands);
    [[noreturn]] void failAt(const Token &token, QStringView message);
    [[noreturn]] void failClause(QStringView message);
    QString clauseText() const;

    // parser_operands.cpp
    ExprPtr primary();
    ExprPtr literal();
    ExprPtr number();
    ExprPtr parenthesized();
    ExprPtr nameOrCall();
    ExprPtr call(const Token &name);

    // parser_statements.cpp: statements
    std::unique_ptr<Select> selectStatement();
    std::unique_ptr<Select> selectBranch();
    void selectOptions(Select &select);
    SelectItem selectItem();
    std::vector<std::unique_ptr<FromNode>> fromClause();
    std::unique_ptr<FromNode> joined();
    std::unique_ptr<FromNode> fromPrimary();
    QString tableAlias();
    std::vector<Ordering> orderByList();
    Statement insertStatement();
    void insertValues(Statement &statement);
    Statement updateStatement();
    Statement deleteStatement();
    // parser_ddl.cpp: data definition
    Statement createStatement();
    Statement createTable();
    Statement createIndex(bool unique);
    Statement dropStatement();
    Statement alterStatement();
    ColumnDesign columnDefinition(std::vector<IndexDesign> &constraints);
    void tableConstraint(std::vector<IndexDesign> &constraints);
    std::vector<std::pair<QString, bool>> indexFields();
    void endOfStatement();

    const Token &peek(qsizetype ahead = 0) const;
    const Token &next();
    bool isWord(const Token &token, QStringView word) const;
    bool isSymbol(const Token &token, char16_t symbol) const;
    bool acceptWord(QStringView word);
    bool acceptSymbol(char16_t symbol);
    void expectWord(QStringView word, int error);
    void expectSymbol(char16_t symbol, int error);
    QString expectName(int error);
    bool isName(const Token &token) const;

    QStringView m_text;
    std::vector<Token> m_tokens;
    size_t m_at = 0;
    size_t m_clauseBegin = 0;
    bool m_clauseInList = false;
    bool m_criteria = false;
    int m_nesting = 0;
    int m_nodes = 0;
};

}
