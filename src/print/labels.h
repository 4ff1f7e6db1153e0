#pragma once

#include <QStringList>
#include <vector>

namespace vorel {

// Sheets of labels, two columns of seven, numbered in the order of reading.
inline constexpr int labelsPerSheet = 14;

// Each label is its lines, the name first; one without a name leaves its place free. first: the place of the first one, so
// that a sheet that was begun can be used up; out of range it is the last. Shows the preview, or says that there is nothing
// to print.
void PrintLabels(const std::vector<QStringList> &labels, int first = 1);

// The start that a typed text means: 1 to 14, and 14 for whatever is out of range.
int labelStart(const QString &typed);

// Where the text of a label is placed, in twips of the page's printable part. pageHeight: of that part; on a short sheet
// the last labels have less space.
struct LabelPlace { double x = 0, y = 0, width = 0, height = 0; };
LabelPlace labelPlace(int number, double pageHeight);

}
