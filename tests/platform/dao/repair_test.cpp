#include "daotest.h"
#include "platform/dao/connection.h"
#include "platform/dao/pages.h"
#include "support/fulldisk.h"

#include <QDir>
#include <QFileInfo>
#include <functional>
#include <random>
#include <set>

namespace vorel::dao::test {

namespace {

constexpr int sampleRows = 2000;
constexpr int subjectRows = 600;
constexpr qsizetype page = 4096;
QString nameOf(int row) { return u"row-%1-end"_s.arg(row, 4, 10, QChar(u'0')); }
QString subjectOf(int row) { return u"sub-%1-end"_s.arg(row, 4, 10, QChar(u'0')); }

}

class Repair : public DaoTest {
protected:
    // Rows that can be found again in the bytes of a plain file; every fiftieth has a picture of many pages.
    QByteArray filled(const QString &password = {}, int rows = sampleRows)
    {
        Database file = create(u"DATA.MDB"_s, password);
        file.AppendTable(sample());
        file.AppendTable(subjects());
        Transaction all(file);
        Recordset samples = file.OpenRecordset(u"SAMPLE"_s);
        for (int i = 0; i < rows; ++i) {
            samples.AddNew();
            samples.Set(u"NAME", nameOf(i));
            samples.Set(u"LARGE", i);
            samples.Set(u"PRICE", 1.5);
            if (i % 50 == 0)
                samples.Set(u"PICTURE", QByteArray(9000, static_cast<char>(i % 7 + 1)));
            samples.Update();
        }
        samples.Close();
        Recordset words = file.OpenRecordset(u"SUBJECTS"_s);
        for (int i = 0; i < std::min(rows, subjectRows); ++i)
            add(words, { { u"SUBJECT", subjectOf(i) } });
        words.Close();
        all.Commit();
        file.Close();
        DBEngine::Forget(path());
        return contentOf(path());
    }
    void damage(const QByteArray &content)
    {
        DBEngine::Forget(path());
        for (const QString &name : QDir(folder()).entryList({ u"DATA.MDB*"_s }, QDir::Files))
            QFile::remove(path(name));
        write(path(), content);
    }
    static std::set<std::string> column(Database &file, const QString &sql)
    {
        std::set<std::string> found;
        for (Recordset rows = file.OpenRecordset(sql, dbOpenSnapshot); !rows.EOF_(); rows.MoveNext())
            found.insert(rows.Get(0).text().toStdString());
        return found;
    }
    QStringList standing() const { return QDir(folder()).entryList(QDir::Files); }
};

// What to do with the pages of a file.
using Pages = std::function<void(QByteArray &)>;

static void swapPages(QByteArray &content, qsizetype a, qsizetype b)
{
    const QByteArray first = content.mid((a - 1) * page, page);
    content.replace((a - 1) * page, page, content.mid((b - 1) * page, page));
    content.replace((b - 1) * page, page, first);
}
static qsizetype pageWith(const QByteArray &content, const QString &word)
{
    return content.indexOf(word.toLatin1()) / page + 1;
}
// The pages that hold rows, one after the other, not those of indexes, which repeat the texts.
static QByteArray leavesOf(const QByteArray &content)
{
    QByteArray leaves;
    for (qsizetype at = 0; at + page <= content.size(); at += page) {
        if (content[at] == 13)
            leaves += content.mid(at, page);
    }
    return leaves;
}
static void zero(QByteArray &content, qsizetype number) { content.replace((number - 1) * page, page, QByteArray(page, '\0')); }

struct PlainCase { const char *what; Pages damage; bool allRows; };

static std::vector<PlainCase> cases()
{
    const auto overwrite = [](qsizetype at, const QByteArray &bytes) {
        return [=](QByteArray &content) { content.replace(at, bytes.size(), bytes); };
    };
    return {
        { "header zeroed", overwrite(0, QByteArray(100, '\0')), true },
        { "header of another program", overwrite(0, QByteArray("PK\3\4 some archive")), true },
        { "page size that is none", overwrite(16, QByteArray("\x0f\xff", 2)), true },
        { "another page size", overwrite(16, QByteArray("\x20\0", 2)), true },
        { "unknown versions", overwrite(18, QByteArray("\x09\x09", 2)), true },
        { "bytes kept from every page", overwrite(20, QByteArray("\x30", 1)), true },
        { "number of pages", overwrite(28, QByteArray("\0\0\0\3", 4)), true },
        { "list of free pages", overwrite(32, QByteArray("\0\0\0\3\0\0\0\2", 8)), true },
        { "text encoding", overwrite(56, QByteArray("\0\0\0\3", 4)), true },
        { "leaf zeroed", [](QByteArray &c) { zero(c, pageWith(c, nameOf(1000))); }, false },
        { "leaves zeroed", [](QByteArray &c) { for (int i = 0; i < 2000; i += 300) zero(c, pageWith(c, nameOf(i))); }, false },
        { "both roots zeroed", [](QByteArray &c) { zero(c, 2); zero(c, 4); }, true },
        { "leaf of noise", [](QByteArray &c) { c.replace((pageWith(c, nameOf(1000)) - 1) * page, page, QByteArray(page, '\x0d')); }, false },
        { "neighbours swapped", [](QByteArray &c) { swapPages(c, pageWith(c, nameOf(700)), pageWith(c, nameOf(1500))); }, true },
        { "tables swapped", [](QByteArray &c) { swapPages(c, pageWith(c, nameOf(700)), pageWith(c, subjectOf(400))); }, true },
        { "cut at half", [](QByteArray &c) { c.truncate(c.size() / page / 2 * page); }, false },
        { "cut within a page", [](QByteArray &c) { c.truncate(pageWith(c, nameOf(1200)) * page - 5000); }, false },
        { "bytes added", [](QByteArray &c) { c.append(QByteArray(1234, 'x')); }, true },
        { "zeros in place of every second page from the tenth", [](QByteArray &c) {
              for (qsizetype i = 10; i < c.size() / page; i += 2)
                  zero(c, i);
          }, false },
    };
}

TEST_F(Repair, EveryRowOnASoundPageIsSaved)
{
    const QByteArray good = filled();
    const qsizetype pages = good.size() / page;
    ASSERT_GT(pages, 100);
    for (const PlainCase &one : cases()) {
        SCOPED_TRACE(one.what);
        QByteArray content = good;
        one.damage(content);
        ASSERT_NE(content, good);
        const QByteArray whole = leavesOf(content);
        const auto standingIn = [&whole](int count, QString (*text)(int)) {
            std::set<std::string> found;
            for (int i = 0; i < count; ++i) {
                if (whole.contains(text(i).toLatin1()))
                    found.insert(text(i).toStdString());
            }
            return found;
        };
        const std::set<std::string> names = standingIn(sampleRows, nameOf), words = standingIn(subjectRows, subjectOf);
        EXPECT_EQ(names.size() + words.size() == sampleRows + subjectRows, one.allRows);
        damage(content);
        DBEngine::RepairDatabase(path());
        ASSERT_EQ(standing(), (QStringList { u"DATA.MDB"_s, u"DATA.MDB.damaged"_s }));
        EXPECT_EQ(contentOf(path() + u".damaged"_s), content);
        Database file = DBEngine::OpenDatabase(path());
        ASSERT_TRUE(file.hasTable(u"SAMPLE") && file.hasTable(u"SUBJECTS"));
        EXPECT_EQ(file.TableDefByName(u"SAMPLE").Fields, sample().Fields);
        EXPECT_EQ(file.TableDefByName(u"SUBJECTS").Indexes, subjects().Indexes);
        EXPECT_EQ(column(file, u"SELECT NAME FROM SAMPLE"_s), names);
        EXPECT_EQ(column(file, u"SELECT SUBJECT FROM SUBJECTS"_s), words);
        // The number of a row stays, and so do its other values.
        EXPECT_EQ(file.OpenRecordset(u"SELECT ID FROM SAMPLE WHERE LARGE+1<>ID OR PRICE<>1.5"_s).rowTotal(), 0);
        file.Execute(u"INSERT INTO SAMPLE (NAME) VALUES ('new')"_s);
        file.Close();
        const QByteArray mended = contentOf(path());
        DBEngine::RepairDatabase(path());
        EXPECT_EQ(contentOf(path()), mended);
    }
}

TEST_F(Repair, DeletedRowsDoNotComeBack)
{
    filled();
    Database file = DBEngine::OpenDatabase(path());
    file.Execute(u"DELETE FROM SAMPLE WHERE LARGE BETWEEN 500 AND 1499"_s);
    file.Close();
    QByteArray content = contentOf(path());
    zero(content, pageWith(content, nameOf(1900)));
    damage(content);
    DBEngine::RepairDatabase(path());
    file = DBEngine::OpenDatabase(path());
    EXPECT_EQ(file.OpenRecordset(u"SELECT ID FROM SAMPLE WHERE LARGE BETWEEN 500 AND 1499"_s).rowTotal(), 0);
    EXPECT_GT(file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 900);
}

// Designs that fill more than the first page are still known without it.
TEST_F(Repair, AFileOfManyTablesWithoutItsFirstPage)
{
    Database file = create();
    for (int i = 0; i < 12; ++i)
        file.AppendTable(sample(u"TABLE%1"_s.arg(i)));
    for (int i = 0; i < 12; ++i)
        file.Execute(u"INSERT INTO TABLE%1 (NAME) VALUES ('row of %1')"_s.arg(i));
    file.Close();
    QByteArray content = contentOf(path());
    zero(content, 1);
    damage(content);
    DBEngine::RepairDatabase(path());
    file = DBEngine::OpenDatabase(path());
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(file.OpenRecordset(u"SELECT NAME FROM TABLE%1"_s.arg(i)).Get(0), Value(u"row of %1"_s.arg(i)));
}

TEST_F(Repair, WhatHoldsNoDesignGoesAway)
{
    const QByteArray good = filled();
    QByteArray noSchema = good;
    noSchema.replace(0, page, QByteArray(page, '\0'));
    QByteArray ownPage = good.left(page);
    ownPage.replace(0, 200, QByteArray(200, '\xff'));
    for (const QByteArray &content : { QByteArray(), QByteArray("Dear diary, this is no database."), QByteArray(8192, '\x5a'), noSchema,
                                       ownPage, good.left(100), good.left(17) }) {
        SCOPED_TRACE(content.left(20).toStdString());
        damage(content);
        write(path() + u".damaged"_s, "older");
        DBEngine::RepairDatabase(path());
        EXPECT_EQ(standing(), (QStringList { u"DATA.MDB.damaged"_s, u"DATA.MDB.damaged2"_s }));
        EXPECT_EQ(contentOf(path() + u".damaged"_s), "older");
        EXPECT_EQ(contentOf(path() + u".damaged2"_s), content);
    }
    EXPECT_EQ(errorOf([&] { DBEngine::RepairDatabase(path()); }), 3024);
}

TEST_F(Repair, AProtectedFile)
{
    const QByteArray good = filled(protectedConnect);
    constexpr qsizetype locked = 1024;
    DBEngine::RepairDatabase(path(), protectedConnect);
    EXPECT_EQ(contentOf(path()), good);
    struct Case { const char *what; Pages damage; size_t fewest; };
    const qsizetype middle = good.size() / locked / 3;
    const std::vector<Case> cases = {
        { "a page zeroed", [=](QByteArray &c) { c.replace(middle * locked, locked, QByteArray(locked, '\0')); }, 1900 },
        { "a page changed", [=](QByteArray &c) { c[middle * locked + 7] = static_cast<char>(c[middle * locked + 7] ^ 1); }, 1900 },
        { "cut", [=](QByteArray &c) { c.truncate(c.size() / 2 + 17); }, 700 },
        { "first page", [](QByteArray &c) { c[300] = static_cast<char>(c[300] ^ 1); }, 0 },
        { "first page zeroed", [](QByteArray &c) { c.replace(0, 1000, QByteArray(1000, '\0')); }, 0 },
    };
    for (const Case &one : cases) {
        SCOPED_TRACE(one.what);
        QByteArray content = good;
        one.damage(content);
        damage(content);
        EXPECT_EQ(errorOf([&] { DBEngine::RepairDatabase(path(), u";pwd=OTHER"_s); }), one.what == "first page zeroed"_ba ? 0 : 3031);
        if (QFile::exists(path())) {
            EXPECT_EQ(contentOf(path()), content);
            DBEngine::RepairDatabase(path(), protectedConnect);
        }
        EXPECT_EQ(contentOf(path() + u".damaged"_s), content);
        EXPECT_EQ(QFile::exists(path()), one.fewest > 0);
        if (one.fewest == 0)
            continue;
        EXPECT_FALSE(contentOf(path()).contains("-end"));
        Database file = DBEngine::OpenDatabase(path(), false, false, protectedConnect);
        EXPECT_GE(column(file, u"SELECT NAME FROM SAMPLE"_s).size(), one.fewest);
        EXPECT_EQ(file.OpenRecordset(u"SELECT ID FROM SAMPLE WHERE LARGE+1<>ID"_s).rowTotal(), 0);
    }
}

// Whatever bits turn: the file is sound afterwards, or it is kept beside its place as it was.
TEST_F(Repair, TurnedBitsNeverLoseTheFile)
{
    std::mt19937 chance(20261123);
    for (const bool plain : { true, false }) {
        const QString password = plain ? QString() : protectedConnect;
        const int rounds = plain ? 300 : 12;
        QFile::remove(path());
        const QByteArray good = filled(password, 120);
        size_t saved = 0;
        for (int round = 0; round < rounds; ++round) {
            QByteArray content = good;
            const int turned = 1 << round % 4;
            for (int i = 0; i < turned; ++i) {
                // Every other one in the first pages, where designs and roots are.
                const auto range = static_cast<quint32>(round % 2 ? content.size() : std::min<qsizetype>(content.size(), 5 * page));
                const auto at = static_cast<qsizetype>(chance() % range);
                content[at] = static_cast<char>(content[at] ^ (1 << chance() % 8));
            }
            damage(content);
            const int error = errorOf([&] { DBEngine::RepairDatabase(path(), password); });
            SCOPED_TRACE(round);
            ASSERT_TRUE(error == 0 || (error == 3031 && !password.isEmpty())) << error;
            const bool kept = QFile::exists(path() + u".damaged"_s);
            if (kept || error != 0) {
                ASSERT_EQ(contentOf(kept ? path() + u".damaged"_s : path()), content);
            }
            if (error != 0 || !QFile::exists(path()))
                continue;
            Database file = DBEngine::OpenDatabase(path(), false, false, password);
            for (const TableDef &table : file.TableDefs())
                saved += static_cast<size_t>(file.OpenRecordset(u'[' + table.Name + u']').rowTotal());
            file.Close();
        }
        // Most files give most of their rows.
        EXPECT_GT(saved, static_cast<size_t>(rounds) * 240 / 2);
    }
}

TEST_F(Repair, NoPlaceForTheNewFile)
{
    QByteArray content = filled();
    ASSERT_TRUE(QFile::copy(path(), path(u"SOUND.MDB"_s)));
    const QByteArray good = content;
    zero(content, pageWith(content, nameOf(1000)));
    damage(content);
    {
        const vorel::test::FullDisk full(100 * 1024);
        EXPECT_EQ(errorOf([&] { DBEngine::RepairDatabase(path()); }), 3026);
        EXPECT_EQ(errorOf([&] { DBEngine::CompactDatabase(path(u"SOUND.MDB"_s), path(u"NEW.MDB"_s)); }), 3026);
    }
    EXPECT_EQ(contentOf(path()), content);
    EXPECT_EQ(contentOf(path(u"SOUND.MDB"_s)), good);
    EXPECT_EQ(standing(), (QStringList { u"DATA.MDB"_s, u"SOUND.MDB"_s }));
}

TEST_F(Repair, NoPermission)
{
    QByteArray content = filled();
    const QByteArray good = content;
    zero(content, pageWith(content, nameOf(1000)));
    for (const auto &[fileBits, folderBits] : { std::pair<mode_t, mode_t>(0444, 0777), std::pair<mode_t, mode_t>(0666, 0555) }) {
        for (const bool sound : { true, false }) {
            damage(sound ? good : content);
            setMode(path(), fileBits);
            setMode(folder(), folderBits);
            {
                const SteppedDown user;
                EXPECT_EQ(errorOf([&] { DBEngine::RepairDatabase(path()); }), sound ? 0 : 3051) << fileBits;
                if (sound && folderBits == 0555) {
                    EXPECT_EQ(errorOf([&] { DBEngine::CompactDatabase(path(), path(u"NEW.MDB"_s)); }), 3051);
                }
                DBEngine::Forget(path());
            }
            setMode(folder(), 0777);
            EXPECT_EQ(contentOf(path()), sound ? good : content);
            EXPECT_EQ(standing(), QStringList { u"DATA.MDB"_s });
        }
    }
}

// One bit of a table's design, or the whole page that the designs are on: the wanted designs bring the rows back.
TEST_F(Repair, ATableWithoutItsDesignKeepsItsRows)
{
    const std::vector<TableDef> wanted = { sample(), subjects(), sample(u"NEW TABLE"_s) };
    const QByteArray good = filled();
    const auto flip = [](const char *text, int behind) {
        return [=](QByteArray &content) {
            const qsizetype at = content.indexOf(text) + behind;
            content[at] = static_cast<char>(content[at] ^ 1);
        };
    };
    struct Case { const char *what; Pages damage; };
    const std::vector<Case> cases = {
        { "bracket", flip("CREATE TABLE \"SAMPLE\" (", 22) },
        { "name in the design", flip("CREATE TABLE \"SAMPLE\"", 15) },
        { "verb", flip("CREATE TABLE \"SAMPLE\"", 2) },
        { "type", flip("CREATE TABLE \"SUBJECTS\" (\"ID\" INTEGER", 30) },
        { "first page", [](QByteArray &c) { zero(c, 1); } },
        { "first page of noise", [](QByteArray &c) { c.replace(0, page, QByteArray(page, '\x5a')); } },
    };
    for (const Case &one : cases) {
        SCOPED_TRACE(one.what);
        QByteArray content = good;
        one.damage(content);
        ASSERT_NE(content, good);
        damage(content);
        const RepairReport report = DBEngine::RepairDatabase(path(), {}, wanted);
        EXPECT_TRUE(report.damaged);
        EXPECT_EQ(report.original, path() + u".damaged"_s);
        EXPECT_EQ(report.rowsSeen, sampleRows + subjectRows);
        EXPECT_EQ(report.rowsSaved, sampleRows + subjectRows);
        Database file = DBEngine::OpenDatabase(path());
        EXPECT_EQ(file.OpenRecordset(u"SELECT ID FROM SAMPLE WHERE LARGE+1=ID AND PRICE=1.5"_s).rowTotal(), sampleRows);
        EXPECT_EQ(file.OpenRecordset(u"SUBJECTS"_s).rowTotal(), subjectRows);
        EXPECT_EQ(file.TableDefByName(u"SAMPLE").Fields, sample().Fields);
        EXPECT_EQ(file.TableDefByName(u"SUBJECTS").Indexes, subjects().Indexes);
    }
}

TEST_F(Repair, TheReportCountsWhatIsLost)
{
    QByteArray content = filled();
    EXPECT_FALSE(DBEngine::RepairDatabase(path()).damaged);
    const qsizetype number = pageWith(content, nameOf(1000));
    const QByteArray leaf = content.mid((number - 1) * page, page);
    const int rows = static_cast<uchar>(leaf[3]) << 8 | static_cast<uchar>(leaf[4]);
    // Every cell of one leaf points behind the page.
    content.replace((number - 1) * page + 8, 2 * rows, QByteArray(2 * rows, '\xff'));
    damage(content);
    const RepairReport report = DBEngine::RepairDatabase(path());
    EXPECT_TRUE(report.damaged);
    EXPECT_EQ(report.lost, QStringList(u"SAMPLE"_s));
    EXPECT_EQ(report.rowsSeen, sampleRows + subjectRows);
    EXPECT_EQ(report.rowsSaved, sampleRows + subjectRows - rows);
}

// The wanted designs make no file of a text.
TEST_F(Repair, WantedDesignsAloneAreNoFile)
{
    damage(QByteArray(8192, '\x5a'));
    EXPECT_EQ(DBEngine::RepairDatabase(path(), {}, { sample() }).original, path() + u".damaged"_s);
    EXPECT_FALSE(QFile::exists(path()));
}

// The store's own check passes over a row whose head says what is not so.
TEST_F(Repair, ARowThatCannotBeReadCostsItselfAlone)
{
    QByteArray content = filled({}, 300);
    // The head lies before the row's first value: its own size, then a type for each of the twelve columns.
    const qsizetype head = content.indexOf(nameOf(151).toLatin1()) - 13;
    ASSERT_EQ(content[head], 13);
    content[head] = '\x7f';
    damage(content);
    EXPECT_TRUE(DBEngine::RepairDatabase(path()).damaged);
    Database file = DBEngine::OpenDatabase(path());
    EXPECT_EQ(file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 299);
    file.Close();
    EXPECT_FALSE(DBEngine::RepairDatabase(path()).damaged);
}

// What rests on a table or a module that is gone hinders nothing but itself, and no repair makes such a file.
TEST_F(Repair, AViewOfNothingHindersNoOther)
{
    filled({}, 40);
    DBEngine::Forget(path());
    {
        Connection tool(path(), {}, Connection::Purpose::Open);
        execute(tool.handle(), "CREATE VIEW [Good] AS SELECT NAME FROM SAMPLE; CREATE VIEW [Broken] AS SELECT * FROM SUBJECTS;"
                               "CREATE TABLE gone (a); CREATE VIEW [Dangling] AS SELECT * FROM gone; DROP TABLE gone;"
                               "PRAGMA writable_schema = ON; INSERT INTO sqlite_master VALUES"
                               " ('table', 'words', 'words', 0, 'CREATE VIRTUAL TABLE words USING no_such_module(a)')");
    }
    const QByteArray content = contentOf(path());
    Database file = DBEngine::OpenDatabase(path());
    EXPECT_EQ(file.QueryDefs(), (QStringList { u"Good"_s, u"Broken"_s, u"Dangling"_s }));
    EXPECT_EQ(file.TableDefs().size(), 2u);
    EXPECT_EQ(file.OpenRecordset(u"Good"_s).rowTotal(), 40);
    EXPECT_NE(errorOf([&] { file.OpenRecordset(u"Dangling"_s); }), 0);
    file.Close();
    EXPECT_FALSE(DBEngine::RepairDatabase(path()).damaged);
    DBEngine::CompactDatabase(path(), path(u"SMALL.MDB"_s));
    file = DBEngine::OpenDatabase(path(u"SMALL.MDB"_s));
    EXPECT_EQ(file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 40);
    file.Close();
    // The design of SUBJECTS is damaged, so that its view has nothing to rest on in the mended file.
    QByteArray damaged = content;
    const qsizetype at = damaged.indexOf("CREATE TABLE \"SUBJECTS\" (");
    damaged[at + 24] = '!';
    damage(damaged);
    const RepairReport report = DBEngine::RepairDatabase(path());
    EXPECT_EQ(report.lost, (QStringList { u"SUBJECTS"_s, u"words"_s }));
    file = DBEngine::OpenDatabase(path());
    EXPECT_EQ(file.QueryDefs(), QStringList(u"Good"_s));
    EXPECT_EQ(file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 40);
}

// However many pointers name it, a cell is one row.
TEST_F(Repair, OverlappingCellsTakeNoMoreRoomThanThePage)
{
    QByteArray content = filled({}, 400);
    const qsizetype number = pageWith(content, nameOf(200));
    char *leaf = content.data() + (number - 1) * page;
    const int cells = static_cast<uchar>(leaf[3]) << 8 | static_cast<uchar>(leaf[4]);
    ASSERT_GT(cells, 10);
    for (int i = 1; i < cells; ++i)
        std::copy_n(leaf + 8, 2, leaf + 8 + 2 * i);
    qsizetype lost = 0;
    const pages::PageFile file(content, pages::layoutOf(content));
    EXPECT_EQ(file.rows(static_cast<int>(number), &lost).size(), 1u);
    EXPECT_EQ(lost, cells - 1);
}

}
