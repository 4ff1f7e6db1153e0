#pragma once

#include "frame/state.h"

namespace vorel {

std::int16_t GetDatabaseVersion(const QString &path);               // 0 when it cannot be read
void SetDatabaseVersion(const QString &path, int version);
std::int16_t GetProtectedDatabaseVersion(DataFile file, const QString &path);
void SetProtectedDatabaseVersion(DataFile file, const QString &path, int version);

// Runs once at every start: detects the date order, makes the main file with its tables where it is missing, and the
// row of Setup. A file that cannot be read gives its message and is left as it is.
void UpgradeAllDatabases();

}
