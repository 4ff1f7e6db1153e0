#include "accounts/accounts.h"

#include "session/datafiles.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct Account {
    const char16_t *number;
    const char16_t *name;
    const char16_t *type;
};

constexpr Account chart[] = {
    {u"85", u"Purchases", u"Cost Of Goods"},
    {u"8", u"Computer and Office Equipment", u"Asset"},
    {u"9", u"Computer and Office Equipment - Depreciation", u"Asset"},
    {u"10", u"Computer and Office Equipment - At Cost", u"Asset"},
    {u"11", u"Motor Vehicle", u"Asset"},
    {u"342", u"Motor Vehicle - at Cost", u"Asset"},
    {u"342.1", u"Motor Vehicle - Depreciation", u"Asset"},
    {u"880", u"Asset Purchases", u"Asset"},
    {u"202", u"Advertising", u"Expense"},
    {u"212", u"Bank Charges", u"Expense"},
    {u"218", u"Cleaning", u"Expense"},
    {u"284", u"Courier Fees", u"Expense"},
    {u"258", u"Depreciation", u"Expense"},
    {u"296.1", u"Electricity/Hydro", u"Expense"},
    {u"296.2", u"Gas", u"Expense"},
    {u"30", u"General Expenses", u"Expense"},
    {u"85", u"GST - Payable", u"Expense"},
    {u"86", u"PST - Payable", u"Expense"},
    {u"87", u"Other Tax - Payable", u"Expense"},
    {u"302", u"Insurance", u"Expense"},
    {u"314.2", u"Lease Expenditure", u"Expense"},
    {u"40", u"Legal Fees", u"Expense"},
    {u"41", u"Loan Repayment", u"Expense"},
    {u"342.1", u"Motor Vehicle - Petrol/Gas/Oil", u"Expense"},
    {u"342.2", u"Motor Vehicle - Registration/Insurance", u"Expense"},
    {u"342.3", u"Motor Vehicle - Repairs", u"Expense"},
    {u"342.4", u"Motor Vehicle - Rental", u"Expense"},
    {u"46", u"Other Expense", u"Expense"},
    {u"46.1", u"Gratuity/Tip", u"Expense"},
    {u"356", u"Postage and Freight", u"Expense"},
    {u"358.1", u"Printing and Stationary", u"Expense"},
    {u"49", u"Refund", u"Expense"},
    {u"366.1", u"Rent and Rates", u"Expense"},
    {u"382.1", u"Repairs and Maintenance", u"Expense"},
    {u"55", u"Software", u"Expense"},
    {u"410.1", u"Telephone", u"Expense"},
    {u"410.3", u"Telephone - Mobile", u"Expense"},
    {u"62", u"Travel Expenses", u"Expense"},
    {u"75", u"Payroll Income", u"Income"},
    {u"76", u"Other Income", u"Income"},
    {u"51", u"Sales - General", u"Income"},
    {u"51.1", u"Sales - Retail Sales", u"Income"},
    {u"51.2", u"Sales - Service and Repairs", u"Income"},
    {u"311", u"Personal Expenses", u"Expense"},
};

dao::Database accountsFile()
{
    return openDataFile(DataFile::Accounts);
}

}

void AddAccount(const QString &number, const QString &name, const QString &type)
{
    dao::Database database = accountsFile();
    dao::Recordset rows = database.OpenRecordset(u"SELECT * FROM [Accounts] WHERE [IDnum]="_s + dao::literal(number) + u" AND [Name]="_s
                                                     + dao::literal(name) + u" AND [Type]="_s + dao::literal(type) + u';',
                                                 dao::dbOpenDynaset);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    if (rows.RecordCount() == 0) {
        rows.AddNew();
        rows.Set(u"IDnum", number);
        rows.Set(u"Name", name);
        rows.Set(u"Type", type);
        rows.Update();
    }
    rows.Close();
    database.Close();
}

void SeedAccounts()
{
    dao::Database database = accountsFile();
    dao::Transaction all(database);
    for (const Account &account : chart)
        AddAccount(QString::fromUtf16(account.number), QString::fromUtf16(account.name), QString::fromUtf16(account.type));
    all.Commit();
    database.Close();
}

}
