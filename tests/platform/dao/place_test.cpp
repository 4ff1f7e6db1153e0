#include "daotest.h"

#include <QDir>

// A scratch file that takes the place of another in one step.
namespace vorel::dao::test {

class Place : public DaoTest {
protected:
    QString scratch(const QString &table)
    {
        Database made = DBEngine::createScratch(path(u"SCRATCH.MDB"_s), plainLocale);
        made.Execute(u"CREATE TABLE ["_s + table + u"] ([A] LONG)"_s);
        made.Close();
        return path(u"SCRATCH.MDB"_s);
    }
    QStringList names() const { return QDir(folder()).entryList(QDir::Files); }
};

TEST_F(Place, TheNewFileStandsThereAndTheScratchIsGone)
{
    DBEngine::putInPlace(scratch(u"First"_s), path());
    EXPECT_TRUE(DBEngine::OpenDatabase(path()).hasTable(u"First"));
    write(path() + u"-journal"_s, "of a broken write");
    DBEngine::putInPlace(scratch(u"Second"_s), path());
    EXPECT_TRUE(DBEngine::OpenDatabase(path()).hasTable(u"Second"));
    EXPECT_EQ(names(), (QStringList { u"DATA.MDB"_s, u"DATA.MDB-journal.old"_s }));
}

TEST_F(Place, ALinkStaysOne)
{
    ASSERT_TRUE(QDir(folder()).mkdir(u"real"_s));
    DBEngine::putInPlace(scratch(u"First"_s), path(u"real/DATA.MDB"_s));
    ASSERT_TRUE(QFile::link(path(u"real/DATA.MDB"_s), path()));
    DBEngine::putInPlace(scratch(u"Second"_s), path());
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_TRUE(DBEngine::OpenDatabase(path(u"real/DATA.MDB"_s)).hasTable(u"Second"));
}

TEST_F(Place, WhatCannotBeMovedStaysAsItIs)
{
    const QString made = scratch(u"First"_s);
    Database inUse = create();
    EXPECT_EQ(errorOf([&] { DBEngine::putInPlace(made, path()); }), 3045);
    inUse.Close();
    inUse = DBEngine::OpenDatabase(made);
    EXPECT_EQ(errorOf([&] { DBEngine::putInPlace(made, path()); }), 3045);
    inUse.Close();
    EXPECT_EQ(errorOf([&] { DBEngine::putInPlace(path(u"GONE.MDB"_s), path()); }), 3051);
    EXPECT_EQ(errorOf([&] { DBEngine::putInPlace(made, path(u"nowhere/DATA.MDB"_s)); }), 3051);
    EXPECT_EQ(names(), (QStringList { u"DATA.MDB"_s, u"SCRATCH.MDB"_s }));
    EXPECT_TRUE(DBEngine::OpenDatabase(path()).TableDefs().empty());
}

TEST_F(Place, OnlyMissingHelpersAreAdded)
{
    TableDef design = sample();
    Database file = create();
    file.AppendTable(design);
    design.Helpers = QStringList { u"NAME"_s };
    for (int time = 0; time < 2; ++time) {
        file.appendHelpers(design);
        EXPECT_EQ(file.TableDefByName(design.Name).Helpers, QStringList { u"NAME"_s });
        EXPECT_EQ(file.TableDefByName(design.Name).Indexes, sample().Indexes);
    }
}

}
