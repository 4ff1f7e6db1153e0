#include "platform/basic/error.h"
#include "platform/mail/mailprogram.h"
#include "support/opened.h"
#include "support/testfolder.h"

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

void display(const QString &to)
{
    const auto item = mail::mailProgram().CreateItem(0);
    item->To = to;
    item->Subject = u"Hello"_s;
    item->Body = u"Plain"_s;
    item->HTMLBody = u"<P>Rich</P>"_s;
    item->Display();
}

}

TEST(MailTo, EncodesEveryValue)
{
    struct Case { QString to, subject, body, wanted; };
    const Case cases[] = {
        {u" ann@x.org "_s, {}, {}, u"mailto:ann@x.org"_s},
        {u"ann@x.org,bob@x.org"_s, u"A & B"_s, {}, u"mailto:ann@x.org,bob@x.org?subject=A%20%26%20B"_s},
        {u"ann@x.org"_s, {}, u"a\r\nb"_s, u"mailto:ann@x.org?body=a%0D%0Ab"_s},
        {u"a?bcc=b@x.org"_s, u"ü=1&bcc=c"_s, u"%41"_s, u"mailto:a%3Fbcc%3Db@x.org?subject=%C3%BC%3D1%26bcc%3Dc&body=%2541"_s},
    };
    for (const Case &c : cases)
        EXPECT_EQ(mail::mailtoAddress(c.to, c.subject, c.body).toStdString(), c.wanted.toStdString());
}

TEST(MessageFile, HoldsBothBodiesAndNoForeignHeader)
{
    const QByteArray letter = mail::messageFile(u"ann@x.org\r\nBcc: thief@x.org"_s, u"Grüße, Zoë "_s.repeated(6), u"Hi\nthere ☺"_s,
                                                u"<P>Hi</P>"_s);
    const QByteArray head = letter.left(letter.indexOf("\r\n\r\n"));
    EXPECT_TRUE(head.startsWith("X-Unsent: 1\r\n"));
    EXPECT_FALSE(head.contains("\nBcc:"));
    EXPECT_FALSE(head.contains("\xC3"));
    for (const QByteArray &line : head.split('\n'))
        EXPECT_LE(line.size(), 77) << line.toStdString();
    EXPECT_TRUE(letter.contains("text/plain") && letter.contains(QByteArray("Hi\r\nthere \xE2\x98\xBA").toBase64()));
    EXPECT_TRUE(letter.contains("text/html") && letter.contains(QByteArray("<P>Hi</P>").toBase64()));
    EXPECT_FALSE(mail::messageFile(u"a@x"_s, {}, u"Hi"_s, {}).contains("html"));
}

TEST(MailProgram, HandsTheLetterToTheDesktop)
{
    const test::TestFolder folder;
    {
        test::Opened desktop({u"file"_s, u"mailto"_s});
        for (int i = 0; i < 25; ++i)
            display(u"ann@x.org"_s);
        ASSERT_EQ(desktop.urls.size(), 25);
        const QString file = desktop.urls.last().toLocalFile();
        EXPECT_TRUE(file.endsWith(u"/letter000025.eml")) << file.toStdString();
        EXPECT_TRUE(QFile::exists(file));
        EXPECT_LE(QDir(folder.path(u"Letters"_s)).entryList(QDir::Files).size(), 20) << "old ones go";
    }
    EXPECT_THROW(mail::mailProgram().CreateItem(1), basic::Error);
}

// A place where no letter can be written: it goes out by its address, its words kept.
TEST(MailProgram, WithoutAFolderByAddress)
{
    const test::TestFolder folder;
    folder.write(u"Letters"_s, "a file is in the way");
    test::Opened desktop({u"file"_s, u"mailto"_s});
    display(u"ann@x.org"_s);
    EXPECT_EQ(desktop.urls, QList{QUrl(u"mailto:ann@x.org?subject=Hello&body=Plain"_s)});
}
