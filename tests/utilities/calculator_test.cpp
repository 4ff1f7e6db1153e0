#include "platform/basic/locale.h"
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
    struct Case { QString keys, readout; };
    const Case cases[] = {
        {u""_s, u"0"_s}, {u"007"_s, u"7"_s}, {u"12.5.0"_s, u"12.50"_s}, {u".5"_s, u"0.5"_s},
        {u"2+3="_s, u"5"_s}, {u"7-10="_s, u"-3"_s}, {u"6X7="_s, u"42"_s}, {u"1/8="_s, u"0.125"_s},
        {u"2+3X4="_s, u"20"_s}, {u"2+3X"_s, u"5"_s}, {u"2+"_s, u"2"_s}, {u"2+3"_s, u"3"_s},
        {u"8+-3="_s, u"5"_s}, {u"2+3=="_s, u"5"_s}, {u"2+3=+4="_s, u"9"_s}, {u"2+3=7"_s, u"7"_s}, {u"2+3=7+1="_s, u"8"_s},
        {u"6+="_s, u"6"_s}, {u"-5="_s, u"-5"_s}, {u".1+.2="_s, u"0.3"_s}, {u"0X5-5X0="_s, u"0"_s},
        {u"200+10%"_s, u"20"_s}, {u"200+10%="_s, u"220"_s}, {u"200-10%5"_s, u"5"_s}, {u"50%"_s, u"0"_s}, {u"80X5%="_s, u"320"_s},
        {u"2+3C"_s, u"0"_s}, {u"2+3C4="_s, u"4"_s}, {u"2+3E"_s, u"0"_s}, {u"2+3E4="_s, u"6"_s},
        {u"123<"_s, u"12"_s}, {u"1<<5"_s, u"5"_s}, {u"2+3=<"_s, u"5"_s},
        {u"12345678901234567890123"_s, u"12345678901234567890"_s}, {u"99999999999999999999+0="_s, u"1E+20"_s}};
    for (const Case &c : cases) {
        Calculator calculator;
        for (const QChar key : c.keys)
            EXPECT_EQ(press(calculator, key), Calculator::Outcome::Done) << qPrintable(c.keys);
        EXPECT_EQ(calculator.Readout(), c.readout) << qPrintable(c.keys);
    }
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
    struct Case { double amount; QString from, to, result; };
    const Case cases[] = {
        {20, u"Celsius"_s, u"Farenheight"_s, u"64"_s}, {70, u"Farenheight"_s, u"Celsius"_s, u"21"_s},
        {100, u"Centimetres"_s, u"Feet"_s, u"3.28"_s}, {100, u"Centimetres"_s, u"Millimetres"_s, u"1000"_s},
        {100, u"Centimetres"_s, u"Inches"_s, u"39.37"_s}, {100, u"Centimetres"_s, u"Metres"_s, u"1"_s},
        {1609344, u"Centimetres"_s, u"Miles"_s, u"10"_s}, {100, u"Centimetres"_s, u"Yards"_s, u"1.093"_s},
        {2, u"Feet"_s, u"Millimetres"_s, u"609.6"_s}, {2, u"Feet"_s, u"Centimetres"_s, u"60.96"_s},
        {2, u"Feet"_s, u"Inches"_s, u"24"_s}, {2, u"Feet"_s, u"Metres"_s, u"0.6096"_s},
        {2, u"Feet"_s, u"Miles"_s, u".0004"_s}, {6, u"Feet"_s, u"Yards"_s, u"2"_s},
        {2, u"Inches"_s, u"Centimetres"_s, u"5.08"_s}, {2, u"Inches"_s, u"Feet"_s, u".17"_s},
        {100, u"Inches"_s, u"Metres"_s, u"2.54"_s}, {2, u"Inches"_s, u"Millimetres"_s, u"50.8"_s},
        {36, u"Inches"_s, u"Yards"_s, u"1."_s}, {6336, u"Inches"_s, u"Miles"_s, u".1"_s},
        {3, u"Gallons"_s, u"Pints"_s, u"24"_s}, {3, u"Gallons"_s, u"Quarts"_s, u"12"_s},
        {5, u"Kilograms"_s, u"Ounces"_s, u"176.368"_s}, {5, u"Kilograms"_s, u"Pounds"_s, u"11.023"_s},
        {5, u"Kilograms"_s, u"Stones"_s, u".787"_s}, {5, u"Kilometres"_s, u"Miles"_s, u"3.107"_s},
        {5, u"Kilometres"_s, u"Metres"_s, u"5000"_s}, {5, u"Kilometres"_s, u"Yards"_s, u"5468.32"_s},
        {5, u"Kilometres"_s, u"Feet"_s, u"16404.96"_s}, {5, u"Kilometres"_s, u"Inches"_s, u"196859.52"_s},
        {3, u"Metres"_s, u"Millimetres"_s, u"3000"_s}, {3, u"Metres"_s, u"Centimetres"_s, u"300"_s},
        {3, u"Metres"_s, u"Kilometres"_s, u"0.003"_s}, {9.144, u"Metres"_s, u"Yards"_s, u"10"_s},
        {800, u"Metres"_s, u"Miles"_s, u"0.5"_s}, {2, u"Miles"_s, u"Centimetres"_s, u"320000"_s},
        {2, u"Miles"_s, u"Millimetres"_s, u"3200000"_s}, {2, u"Miles"_s, u"Feet"_s, u"10560"_s},
        {2, u"Miles"_s, u"Inches"_s, u"126720"_s}, {2, u"Miles"_s, u"Kilometres"_s, u"3.2"_s},
        {2, u"Miles"_s, u"Metres"_s, u"3200"_s}, {2, u"Miles"_s, u"Yards"_s, u"3520."_s},
        {5, u"Millimetres"_s, u"Metres"_s, u"0.005"_s}, {127, u"Millimetres"_s, u"Inches"_s, u"5"_s},
        {5, u"Millimetres"_s, u"Centimetres"_s, u"0.5"_s}, {8, u"Ounces"_s, u"Pounds"_s, u"0.5"_s},
        {300, u"Ounces"_s, u"Stones"_s, u"1.339"_s}, {100, u"Ounces"_s, u"Kilograms"_s, u"2.841"_s},
        {2, u"Pints"_s, u"Gallons"_s, u"0.25"_s}, {2, u"Pints"_s, u"Quarts"_s, u"0.5"_s},
        {3, u"Pounds"_s, u"Ounces"_s, u"48"_s}, {30, u"Pounds"_s, u"Stones"_s, u"2.14"_s},
        {3, u"Pounds"_s, u"Kilograms"_s, u"1.36"_s}, {3, u"Quarts"_s, u"Gallons"_s, u"0.75"_s},
        {2, u"Stones"_s, u"Ounces"_s, u"448"_s}, {2, u"Stones"_s, u"Pounds"_s, u"28"_s},
        {2, u"Stones"_s, u"Kilograms"_s, u"12.73"_s}, {2, u"Yards"_s, u"Feet"_s, u"6"_s},
        {1, u"Yards"_s, u"Millimetres"_s, u"915"_s}, {1, u"Yards"_s, u"Centimetres"_s, u"91.5"_s},
        {1, u"Yards"_s, u"Inches"_s, u"36"_s}, {1, u"Yards"_s, u"Metres"_s, u"0.9144"_s},
        {500, u"Yards"_s, u"Miles"_s, u".284"_s},
        // By the same factors
        {1000, u"Centimetres"_s, u"Kilometres"_s, u"0.01"_s}, {1000, u"Feet"_s, u"Kilometres"_s, u"0.3048"_s},
        {1000, u"Inches"_s, u"Kilometres"_s, u"0.0254"_s}, {1000, u"Yards"_s, u"Kilometres"_s, u"0.9144"_s},
        {2, u"Kilometres"_s, u"Centimetres"_s, u"200000"_s}, {2, u"Kilometres"_s, u"Millimetres"_s, u"2000000"_s},
        {3.048, u"Metres"_s, u"Feet"_s, u"10"_s}, {2.54, u"Metres"_s, u"Inches"_s, u"100"_s},
        {609.6, u"Millimetres"_s, u"Feet"_s, u"2"_s}, {500, u"Millimetres"_s, u"Kilometres"_s, u"0.0005"_s},
        {1609344, u"Millimetres"_s, u"Miles"_s, u"1"_s}, {1830, u"Millimetres"_s, u"Yards"_s, u"2"_s},
        {2, u"Quarts"_s, u"Pints"_s, u"4"_s}};
    for (const Case &c : cases)
        EXPECT_EQ(convertUnits(c.amount, c.from, c.to), c.result) << qPrintable(c.from) << " to " << qPrintable(c.to);
    qsizetype pairs = 0;
    for (const QString &unit : conversionUnits())
        pairs += unitsLike(unit).size();
    EXPECT_EQ(pairs, qsizetype(std::size(cases))) << "each pair that can be chosen is in the table above";
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
    const struct { const char *region; QString text; double amount; } cases[] = {
        {"de_DE", u"12,5"_s, 12.5}, {"de_DE", u"12.5"_s, 12.5}, {"de_DE", u"1.234,5"_s, 1234.5}, {"de_DE", u" -0,25 "_s, -0.25},
        {"fr_FR", u"1 234,5"_s, 1234.5}, {"fr_FR", u"1\u202f234,5"_s, 1234.5}, {"en_US", u"12.5"_s, 12.5}, {"en_US", u"1,234.5"_s, 1234.5},
        {"en_US", u"12,5"_s, 12}, {"en_US", u"1,2345"_s, 1}, {"de_DE", u"abc"_s, 0}, {"de_DE", {}, 0}, {"en_US", u"1.5%"_s, 0}};
    for (const auto &one : cases) {
        basic::setRegional(basic::regionalFor(QString::fromLatin1(one.region)));
        EXPECT_DOUBLE_EQ(typedAmount(one.text), one.amount) << one.region << ' ' << qPrintable(one.text);
    }
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
