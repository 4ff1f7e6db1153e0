#include "utilities/conversions.h"

#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/format.h"
#include "platform/basic/locale.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr int overflowError = 6;

struct Conversion {
    QStringView from, to;
    double (*convert)(double x);
    QStringView format;                 // "" shows the number as it comes
};

// Some of the factors are round figures: what people have noted by them stays comparable. So the way back is not always
// the way there (1 yard is 91.5 centimetres and 0.9144 metres), and Celsius is the rule of thumb, double and add.
constexpr Conversion table[] = {
    {u"CELSIUS", u"FARENHEIGHT", [](double x) { return x + x + 24; }, u"###"},
    {u"FARENHEIGHT", u"CELSIUS", [](double x) { return (x - 32) * 5 / 9; }, u"###"},
    {u"CENTIMETRES", u"FEET", [](double x) { return x / 30.48; }, u"######.##"},
    {u"CENTIMETRES", u"MILLIMETRES", [](double x) { return x * 10; }, {}},
    {u"CENTIMETRES", u"INCHES", [](double x) { return x / 2.54; }, u"######.##"},
    {u"CENTIMETRES", u"METRES", [](double x) { return x / 100; }, {}},
    {u"CENTIMETRES", u"MILES", [](double x) { return x / 30.48 / 5280; }, {}},
    {u"CENTIMETRES", u"YARDS", [](double x) { return x / 91.5; }, u"######.###"},
    {u"FEET", u"MILLIMETRES", [](double x) { return x * 30.48 * 10; }, {}},
    {u"FEET", u"CENTIMETRES", [](double x) { return x * 30.48; }, {}},
    {u"FEET", u"INCHES", [](double x) { return x * 12; }, {}},
    {u"FEET", u"METRES", [](double x) { return x * 0.3048; }, {}},
    {u"FEET", u"MILES", [](double x) { return x / 5280; }, u"######.####"},
    {u"FEET", u"YARDS", [](double x) { return x / 3; }, {}},
    {u"INCHES", u"CENTIMETRES", [](double x) { return x * 2.54; }, {}},
    {u"INCHES", u"FEET", [](double x) { return x / 12; }, u"######.##"},
    {u"INCHES", u"METRES", [](double x) { return x * 2.54 / 100; }, u"######.##"},
    {u"INCHES", u"MILLIMETRES", [](double x) { return x * 2.54 * 10; }, u"######.##"},
    {u"INCHES", u"YARDS", [](double x) { return x / 36; }, u"######.##"},
    {u"INCHES", u"MILES", [](double x) { return x / 63360; }, u"######.###"},
    {u"GALLONS", u"PINTS", [](double x) { return x * 8; }, {}},
    {u"GALLONS", u"QUARTS", [](double x) { return x * 4; }, {}},
    {u"KILOGRAMS", u"OUNCES", [](double x) { return x * 2.2046 * 16; }, {}},
    {u"KILOGRAMS", u"POUNDS", [](double x) { return x * 2.2046; }, {}},
    {u"KILOGRAMS", u"STONES", [](double x) { return x * 2.2046 / 14; }, u"######.###"},
    {u"KILOMETRES", u"MILES", [](double x) { return x * 0.6214; }, {}},
    {u"KILOMETRES", u"METRES", [](double x) { return x * 1000; }, {}},
    {u"KILOMETRES", u"YARDS", [](double x) { return x * 0.6214 * 1760; }, {}},
    {u"KILOMETRES", u"FEET", [](double x) { return x * 0.6214 * 1760 * 3; }, {}},
    {u"KILOMETRES", u"INCHES", [](double x) { return x * 0.6214 * 1760 * 3 * 12; }, {}},
    {u"METRES", u"MILLIMETRES", [](double x) { return x * 1000; }, {}},
    {u"METRES", u"CENTIMETRES", [](double x) { return x * 100; }, {}},
    {u"METRES", u"KILOMETRES", [](double x) { return x / 1000; }, {}},
    {u"METRES", u"YARDS", [](double x) { return x / 0.9144; }, {}},
    {u"METRES", u"MILES", [](double x) { return x / 1600; }, {}},
    {u"MILES", u"CENTIMETRES", [](double x) { return x * 1600 * 100; }, u"##########"},
    {u"MILES", u"MILLIMETRES", [](double x) { return x * 1600 * 1000; }, u"##########"},
    {u"MILES", u"FEET", [](double x) { return x * 5280; }, {}},
    {u"MILES", u"INCHES", [](double x) { return x * 5280 * 12; }, {}},
    {u"MILES", u"KILOMETRES", [](double x) { return x * 1.6; }, {}},
    {u"MILES", u"METRES", [](double x) { return x * 1600; }, {}},
    {u"MILES", u"YARDS", [](double x) { return x * 1760; }, u"######.##"},
    {u"MILLIMETRES", u"METRES", [](double x) { return x / 1000; }, {}},
    {u"MILLIMETRES", u"INCHES", [](double x) { return x / 25.4; }, {}},
    {u"MILLIMETRES", u"CENTIMETRES", [](double x) { return x / 10; }, {}},
    {u"OUNCES", u"POUNDS", [](double x) { return x / 16; }, {}},
    {u"OUNCES", u"STONES", [](double x) { return x / 16 / 14; }, u"######.###"},
    {u"OUNCES", u"KILOGRAMS", [](double x) { return x / 16 / 2.2; }, u"######.###"},
    {u"PINTS", u"GALLONS", [](double x) { return x / 8; }, {}},
    {u"PINTS", u"QUARTS", [](double x) { return x / 4; }, {}},
    {u"POUNDS", u"OUNCES", [](double x) { return x * 16; }, {}},
    {u"POUNDS", u"STONES", [](double x) { return x / 14; }, u"######.##"},
    {u"POUNDS", u"KILOGRAMS", [](double x) { return x / 2.2; }, u"######.##"},
    {u"QUARTS", u"GALLONS", [](double x) { return x / 4; }, {}},
    {u"STONES", u"OUNCES", [](double x) { return x * 14 * 16; }, {}},
    {u"STONES", u"POUNDS", [](double x) { return x * 14; }, {}},
    {u"STONES", u"KILOGRAMS", [](double x) { return x * 14 / 2.2; }, u"######.##"},
    {u"YARDS", u"FEET", [](double x) { return x * 3; }, {}},
    {u"YARDS", u"MILLIMETRES", [](double x) { return x * 91.5 * 10; }, {}},
    {u"YARDS", u"CENTIMETRES", [](double x) { return x * 91.5; }, {}},
    {u"YARDS", u"INCHES", [](double x) { return x * 36; }, {}},
    {u"YARDS", u"METRES", [](double x) { return x * 0.9144; }, {}},
    {u"YARDS", u"MILES", [](double x) { return x / 1760; }, u"######.###"},
    // The rest goes by the same factors.
    {u"CENTIMETRES", u"KILOMETRES", [](double x) { return x / 100 / 1000; }, {}},
    {u"FEET", u"KILOMETRES", [](double x) { return x * 0.3048 / 1000; }, {}},
    {u"INCHES", u"KILOMETRES", [](double x) { return x * 2.54 / 100 / 1000; }, {}},
    {u"YARDS", u"KILOMETRES", [](double x) { return x * 0.9144 / 1000; }, {}},
    {u"KILOMETRES", u"CENTIMETRES", [](double x) { return x * 1000 * 100; }, {}},
    {u"KILOMETRES", u"MILLIMETRES", [](double x) { return x * 1000 * 1000; }, {}},
    {u"METRES", u"FEET", [](double x) { return x / 0.3048; }, {}},
    {u"METRES", u"INCHES", [](double x) { return x * 100 / 2.54; }, {}},
    {u"MILLIMETRES", u"FEET", [](double x) { return x / 10 / 30.48; }, {}},
    {u"MILLIMETRES", u"KILOMETRES", [](double x) { return x / 1000 / 1000; }, {}},
    {u"MILLIMETRES", u"MILES", [](double x) { return x / 10 / 30.48 / 5280; }, {}},
    {u"MILLIMETRES", u"YARDS", [](double x) { return x / 10 / 91.5; }, {}},
    {u"QUARTS", u"PINTS", [](double x) { return x / 4 * 8; }, {}},
};

const Conversion *find(const QString &from, const QString &to)
{
    const auto found = std::find_if(std::begin(table), std::end(table), [&](const Conversion &row) {
        return row.from == from.toUpper() && row.to == to.toUpper();
    });
    return found == std::end(table) ? nullptr : &*found;
}

}

const QStringList &conversionUnits()
{
    static const QStringList units = {
        u"Celsius"_s, u"Centimetres"_s, u"Farenheight"_s, u"Feet"_s, u"Gallons"_s, u"Kilograms"_s, u"Kilometres"_s,
        u"Metres"_s, u"Miles"_s, u"Millimetres"_s, u"Inches"_s, u"Ounces"_s, u"Pints"_s, u"Quarts"_s, u"Pounds"_s,
        u"Stones"_s, u"Yards"_s};
    return units;
}

QStringList unitsLike(const QString &unit)
{
    QStringList same;
    std::copy_if(conversionUnits().begin(), conversionUnits().end(), std::back_inserter(same),
                 [&](const QString &other) { return find(unit, other) != nullptr; });
    return same;
}

std::optional<QString> convertUnits(double amount, const QString &from, const QString &to)
{
    const Conversion *row = find(from, to);
    if (!row || amount == 0)
        return {};
    const double result = row->convert(amount);
    if (!std::isfinite(result))
        throw basic::BasicError(overflowError);
    const QString shown = basic::Format(result, row->format);
    // The patterns have no digit that must be shown: what they round to nothing would leave no figure at all.
    const bool hasDigit = std::any_of(shown.begin(), shown.end(), [](QChar c) { return c.isDigit(); });
    return hasDigit ? shown : u"0"_s;
}

double typedAmount(const QString &text)
{
    const basic::Regional &region = basic::regional();
    QString plain = text.trimmed();
    static const QRegularExpression blanks(u"\\s"_s);
    if (plain.contains(region.decimalPoint) && region.decimalPoint != u'.') {
        plain.remove(u'.').remove(region.thousands).remove(blanks);
        plain.replace(region.decimalPoint, u'.');
    } else if (region.thousands != u'.') {
        // Marks between groups of three digits, as the region writes them; any other ends the number.
        const QRegularExpression grouped(u"^[+-]?\\d{1,3}(%1\\d{3})+(?!\\d)"_s.arg(QRegularExpression::escape(region.thousands)));
        if (grouped.match(plain).hasMatch())
            plain.remove(region.thousands);
    }
    return basic::valOr(plain, 0);
}

QString conversionNote(const QString &from, const QString &to)
{
    if (from.compare(u"CELSIUS"_s, Qt::CaseInsensitive) == 0 && to.compare(u"FARENHEIGHT"_s, Qt::CaseInsensitive) == 0)
        return u"A rule of thumb: twice the degrees and 24 more. It is a few degrees out where it is very hot or cold."_s;
    return {};
}

}
