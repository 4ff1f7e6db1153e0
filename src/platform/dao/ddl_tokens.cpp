#include "platform/dao/ddl_tokens.h"

#include <QByteArray>

namespace vorel::dao::ddl {

namespace {

// Reads what `close` ends, from the character after the opening one; a doubled closing mark means itself.
QString quotedText(QStringView sql, qsizetype &at, QChar close)
{
    QString text;
    while (at < sql.size()) {
        const QChar next = sql[at++];
        if (next == close) {
            if (at >= sql.size() || sql[at] != close || close == u']')
                break;
            ++at;
        }
        text += next;
    }
    return text;
}

Token commentToken(QStringView sql, qsizetype &at, QStringView end)
{
    const qsizetype stop = sql.indexOf(end, at + 2);
    const qsizetype last = stop < 0 ? sql.size() : stop;
    Token token { Token::Kind::Comment, sql.sliced(at + 2, qMax(qsizetype{0}, last - at - 2)).trimmed().toString() };
    at = stop < 0 ? sql.size() : stop + end.size();
    return token;
}

bool isWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'$' || c.unicode() > 127;
}

}

std::vector<Token> tokens(QStringView sql)
{
    std::vector<Token> result;
    qsizetype at = 0;
    while (at < sql.size()) {
        const QChar c = sql[at];
        if (c.isSpace()) {
            ++at;
        } else if (sql.sliced(at).startsWith(u"/*")) {
            result.push_back(commentToken(sql, at, u"*/"));
        } else if (sql.sliced(at).startsWith(u"--")) {
            result.push_back(commentToken(sql, at, u"\n"));
        } else if (c == u'"' || c == u'`' || c == u'[') {
            result.push_back({ Token::Kind::Name, quotedText(sql, ++at, c == u'[' ? QChar(u']') : c) });
        } else if (c == u'\'') {
            result.push_back({ Token::Kind::Text, quotedText(sql, ++at, c) });
        } else if (isWordCharacter(c)) {
            const qsizetype start = at;
            while (at < sql.size() && isWordCharacter(sql[at]))
                ++at;
            result.push_back({ Token::Kind::Word, sql.sliced(start, at - start).toString() });
        } else {
            result.push_back({ Token::Kind::Symbol, QString(c) });
            ++at;
        }
    }
    return result;
}

std::vector<std::vector<Token>> listItems(const std::vector<Token> &statement)
{
    std::vector<std::vector<Token>> items;
    int depth = 0;
    for (const Token &token : statement) {
        if (token.isSymbol(u'(') && ++depth == 1) {
            items.emplace_back();
            continue;
        }
        if (token.isSymbol(u')') && --depth == 0)
            break;
        if (depth == 1 && token.isSymbol(u','))
            items.emplace_back();
        else if (depth > 0)
            items.back().push_back(token);
    }
    return items;
}

QByteArray escapedComment(const QString &value)
{
    return value.toUtf8().toPercentEncoding(" !\"#$&'()+,/:;<=>?@[\\]^`{|}", "*");
}

QString unescapedComment(QStringView text)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(text.toUtf8()));
}

}
