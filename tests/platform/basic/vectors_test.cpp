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

TEST_F(Vectors, Format)
{
    for (const char *name : {"format_number", "format_date"}) {
        forEachRow(name, [](const Row &row) {
            setRegional(regionalFor(row["locale"]));
            EXPECT_EQ(Format(valueIn(row), row["pattern"]), row["expected"]);
        });
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

TEST_F(Vectors, DateArithmetic)
{
    forEachRow("dateadd", [](const Row &row) {
        EXPECT_EQ(DateAdd(row["interval"], row["number"].toDouble(), dateOf(row, "date")).toStored(), row["expected"]);
    });
    forEachRow("datediff", [](const Row &row) {
        EXPECT_EQ(DateDiff(row["interval"], dateOf(row, "date1"), dateOf(row, "date2")), row["expected"].toInt());
    });
    forEachRow("datepart", [](const Row &row) {
        EXPECT_EQ(DatePart(row["interval"], dateOf(row, "date"), row.number("first_day", 1), row.number("first_week", 1)),
                  row["expected"].toInt());
    });
    forEachRow("dateserial", [](const Row &row) {
        const DateTime date = DateSerial(row.number("year", 0), row.number("month", 0), row.number("day", 0));
        EXPECT_EQ(date.toStored().left(10), row["expected"]);
        EXPECT_FALSE(date.hasTime());
    });
    forEachRow("weekday", [](const Row &row) {
        EXPECT_EQ(Weekday(dateOf(row, "date"), row.number("first_day", 1)), row["expected"].toInt());
    });
}

TEST_F(Vectors, NumbersToText)
{
    forEachRow("cstr_double", [](const Row &row) { EXPECT_EQ(CStr(Value(row["value"].toDouble())), row["expected"]); });
    forEachRow("cstr_single", [](const Row &row) { EXPECT_EQ(CStr(Value(row["value"].toFloat())), row["expected"]); });
    forEachRow("str_double", [](const Row &row) { EXPECT_EQ(Str(row["value"].toDouble()), row["expected"]); });
    forEachRow("ccur_double", [](const Row &row) {
        EXPECT_EQ(CStr(Value(CCur(Value(row["value"].toDouble())))), row["expected_cstr"]);
    });
}

TEST_F(Vectors, NumbersToIntegers)
{
    forEachRow("cint", [](const Row &row) {
        const Value number(row["value"].toDouble());
        EXPECT_EQ(outcome([&] { return QString::number(CInt(number)); }), row["expected"]);
    });
    forEachRow("clng", [](const Row &row) {
        const Value number(row["value"].toDouble());
        EXPECT_EQ(outcome([&] { return QString::number(CLng(number)); }), row["expected"]);
    });
    forEachRow("int_fix", [](const Row &row) {
        EXPECT_EQ(Int(row["value"].toDouble()), row["int"].toDouble());
        EXPECT_EQ(Fix(row["value"].toDouble()), row["fix"].toDouble());
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

TEST_F(Vectors, ProperCase)
{
    forEachRow("propercase", [](const Row &row) { EXPECT_EQ(StrConvProper(row["text"]), row["expected"]); });
}

}
