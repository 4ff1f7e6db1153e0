#include "daotest.h"

namespace vorel::dao::test {

class Transactions : public DaoTest {
protected:
    void SetUp() override
    {
        m_file = create();
        m_file.AppendTable(sample());
        addRows(m_file, { u"a"_s, u"b"_s });
    }
    qsizetype count() { return m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s).rowTotal(); }
    void add(Database &file) { file.Execute(u"INSERT INTO SAMPLE (NAME) VALUES ('new')"_s); }
    Database m_file;
};

TEST_F(Transactions, RolledBackUnlessCommitted)
{
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    {
        Transaction all(m_file);
        add(m_file);
        edit(rows, { { u"NAME", u"changed"_s } });
        rows.AddNew();
        rows.Update();
        EXPECT_EQ(count(), 4);
        {
            Transaction inner(m_file);
            add(m_file);
        }
        EXPECT_EQ(count(), 4);      // only the inner part went
        Transaction joined(m_file);
        add(m_file);
        joined.Commit();
        m_file.Execute(u"CREATE TABLE MORE (A LONG)"_s);
        EXPECT_TRUE(m_file.hasTable(u"MORE"));
    }
    EXPECT_EQ(count(), 2);
    EXPECT_FALSE(m_file.hasTable(u"MORE"));
    // A recordset from within lives on: its own new row is gone.
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"a"_s));
    rows.MoveLast();
    EXPECT_EQ(errorOf([&] { rows.Get(u"NAME"); }), 3167);
    {
        Transaction all(m_file);
        add(m_file);
        all.Commit();
        EXPECT_EQ(errorOf([&] { all.Commit(); }), 3034);
    }
    EXPECT_EQ(count(), 3);
}

TEST_F(Transactions, TheWorkspacesCoverAllFilesAndNest)
{
    EXPECT_EQ(errorOf([] { DBEngine::CommitTrans(); }), 3034);
    EXPECT_EQ(errorOf([] { DBEngine::Rollback(); }), 3034);
    Database other = create(u"OTHER.MDB"_s);
    other.AppendTable(sample());
    const auto otherCount = [&] { return other.OpenRecordset(u"SAMPLE"_s).rowTotal(); };
    DBEngine::BeginTrans();
    add(m_file);
    DBEngine::BeginTrans();
    add(m_file);
    add(other);
    DBEngine::Rollback();
    EXPECT_EQ(count(), 3);
    EXPECT_EQ(otherCount(), 0);
    add(other);
    DBEngine::CommitTrans();
    EXPECT_EQ(count(), 3);
    EXPECT_EQ(otherCount(), 1);

    DBEngine::BeginTrans();
    add(m_file);
    add(other);
    other.Close();                  // what is not committed by then is given up
    DBEngine::Rollback();
    other = DBEngine::OpenDatabase(path(u"OTHER.MDB"_s));
    EXPECT_EQ(count(), 3);
    EXPECT_EQ(otherCount(), 1);
}

TEST_F(Transactions, AFailedStatementLeavesTheRestToTheCaller)
{
    Transaction all(m_file);
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    rows.AddNew();
    rows.Set(u"ID", 1);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3022);
    rows.Set(u"ID", 9);
    rows.Update();
    all.Commit();
    EXPECT_EQ(count(), 3);
}

TEST(EngineErrors, TextsNameNoOriginAndTakeTheInsert)
{
    EXPECT_EQ(EngineError(3021).text(), u"No current record.");
    EXPECT_EQ(EngineError(3024, u"A.MDB"_s).text(), u"Could not find file 'A.MDB'.");
    EXPECT_EQ(EngineError(13).text(), basic::BasicError::standardText(13));
    for (int number = 3000; number < 3500; ++number) {
        const QString text = EngineError::standardText(number);
        EXPECT_FALSE(text.isEmpty());
        EXPECT_FALSE(text.contains(u"not an error"_s));
        EXPECT_EQ(EngineError(number, u"x|y"_s).text().count(u"x|y"_s), text.count(u'|')) << number;
    }
}

}
