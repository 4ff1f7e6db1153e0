#pragma once

#include <QStringList>

// Texts for a place of a fixed size, such as a label or an envelope: they are set smaller, broken and at last cut with an
// ellipsis before they would leave it. Internal to this folder.
namespace vorel {

class PrintJob;

struct FittedText {
    QStringList lines;
    double size = 0;            // points
};
// Lengths in units of the job's scale, sizes in points; the job's font is the one that counts. Lines are broken at line
// ends, blank ones left out. The job keeps its font size.
FittedText fitText(PrintJob &job, const QStringList &lines, double width, double height, double size, double leastSize);
// The lines below each other from the place on; the job keeps the fitted size. Never turns the page.
void writeFitted(PrintJob &job, const FittedText &text, double x, double y);
// One line, cut with an ellipsis where it is wider than the space.
QString elided(const PrintJob &job, const QString &text, double room);

}
