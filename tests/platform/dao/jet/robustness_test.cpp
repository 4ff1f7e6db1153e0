#include "platform/dao/jet/jetstore.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using namespace vorel::dao;

namespace {

const QStringList fragments = {u"'"_s, u"\""_s, u"#"_s, u"["_s, u"]"_s, u"("_s, u")"_s, u","_s, u" AND "_s, u" NOT "_s,
                               u"="_s, u"1E999"_s, u"-"_s, u"NULL"_s, u"*"_s, u";"_s, u" UNION "_s, u"SELECT "_s,
                               u"#13/45/20#"_s, u" BETWEEN "_s, u" IN ("_s, u" LIKE "_s, u"99999999999999999999"_s, u"&"_s,
                               u"COUNT("_s, u"FORMAT("_s, u"&HFFFFFFFFFFFFFFFFFF"_s, u" TOP 3 "_s, QString(QChar(0)),
                               QString(QChar(0xd800)), u"é"_s, u" ORDER BY 99 "_s, u" AS "_s, u"True"_s, u".5"_s,
                               u" OR Mid([ID],[ID])>0"_s, u"DateAdd('m',1,[DATE])"_s, u"IIf([ID]>1,[DATE],1)"_s, u"CCur([ID])/"_s,
                               u"Val([TITLE])"_s, u"Switch([ID],1,"_s, u"(SELECT MAX([ID]) FROM "_s, u" INNER JOIN "_s};

// Each column is twice the one before.
QString doublings()
{
    QString columns;
    for (int i = 1; i < 60; ++i)
        columns += u",a%1+a%1 AS a%2"_s.arg(i - 1).arg(i);
    return columns;
}

QString mutated(QString text, QRandomGenerator &random)
{
    for (int edits = random.bounded(1, 3); edits > 0; --edits) {
        const qsizetype at = random.bounded(static_cast<int>(text.size()) + 1);
        switch (random.bounded(4)) {
        case 0:
            text.remove(at, random.bounded(1, 12));
            break;
        case 1:
            text.insert(at, text.mid(random.bounded(static_cast<int>(text.size()) + 1), random.bounded(1, 30)));
            break;
        case 2:
            text.truncate(at);
            break;
        default:
            text.insert(at, fragments[random.bounded(fragments.size())]);
        }
    }
    return text;
}

}

// Whatever the text: a statement that SQLite takes, or the engine's own error.
TEST(Robustness, AnyTextTranslatesOrIsRefused)
{
    const auto stores = designedStores();
    const QList<QStringList> queries = readTable(u"queries.tsv"_s);
    QRandomGenerator random(20240229);
    int accepted = 0;
    int refused = 0;
    for (int round = 0; round < 4000; ++round) {
        const QStringList &row = queries[random.bounded(queries.size())];
        const QString text = mutated(row[1], random);
        JetStore &store = *stores[row[0]];
        store.raw("SAVEPOINT s");
        try {
            const jet::Translation translation = store.translated(text);
            if (!translation.sql.isEmpty())
                store.raw(translation.sql);
            ++accepted;
        } catch (const EngineError &) {
            ++refused;
        } catch (const std::exception &error) {
            ADD_FAILURE() << text.toStdString() << "\n" << error.what();
        }
        store.raw("ROLLBACK TO s");
        store.raw("RELEASE s");
    }
    EXPECT_GT(accepted, 100);
    EXPECT_GT(refused, 1000);
}

TEST(Robustness, DeepTextsAreRefusedNotCrashedOn)
{
    JetStore store;
    store.add(u"T"_s, u"ID auto"_s);
    const QString deep = u"SELECT * FROM T WHERE "_s + QString(20000, u'(') + u"1"_s + QString(20000, u')');
    const QString chain = u"SELECT * FROM T WHERE ID=1"_s + u" OR ID=1"_s.repeated(20000);
    const QString nots = u"SELECT * FROM T WHERE "_s + u"NOT "_s.repeated(20000) + u"True"_s;
    const QString selects = u"SELECT * FROM (SELECT * FROM "_s.repeated(5000);
    for (const QString &text : {deep, chain, nots, u"SELECT * FROM T WHERE "_s + QString(20000, u'-') + u'1',
                                u"SELECT * FROM "_s + QString(20000, u'('), selects,
                                u"SELECT ID"_s + u"&ID"_s.repeated(200) + u" FROM T"_s, u"SELECT *"_s + u",*"_s.repeated(3000) + u" FROM T"_s,
                                u"SELECT ID FROM T"_s + u" UNION SELECT ID FROM T"_s.repeated(600),
                                u"SELECT 1 AS a0"_s + doublings() + u" FROM T"_s})
        EXPECT_NE(store.failure(text), QString());
    EXPECT_EQ(store.failure(u"SELECT * FROM T WHERE ID=1"_s + u" OR ID=1"_s.repeated(200)), QString());
}

TEST(Robustness, NestedOperatorsStaySmall)
{
    JetStore store;
    store.add(u"T"_s, u"ID auto, A long"_s);
    store.raw("INSERT INTO T VALUES (1,5)");
    for (const auto &[op, value] : {std::pair{u" Xor "_s, u"5"_s}, std::pair{u" Eqv "_s, u"5"_s}, std::pair{u" Imp "_s, u"7"_s}}) {
        QString nested = u"[A]"_s;
        for (int i = 0; i < 18; ++i)
            nested = u"("_s + nested + op + u"3)"_s;
        const QString query = u"SELECT "_s + nested + u" FROM T"_s;
        EXPECT_LT(store.translated(query).sql.size(), 3000) << op.toStdString();
        EXPECT_EQ(store.run(query), JetStore::Rows{{value}}) << op.toStdString();
    }
}

// SQLite would end the statement at the zero, and take two signs for a comment.
TEST(Robustness, NothingCutsTheStatement)
{
    JetStore store;
    store.add(u"T"_s, u"ID auto, A long, C currency, D date"_s);
    store.raw("INSERT INTO T VALUES (1,5,15000,'2024-02-29 00:00:00')");
    for (const auto &[expression, value] : {std::pair{"[A]--2", "7"}, std::pair{"[A]-(-2)", "7"}, std::pair{"[A]- -2", "7"},
                                            std::pair{"[C]--2", "35000"}, std::pair{"[D]--1", "2024-03-01 00:00:00"},
                                            std::pair{"--[A]", "5"}, std::pair{"- - -2", "-2"}, std::pair{"1---1", "0"}})
        EXPECT_EQ(store.run(u"SELECT %1 FROM T WHERE [A]=5"_s.arg(QLatin1String(expression))), (JetStore::Rows{{QString::fromLatin1(value)}})) << expression;
    const QString zero = QString(QChar(0));
    for (const QString &query : {u"SELECT * FROM T AS [a%1]"_s, u"SELECT [A] AS [a%1b] FROM T"_s, u"CREATE TABLE [N%1] ([A] TEXT)"_s,
                                 u"UPDATE T SET [A%1]=1"_s})
        EXPECT_NE(store.failure(query.arg(zero)), QString()) << query.toStdString();
}

TEST(Robustness, ADamagedDateFailsNoQuery)
{
    JetStore store;
    store.add(u"T"_s, u"ID auto, Day date"_s);
    store.raw("INSERT INTO T VALUES (1,'2024-02-29 00:00:00'),(2,'rubbish'),(3,''),(4,x'00ff'),(5,'2024-13-45 00:00:00'),(6,7),(7,'2024-02-30 00:00:00'),(8,'2024-02-29X00:00:00'),(9,'2024-02-29 77:00:00')");
    for (const auto *query : {"SELECT ID FROM T WHERE Month([Day])=2", "SELECT ID FROM T WHERE DateSerial(2024,Month([Day]),Day([Day]))=[Day]",
                              "SELECT ID FROM T WHERE Format([Day]+1,'d')='1'", "SELECT ID FROM T WHERE DateDiff('d',[Day],#3/1/2024#)=1"})
        EXPECT_EQ(store.run(QLatin1String(query)), (JetStore::Rows{{u"1"_s}})) << query;
}
