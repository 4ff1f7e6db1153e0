#include "platform/richtext/codepage.h"

#include <QStringDecoder>

namespace vorel::richtext {

using namespace Qt::StringLiterals;

namespace {

struct Charset {
    int charset, page;
};
constexpr Charset charsets[] = {
    {2, symbols}, {77, 10000}, {128, 932},  {129, 949},  {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
    {163, 1258},  {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874}, {238, 1250}, {254, 437}};

QByteArray pageName(int page)
{
    switch (page) {
    case 10000: return "macintosh";
    case 65001: return "UTF-8";
    default: break;
    }
    return (page < 1000 && page != 932 && page != 936 && page != 949 && page != 950 && page != 874 ? "cp" : "windows-")
        + QByteArray::number(page);
}

}

QString decode(const QByteArray &bytes, int codePage)
{
    if (codePage == symbols)
        return decode(bytes, western).replace(u'\u00B7', u'\u2022');        // the one symbol that texts use: the bullet
    QStringDecoder decoder(pageName(codePage).constData(), QStringDecoder::Flag::Stateless);
    if (!decoder.isValid())
        return codePage == western ? QString::fromLatin1(bytes) : decode(bytes, western);
    return decoder(bytes);
}

bool isMultiByte(int codePage)
{
    return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950 || codePage == 65001;
}

int codePageOfCharset(int charset)
{
    for (const Charset &entry : charsets) {
        if (entry.charset == charset)
            return entry.page;
    }
    return 0;
}

}
