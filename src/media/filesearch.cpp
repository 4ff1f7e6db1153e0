#include "media/filesearch.h"

#include <QFile>
#include <QStorageInfo>
#include <array>
#include <deque>
#include <filesystem>
#include <optional>
#include <sys/stat.h>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct FileSystemType {
    QStringView name;
    DriveType type;
};
constexpr std::array fileSystemTypes{
    FileSystemType{u"nfs", DriveType::Remote},      FileSystemType{u"nfs4", DriveType::Remote},
    FileSystemType{u"cifs", DriveType::Remote},     FileSystemType{u"smb3", DriveType::Remote},
    FileSystemType{u"smbfs", DriveType::Remote},    FileSystemType{u"9p", DriveType::Remote},
    FileSystemType{u"afs", DriveType::Remote},      FileSystemType{u"ceph", DriveType::Remote},
    FileSystemType{u"glusterfs", DriveType::Remote}, FileSystemType{u"iso9660", DriveType::CdRom},
    FileSystemType{u"udf", DriveType::CdRom},       FileSystemType{u"tmpfs", DriveType::RamDisk},
    FileSystemType{u"ramfs", DriveType::RamDisk},   FileSystemType{u"squashfs", DriveType::None},
    FileSystemType{u"overlay", DriveType::Fixed},   FileSystemType{u"zfs", DriveType::Fixed},
    FileSystemType{u"fuseblk", DriveType::Fixed},
};

bool canBeTakenOut(const QStorageInfo &volume)
{
    const QString root = volume.rootPath();
    if (root.startsWith(u"/media/"_s) || root.startsWith(u"/run/media/"_s))
        return true;
    QFile flag(u"/sys/class/block/"_s + QString::fromLocal8Bit(volume.device()).section(u'/', -1) + u"/removable"_s);
    return flag.open(QIODevice::ReadOnly) && flag.read(1) == "1";
}

QStringList &ownRoots()
{
    static QStringList folders;
    return folders;
}

std::optional<dev_t> deviceOf(const std::filesystem::path &path)
{
    struct stat entry {};
    return ::lstat(path.c_str(), &entry) == 0 ? std::optional(entry.st_dev) : std::nullopt;
}

}

QString driveTypeName(DriveType type)
{
    switch (type) {
    case DriveType::Removable:
        return u"Removable Drive"_s;
    case DriveType::Fixed:
        return u"Fixed Drive"_s;
    case DriveType::Remote:
        return u"Remote Drive"_s;
    case DriveType::CdRom:
        return u"CD-ROM"_s;
    case DriveType::RamDisk:
        return u"RAM Disk"_s;
    case DriveType::None:
        break;
    }
    return u"Drive Doesn't Exist"_s;
}

DriveType driveTypeOf(const QString &fileSystem, const QString &device, bool removable)
{
    for (const FileSystemType &known : fileSystemTypes)
        if (known.name == fileSystem)
            return known.type == DriveType::Fixed && removable ? DriveType::Removable : known.type;
    if (fileSystem.startsWith(u"fuse."_s))
        return DriveType::Remote;
    if (!device.startsWith(u"/dev/"_s))
        return DriveType::None;         // a window of the system's, with no drive behind it
    return removable ? DriveType::Removable : DriveType::Fixed;
}

QStringList fixedDrives()
{
    QStringList roots;
    QByteArrayList devices;
    const QList<QStorageInfo> volumes = QStorageInfo::mountedVolumes();
    for (const QStorageInfo &volume : volumes) {
        const QString device = QString::fromLocal8Bit(volume.device());
        const DriveType type = driveTypeOf(QString::fromLatin1(volume.fileSystemType()), device, canBeTakenOut(volume));
        // A device that is mounted in several places is one drive; what is not a device counts once for each place.
        const bool seen = device.startsWith(u'/') && devices.contains(volume.device());
        if (type != DriveType::Fixed || !volume.isReady() || seen)
            continue;
        devices << volume.device();
        roots << volume.rootPath();
    }
    return roots;
}

QStringList searchRoots()
{
    return ownRoots().isEmpty() ? fixedDrives() : ownRoots();
}

void setSearchRoots(const QStringList &folders)
{
    ownRoots() = folders;
}

QString StripNulls(const QString &text)
{
    return text.left(text.indexOf(QChar(u'\0')));
}

QString FindFilesAPI(const QString &path, const QString &name, basic::TaskContext &context)
{
    namespace fs = std::filesystem;
    const QString wanted = StripNulls(name);
    const fs::path root(QFile::encodeName(path).toStdString());
    const std::optional<dev_t> drive = deviceOf(root);
    if (wanted.isEmpty() || !drive)
        return {};
    std::deque<fs::path> folders{root};
    for (; !folders.empty() && !context.isCancelled(); folders.pop_front()) {
        context.progress(0, 0, QFile::decodeName(folders.front().c_str()));
        std::error_code failure;
        fs::directory_iterator entry(folders.front(), fs::directory_options::skip_permission_denied, failure);
        for (; !failure && entry != fs::directory_iterator() && !context.isCancelled(); entry.increment(failure)) {
            std::error_code unknown;
            if (entry->symlink_status(unknown).type() == fs::file_type::directory) {
                if (deviceOf(entry->path()) == drive)
                    folders.push_back(entry->path());
                continue;
            }
            const QString file = QFile::decodeName(entry->path().filename().c_str());
            if (file.compare(wanted, Qt::CaseInsensitive) == 0 && entry->is_regular_file(unknown))
                return QFile::decodeName(entry->path().c_str());
        }
    }
    return {};
}

std::optional<QString> searchFile(const QStringList &roots, const QString &name, basic::TaskContext &context)
{
    for (const QString &root : roots) {
        const QString found = FindFilesAPI(root, name, context);
        if (!found.isEmpty())
            return found;
        if (context.isCancelled())
            return std::nullopt;
    }
    return QString();
}

}
