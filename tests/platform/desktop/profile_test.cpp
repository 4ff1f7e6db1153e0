#include "platform/desktop/profile.h"
#include "support/fulldisk.h"
#include "support/table.h"
#include "support/testfolder.h"

#include <QStringConverter>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace vorel;
using desktop::GetPrivateProfileString;
using desktop::WritePrivateProfileString;

TEST(Profile, ReadsAroundDamage)
{
    const test::TestFolder folder;
    int number = 0;
    test::forEachRow("profile", "readings", [&](const test::Row &row) {
        const QString file = folder.write(u"%1.ini"_s.arg(number++), row.bytes("content"));
        EXPECT_EQ(row["expected"], GetPrivateProfileString(row["section"], row["key"], u"none"_s, file));
    });
}

TEST(Profile, GarbageIsNoReasonToStop)
{
    const test::TestFolder folder;
    QByteArray garbage;
    quint32 state = 7;
    for (int i = 0; i < 300'000; ++i) {
        state = state * 1664525u + 1013904223u;
        garbage += static_cast<char>(state >> 24);
    }
    const QString file = folder.write(u"a.ini"_s, garbage);
    EXPECT_EQ(u"none"_s, GetPrivateProfileString(u"Settings"_s, u"UserName"_s, u"none"_s, file));
    ASSERT_TRUE(WritePrivateProfileString(u"Settings"_s, u"UserName"_s, u"Ann"_s, file));
    EXPECT_EQ(u"Ann"_s, GetPrivateProfileString(u"Settings"_s, u"UserName"_s, u"none"_s, file));
    EXPECT_TRUE(folder.read(u"a.ini"_s).startsWith(garbage));
}

TEST(Profile, NoMoreThan255CharactersComeBack)
{
    const test::TestFolder folder;
    const QString file = folder.path(u"a.ini"_s);
    struct Case { QString written; QString read; };
    const QString exact(255, u'x'), wide = QString(255, u'ä');
    const QString pairs = QString(254, u'x') + u"\U0001F600"_s;
    const std::vector<Case> cases {
        {exact, exact},
        {exact + u"y"_s, exact},
        {wide + u"y"_s, wide},                      // characters, not bytes
        {pairs, QString(254, u'x')},                // no half of a character
        {QString(100'000, u'z'), QString(255, u'z')},
    };
    for (const Case &c : cases) {
        ASSERT_TRUE(WritePrivateProfileString(u"S"_s, u"K"_s, c.written, file));
        EXPECT_EQ(c.read, GetPrivateProfileString(u"S"_s, u"K"_s, {}, file));
    }
    EXPECT_EQ(exact, GetPrivateProfileString(u"S"_s, u"Missing"_s, exact + u"tail"_s, file));
}

TEST(Profile, WritesKeepWhatTheyDoNotUnderstand)
{
    const test::TestFolder folder;
    int number = 0;
    test::forEachRow("profile", "writes", [&](const test::Row &row) {
        const QString name = u"%1.ini"_s.arg(number++);
        const QString file = row["before"].isEmpty() ? folder.path(name) : folder.write(name, row.bytes("before"));
        EXPECT_TRUE(WritePrivateProfileString(row["section"], row["key"], row["value"], file));
        EXPECT_EQ(row.bytes("after"), folder.read(name));
    });
}

TEST(Profile, Utf16IsReadAndKept)
{
    const test::TestFolder folder;
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        const auto bytes = [encoding](const QString &text) {
            QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
            return QByteArray(encoder(text));
        };
        const QString file = folder.write(u"wide.ini"_s, bytes(u"[Settings]\r\nUserName=Jürgen\r\n"_s));
        EXPECT_EQ(u"Jürgen"_s, GetPrivateProfileString(u"Settings"_s, u"UserName"_s, {}, file));
        ASSERT_TRUE(WritePrivateProfileString(u"Settings"_s, u"Tips"_s, u"ё"_s, file));
        EXPECT_EQ(bytes(u"[Settings]\r\nUserName=Jürgen\r\nTips=ё\r\n"_s), folder.read(u"wide.ini"_s));
        QFile::remove(file);
    }
}

TEST(Profile, RefusesNamesThatNoFileCanHold)
{
    const test::TestFolder folder;
    const QString file = folder.write(u"a.ini"_s, "[S]\nA=1\n");
    test::forEachRow("profile", "refused", [&file](const test::Row &row) {
        EXPECT_FALSE(WritePrivateProfileString(row["section"], row["key"], u"x"_s, file));
    });
    EXPECT_EQ("[S]\nA=1\n", folder.read(u"a.ini"_s));
}

TEST(Profile, FailedWriteLeavesTheOldFile)
{
    const test::TestFolder folder;
    const QByteArray before = "[S]\nA=1\n";
    const QString file = folder.write(u"a.ini"_s, before);
    {
        const test::FullDisk full(4);
        EXPECT_FALSE(WritePrivateProfileString(u"S"_s, u"A"_s, u"a longer value"_s, file));
    }
    EXPECT_EQ(before, folder.read(u"a.ini"_s));
    EXPECT_EQ(u"1"_s, GetPrivateProfileString(u"S"_s, u"A"_s, {}, file));
    EXPECT_EQ(QStringList{u"a.ini"_s}, QDir(folder.path()).entryList(QDir::Files | QDir::Hidden));

    EXPECT_FALSE(WritePrivateProfileString(u"S"_s, u"A"_s, u"2"_s, folder.path(u"no/such/folder.ini"_s)));
    EXPECT_FALSE(WritePrivateProfileString(u"S"_s, u"A"_s, u"2"_s, file + u"/below.ini"_s));
}

TEST(Profile, SeesWhatOthersWrote)
{
    const test::TestFolder folder;
    const QString file = folder.write(u"a.ini"_s, "[S]\nA=1\n");
    EXPECT_EQ(u"1"_s, GetPrivateProfileString(u"S"_s, u"A"_s, {}, file));
    folder.write(u"a.ini"_s, "[S]\nA=2\n");                 // same size, same moment
    EXPECT_EQ(u"2"_s, GetPrivateProfileString(u"S"_s, u"A"_s, {}, file));
    ASSERT_TRUE(WritePrivateProfileString(u"S"_s, u"B"_s, u"x"_s, file));
    EXPECT_EQ("[S]\nA=2\nB=x\n", folder.read(u"a.ini"_s));
    QFile::remove(file);
    EXPECT_EQ(u"none"_s, GetPrivateProfileString(u"S"_s, u"A"_s, u"none"_s, file));
}

TEST(Profile, UnchangedValueIsNotWrittenAgain)
{
    const test::TestFolder folder;
    const QString file = folder.path(u"a.ini"_s);
    const auto inode = [&] {
        struct stat s {};
        ::stat(QFile::encodeName(file).constData(), &s);
        return s.st_ino;
    };
    ASSERT_TRUE(WritePrivateProfileString(u"S"_s, u"A"_s, u"1"_s, file));
    const auto first = inode();
    EXPECT_TRUE(WritePrivateProfileString(u"S"_s, u"A"_s, u"1"_s, file));
    EXPECT_EQ(first, inode());
}

TEST(Profile, BatchReplacesTheFileOnce)
{
    const test::TestFolder folder;
    const QString file = folder.write(u"a.ini"_s, "[S]\nA=1\n");
    {
        const desktop::ProfileBatch outer;
        {
            const desktop::ProfileBatch inner;
            EXPECT_TRUE(WritePrivateProfileString(u"S"_s, u"A"_s, u"2"_s, file));
        }
        EXPECT_TRUE(WritePrivateProfileString(u"T"_s, u"B"_s, u"3"_s, file));
        EXPECT_EQ(u"2"_s, GetPrivateProfileString(u"S"_s, u"A"_s, {}, file));
        EXPECT_EQ("[S]\nA=1\n", folder.read(u"a.ini"_s));
    }
    EXPECT_EQ("[S]\nA=2\n[T]\nB=3\n", folder.read(u"a.ini"_s));
}
