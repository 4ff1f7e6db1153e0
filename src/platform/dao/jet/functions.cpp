#include "platform/dao/jet/functions.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace vorel::dao::jet {

namespace {

using enum CallForm;

constexpr std::array functions = {
    FunctionInfo{u"ABS", Abs, "abs", "N", dbUnknown},
    FunctionInfo{u"ASC", Plain, "j_asc", "T", dbLong},
    FunctionInfo{u"CBOOL", Convert, "", "A", dbBoolean},
    FunctionInfo{u"CBYTE", Convert, "", "A", dbByte},
    FunctionInfo{u"CCUR", Convert, "", "A", dbCurrency},
    FunctionInfo{u"CDATE", Convert, "", "A", dbDate},
    FunctionInfo{u"CDBL", Convert, "", "A", dbDouble},
    FunctionInfo{u"CHOOSE", Choose, "", "LA|AAAAAAAAAAAAAAAAAAAAAAAAAAAA", dbUnknown},
    FunctionInfo{u"CHR", Plain, "j_chr", "L", dbText},
    FunctionInfo{u"CINT", Convert, "", "A", dbInteger},
    FunctionInfo{u"CLNG", Convert, "", "A", dbLong},
    FunctionInfo{u"CSNG", Convert, "", "A", dbSingle},
    FunctionInfo{u"CSTR", Plain, "j_cstr", "V", dbText},
    FunctionInfo{u"CVDATE", Convert, "", "A", dbDate},
    FunctionInfo{u"DATE", Plain, "j_date", "", dbDate},
    FunctionInfo{u"DATEADD", Plain, "j_dateadd", "TND", dbDate},
    FunctionInfo{u"DATEDIFF", Plain, "j_datediff", "TDD|LL", dbLong},
    FunctionInfo{u"DATEPART", Plain, "j_datepart", "TD|LL", dbLong},
    FunctionInfo{u"DATESERIAL", Plain, "j_dateserial", "LLL", dbDate},
    FunctionInfo{u"DATEVALUE", Plain, "j_datevalue", "D", dbDate},
    FunctionInfo{u"DAY", Plain, "j_day", "D", dbLong},
    FunctionInfo{u"FIX", Fix, "j_fix", "N", dbUnknown},
    FunctionInfo{u"FORMAT", Plain, "j_format", "V|TLL", dbText},
    FunctionInfo{u"HOUR", Plain, "j_hour", "D", dbLong},
    FunctionInfo{u"IIF", IIf, "", "AAA", dbUnknown},
    FunctionInfo{u"INSTR", InStr, "j_instr", "AA|AL", dbLong},
    FunctionInfo{u"INT", Int, "j_int", "N", dbUnknown},
    FunctionInfo{u"ISDATE", Plain, "j_isdate", "V", dbBoolean},
    FunctionInfo{u"ISNULL", IsNull, "", "A", dbBoolean},
    FunctionInfo{u"ISNUMERIC", Plain, "j_isnumeric", "V", dbBoolean},
    FunctionInfo{u"LCASE", Plain, "j_lcase", "T", dbText},
    FunctionInfo{u"LEFT", Left, "j_left", "TL", dbText},
    FunctionInfo{u"LEN", Plain, "length", "T", dbLong},
    FunctionInfo{u"LTRIM", Plain, "ltrim", "T", dbText},
    FunctionInfo{u"MID", Mid, "j_mid", "TL|L", dbText},
    FunctionInfo{u"MINUTE", Plain, "j_minute", "D", dbLong},
    FunctionInfo{u"MONTH", Plain, "j_month", "D", dbLong},
    FunctionInfo{u"NOW", Plain, "j_now", "", dbDate},
    FunctionInfo{u"REPLACE", Plain, "replace", "TTT", dbText},
    FunctionInfo{u"RIGHT", Right, "j_right", "TL", dbText},
    FunctionInfo{u"ROUND", Round, "j_round", "N|L", dbUnknown},
    FunctionInfo{u"RTRIM", Plain, "rtrim", "T", dbText},
    FunctionInfo{u"SECOND", Plain, "j_second", "D", dbLong},
    FunctionInfo{u"SGN", Plain, "j_sgn", "N", dbLong},
    FunctionInfo{u"SPACE", Plain, "j_space", "L", dbText},
    FunctionInfo{u"STR", Plain, "j_str", "N", dbText},
    FunctionInfo{u"STRCONV", Plain, "j_strconv", "TL", dbText},
    FunctionInfo{u"SWITCH", Switch, "", "AA|AAAAAAAAAAAAAAAAAAAAAAAAAAAA", dbUnknown},
    FunctionInfo{u"TIME", Plain, "j_time", "", dbDate},
    FunctionInfo{u"TIMESERIAL", Plain, "j_timeserial", "LLL", dbDate},
    FunctionInfo{u"TIMEVALUE", Plain, "j_timevalue", "D", dbDate},
    FunctionInfo{u"TRIM", Plain, "trim", "T", dbText},
    FunctionInfo{u"UCASE", Plain, "j_ucase", "T", dbText},
    FunctionInfo{u"VAL", Plain, "j_val", "T", dbDouble},
    FunctionInfo{u"WEEKDAY", Plain, "j_weekday", "D|L", dbLong},
    FunctionInfo{u"YEAR", Plain, "j_year", "D", dbLong},
};

static_assert(std::is_sorted(functions.begin(), functions.end(), [](const FunctionInfo &a, const FunctionInfo &b) {
    return std::u16string_view(a.name.utf16(), size_t(a.name.size())) < std::u16string_view(b.name.utf16(), size_t(b.name.size()));
}));

// The emitter's plain calls write no argument of another letter.
static_assert(std::all_of(functions.begin(), functions.end(), [](const FunctionInfo &info) {
    return info.form != CallForm::Plain || std::string_view(info.parameters).find_first_not_of("TNLDV|") == std::string_view::npos;
}));

int numericRank(DataType type)
{
    switch (type) {
    case dbBoolean:
        return 0;
    case dbByte:
        return 1;
    case dbInteger:
        return 2;
    case dbLong:
        return 3;
    case dbSingle:
        return 4;
    case dbDouble:
        return 5;
    default:
        return 6;
    }
}

}

int FunctionInfo::minimum() const
{
    const char *bar = std::strchr(parameters, '|');
    return static_cast<int>(bar ? bar - parameters : static_cast<std::ptrdiff_t>(std::strlen(parameters)));
}

int FunctionInfo::maximum() const
{
    const auto length = static_cast<int>(std::strlen(parameters));
    return std::strchr(parameters, '|') ? length - 1 : length;
}

const FunctionInfo *findFunction(QStringView name)
{
    const auto found = std::lower_bound(functions.begin(), functions.end(), name,
                                        [](const FunctionInfo &f, QStringView n) { return f.name < n; });
    return found != functions.end() && found->name == name ? &*found : nullptr;
}

const FunctionInfo &textAsDate()
{
    static constexpr FunctionInfo info{u"", Plain, "j_readdate", "T", dbDate};
    return info;
}

bool isTextType(DataType type)
{
    return type == dbText || type == dbMemo;
}

bool isNumericType(DataType type)
{
    return type >= dbBoolean && type <= dbDouble;
}

bool isIntegerType(DataType type)
{
    return type >= dbBoolean && type <= dbLong;
}

DataType commonType(DataType a, DataType b)
{
    if (a == b || b == dbUnknown)
        return a;
    if (a == dbUnknown)
        return b;
    if (isNumericType(a) && isNumericType(b)) {
        const DataType higher = numericRank(a) > numericRank(b) ? a : b;
        return higher == dbSingle ? dbDouble : higher;
    }
    if (a == dbMemo || b == dbMemo)
        return dbMemo;
    if (isTextType(a) || isTextType(b))
        return dbText;
    return a == dbDate || b == dbDate ? dbDate : dbLongBinary;
}

DataType comparisonType(DataType a, DataType b)
{
    if (a == dbUnknown || b == dbUnknown)
        return commonType(a, b);
    if (isTextType(a) != isTextType(b) && a != dbLongBinary && b != dbLongBinary)
        throw EngineError(err::CriteriaMismatch);
    return commonType(a, b);
}

}
