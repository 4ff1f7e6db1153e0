#include "platform/desktop/systemlock.h"

#include <QElapsedTimer>
#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vorel::desktop {

namespace {

constexpr int pauseMicroseconds = 20'000;            // between two tries: short for the user, cheap for the machine
constexpr qsizetype contentKept = 64 * 1024;        // a lock file of ours is far shorter; a foreign one is not read whole

int openFile(const QByteArray &name)
{
    const int file = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600);
    if (file >= 0)
        return file;
    // The user's own file may have lost its write permission, in a folder that was copied from a disc. Another user's is
    // not taken: who only reads another user's folder must not keep its owner out.
    struct stat info {};
    if (::stat(name.constData(), &info) != 0 || info.st_uid != ::geteuid())
        return -1;
    return ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

}

SystemLock::SystemLock(const QString &path, Kind kind, int waitMilliseconds)
{
    const QByteArray name = QFile::encodeName(path);
    m_file = kind == Kind::File ? openFile(name) : ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_file < 0)
        return;
    QElapsedTimer waited;
    waited.start();
    while (::flock(m_file, LOCK_EX | LOCK_NB) != 0) {
        m_taken = errno == EWOULDBLOCK;
        if (errno == EINTR)
            continue;
        if (!m_taken || waited.elapsed() >= waitMilliseconds)
            return;
        ::usleep(pauseMicroseconds);
    }
    m_held = true;
    m_taken = false;
}

SystemLock::~SystemLock()
{
    if (m_file >= 0)
        ::close(m_file);
}

QByteArray SystemLock::content() const
{
    QByteArray bytes(contentKept, '\0');
    const ssize_t got = m_held ? ::pread(m_file, bytes.data(), static_cast<size_t>(bytes.size()), 0) : -1;
    bytes.truncate(got > 0 ? got : 0);
    return bytes;
}

void SystemLock::setContent(const QByteArray &content)
{
    if (!m_held || ::ftruncate(m_file, 0) != 0)
        return;
    const ssize_t written = ::pwrite(m_file, content.constData(), static_cast<size_t>(content.size()), 0);
    static_cast<void>(written);
}

}
