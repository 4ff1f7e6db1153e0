#include "platform/dao/dao.h"

#include "platform/basic/files.h"
#include "platform/dao/copy.h"
#include "platform/dao/database_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

// A file under construction beside its place: gone unless it is put there.
class Scratch {
public:
    explicit Scratch(const QString &place) : m_path(place + u".making"_s) { clean(); }
    ~Scratch() { clean(); }
    Scratch(const Scratch &) = delete;
    Scratch &operator=(const Scratch &) = delete;
    const QString &path() const { return m_path; }

    // One rename: whoever looks sees the old file or the new one.
    void moveTo(const QString &place) const
    {
        if (std::rename(QFile::encodeName(m_path).constData(), QFile::encodeName(place).constData()) != 0)
            throw EngineError(3051, QDir::toNativeSeparators(place));
        const int folder = ::open(QFile::encodeName(QFileInfo(place).absolutePath()).constData(), O_RDONLY | O_DIRECTORY);
        if (folder >= 0) {
            ::fsync(folder);
            ::close(folder);
        }
    }

private:
    void clean() const
    {
        QFile::remove(m_path);
        QFile::remove(m_path + u"-journal"_s);
    }
    QString m_path;
};

void setSamePermissions(const QString &from, const QString &to)
{
    QFile::setPermissions(to, QFile::permissions(from));
}

bool sound(Connection &file)
{
    try {
        Statement check(file.handle(), "PRAGMA integrity_check(1)");
        const ResetGuard reset(check);
        return check.step() && check.text(0) == u"ok";
    } catch (const EngineError &error) {
        if (error.number() == 3218)
            throw;
        return false;
    }
}

// The readable rows go into a new file, which takes the damaged one's place only when it is whole itself.
void salvage(const QString &path, const QString &password)
{
    const Scratch scratch(path);
    {
        const QString key = registry::looksPlain(path) ? QString() : password;
        Connection damaged(path, key, Connection::Purpose::Salvage);
        Connection mended(scratch.path(), key, Connection::Purpose::Create);
        if (!copy::readableRows(damaged, mended) || !sound(mended))
            throw EngineError(3049, QDir::toNativeSeparators(path));
    }
    setSamePermissions(path, scratch.path());
    // Before the new file stands there: it must not have the old one's journal played into it.
    QFile::remove(path + u"-journal"_s);
    scratch.moveTo(path);
}

}

void DBEngine::CompactDatabase(const QString &source, const QString &destination, const QString &locale, int)
{
    const QString from = basic::realPath(source);
    const QString to = basic::realPath(destination);
    if (!QFileInfo(to).dir().exists())
        throw EngineError(3044, QDir::toNativeSeparators(to));
    if (QFileInfo::exists(to))
        throw EngineError(3204);
    QString password = passwordOf(locale);
    if (password.isEmpty())
        password = registry::knownPassword(from);
    const Scratch scratch(to);
    {
        const DatabasePrivate opened(registry::acquire(from, password, false), true);
        Connection &file = opened.connection();
        Connection compacted(scratch.path(), file.keyed() ? file.password() : passwordOf(locale), Connection::Purpose::Create);
        copy::everything(file, compacted);
    }
    setSamePermissions(from, scratch.path());
    scratch.moveTo(to);
    registry::forget(to);
}

void DBEngine::RepairDatabase(const QString &path, const QString &connect)
{
    const QString place = basic::realPath(path);
    QString password = passwordOf(connect);
    if (password.isEmpty())
        password = registry::knownPassword(place);
    const bool shared = registry::inUse(place);
    bool whole = false;
    try {
        const DatabasePrivate opened(registry::acquire(place, password, false), false);
        whole = sound(opened.connection());
    } catch (const EngineError &error) {
        if (error.number() != 3049)
            throw;
    }
    if (whole)
        return;
    if (shared)
        throw EngineError(3045, QDir::toNativeSeparators(place));
    registry::forget(place);
    salvage(place, password);
    registry::forget(place);
}

}
