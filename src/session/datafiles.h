#pragma once

#include "session/state.h"

#include <functional>

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
// The connect string of the file: with the password for a protected one, else empty.
QString connectString(DataFile file);

// Opens a data file. The passwords are in the main file as long as they have no file of their own.
struct DataPlace {
    DataFile file;
    QString path, connect;
};
DataPlace dataPlace(DataFile file);
// The one way to open a data file. One that fails to open because it is damaged is mended first, if somebody mends.
// Throws EngineError, as DBEngine::OpenDatabase does.
dao::Database openDataFile(DataFile file, bool exclusive = false, bool readOnly = false);
// The same by the path, for what keeps a path; a file that is none of the thirteen is just opened.
dao::Database openDataFileAt(const QString &path, const QString &connect = {});
// Whether an error of the engine says that the file is damaged, not missing, in use or kept from the user.
bool isDamage(int errorNumber);
// Mends a damaged file and says what came of it; true if it was replaced. Installed by the store.
void setDataFileMender(std::function<bool(DataFile)> mender);
bool mendDataFile(DataFile file);

// A file of the program folder by its name in the form "\\NAME".
QString programFile(const QString &name);
// For each data file: an empty or vanished path becomes program folder + default name, written back at once. Where the
// configuration names files of another folder and files of the same names lie in the program folder, asks which ones to use,
// once for each program folder.
void loadDataPaths();

}
