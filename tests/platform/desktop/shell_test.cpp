#include "platform/desktop/desktop.h"
#include "support/opened.h"
#include "support/testfolder.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

const QStringList schemes {u"http"_s, u"https"_s, u"mailto"_s, u"file"_s};

}

TEST(ShellExecute, AddressesAndDocumentsGoToTheDesktop)
{
    const test::TestFolder folder;
    const QString letter = folder.write(u"Docs/My Letter #1.txt"_s, "x");
    struct Case { QString target; QUrl opened; };
    const std::vector<Case> cases {
        {u"http://example.org/a b"_s, QUrl(u"http://example.org/a%20b"_s)},
        {u" https://example.org "_s, QUrl(u"https://example.org"_s)},
        {u"www.example.org"_s, QUrl(u"http://www.example.org"_s)},
        {u"mailto:ann@example.org?subject=Hi"_s, QUrl(u"mailto:ann@example.org?subject=Hi"_s)},
        {letter, QUrl::fromLocalFile(letter)},
        {folder.path() + u"\\docs\\my letter #1.TXT"_s, QUrl::fromLocalFile(letter)},
        {folder.path(), QUrl::fromLocalFile(folder.path())},
    };
    for (const Case &c : cases) {
        test::Opened desktop(schemes);
        EXPECT_TRUE(desktop::ShellExecute(c.target)) << c.target.toStdString();
        EXPECT_EQ(QList{c.opened}, desktop.urls) << c.target.toStdString();
    }
}

TEST(ShellExecute, NothingToStart)
{
    const test::TestFolder folder;
    test::Opened desktop(schemes);
    for (const QString &target : {u""_s, u"  "_s, u"no-such-program-here"_s, folder.path(u"missing.doc"_s), u"\\missing\\x.exe"_s})
        EXPECT_FALSE(desktop::ShellExecute(target)) << target.toStdString();
    EXPECT_TRUE(desktop.urls.isEmpty());
}

TEST(ShellExecute, StartsAProgramWithItsArguments)
{
    const test::TestFolder folder;
    const QString pipe = folder.path(u"answer"_s);
    ASSERT_EQ(0, ::mkfifo(QFile::encodeName(pipe).constData(), 0600));
    const QString program = folder.write(u"Tool.sh"_s, "#!/bin/sh\necho \"$1|$(basename \"$PWD\")\" > \"$2\"\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_TRUE(desktop::ShellExecute(folder.path(u"tool.sh"_s), {u"one two"_s, pipe}));
    QFile answer(pipe);
    ASSERT_TRUE(answer.open(QIODevice::ReadOnly));         // waits for the program
    EXPECT_EQ("one two|" + QFileInfo(folder.path()).fileName().toUtf8() + "\n", answer.readAll());
}
