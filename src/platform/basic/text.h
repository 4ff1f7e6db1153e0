#pragma once

#include <QString>

namespace vorel::basic {

QString Trim(QStringView text);                 // U+0020 only, both ends
QString LTrim(QStringView text);
QString RTrim(QStringView text);
QString Left(QStringView text, int count);      // count < 0: BasicError 5
QString Right(QStringView text, int count);
QString Mid(QStringView text, int start, int count = -1);   // start from 1; start < 1: BasicError 5
QString StrConvProper(QStringView text);        // each word's first letter upper, all else lower
// The Like operator: * ? # [abc] [!abc]; the whole text must match. Unclosed "[": BasicError 93.
bool Like(QStringView text, QStringView pattern, Qt::CaseSensitivity cs = Qt::CaseSensitive);

}
