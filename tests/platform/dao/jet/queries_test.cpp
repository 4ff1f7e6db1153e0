#include "platform/dao/jet/jetstore.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel::dao;
using namespace vorel::dao::jet;

namespace {

StatementKind kindOf(const QString &word)
{
    static const QHash<QString, StatementKind> kinds = {
        {u"select"_s, StatementKind::Select}, {u"insert"_s, StatementKind::Insert}, {u"update"_s, StatementKind::Update},
        {u"delete"_s, StatementKind::Delete}, {u"create"_s, StatementKind::CreateTable}};
    return kinds.value(word);
}

// The key statement's rows, each fetched by its key, are the statement's rows; a range gives the same rows by key.
void expectKeyed(JetStore &store, const Translation &translation)
{
    const JetStore::Rows whole = store.raw(translation.sql);
    JetStore::Rows byKey;
    const JetStore::Rows keys = store.raw(translation.keySql);
    for (const QStringList &key : keys) {
        const JetStore::Rows row = store.raw(translation.rowSql, {key[0].toLongLong()});
        ASSERT_EQ(row.size(), 1);
        byKey << row[0];
    }
    EXPECT_EQ(byKey, whole);
    for (const QStringList &row : store.raw(translation.rangeSql, {1, 1000000})) {
        const qsizetype place = keys.indexOf(QStringList{row[0]});
        if (place >= 0) {
            EXPECT_EQ(row.mid(1), whole[place]);
        }
    }
}

}

TEST(Queries, EveryQueryOfTheProgramRuns)
{
    const auto stores = designedStores();
    const DataFile queries = readTable(u"queries.tsv"_s);
    ASSERT_GT(queries.rows.size(), 200);
    for (const QStringList &row : queries.rows) {
        QString query = row[1];
        query.replace(u"\\r\\n"_s, u"\r\n"_s);
        SCOPED_TRACE(query.toStdString());
        JetStore &store = *stores[row[0]];
        try {
            const Translation translation = store.translated(query);
            EXPECT_EQ(row[5], QString());
            EXPECT_EQ(translation.kind, kindOf(row[2]));
            EXPECT_EQ(translation.keyed, row[3] == u"keyed"_s);
            QStringList names;
            for (const OutputColumn &column : translation.columns)
                names << column.name;
            EXPECT_TRUE(row[4].isEmpty() || names.join(u',') == row[4]) << names.join(u',').toStdString();
            store.raw("SAVEPOINT s");
            if (translation.keyed)
                expectKeyed(store, translation);
            else if (translation.kind != StatementKind::CreateTable)
                store.raw(translation.sql);
            store.raw("ROLLBACK TO s");
            store.raw("RELEASE s");
        } catch (const EngineError &error) {
            EXPECT_EQ(QString::number(error.number()), row[5]) << error.what();
        } catch (const std::exception &error) {
            ADD_FAILURE() << error.what();
        }
    }
}

namespace {

struct Reminders : testing::Test {
    void SetUp() override
    {
        store.add(u"EVENTS"_s, u"ID auto, DATE date, SUBJECT text 25, EVENT text 250, Recurring boolean"_s);
        int id = 0;
        for (const auto &[date, subject, recurring] : {
                 std::tuple{"2024-02-10", "GENERAL", 0}, std::tuple{"1980-02-10", "Birthday", 0},
                 std::tuple{"1980-02-29", "BIRTHDAY ", 0}, std::tuple{"1990-02-15", "GENERAL", 0},
                 std::tuple{"1990-02-15", "GENERAL", -1}, std::tuple{"2030-02-10", "ANNIVERSARY", 0},
                 std::tuple{"2001-02-10", "HOLIDAY", 0}, std::tuple{"2001-03-01", "On This Day", 0}})
            store.raw(QByteArray("INSERT INTO EVENTS VALUES (") + QByteArray::number(++id) + ",'" + date + " 00:00:00','"
                      + subject + "','e'," + QByteArray::number(recurring) + ')');
    }
    QString ids(const QString &query)
    {
        QStringList found;
        for (const QStringList &row : store.run(query))
            found << row[0];
        found.sort();
        return found.join(u',');
    }
    static QString period(const QString &from, const QString &to, int year)
    {
        QString query = u"select * from EVENTS where [DATE] between #%1# and #%2#"_s;
        const QString rest = u" AND DATESERIAL( %3,MONTH([DATE]),DAY([DATE])) between #%1# and #%2#"_s;
        for (const auto *subject : {"ANNIVERSARY", "BIRTHDAY", "ON THIS DAY"})
            query += u" OR [DATE]<#%1# AND [SUBJECT]='"_s + QLatin1String(subject) + u'\'' + rest;
        query += u" OR [DATE]<#%1# AND [RECURRING]=True"_s + rest + u" ORDER BY [Date],[Subject],[Event]"_s;
        return query.arg(from, to).arg(year);
    }
    JetStore store;
};

}

TEST_F(Reminders, PeriodTakesRepeatingRowsFromBeforeItOnly)
{
    // 29 February falls on 1 March where the year has none.
    EXPECT_EQ(ids(period(u"02/01/2024"_s, u"02/29/2024"_s, 2024)), u"1,2,3,5"_s);
    EXPECT_EQ(ids(period(u"02/01/2025"_s, u"02/28/2025"_s, 2025)), u"2,5"_s);
    EXPECT_EQ(ids(period(u"03/01/2025"_s, u"03/31/2025"_s, 2025)), u"3,8"_s);
    // One year counts, that of the start.
    EXPECT_EQ(ids(period(u"12/30/2024"_s, u"03/05/2025"_s, 2024)), u""_s);
}

TEST_F(Reminders, DayTakesRepeatingRowsOfAnyYear)
{
    QString query = u"select * from EVENTS where [DATE]=#02/10/2024#"_s;
    for (const auto *subject : {"ANNIVERSARY", "BIRTHDAY", "ON THIS DAY", "HOLIDAY"})
        query += u" OR [SUBJECT]='"_s + QLatin1String(subject) + u"' AND month([DATE]) = 2 AND day([DATE]) = 10"_s;
    query += u" OR [RECURRING]=True AND month([DATE]) = 2 AND day([DATE]) = 10 ORDER BY [DATE],[SUBJECT],[EVENT]"_s;
    EXPECT_EQ(ids(query), u"1,2,6,7"_s);
}

TEST(Queries, PlusDropsALineWithItsLabelAndAmpersandKeepsTheLineEnd)
{
    JetStore store;
    store.add(u"C"_s, u"ID auto, Home text 20, Work text 20, Pager text 20"_s);
    store.raw("INSERT INTO C VALUES (1,'11','22','33'),(2,NULL,'22',NULL),(3,'11','','33')");
    const QString query = u"SELECT 'Home: '+ [Home] & '\r\n''Work: ' + [Work] & '\r\n''Pager: '+ [Pager] & '\r\n' AS P FROM C"_s;
    const JetStore::Rows expected = {{u"Home: 11\r\n'Work: 22\r\n'Pager: 33\r\n"_s},
                                     {u"\r\n'Work: 22\r\n"_s}, {u"Home: 11\r\n'Work: \r\n'Pager: 33\r\n"_s}};
    EXPECT_EQ(store.run(query), expected);
}
