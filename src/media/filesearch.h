#pragma once

#include "platform/basic/task.h"

#include <QStringList>
#include <optional>

// The search for a file that has moved, over the drives of this machine.
namespace vorel {

enum class DriveType { None, Removable, Fixed, Remote, CdRom, RamDisk };
QString driveTypeName(DriveType type);                  // "Fixed Drive", ...
// By the kind of its file system and its device, e.g. "ext4", "/dev/sda1"; removable: the device can be taken out.
DriveType driveTypeOf(const QString &fileSystem, const QString &device, bool removable);
QStringList fixedDrives();                              // where they are mounted, each drive once
QStringList searchRoots();                              // where a search begins: the fixed drives, or the folders set
void setSearchRoots(const QStringList &folders);        // none: the fixed drives again

QString StripNulls(const QString &text);                // the text before its first null character
// The first file of the name (in any case) below the path, nearest first; "" if there is none, or if the work is to stop.
// Neither links nor other drives are followed; folders without permission are passed over. Any thread.
QString FindFilesAPI(const QString &path, const QString &name, basic::TaskContext &context);
// The same below several folders, one after the other. Nothing if it was stopped.
std::optional<QString> searchFile(const QStringList &roots, const QString &name, basic::TaskContext &context);

}
