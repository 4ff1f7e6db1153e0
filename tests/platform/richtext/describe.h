#pragma once

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

namespace vorel::test {

// What a reader sees of a document, as one line a paragraph: "(c li720) <b fs24 #ff0000>red <>plain". Lengths in twips.
inline QString describe(const QTextCharFormat &format)
{
    using namespace Qt::StringLiterals;
    QStringList words;
    if (const QString family = format.fontFamilies().toStringList().value(0); !family.isEmpty())
        words << family;
    if (format.fontPointSize() > 0)
        words << u"fs%1"_s.arg(qRound(format.fontPointSize() * 2));
    const std::pair<bool, QString> marks[] = {
        {format.fontWeight() >= QFont::DemiBold, u"b"_s}, {format.fontItalic(), u"i"_s}, {format.fontUnderline(), u"ul"_s},
        {format.fontStrikeOut(), u"strike"_s}, {format.verticalAlignment() == QTextCharFormat::AlignSuperScript, u"super"_s},
        {format.verticalAlignment() == QTextCharFormat::AlignSubScript, u"sub"_s}};
    for (const auto &[stands, mark] : marks) {
        if (stands)
            words << mark;
    }
    if (format.hasProperty(QTextFormat::ForegroundBrush))
        words << format.foreground().color().name();
    if (format.hasProperty(QTextFormat::BackgroundBrush))
        words << u"on"_s + format.background().color().name();
    return u'<' + words.join(u' ') + u'>';
}

inline QString describe(const QTextBlockFormat &format)
{
    using namespace Qt::StringLiterals;
    QStringList words;
    const auto length = [&words](const QString &name, double pixels) {
        if (pixels != 0)
            words << name + QString::number(qRound(pixels * 15));
    };
    for (const auto &[side, mark] : {std::pair{Qt::AlignRight, u'r'}, {Qt::AlignHCenter, u'c'}, {Qt::AlignJustify, u'j'}}) {
        if (format.alignment() & side)
            words << QString(mark);
    }
    length(u"li"_s, format.leftMargin());
    length(u"ri"_s, format.rightMargin());
    length(u"fi"_s, format.textIndent());
    length(u"sb"_s, format.topMargin());
    length(u"sa"_s, format.bottomMargin());
    for (const QTextOption::Tab &tab : format.tabPositions())
        length(u"tab%1:"_s.arg(static_cast<int>(tab.type)), tab.position);
    return words.join(u' ');
}

inline std::string describe(const QTextDocument &document)
{
    using namespace Qt::StringLiterals;
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QString line = describe(block.blockFormat());
        if (const QTextList *list = block.textList()) {
            line += u" %1 level %2"_s.arg(list->format().style() > QTextListFormat::ListDecimal
                                                    ? u"point %1"_s.arg(list->format().style()) : list->itemText(block))
                        .arg(list->format().indent());
        }
        line = line.isEmpty() ? line : u'(' + line.trimmed() + u')';
        for (auto it = block.begin(); !it.atEnd(); ++it)
            line += describe(it.fragment().charFormat()) + it.fragment().text();
        lines << line;
    }
    return lines.join(u'\n').toStdString();
}

}
