#include "frame/shopping.h"

#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/format.h"
#include "session/state.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {


double amountOf(const basic::Value &value)
{
    if (value.isNumber())
        return basic::CDbl(value);
    return basic::valOr(value.text(), 0);
}

}

void ShoppingVariables::put(qint32 id, double total, bool pick)
{
    TOTAL[id] = total;
    PICK[id] = pick;
}

void ShoppingVariables::remove(qint32 id)
{
    TOTAL.erase(id);
    PICK.erase(id);
}

void ShoppingVariables::addStore(const QString &store)
{
    if (store.isEmpty() || stores.contains(store, Qt::CaseInsensitive))
        return;
    stores.append(store);
    stores.sort(Qt::CaseInsensitive);
}

ShoppingVariables FillShoppingVariables(dao::Database &database)
{
    ShoppingVariables filled;
    dao::Recordset rows = database.CreateSnapshot(u"Select [ID],[TOTAL],[PICK] from [SHOPPING] ORDER BY [ITEM];"_s);
    for (; !rows.EOF_(); rows.MoveNext()) {
        const dao::Value total = rows.Get(u"TOTAL");
        filled.put(basic::CLng(rows.Get(u"ID")), amountOf(total), basic::CBool(rows.Get(u"PICK")));
    }
    dao::Recordset stores = database.CreateSnapshot(
        u"Select DISTINCT([STORE]) from [SHOPPING] WHERE [STORE]<>'' ORDER BY [STORE];"_s);
    for (; !stores.EOF_(); stores.MoveNext())
        filled.stores.append(stores.Get(0).text());
    return filled;
}

double TotalShopping(const ShoppingVariables &variables)
{
    double total = 0;
    for (const auto &[id, amount] : variables.TOTAL) {
        const auto picked = variables.PICK.find(id);
        if (picked != variables.PICK.end() && picked->second)
            total += amount;
    }
    return total;
}

void ClearShoppingChecks(dao::Database &database, dao::Recordset &rows, ShoppingVariables &variables)
{
    if (rows && rows.rowTotal() > 0) {
        dao::Transaction all(database);
        for (rows.MoveFirst(); !rows.EOF_(); rows.MoveNext()) {
            try {
                if (!basic::CBool(rows.Get(u"PICK")))
                    continue;
                rows.Edit();
                rows.Set(u"PICK", false);
                rows.Update();
            } catch (const basic::Error &e) {
                if (e.number() != dao::err::RecordDeleted)       // a row that somebody else took off the list
                    throw;
            }
        }
        all.Commit();
        rows.MoveFirst();
    }
    variables.PICK.clear();
}

QString shoppingTitle(double total)
{
    return u"SHOPPING LIST ... "_s + basic::Format(total, state().settings.gNumberFormat);
}

double rowTotal(const basic::Value &number, const basic::Value &amount)
{
    return amountOf(number) * amountOf(amount);
}

bool isOnShoppingList(dao::Database &database, const QString &item)
{
    const dao::Recordset hits = database.CreateSnapshot(u"select [ITEM] from [SHOPPING] WHERE [ITEM]="_s + dao::literal(item));
    // To the query blanks at the end do not count; to the list "Tea" and "Tea " are two items.
    for (qsizetype row = 0; row < hits.rowTotal(); ++row)
        if (hits.cell(row, 0).text().compare(item, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

}
