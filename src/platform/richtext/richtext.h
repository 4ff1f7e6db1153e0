#pragma once

#include "platform/basic/twips.h"

#include <QByteArray>
#include <QString>

class QTextDocument;

// Rich text as RTF: between its text and Qt's document. Kept both ways: font, size, bold, italic, underline, strikeout,
// super- and subscript, text and back colour, alignment, indents, space around paragraphs, tabs, lists, line breaks, all
// of Unicode. Colour 0 ("auto") and the font that no run names are the document's own, so that they follow the palette.
// What else an RTF holds (pictures, headers, notes, fields' codes) is left out; the text of table cells stays.
namespace vorel::richtext {

using basic::twipsPerPixel;                     // of the document's layout

// The text begins as an RTF does.
bool isRtf(const QString &text);
// Replaces the document's content. No RTF: the text itself, as paragraphs. Damage is read around; nothing fails.
// In a text each character is itself; in bytes those above 127 are of the RTF's code page (of a plain text: UTF-8, else
// Western European).
void read(QTextDocument &document, const QString &text);
void read(QTextDocument &document, const QByteArray &bytes);
// 7-bit text that read() brings back to the same document. Objects (pictures, tables' frames) are left out.
QString write(const QTextDocument &document);
// The text alone, paragraphs separated by "\n".
QString plainText(const QTextDocument &document);
// The words of what a field holds, be it RTF or plain.
QString plainText(const QString &stored);
// Something that plain text cannot hold.
bool isFormatted(const QTextDocument &document);

}
