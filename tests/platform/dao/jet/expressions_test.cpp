#include "platform/dao/jet/jetstore.h"

#include "platform/basic/clock.h"
#include "platform/basic/locale.h"
#include "support/table.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

struct Expressions : testing::Test {
    void SetUp() override
    {
        basic::setRegional(basic::regionalFor(u"en_US"_s));
        basic::setClock([] { return QDateTime(QDate(2024, 2, 29), QTime(13, 45, 10)); });
        store.add(u"V"_s, u"ID auto, T text 20, N text 20, I integer, C currency, F double, W date, B boolean, M memo, K double"_s);
        store.raw("INSERT INTO V VALUES (1,'Tea  ',NULL,5,15000,2.5,'2024-02-29 12:30:00',-1,'memo',NULL)");
    }
    void TearDown() override { basic::setClock({}); }
    JetStore store;
};

}

// The cell of the one row, "<null>", or "!" and the number of an error. Cells of money are ten-thousandths.
TEST_F(Expressions, EachHasItsCell)
{
    for (const char *table : {"NullLogic", "Concatenation", "TextComparison", "Like", "Arithmetic",
                              "MoneyIsExact", "Dates", "Functions", "NoSilentConversionInCriteria"}) {
        test::forEachRow("expressions", table, [this](const test::Row &row) {
            const QString query = u"SELECT "_s + row["expression"] + u" FROM V"_s;
            const QString failure = store.failure(query);
            const QString result = failure.isEmpty() ? store.run(query)[0][0] : u'!' + failure.section(u' ', 0, 0);
            EXPECT_EQ(result, row["expected"]) << failure.toStdString();
        });
    }
}
