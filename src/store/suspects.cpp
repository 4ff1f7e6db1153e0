#include "store/suspects.h"

#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/desktop/desktop.h"
#include "session/datafiles.h"
#include "store/designs.h"
#include "store/rebuild.h"
#include "store/upgrade.h"

#include <QDateTime>
#include <QFileInfo>

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

// To open a protected file takes as long as all others together; its size alone reveals some of the damage.
bool opensWell(DataFile file)
{
    if (!dataFileEntry(file).isProtected)
        return !isDamage(store::openingError(file));
    constexpr qint64 page = 1024;
    const qint64 size = QFileInfo(basic::realPath(state().path(file))).size();
    return size > 0 && size % page == 0;
}

}

QByteArray dataFilesNote()
{
    QByteArray note;
    for (const DataFileEntry &entry : dataFiles())
        note += noteOf(entry);
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
        const bool isKnown = note.contains(entry.key.toUtf8() + ' ');
        const bool hasChanged = note == desktop::runningNote || (isKnown && !note.contains(now));
        if (hasChanged || !opensWell(entry.file))
            found.insert(entry.file);
    }
    return found;
}

int store::openingError(DataFile file)
{
    return basic::IgnoreErrors([&] { dao::DBEngine::OpenDatabase(state().path(file), false, false, connectString(file)).Close(); });
}

bool store::isInUse(int errorNumber)
{
    constexpr int inUseHere = 3045, locked = 3218, exclusive = 3356;
    return errorNumber == inUseHere || errorNumber == locked || errorNumber == exclusive;
}

bool store::wasUpgraded(DataFile file)
{
    const QString path = state().path(file), copy = backupNameOf(basic::realPath(path));
    if (!QFileInfo(copy).isFile())
        return false;
    const auto versionOf = [&](const QString &place) {
        std::int16_t version = 0;
        basic::IgnoreErrors([&] {
            dao::Database database = dao::DBEngine::OpenDatabase(place, false, false, connectString(file));
            version = basic::CInt(database.OpenRecordset(u"SELECT [Version] FROM [Database Info]"_s, dao::dbOpenSnapshot).Get(0));
        });
        return version;
    };
    return versionOf(path) >= currentVersion && versionOf(copy) < currentVersion;
}

}
