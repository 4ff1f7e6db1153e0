#include "platform/dao/jet/jetstore.h"

#include "platform/basic/locale.h"
#include "support/table.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel;
using namespace vorel::dao;
using namespace vorel::dao::jet;

namespace {

struct Statements : testing::Test {
    void SetUp() override
    {
        basic::setRegional(basic::regionalFor(u"en_AU"_s));
        store.add(u"Item"_s, u"ID auto, Name text 20, Kind text 20, Cost currency, Made date, Sold boolean, Weight double, Stock integer"_s);
        store.add(u"Kind"_s, u"Kind text 20, Label text 20"_s);
        store.raw("INSERT INTO Item VALUES (1,'Tea','food',1000,'2024-01-01 00:00:00',0,1.5,3),(2,'tea ','FOOD',1000,NULL,-1,2.5,4),"
                  "(3,'Axe',NULL,2500,'2024-03-01 00:00:00',-1,NULL,5),(4,NULL,'tool',NULL,'2024-02-01 00:00:00',0,0,6)");
        store.raw("INSERT INTO Kind VALUES ('Food','Eat'),('Toy','Play')");
    }
    QString run(const QString &query)
    {
        QStringList lines;
        for (const QStringList &row : store.run(query))
            lines << row.join(u',');
        return lines.join(u'|');
    }
    QString names(const QString &query)
    {
        QStringList result;
        for (const OutputColumn &column : store.translated(query).columns)
            result << column.name + u':' + QString::number(column.type);
        return result.join(u' ');
    }
    JetStore store;
};

}

TEST_F(Statements, EachGivesItsRows)
{
    for (const char *table : {"OrderAndDuplicates", "Aggregates", "Joins"}) {
        test::forEachRow("statements", table, [this](const test::Row &row) { EXPECT_EQ(run(row["query"]), row["expected"]); });
    }
}

TEST_F(Statements, NamesAndTypesOfColumns)
{
    test::forEachRow("statements", "Columns", [this](const test::Row &row) { EXPECT_EQ(names(row["query"]), row["expected"]); });
}

TEST_F(Statements, KeyedSelects)
{
    test::forEachRow("statements", "Keyed", [this](const test::Row &row) {
        const Translation t = store.translated(row["query"]);
        EXPECT_EQ(t.keyed, row.flag("keyed"));
        EXPECT_EQ(t.keyTable, row.flag("keyed") ? u"Item"_s : QString());
    });
    const Translation t = store.translated(u"SELECT TOP 2 Name, ID FROM Item WHERE Sold=False OR Cost>0.2 ORDER BY Name DESC, ID"_s);
    EXPECT_EQ(store.raw(t.keySql), (JetStore::Rows{{u"1"_s}, {u"3"_s}}));
    EXPECT_EQ(store.raw(t.rowSql, {3}), (JetStore::Rows{{u"Axe"_s, u"3"_s}}));
    EXPECT_EQ(store.raw(t.rangeSql, {2, 3}), (JetStore::Rows{{u"2"_s, u"tea "_s, u"2"_s}, {u"3"_s, u"Axe"_s, u"3"_s}}));
}

// Dates and keys are compared as stored, so that an index serves: no function, no collation on the column.
TEST_F(Statements, IndexesServe)
{
    store.raw("CREATE INDEX made ON Item (Made)");
    store.raw("CREATE INDEX name ON Item (Name COLLATE JET)");
    for (const char *query : {"SELECT * FROM Item WHERE Made BETWEEN #2/1/2024# AND #1/1/2024# ORDER BY Made",
                              "SELECT * FROM Item WHERE Made=#2/1/2024#", "SELECT * FROM Item WHERE Name='tea'",
                              "SELECT * FROM Item WHERE ID=3", "SELECT MIN(Made) FROM Item",
                              "SELECT ID FROM Item WHERE Made=Date() OR Name='x' AND Month(Made)=2"}) {
        const Translation t = store.translated(QString::fromUtf8(query));
        const QString plan = store.raw("EXPLAIN QUERY PLAN " + t.sql)[0][3];
        EXPECT_TRUE(plan.startsWith(u"SEARCH"_s)) << query << "\n" << plan.toStdString();
        EXPECT_EQ(store.raw("EXPLAIN QUERY PLAN " + t.sql).size(), QByteArray(query).contains(" OR ") ? 2 : 1) << query;
    }
    const Translation repeating = store.translated(
        u"SELECT * FROM Item WHERE Made=#2/1/2024# OR Made<#2/1/2024# AND Month(Made)=2"_s);
    EXPECT_EQ(store.raw("EXPLAIN QUERY PLAN " + repeating.sql), (JetStore::Rows{{u"0"_s, u"0"_s, u"0"_s, u"SCAN TABLE Item"_s}}));
    const Translation sorted = store.translated(u"SELECT * FROM Item ORDER BY Name"_s);
    EXPECT_EQ(store.raw("EXPLAIN QUERY PLAN " + sorted.keySql).size(), 1);
}

// The rows of a query, or how many rows a statement changed.
TEST_F(Statements, ChangesConvertToTheColumn)
{
    test::forEachRow("statements", "Changes", [this](const test::Row &row) {
        const QString rows = run(row["statement"]);
        EXPECT_EQ(row["statement"].startsWith(u"SELECT"_s) ? rows : QString::number(store.changes()), row["expected"]);
    });
}

TEST_F(Statements, Refinements)
{
    test::forEachRow("statements", "Refinements", [this](const test::Row &wanted) {
        const Translation t = translate(wanted["query"], store, {wanted["sort"], wanted["filter"]});
        QStringList found;
        for (const QStringList &row : store.raw(t.sql))
            found << row[0];
        EXPECT_EQ(found.join(u'|'), wanted["expected"]);
        EXPECT_EQ(t.keyed, store.translated(wanted["query"]).keyed && !wanted["query"].contains(u"TOP"_s));
    });
    EXPECT_THROW(translate(u"Item", store, {u"Nope"_s, {}}), EngineError);
    EXPECT_THROW(translate(u"Item", store, {{}, u"Name='"_s}), EngineError);
    EXPECT_THROW(translate(u"DELETE * FROM Item", store, {{}, u"ID=1"_s}), EngineError);
}

TEST_F(Statements, Criteria)
{
    test::forEachRow("statements", "Criteria", [this](const test::Row &wanted) {
        QStringList keys;
        for (const QStringList &row : store.raw(translateCriteria(wanted["query"], wanted["criteria"], store)))
            keys << row[0];
        keys.sort();
        EXPECT_EQ(keys.join(u','), wanted["expected"]);
    });
    EXPECT_THROW(translateCriteria(u"SELECT DISTINCT Name FROM Item", u"Name='x'", store), EngineError);
}

TEST_F(Statements, DataDefinition)
{
    const Translation made = store.translated(
        u"CREATE TABLE [New One] (ID COUNTER, A TEXT(30), B MEMO, C INTEGER, D SHORT, E CURRENCY, F DATETIME, G YESNO, H DOUBLE,"
        u" I SINGLE, J BYTE, K LONG, L TEXT CONSTRAINT own UNIQUE, CONSTRAINT pk PRIMARY KEY (ID, A))"_s);
    QStringList types;
    for (const ColumnDesign &column : made.created.columns)
        types << column.name + QString::number(column.type) + u'/' + QString::number(column.size);
    EXPECT_EQ(types.join(u' '), u"ID4/0 A10/30 B12/0 C4/0 D3/0 E5/0 F8/0 G1/0 H7/0 I6/0 J2/0 K4/0 L10/255"_s);
    EXPECT_TRUE(made.created.columns[0].autoIncrement);
    ASSERT_EQ(made.constraints.size(), 2u);
    EXPECT_EQ(made.constraints[0].name, u"own"_s);
    EXPECT_TRUE(made.constraints[1].primary);
    EXPECT_EQ(made.constraints[1].fields.size(), 2u);

    const Translation index = store.translated(u"CREATE UNIQUE INDEX ix ON Item (Name, Cost DESC) WITH DISALLOW NULL;"_s);
    EXPECT_TRUE(index.index.unique && index.index.disallowNull && !index.index.primary);
    EXPECT_TRUE(index.index.fields[1].second);

    EXPECT_EQ(store.translated(u"ALTER TABLE Item ADD COLUMN Note MEMO, [Due On] DATETIME"_s).created.columns.size(), 2u);
}
