#include "platform/basic/text.h"

#include "platform/basic/error.h"
#include <algorithm>

namespace vorel::basic {

namespace {

qsizetype leadingBlanks(QStringView text)
{
    qsizetype n = 0;
    while (n < text.size() && text[n] == u' ')
        ++n;
    return n;
}

QStringView withoutTrailingBlanks(QStringView text)
{
    while (!text.isEmpty() && text.back() == u' ')
        text.chop(1);
    return text;
}

bool partsWords(QChar c)
{
    const char16_t u = c.unicode();
    return u == u' ' || u == 0 || (u >= 9 && u <= 13);
}

}

QString Trim(QStringView text)
{
    return withoutTrailingBlanks(text.mid(leadingBlanks(text))).toString();
}

QString LTrim(QStringView text)
{
    return text.mid(leadingBlanks(text)).toString();
}

QString RTrim(QStringView text)
{
    return withoutTrailingBlanks(text).toString();
}

QString Left(QStringView text, int count)
{
    if (count < 0)
        throw BasicError(5);
    return text.left(std::min<qsizetype>(count, text.size())).toString();
}

QString Right(QStringView text, int count)
{
    if (count < 0)
        throw BasicError(5);
    return text.right(std::min<qsizetype>(count, text.size())).toString();
}

QString Mid(QStringView text, int start, int count)
{
    if (start < 1 || count < -1)
        throw BasicError(5);
    const qsizetype from = start - 1;
    if (from >= text.size())
        return QStringLiteral("");
    const qsizetype rest = text.size() - from;
    return text.mid(from, count < 0 ? rest : std::min<qsizetype>(count, rest)).toString();
}

QString StrConvProper(QStringView text)
{
    QString result = text.toString().toLower();
    bool atStart = true;
    for (QChar &c : result) {
        if (atStart)
            c = c.toUpper();
        atStart = partsWords(c);
    }
    return result;
}

}
