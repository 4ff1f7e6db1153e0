#pragma once

#include <QByteArray>
#include <QString>

// Files that must not get lost while one takes another's place.
namespace vorel::dao {

// A file under construction beside its place: gone at the end unless it is put there.
class Scratch {
public:
    Scratch(const QString &place, const QString &suffix);
    ~Scratch() { clean(); }
    Scratch(const Scratch &) = delete;
    Scratch &operator=(const Scratch &) = delete;
    const QString &path() const { return m_path; }
    // One rename: whoever looks sees the old file or the new one. 3051 if it fails.
    void moveTo(const QString &place) const;

private:
    void clean() const;
    QString m_path;
};

// Keeps every other program's connection out of the file. Nobody in this process may have it open: closing a file gives
// up all locks of the process on it. Waits as long as any access does, then 3356; 3051 if the file cannot be written.
class FileLock {
public:
    explicit FileLock(const QString &path);
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

private:
    int m_file = -1;
};

// Whether a program has announced a write to the file or is at it.
bool isBeingWritten(const QString &path);

// The whole content; 3051 or 3043 if it cannot be read.
QByteArray contentOf(const QString &path);
// Byte for byte onto the disk, over what is there; 3026, 3043, 3051.
void copyFile(const QString &from, const QString &to);
void setSamePermissions(const QString &from, const QString &to);

// The first of NAME.damaged, NAME.damaged2, ... that is free: what was kept before stays.
QString freeDamagedName(const QString &path);
// Moves the file to that name, so that nothing is at its place; 3051. Both return the name.
QString setAside(const QString &path);
// Gives the file that name as well; it keeps its own for now.
QString keepDamaged(const QString &path);

}
