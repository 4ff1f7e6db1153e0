#pragma once

#include <QStringView>
#include <vector>

namespace vorel::dao::jet {

enum class TokenKind {
    End,
    Name,           // Date, LEFT$
    Bracketed,      // [Date Paid]
    Integer,
    Decimal,
    Text,           // 'it''s' or "it's"
    Date,           // #12/25/2003#
    Symbol,
    OpenText,       // the closing quote is missing; reaches to the end of the text
    OpenDate,
    OpenBracket,
    Unknown
};

// Offsets count UTF-16 units of the query's text. What is malformed becomes a token too: it is reported only if the
// parser gets that far, so that the first fault in reading order names the error.
struct Token {
    TokenKind kind = TokenKind::End;
    qsizetype begin = 0;
    qsizetype end = 0;
    char16_t symbol = 0;        // of a Symbol; <=, >= and <> are the constants below
    QStringView text;           // as written, without brackets, quotes or hashes

    // A word that is not allowed where an operand or a table is wanted, unless in brackets.
    bool isReserved() const;
};

inline constexpr char16_t symbolLessEqual = u'\u2264';
inline constexpr char16_t symbolGreaterEqual = u'\u2265';
inline constexpr char16_t symbolNotEqual = u'\u2260';

// The last token is always End. The tokens point into the text.
std::vector<Token> tokenize(QStringView text);

// The content of a text literal with its doubled quotes undone.
QString unquoted(QStringView source, const Token &token);

}
