#include "fuzzing.h"

#include "platform/dao/ddl.h"
#include "platform/dao/jet/translator.h"
#include "platform/dao/schema.h"
#include "store/designs.h"

#include <sqlcipher/sqlite3.h>

// Lines: a query, a sort, a filter, criteria. What the translator accepts the store must take.
using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

struct Store {
    sqlite3 *handle = nullptr;
    std::unique_ptr<dao::StoredSchema> schema;
    Store()
    {
        sqlite3_open(":memory:", &handle);
        dao::jet::registerFunctions(handle);
        for (const auto *designs : {&store::mainDesigns(), &store::contactsDesigns()}) {
            for (const dao::TableDef &design : *designs)
                fill(design);
        }
        schema = std::make_unique<dao::StoredSchema>(handle);
        sqlite3_progress_handler(handle, 200'000, [](void *) { return 1; }, nullptr);
    }
    void fill(const dao::TableDef &design) const
    {
        exec(dao::ddl::createTable(design));
        for (const char *text : {"NULL", "'a B'", "'2024-02-29 13:00:00'", "'12.5 x'"}) {
            QByteArray values;
            for (const dao::FieldDef &field : design.Fields) {
                const bool holdsText = field.Type == dao::dbText || field.Type == dao::dbMemo || field.Type == dao::dbDate;
                values += holdsText ? QByteArray(text) : field.Attributes ? QByteArray("NULL") : QByteArray::number(values.size());
                values += ',';
            }
            values.chop(1);
            exec("INSERT OR IGNORE INTO \"" + design.Name.toUtf8() + "\" VALUES (" + values + ')');
        }
    }
    void exec(const QByteArray &sql) const { sqlite3_exec(handle, sql.constData(), nullptr, nullptr, nullptr); }

    void run(const QByteArray &sql, bool step) const
    {
        if (sql.isEmpty())
            return;
        sqlite3_stmt *statement = nullptr;
        const int code = sqlite3_prepare_v2(handle, sql.constData(), static_cast<int>(sql.size()) + 1, &statement, nullptr);
        require(code == SQLITE_OK, QString::fromUtf8(sqlite3_errmsg(handle)) + u" in "_s + QString::fromUtf8(sql));
        for (int i = 0; step && i < 200 && sqlite3_step(statement) == SQLITE_ROW;)
            ++i;
        sqlite3_finalize(statement);
    }
    static void require(bool holds, const QString &text)
    {
        // Limits of the store's own, which no query of a sane size meets.
        for (const auto *limit : {"too many", "too large", "stack overflow", "too big", "at most 64 tables", "too much data"}) {
            if (text.left(80).contains(QLatin1String(limit)))
                return;
        }
        fuzz::require(holds, text);
    }
};

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Store store;
    const fuzz::Input input(data, size, 4);
    const QStringList &lines = input.lines;
    fuzz::setRegion(input.choice);
    store.exec("SAVEPOINT s");
    fuzz::guarded([&] {
        const auto translated = dao::jet::translate(lines[0], *store.schema);
        store.run(translated.sql, true);
        for (const QByteArray &part : {translated.keySql, translated.sortSql, translated.rangeSql, translated.wantedRangeSql})
            store.run(part, translated.kind == dao::jet::StatementKind::Select);
        store.run(translated.rowSql, false);
    });
    if (lines[1].size() + lines[2].size() > 0)
        fuzz::guarded([&] { store.run(dao::jet::translate(lines[0], *store.schema, {lines[1], lines[2]}).sql, true); });
    if (!lines[3].isEmpty())
        fuzz::guarded([&] { store.run(dao::jet::translateCriteria(lines[0], lines[3], *store.schema), true); });
    store.exec("ROLLBACK TO s");
    store.exec("RELEASE s");
    return 0;
}
