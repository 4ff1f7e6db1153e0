#pragma once

#include <QByteArray>
#include <QString>

namespace vorel::desktop {

// An exclusive lock that belongs to an open file: the system drops it with the process, however that ends, so nothing of
// a dead run can be taken for a living one. A child process does not inherit it.
class SystemLock {
public:
    // File: the file is created where it is missing, and stays. Folder: nothing is created.
    enum class Kind { File, Folder };
    // Waits for another holder for as long as `waitMilliseconds`.
    SystemLock(const QString &path, Kind kind, int waitMilliseconds = 0);
    ~SystemLock();
    SystemLock(const SystemLock &) = delete;
    SystemLock &operator=(const SystemLock &) = delete;

    bool isHeld() const { return m_held; }
    bool isTaken() const { return m_taken; }        // another process or object holds it
    // Neither held nor taken: the place cannot be opened, or its file system knows no locks.

    // Of a file; what cannot be read is empty, what cannot be written is skipped.
    QByteArray content() const;
    void setContent(const QByteArray &content);

private:
    int m_file = -1;
    bool m_held = false, m_taken = false;
};

}
