#include "platform/basic/locale.h"
#include "support/table.h"
#include "utilities/calculator.h"
#include "utilities/conversions.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

// C all, E entry, < back; the rest as on the keys.
Calculator::Outcome press(Calculator &calculator, QChar key)
{
    using Key = Calculator::Key;
    switch (key.unicode()) {
    case u'+': return calculator.Operator(Key::Plus);
    case u'-': return calculator.Operator(Key::Minus);
    case u'X': return calculator.Operator(Key::Multiply);
    case u'/': return calculator.Operator(Key::Divide);
    case u'=': return calculator.Operator(Key::Equals);
    case u'%': return calculator.Percent();
    case u'C': calculator.Cancel(); break;
    case u'E': calculator.CancelEntry(); break;
    case u'.': calculator.Decimal(); break;
    case u'<': calculator.Back(); break;
    default: calculator.Number(key.digitValue());
    }
    return Calculator::Outcome::Done;
}

}

TEST(CalculatorKeys, EachSequenceHasItsReadout)
{
    test::forEachRow("calculator", "keys", [](const test::Row &row) {
        Calculator calculator;
        for (const QChar key : row["keys"])
            EXPECT_EQ(press(calculator, key), Calculator::Outcome::Done);
        EXPECT_EQ(calculator.Readout(), row["readout"]);
    });
}

TEST(CalculatorKeys, WhatCannotBeWorkedChangesNothing)
{
    Calculator calculator;
    for (const QChar key : u"6/0"_s)
        press(calculator, key);
    for (const QChar key : u"=+/"_s)
        EXPECT_EQ(press(calculator, key), Calculator::Outcome::DivisionByZero);
    EXPECT_EQ(calculator.Readout(), u"0"_s);
    for (const QChar key : u"E3="_s)
        EXPECT_EQ(press(calculator, key), Calculator::Outcome::Done);
    EXPECT_EQ(calculator.Readout(), u"2"_s);

    for (const QChar key : u"C1"_s + u"00000000000000000"_s)
        press(calculator, key);
    Calculator::Outcome outcome = Calculator::Outcome::Done;
    QString before;
    for (int i = 0; i < 40 && outcome == Calculator::Outcome::Done; ++i) {
        for (const QChar key : u"X1"_s + u"00000000000000000"_s)
            press(calculator, key);
        before = calculator.Readout();
        outcome = press(calculator, u'=');
    }
    EXPECT_EQ(outcome, Calculator::Outcome::Overflow);
    EXPECT_EQ(calculator.Readout(), before);
}

TEST(CalculatorKeys, ThePointIsTheRegions)
{
    basic::setRegional(basic::regionalFor(u"de_DE"_s));
    Calculator calculator;
    for (const QChar key : u"1.5"_s)
        press(calculator, key);
    EXPECT_EQ(calculator.Readout(), u"1,5"_s);
    for (const QChar key : u"/2="_s)
        press(calculator, key);
    EXPECT_EQ(calculator.Readout(), u"0,75"_s);
    basic::setRegional(basic::regionalFor(u"en_US"_s));
}

TEST(Conversions, EachPairByItsFactorAndFormat)
{
    qsizetype cases = 0;
    test::forEachRow("calculator", "conversions", [&cases](const test::Row &row) {
        EXPECT_EQ(convertUnits(row.real("amount"), row["from"], row["to"]), row["result"]);
        ++cases;
    });
    qsizetype pairs = 0;
    for (const QString &unit : conversionUnits())
        pairs += unitsLike(unit).size();
    EXPECT_EQ(pairs, cases) << "each pair that can be chosen is in the table above";
}

TEST(Conversions, ResultsThatRoundToNothingShowZero)
{
    EXPECT_EQ(convertUnits(32, u"Farenheight"_s, u"Celsius"_s), u"0"_s);
    EXPECT_EQ(convertUnits(1, u"Inches"_s, u"Miles"_s), u"0"_s);
    EXPECT_FALSE(conversionNote(u"Celsius"_s, u"Farenheight"_s).isEmpty());
    EXPECT_TRUE(conversionNote(u"Farenheight"_s, u"Celsius"_s).isEmpty()) << "that one is exact";
}

TEST(Conversions, AmountsAreReadAsTheRegionWritesThem)
{
    const basic::Regional before = basic::regional();
    test::forEachRow("calculator", "amounts", [](const test::Row &row) {
        basic::setRegional(basic::regionalFor(row["region"]));
        EXPECT_DOUBLE_EQ(typedAmount(row["text"]), row.real("amount"));
    });
    basic::setRegional(before);
}

TEST(Conversions, ZeroAndUnlikeUnitsGiveNothing)
{
    EXPECT_FALSE(convertUnits(0, u"Celsius"_s, u"Farenheight"_s));
    EXPECT_FALSE(convertUnits(1, u"Celsius"_s, u"Feet"_s));
    EXPECT_FALSE(convertUnits(1, u"Feet"_s, u"Fahrenheit"_s));
    EXPECT_EQ(conversionUnits().size(), 17);
    EXPECT_EQ(unitsLike(u"Celsius"_s), QStringList{u"Farenheight"_s});
    EXPECT_EQ(unitsLike(u"Gallons"_s), (QStringList{u"Pints"_s, u"Quarts"_s}));
    EXPECT_EQ(unitsLike(u"feet"_s).size(), 7);
}
