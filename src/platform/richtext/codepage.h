#pragma once

#include <QByteArray>
#include <QString>

namespace vorel::richtext {

inline constexpr int western = 1252, symbols = -2;

// Bytes of a Windows code page as text; a page that the system does not know reads as Western European.
QString decode(const QByteArray &bytes, int codePage);
// More than one byte a character.
bool isMultiByte(int codePage);
// Of a font's \fcharset; 0 for one that says nothing about it.
int codePageOfCharset(int charset);

}
