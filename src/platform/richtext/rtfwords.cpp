#include "platform/richtext/rtfreader.h"

#include <algorithm>

namespace vorel::richtext {

using namespace Qt::StringLiterals;

// What each control word does. One that is not here does nothing; a group that begins with \* and such a word is left out.
struct Words {
    using Step = void (*)(Reader &, int number, bool hasNumber);

    static constexpr int farthest = 31680;          // twips: 22 inches
    static constexpr int largestHalfPoints = 800;   // 400 points
    static constexpr qsizetype mostTabs = 64;       // as many as editors keep in a paragraph

    static const QHash<QStringView, Step> &table();
    static const QHash<QStringView, Destination> &destinations();
    static const QHash<QStringView, char16_t> &characters();

    static int twips(int number) { return std::clamp(number, 0, farthest); }
    static CharacterState &character(Reader &r) { return r.m_now.character; }
    static ParagraphState &paragraph(Reader &r) { return r.m_now.paragraph; }

    template <bool CharacterState::*member>
    static void toggle(Reader &r, int number, bool hasNumber)
    {
        character(r).*member = !hasNumber || number != 0;
    }
    template <int CharacterState::*member>
    static void row(Reader &r, int number, bool)
    {
        character(r).*member = std::max(0, number);
    }
    template <int ParagraphState::*member>
    static void distance(Reader &r, int number, bool)
    {
        paragraph(r).*member = twips(number);
    }
    template <Qt::AlignmentFlag flag>
    static void align(Reader &r, int, bool)
    {
        paragraph(r).alignment = flag;
    }
    template <QTextOption::TabType type>
    static void tabType(Reader &r, int, bool)
    {
        paragraph(r).nextTab = type;
    }
    template <QTextListFormat::Style style>
    static void listStyle(Reader &r, int, bool)
    {
        paragraph(r).list.style = style;
    }
    template <int Reader::*member>
    static void part(Reader &r, int number, bool)
    {
        r.*member = number;
    }
    static void addTab(Reader &r, int number, bool)
    {
        ParagraphState &p = paragraph(r);
        const auto type = std::exchange(p.nextTab, QTextOption::LeftTab);
        if (p.tabs.size() < mostTabs)
            p.tabs.append(QTextOption::Tab(twips(number), type, type == QTextOption::DelimiterTab ? u'.' : QChar()));
    }
    static void breakParagraph(Reader &r, int, bool)
    {
        if (r.m_now.destination == Destination::Body)
            r.endParagraph();
    }
    static void chooseFont(Reader &r, int number, bool)
    {
        if (r.m_now.destination == Destination::Fonts)
            r.m_fontRow = number;
        else
            character(r).font = std::max(0, number);
    }
};

const QHash<QStringView, Words::Step> &Words::table()
{
    using C = CharacterState;
    using P = ParagraphState;
    static const QHash<QStringView, Step> words{
        {u"b", toggle<&C::bold>}, {u"i", toggle<&C::italic>}, {u"strike", toggle<&C::strikeout>},
        {u"striked", toggle<&C::strikeout>}, {u"ul", toggle<&C::underline>}, {u"uld", toggle<&C::underline>},
        {u"uldash", toggle<&C::underline>}, {u"uldashd", toggle<&C::underline>}, {u"uldb", toggle<&C::underline>},
        {u"ulth", toggle<&C::underline>}, {u"ulw", toggle<&C::underline>}, {u"ulwave", toggle<&C::underline>},
        {u"ulnone", [](Reader &r, int, bool) { character(r).underline = false; }},
        {u"plain", [](Reader &r, int, bool) { character(r) = {}; }},
        {u"f", chooseFont},
        {u"fs", [](Reader &r, int n, bool) { character(r).halfPoints = n <= 0 ? 0 : std::clamp(n, 2, largestHalfPoints); }},
        {u"cf", row<&C::colour>}, {u"highlight", row<&C::back>}, {u"chcbpat", row<&C::back>}, {u"cb", row<&C::back>},
        {u"super", [](Reader &r, int n, bool has) { character(r).shift = !has || n ? 1 : 0; }},
        {u"sub", [](Reader &r, int n, bool has) { character(r).shift = !has || n ? -1 : 0; }},
        {u"nosupersub", [](Reader &r, int, bool) { character(r).shift = 0; }},

        {u"pard", [](Reader &r, int, bool) { paragraph(r) = {}; }},
        {u"ql", align<Qt::AlignLeft>}, {u"qr", align<Qt::AlignRight>}, {u"qc", align<Qt::AlignHCenter>},
        {u"qj", align<Qt::AlignJustify>},
        {u"li", distance<&P::left>}, {u"ri", distance<&P::right>}, {u"sb", distance<&P::before>},
        {u"sa", distance<&P::after>},
        {u"fi", [](Reader &r, int n, bool) { paragraph(r).first = std::clamp(n, -farthest, farthest); }},
        {u"tx", addTab}, {u"tqr", tabType<QTextOption::RightTab>}, {u"tqc", tabType<QTextOption::CenterTab>},
        {u"tqdec", tabType<QTextOption::DelimiterTab>},
        {u"ls", [](Reader &r, int n, bool) { paragraph(r).listTable = n; }},
        {u"ilvl", [](Reader &r, int n, bool) { paragraph(r).listLevel = std::clamp(n, 0, deepestList); }},
        {u"par", breakParagraph}, {u"sect", breakParagraph}, {u"page", breakParagraph}, {u"row", breakParagraph},

        {u"pnlvlblt", listStyle<QTextListFormat::ListDisc>}, {u"pnlvlbody", listStyle<QTextListFormat::ListDecimal>},
        {u"pndec", listStyle<QTextListFormat::ListDecimal>}, {u"pnlcltr", listStyle<QTextListFormat::ListLowerAlpha>},
        {u"pnucltr", listStyle<QTextListFormat::ListUpperAlpha>}, {u"pnlcrm", listStyle<QTextListFormat::ListLowerRoman>},
        {u"pnucrm", listStyle<QTextListFormat::ListUpperRoman>},
        {u"pnstart", part<&Reader::m_listStart>},

        {u"u", [](Reader &r, int n, bool) { r.addUnicode(n); }},
        {u"uc", [](Reader &r, int n, bool) { r.m_now.fallbacks = std::clamp(n, 0, 16); }},
        {u"bin", [](Reader &r, int n, bool) { r.m_tokens.skip(n); }},
        {u"ansicpg", [](Reader &r, int n, bool) { r.m_ansiPage = std::clamp(n, 0, 99999); }},
        {u"mac", [](Reader &r, int, bool) { r.m_ansiPage = 10000; }},
        {u"pc", [](Reader &r, int, bool) { r.m_ansiPage = 437; }},
        {u"pca", [](Reader &r, int, bool) { r.m_ansiPage = 850; }},
        {u"deff", part<&Reader::m_defaultFont>},
        {u"fcharset", [](Reader &r, int n, bool) { r.m_font.codePage = codePageOfCharset(n); }},
        {u"cpg", [](Reader &r, int n, bool) { r.m_font.codePage = std::clamp(n, 0, 99999); }},
        {u"red", part<&Reader::m_red>}, {u"green", part<&Reader::m_green>}, {u"blue", part<&Reader::m_blue>},
    };
    return words;
}

const QHash<QStringView, Destination> &Words::destinations()
{
    using enum Destination;
    static const QHash<QStringView, Destination> words{
        {u"fonttbl", Fonts}, {u"colortbl", Colours}, {u"pntext", ListMark}, {u"listtext", ListMark}, {u"pn", List},
        {u"pntxtb", ListBefore}, {u"pntxta", ListAfter},
        {u"stylesheet", Skip}, {u"info", Skip}, {u"pict", Skip}, {u"nonshppict", Skip}, {u"objdata", Skip}, {u"header", Skip},
        {u"headerl", Skip}, {u"headerr", Skip}, {u"headerf", Skip}, {u"footer", Skip}, {u"footerl", Skip}, {u"footerr", Skip},
        {u"footerf", Skip}, {u"footnote", Skip}, {u"annotation", Skip}, {u"fldinst", Skip}, {u"listtable", Skip},
        {u"listoverridetable", Skip}, {u"filetbl", Skip}, {u"revtbl", Skip}, {u"rsidtbl", Skip}, {u"xe", Skip}, {u"tc", Skip},
        {u"themedata", Skip}, {u"colorschememapping", Skip}, {u"datastore", Skip}, {u"latentstyles", Skip},
    };
    return words;
}

const QHash<QStringView, char16_t> &Words::characters()
{
    static const QHash<QStringView, char16_t> words{
        {u"tab", u'\t'}, {u"cell", u'\t'}, {u"nestcell", u'\t'}, {u"line", QChar::LineSeparator}, {u"bullet", u'\u2022'},
        {u"emdash", u'\u2014'}, {u"endash", u'\u2013'}, {u"lquote", u'\u2018'}, {u"rquote", u'\u2019'},
        {u"ldblquote", u'\u201C'}, {u"rdblquote", u'\u201D'}, {u"emspace", u'\u2003'}, {u"enspace", u'\u2002'},
        {u"qmspace", u'\u2005'}, {u"zwj", u'\u200D'}, {u"zwnj", u'\u200C'}, {u"ltrmark", u'\u200E'}, {u"rtlmark", u'\u200F'},
    };
    return words;
}

void Reader::takeWord(const Token &token)
{
    if (const auto destination = Words::destinations().constFind(token.word); destination != Words::destinations().cend()) {
        if (m_now.destination == Destination::Skip)
            return;
        m_now.destination = *destination;
        if (*destination == Destination::ListMark)
            m_mark.clear();
        if (*destination == Destination::List) {
            m_now.paragraph.list = {};
            m_listBefore.clear();
            m_listAfter.clear();
        }
        return;
    }
    if (m_optional) {
        m_now.destination = Destination::Skip;
        return;
    }
    if (m_now.destination == Destination::Skip && token.word != u"bin")
        return;
    if (const auto c = Words::characters().constFind(token.word); c != Words::characters().cend()) {
        if (!skipFallback())
            add(*c);
        return;
    }
    m_skip = 0;                             // a formatting word is never a fallback
    if (const auto step = Words::table().constFind(token.word); step != Words::table().cend())
        (*step)(*this, token.number, token.hasNumber);
}

}
