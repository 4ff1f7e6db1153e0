#include "platform/dao/jet/lexer.h"

#include <array>

namespace vorel::dao::jet {

namespace {

bool isNameStart(QChar c)
{
    return c.isLetter() || c == u'_' || c.isSurrogate();
}

bool isNamePart(QChar c)
{
    return isNameStart(c) || c.isDigit() || c.isMark();
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isHexDigit(QChar c)
{
    return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

// After one, an & joins; elsewhere &H begins a number.
bool endsOperand(const Token &token)
{
    static constexpr std::array<QStringView, 12> words = {u"SELECT", u"WHERE", u"AND", u"OR", u"NOT", u"BETWEEN", u"LIKE",
                                                          u"BY", u"DISTINCT", u"ON", u"MOD", u"HAVING"};
    if (token.kind == TokenKind::Name)
        return std::none_of(words.begin(), words.end(),
                            [&](QStringView w) { return w.compare(token.text, Qt::CaseInsensitive) == 0; });
    return token.kind != TokenKind::Symbol || token.symbol == u')';
}

class Lexer {
public:
    explicit Lexer(QStringView text) : m_text(text) {}
    std::vector<Token> run();

private:
    QChar at(qsizetype i) const { return i < m_text.size() ? m_text[i] : QChar(); }
    Token enclosed(char16_t close, TokenKind closed, TokenKind open);
    Token quotedText(QChar quote);
    Token number();
    Token name();
    Token symbol();
    Token make(TokenKind kind, qsizetype end, qsizetype textBegin, qsizetype textEnd);
    Token make(TokenKind kind, qsizetype end) { return make(kind, end, m_at, end); }

    QStringView m_text;
    qsizetype m_at = 0;
};

std::vector<Token> Lexer::run()
{
    std::vector<Token> tokens;
    tokens.reserve(static_cast<size_t>(m_text.size()) / 4 + 2);
    while (true) {
        while (m_at < m_text.size() && m_text[m_at].isSpace())
            ++m_at;
        if (m_at >= m_text.size())
            break;
        const QChar c = m_text[m_at];
        Token token;
        if (c == u'[')
            token = enclosed(u']', TokenKind::Bracketed, TokenKind::OpenBracket);
        else if (c == u'#')
            token = enclosed(u'#', TokenKind::Date, TokenKind::OpenDate);
        else if (c == u'\'' || c == u'"')
            token = quotedText(c);
        else if (isDigit(c) || (c == u'.' && isDigit(at(m_at + 1))))
            token = number();
        else if (c == u'&' && at(m_at + 1).toUpper() == u'H' && isHexDigit(at(m_at + 2))
                 && (tokens.empty() || !endsOperand(tokens.back())))
            token = number();
        else if (isNameStart(c))
            token = name();
        else
            token = symbol();
        m_at = token.end;
        tokens.push_back(token);
    }
    tokens.push_back(make(TokenKind::End, m_at));
    return tokens;
}

Token Lexer::make(TokenKind kind, qsizetype end, qsizetype textBegin, qsizetype textEnd)
{
    Token token;
    token.kind = kind;
    token.begin = m_at;
    token.end = end;
    token.text = m_text.mid(textBegin, textEnd - textBegin);
    return token;
}

Token Lexer::enclosed(char16_t close, TokenKind closed, TokenKind open)
{
    const qsizetype end = m_text.indexOf(QChar(close), m_at + 1);
    if (end < 0)
        return make(open, m_text.size(), m_at + 1, m_text.size());
    // A zero would end the statement for SQLite, so a name with one counts as not closed.
    const bool broken = closed == TokenKind::Bracketed && m_text.mid(m_at + 1, end - m_at - 1).contains(QChar(0));
    return make(broken ? open : closed, end + 1, m_at + 1, end);
}

Token Lexer::quotedText(QChar quote)
{
    for (qsizetype i = m_at + 1; i < m_text.size(); ++i) {
        if (m_text[i] != quote)
            continue;
        if (at(i + 1) != quote)
            return make(TokenKind::Text, i + 1, m_at + 1, i);
        ++i;
    }
    return make(TokenKind::OpenText, m_text.size(), m_at + 1, m_text.size());
}

Token Lexer::number()
{
    qsizetype i = m_at;
    if (m_text[i] == u'&') {
        i += 2;
        while (isHexDigit(at(i)))
            ++i;
        return make(TokenKind::Integer, i);
    }
    TokenKind kind = TokenKind::Integer;
    while (isDigit(at(i)))
        ++i;
    if (at(i) == u'.') {
        kind = TokenKind::Decimal;
        do
            ++i;
        while (isDigit(at(i)));
    }
    if (at(i) == u'e' || at(i) == u'E') {
        qsizetype digits = i + 1;
        if (at(digits) == u'+' || at(digits) == u'-')
            ++digits;
        if (isDigit(at(digits))) {
            kind = TokenKind::Decimal;
            i = digits;
            while (isDigit(at(i)))
                ++i;
        }
    }
    return make(kind, i);
}

Token Lexer::name()
{
    qsizetype i = m_at + 1;
    while (isNamePart(at(i)))
        ++i;
    const qsizetype textEnd = i;
    if (at(i) == u'$')      // LEFT$ and its like
        ++i;
    return make(TokenKind::Name, i, m_at, textEnd);
}

Token Lexer::symbol()
{
    static constexpr QStringView single = u"()+-*/\\^&=<>,.;!@";
    const QChar c = m_text[m_at];
    const QChar next = at(m_at + 1);
    char16_t symbol = c.unicode();
    qsizetype length = 2;
    if (c == u'<' && next == u'=')
        symbol = symbolLessEqual;
    else if (c == u'>' && next == u'=')
        symbol = symbolGreaterEqual;
    else if (c == u'<' && next == u'>')
        symbol = symbolNotEqual;
    else
        length = 1;
    Token token = make(single.contains(c) ? TokenKind::Symbol : TokenKind::Unknown, m_at + length);
    token.symbol = symbol;
    return token;
}

}

bool Token::isReserved() const
{
    static constexpr std::array<QStringView, 20> words = {
        u"AND", u"OR", u"XOR", u"EQV", u"IMP", u"MOD", u"LIKE", u"BETWEEN", u"IN", u"IS", u"FROM", u"WHERE", u"GROUP",
        u"ORDER", u"HAVING", u"UNION", u"AS", u"BY", u"SELECT", u"INTO"};
    return kind == TokenKind::Name && std::any_of(words.begin(), words.end(), [&](QStringView w) {
        return w.compare(text, Qt::CaseInsensitive) == 0;
    });
}

std::vector<Token> tokenize(QStringView text)
{
    return Lexer(text).run();
}

QString unquoted(QStringView source, const Token &token)
{
    const QChar quote = source[token.begin];
    QString text = token.text.toString();
    if (text.contains(quote))
        text.replace(QString(2, quote), QString(quote));
    return text;
}

}
