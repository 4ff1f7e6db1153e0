#pragma once

#include <QString>

namespace vorel::basic {

// The file name of a plain file at the path, or "" if there is none (a folder does not count). The last components are found
// whatever their case. Both "\" and "/" part folders.
QString Dir(const QString &path);
// "\NAME" (one backslash) is NAME in the program folder, wherever that lies; "\\HOST\NAME" is not.
// The path as it really is on disk (case found, separators the system's), or the path with the
// system's separators, below the folders that are there, when nothing is there.
QString realPath(const QString &path);
// The form in which a path is stored: of one within the program folder "\BookPictures\x.jpg", which stays true when the
// folder is moved or copied; of any other the path itself.
QString keptPath(const QString &path);
// The folder of data, configuration and scratch files; decided once (see desktop/programfolder.h), set by tests.
const QString &programFolder();
void setProgramFolder(const QString &path);

}
