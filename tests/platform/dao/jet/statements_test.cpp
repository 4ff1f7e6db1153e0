#include "platform/dao/jet/jetstore.h"

#include "platform/basic/locale.h"

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
    QString run(const char *query)
    {
        QStringList lines;
        for (const QStringList &row : store.run(QString::fromUtf8(query)))
            lines << row.join(u',');
        return lines.join(u'|');
    }
    void check(std::initializer_list<std::pair<const char *, const char *>> cases)
    {
        for (const auto &[query, expected] : cases) {
            try {
                EXPECT_EQ(run(query).toStdString(), expected) << query;
            } catch (const std::exception &error) {
                ADD_FAILURE() << query << "\n" << error.what();
            }
        }
    }
    QString names(const char *query)
    {
        QStringList result;
        for (const OutputColumn &column : store.translated(QString::fromUtf8(query)).columns)
            result << column.name + u':' + QString::number(column.type);
        return result.join(u' ');
    }
    JetStore store;
};

}

TEST_F(Statements, OrderAndDuplicates)
{
    check({{"SELECT ID FROM Item ORDER BY Name, ID DESC", "4|3|2|1"}, {"SELECT ID FROM Item ORDER BY Name DESC, ID", "1|2|3|4"},
           {"SELECT ID FROM Item ORDER BY Made", "2|1|4|3"}, {"SELECT ID FROM Item ORDER BY Sold, ID", "2|3|1|4"},
           {"SELECT Name, ID FROM Item ORDER BY 2 DESC", "<null>,4|Axe,3|tea ,2|Tea,1"}, {"SELECT TOP 2 ID FROM Item ORDER BY ID DESC", "4|3"},
           {"SELECT TOP 50 PERCENT ID FROM Item ORDER BY ID", "1|2"}, {"SELECT COUNT(*) FROM (SELECT DISTINCT Kind FROM Item)", "3"},
           {"SELECT DISTINCT(Sold) FROM Item", "-1|0"}, {"SELECT UCase(Kind), COUNT(*) FROM Item GROUP BY UCase(Kind)", "<null>,1|FOOD,2|TOOL,1"},
           {"SELECT Sold, SUM(Stock) FROM Item GROUP BY Sold HAVING SUM(Stock)>8 ORDER BY Sold DESC", "0,9|-1,9"},
           {"SELECT Label FROM Kind UNION SELECT 'aa' FROM Kind", "aa|Eat|Play"}, {"SELECT COUNT(*) FROM (SELECT Label FROM Kind UNION SELECT 'EAT ' FROM Kind)", "2"},
           {"SELECT Label FROM Kind UNION SELECT 'aa' FROM Kind ORDER BY Label DESC", "Play|Eat|aa"},
           {"SELECT ID FROM Item WHERE ID<3 UNION ALL SELECT Stock FROM Item WHERE ID=1", "1|2|3"},
           {"SELECT Cost FROM Item WHERE ID=3 UNION SELECT 7 FROM Kind", "2500|70000"},
           {"SELECT COUNT(*) FROM Item WHERE Name='TEA'", "2"}, {"SELECT ID FROM Item WHERE Kind<>'food'", "4"}});
}

TEST_F(Statements, Aggregates)
{
    check({{"SELECT COUNT(*), COUNT(Name), COUNT(Cost) FROM Item", "4,3,3"}, {"SELECT SUM(Cost) FROM Item", "4500"},
           {"SELECT SUM(Cost)*-1, AVG(Cost) FROM Item", "-4500,1500"}, {"SELECT AVG(Weight), MAX(Weight) FROM Item", "1.33333333333333,2.5"},
           {"SELECT MIN(Name), MAX(Made), MIN(Cost) FROM Item", "Axe,2024-03-01 00:00:00,1000"},
           {"SELECT FIRST(Name), LAST(Name) FROM Item", "Tea,<null>"}, {"SELECT SUM(Cost), COUNT(*), MIN(Name) FROM Item WHERE ID>9", "<null>,0,<null>"},
           {"SELECT SUM(Cost*Stock)-0.1 FROM Item WHERE ID<3", "6000"}, {"SELECT SUM(Sold) FROM Item", "-2"}, {"SELECT Kind FROM Item WHERE ID>9 GROUP BY Kind", ""},
           {"SELECT AVG(Cost) FROM Item WHERE ID=9", "<null>"}});
}

TEST_F(Statements, Joins)
{
    check({{"SELECT Item.ID, Label FROM Item INNER JOIN Kind ON Item.Kind = Kind.Kind ORDER BY Item.ID", "1,Eat|2,Eat"},
           {"SELECT i.ID, k.Label FROM Item AS i LEFT JOIN Kind k ON i.Kind = k.Kind ORDER BY i.ID", "1,Eat|2,Eat|3,<null>|4,<null>"},
           {"SELECT Item.ID, Label FROM Item RIGHT JOIN Kind ON Item.Kind = Kind.Kind ORDER BY Label, Item.ID", "1,Eat|2,Eat|<null>,Play"},
           {"SELECT a.ID FROM (Item AS a INNER JOIN Kind AS k ON a.Kind=k.Kind) INNER JOIN Item AS b ON a.ID=b.Stock-2 ORDER BY a.ID", "1|2"},
           {"SELECT a.ID FROM Item AS a, Kind AS k WHERE a.Kind=k.Kind AND a.Sold", "2"},
           {"SELECT ID FROM Item WHERE Kind IN (SELECT Kind FROM Kind) ORDER BY ID", "1|2"},
           {"SELECT ID FROM Item WHERE NOT EXISTS (SELECT * FROM Kind WHERE Kind.Kind=Item.Kind) ORDER BY ID", "3|4"},
           {"SELECT ID FROM Item WHERE Cost=(SELECT MAX(Cost) FROM Item)", "3"}, {"SELECT ID FROM Item WHERE Cost IN (SELECT 0.25 FROM Kind)", "3"},
           {"SELECT q.N FROM (SELECT Cost*2 AS N FROM Item WHERE ID=3) AS q WHERE q.N=0.5", "5000"}});
}

TEST_F(Statements, NamesAndTypesOfColumns)
{
    EXPECT_EQ(names("SELECT ID, 'v', 'V' FROM Item"), u"ID:4 Expr1001:10 Expr1002:10"_s);
    EXPECT_EQ(names("SELECT COUNT(*) FROM Item"), u"Expr1000:4"_s);
    EXPECT_EQ(names("SELECT DISTINCT(name), Item.KIND, sum(cost) AS [Sum of it] FROM Item GROUP BY name, Kind"),
              u"Name:10 Kind:10 Sum of it:5"_s);
    EXPECT_EQ(names("SELECT Item.Kind, Kind.Kind, k.Kind FROM Item, Kind, Kind AS k"), u"Item.Kind:10 Kind.Kind:10 k.Kind:10"_s);
    EXPECT_EQ(names("SELECT Cost*2, Made+1, Sold, ID>1, Weight/2, 1 AS a, a+1 AS b FROM Item"),
              u"Expr1000:5 Expr1001:8 Sold:1 Expr1003:1 Expr1004:7 a:4 b:4"_s);
    EXPECT_EQ(names("SELECT Null FROM Item UNION SELECT Made FROM Item"), u"Expr1000:8"_s);
    EXPECT_EQ(names("kind"), u"Kind:10 Label:10"_s);
    EXPECT_EQ(names("[Item]").left(12), u"ID:4 Name:10"_s);
}

TEST_F(Statements, KeyedSelects)
{
    struct Case { const char *query; bool keyed; };
    const Case cases[] = {{"Item", true}, {"SELECT ID, UCase(Name) FROM Item AS i WHERE i.Sold ORDER BY Name", true},
                          {"SELECT TOP 2 * FROM Item ORDER BY ID DESC", true}, {"SELECT DISTINCT Name FROM Item", false},
                          {"SELECT Kind FROM Item GROUP BY Kind", false}, {"SELECT COUNT(*) FROM Item", false},
                          {"SELECT ID FROM Item UNION SELECT ID FROM Item", false}, {"SELECT 1 AS a", false},
                          {"SELECT Item.ID FROM Item, Kind", false}, {"SELECT ID FROM (SELECT ID FROM Item)", false}};
    for (const Case &c : cases) {
        const Translation t = store.translated(QString::fromUtf8(c.query));
        EXPECT_EQ(t.keyed, c.keyed) << c.query;
        EXPECT_EQ(t.keyTable, c.keyed ? u"Item"_s : QString()) << c.query;
    }
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

TEST_F(Statements, ChangesConvertToTheColumn)
{
    run("INSERT INTO Item (Name, Cost, Made, Sold, Weight, Stock) VALUES (5, '2.50', '25/12/2003', 'True', '1.5', '2.5')");
    EXPECT_EQ(run("SELECT * FROM Item WHERE ID=5"), u"5,5,<null>,25000,2003-12-25 00:00:00,-1,1.5,2"_s);
    run("UPDATE Item SET Cost=Cost*1.1, Made=Made+1, Sold=Null, Weight=Cost, Stock=3.5, Name=Null WHERE ID=5");
    EXPECT_EQ(run("SELECT * FROM Item WHERE ID=5"), u"5,<null>,<null>,27500,2003-12-26 00:00:00,0,2.5,4"_s);
    run("INSERT INTO Item SELECT Name, Stock AS Cost, 37980 AS Made, 2 AS Sold FROM Item WHERE ID=1");
    EXPECT_EQ(run("SELECT * FROM Item WHERE ID=6"), u"6,Tea,<null>,30000,2003-12-25 00:00:00,-1,<null>,<null>"_s);
    run("INSERT INTO Kind VALUES ('a', 'b')");
    run("INSERT INTO Kind (Label, Kind) SELECT DISTINCT 'x', Kind FROM Item WHERE Kind='food'");
    EXPECT_EQ(run("SELECT * FROM Kind WHERE Label='x' OR Kind='a' ORDER BY Label").toLower(), u"a,b|food,x"_s);
    run("UPDATE Item SET Sold=True WHERE Made=#1/2/2024# OR Made=#1/1/2024#");
    EXPECT_EQ(store.changes(), 1);
    run("DELETE Item.* FROM Item WHERE Cost>=0.25");
    EXPECT_EQ(store.changes(), 3);
    run("DELETE FROM Item WHERE NOT (Kind='food')");
    EXPECT_EQ(run("SELECT ID FROM Item"), u"1|2"_s);
    run("DELETE * FROM Item;");
    EXPECT_EQ(run("SELECT COUNT(*) FROM Item"), u"0"_s);
}

TEST_F(Statements, Refinements)
{
    struct Case { const char *query; const char *sort; const char *filter; const char *expected; };
    const Case cases[] = {
        {"SELECT ID, Name FROM Item ORDER BY ID", "[Name] desc, [ID] DESC", "", "2|1|3|4"},
        {"SELECT ID, Name AS N FROM Item ORDER BY ID", "N, ID", "", "4|3|1|2"},
        {"SELECT ID FROM Item WHERE ID>1 OR Sold", "", "ID<4", "2|3"},
        {"SELECT ID, Name AS N FROM Item WHERE Sold=True ORDER BY ID DESC", "", "[N]='TEA'", "2"},
        {"SELECT TOP 2 ID FROM Item ORDER BY ID", "ID DESC", "", "2|1"},
        {"SELECT TOP 2 ID FROM Item ORDER BY ID", "", "ID>1", "2"},
        {"SELECT DISTINCT Sold FROM Item", "Sold DESC", "", "0|-1"},
        {"SELECT ID FROM Item WHERE ID<3 UNION SELECT Stock FROM Item", "[ID] DESC", "ID>1 AND ID<5", "4|3|2"},
        {"Item", "Weight DESC", "Weight>0", "2|1"}};
    for (const Case &c : cases) {
        const Translation t = translate(QString::fromUtf8(c.query), store, {QString::fromUtf8(c.sort), QString::fromUtf8(c.filter)});
        QStringList found;
        for (const QStringList &row : store.raw(t.sql))
            found << row[0];
        EXPECT_EQ(found.join(u'|').toStdString(), c.expected) << c.query << " / " << c.sort << " / " << c.filter;
        EXPECT_EQ(t.keyed, store.translated(QString::fromUtf8(c.query)).keyed && !QByteArray(c.query).contains("TOP"));
    }
    EXPECT_THROW(translate(u"Item", store, {u"Nope"_s, {}}), EngineError);
    EXPECT_THROW(translate(u"Item", store, {{}, u"Name='"_s}), EngineError);
    EXPECT_THROW(translate(u"DELETE * FROM Item", store, {{}, u"ID=1"_s}), EngineError);
}

TEST_F(Statements, Criteria)
{
    struct Case { const char *query; const char *criteria; const char *expected; };
    const Case cases[] = {
        {"SELECT * FROM Item WHERE Sold=True ORDER BY Name", "ID = 2", "2"}, {"Item", "[Name] = 'TEA'", "1,2"},
        {"Item", "Made = #2/1/2024#", "4"}, {"SELECT ID AS Key, Cost*2 AS Twice FROM Item", "Twice = 0.2 AND Key<>1", "2"},
        {"SELECT TOP 2 * FROM Item ORDER BY ID DESC", "Cost>0", "1,2,3"}, {"SELECT * FROM Item", "[Item].[ID]=3 OR ID = 4", "3,4"},
        {"Item", "ID=9", ""}};
    for (const Case &c : cases) {
        QStringList keys;
        for (const QStringList &row : store.raw(translateCriteria(QString::fromUtf8(c.query), QString::fromUtf8(c.criteria), store)))
            keys << row[0];
        keys.sort();
        EXPECT_EQ(keys.join(u',').toStdString(), c.expected) << c.query << " / " << c.criteria;
    }
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
