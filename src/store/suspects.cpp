#include "store/suspects.h"

#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/desktop/desktop.h"
#include "session/datafiles.h"
#include "store/designs.h"
#include "store/rebuild.h"
#include "store/upgrade.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

QByteArray noteOf(const DataFileEntry &entry)
{
    const QFileInfo file(basic::realPath(state().path(entry.file)));
    if (!file.isFile())
        return {};
    return u"%1 %2 %3\n"_s.arg(entry.key).arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch()).toUtf8();
}

std::set<QString> &metDamage()
{
    static std::set<QString> paths;
    return paths;
}

// To open a protected file takes as long as all others together; its size alone reveals some of the damage.
bool opensWell(DataFile file)
{
    if (!dataFileEntry(file).isProtected)
        return !isDamage(store::openingError(file));
    constexpr qint64 page = 1024;           // of the cipher's files: any other size was cut
    const qint64 size = QFileInfo(basic::realPath(state().path(file))).size();
    return size > 0 && size % page == 0;
}

}

QByteArray dataFilesNote()
{
    QByteArray note;
    for (const DataFileEntry &entry : dataFiles()) {
        if (!metDamage().contains(basic::realPath(state().path(entry.file))))
            note += noteOf(entry);
    }
    return note;
}

std::set<DataFile> store::suspects()
{
    std::set<DataFile> found;
    const QByteArray note = desktop::lastRunNote();
    for (const DataFileEntry &entry : dataFiles()) {
        const QByteArray now = noteOf(entry);
        if (now.isEmpty())
            continue;
        // Without a claim on the folder nothing is known of any run, and each start would check everything.
        const bool hasChanged = desktop::holdsInstance() && !note.contains(now);
        if (hasChanged || !opensWell(entry.file))
            found.insert(entry.file);
    }
    return found;
}

QString store::damageMet(const QString &path)
{
    const auto &files = dataFiles();
    const auto isIt = [&](const DataFileEntry &entry) { return basic::realPath(state().path(entry.file)) == path; };
    if (std::none_of(files.begin(), files.end(), isIt))
        return {};
    metDamage().insert(path);
    return u"The data file %1 is damaged.\r\n\r\nSome of its rows cannot be read now. Nothing was changed or removed. The file is "
           "repaired the next time the program starts: end the program and start it again."_s.arg(QDir::toNativeSeparators(path));
}

void store::forgetDamage(const QString &path)
{
    metDamage().erase(path);
}

int store::openingError(DataFile file)
{
    try {       // not openDataFile: the start itself repairs
        dao::DBEngine::OpenDatabase(state().path(file), false, false, connectString(file)).Close();
        return 0;
    } catch (const dao::EngineError &error) {
        return error.number();
    }
}

bool store::isInUse(int errorNumber)
{
    return errorNumber == dao::err::FileInUse || errorNumber == dao::err::Locked || errorNumber == dao::err::OpenedExclusively;
}

bool store::wasUpgraded(DataFile file)
{
    const QString path = state().path(file), copy = backupNameOf(basic::realPath(path));
    if (!QFileInfo(copy).isFile())
        return false;
    return versionAt(path, connectString(file)) >= currentVersion && versionAt(copy, connectString(file)) < currentVersion;
}

}
