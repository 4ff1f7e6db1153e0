#pragma once

#include <QString>
#include <sqlcipher/sqlite3.h>
#include <string_view>

// What the SQL functions share. Included by their sources only.
namespace vorel::dao::jet {

// Ends the statement with a message that throwFunctionError understands.
void fail(sqlite3_context *context, int number);
void fail(sqlite3_context *context, int number, const QString &text);

std::string_view utf8Of(sqlite3_value *value);
QString textOf(sqlite3_value *value);
void resultText(sqlite3_context *context, const QString &text);
void resultStored(sqlite3_context *context, double serial);     // a date; 3175 out of range

// Thrown by a function that meets an invalid stored date: its result is Null, so that one damaged row does not
// fail the query.
struct UnreadableDate {};

// A function of which no argument may be Null, else its result is.
using Body = void (*)(sqlite3_context *, sqlite3_value **, int count);
struct SqlFunction {
    const char *name;
    int arguments;      // -1: any number
    Body body;
    bool takesNull = false;
};

void registerTable(sqlite3 *connection, const SqlFunction *functions, size_t count);
void registerTextFunctions(sqlite3 *connection);
void registerNumberFunctions(sqlite3 *connection);
void registerDateFunctions(sqlite3 *connection);
void registerConversions(sqlite3 *connection);

}
