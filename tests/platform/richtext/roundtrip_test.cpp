#include "platform/richtext/describe.h"
#include "platform/richtext/richtext.h"

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using namespace vorel;
using test::describe;

namespace {

// Documents of every kind that the box can make, by a seed.
class Maker {
public:
    explicit Maker(unsigned seed) : m_engine(seed) {}

    void fill(QTextDocument &document)
    {
        QTextCursor cursor(&document);
        QTextList *list = nullptr;
        for (int left = number(1, 12); left > 0; --left) {
            const bool listed = number(0, 3) == 0;
            cursor.setBlockFormat(paragraph(listed));
            if (listed && list && number(0, 2))
                list->add(cursor.block());
            else if (listed)
                list = cursor.createList(listFormat());
            else if (number(0, 1))
                list = nullptr;
            cursor.setBlockCharFormat({});
            for (int runs = number(0, 4); runs > 0; --runs)
                cursor.insertText(words(), characters());
            if (left > 1)
                cursor.insertBlock({}, {});
        }
    }

private:
    int number(int from, int to) { return from + static_cast<int>(m_engine() % static_cast<unsigned>(to - from + 1)); }
    double pixels(int from, int to) { return number(from, to) / double(richtext::twipsPerPixel); }

    QTextBlockFormat paragraph(bool listed)
    {
        static constexpr Qt::AlignmentFlag sides[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter, Qt::AlignJustify};
        QTextBlockFormat format;
        format.setAlignment(sides[number(0, 3)]);
        if (number(0, 3) == 0)
            format.setTopMargin(pixels(1, 400));
        if (number(0, 3) == 0)
            format.setRightMargin(pixels(1, 2000));
        if (listed || number(0, 1))
            return format;
        const int left = number(0, 2000), first = number(-left, 1000);
        format.setLeftMargin(left / double(richtext::twipsPerPixel));
        format.setTextIndent(first / double(richtext::twipsPerPixel));
        QList<QTextOption::Tab> tabs;
        // A line that hangs out always has the tab where the others start.
        if (first < 0)
            tabs.append({-first / double(richtext::twipsPerPixel), QTextOption::LeftTab});
        for (int at = std::max(1, -first); number(0, 2);) {
            const auto type = static_cast<QTextOption::TabType>(number(0, 3));
            tabs.append({(at += number(1, 3000)) / double(richtext::twipsPerPixel), type,
                         type == QTextOption::DelimiterTab ? u'.' : QChar()});
        }
        format.setTabPositions(tabs);
        return format;
    }

    QTextListFormat listFormat()
    {
        QTextListFormat format;
        format.setStyle(static_cast<QTextListFormat::Style>(number(-8, -1)));
        format.setIndent(number(1, 9));
        if (format.style() <= QTextListFormat::ListDecimal && number(0, 1))
            format.setNumberSuffix(u")"_s);
        return format;
    }

    QTextCharFormat characters()
    {
        QTextCharFormat format;
        const auto maybe = [this] { return number(0, 3) == 0; };
        if (maybe())
            format.setFontFamilies({QStringList{u"Arial"_s, u"Times New Roman"_s, u"Grüße {1}"_s}[number(0, 2)]});
        if (maybe())
            format.setFontPointSize(number(2, 200) / 2.0);
        if (maybe())
            format.setFontWeight(QFont::Bold);
        if (maybe())
            format.setFontItalic(true);
        if (maybe())
            format.setFontUnderline(true);
        if (maybe())
            format.setFontStrikeOut(true);
        if (maybe())
            format.setVerticalAlignment(number(0, 1) ? QTextCharFormat::AlignSuperScript : QTextCharFormat::AlignSubScript);
        if (maybe())
            format.setForeground(QColor::fromRgb(static_cast<QRgb>(number(0, 0xFFFFFF))));
        if (maybe())
            format.setBackground(QColor::fromRgb(static_cast<QRgb>(number(0, 0xFFFFFF))));
        return format;
    }

    QString words()
    {
        static const QStringList pieces{u"word"_s,  u" "_s,       u"\\par{}"_s, u"\t"_s,     u"\u2028"_s, u"é"_s, u"€uro"_s, u"漢字"_s, u"\U0001F600"_s,
                                        u"\u00A0"_s, u"\u00AD"_s, u"\u2011"_s,  u"-1 "_s,    u"?"_s,      u"'"_s, u"\u2022"_s};
        QString text;
        for (int left = number(1, 6); left > 0; --left)
            text += pieces[number(0, static_cast<int>(pieces.size()) - 1)];
        return text;
    }

    std::mt19937 m_engine;
};

}

TEST(RichTextRoundTrip, WhatIsWrittenReadsBackWithoutLoss)
{
    for (unsigned seed = 1; seed <= 400; ++seed) {
        QTextDocument made, back;
        Maker(seed).fill(made);
        const QString rtf = richtext::write(made);
        ASSERT_TRUE(richtext::isRtf(rtf));
        ASSERT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](QChar c) { return c.unicode() < 0x80; }));
        richtext::read(back, rtf);
        ASSERT_EQ(describe(made), describe(back)) << "seed " << seed << "\n" << qPrintable(rtf);
        ASSERT_EQ(rtf, richtext::write(back)) << "seed " << seed;
        richtext::read(back, rtf.toLatin1());
        ASSERT_EQ(describe(made), describe(back)) << "as bytes, seed " << seed;
    }
}

TEST(RichTextRoundTrip, PlainAndFormattedAreToldApart)
{
    QTextDocument document;
    document.setPlainText(u"one\ntwo\u00A0three"_s);
    EXPECT_FALSE(richtext::isFormatted(document));
    EXPECT_EQ(u"one\ntwo\u00A0three"_s, richtext::plainText(document));
    for (const QString &words : {u"\\b x"_s, u"\\qc x"_s, u"\\li300 x"_s, u"x\\line y"_s, u"\\tx900 x"_s,
                                 u"{\\pntext -}{\\*\\pn\\pnlvlblt}x"_s}) {
        richtext::read(document, u"{\\rtf1 "_s + words + u"}"_s);
        EXPECT_TRUE(richtext::isFormatted(document)) << qPrintable(words);
    }
    richtext::read(document, u"{\\rtf1 as it is\\par}"_s);
    EXPECT_FALSE(richtext::isFormatted(document));
}
