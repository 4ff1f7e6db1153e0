#pragma once

#include <QStringList>
#include <optional>

namespace vorel {

// The units in the order of the list.
const QStringList &conversionUnits();
// The other units of the same kind, in the same order; none for an unknown unit.
QStringList unitsLike(const QString &unit);

// The amount that a user typed, with the region's decimal point or with "."; 0 for a text that begins with no number.
double typedAmount(const QString &text);
// What a user should know about a pair; "" where there is nothing.
QString conversionNote(const QString &from, const QString &to);

// The amount in the other unit, as a text in the pair's own format; the names' case does not count. Nothing for an
// amount of 0 and for a pair that cannot be converted.
std::optional<QString> convertUnits(double amount, const QString &from, const QString &to);

}
