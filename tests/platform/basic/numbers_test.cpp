#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "support.h"
#include "support/steps.h"

#include <limits>

using namespace vorel::basic;
using namespace Qt::StringLiterals;

namespace {

using Numbers = BasicTest;

Currency money(const QString &text)
{
    return CCur(Value(text));
}

TEST_F(Numbers, CurrencyIsExact)
{
    // 0.1 ten times is 1, which binary fractions miss.
    Currency sum;
    for (int i = 0; i < 10; ++i)
        sum = sum + Currency::fromDouble(0.1);
    EXPECT_EQ(sum, Currency::fromScaled(10000));
    EXPECT_EQ((money(u"922337203685477.5806"_s) + Currency::fromScaled(1)).scaled(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(Value(money(u"-922337203685477.5807"_s)).text(), u"-922337203685477.5807"_s);
    EXPECT_EQ(Value(money(u"1,000.0500"_s) - money(u"1000.1"_s)).text(), u"-0.05"_s);
    EXPECT_EQ(-money(u"(3.5)"_s), money(u"3.5"_s));
}

TEST_F(Numbers, CurrencyRoundsTiesToEven)
{
    vorel::test::forEachRow("text", "money", [](const vorel::test::Row &row) {
        EXPECT_EQ(vorel::test::answerOf([&] { return QString::number(money(row["text"]).scaled()); }), row["scaled"]);
    });
    EXPECT_EQ(Currency::fromDouble(0.25).scaled(), 2500);
    EXPECT_EQ(Currency::fromDouble(-2.00006).scaled(), -20001);
}

TEST_F(Numbers, CurrencyOverflows)
{
    const Currency highest = Currency::fromScaled(std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(errorOf([&] { return highest + Currency::fromScaled(1); }), 6);
    EXPECT_EQ(errorOf([&] { return -highest - Currency::fromScaled(1); }), 6);
    for (const double number : {1e15, -1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(errorOf([&] { Currency::fromDouble(number); }), 6) << number;
}

TEST_F(Numbers, IntegersOverflowAtTheirEnds)
{
    EXPECT_EQ(CByte(Value(255.5 - 0.1)), 255);
    EXPECT_EQ(CInt(Value(-32768.5)), -32768);
    EXPECT_EQ(CLng(Value(-2147483648.5)), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(CInt(Value(true)), -1);
    EXPECT_EQ(CLng(Value(Currency::fromScaled(25000))), 2);
    EXPECT_EQ(errorOf([] { CByte(Value(255.5)); }), 6);
    EXPECT_EQ(errorOf([] { CByte(Value(-1)); }), 6);
    EXPECT_EQ(errorOf([] { CInt(Value(-32769)); }), 6);
    EXPECT_EQ(errorOf([] { CSng(Value(1e39)); }), 6);
    EXPECT_EQ(errorOf([] { CDbl(Value(u"1e309"_s)); }), 6);
    EXPECT_EQ(CDbl(Value(u"1e-400"_s)), 0.0);
}

TEST_F(Numbers, NullAndBinaryConvertToNothing)
{
    EXPECT_EQ(errorOf([] { CStr(Value()); }), 94);
    EXPECT_EQ(errorOf([] { CDbl(Value()); }), 94);
    EXPECT_EQ(errorOf([] { CCur(Value()); }), 94);
    EXPECT_EQ(errorOf([] { CBool(Value()); }), 94);
    EXPECT_EQ(errorOf([] { CDate(Value()); }), 94);
    EXPECT_EQ(errorOf([] { CLng(Value(QByteArray("12"))); }), 13);
    EXPECT_FALSE(IsNumeric(Value()));
    EXPECT_FALSE(IsDate(Value()));
    EXPECT_FALSE(IsDate(Value(37991)));
    EXPECT_EQ(Value().text(), QString());
}

TEST_F(Numbers, TextOfValues)
{
    const struct { Value value; QStringView text; } cases[] = {
        {Value(true), u"True"}, {Value(false), u"False"}, {Value(std::uint8_t{200}), u"200"},
        {Value(std::int16_t{-7}), u"-7"}, {Value(-2147483647 - 1), u"-2147483648"}, {Value(-0.0), u"0"},
        {Value(999999999.5), u"999999999.5"}, {Value(-1e9), u"-1000000000"}, {Value(1e-16), u"1E-16"},
        {Value(Currency::fromScaled(-5)), u"-0.0005"}, {Value(Currency::fromScaled(120000)), u"12"},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(c.value.text(), c.text);
        EXPECT_EQ(CStr(c.value), c.text);
    }
}

TEST_F(Numbers, RoundIsHalfToEven)
{
    vorel::test::forEachRow("text", "round", [](const vorel::test::Row &row) {
        EXPECT_EQ(Round(row.real("number"), row.number("digits")), row.real("expected"));
    });
    EXPECT_EQ(errorOf([] { Round(1, -1); }), 5);
}

TEST_F(Numbers, ValBeyondTheVectors)
{
    EXPECT_EQ(Val(u"\t12\n34"), 1234);
    EXPECT_EQ(errorOf([] { Val(u"50.5%"); }), 13);
    EXPECT_EQ(errorOf([] { Val(u"1e999"); }), 6);
    EXPECT_EQ(valOr(u"12 eggs", -1), 12);
    for (const QStringView refused : {u"50.5%", u"1e999"})
        EXPECT_EQ(valOr(refused, -1), -1);
}

TEST_F(Numbers, GermanMachine)
{
    setRegional(regionalFor(u"de_DE"_s));
    EXPECT_EQ(Value(-1234.5).text(), u"-1234,5"_s);
    EXPECT_EQ(Value(Currency::fromScaled(12500)).text(), u"1,25"_s);
    EXPECT_EQ(CDbl(Value(u"1.234,5"_s)), 1234.5);
    EXPECT_EQ(money(u"1.234,50 €"_s).scaled(), 12345000);
    EXPECT_EQ(Format(Value(1234.5), u"#,##0.00"), u"1.234,50"_s);
    EXPECT_EQ(Format(Value(-1234.5), u"Currency"), u"-1.234,50 €"_s);
    // What a box shows is what is read from it.
    EXPECT_EQ(money(Format(Value(9.875), u"######.#0")).scaled(), 98800);
    // These two never follow the machine.
    EXPECT_EQ(Str(1.5), u" 1.5"_s);
    EXPECT_EQ(Val(u"1.5"), 1.5);
}

}
