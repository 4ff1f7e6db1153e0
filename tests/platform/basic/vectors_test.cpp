#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "platform/basic/text.h"
#include "support.h"
#include "support/table.h"

#include <functional>

using namespace vorel::basic;
using namespace Qt::StringLiterals;

// The files in vectors/ hold a case a row, cells separated by tabs and taken literally: a blank at an end counts.
namespace {

DateTime dateIn(const QString &text)
{
    bool ok = false;
    const DateTime date = DateTime::fromStored(text, &ok);
    EXPECT_TRUE(ok) << text.toStdString();
    return date;
}

using Row = vorel::test::Row;

DateTime dateOf(const Row &row, const char *column)
{
    return dateIn(row[column]);
}

void forEachRow(const char *name, const std::function<void(const Row &)> &check)
{
    vorel::test::forEachRow((std::string("vectors/") + name).c_str(), "", check);
}

// What a conversion gives as a text, or "ERROR n".
template <class F>
QString outcome(F &&convert)
{
    try {
        return convert();
    } catch (const Error &error) {
        return u"ERROR "_s + QString::number(error.number());
    }
}

Value valueIn(const Row &row)
{
    const QString cell = row["value"];
    switch (row["type"].at(0).unicode()) {
    case u'd':
        return Value(cell.toDouble());
    case u'f':
        return Value(cell.toFloat());
    case u'i':
        return Value(cell.toInt());
    case u'c':
        return Value(CCur(Value(cell)));
    case u'D':
        return Value(dateIn(cell));
    case u'b':
        return Value(cell == u"1"_s);
    case u's':
        return Value(cell);
    default:
        return Value();
    }
}

using Vectors = BasicTest;

TEST_F(Vectors, EachGivesItsText)
{
    const auto number = [](const Row &row) { return row.real("value"); };
    const auto format = [](const Row &row) {
        setRegional(regionalFor(row["locale"]));
        return Format(valueIn(row), row["pattern"]);
    };
    const std::pair<const char *, std::function<QString(const Row &)>> calls[] = {
        {"format_number", format},
        {"format_date", format},
        {"dateadd", [](const Row &row) { return DateAdd(row["interval"], row.real("number"), dateOf(row, "date")).toStored(); }},
        {"datediff", [](const Row &row) { return QString::number(DateDiff(row["interval"], dateOf(row, "date1"), dateOf(row, "date2"))); }},
        {"datepart", [](const Row &row) {
             return QString::number(DatePart(row["interval"], dateOf(row, "date"), row.number("first_day", 1), row.number("first_week", 1)));
         }},
        {"dateserial", [](const Row &row) {
             const QString date = DateSerial(row.number("year"), row.number("month"), row.number("day")).toStored();
             return date.endsWith(u" 00:00:00") ? date.left(10) : date;
         }},
        {"weekday", [](const Row &row) { return QString::number(Weekday(dateOf(row, "date"), row.number("first_day", 1))); }},
        {"cstr_double", [=](const Row &row) { return CStr(Value(number(row))); }},
        {"cstr_single", [](const Row &row) { return CStr(Value(row["value"].toFloat())); }},
        {"str_double", [=](const Row &row) { return Str(number(row)); }},
        {"cint", [=](const Row &row) { return QString::number(CInt(Value(number(row)))); }},
        {"clng", [=](const Row &row) { return QString::number(CLng(Value(number(row)))); }},
        {"propercase", [](const Row &row) { return StrConvProper(row["text"]); }},
    };
    for (const auto &[name, call] : calls) {
        SetUp();
        forEachRow(name, [&, call = call](const Row &row) { EXPECT_EQ(outcome([&] { return call(row); }), row["expected"]); });
    }
}

TEST_F(Vectors, DateTexts)
{
    forEachRow("cdate_isdate", [](const Row &row) {
        setRegional(regionalFor(row["locale"]));
        const Value text(row["text"]);
        EXPECT_EQ(IsDate(text), row["isdate"] == u"True"_s);
        QString expected = row["cdate"];
        if (expected == u"(IsDate only)"_s)
            return;
        expected.replace(u"YYYY"_s, QString::number(Date().year()));
        EXPECT_EQ(outcome([&] { return CDate(text).toStored(); }), expected);
    });
}

TEST_F(Vectors, Amounts)
{
    forEachRow("ccur_double", [](const Row &row) {
        EXPECT_EQ(CStr(Value(CCur(Value(row.real("value"))))), row["expected_cstr"]);
    });
    forEachRow("int_fix", [](const Row &row) {
        EXPECT_EQ(Int(row.real("value")), row.real("int"));
        EXPECT_EQ(Fix(row.real("value")), row.real("fix"));
    });
}

TEST_F(Vectors, TextToNumbers)
{
    forEachRow("text_to_number", [](const Row &row) {
        const Value text(row["text"]);
        EXPECT_EQ(outcome([&] { return CStr(Value(CDbl(text))); }), row["cdbl"]);
        EXPECT_EQ(outcome([&] { return QString::number(CLng(text)); }), row["clng"]);
        EXPECT_EQ(outcome([&] { return CStr(Value(CBool(text))); }), row["cbool"]);
        EXPECT_EQ(IsNumeric(text), !row["cdbl"].startsWith(u"ERROR"_s));
    });
    forEachRow("val", [](const Row &row) { EXPECT_EQ(Val(row["text"]), row["expected"].toDouble()); });
}

}
