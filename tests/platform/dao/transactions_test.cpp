#include "script.h"

namespace vorel::dao::test {

class Transactions : public Script {
protected:
    qsizetype count() { return m_file.OpenRecordset(u"SAMPLE"_s).rowTotal(); }
    void add(Database &file) { file.Execute(u"INSERT INTO SAMPLE (NAME) VALUES ('new')"_s); }
};

// A failed statement ends neither.
TEST_F(Transactions, RolledBackUnlessCommitted) { play("rolled back"); }

TEST_F(Transactions, TheWorkspacesCoverAllFilesAndNest)
{
    EXPECT_EQ(errorOf([] { DBEngine::CommitTrans(); }), 3034);
    EXPECT_EQ(errorOf([] { DBEngine::Rollback(); }), 3034);
    Database other = create(u"OTHER.MDB"_s);
    other.AppendTable(sample());
    addRows(m_file, { u"a"_s, u"b"_s });
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
