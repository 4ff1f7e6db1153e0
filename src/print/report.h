#pragma once

#include "platform/basic/value.h"

// What every report begins, rules and ends with.
namespace vorel {

// 0 or empty takes the default (Arial, 10, millimetres, portrait), which is written back. Recorded in the order font name,
// size, orientation, scale. Shows the hourglass; the target is the screen.
void ReportStart(QString &fontName, double &fontSize, int &scaleMode, int &orientation);
void ReportStart(const QString &fontName, double fontSize, int scaleMode, int orientation);
void ReportHeading(const QString &title);       // a centred block: the title, and today's date
void PrintRule();                               // a line across the page at the pen
void PrintLineTo(double x1, double y1, double x2, double y2);       // x2, y2 from the first point
bool isAtPageFoot();                            // less than five lines are left
void PageFootCheck();                           // then the page is closed and a new one begun
void PrintPageNumber();

}
