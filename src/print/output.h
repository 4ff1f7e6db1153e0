#pragma once

#include <QString>

// What the preview's buttons do with the script that is open: onto paper, or into a file.
namespace vorel {

void printPages();                      // the pages between the bounds; without a printer offers to save them instead
// Each odd page as a job of its own, then, once the paper lies the other way round, each even one.
void printBooklet();
bool savePdf();                         // asks for the file; false when that was cancelled
void savePdf(const QString &path);      // all pages; 75 when the file cannot be written

}
