#include "platform/richtext/checkbytes.h"
#include "platform/richtext/richtext.h"

#include <QDir>
#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

QByteArrayList corpus()
{
    QByteArrayList files;
    const QDir folder(QStringLiteral(VOREL_TEST_DATA) + u"/corpus"_s);
    for (const QString &name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        files.append(file.readAll());
    }
    EXPECT_GE(files.size(), 4);
    return files;
}

QByteArray mutated(QByteArray bytes, std::mt19937 &engine)
{
    static const QByteArrayList words{"{", "}", "\\", "\\'", "\\u", "\\uc", "\\par", "\\pard", "\\b", "\\*", "\\bin99999999", "\\fs-1",
                                      "\\li99999999999", "\\pn", "{\\*\\pn\\pnlvlblt}", "{\\fonttbl", "{\\colortbl", "\\ls7", "\\tx",
                                      "\\u64976?", "\\u8233?", "\\u-4?", "\\f999999", "\\cf-3", "\x80", QByteArray(1, '\0')};
    const auto upTo = [&engine](qsizetype most) { return static_cast<qsizetype>(engine() % static_cast<unsigned long>(most + 1)); };
    for (qsizetype left = upTo(5); left >= 0; --left) {
        const qsizetype at = upTo(bytes.size());
        switch (upTo(3)) {
        case 0: bytes.insert(at, words[upTo(words.size() - 1)]); break;
        case 1: bytes.remove(at, upTo(40)); break;
        case 2: bytes.insert(at, bytes.mid(upTo(bytes.size()), 60)); break;
        default:
            if (at < bytes.size())
                bytes[at] = static_cast<char>(upTo(255));
        }
    }
    return bytes;
}

}

TEST(RtfDamage, AnyBytesAreReadAndKeepTheirMeaning)
{
    std::mt19937 engine(20260);
    for (const QByteArray &file : corpus()) {
        ASSERT_EQ(u""_s, test::checkBytes(file)) << file.constData();
        for (int round = 0; round < 400; ++round) {
            const QByteArray bytes = mutated(file, engine);
            ASSERT_EQ(u""_s, test::checkBytes(bytes)) << bytes.toHex().constData();
        }
        for (qsizetype cut = 0; cut < file.size(); cut += 7)
            ASSERT_EQ(u""_s, test::checkBytes(file.left(cut))) << cut;
    }
}

TEST(RtfDamage, NoWordIsLostBehindTheDamage)
{
    QTextDocument document;
    for (const char *rtf : {"{\\rtf1 a}b", "{\\rtf1 a{\\b b", "{\\rtf1 a\\b\\zzz99 b}}}", "{\\rtf1 a\\'zzb}", "{\\rtf1 {a}}{\\rtf1 b}"}) {
        richtext::read(document, QByteArray(rtf));
        const QString words = richtext::plainText(document);
        EXPECT_TRUE(words.startsWith(u'a') && words.endsWith(u'b')) << rtf << " gave " << qPrintable(words);
    }
}

// Each would need far more memory or steps than its length, if it were believed.
TEST(RtfDamage, HugeClaimsStaySmall)
{
    QTextDocument document;
    const auto words = [&document](const QByteArray &rtf) {
        richtext::read(document, rtf);
        return richtext::plainText(document);
    };
    EXPECT_EQ(u"x"_s, words("{\\rtf1" + QByteArray(200'000, '{') + "x"));
    EXPECT_EQ(u"x\ny"_s, words("{\\rtf1 x" + QByteArray(200'000, '}') + "y"));
    EXPECT_EQ(u"x"_s, words("{\\rtf1\\fs2147483647\\li99999999999999\\tx-5\\uc1000000 x\\bin2147483647 rest}"));
    EXPECT_EQ(400.0, document.begin().begin().fragment().charFormat().fontPointSize());
    EXPECT_EQ(u"x"_s, words("{\\rtf1{\\fonttbl{\\f1 " + QByteArray(300'000, 'n') + ";}}\\f1 x}"));
    EXPECT_LE(document.begin().begin().fragment().charFormat().fontFamilies().toStringList().value(0).size(), 128);
    EXPECT_EQ(u"x"_s, words("{\\rtf1{\\colortbl" + QByteArray(300'000, ';') + "}x}"));
    EXPECT_EQ(u"x"_s, words("{\\rtf1" + QByteArray("\\tx9").repeated(100'000) + " x}"));
    EXPECT_EQ(60'000, words("{\\rtf1{\\*\\pn\\pnlvlblt}" + QByteArray("x\\par ").repeated(60'000) + "}").count(u'x'));
}
