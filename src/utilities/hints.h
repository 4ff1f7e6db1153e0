#pragma once

#include <QStringList>

// The short hints that roll along the main screen's panel.
namespace vorel {

// Reads hints.txt, one hint a line, each with " .........." added. No such file: there are no hints.
void LoadHints();
const QStringList &Hints();
// One of the hints, picked by chance that is seeded with the time of day; "" when there is none.
QString NextHint();
inline constexpr QStringView hintEnd = u" ..........";

}
