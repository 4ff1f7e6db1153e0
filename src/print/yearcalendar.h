#pragma once

namespace vorel {

class PrintJob;

// The twelve months of the present year as small blocks, three to the row, from a height of the page on; scale in twips.
// Returns the height at which they end.
double PrintYearCalendar(PrintJob &job, double top);
// Where the strip begins and ends across.
inline constexpr double yearStripLeft = 5480, yearStripRight = 10540;

}
