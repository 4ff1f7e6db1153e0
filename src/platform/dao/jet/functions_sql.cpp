#include "platform/dao/jet/functions_sql.h"

#include "platform/dao/jet/collation.h"
#include "platform/basic/storedtime.h"
#include "platform/dao/jet/translator.h"

#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace vorel::dao::jet {

namespace {

constexpr char failureMark[] = "\x01jet ";

int collate(void *, int lengthA, const void *a, int lengthB, const void *b)
{
    return compareText({static_cast<const char *>(a), static_cast<size_t>(lengthA)},
                       {static_cast<const char *>(b), static_cast<size_t>(lengthB)});
}

// No exception may pass through SQLite's C frames.
void dispatch(sqlite3_context *context, int count, sqlite3_value **values)
{
    const auto *function = static_cast<const SqlFunction *>(sqlite3_user_data(context));
    if (!function->takesNull) {
        for (int i = 0; i < count; ++i) {
            if (sqlite3_value_type(values[i]) == SQLITE_NULL)
                return;
        }
    }
    try {
        function->body(context, values, count);
    } catch (UnreadableDate) {
        sqlite3_result_null(context);
    } catch (const basic::Error &error) {
        if (error.number() == 13)
            fail(context, err::CriteriaMismatch);
        else
            fail(context, error.number(), error.text());
    } catch (const std::exception &) {
        sqlite3_result_error_nomem(context);
    }
}

struct Kept {
    sqlite3_value *value;
    bool started;
};

void keepValue(sqlite3_context *context, sqlite3_value *value, bool replace)
{
    auto *kept = static_cast<Kept *>(sqlite3_aggregate_context(context, sizeof(Kept)));
    if (!kept || (kept->started && !replace))
        return;
    sqlite3_value_free(kept->value);
    kept->value = sqlite3_value_dup(value);
    kept->started = true;
}

void stepFirst(sqlite3_context *context, int, sqlite3_value **values)
{
    keepValue(context, values[0], false);
}

void stepLast(sqlite3_context *context, int, sqlite3_value **values)
{
    keepValue(context, values[0], true);
}

void finishKept(sqlite3_context *context)
{
    auto *kept = static_cast<Kept *>(sqlite3_aggregate_context(context, 0));
    if (!kept || !kept->value)
        return;
    sqlite3_result_value(context, kept->value);
    sqlite3_value_free(kept->value);
}

}

void fail(sqlite3_context *context, int number, const QString &text)
{
    const QByteArray message = failureMark + QByteArray::number(number) + ' ' + text.toUtf8();
    sqlite3_result_error(context, message.constData(), static_cast<int>(message.size()));
}

void fail(sqlite3_context *context, int number)
{
    fail(context, number, EngineError(number).text());
}

void throwFunctionError(const char *sqliteMessage)
{
    constexpr size_t markLength = sizeof failureMark - 1;
    if (!sqliteMessage || std::strncmp(sqliteMessage, failureMark, markLength) != 0)
        return;
    const QString rest = QString::fromUtf8(sqliteMessage + markLength);
    const qsizetype blank = rest.indexOf(u' ');
    throw EngineError(rest.left(blank).toInt(), rest.mid(blank + 1), nullptr);
}

std::string_view utf8Of(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return text ? std::string_view(text, static_cast<size_t>(sqlite3_value_bytes(value))) : std::string_view();
}

QString textOf(sqlite3_value *value)
{
    const std::string_view text = utf8Of(value);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

void resultText(sqlite3_context *context, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_text(context, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

void resultStored(sqlite3_context *context, double serial)
{
    basic::StoredTime time;
    if (!basic::fromSerial(serial, time)) {
        fail(context, err::DateOutOfRange);
        return;
    }
    const auto stored = basic::writeStored(time);
    sqlite3_result_text(context, stored.data(), static_cast<int>(stored.size()), SQLITE_TRANSIENT);
}

void registerTable(sqlite3 *connection, const SqlFunction *functions, size_t count)
{
    for (const SqlFunction *function = functions; function != functions + count; ++function)
        sqlite3_create_function_v2(connection, function->name, function->arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                   const_cast<SqlFunction *>(function), dispatch, nullptr, nullptr, nullptr);
}

void registerFunctions(sqlite3 *connection)
{
    sqlite3_create_collation_v2(connection, "JET", SQLITE_UTF8, nullptr, collate, nullptr);
    registerTextFunctions(connection);
    registerNumberFunctions(connection);
    registerDateFunctions(connection);
    registerConversions(connection);
    for (const auto &[name, step] : {std::pair{"j_first", &stepFirst}, std::pair{"j_last", &stepLast}})
        sqlite3_create_function_v2(connection, name, 1, SQLITE_UTF8, nullptr, nullptr, step, finishKept, nullptr);
}

}
