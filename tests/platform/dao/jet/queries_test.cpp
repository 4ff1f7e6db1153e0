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
    const QList<QStringList> queries = readTable(u"queries.tsv"_s);
    ASSERT_GT(queries.size(), 200);
    for (const QStringList &row : queries) {
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
