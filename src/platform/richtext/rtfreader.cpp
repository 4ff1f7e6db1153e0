#include "platform/richtext/rtfreader.h"

#include "platform/richtext/richtext.h"

#include <algorithm>
#include <cmath>

namespace vorel::richtext {

using namespace Qt::StringLiterals;

namespace {

// Limits against crafted files. What editors write stays far below them.
constexpr std::size_t deepestGroup = 512;
constexpr qsizetype longestRun = 1 << 15, longestName = 128, longestMark = 32;
constexpr std::size_t mostColours = 4096;
constexpr qsizetype mostFonts = 2048;
constexpr int listStep = 720;               // twips between two levels of a list

double pixels(int twips)
{
    return static_cast<double>(twips) / twipsPerPixel;
}

// Characters that the document keeps for itself, and those that no text has.
bool isText(char16_t c)
{
    return (c >= 0x20 || c == u'\t') && c != 0x7F && c != QChar::ObjectReplacementCharacter && c != 0xFDD0 && c != 0xFDD1;
}

}

Reader::Reader(QTextDocument &document, QStringView text, bool highAreBytes)
    : m_tokens(text, highAreBytes), m_builder(document)
{
}

void Reader::run()
{
    for (Token token = m_tokens.next(); token.kind != Token::Kind::End; token = m_tokens.next())
        take(token);
    finish();
}

void Reader::take(const Token &token)
{
    if (token.kind != Token::Kind::Byte && token.kind != Token::Kind::Character)
        flushBytes();
    const bool optional = std::exchange(m_optional, false);
    switch (token.kind) {
    case Token::Kind::Open:
        open();
        break;
    case Token::Kind::Close:
        close();
        break;
    case Token::Kind::Word:
        m_optional = optional;
        takeWord(token);
        m_optional = false;
        break;
    case Token::Kind::Symbol:
        takeSymbol(token.character);
        break;
    case Token::Kind::Byte:
        takeByte(token.character);
        break;
    case Token::Kind::Character:
        takeCharacter(token.character);
        break;
    case Token::Kind::End:
        break;
    }
}

void Reader::open()
{
    m_skip = 0;
    if (m_groups.size() < deepestGroup)
        m_groups.push_back(m_now);
    else
        ++m_tooDeep;
}

void Reader::close()
{
    m_skip = 0;
    if (m_tooDeep > 0) {
        --m_tooDeep;
        return;
    }
    if (m_groups.size() <= 1)               // one brace too many
        return;
    if (m_groups.size() == 2)               // the end of the text: its last paragraph may not be closed
        finish();
    const Destination ended = m_now.destination;
    const ListPlace list = m_now.paragraph.list;
    m_now = std::move(m_groups.back());
    m_groups.pop_back();
    if (ended == Destination::List && m_now.destination == Destination::Body) {
        m_now.paragraph.listed = true;
        m_now.paragraph.list = list;
        endList(&m_now.paragraph.list);
    }
}

// The marks of the list that \pn described: which sort of point, what follows the number.
void Reader::endList(ListPlace *list) const
{
    if (list->style != QTextListFormat::ListDisc) {
        list->suffix = m_listAfter == u"."_s ? QString() : m_listAfter;
        return;
    }
    if (m_listBefore == u"o"_s)
        list->style = QTextListFormat::ListCircle;
    else if (m_listBefore == u"\u25AA"_s)
        list->style = QTextListFormat::ListSquare;
}

bool Reader::skipFallback()
{
    return m_skip > 0 && m_skip-- > 0;
}

void Reader::takeSymbol(char16_t symbol)
{
    switch (symbol) {
    case u'*':
        m_optional = true;
        return;
    case u'\r':
    case u'\n':
        if (m_now.destination == Destination::Body)
            endParagraph();
        return;
    default:
        break;
    }
    if (skipFallback())
        return;
    switch (symbol) {
    case u'\\':
    case u'{':
    case u'}':
        return add(symbol);
    case u'~':
        return add(QChar::Nbsp);
    case u'-':
        return add(QChar::SoftHyphen);
    case u'_':
        return add(0x2011);
    case u'\t':
        return add(u'\t');
    default:
        return;
    }
}

void Reader::takeByte(char16_t byte)
{
    if (!skipFallback() && m_now.destination != Destination::Skip) {
        m_bytes.append(static_cast<char>(byte & 0xFF));
        if (m_bytes.size() >= longestRun)
            flushBytes();
    }
}

void Reader::takeCharacter(char16_t character)
{
    if (m_now.destination == Destination::Skip || skipFallback())
        return;
    // The second byte of a character may be a plain letter.
    if (!m_bytes.isEmpty() && character < 0x80 && isMultiByte(codePage())) {
        m_bytes.append(static_cast<char>(character));
        return;
    }
    flushBytes();
    add(character);
}

int Reader::codePage() const
{
    if (m_now.destination == Destination::Fonts)
        return m_font.codePage ? m_font.codePage : m_ansiPage;
    const auto font = m_fonts.constFind(m_now.character.font < 0 ? m_defaultFont : m_now.character.font);
    return font != m_fonts.cend() && font->codePage ? font->codePage : m_ansiPage;
}

void Reader::flushBytes()
{
    if (m_bytes.isEmpty())
        return;
    const QString text = decode(std::exchange(m_bytes, {}), codePage());
    for (const QChar c : text)
        add(c.unicode());
}

void Reader::addUnicode(int number)
{
    add(static_cast<char16_t>(number & 0xFFFF));
    m_skip = m_now.fallbacks;
}

void Reader::add(char16_t character)
{
    if (!isText(character))
        return;
    const auto collect = [character](QString &text) {
        if (text.size() < longestMark)
            text.append(QChar(character));
    };
    switch (m_now.destination) {
    case Destination::Body: return addBody(character);
    case Destination::Fonts: return addFontName(character);
    case Destination::Colours: return addColour(character);
    case Destination::ListMark: return collect(m_mark);
    case Destination::ListBefore: return collect(m_listBefore);
    case Destination::ListAfter: return collect(m_listAfter);
    case Destination::List:
    case Destination::Skip: return;
    }
}

void Reader::addBody(char16_t character)
{
    if (character == QChar::ParagraphSeparator)
        return endParagraph();
    // Text outside all groups is mostly the end of the file.
    if (m_groups.size() <= 1 && m_text.isEmpty() && !m_builder.isOpen() && QChar::isSpace(character))
        return;
    if (m_now.character != m_textState || m_text.size() >= longestRun) {
        flush();
        m_textState = m_now.character;
    }
    m_text.append(QChar(character));
}

void Reader::addFontName(char16_t character)
{
    if (character != u';') {
        if (m_font.family.size() < longestName)
            m_font.family.append(QChar(character));
        return;
    }
    m_font.family = m_font.family.simplified();
    if (m_fonts.size() < mostFonts)
        m_fonts.insert(m_fontRow, m_font);
    m_font = {};
}

void Reader::addColour(char16_t character)
{
    if (character != u';')
        return;
    const bool automatic = m_red < 0 && m_green < 0 && m_blue < 0;
    const auto part = [](int value) { return std::clamp(value, 0, 255); };
    if (m_colours.size() < mostColours)
        m_colours.push_back(automatic ? QColor() : QColor(part(m_red), part(m_green), part(m_blue)));
    m_red = m_green = m_blue = -1;
}

void Reader::flush()
{
    if (m_text.isEmpty())
        return;
    const CharacterState now = std::exchange(m_now.character, m_textState);
    m_builder.addText(std::exchange(m_text, {}), format());
    m_now.character = now;
}

const QTextCharFormat &Reader::format()
{
    const CharacterState &c = m_now.character;
    if (c == m_formatState)
        return m_format;
    m_formatState = c;
    m_format = {};
    if (const auto font = m_fonts.constFind(c.font); font != m_fonts.cend() && !font->family.isEmpty())
        m_format.setFontFamilies({font->family});
    if (c.halfPoints > 0)
        m_format.setFontPointSize(c.halfPoints / 2.0);
    if (c.bold)
        m_format.setFontWeight(QFont::Bold);
    if (c.italic)
        m_format.setFontItalic(true);
    if (c.underline)
        m_format.setFontUnderline(true);
    if (c.strikeout)
        m_format.setFontStrikeOut(true);
    if (c.shift != 0)
        m_format.setVerticalAlignment(c.shift > 0 ? QTextCharFormat::AlignSuperScript : QTextCharFormat::AlignSubScript);
    const auto colour = [this](int row) {
        return row > 0 && static_cast<std::size_t>(row) < m_colours.size() ? m_colours[static_cast<std::size_t>(row)] : QColor();
    };
    if (const QColor fore = colour(c.colour); fore.isValid())
        m_format.setForeground(fore);
    if (const QColor back = colour(c.back); back.isValid())
        m_format.setBackground(back);
    return m_format;
}

void Reader::endParagraph()
{
    flush();
    ListPlace place;
    const bool listed = listPlace(&place);
    m_builder.endParagraph(blockFormat(listed), listed ? &place : nullptr, format());
    m_mark.clear();
    m_listStart = 0;
}

void Reader::finish()
{
    flushBytes();
    flush();
    if (m_builder.isOpen())
        endParagraph();
}

// A list places its paragraphs itself.
QTextBlockFormat Reader::blockFormat(bool listed) const
{
    const ParagraphState &p = m_now.paragraph;
    const int first = std::max(p.first, -p.left);       // nothing starts left of the text's edge
    QTextBlockFormat format;
    if (p.alignment != Qt::AlignLeft)
        format.setAlignment(p.alignment);
    const auto set = [&format](void (QTextBlockFormat::*setter)(qreal), int twips) {
        if (twips != 0)
            (format.*setter)(pixels(twips));
    };
    set(&QTextBlockFormat::setRightMargin, p.right);
    set(&QTextBlockFormat::setTopMargin, p.before);
    set(&QTextBlockFormat::setBottomMargin, p.after);
    if (listed)
        return format;
    set(&QTextBlockFormat::setLeftMargin, p.left);
    set(&QTextBlockFormat::setTextIndent, first);
    // RTF counts tabs from the page's edge, the document from where the first line starts.
    QList<QTextOption::Tab> tabs;
    for (QTextOption::Tab tab : p.tabs) {
        tab.position = pixels(static_cast<int>(tab.position) - p.left - first);
        if (tab.position > 0)
            tabs.append(tab);
    }
    addHangingTab(&tabs, first);
    if (!tabs.isEmpty())
        format.setTabPositions(tabs);
    return format;
}

// A first line that hangs out has a tab where the other lines start, unsaid.
void Reader::addHangingTab(QList<QTextOption::Tab> *tabs, int first) const
{
    const double edge = pixels(-first);
    const auto isEdge = [edge](const QTextOption::Tab &tab) { return tab.position == edge; };
    if (first < 0 && std::none_of(tabs->cbegin(), tabs->cend(), isEdge))
        tabs->append(QTextOption::Tab(edge, QTextOption::LeftTab));
    const auto before = [](const QTextOption::Tab &a, const QTextOption::Tab &b) { return a.position < b.position; };
    std::stable_sort(tabs->begin(), tabs->end(), before);
    const auto same = [](const QTextOption::Tab &a, const QTextOption::Tab &b) { return a.position == b.position; };
    tabs->erase(std::unique(tabs->begin(), tabs->end(), same), tabs->end());
}

bool Reader::listPlace(ListPlace *place) const
{
    const ParagraphState &p = m_now.paragraph;
    if (!p.listed && p.listTable <= 0)
        return false;
    *place = p.list;
    readListMark(place);
    if (m_listStart > 0)
        place->number = m_listStart;
    place->level = std::clamp(p.listed ? (p.left + listStep / 2) / listStep : p.listLevel + 1, 1, deepestList);
    return true;
}

// The mark as other programs wrote it out: "2.", "1.3", a bullet.
void Reader::readListMark(ListPlace *place) const
{
    qsizetype end = m_mark.size();
    while (end > 0 && !(m_mark[end - 1] >= u'0' && m_mark[end - 1] <= u'9'))
        --end;
    qsizetype start = end;
    while (start > 0 && m_mark[start - 1] >= u'0' && m_mark[start - 1] <= u'9')
        --start;
    place->number = end > start && end - start < 7 ? QStringView(m_mark).mid(start, end - start).toInt() : 0;
    if (!m_now.paragraph.listed)
        place->style = place->number > 0 ? QTextListFormat::ListDecimal : QTextListFormat::ListDisc;
}

}
