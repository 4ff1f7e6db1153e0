#include "platform/dao/dao.h"

#include "platform/basic/files.h"
#include "platform/dao/database_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace vorel::dao {

using namespace Qt::StringLiterals;

QString passwordOf(const QString &connect)
{
    for (const QString &part : connect.split(u';')) {
        if (part.startsWith(u"pwd=", Qt::CaseInsensitive))
            return part.mid(4);
    }
    return {};
}

Database DBEngine::OpenDatabase(const QString &path, bool exclusive, bool readOnly, const QString &connect)
{
    auto connection = registry::acquire(basic::realPath(path), passwordOf(connect), exclusive);
    return DatabaseAccess::make(std::move(connection), readOnly);
}

namespace {

Database createFile(const QString &path, const QString &locale, Connection::Purpose purpose)
{
    const QString place = basic::realPath(path);
    const QFileInfo info(place);
    if (place.isEmpty() || !info.dir().exists())
        throw EngineError(err::NoSuchPath, QDir::toNativeSeparators(place));
    if (info.exists() || info.isSymLink())
        throw EngineError(err::DatabaseExists);
    // A journal that some file of this name left behind must not be played into the new one.
    QFile::remove(place + u"-journal"_s);
    try {
        return DatabaseAccess::make(registry::create(place, passwordOf(locale), purpose), false);
    } catch (...) {
        QFile::remove(place);
        QFile::remove(place + u"-journal"_s);
        throw;
    }
}

}

Database DBEngine::CreateDatabase(const QString &path, const QString &locale, int)
{
    return createFile(path, locale, Connection::Purpose::Create);
}

Database DBEngine::createScratch(const QString &path, const QString &locale)
{
    return createFile(path, locale, Connection::Purpose::Scratch);
}

void DBEngine::Forget(const QString &path)
{
    registry::forget(basic::realPath(path));
}

void DBEngine::Idle(int what)
{
    if (what & dbRefreshCache)
        registry::pollAll();
}

}
