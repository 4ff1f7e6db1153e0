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
// Whether an error of the engine says that the file is damaged, not missing, in use or kept from the user.
bool isDamage(int errorNumber);
// Mends a damaged file and says what came of it; true if it was replaced. Installed by the store.
void setDataFileMender(std::function<bool(DataFile)> mender);
bool mendDataFile(DataFile file);

// A file of the program folder by its name in the form "\\NAME".
QString programFile(const QString &name);
// A path as the configuration keeps it: one within the program folder in the form "\\NAME", so that it moves with the
// folder, any other one as it is. And back.
QString keptPath(const QString &path);
QString foundPath(const QString &kept);
// For each data file: an empty or vanished path becomes program folder + default name, written back at once. Where the
// configuration names files of another folder and files of the same names lie in the program folder, asks which ones to use,
// once for each program folder.
void loadDataPaths();

}
