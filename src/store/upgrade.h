#pragma once

#include "session/state.h"

namespace vorel {

std::int16_t GetDatabaseVersion(const QString &path);               // 0 when it cannot be read
void SetDatabaseVersion(const QString &path, int version);
std::int16_t GetProtectedDatabaseVersion(DataFile file, const QString &path);
void SetProtectedDatabaseVersion(DataFile file, const QString &path, int version);
// The stamp of an open file; here an error is thrown.
void stampVersion(dao::Database &database, int version);

// Runs once at every start: detects the date order, makes each missing data file, brings all files to the current design
// if the main file is of an older one, repairs files that do not open or that changed since the last run closed them, writes
// the rows that the screens need, and fills a new installation with sample rows. An installation is new if it had no main
// file. The main file takes its place and its version last, so that a pass which was cut short is taken up by the next
// start. A file that fails is left as it is and does not keep the others back; all is reported in one box at the end. A file
// without a path is passed over.
void UpgradeAllDatabases();

// How the data files were left at the end of a run, for desktop::releaseSingleInstance; the next start checks those that
// are different by then.
QByteArray dataFilesNote();

}

namespace vorel::store {

std::int16_t versionAt(const QString &path, const QString &connect);        // 0 when it cannot be read

}
