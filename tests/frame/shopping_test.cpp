#include "frame/celltexts.h"
#include "frame/shopping.h"
#include "session/state.h"
#include "platform/basic/dates.h"
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

using CellTexts = test::MainFileTest;

TEST_F(CellTexts, DatesAreReadInTheOrderThatTheScreenShows)
{
    const struct { const char16_t *display, *text; int year, month, day; } cases[] = {
        {u"mm/dd/yyyy", u"06/12/2026", 2026, 6, 12}, {u"", u"06/12/2026", 2026, 6, 12},
        {u"dd/mm/yyyy", u"06/12/2026", 2026, 12, 6}, {u"dd/mm/yyyy", u"25/12/2026", 2026, 12, 25},
        {u"dd/mm/yyyy", u"12/25/2026", 2026, 12, 25}, {u"dd/mm/yyyy", u"2026-06-12", 2026, 6, 12},
        {u"dd mmm yyyy", u"06/12/2026", 2026, 6, 12}, {u"dd/mm/yyyy", u"6 Dec 2026", 2026, 12, 6}};
    for (const auto &c : cases) {
        state().settings.gDateShort = u"mm/dd/yyyy"_s;
        state().settings.gDateDisplay = QString::fromUtf16(c.display);
        EXPECT_EQ(basic::DateSerial(c.year, c.month, c.day), typedDate(QString::fromUtf16(c.text)))
            << qPrintable(state().settings.gDateDisplay) << ' ' << qPrintable(QString::fromUtf16(c.text));
    }
    for (const auto &none : {u""_s, u"soon"_s, u"10:30"_s, u"31/31/2026"_s})
        EXPECT_FALSE(typedDate(none)) << qPrintable(none);
    EXPECT_EQ(u"09:30 am"_s, typedTime(u"9:30"_s).toLower());
    EXPECT_EQ(u"All Day"_s, typedTime(u"All Day"_s));
}
