#include "platform/dao/jet/functions_sql.h"

#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "platform/basic/storedtime.h"
#include "platform/dao/jet/translator.h"

namespace vorel::dao::jet {

namespace {

// An SQL value of a field type as the runtime's value.
Value decode(sqlite3_value *value, int type)
{
    if (sqlite3_value_type(value) == SQLITE_NULL)
        return {};
    switch (type) {
    case dbBoolean:
        return sqlite3_value_int64(value) != 0;
    case dbByte:
    case dbInteger:
    case dbLong:
        return sqlite3_value_int(value);
    case dbCurrency:
        return basic::Currency::fromScaled(sqlite3_value_int64(value));
    case dbSingle:
        return static_cast<float>(sqlite3_value_double(value));
    case dbDouble:
        return sqlite3_value_double(value);
    case dbDate: {
        basic::StoredTime time;
        if (basic::readStored(utf8Of(value), time))
            return basic::dateTimeOf(time);
        break;
    }
    default:
        break;
    }
    return textOf(value);
}

Value decodeArgument(sqlite3_value **values)
{
    return decode(values[0], sqlite3_value_int(values[1]));
}

void toText(sqlite3_context *context, sqlite3_value **values, int)
{
    resultText(context, decodeArgument(values).text());
}

void cStr(sqlite3_context *context, sqlite3_value **values, int)
{
    resultText(context, basic::CStr(decodeArgument(values)));
}

void format(sqlite3_context *context, sqlite3_value **values, int count)
{
    const QString pattern = count > 2 ? textOf(values[2]) : QString();
    resultText(context, basic::Format(decodeArgument(values), pattern));
}

void isDate(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_int(context, basic::IsDate(decodeArgument(values)) ? -1 : 0);
}

void isNumeric(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_int(context, basic::IsNumeric(decodeArgument(values)) ? -1 : 0);
}

void cDate(sqlite3_context *context, sqlite3_value **values, int)
{
    resultStored(context, basic::CDate(textOf(values[0])).serial());
}

void readDate(sqlite3_context *context, sqlite3_value **values, int)
{
    const Value text = textOf(values[0]);
    if (basic::IsDate(text))
        resultStored(context, basic::CDate(text).serial());
}

void cDbl(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_double(context, basic::CDbl(textOf(values[0])));
}

void cCur(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_int64(context, basic::CCur(textOf(values[0])).scaled());
}

void cBool(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_int(context, basic::CBool(textOf(values[0])) ? -1 : 0);
}

void money(sqlite3_context *context, sqlite3_value **values, int)
{
    sqlite3_result_int64(context, basic::Currency::fromDouble(sqlite3_value_double(values[0])).scaled());
}

void val(sqlite3_context *context, sqlite3_value **values, int)
{
    const std::string_view text = utf8Of(values[0]);
    if (text.empty())
        sqlite3_result_double(context, 0);
    else
        sqlite3_result_double(context, basic::Val(textOf(values[0])));
}

void str(sqlite3_context *context, sqlite3_value **values, int)
{
    resultText(context, basic::Str(sqlite3_value_double(values[0])));
}

constexpr SqlFunction functions[] = {
    {"j_text", 2, toText}, {"j_cstr", 2, cStr}, {"j_format", -1, format, true}, {"j_isdate", 2, isDate, true},
    {"j_isnumeric", 2, isNumeric, true}, {"j_cdate", 1, cDate}, {"j_readdate", 1, readDate}, {"j_num", 1, cDbl}, {"j_ccur", 1, cCur},
    {"j_cbool", 1, cBool}, {"j_cur", 1, money}, {"j_val", 1, val}, {"j_str", 1, str},
};

}

void registerConversions(sqlite3 *connection)
{
    registerTable(connection, functions, std::size(functions));
}

}
