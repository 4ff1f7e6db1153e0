#include "daotest.h"

#include <QDir>

// A journal beside a file: its own of a broken-off write, or one that some other file left there.
namespace vorel::dao::test {

class SideFiles : public DaoTest {
protected:
    struct Broken {
        QByteArray before, content, journal;
    };
    // A file of `rows` rows in `writes` writes, and its state in the middle of one more.
    Broken brokenOff(const QString &password, int rows, int writes)
    {
        Database file = create(u"MADE.MDB"_s, password);
        file.AppendTable(sample());
        QStringList names;
        for (int i = 0; i < rows; ++i)
            names.append(u"row %1"_s.arg(i));
        addRows(file, names);
        for (int i = 1; i < writes; ++i)
            file.Execute(u"UPDATE SAMPLE SET LARGE=%1 WHERE ID=1"_s.arg(i));
        Broken broken;
        broken.before = contentOf(path(u"MADE.MDB"_s));
        {
            Transaction all(file);      // more than the cache holds, so that a part of it goes into the file
            file.Execute(u"UPDATE SAMPLE SET NAME='other', NOTE='%1'"_s.arg(QString(8000, u'x')));
            broken.content = contentOf(path(u"MADE.MDB"_s));
            broken.journal = contentOf(path(u"MADE.MDB-journal"_s));
        }
        file.Close();
        DBEngine::Forget(path(u"MADE.MDB"_s));
        QFile::remove(path(u"MADE.MDB"_s));
        return broken;
    }
    int rowsNamed(const QString &password)
    {
        Database file = DBEngine::OpenDatabase(path(), false, false, password);
        return static_cast<int>(file.OpenRecordset(u"SELECT ID FROM SAMPLE WHERE NAME LIKE 'row *'"_s).rowTotal());
    }
    void place(const QByteArray &content, const QByteArray &journal)
    {
        DBEngine::Forget(path());
        for (const QString &name : QDir(folder()).entryList(QDir::Files))
            QFile::remove(path(name));
        write(path(), content);
        write(path() + u"-journal"_s, journal);
    }
};

TEST_F(SideFiles, AJournalServesItsOwnFileAlone)
{
    for (const QString &password : { QString(), protectedConnect }) {
        SCOPED_TRACE(password.toStdString());
        const Broken mine = brokenOff(password, 900, 3);
        const Broken older = brokenOff(password, 700, 2);
        ASSERT_NE(mine.before, mine.content);
        ASSERT_GT(mine.journal.size(), 10'000);
        for (const bool repairing : { false, true }) {
            const auto repair = [&] {
                if (repairing)
                    DBEngine::RepairDatabase(path(), password);
            };
            place(mine.content, mine.journal);
            repair();
            EXPECT_EQ(rowsNamed(password), 900);
            EXPECT_FALSE(QFile::exists(path() + u".damaged"_s));
            // Copies of other files, under a journal that stayed.
            for (const Broken &other : { older, brokenOff(password, 1200, 9) }) {
                place(other.before, mine.journal);
                repair();
                EXPECT_EQ(rowsNamed(password), other.before == older.before ? 700 : 1200);
                EXPECT_EQ(contentOf(path()), other.before);
                EXPECT_EQ(contentOf(path() + u"-journal.damaged"_s), mine.journal);
            }
        }
    }
}

TEST_F(SideFiles, OtherThingsBesideAFile)
{
    const Broken made = brokenOff({}, 900, 3);
    for (const QByteArray &journal : { QByteArray(), QByteArray(5000, 'x'), QByteArray(5000, '\0'), made.journal.left(600) }) {
        place(made.before, journal);
        DBEngine::RepairDatabase(path());
        EXPECT_EQ(rowsNamed({}), 900);
        EXPECT_EQ(contentOf(path()), made.before);
    }
    // A log of a mode that these files are never in.
    place(made.before, {});
    write(path() + u"-wal"_s, QByteArray("\x37\x7f\x06\x82", 4) + QByteArray(9000, 'x'));
    EXPECT_EQ(rowsNamed({}), 900);
    EXPECT_TRUE(QFile::exists(path() + u"-wal.damaged"_s));
    EXPECT_EQ(contentOf(path()), made.before);
}

}
