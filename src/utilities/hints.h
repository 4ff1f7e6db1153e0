#pragma once

#include <QStringList>
#include <vector>

// The short hints that roll along the main screen's panel.
namespace vorel {

// Reads hints.txt, one hint a line, each with " .........." added. No such file: there are no hints. A line that begins with
// the tag of a feature, such as "[setup] ", is a hint only where the program has that feature.
void LoadHints();
const QStringList &Hints();
// One of the hints, picked by chance that is seeded with the time of day; "" when there is none.
QString NextHint();
// What hints and pages of help may speak of before the program has it.
struct Feature {
    QStringView tag;
    bool isThere;
    QStringView screen = {};        // by which name the pages of other sections send the user there; "" = they do not
};
const std::vector<Feature> &features();
bool hasFeature(QStringView tag);   // true also for a tag that is in no table
inline constexpr QStringView hintEnd = u" ..........";

}
