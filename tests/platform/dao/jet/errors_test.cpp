#include "platform/dao/jet/jetstore.h"

#include "support/table.h"

using namespace Qt::StringLiterals;
using namespace vorel;
using namespace vorel::dao;
using namespace vorel::dao::jet;

namespace {

struct Errors : testing::Test {
    void SetUp() override
    {
        store.add(u"T"_s, u"ID auto, Name text 5, Day date, Cost currency, Flag boolean"_s);
        store.raw("INSERT INTO T (ID) VALUES (1)");
        store.add(u"U"_s, u"ID auto, Name text 5, Strict text 5 x, Small integer"_s);
    }
    JetStore store;
};

}

TEST_F(Errors, NumbersAndTexts)
{
    test::forEachRow("errors", "texts", [this](const test::Row &row) { EXPECT_EQ(store.failure(row["query"]), row["failure"]); });
    test::forEachRow("errors", "numbers", [this](const test::Row &row) {
        EXPECT_EQ(store.failure(row["query"]).section(u' ', 0, 0), row["number"]);
    });
}

TEST_F(Errors, CriteriaHaveTheirOwn)
{
    test::forEachRow("errors", "criteria", [this](const test::Row &row) {
        QString failure;
        try {
            store.raw(translateCriteria(u"SELECT ID, Name, UCase(Name) AS Label FROM T", row["criteria"], store));
        } catch (const EngineError &error) {
            failure = QString::number(error.number()) + u' ' + error.text();
        }
        EXPECT_EQ(failure, row["failure"]);
    });
}
