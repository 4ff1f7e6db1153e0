#pragma once

#include <QString>

// What the preview's buttons do with a job's pages: onto paper, or into a file.
namespace vorel {

class PrintJob;

enum class SavedPages { All, Bounds };

// The pages between the player's bounds; without a printer offers to save them instead.
void printPages(PrintJob &job);
// Each odd page as a print of its own, then, once the paper lies the other way round, each even one.
void printBooklet(PrintJob &job);
// Asks for the file; false when that was cancelled.
bool savePdf(PrintJob &job, SavedPages which = SavedPages::All);
void savePdf(PrintJob &job, const QString &path, SavedPages which = SavedPages::All);      // 75 when it cannot be written
// "pages 2 to 4" where the bounds leave pages out, else "": what Print will print.
QString chosenPages(PrintJob &job);

}
