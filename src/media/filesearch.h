#pragma once

#include <QObject>
#include <QStringList>
#include <atomic>
#include <functional>
#include <memory>

class QThread;

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
// The first file of the name (in any case) below the path, nearest first; "" if there is none. Neither links nor other
// drives are followed; folders without permission are passed over. Ends soon after `stop` is set. Any thread.
QString FindFilesAPI(const QString &path, const QString &name, const std::atomic<bool> &stop);

// A search in the background. Ends with the object.
class FileSearch : public QObject {
    Q_OBJECT
public:
    explicit FileSearch(QObject *parent = nullptr);
    ~FileSearch() override;

    void start(const QString &name, const QStringList &roots);     // an earlier search is stopped
    void stop();                            // no Finished comes
    bool isRunning() const { return m_thread != nullptr; }

signals:
    void Finished(const QString &path);     // "" = not found

private:
    std::unique_ptr<QThread> m_thread;
    std::shared_ptr<std::atomic<bool>> m_stop;
};

}
