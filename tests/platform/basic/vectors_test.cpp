#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "platform/basic/text.h"
#include "support.h"

#include <QFile>
#include <QHash>
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

struct Row {
    QHash<QByteArray, QString> cells;
    QString operator[](const char *column) const { return cells.value(column); }
    int integer(const char *column, int absent) const
    {
        const QString cell = cells.value(column);
        return cell.isEmpty() ? absent : cell.toInt();
    }
    DateTime date(const char *column) const { return dateIn(cells.value(column)); }
};

void forEachRow(const QString &name, const std::function<void(const Row &)> &check)
{
    QFile file(QStringLiteral(VOREL_TEST_DATA "/vectors/") + name + u".tsv"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    const QStringList header = lines.takeFirst().split(u'\t');
    lines.removeAll(QString());
    EXPECT_FALSE(lines.isEmpty());
    for (const QString &line : std::as_const(lines)) {
        SCOPED_TRACE(line.toStdString());
        const QStringList cells = line.split(u'\t');
        ASSERT_EQ(cells.size(), header.size());
        Row row;
        for (qsizetype i = 0; i < header.size(); ++i)
            row.cells[header[i].toLatin1()] = cells[i];
        check(row);
    }
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
    for (const QString &name : {u"format_number"_s, u"format_date"_s}) {
        forEachRow(name, [](const Row &row) {
            setRegional(regionalFor(row["locale"]));
            EXPECT_EQ(Format(valueIn(row), row["pattern"]), row["expected"]);
        });
    }
}

TEST_F(Vectors, DateTexts)
{
    forEachRow(u"cdate_isdate"_s, [](const Row &row) {
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
    forEachRow(u"dateadd"_s, [](const Row &row) {
        EXPECT_EQ(DateAdd(row["interval"], row["number"].toDouble(), row.date("date")).toStored(), row["expected"]);
    });
    forEachRow(u"datediff"_s, [](const Row &row) {
        EXPECT_EQ(DateDiff(row["interval"], row.date("date1"), row.date("date2")), row["expected"].toInt());
    });
    forEachRow(u"datepart"_s, [](const Row &row) {
        EXPECT_EQ(DatePart(row["interval"], row.date("date"), row.integer("first_day", 1), row.integer("first_week", 1)),
                  row["expected"].toInt());
    });
    forEachRow(u"dateserial"_s, [](const Row &row) {
        const DateTime date = DateSerial(row.integer("year", 0), row.integer("month", 0), row.integer("day", 0));
        EXPECT_EQ(date.toStored().left(10), row["expected"]);
        EXPECT_FALSE(date.hasTime());
    });
    forEachRow(u"weekday"_s, [](const Row &row) {
        EXPECT_EQ(Weekday(row.date("date"), row.integer("first_day", 1)), row["expected"].toInt());
    });
}

TEST_F(Vectors, NumbersToText)
{
    forEachRow(u"cstr_double"_s, [](const Row &row) { EXPECT_EQ(CStr(Value(row["value"].toDouble())), row["expected"]); });
    forEachRow(u"cstr_single"_s, [](const Row &row) { EXPECT_EQ(CStr(Value(row["value"].toFloat())), row["expected"]); });
    forEachRow(u"str_double"_s, [](const Row &row) { EXPECT_EQ(Str(row["value"].toDouble()), row["expected"]); });
    forEachRow(u"ccur_double"_s, [](const Row &row) {
        EXPECT_EQ(CStr(Value(CCur(Value(row["value"].toDouble())))), row["expected_cstr"]);
    });
}

TEST_F(Vectors, NumbersToIntegers)
{
    forEachRow(u"cint"_s, [](const Row &row) {
        const Value number(row["value"].toDouble());
        EXPECT_EQ(outcome([&] { return QString::number(CInt(number)); }), row["expected"]);
    });
    forEachRow(u"clng"_s, [](const Row &row) {
        const Value number(row["value"].toDouble());
        EXPECT_EQ(outcome([&] { return QString::number(CLng(number)); }), row["expected"]);
    });
    forEachRow(u"int_fix"_s, [](const Row &row) {
        EXPECT_EQ(Int(row["value"].toDouble()), row["int"].toDouble());
        EXPECT_EQ(Fix(row["value"].toDouble()), row["fix"].toDouble());
    });
}

TEST_F(Vectors, TextToNumbers)
{
    forEachRow(u"text_to_number"_s, [](const Row &row) {
        const Value text(row["text"]);
        EXPECT_EQ(outcome([&] { return CStr(Value(CDbl(text))); }), row["cdbl"]);
        EXPECT_EQ(outcome([&] { return QString::number(CLng(text)); }), row["clng"]);
        EXPECT_EQ(outcome([&] { return CStr(Value(CBool(text))); }), row["cbool"]);
        EXPECT_EQ(IsNumeric(text), !row["cdbl"].startsWith(u"ERROR"_s));
    });
    forEachRow(u"val"_s, [](const Row &row) { EXPECT_EQ(Val(row["text"]), row["expected"].toDouble()); });
}

TEST_F(Vectors, ProperCase)
{
    forEachRow(u"propercase"_s, [](const Row &row) { EXPECT_EQ(StrConvProper(row["text"]), row["expected"]); });
}

}
