#include "accounts/accounts.h"

#include "store/mainfile.h"

namespace vorel {

using namespace Qt::StringLiterals;

class AccountsTest : public test::MainFileTest {
protected:
    AccountsTest()
    {
        test::putEmptyFiles(m_folder.path());
        state().path(DataFile::Accounts) = m_folder.path(u"ACCOUNTS.MDB"_s);
        state().path(DataFile::Main) = state().path(DataFile::Accounts);        // what rows() reads
    }
};

TEST_F(AccountsTest, theChartRepeatsNumbersAndNeverARow)
{
    const QString all = u"SELECT [IDnum],[Name],[Type] FROM [Accounts]"_s;
    const QStringList chart = rows(all);
    EXPECT_EQ(chart.size(), 44);
    EXPECT_EQ(chart.first(), u"85|Purchases|Cost Of Goods"_s);
    EXPECT_EQ(chart.last(), u"311|Personal Expenses|Expense"_s);
    EXPECT_EQ(rows(all + u" WHERE [IDnum]='85'"_s).size(), 2);
    EXPECT_EQ(rows(all + u" WHERE [IDnum]='342.1'"_s),
              QStringList({u"342.1|Motor Vehicle - Depreciation|Asset"_s, u"342.1|Motor Vehicle - Petrol/Gas/Oil|Expense"_s}));

    SeedAccounts();
    AddAccount(u"62"_s, u"Travel Expenses"_s, u"Expense"_s);
    EXPECT_EQ(rows(all), chart);
    AddAccount(u"62"_s, u"Travel Expenses"_s, u"Asset"_s);
    EXPECT_EQ(rows(all).size(), 45);
    execute(u"DELETE * FROM [Accounts] WHERE [Name]='Insurance'"_s);
    SeedAccounts();
    EXPECT_EQ(rows(all).last(), u"302|Insurance|Expense"_s);
}

}
