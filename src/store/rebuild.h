#pragma once

#include "session/state.h"

// One data file made, mended or brought to the current design of its tables.
namespace vorel {

// Serves the file at the path as the given one of the thirteen: makes it where it is missing; else repairs it, leaves a
// safety copy beside it (.BAK) and brings it to the wanted design and version. All work happens on a scratch file that takes
// the place in one step, so that an error or a kill leaves the file as it was. Asks only where the file is beyond repair:
// whether to restore the copy, whether to begin anew.
// True if the file was replaced, false if the user wants none. Throws what ended the work.
bool UpgradeDatabase(DataFile file, const QString &path, int version);

// Repairs the file and writes it without its unused space. Not for protected files. Nothing without a file.
void CompactFile(const QString &path);

// The safety copy's place: the path up to the first point of the file's name, and ".BAK".
QString backupNameOf(const QString &path);

}
