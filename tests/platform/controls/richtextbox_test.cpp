#include "platform/controls/richtextbox.h"

#include "platform/controls/colours.h"
#include "support/scriptedprompts.h"
#include "support/testfolder.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

using namespace Qt::StringLiterals;
using namespace vorel;
using controls::RichTextBox;

namespace {

void select(RichTextBox &box, int from, int to)
{
    QTextCursor cursor(box.document());
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    box.setTextCursor(cursor);
}

void clip(const QString &type, const QByteArray &bytes)
{
    auto *data = new QMimeData;
    data->setData(type, bytes);
    QApplication::clipboard()->setMimeData(data);
}

}

TEST(RichTextBox, FormatsTheSelectionAndTellsOfIt)
{
    struct Flag {
        void (RichTextBox::*set)(bool);
        std::optional<bool> (RichTextBox::*is)() const;
        Qt::Key key;                        // with Ctrl; 0 = none
    };
    const Flag flags[] = {{&RichTextBox::setSelBold, &RichTextBox::SelBold, Qt::Key_B},
                          {&RichTextBox::setSelItalic, &RichTextBox::SelItalic, Qt::Key_I},
                          {&RichTextBox::setSelUnderline, &RichTextBox::SelUnderline, Qt::Key_U},
                          {&RichTextBox::setSelStrikeThru, &RichTextBox::SelStrikeThru, Qt::Key(0)},
                          {&RichTextBox::setSelBullet, &RichTextBox::SelBullet, Qt::Key(0)}};
    for (const Flag &flag : flags) {
        RichTextBox box;
        box.setText(u"one\ntwo\nthree"_s);
        select(box, 0, 7);
        if (flag.key)
            QTest::keyClick(&box, flag.key, Qt::ControlModifier);
        else
            (box.*flag.set)(true);
        EXPECT_EQ(true, (box.*flag.is)());
        select(box, 4, 13);
        EXPECT_EQ(std::nullopt, (box.*flag.is)()) << "two of both kinds";
        select(box, 8, 13);
        EXPECT_EQ(false, (box.*flag.is)());
        EXPECT_TRUE(box.stored().startsWith(u"{\\rtf1"_s));
        box.selectAll();
        (box.*flag.set)(false);
        EXPECT_EQ(u"one\ntwo\nthree"_s, box.stored()) << "plain again";
        box.undo();
        select(box, 0, 7);
        EXPECT_EQ(true, (box.*flag.is)()) << "one step to undo";
    }
}

TEST(RichTextBox, FontAndColour)
{
    RichTextBox box;
    box.setTextRTF(u"{\\rtf1{\\fonttbl{\\f1 Times New Roman;}}\\f1\\fs28\\b a\\par}"_s);
    box.selectAll();
    EXPECT_EQ(u"Times New Roman"_s, box.SelFontName());
    EXPECT_EQ(14.0, box.SelFontSize());
    box.setSelFont({u"Arial"_s, 9, false, true, false, false});
    box.setSelColor(Qt::red);
    EXPECT_EQ(u"Arial"_s, box.SelFontName());
    EXPECT_TRUE(box.TextRTF().contains(u"\\fs18\\i\\cf1 a"_s)) << qPrintable(box.TextRTF());
    EXPECT_TRUE(box.TextRTF().contains(u"\\red255\\green0\\blue0;"_s));
    box.setSelColor({});
    EXPECT_FALSE(box.TextRTF().contains(u"\\cf"_s));
    EXPECT_EQ(u"a"_s, box.SelText());
    box.setSelRTF(u"{\\rtf1 b\\par c}"_s);
    EXPECT_EQ(u"b\nc"_s, box.stored());
    EXPECT_TRUE(box.Find(u"C"_s) && box.SelText() == u"c"_s);
    EXPECT_TRUE(box.Find(u"b"_s)) << "and on from the start";
    EXPECT_FALSE(box.Find(u"d"_s));
}

TEST(RichTextBox, PastesTextAndNothingElse)
{
    test::ScriptedPrompts user;
    RichTextBox box;
    box.setText(u"-"_s);
    const auto paste = [&box] { QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier); };
    clip(u"image/png"_s, "x");
    user.expect(u"Clipboard contains unknown data type!"_s);
    paste();
    EXPECT_EQ(u"Error"_s, user.shown().back().title);
    EXPECT_EQ(u"-"_s, box.stored());
    QApplication::clipboard()->clear();
    user.expect(u"Clipboard contains unknown data type!"_s);
    box.Paste();
    box.selectAll();
    clip(u"text/plain"_s, "a<b>\nc");
    paste();
    EXPECT_EQ(u"a<b>\nc"_s, box.stored());
    box.selectAll();
    clip(u"text/rtf"_s, "{\\rtf1\\ansi\\ansicpg1252 caf\xE9 {\\i x}}");
    paste();
    EXPECT_EQ(u"caf\u00E9 x"_s, box.Text());
    box.selectAll();
    clip(u"text/html"_s, "<table><tr><td><b>cell</b><img src='x.png'></td></tr></table>");
    paste();
    EXPECT_EQ(u"cell"_s, box.Text().trimmed()) << "no frame, no picture";
    select(box, static_cast<int>(box.Text().indexOf(u'c')), static_cast<int>(box.Text().indexOf(u'c')) + 4);
    EXPECT_EQ(true, box.SelBold());
    box.copy();
    box.Clear();
    box.Clear();
    EXPECT_EQ(u""_s, box.Text());
    box.Paste();
    box.selectAll();
    EXPECT_EQ(true, box.SelBold()) << "what was copied comes back as it was";
    QApplication::clipboard()->clear();
}

TEST(RichTextBox, FilesComeAndGo)
{
    const test::TestFolder folder;
    RichTextBox box, other;
    box.setTextRTF(u"{\\rtf1 caf\\u233? {\\b x}}"_s);
    ASSERT_TRUE(box.SaveFile(folder.path(u"a.rtf"_s)));
    ASSERT_TRUE(other.LoadFile(folder.path(u"a.rtf"_s)));
    EXPECT_EQ(box.TextRTF(), other.TextRTF());
    EXPECT_FALSE(other.LoadFile(folder.path(u"none.rtf"_s)));
    EXPECT_FALSE(other.LoadFile(folder.path()));
    EXPECT_FALSE(box.SaveFile(folder.path(u"none/a.rtf"_s)));
    EXPECT_EQ(box.TextRTF(), other.TextRTF()) << "a failure leaves the text";
    EXPECT_TRUE(other.LoadFile(folder.write(u"a.txt"_s, "plain {\\rtf}")));
    EXPECT_EQ(u"plain {\\rtf}"_s, other.stored());
}

// What was written black on white must not vanish in a dark palette, nor may the text lose its colour by being shown there.
TEST(RichTextBox, ColoursStayReadableInEveryPalette)
{
    RichTextBox box;
    const QString rtf = u"{\\rtf1{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue200;}none \\cf1 black \\cf0\\highlight2 marked}"_s;
    for (const bool dark : {false, true}) {
        QPalette palette;
        palette.setColor(QPalette::Base, dark ? QColor(30, 30, 30) : QColor(Qt::white));
        palette.setColor(QPalette::Text, dark ? QColor(230, 230, 230) : QColor(Qt::black));
        box.setPalette(palette);
        box.setTextRTF(rtf);
        box.show();
        QApplication::processEvents();
        const QTextBlock block = box.document()->begin();
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            QTextCharFormat shown = it.fragment().charFormat();
            for (const QTextLayout::FormatRange &range : block.layout()->formats()) {
                if (range.start == it.fragment().position())
                    shown.merge(range.format);
            }
            const QColor fore = shown.hasProperty(QTextFormat::ForegroundBrush) ? shown.foreground().color() : palette.color(QPalette::Text);
            const QColor back = shown.hasProperty(QTextFormat::BackgroundBrush) ? shown.background().color() : palette.color(QPalette::Base);
            EXPECT_GE(controls::contrast(fore, back), 3.0) << qPrintable(it.fragment().text()) << dark;
        }
        EXPECT_FALSE(block.begin().fragment().charFormat().hasProperty(QTextFormat::ForegroundBrush));
        RichTextBox fresh;
        fresh.setTextRTF(rtf);
        EXPECT_EQ(fresh.TextRTF(), box.TextRTF());
    }
}
