#include "platform/richtext/describe.h"
#include "platform/richtext/richtext.h"
#include "support/table.h"

using namespace Qt::StringLiterals;
using namespace vorel;
using test::describe;

// What other programs write, and what it means by the format's own rules.
TEST(RtfDialect, ReadsWhatOthersWrite)
{
    test::forEachRow("dialect", "cases", [](const test::Row &row) {
        QTextDocument document;
        richtext::read(document, row.bytes("rtf"));
        EXPECT_EQ(row.text("shown"), describe(document));
    });
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
