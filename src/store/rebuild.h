#pragma once

#include "session/state.h"

#include <functional>

// One data file created, mended or brought to the current design of its tables.
namespace vorel {

// Serves the file at the path as the given one of the thirteen: makes it where it is missing; else repairs it, leaves a
// safety copy beside it (.BAK) and brings it to the wanted design and version. All work happens on a scratch file that takes
// the place in one step, so that an error or a kill leaves the file as it was. Asks only where the file is beyond repair:
// whether to restore the copy, whether to start over.
// True if the file was replaced, false if the user wants none. Throws what ended the work.
bool UpgradeDatabase(DataFile file, const QString &path, int version);

// Repairs the file and writes it without its unused space. Not for protected files. Nothing without a file.
void CompactFile(const QString &path);

// The safety copy's place: the path up to the first point of the file's name, and ".BAK".
QString backupNameOf(const QString &path);

}

namespace vorel::store {

struct RebuildWishes {
    int version = 0;
    bool onlyIfDamaged = false;                         // a sound file is left as it is, byte for byte
    std::function<void(dao::Database &)> fill{};        // first rows: the file takes its place with them or not at all
};

// What became of a damaged file, for the user.
struct Mending {
    QString path, original;                 // original: where the damaged file lies now, "" for a sound file
    qsizetype rowsSeen = 0, rowsSaved = 0;
    bool beyondRepair = false;              // nothing could be read
    bool fromCopy = false;                  // the safety copy took its place
    QStringList lost;                       // tables with missing rows
    bool wasDamaged() const { return !original.isEmpty(); }
};

// As UpgradeDatabase. `mending` is filled also where an error ends the work after the repair.
bool rebuildFile(DataFile file, const QString &path, const RebuildWishes &wishes, Mending &mending);

// Removes what a run that was broken off left of its scratch files beside the data files. Only for the holder of the
// folders' locks: then no living program works on them.
void removeDeadScratch(const QStringList &names);
// Their names, of the data files at the paths.
QStringList scratchBeside(const QStringList &paths);

}
