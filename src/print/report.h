#pragma once

#include <QString>

// What every report begins, rules and ends with.
namespace vorel {

class PrintJob;

struct ReportStyle {
    QString fontName{};             // "": Arial
    double fontSize = 0;            // points; 0: 10
    int scaleMode = 0;              // 0: millimetres
    int orientation = 0;            // 0: portrait
};
// Returns the style with its defaults filled in. Recorded in the order font name, size, orientation, scale. Shows the
// hourglass; the target is the screen.
ReportStyle ReportStart(PrintJob &job, ReportStyle style);
void ReportHeading(PrintJob &job, const QString &title);       // a centred block: the title, and today's date
void PrintRule(PrintJob &job);                                 // a line across the page at the pen
void PrintLineTo(PrintJob &job, double x1, double y1, double x2, double y2);       // x2, y2 from the first point
bool isAtPageFoot(const PrintJob &job);                        // fewer than five lines are left
void PageFootCheck(PrintJob &job);                             // then the page is closed and a new one begun
void PrintPageNumber(PrintJob &job);

}
