#include "platform/richtext/rtfbuilder.h"

#include <QTextDocument>
#include <QTextList>

namespace vorel::richtext {

namespace {

// Each new paragraph of a list costs the more, the longer the list is. No list of points is seen to be cut.
constexpr int mostPoints = 100, mostNumbers = 1000;

bool isNumbered(QTextListFormat::Style style)
{
    return style <= QTextListFormat::ListDecimal;
}

}

Builder::Builder(QTextDocument &document) : m_cursor(&document)
{
    m_cursor.beginEditBlock();
}

Builder::~Builder()
{
    m_cursor.endEditBlock();
}

void Builder::openParagraph()
{
    if (!m_first)
        m_cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    m_first = false;
    m_open = true;
}

void Builder::addText(const QString &text, const QTextCharFormat &format)
{
    if (text.isEmpty())
        return;
    if (!m_open)
        openParagraph();
    m_cursor.insertText(text, format);
}

void Builder::endParagraph(const QTextBlockFormat &format, const ListPlace *list, const QTextCharFormat &empty)
{
    const bool hadText = m_open;
    if (!m_open)
        openParagraph();
    m_cursor.setBlockFormat(format);
    if (!hadText && !empty.isEmpty())
        m_cursor.setBlockCharFormat(empty);
    if (list) {
        addToList(*list);
    } else {
        for (OpenList &open : m_lists)
            open.running = false;
    }
    m_open = false;
}

bool Builder::continues(const OpenList &open, const ListPlace &place)
{
    if (!open.list || open.place.style != place.style || open.place.suffix != place.suffix)
        return false;
    const bool numbered = isNumbered(place.style);
    if (open.count >= (numbered ? mostNumbers : mostPoints))
        return false;
    return numbered && place.number > 0 ? place.number == open.next : open.running;
}

void Builder::addToList(const ListPlace &place)
{
    const auto level = static_cast<std::size_t>(place.level);
    OpenList &open = m_lists[level];
    if (continues(open, place)) {
        open.list->add(m_cursor.block());
    } else {
        QTextListFormat format;
        format.setStyle(place.style);
        format.setIndent(place.level);
        if (!place.suffix.isEmpty())
            format.setNumberSuffix(place.suffix);
        open = {m_cursor.createList(format), place, 0, std::max(1, place.number), false};
    }
    ++open.count;
    ++open.next;
    open.running = true;
    for (std::size_t deeper = level + 1; deeper < m_lists.size(); ++deeper)
        m_lists[deeper].running = false;
}

}
