#include "daotest.h"

#include <QFileInfo>
#include <QProcess>
#include <functional>

namespace vorel::dao::test {

class Files : public DaoTest {
protected:
    // A plain file of many pages.
    QByteArray filled(const QString &name = u"DATA.MDB"_s, const QString &more = {})
    {
        Database file = create(name, more);
        file.AppendTable(sample());
        QStringList rows;
        for (int i = 0; i < 2000; ++i)
            rows.append(u"row %1"_s.arg(i));
        addRows(file, rows);
        file.Close();
        DBEngine::Forget(path(name));
        return contentOf(path(name));
    }
};

TEST_F(Files, OpeningTellsWhatIsWrongAndChangesNothing)
{
    const QByteArray good = filled();
    const QByteArray locked = filled(u"LOCKED.MDB"_s, protectedConnect);
    QByteArray brokenSchema = good;
    brokenSchema.replace(100, 8, QByteArray(8, '\xff'));
    struct Case {
        const char *what;
        QByteArray content;
        QString connect;
        std::vector<int> errors;    // any of them
    };
    const std::vector<Case> cases = {
        { "empty", {}, {}, { 3343 } },
        { "empty, with a password", {}, protectedConnect, { 3343 } },
        { "words", "Dear diary, this is no database at all.", {}, { 3343 } },
        { "words, with a password", "Dear diary, this is no database at all.", protectedConnect, { 3343 } },
        { "noise", QByteArray(8192, '\x5a'), {}, { 3343 } },
        { "cut in the first page", good.left(1000), {}, { 3049 } },
        { "cut between pages", good.left(4096 * 3), {}, { 3049 } },
        { "cut within the last page", good.left(good.size() - 17), {}, { 3049 } },
        { "broken schema", brokenSchema, {}, { 3049 } },
        { "protected, no password", locked, {}, { 3343 } },
        { "protected, wrong password", locked, u";pwd=OTHER"_s, { 3031 } },
        { "protected, cut within a page", locked.left(locked.size() - 17), protectedConnect, { 3343, 3049 } },
        { "protected, cut between pages", locked.left(1024 * 5), protectedConnect, { 3049 } },
    };
    for (const Case &one : cases) {
        SCOPED_TRACE(one.what);
        const QString file = path(u"BAD.MDB"_s);
        write(file, one.content);
        const auto expected = [&](int number) {
            return std::find(one.errors.begin(), one.errors.end(), number) != one.errors.end();
        };
        const int opening = errorOf([&] { DBEngine::OpenDatabase(file, false, false, one.connect); });
        EXPECT_TRUE(expected(opening)) << opening;
        EXPECT_EQ(contentOf(file), one.content);
        EXPECT_EQ(QDir(folder()).entryList({ u"BAD*"_s }, QDir::Files), QStringList { u"BAD.MDB"_s });
        QFile::remove(file);
    }
}

TEST_F(Files, PlacesThatHoldNoFile)
{
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path(u"NONE.MDB"_s)); }), 3024);
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path(u"none/NONE.MDB"_s)); }), 3044);
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(folder()); }), 3051);
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase({}); }), 3044);
    EXPECT_EQ(errorOf([&] { DBEngine::CreateDatabase(path(u"none/NEW.MDB"_s), plainLocale); }), 3044);
    create().Close();
    EXPECT_EQ(errorOf([&] { create(); }), 3204);
    EXPECT_EQ(DBEngine::OpenDatabase(path(u"data.mdb"_s)).Name(), path());      // whatever the case
    EXPECT_EQ(errorOf([&] { DBEngine::CompactDatabase(path(), path()); }), 3204);
    EXPECT_EQ(errorOf([&] { DBEngine::RepairDatabase(path(u"NONE.MDB"_s)); }), 3024);
    Database none;
    EXPECT_EQ(errorOf([&] { none.Execute(u"x"_s); }), 3420);
}

TEST_F(Files, AFileWithoutPermission)
{
    filled();
    setMode(folder(), 0755);
    setMode(path(), 0444);
    {
        const SteppedDown user;
        Database file = DBEngine::OpenDatabase(path());
        Recordset rows = file.OpenRecordset(u"SAMPLE"_s);
        EXPECT_EQ(rows.Get(u"NAME"), Value(u"row 0"_s));
        EXPECT_FALSE(rows.Updatable());
        EXPECT_EQ(errorOf([&] { rows.Edit(); }), 3027);
        EXPECT_EQ(errorOf([&] { file.Execute(u"DELETE FROM SAMPLE"_s); }), 3027);
        EXPECT_EQ(errorOf([&] { file.DeleteTable(u"SAMPLE"); }), 3027);
    }
    DBEngine::Forget(path());
    setMode(path(), 0);
    const SteppedDown user;
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path()); }), 3051);
}

TEST_F(Files, AReadOnlyHandleBesideAWritingOne)
{
    filled();
    Database writing = DBEngine::OpenDatabase(path());
    Database reading = DBEngine::OpenDatabase(path(), false, true);
    EXPECT_EQ(errorOf([&] { reading.Execute(u"DELETE FROM SAMPLE"_s); }), 3027);
    Recordset rows = reading.OpenRecordset(u"SAMPLE"_s);
    EXPECT_EQ(errorOf([&] { rows.AddNew(); }), 3027);
    writing.Execute(u"UPDATE SAMPLE SET NAME='seen' WHERE ID=1"_s);
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"seen"_s));
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path(), true); }), 3045);
    writing.Close();
    EXPECT_EQ(errorOf([&] { writing.Close(); }), 3420);
    reading.Close();
    EXPECT_EQ(errorOf([&] { rows.Get(u"NAME"); }), 3420);
    Database exclusive = DBEngine::OpenDatabase(path(), true);
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path()); }), 3356);
    exclusive.Execute(u"UPDATE SAMPLE SET NAME='again' WHERE ID=1"_s);
    exclusive.Close();
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files), QStringList { u"DATA.MDB"_s });
    DBEngine::OpenDatabase(path()).Close();
}

TEST_F(Files, AProtectedFileIsReallyEncrypted)
{
    const QByteArray locked = filled(u"LOCKED.MDB"_s, protectedConnect);
    const QByteArray plain = filled();
    ASSERT_TRUE(plain.contains("row 1999") && plain.contains("CREATE TABLE"));
    for (const QByteArray &word : { QByteArray("row 1999"), QByteArray("CREATE TABLE"), QByteArray("SQLite format"), QByteArray("SECRETWORD") })
        EXPECT_FALSE(locked.contains(word)) << word.constData();
    {
        Database file = DBEngine::OpenDatabase(path(u"LOCKED.MDB"_s), true, false, protectedConnect);
        EXPECT_EQ(file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 2000);
    }
    // Kept between its uses, it still asks for the password.
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path(u"LOCKED.MDB"_s)); }), 3031);
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path(u"LOCKED.MDB"_s), false, false, u";pwd=secretword"_s); }), 3031);
    EXPECT_EQ(passwordOf(u";LANGID=0x0409;CP=1252;COUNTRY=0;PWD=a=b"_s), u"a=b");
    EXPECT_EQ(passwordOf(u"Access"_s), QString());
    // A file without a password takes any.
    EXPECT_EQ(errorOf([&] { DBEngine::OpenDatabase(path(), false, false, protectedConnect); }), 0);
}

TEST_F(Files, AReplacedFileIsNoticed)
{
    for (const QString &password : { QString(), protectedConnect }) {
        SCOPED_TRACE(password.toStdString());
        filled(u"A.MDB"_s, password);
        Database other = create(u"B.MDB"_s, password);
        other.AppendTable(sample(u"OTHER"_s));
        other.Close();
        const auto open = [&] { return DBEngine::OpenDatabase(path(u"A.MDB"_s), false, false, password); };
        const QByteArray before = contentOf(path(u"A.MDB"_s));
        open().OpenRecordset(u"SAMPLE"_s).Close();
        QFile::remove(path(u"A.MDB"_s));
        EXPECT_EQ(errorOf(open), 3024);
        ASSERT_TRUE(QFile::copy(path(u"B.MDB"_s), path(u"A.MDB"_s)));
        EXPECT_FALSE(open().hasTable(u"SAMPLE"));
        write(path(u"A.MDB"_s), before);        // written over in place
        EXPECT_TRUE(open().hasTable(u"SAMPLE"));
        EXPECT_EQ(open().OpenRecordset(u"SAMPLE"_s).rowTotal(), 2000);
        // Under an open handle, which goes on with the file that it has.
        Database held = open();
        ASSERT_EQ(::rename(path(u"B.MDB"_s).toLocal8Bit().constData(), path(u"A.MDB"_s).toLocal8Bit().constData()), 0);
        EXPECT_TRUE(open().hasTable(u"OTHER"));
        EXPECT_EQ(held.OpenRecordset(u"SAMPLE"_s).rowTotal(), 2000);
        held.Close();
        DBEngine::Forget(path(u"A.MDB"_s));
        QFile::remove(path(u"A.MDB"_s));
    }
}

TEST_F(Files, CompactionKeepsEverythingInFewerBytes)
{
    for (const QString &password : { QString(), protectedConnect }) {
        SCOPED_TRACE(password.toStdString());
        filled(u"A.MDB"_s, password);
        Database file = DBEngine::OpenDatabase(path(u"A.MDB"_s), false, false, password);
        file.AppendTable(subjects());
        file.Execute(u"INSERT INTO SUBJECTS (SUBJECT) VALUES ('One')"_s);
        file.Execute(u"DELETE FROM SAMPLE WHERE LARGE > 300"_s);
        file.Close();
        DBEngine::CompactDatabase(path(u"A.MDB"_s), path(u"B.MDB"_s), plainLocale + password);
        EXPECT_LT(QFileInfo(path(u"B.MDB"_s)).size(), QFileInfo(path(u"A.MDB"_s)).size() / 2);
        EXPECT_EQ(contentOf(path(u"B.MDB"_s)).contains("row 299"), password.isEmpty());
        Database compacted = DBEngine::OpenDatabase(path(u"B.MDB"_s), false, false, password);
        EXPECT_EQ(compacted.TableDefs().size(), 2u);
        EXPECT_EQ(compacted.TableDefByName(u"SUBJECTS").Indexes, subjects().Indexes);
        EXPECT_EQ(compacted.TableDefByName(u"SAMPLE").Fields, sample().Fields);
        Recordset rows = compacted.OpenRecordset(u"SAMPLE"_s);
        EXPECT_EQ(rows.rowTotal(), 300);
        rows.AddNew();
        EXPECT_EQ(rows.Get(u"ID"), Value(301));     // the numbers of deleted rows are given again
        rows.Close();
        compacted.Close();
        // The password of a file that was open before in this run need not be given again.
        DBEngine::RepairDatabase(path(u"B.MDB"_s));
        DBEngine::CompactDatabase(path(u"B.MDB"_s), path(u"C.MDB"_s), plainLocale);
        EXPECT_EQ(contentOf(path(u"C.MDB"_s)).startsWith("SQLite"), password.isEmpty());
        EXPECT_EQ(DBEngine::OpenDatabase(path(u"C.MDB"_s), false, false, password).TableDefs().size(), 2u);
        ASSERT_TRUE(QFile::remove(path(u"C.MDB"_s)));
        EXPECT_EQ(QDir(folder()).entryList(QDir::Files), (QStringList { u"A.MDB"_s, u"B.MDB"_s }));
        QFile::remove(path(u"A.MDB"_s));
        QFile::remove(path(u"B.MDB"_s));
    }
}

}
