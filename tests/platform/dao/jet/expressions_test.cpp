#include "platform/dao/jet/jetstore.h"

#include "platform/basic/clock.h"
#include "platform/basic/locale.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

struct Case {
    const char *expression;
    const char *expected;       // the cell, or "<null>", or "!number" of an error
};

struct Expressions : testing::Test {
    void SetUp() override
    {
        basic::setRegional(basic::regionalFor(u"en_US"_s));
        basic::setClock([] { return QDateTime(QDate(2024, 2, 29), QTime(13, 45, 10)); });
        store.add(u"V"_s, u"ID auto, T text 20, N text 20, I integer, C currency, F double, W date, B boolean, M memo, K double"_s);
        store.raw("INSERT INTO V VALUES (1,'Tea  ',NULL,5,15000,2.5,'2024-02-29 12:30:00',-1,'memo',NULL)");
    }
    void TearDown() override { basic::setClock({}); }
    void check(std::initializer_list<Case> cases)
    {
        for (const Case &c : cases) {
            const QString query = u"SELECT "_s + QString::fromUtf8(c.expression) + u" FROM V"_s;
            const QString failure = store.failure(query);
            const QString result = failure.isEmpty() ? store.run(query)[0][0] : u'!' + failure.section(u' ', 0, 0);
            EXPECT_EQ(result.toStdString(), c.expected) << c.expression << "\n" << failure.toStdString();
        }
    }
    JetStore store;
};

}

TEST_F(Expressions, NullLogic)
{
    check({{"N = 'x'", "<null>"}, {"Not (N = 'x')", "<null>"}, {"N <> 'x'", "<null>"}, {"Null = Null", "<null>"},
           {"False And Null", "0"}, {"True And Null", "<null>"}, {"True Or Null", "-1"}, {"False Or Null", "<null>"},
           {"Not Null", "<null>"}, {"N Is Null", "-1"}, {"N Is Not Null", "0"}, {"T Is Null", "0"}, {"IsNull(N)", "-1"},
           {"IsNull(T)", "0"}, {"T <> Null", "-1"}, {"Null <> T", "<null>"}, {"N <> Null", "0"}, {"I Between 1 And Null", "<null>"},
           {"I In (5, Null)", "-1"}, {"I In (1, Null)", "<null>"}, {"N Like '*'", "<null>"}, {"I + Null", "<null>"},
           {"IIf(N = 'x', 1, 2)", "2"}, {"UCase(N)", "<null>"}, {"Year(Null)", "<null>"}, {"Left$(N, 1)", "<null>"},
           {"True Xor Null", "<null>"}, {"Val(N)", "<null>"}, {"'Home: ' + N & 'x'", "x"},
           {"'Home: ' + '' & 'x'", "Home: x"}});
}

TEST_F(Expressions, Concatenation)
{
    check({{"'a' + N", "<null>"}, {"'a' & N", "a"}, {"N & N", "<null>"}, {"N & T", "Tea  "}, {"'a' + 'b'", "ab"},
           {"'a' & 1.5 & True", "a1.5-1"}, {"C & ''", "1.5"}, {"'x: ' + N & 'y' + T", "yTea  "}, {"1 + '2'", "3.0"},
           {"W & ''", "2/29/2024 12:30:00 PM"}, {"'a''b' & \"c\"\"d\"", "a'bc\"d"}, {"'a\r\n\tb'", "a\r\n\tb"},
           {"'\\n'", "\\n"}, {"I & '%_'", "5%_"}});
}

TEST_F(Expressions, TextComparison)
{
    check({{"T = 'TEA'", "-1"}, {"T = 'tea      '", "-1"}, {"T <> 'tea'", "0"}, {"' Tea' = 'Tea'", "0"}, {"'b' < 'C'", "-1"},
           {"T In ('x','TEA')", "-1"}, {"T Not In ('x','y')", "-1"}, {"T Between 's' And 'u'", "-1"},
           {"T Between 'U' And 's'", "-1"}, {"T Not Between 'u' And 's'", "0"}, {"'é' = 'e'", "0"}, {"'É' = 'é'", "-1"},
           {"Len(T)", "5"}, {"'   ' = ''", "-1"}, {"T >= 'tea'", "-1"}});
}

TEST_F(Expressions, Like)
{
    check({{"'aabb' Like '*AB*'", "-1"}, {"'Xab' Like '?ab'", "-1"}, {"'a5' Like 'a#'", "-1"}, {"'ax' Like 'a#'", "0"},
           {"'b' Like '[a-c]'", "-1"}, {"'b' Like '[!a-c]'", "0"}, {"'a%' Like 'a%'", "-1"}, {"'ab' Like 'a_'", "0"},
           {"'a*' Like 'a[*]'", "-1"}, {"'ab' Like 'a[*]'", "0"}, {"'abc' Like 'b'", "0"}, {"'O''Neil' Like 'o''*'", "-1"},
           {"T Not Like 'x*'", "-1"}, {"I Like '5'", "-1"}, {"'' Like '*'", "-1"}, {"'a' Like '[a'", "!93"},
           {"'xABC' Like '*abc'", "-1"}, {"'abcx' Like '*abc'", "0"}, {"'ab' Like 'abc*'", "0"}, {"'ABC' Like 'abc'", "-1"},
           {"'xabc' Like 'abc*'", "0"}, {"'abab c' Like '**B C**'", "-1"}, {"'' Like ''", "-1"}, {"'a' Like ''", "0"},
           {"'\u00c9a' Like '*\u00e9A*'", "-1"}, {"'\u00c9ab' Like '*AB'", "-1"}, {"'\u212a' Like 'k'", "-1"}});
}

TEST_F(Expressions, Arithmetic)
{
    check({{"1+2*3", "7"}, {"(1+2)*3", "9"}, {"-2^2", "-4.0"}, {"2^-1", "0.5"}, {"7\\2", "3"}, {"-7\\2", "-3"}, {"7 Mod 3", "1"},
           {"2*7 Mod 4", "2"}, {"7/2", "3.5"}, {"6/2", "3.0"}, {"2.5\\1", "2"}, {"1/0", "!11"}, {"I Mod 0", "!11"},
           {"10-3-2", "5"}, {"I = 5.0", "-1"}, {"'3' * '4'", "12.0"}, {"'x' * 2", "!3464"}, {"&H1F", "31"}, {"- -3", "3"},
           {"1 + 2 & 3", "33"}, {"1 < 2 And 2 < 1 Or True", "-1"}, {"Not True Or True", "-1"}, {"1 = 2 = 0", "-1"},
           {"5 And 3", "1"}, {"5 Or 3", "7"}, {"5 Xor 3", "6"}, {"True Eqv False", "0"}, {"False Imp False", "-1"},
           {"Not 5", "-6"}, {"Yes", "-1"}, {"Off", "0"}, {"B = True", "-1"}, {"B = -1", "-1"}, {"B = Yes", "-1"},
           {"K + 1", "<null>"}, {".5 + 1", "1.5"}});
}

// Cells of money are ten-thousandths.
TEST_F(Expressions, MoneyIsExact)
{
    check({{"C", "15000"}, {"C = 1.5", "-1"}, {"C > 1.49", "-1"}, {"C + 0.1", "16000"}, {"C * 3", "45000"}, {"C * 1.1", "16500"},
           {"C / 7", "2143"}, {"-C", "-15000"}, {"C - 2", "-5000"}, {"CCur(0.1) * 3 = 0.3", "-1"}, {"CCur(0.1) + CCur(0.2) = 0.3", "-1"},
           {"C * I", "75000"}, {"C * F", "37500"}, {"C In (1, 1.5)", "-1"}, {"C Between 2 And 1", "-1"}, {"C = I", "0"},
           {"CCur('12.34567')", "123457"}, {"CCur(0.00005)", "0"}, {"CCur(-.5)", "-5000"}, {"CCur(0.000051)", "1"}, {"CCur(0.00015)", "2"}, {"CCur(1000000000000000)", "!3349"},
           {"Int(CCur(-1.5))", "-20000"}, {"Fix(CCur(-1.5))", "-10000"}, {"Abs(CCur(-1.5))", "15000"},
           {"IIf(True, C, 2)", "15000"}, {"IIf(False, C, 2)", "20000"}, {"C & 'x'", "1.5x"}, {"CDbl(C)", "1.5"}, {"CLng(C)", "2"},
           {"Format(C, '$#,##0.00')", "$1.50"}, {"C * 1e300", "!3349"}, {"C / 0", "!11"}});
}

TEST_F(Expressions, Dates)
{
    check({{"#12/25/2003#", "2003-12-25 00:00:00"}, {"#25/12/2003#", "2003-12-25 00:00:00"}, {"#2003-12-25#", "2003-12-25 00:00:00"},
           {"#2004/20/12#", "!3075"}, {"#30/2/2003#", "!3075"}, {"##", "!3075"}, {"#x#", "!3075"},
           {"#Dec 25, 2003#", "2003-12-25 00:00:00"}, {"#25-Dec-2003#", "2003-12-25 00:00:00"},
           {"# 1-1-1960 #", "1960-01-01 00:00:00"}, {"#12/25/29#", "2029-12-25 00:00:00"}, {"#12/25/30#", "1930-12-25 00:00:00"},
           {"#12/25/2003 2:30:00 PM#", "2003-12-25 14:30:00"}, {"#12/25/2003 14:30#", "2003-12-25 14:30:00"},
           {"#14:30:00#", "1899-12-30 14:30:00"}, {"#12 AM#", "1899-12-30 00:00:00"}, {"#12/25/2003 24:00#", "!3075"},
           {"W = #2/29/2024#", "0"}, {"W > #2/29/2024#", "-1"}, {"W Between #3/1/2024# And #2/29/2024#", "-1"},
           {"W + 1", "2024-03-01 12:30:00"}, {"W - 0.5", "2024-02-29 00:30:00"}, {"W - #2/28/2024#", "1.52083333333576"},
           {"Int(W - #2/28/2024#)", "1.0"}, {"#1/2/1800 06:00# + 1", "1800-01-03 06:00:00"},
           {"DateSerial(2024, 2, 30)", "2024-03-01 00:00:00"}, {"DateSerial(2023, 2, 29)", "2023-03-01 00:00:00"},
           {"DateSerial(2023, 14, 0)", "2024-01-31 00:00:00"}, {"DateSerial(2023, 0, -5)", "2022-11-25 00:00:00"},
           {"DateSerial(29, 1, 1)", "2029-01-01 00:00:00"}, {"DateSerial(30, 1, 1)", "1930-01-01 00:00:00"},
           {"DateSerial(20000, 1, 1)", "!3175"}, {"Year(W)", "2024"}, {"Month(W)", "2"}, {"Day(W)", "29"}, {"Hour(W)", "12"},
           {"Minute(W)", "30"}, {"Second(W)", "0"}, {"Weekday(W)", "5"}, {"Weekday(W, 2)", "4"}, {"Year('12/25/2003')", "2003"},
           {"Date()", "2024-02-29 00:00:00"}, {"Now()", "2024-02-29 13:45:10"}, {"Time()", "1899-12-30 13:45:10"},
           {"DateAdd('m', 1, #1/31/2024#)", "2024-02-29 00:00:00"}, {"DateDiff('d', #2/28/2024#, W)", "1"},
           {"DatePart('q', W)", "1"}, {"DateValue(W)", "2024-02-29 00:00:00"}, {"TimeValue(W)", "1899-12-30 12:30:00"},
           {"CDate('2/29/2024')", "2024-02-29 00:00:00"}, {"CDate(45351)", "2024-02-29 00:00:00"}, {"CDate('x')", "!3464"},
           {"W = 45351.5208333333", "-1"}, {"W > 45351", "-1"}, {"Format(W, 'mm/dd/yyyy')", "02/29/2024"}, {"W + 3000000", "!3175"},
           {"#12/31/9999# + 1", "!3175"}, {"CDbl(#1/1/1900#)", "2.0"}, {"IsDate('2/30/2024')", "0"}, {"IsDate(W)", "-1"}});
}

TEST_F(Expressions, Functions)
{
    check({{"UCase('aé')", "AÉ"}, {"LCase('AÉ')", "aé"}, {"Left('abc', 2)", "ab"}, {"Left('abc', 9)", "abc"}, {"Left('abc', 0)", ""},
           {"Left('abc', -1)", "!5"}, {"Right('abc', 2)", "bc"}, {"Right('abc', 9)", "abc"}, {"Right('abc', 0)", ""},
           {"Mid('abc', 2)", "bc"}, {"Mid('abc', 2, 1)", "b"}, {"Mid('abc', 0)", "!5"}, {"Mid('abc', I)", ""}, {"Mid('abcdef', I, 1)", "e"},
           {"Left('äöü', 2)", "äö"}, {"Len('äöü')", "3"}, {"Trim('  a b  ')", "a b"}, {"LTrim(' a ')", "a "}, {"RTrim(' a ')", " a"},
           {"InStr('abcB', 'b')", "2"}, {"InStr(3, 'abcB', 'b')", "4"}, {"InStr('abc', 'x')", "0"}, {"InStr(1, 'aB', 'b', 0)", "0"},
           {"Val(' 12.5abc')", "12.5"}, {"Val('')", "0.0"}, {"Val(7)", "7.0"}, {"Str(5)", " 5"}, {"Format(2.5, '0')", "3"},
           {"Format(N)", ""}, {"CStr(2.5)", "2.5"}, {"CStr(True)", "True"}, {"CInt(2.5)", "2"}, {"CInt(3.5)", "4"}, {"CInt(40000)", "!6"},
           {"CLng('12.5')", "12"}, {"CByte(256)", "!6"}, {"CDbl('1.5')", "1.5"}, {"CDbl(3)", "3.0"}, {"CBool(2)", "-1"}, {"CBool('True')", "-1"},
           {"CBool('x')", "!3464"}, {"Int(-2.5)", "-3.0"}, {"Fix(-2.5)", "-2.0"}, {"Int(I)", "5"}, {"Abs(-3)", "3"}, {"Sgn(-2)", "-1"},
           {"Round(2.5)", "2.0"}, {"Asc('A')", "65"}, {"Asc('')", "!5"}, {"Chr(65)", "A"}, {"Chr(300)", "!5"}, {"StrConv('o''brien SMITH', 3)", "O'brien Smith"},
           {"Space(3) & 'x'", "   x"}, {"Switch(I = 1, 'a', I = 5, 'b')", "b"}, {"Switch(I = 1, 'a')", "<null>"},
           {"Choose(2, 'a', 'b')", "b"}, {"Choose(3, 'a', 'b')", "<null>"}, {"IIf(I = 5, 'y', 'n')", "y"}, {"IIf(I = 5, 1, 'n')", "1"},
           {"Left$(T, 1)", "T"}, {"UCase$(Trim$(T))", "TEA"}, {"Nz(N, 1)", "!3085"}, {"Left('a')", "!3075"}, {"Abs(1, 2)", "!3075"}});
}

TEST_F(Expressions, NoSilentConversionInCriteria)
{
    check({{"T = 5", "!3464"}, {"I = '5'", "!3464"}, {"W = '2/29/2024'", "!3464"}, {"T = W", "!3464"}, {"I In (1, 'x')", "!3464"},
           {"T Between 1 And 2", "!3464"}, {"B = 'True'", "!3464"}, {"C > '1'", "!3464"}, {"T And True", "!3464"},
           {"I Between '1' And '9'", "!3464"}, {"W Between '1/1/2024' And '1/1/2025'", "!3464"}, {"T = #1/1/2024#", "!3464"},
           {"'2/15/2024' Between #2/1/2024# And #2/29/2024#", "-1"}, {"T Between #2/1/2024# And #2/29/2024#", "<null>"}});
}
