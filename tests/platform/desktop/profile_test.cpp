#include "platform/desktop/profile.h"
#include "support/fulldisk.h"
#include "support/testfolder.h"

#include <QStringConverter>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace vorel;
using desktop::GetPrivateProfileString;
using desktop::WritePrivateProfileString;

namespace {

struct Reading {
    const char *name;
    QByteArray content;
    const char *section;
    const char *key;
    QString expected;           // with the default "none"
};

const std::vector<Reading> readings {
    {"plain", "[Settings]\nUserName=Ann\n", "Settings", "UserName", u"Ann"_s},
    {"no file content", "", "Settings", "UserName", u"none"_s},
    {"case of both names", "[SETTINGS]\nusername=Ann\n", "settings", "USERNAME", u"Ann"_s},
    {"blanks around all", "  [ Settings ]  \n \tUserName \t=  Ann Lee \t\n", "Settings", "UserName", u"Ann Lee"_s},
    {"empty value is not the default", "[S]\nK=\n", "S", "K", u""_s},
    {"double quotes off, once", "[S]\nK=\"\"Ann\"\"\n", "S", "K", u"\"Ann\""_s},
    {"single quotes off, blanks inside stay", "[S]\nK=' Ann '\n", "S", "K", u" Ann "_s},
    {"unpaired quote stays", "[S]\nK=\"Ann'\n", "S", "K", u"\"Ann'"_s},
    {"a quote alone", "[S]\nK=\"\n", "S", "K", u"\""_s},
    {"equals signs in the value", "[S]\nK=a=b==c\n", "S", "K", u"a=b==c"_s},
    {"first key of a section wins", "[S]\nK=1\nK=2\n", "S", "K", u"1"_s},
    {"first of two sections wins", "[S]\nK=1\n[T]\nK=9\n[S]\nK=2\n", "S", "K", u"1"_s},
    {"a section may go on later", "[S]\nA=1\n[T]\n[S]\nK=2\n", "S", "K", u"2"_s},
    {"key of another section", "[T]\nK=1\n[S]\n", "S", "K", u"none"_s},
    {"before any section line", "K=1\n[T]\n", "", "K", u"none"_s},
    {"comment", "[S]\n;K=1\n; K=2\n", "S", "K", u"none"_s},
    {"line without a sign", "[S]\nK\nnonsense\n=3\n", "S", "K", u"none"_s},
    {"unclosed section line", "[S]\n[Broken\nK=1\n", "S", "K", u"1"_s},
    {"CR LF", "[S]\r\nA=1\r\nK=2\r\n", "S", "K", u"2"_s},
    {"CR alone", "[S]\rA=1\rK=2\r", "S", "K", u"2"_s},
    {"mixed ends, none at the last", "[S]\r\nA=1\nB=2\rK=3", "S", "K", u"3"_s},
    {"byte-order mark", "\xEF\xBB\xBF[S]\nK=1\n", "S", "K", u"1"_s},
    {"UTF-8", "[S]\nK=Zo\xC3\xAB \xE2\x82\xAC\n", "S", "K", u"Zoë €"_s},
    {"one-byte code page", "[S]\nK=Zo\xEB\n", "S", "K", u"Zoë"_s},
    {"NUL bytes end a value", QByteArray("[S]\nK=ab\0cd\nL=2\n", 16), "S", "K", u"ab"_s},
    {"NUL bytes harm no neighbour", QByteArray("\0\0\n[S]\n\0=\0\nL=2\n", 15), "S", "L", u"2"_s},
};

}

TEST(Profile, ReadsAroundDamage)
{
    const test::TestFolder folder;
    int number = 0;
    for (const Reading &r : readings) {
        const QString file = folder.write(u"%1.ini"_s.arg(number++), r.content);
        EXPECT_EQ(r.expected, GetPrivateProfileString(QString::fromLatin1(r.section), QString::fromLatin1(r.key), u"none"_s, file))
            << r.name;
    }
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
    struct Case { const char *name; QByteArray before; const char *section; const char *key; const char *value; QByteArray after; };
    const std::vector<Case> cases {
        {"new file", "", "Settings", "A", "1", "[Settings]\nA=1\n"},
        {"replaced in place", "[S]\nA=1\n; note\nB=2\n", "S", "a", "7", "[S]\nA=7\n; note\nB=2\n"},
        {"added to its section", "[S]\nA=1\n\n[T]\nB=2\n", "S", "C", "3", "[S]\nA=1\nC=3\n\n[T]\nB=2\n"},
        {"added below a bare section", "[S]\n[T]\n", "S", "C", "3", "[S]\nC=3\n[T]\n"},
        {"new section at the end", "[S]\nA=1", "T", "B", "2", "[S]\nA=1\n[T]\nB=2\n"},
        {"keeps CR LF", "[S]\r\nA=1\r\n", "S", "B", "2", "[S]\r\nA=1\r\nB=2\r\n"},
        {"keeps CR", "[S]\rA=1\r", "S", "B", "2", "[S]\rA=1\rB=2\r"},
        {"no end at the last line", "[S]\r\nA=1", "S", "B", "2", "[S]\r\nA=1\r\nB=2\r\n"},
        {"unknown lines and mark stay", "\xEF\xBB\xBFjunk\n[S]\n???\nA=1\n", "S", "A", "2", "\xEF\xBB\xBFjunk\n[S]\n???\nA=2\n"},
        {"only the first of two", "[S]\nA=1\nA=2\n", "S", "A", "3", "[S]\nA=3\nA=2\n"},
        {"the key's own spelling stays", "[S]\n  My Key = x\n", "s", "my key", "y", "[S]\n  My Key =y\n"},
        {"ends of lines would break the file", "[S]\n", "S", "A", "x\r\n[T]\nB=1", "[S]\nA=x  [T] B=1\n"},
    };
    const test::TestFolder folder;
    int number = 0;
    for (const Case &c : cases) {
        const QString name = u"%1.ini"_s.arg(number++);
        const QString file = c.before.isEmpty() ? folder.path(name) : folder.write(name, c.before);
        EXPECT_TRUE(WritePrivateProfileString(QString::fromLatin1(c.section), QString::fromLatin1(c.key),
                                              QString::fromLatin1(c.value), file)) << c.name;
        EXPECT_EQ(c.after, folder.read(name)) << c.name;
    }
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
    const std::vector<std::pair<QString, QString>> names {
        {u""_s, u"A"_s}, {u"S"_s, u" "_s}, {u"S"_s, u"a=b"_s}, {u"S"_s, u"[x"_s}, {u"S"_s, u";x"_s}, {u"a]b"_s, u"A"_s},
        {u"S"_s, u"a\nb"_s}, {u"a\nb"_s, u"A"_s},
    };
    for (const auto &[section, key] : names)
        EXPECT_FALSE(WritePrivateProfileString(section, key, u"x"_s, file)) << section.toStdString() << '/' << key.toStdString();
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
