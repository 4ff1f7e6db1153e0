#include "platform/dao/dao.h"

#include "platform/basic/files.h"
#include "platform/dao/registry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void fail(int systemError, const QString &path)
{
    if (systemError == ENOSPC || systemError == EDQUOT || systemError == EFBIG)
        throw EngineError(err::DiskFull);
    throw EngineError(err::NoPermission, QDir::toNativeSeparators(path));
}

// The system's error; 0: what was written is on the disk.
int trySync(const QString &path, int flags)
{
    const int file = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC);
    if (file < 0)
        return errno;
    const int error = ::fsync(file) == 0 ? 0 : errno;
    ::close(file);
    return error;
}

void sync(const QString &path, int flags)
{
    if (const int error = trySync(path, flags); error != 0)
        fail(error, path);
}

// Two folders on two disks: the file is brought beside its place first.
QString besidePlace(const QString &scratch, const QString &place)
{
    const QString copy = place + u".making"_s;
    QFile::remove(copy);
    QFile source(scratch);
    if (!source.copy(copy)) {
        const int error = errno;
        QFile::remove(copy);
        fail(error, place);
    }
    sync(copy, O_RDONLY);
    return copy;
}

int moveOver(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0 ? 0 : errno;
}

}

void DBEngine::putInPlace(const QString &scratch, const QString &place)
{
    const QString from = basic::realPath(scratch);
    // A link stays one: what it points at is replaced.
    const QString linked = QFileInfo(basic::realPath(place)).canonicalFilePath();
    const QString to = linked.isEmpty() ? basic::realPath(place) : linked;
    if (registry::inUse(from) || registry::inUse(to))
        throw EngineError(err::FileInUse, QDir::toNativeSeparators(to));
    registry::forget(from);
    registry::forget(to);
    sync(from, O_RDONLY);
    // What an interrupted write left beside the place would be played into the new file.
    for (const QString &suffix : { u"-journal"_s, u"-wal"_s }) {
        if (QFile::exists(to + suffix))
            moveOver(to + suffix, to + suffix + u".old"_s);
    }
    int error = moveOver(from, to);
    if (error == EXDEV) {
        const QString copy = besidePlace(from, to);
        error = moveOver(copy, to);
        QFile::remove(error == 0 ? from : copy);
    }
    if (error != 0)
        fail(error, to);
    // Some file systems refuse to sync a folder; the new file is in its place all the same.
    trySync(QFileInfo(to).absolutePath(), O_RDONLY | O_DIRECTORY);
}

}
