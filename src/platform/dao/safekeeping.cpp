#include "platform/dao/safekeeping.h"

#include "platform/dao/connection.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

// Where the store locks: a pending byte, a reserved byte, the shared range.
constexpr off_t pendingByte = 0x40000000;
constexpr off_t reservedByte = pendingByte + 1;
constexpr off_t lockedBytes = 512;

[[noreturn]] void throwFileError(const QString &path)
{
    const int error = errno;
    const bool full = error == ENOSPC || error == EFBIG || error == EDQUOT;
    const bool refused = error == EACCES || error == EPERM || error == EROFS || error == ENOENT || error == EISDIR;
    throw EngineError(full ? err::DiskFull : refused ? err::NoPermission : err::DiskError, QDir::toNativeSeparators(path));
}

class Descriptor {
public:
    Descriptor(const QString &path, int flags) : m_path(path), m_file(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, 0600))
    {
        if (m_file < 0)
            throwFileError(path);
    }
    ~Descriptor() { ::close(m_file); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    int get() const { return m_file; }

    qsizetype read(char *into, qsizetype most) const
    {
        const ssize_t got = ::read(m_file, into, static_cast<size_t>(most));
        if (got < 0)
            throwFileError(m_path);
        return got;
    }
    void write(const char *from, qsizetype count) const
    {
        while (count > 0) {
            const ssize_t done = ::write(m_file, from, static_cast<size_t>(count));
            if (done < 0)
                throwFileError(m_path);
            from += done;
            count -= done;
        }
    }

private:
    QString m_path;
    int m_file;
};

struct flock lockOf(off_t start, off_t length, short kind)
{
    struct flock lock = {};
    lock.l_type = kind;
    lock.l_whence = SEEK_SET;
    lock.l_start = start;
    lock.l_len = length;
    return lock;
}

void syncFolderOf(const QString &path)
{
    const int folder = ::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(), O_RDONLY | O_DIRECTORY);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

void rename(const QString &from, const QString &to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        throw EngineError(err::NoPermission, QDir::toNativeSeparators(to));
    syncFolderOf(to);
}

}

Scratch::Scratch(const QString &place, const QString &suffix) : m_path(place + suffix)
{
    clean();
}

void Scratch::moveTo(const QString &place) const
{
    rename(m_path, place);
}

void Scratch::clean() const
{
    for (const QString &beside : { u""_s, u"-journal"_s, u"-wal"_s, u"-shm"_s })
        QFile::remove(m_path + beside);
}

FileLock::FileLock(const QString &path)
{
    constexpr int pause = 20;
    m_file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
    if (m_file < 0)
        throw EngineError(err::NoPermission, QDir::toNativeSeparators(path));
    struct flock lock = lockOf(pendingByte, lockedBytes, F_WRLCK);
    for (int waited = 0; ::fcntl(m_file, F_OFD_SETLK, &lock) != 0; waited += pause) {
        const bool taken = errno == EAGAIN || errno == EACCES;
        if (taken && waited < lockWait()) {
            sqlite3_sleep(pause);
            continue;
        }
        ::close(m_file);
        throw EngineError(taken ? err::OpenedExclusively : err::DiskError, QDir::toNativeSeparators(path));
    }
}

FileLock::~FileLock()
{
    ::close(m_file);
}

bool isBeingWritten(const QString &path)
{
    const Descriptor file(path, O_RDONLY);
    struct flock lock = lockOf(reservedByte, 1, F_WRLCK);
    return ::fcntl(file.get(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

QByteArray contentOf(const QString &path)
{
    const Descriptor file(path, O_RDONLY);
    struct stat info = {};
    if (::fstat(file.get(), &info) != 0)
        throwFileError(path);
    QByteArray content(static_cast<qsizetype>(info.st_size), Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < content.size()) {
        const qsizetype got = file.read(content.data() + filled, content.size() - filled);
        if (got == 0)
            break;
        filled += got;
    }
    content.truncate(filled);
    return content;
}

void copyFile(const QString &from, const QString &to)
{
    const Descriptor source(from, O_RDONLY);
    const Descriptor target(to, O_WRONLY | O_CREAT | O_TRUNC);
    QByteArray chunk(1 << 20, Qt::Uninitialized);
    while (const qsizetype got = source.read(chunk.data(), chunk.size()))
        target.write(chunk.constData(), got);
    if (::fsync(target.get()) != 0)
        throwFileError(to);
}

void setSamePermissions(const QString &from, const QString &to)
{
    QFile::setPermissions(to, QFile::permissions(from));
}

QString freeDamagedName(const QString &path)
{
    QString name = path + u".damaged"_s;
    for (int number = 2; QFileInfo::exists(name) || QFileInfo(name).isSymLink(); ++number)
        name = path + u".damaged%1"_s.arg(number);
    return name;
}

QString setAside(const QString &path)
{
    const QString name = freeDamagedName(path);
    rename(path, name);
    return name;
}

QString keepDamaged(const QString &path)
{
    const QString name = freeDamagedName(path);
    if (::link(QFile::encodeName(path).constData(), QFile::encodeName(name).constData()) == 0) {
        syncFolderOf(name);
        return name;
    }
    // Not every file system knows a second name.
    try {
        copyFile(path, name);
        setSamePermissions(path, name);
    } catch (const EngineError &) {
        QFile::remove(name);
        throw;
    }
    return name;
}

}
