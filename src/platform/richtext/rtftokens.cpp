#include "platform/richtext/rtftokens.h"

#include <algorithm>

namespace vorel::richtext {

namespace {

bool isLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

int hexDigit(QChar c)
{
    if (isDigit(c))
        return c.unicode() - u'0';
    const char16_t lower = c.unicode() | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

constexpr int largestNumber = 100'000'000;      // times ten it still fits an int

}

Token Tokens::next()
{
    while (!atEnd()) {
        const QChar c = m_text[m_at++];
        switch (c.unicode()) {
        case u'{':
            return {.kind = Token::Kind::Open};
        case u'}':
            return {.kind = Token::Kind::Close};
        case u'\\':
            return escape();
        case u'\r':
        case u'\n':
        case 0:
            break;
        default:
            return {.kind = m_highAreBytes && c.unicode() > 127 ? Token::Kind::Byte : Token::Kind::Character,
                    .character = c.unicode()};
        }
    }
    return {};
}

Token Tokens::escape()
{
    if (atEnd())
        return {};
    if (isLetter(m_text[m_at]))
        return word();
    const char16_t c = m_text[m_at++].unicode();
    if (c != u'\'')
        return {.kind = Token::Kind::Symbol, .character = c};
    const int high = atEnd() ? -1 : hexDigit(m_text[m_at]);
    if (high < 0)
        return next();
    ++m_at;
    const int low = atEnd() ? -1 : hexDigit(m_text[m_at]);
    if (low < 0)
        return {.kind = Token::Kind::Byte, .character = static_cast<char16_t>(high)};
    ++m_at;
    return {.kind = Token::Kind::Byte, .character = static_cast<char16_t>(high * 16 + low)};
}

Token Tokens::word()
{
    Token token{.kind = Token::Kind::Word};
    const qsizetype start = m_at;
    while (!atEnd() && isLetter(m_text[m_at]))
        ++m_at;
    token.word = m_text.mid(start, m_at - start);
    const bool negative = m_at + 1 < m_text.size() && m_text[m_at] == u'-' && isDigit(m_text[m_at + 1]);
    if (negative)
        ++m_at;
    while (!atEnd() && isDigit(m_text[m_at])) {
        token.hasNumber = true;
        token.number = std::min(token.number, largestNumber) * 10 + (m_text[m_at++].unicode() - u'0');
    }
    token.number = std::min(token.number, largestNumber) * (negative ? -1 : 1);
    if (!atEnd() && m_text[m_at] == u' ')
        ++m_at;
    return token;
}

void Tokens::skip(int count)
{
    m_at = std::min(m_text.size(), m_at + std::max(0, count));
}

}
