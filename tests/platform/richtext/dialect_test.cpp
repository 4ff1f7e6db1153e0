#include "platform/richtext/describe.h"
#include "platform/richtext/richtext.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel;
using test::describe;

namespace {

struct Case {
    const char *name;
    const char *rtf;
    const char16_t *shown;
};

// What other programs write, and what it means by the format's own rules.
const Case cases[] = {
    {"the usual page",
     "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\froman Times New Roman;}}\r\n"
     "{\\colortbl ;\\red255\\green0\\blue0;}\\pard\\qc\\f1\\fs36\\b Title\\b0\\par\r\n\\pard\\cf1 red\\cf0  plain\\par}",
     u"(c)<Times New Roman fs36 b>Title\n<Times New Roman fs36 #ff0000>red<Times New Roman fs36> plain"},
    {"a group ends what it began", "{\\rtf1 a{\\b b{\\i c}d}e}", u"<>a<b>b<b i>c<b>d<>e"},
    {"plain ends all, zero ends one", "{\\rtf1\\b\\i\\ul x\\b0 y\\plain z\\ul1 u\\ulnone v\\strike s}",
     u"<b i ul>x<i ul>y<>z<ul>u<>v<strike>s"},
    {"the last paragraph's end begins no other", "{\\rtf1 a\\par b\\par}", u"<>a\n<>b"},
    {"empty paragraphs stay", "{\\rtf1 a\\par\\par\\par b}", u"<>a\n\n\n<>b"},
    {"line ends in the file are none", "{\\rtf1 a\r\nb\\\r\nc}", u"<>ab\n<>c"},
    {"characters by code page", "{\\rtf1\\ansi\\ansicpg1252 caf\\'e9 \\'80 \\'93q\\'94}", u"<>caf\u00E9 \u20AC \u201Cq\u201D"},
    {"another code page", "{\\rtf1\\ansi\\ansicpg1251 \\'cf\\'f0\\'e8}", u"<>\u041F\u0440\u0438"},
    {"the font's own code page",
     "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset161 G;}}\\f0\\'e1\\f1\\'e1}", u"<A>\u00E1<G>\u03B1"},
    {"two bytes a character, the second may be a letter", "{\\rtf1\\ansi\\ansicpg932 \\'83A\\'83\\'8b!}", u"<>\u30A2\u30EB!"},
    {"bytes above 127 stand for themselves", "{\\rtf1\\ansi\\ansicpg1252 caf\xE9}", u"<>caf\u00E9"},
    {"unicode with what stands for it", "{\\rtf1\\uc1\\u8364?\\u-10179?\\u-8704?\\uc2\\u233\\'c3\\'a9{\\uc0\\u97b}\\u98??c}",
     u"<>\u20AC\U0001F600\u00E9ab" u"bc"},
    {"a missing stand-in takes no formatting", "{\\rtf1\\u8364\\par b\\u8364{\\b c}}", u"<>\u20AC\n<>b\u20AC<b>c"},
    {"characters by name", "{\\rtf1 \\lquote a\\rquote\\emdash\\bullet\\~\\_\\-\\{\\}\\\\\\tab\\line x}",
     u"<>\u2018a\u2019\u2014\u2022\u00A0\u2011\u00AD{}\\\t\u2028x"},
    {"what is no text is left out",
     "{\\rtf1{\\stylesheet{\\s1 Heading;}}{\\info{\\author Me}{\\title T}}{\\*\\generator G 1.0;}{\\pict\\pngblip 89504e47}"
     "{\\*\\unknown{\\b deep}\\bin3 }}}x}{\\header h}a{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt link}}}",
     u"<>alink"},
    {"indents and tabs, counted from where the line starts",
     "{\\rtf1\\pard\\li720\\fi-360\\ri300\\sb120\\sa60\\tx2160\\tqr\\tx4320 \\bullet\\tab a\\par\\pard\\qj b}",
     u"(li720 ri300 fi-360 sb120 sa60 tab0:360 tab0:1800 tab1:3960)<>\u2022\ta\n(j)<>b"},
    {"nothing starts left of the edge", "{\\rtf1\\li100\\fi-500 a}", u"(li100 fi-100 tab0:100)<>a"},
    {"points and numbers of the old kind",
     "{\\rtf1\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\fi-360\\li720 a\\par"
     "{\\pntext\\'B7\\tab}b\\par\\pard{\\pntext 1)\\tab}{\\*\\pn\\pnlvlbody\\pnindent0\\pnstart1\\pndec{\\pntxta )}}\\fi-360\\li1440 c\\par"
     "{\\pntext 2)\\tab}d\\par\\pard e\\par\\pard{\\pntext 3)\\tab}{\\*\\pn\\pnlvlbody\\pnstart3\\pndec{\\pntxta )}}\\fi-360\\li1440 f\\par}",
     u"(point -1 level 1)<>a\n(point -1 level 1)<>b\n(1) level 2)<>c\n(2) level 2)<>d\n<>e\n(3) level 2)<>f"},
    {"lists of the new kind",
     "{\\rtf1{\\*\\listtable{\\list{\\listlevel x}}}\\pard\\ls1{\\listtext 1.\\tab}a\\par\\ls1{\\listtext 2.\\tab}b\\par"
     "\\pard\\ls2\\ilvl1{\\listtext\\'b7\\tab}c\\par\\pard d}",
     u"(1. level 1)<>a\n(2. level 1)<>b\n(point -1 level 2)<>c\n<>d"},
    {"the words of a table stay", "{\\rtf1\\trowd a\\cell b\\cell\\row c\\cell\\row}", u"<>a\tb\t\n<>c\t"},
    {"back colours, raised text", "{\\rtf1{\\colortbl;\\red1\\green2\\blue3;}\\highlight1 a\\highlight0 b\\super 2\\nosupersub\\sub 3}",
     u"<on#010203>a<>b<super>2<sub>3"},
};

}

TEST(RtfDialect, ReadsWhatOthersWrite)
{
    for (const Case &c : cases) {
        QTextDocument document;
        richtext::read(document, QByteArray(c.rtf));
        EXPECT_EQ(QString::fromUtf16(c.shown).toStdString(), describe(document)) << c.name;
    }
}

TEST(RtfDialect, NoRtfIsPlainText)
{
    QTextDocument document;
    for (const QString &text : {u"just words"_s, u"{not rtf}"_s, u"<b>x</b>\n\\b"_s, u""_s}) {
        richtext::read(document, text);
        EXPECT_EQ(text, document.toPlainText());
    }
    richtext::read(document, QByteArray("caf\xC3\xA9"));
    EXPECT_EQ(u"caf\u00E9"_s, document.toPlainText());
    richtext::read(document, QByteArray("caf\xE9 \x80"));
    EXPECT_EQ(u"caf\u00E9 \u20AC"_s, document.toPlainText());
    EXPECT_EQ(u"bold"_s, richtext::plainText(u"{\\rtf1\\b bold\\par}"_s));
    richtext::read(document, u"{\\rtf1 caf\u00E9}"_s);
    EXPECT_EQ(u"caf\u00E9"_s, document.toPlainText()) << "in a text each character is itself";
}
