#pragma once

#include "session/state.h"

// The thirteen data files: their settings, names and passwords, and the one way to open them.
namespace vorel {

struct DataFileEntry {
    DataFile file;
    QString key;                // in "Settings"
    QString defaultName;        // "\\VOREL.MDB"
    bool isProtected;           // opened with the fixed password
};
const std::array<DataFileEntry, static_cast<std::size_t>(DataFile::Count)> &dataFiles();
const DataFileEntry &dataFileEntry(DataFile file);

QString protectedConnect();     // ";pwd=" and the fixed password
// The connect string that opens the file: with the password for a protected one, else empty.
QString connectString(DataFile file);
// Opens the file at its path with its password. Throws EngineError, as DBEngine::OpenDatabase does.
dao::Database openDataFile(DataFile file, bool exclusive = false, bool readOnly = false);

// A file of the program folder by its name in the form "\\NAME".
QString programFile(const QString &name);
// For each data file: an empty or vanished path becomes program folder + default name, written back at once.
void loadDataPaths();

}
