#include "frame/shopping.h"
#include "session/state.h"
#include "store/mainfile.h"

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

struct Shopping : test::MainFileTest {
    dao::Database database = open();

    void add(const QString &item, const QString &store, double total, bool pick)
    {
        dao::Recordset rows = database.OpenRecordset(u"SELECT * FROM [SHOPPING]"_s);
        rows.AddNew();
        rows.Set(u"ITEM", item);
        rows.Set(u"STORE", store);
        rows.Set(u"TOTAL", total);
        rows.Set(u"PICK", pick);
        rows.Update();
    }
};

}

TEST_F(Shopping, WhatIsPickedAddsUpAndEachStoreIsListedOnce)
{
    add(u"Tea"_s, u"Market"_s, 7.8, true);
    add(u"Rice"_s, u""_s, 2.5, false);
    add(u"Bread"_s, u"Baker"_s, 3.25, true);
    add(u"Flour"_s, u"Market"_s, 1, false);
    database.Execute(u"INSERT INTO [SHOPPING] ([ITEM]) VALUES ('no figures at all')"_s);
    ShoppingVariables list = FillShoppingVariables(database);
    EXPECT_EQ((QStringList{u"Baker"_s, u"Market"_s}), list.stores);
    EXPECT_DOUBLE_EQ(11.05, TotalShopping(list));
    EXPECT_EQ(u"SHOPPING LIST ... 11.05"_s, shoppingTitle(TotalShopping(list)));
    list.put(2, 10, true);
    EXPECT_DOUBLE_EQ(21.05, TotalShopping(list));
    list.remove(1);
    EXPECT_DOUBLE_EQ(13.25, TotalShopping(list));
}

TEST_F(Shopping, DuplicateIsTheTextAsTyped)
{
    add(u"Tea"_s, {}, 0, false);
    add(u"Baker's dozen"_s, {}, 0, false);
    const std::vector<std::pair<QString, bool>> cases = {
        {u"Tea"_s, true}, {u"tea"_s, true}, {u"Tea "_s, false}, {u"Te"_s, false}, {u"Baker's dozen"_s, true}, {u"' OR '1'='1"_s, false}};
    for (const auto &[item, there] : cases)
        EXPECT_EQ(there, isOnShoppingList(database, item)) << qPrintable(item);
}

TEST_F(Shopping, RowTotalIsNumberTimesAmount)
{
    using basic::Value;
    const struct { Value number, amount; double total; } cases[] = {
        {Value(std::int16_t{2}), Value(3.9), 7.8}, {u"3"_s, u"1.50 each"_s, 4.5}, {Value(), Value(2.0), 0}, {u"two"_s, u"4"_s, 0},
        {Value(std::int16_t{2}), u"50.5%"_s, 0}};
    for (const auto &c : cases)
        EXPECT_DOUBLE_EQ(c.total, rowTotal(c.number, c.amount)) << qPrintable(c.amount.text());
}
