#include "session/reportdesign.h"

#include "platform/basic/convert.h"
#include "platform/basic/format.h"

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

ListColumn::Cell fieldText(const QString &field)
{
    return [field](const dao::Recordset &rows) { return rows.Get(field).text(); };
}

ListColumn::Cell fieldFormat(const QString &field, const QString &format)
{
    return [field, format](const dao::Recordset &rows) {
        const Value value = rows.Get(field);
        return value.isNull() ? QString() : basic::Format(value, format);
    };
}

ListColumn::Cell fieldShortDate(const QString &field)
{
    return [field](const dao::Recordset &rows) {
        const Value value = rows.Get(field);
        return value.isNull() ? QString() : basic::Format(value, state().settings.gDateShort);
    };
}

ListColumn::Cell yesWhenSet(const QString &field)
{
    return [field](const dao::Recordset &rows) { return rows.Get(field) == Value(true) ? u"YES"_s : QString(); };
}

std::function<basic::Currency(const dao::Recordset &)> fieldSum(const QString &field)
{
    return [field](const dao::Recordset &rows) {
        const Value value = rows.Get(field);
        return value.isNull() ? basic::Currency() : basic::CCur(value);
    };
}

ListColumn column(const QString &heading, double percent, int cut)
{
    return column(heading, heading, percent, cut);
}

ListColumn column(const QString &heading, const QString &field, double percent, int cut)
{
    return {.heading = heading, .cell = fieldText(field), .percent = percent, .cut = cut};
}

ListColumn wrapped(const QString &heading, const QString &field, double percent, int characters)
{
    return {.heading = heading, .cell = fieldText(field), .percent = percent, .wrap = characters};
}

ListColumn rightAligned(const QString &heading, ListColumn::Cell cell, double percent)
{
    return {.heading = heading, .cell = std::move(cell), .percent = percent, .alignment = u"R"_s};
}

}
