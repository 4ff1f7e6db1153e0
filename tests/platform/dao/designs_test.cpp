#include "script.h"

#include <QProcess>

namespace vorel::dao::test {

class Designs : public DaoTest {};

TEST_F(Designs, ReadBackAsAppendedFieldByFieldInOrder)
{
    TableDef odd = { .Name = u"Odd \"Names\""_s,
                     .Fields = { { .Name = u"Key Field"_s, .Type = dbText, .Size = 7, .AllowZeroLength = false, .Required = true,
                                   .DefaultValue = u"a'b"_s, .ValidationRule = u"<> '*/' And Like '100%'"_s,
                                   .ValidationText = u"No */ here,\nplease"_s },
                                 { .Name = u"Delete"_s, .Type = dbBoolean, .Size = 1, .DefaultValue = u"Yes"_s },
                                 { .Name = u"PRICE"_s, .Type = dbCurrency, .Size = 8, .DefaultValue = u"1.5"_s },
                                 { .Name = u"unsized"_s, .Type = dbLong, .DefaultValue = u"-3"_s },
                                 { .Name = u"NOTE"_s, .Type = dbMemo, .AllowZeroLength = false },
                                 { .Name = u"SET"_s, .Type = dbText, .Size = 255, .AllowZeroLength = true,
                                   .DefaultValue = u"\"x\""_s },
                                 { .Name = u"WHEN"_s, .Type = dbDate, .Size = 8, .DefaultValue = u"Date()"_s } },
                     .Indexes = { { u"Both"_s, { u"Key Field"_s, u"PRICE"_s }, false, true, true },
                                  { u"Plain one"_s, { u"WHEN"_s }, false, false, false } } };
    TableDef noIndex = { .Name = u"TODO"_s, .Fields = { counter(u"ID"_s), text(u"TASK"_s, 255) } };
    const std::vector<TableDef> wanted = { sample(), odd, subjects(), noIndex };
    {
        Database file = create();
        for (const TableDef &design : wanted)
            file.AppendTable(design);
        file.Close();
    }
    DBEngine::Forget(path());
    Database file = DBEngine::OpenDatabase(path());
    const std::vector<TableDef> found = file.TableDefs();
    ASSERT_EQ(found.size(), wanted.size());
    for (size_t i = 0; i < wanted.size(); ++i) {
        SCOPED_TRACE(wanted[i].Name.toStdString());
        EXPECT_EQ(found[i].Name, wanted[i].Name);
        EXPECT_EQ(found[i].Attributes, 0);
        ASSERT_EQ(found[i].Fields.size(), wanted[i].Fields.size());
        for (size_t f = 0; f < wanted[i].Fields.size(); ++f)
            EXPECT_EQ(found[i].Fields[f], wanted[i].Fields[f]) << wanted[i].Fields[f].Name.toStdString();
        EXPECT_EQ(found[i].Indexes, wanted[i].Indexes);
        EXPECT_EQ(found[i].Helpers, wanted[i].Helpers);
    }
}

TEST_F(Designs, OtherToolsReadTheTypesAndWriteTheFile)
{
    Database file = create();
    file.AppendTable(sample());
    file.AppendTable(subjects());
    QProcess tool;
    const auto run = [&](const QString &sql) {
        tool.start(u"sqlite3"_s, { path(), sql });
        if (!tool.waitForStarted())
            return QString();
        tool.waitForFinished();
        return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
    };
    if (run(u"SELECT 1"_s) != u"1")
        GTEST_SKIP() << "no sqlite3 program here";
    // Affinities: a memo "007" stays text, a price and a flag are whole numbers.
    EXPECT_EQ(run(u"INSERT INTO SAMPLE (NAME, NOTE, DAY, PRICE, FLAG, WHOLE) VALUES ('007', '007', '2004', '150', '-1', 1);"
                  "SELECT typeof(NAME), typeof(NOTE), typeof(DAY), typeof(PRICE), typeof(FLAG), typeof(SMALL), typeof(WHOLE)"
                  " FROM SAMPLE"_s),
              u"text|text|text|integer|integer|integer|real");
    EXPECT_EQ(run(u"INSERT INTO SUBJECTS (SUBJECT) VALUES ('Birthday'), (NULL), (NULL); SELECT count(*) FROM SUBJECTS"_s), u"3");
    DBEngine::Idle();
    Recordset rows = file.OpenRecordset(u"SUBJECTS"_s);
    for (const QString &same : { u"Birthday"_s, u"BIRTHDAY"_s, u"birthday  "_s }) {
        rows.AddNew();
        rows.Set(u"SUBJECT", same);
        EXPECT_EQ(errorOf([&] { rows.Update(); }), 3022) << same.toStdString();
        EXPECT_TRUE(rows.editPending());
    }
    rows.Set(u"SUBJECT", u" birthday"_s);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 0);
    for (int i = 0; i < 2; ++i)
        add(rows);
    EXPECT_EQ(rows.rowTotal(), 6);
}

TEST_F(Designs, ForeignFilesAreReadByAffinity)
{
    create().Close();
    DBEngine::Forget(path());
    QProcess tool;
    tool.start(u"sqlite3"_s, { path(), u"CREATE TABLE f (id INTEGER PRIMARY KEY, a VARCHAR(30), b NVARCHAR, c BIGINT, d DECIMAL(9,2),"
                                      " e TIMESTAMP, g, h BLOB, i REAL, j CLOB, UNIQUE (a, b));"
                                      "INSERT INTO f VALUES (1, 'x', 'y', 5000000000, 1.25, '2004-05-06', 7, x'00ff', 2, 'z');"
                                      "CREATE VIEW v AS SELECT a FROM f"_s });
    if (!tool.waitForFinished())
        GTEST_SKIP() << "no sqlite3 program here";
    Database file = DBEngine::OpenDatabase(path());
    const TableDef design = file.TableDefByName(u"F");
    const std::vector<std::pair<DataType, int>> wanted = { { dbLong, 4 }, { dbText, 30 }, { dbMemo, 0 }, { dbLong, 4 }, { dbDouble, 8 },
                                                           { dbDate, 8 }, { dbMemo, 0 }, { dbLongBinary, 0 }, { dbDouble, 8 }, { dbMemo, 0 } };
    ASSERT_EQ(design.Fields.size(), wanted.size());
    for (size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_EQ(design.Fields[i].Type, wanted[i].first) << i;
        EXPECT_EQ(design.Fields[i].Size, wanted[i].second) << i;
    }
    ASSERT_EQ(design.Indexes.size(), 1u);
    EXPECT_TRUE(design.Indexes[0].Unique);
    EXPECT_EQ(design.Indexes[0].Fields, (QStringList { u"a"_s, u"b"_s }));
    EXPECT_EQ(file.QueryDefs(), QStringList { u"v"_s });
    Recordset rows = file.OpenRecordset(u"SELECT * FROM f"_s);
    EXPECT_EQ(rows.Get(u"c"), Value(5e9));
    EXPECT_EQ(rows.Get(u"e"), Value(basic::DateTime::fromParts(2004, 5, 6)));
    EXPECT_EQ(rows.Get(u"g"), Value(u"7"_s));
    EXPECT_EQ(rows.Get(u"h"), Value(QByteArray("\x00\xff", 2)));
    file.DeleteQuery(u"V"_s);
    EXPECT_TRUE(file.QueryDefs().isEmpty());
}

TEST_F(Designs, RenamingAndReplacingATableKeepsRowsAndIndexNames)
{
    Database file = create();
    const TableDef subjects = test::subjects();
    file.AppendTable(subjects);
    file.Execute(u"INSERT INTO SUBJECTS (SUBJECT) VALUES ('Party')"_s);
    file.RenameTable(u"subjects", u"SUBJECTS$$"_s);
    EXPECT_FALSE(file.hasTable(u"SUBJECTS"));
    file.AppendTable(subjects);         // the old indexes are still there
    EXPECT_EQ(file.TableDefByName(u"SUBJECTS$$").Indexes, subjects.Indexes);
    EXPECT_EQ(file.TableDefByName(u"SUBJECTS").Indexes, subjects.Indexes);
    file.DeleteTable(u"SUBJECTS");
    file.RenameTable(u"SUBJECTS$$", u"Subjects"_s);
    EXPECT_EQ(file.TableDefByName(u"SUBJECTS").Name, u"Subjects");
    file.RenameTable(u"SUBJECTS", u"SUBJECTS"_s);
    EXPECT_EQ(file.TableDefByName(u"SUBJECTS").Name, u"SUBJECTS");
    EXPECT_EQ(file.OpenRecordset(u"SUBJECTS"_s).Get(u"SUBJECT"), Value(u"Party"_s));

    EXPECT_EQ(errorOf([&] { file.AppendTable(subjects); }), 3010);
    EXPECT_EQ(errorOf([&] { file.TableDefByName(u"NONE"); }), 3265);
    EXPECT_EQ(errorOf([&] { file.DeleteTable(u"NONE"); }), 3265);
    EXPECT_EQ(errorOf([&] { file.RenameTable(u"NONE", u"x"_s); }), 3265);
    TableDef twice = { .Name = u"TWICE"_s, .Fields = { text(u"A"_s, 5), text(u"a"_s, 5) } };
    EXPECT_EQ(errorOf([&] { file.AppendTable(twice); }), 3191);
}

using DesignStatements = Script;

TEST_F(DesignStatements, MakeUsableTables) { play("definition statements"); }

TEST_F(Designs, ChangeStatementsKeepTheRows)
{
    Database file = create();
    file.AppendTable(sample());
    addRows(file, { u"a"_s, u"b"_s });
    EXPECT_EQ(errorOf([&] { file.Execute(u"SELECT * FROM SAMPLE"_s); }), 3065);
    file.Execute(u"ALTER TABLE SAMPLE ADD COLUMN EXTRA TEXT(30)"_s);
    file.Execute(u"CREATE UNIQUE INDEX ByName ON SAMPLE (NAME)"_s);
    EXPECT_EQ(errorOf([&] { file.Execute(u"CREATE INDEX byname ON SAMPLE (LARGE)"_s); }), 3284);
    EXPECT_EQ(errorOf([&] { file.Execute(u"ALTER TABLE SAMPLE DROP COLUMN NAME"_s); }), 3280);
    file.Execute(u"ALTER TABLE SAMPLE DROP COLUMN NOTE"_s);
    TableDef wanted = sample();
    std::erase_if(wanted.Fields, [](const FieldDef &one) { return one.Name == u"NOTE"; });
    wanted.Fields.push_back(text(u"EXTRA"_s, 30));
    wanted.Indexes.push_back({ u"ByName"_s, { u"NAME"_s }, false, true, false });
    TableDef found = file.TableDefByName(u"SAMPLE");
    EXPECT_EQ(found.Indexes, wanted.Indexes);
    found.Fields.back().AllowZeroLength = true;     // as the statement left it
    EXPECT_EQ(found.Fields, wanted.Fields);
    Recordset rows = file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    EXPECT_EQ(rows.rowTotal(), 2);
    EXPECT_EQ(rows.Get(u"ID"), Value(1));
    rows.Edit();
    rows.Set(u"NAME", u"B "_s);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3022);
    file.Execute(u"DROP INDEX ByName ON SAMPLE"_s);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 0);
    // Two equal names now: no unique index can be made, and the table stays as it was.
    EXPECT_EQ(errorOf([&] { file.Execute(u"CREATE UNIQUE INDEX ByName ON SAMPLE (NAME)"_s); }), 3022);
    EXPECT_EQ(file.OpenRecordset(u"SAMPLE"_s).rowTotal(), 2);
}

}
