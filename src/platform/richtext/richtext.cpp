#include "platform/richtext/richtext.h"

#include "platform/richtext/codepage.h"
#include "platform/richtext/rtfreader.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

namespace vorel::richtext {

using namespace Qt::StringLiterals;

namespace {

void readRtf(QTextDocument &document, QStringView rtf, bool highAreBytes)
{
    const bool undo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    document.clear();
    Reader(document, rtf, highAreBytes).run();
    document.setUndoRedoEnabled(undo);
}

}

bool isRtf(const QString &text)
{
    for (const QChar c : text) {
        if (!c.isSpace() && c != u'\0' && c != QChar::ByteOrderMark)
            return c == u'{' && QStringView(text).mid(text.indexOf(u'{')).startsWith(u"{\\rtf");
    }
    return false;
}

void read(QTextDocument &document, const QString &text)
{
    if (isRtf(text))
        readRtf(document, text, false);
    else
        document.setPlainText(text);
}

void read(QTextDocument &document, const QByteArray &bytes)
{
    const QString raw = QString::fromLatin1(bytes);
    if (const QString start = raw.startsWith(u"\u00EF\u00BB\u00BF") ? raw.mid(3) : raw; isRtf(start))
        return readRtf(document, start, true);
    document.setPlainText(bytes.isValidUtf8() ? QString::fromUtf8(bytes) : decode(bytes, western));
}

QString plainText(const QTextDocument &document)
{
    QString text = document.toRawText();        // keeps hard blanks
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    return text.remove(QChar::ObjectReplacementCharacter).remove(QChar(0xFDD0)).remove(QChar(0xFDD1));
}

QString plainText(const QString &stored)
{
    if (!isRtf(stored))
        return stored;
    QTextDocument document;
    read(document, stored);
    return plainText(document);
}

bool isFormatted(const QTextDocument &document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        if (block.textList() || !(format.alignment() & Qt::AlignLeft) || format.leftMargin() != 0 || format.rightMargin() != 0
            || format.textIndent() != 0 || format.topMargin() != 0 || format.bottomMargin() != 0
            || format.hasProperty(QTextFormat::TabPositions) || block.text().contains(QChar::LineSeparator))
            return true;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (!it.fragment().charFormat().properties().isEmpty())
                return true;
        }
    }
    return false;
}

}
