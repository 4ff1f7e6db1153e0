#pragma once

#include "platform/basic/decimal.h"

// The three kinds of pattern that Format knows. Internal to this folder.
namespace vorel::basic::detail {

QString formatNumber(const Decimal &number, QStringView pattern, const Regional &settings);
QString formatCurrency(const Decimal &number, const Regional &settings);
QString formatText(QStringView text, QStringView pattern);
// The parts of a pattern between the ";" that are outside quotes; at most four.
int splitSections(QStringView pattern, QStringView (&sections)[4]);

}
