#include "platform/richtext/richtext.h"

#include <QColor>
#include <QHash>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

#include <cmath>

namespace vorel::richtext {

using namespace Qt::StringLiterals;

namespace {

constexpr int listStep = 720, listHang = 360;

struct ListStyle {
    QTextListFormat::Style style;
    QStringView word;
    QStringView mark;           // of points, as the RTF writes it
};
constexpr ListStyle listStyles[] = {
    {QTextListFormat::ListDisc, u"\\pnlvlblt", u"\\'b7"},
    {QTextListFormat::ListCircle, u"\\pnlvlblt", u"o"},
    {QTextListFormat::ListSquare, u"\\pnlvlblt", u"\\u9642?"},
    {QTextListFormat::ListDecimal, u"\\pnlvlbody\\pndec", u""},
    {QTextListFormat::ListLowerAlpha, u"\\pnlvlbody\\pnlcltr", u""},
    {QTextListFormat::ListUpperAlpha, u"\\pnlvlbody\\pnucltr", u""},
    {QTextListFormat::ListLowerRoman, u"\\pnlvlbody\\pnlcrm", u""},
    {QTextListFormat::ListUpperRoman, u"\\pnlvlbody\\pnucrm", u""},
};

const ListStyle &listStyle(QTextListFormat::Style style)
{
    for (const ListStyle &entry : listStyles) {
        if (entry.style == style)
            return entry;
    }
    return listStyles[0];
}

int twips(double pixels)
{
    return static_cast<int>(std::lround(pixels * twipsPerPixel));
}

void escape(QString *out, QStringView text)
{
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        if (code == u'\\' || code == u'{' || code == u'}')
            *out += u'\\' + QString(c);
        else if (code == u'\t')
            *out += u"\\tab "_s;
        else if (code == QChar::LineSeparator)
            *out += u"\\line "_s;
        else if (code == QChar::Nbsp)
            *out += u"\\~"_s;
        else if (code >= 0x20 && code < 0x7F)
            *out += c;
        else if (code > 0x7F && code != QChar::ObjectReplacementCharacter)
            *out += u"\\u%1?"_s.arg(static_cast<qint16>(code));
    }
}

class Writer {
public:
    QString run(const QTextDocument &document);

private:
    void paragraph(const QTextBlock &block);
    QString paragraphWords(const QTextBlock &block);
    QString listWords(const QTextList &list, int number);
    void characters(const QTextCharFormat &format);
    int fontRow(const QString &family);
    int colourRow(const QColor &colour);

    QString m_body;
    QString m_paragraphWords, m_characterWords;
    QHash<QString, int> m_fonts;
    QString m_fontTable;
    QHash<QRgb, int> m_colours;
    QString m_colourTable;
    QHash<const QTextList *, int> m_numbers;
};

QString Writer::run(const QTextDocument &document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        paragraph(block);
    // The first font means the document's own and is never named: the same words are the same text everywhere.
    return u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fswiss Arial;}"_s + m_fontTable
        + u"}\r\n{\\colortbl ;"_s + m_colourTable + u"}\r\n"_s + m_body + u"}"_s;
}

void Writer::paragraph(const QTextBlock &block)
{
    const QString words = paragraphWords(block);
    if (words != m_paragraphWords || block.textList())
        m_body += u"\\pard"_s + words + u' ';
    m_paragraphWords = words;
    if (block.length() <= 1)
        characters(block.charFormat());
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        characters(it.fragment().charFormat());
        escape(&m_body, it.fragment().text());
    }
    m_body += u"\\par\r\n"_s;
}

QString Writer::paragraphWords(const QTextBlock &block)
{
    const QTextBlockFormat format = block.blockFormat();
    QString words;
    const auto add = [&words](const char16_t *word, int value) {
        if (value != 0)
            words += QString::fromUtf16(word) + QString::number(value);
    };
    if (const Qt::Alignment side = format.alignment(); side & Qt::AlignRight)
        words += u"\\qr"_s;
    else if (side & Qt::AlignHCenter)
        words += u"\\qc"_s;
    else if (side & Qt::AlignJustify)
        words += u"\\qj"_s;
    add(u"\\ri", twips(format.rightMargin()));
    add(u"\\sb", twips(format.topMargin()));
    add(u"\\sa", twips(format.bottomMargin()));
    if (const QTextList *list = block.textList())
        return words + listWords(*list, ++m_numbers[list]);
    const int left = twips(format.leftMargin()) + format.indent() * listStep, first = twips(format.textIndent());
    add(u"\\li", left);
    add(u"\\fi", first);
    const QList<QTextOption::Tab> tabs = format.tabPositions();
    for (const QTextOption::Tab &tab : tabs) {
        const int position = twips(tab.position);
        if (first < 0 && position == -first && tab.type == QTextOption::LeftTab)
            continue;                       // the default needs no word
        words += tab.type == QTextOption::RightTab ? u"\\tqr"_s
            : tab.type == QTextOption::CenterTab   ? u"\\tqc"_s
            : tab.type == QTextOption::DelimiterTab ? u"\\tqdec"_s : QString();
        add(u"\\tx", position + left + first);
    }
    return words;
}

QString Writer::listWords(const QTextList &list, int number)
{
    const QTextListFormat format = list.format();
    const ListStyle &style = listStyle(format.style());
    const QString indent = u"\\fi-%1\\li%2"_s.arg(listHang).arg(listStep * std::max(1, format.indent()));
    const QString word = style.word.toString(), mark = style.mark.toString();
    if (!mark.isEmpty())
        return u"{\\pntext "_s + mark + u"\\tab}{\\*\\pn"_s + word + u"{\\pntxtb "_s + mark + u"}}"_s + indent;
    QString suffix;
    escape(&suffix, format.numberSuffix().isEmpty() ? u"."_s : format.numberSuffix());
    return u"{\\pntext "_s + QString::number(number) + suffix + u"\\tab}{\\*\\pn"_s + word + u"\\pnstart"_s
        + QString::number(number) + u"{\\pntxta "_s + suffix + u"}}"_s + indent;
}

void Writer::characters(const QTextCharFormat &format)
{
    QString words;
    if (const QStringList families = format.fontFamilies().toStringList(); !families.isEmpty())
        words += u"\\f"_s + QString::number(fontRow(families.first()));
    double points = format.fontPointSize();
    if (points <= 0 && format.hasProperty(QTextFormat::FontPixelSize))
        points = format.intProperty(QTextFormat::FontPixelSize) * 0.75;
    if (points > 0)
        words += u"\\fs"_s + QString::number(std::lround(points * 2));
    if (format.fontWeight() >= QFont::DemiBold)
        words += u"\\b"_s;
    if (format.fontItalic())
        words += u"\\i"_s;
    if (format.fontUnderline())
        words += u"\\ul"_s;
    if (format.fontStrikeOut())
        words += u"\\strike"_s;
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        words += u"\\super"_s;
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        words += u"\\sub"_s;
    if (format.hasProperty(QTextFormat::ForegroundBrush))
        words += u"\\cf"_s + QString::number(colourRow(format.foreground().color()));
    if (format.hasProperty(QTextFormat::BackgroundBrush))
        words += u"\\highlight"_s + QString::number(colourRow(format.background().color()));
    if (words == m_characterWords)
        return;
    m_characterWords = words;
    m_body += u"\\plain"_s + words + u' ';
}

int Writer::fontRow(const QString &family)
{
    const auto known = m_fonts.constFind(family);
    if (known != m_fonts.cend())
        return *known;
    const int row = static_cast<int>(m_fonts.size()) + 1;
    m_fonts.insert(family, row);
    m_fontTable += u"{\\f"_s + QString::number(row) + u"\\fnil "_s;
    escape(&m_fontTable, QString(family).remove(u';'));
    m_fontTable += u";}"_s;
    return row;
}

int Writer::colourRow(const QColor &colour)
{
    const QRgb rgb = colour.rgb() | 0xFF000000;
    const auto known = m_colours.constFind(rgb);
    if (known != m_colours.cend())
        return *known;
    const int row = static_cast<int>(m_colours.size()) + 1;
    m_colours.insert(rgb, row);
    m_colourTable += u"\\red%1\\green%2\\blue%3;"_s.arg(qRed(rgb)).arg(qGreen(rgb)).arg(qBlue(rgb));
    return row;
}

}

QString write(const QTextDocument &document)
{
    return Writer().run(document);
}

}
