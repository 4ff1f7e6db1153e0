#include "store/firstrows.h"

namespace vorel::store {

using namespace Qt::StringLiterals;

namespace {

void addRow(dao::Recordset &table, const std::vector<FirstField> &fields)
{
    table.AddNew();
    for (const FirstField &field : fields) {
        try {
            table.Set(QStringView(field.name), field.value);
        } catch (const dao::EngineError &error) {
            if (error.number() != dao::err::TooLong)
                throw;
        }
    }
    table.Update();
}

void addGroup(const FirstRows &group, dao::Database &database)
{
    dao::Recordset table = database.OpenRecordset(QString::fromUtf16(group.query), dao::dbOpenDynaset);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    if (table.RecordCount() == 0) {
        for (const auto &row : group.rows)
            addRow(table, row);
    }
    table.Close();
}

}

std::vector<FirstRows> requiredRows(basic::DateTime today, bool dayFirst)
{
    const DataFile accounts = DataFile::Accounts;
    return {
        {accounts, u"select * from [SETUP];",
         {{{u"InvoiceHeading", u"Tax Invoice"_s}, {u"TAXNAME1", u"GST"_s}, {u"TAXNAME2", u"PST"_s}, {u"Printname", true},
           {u"FiscalMonth", dayFirst ? u"July"_s : u"January"_s}}}},
        {accounts, u"select * from [tblInvoiceDetails];",
         {{{u"DATE", today}, {u"INCLUDE", true}, {u"AP-Account", u"Sales"_s},
           {u"TaxSystem", dayFirst ? u"G"_s : u"S"_s}}}},
        {accounts, u"select * from [Bill];", {{{u"DATE", today}, {u"AccountType", u"Expense"_s}}}},
        {accounts, u"select * from [Income];",
         {{{u"AccountType", u"Income"_s}, {u"AP-Account", u"Payroll Income"_s}, {u"DATE", today}}}},
        {DataFile::Main, u"SELECT * FROM [Setup];",
         {{{u"AdminPassword", 0.0}, {u"DeleteAfterDays", std::int16_t{30}}}}},
    };
}

void addFirstRows(const std::vector<FirstRows> &groups, DataFile file, dao::Database &database)
{
    for (const FirstRows &group : groups) {
        if (group.file == file)
            addGroup(group, database);
    }
}

}
