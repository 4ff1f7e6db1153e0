#include "platform/dao/dao.h"

#include "platform/basic/files.h"
#include "platform/dao/cipherpages.h"
#include "platform/dao/copy.h"
#include "platform/dao/database_p.h"
#include "platform/dao/safekeeping.h"
#include "platform/dao/salvage.h"
#include "platform/dao/sidefiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

const QString making = u".making"_s;

// A header whose version no tool knows makes a file that can be read and never written.
bool takesWrites(const Connection &file)
{
    if (file.readOnly() || file.depth() > 0)
        return true;
    const int code = executeQuietly(file.handle(), "BEGIN IMMEDIATE");
    if (code == SQLITE_OK)
        executeQuietly(file.handle(), "ROLLBACK");
    return (code & 0xff) != SQLITE_READONLY;
}

// Without a password that fits, a damaged beginning looks like a protected file; its pages decide.
bool isDamaged(const QString &place, const QString &password)
{
    const QByteArray content = contentOf(place);
    return cipherpages::opens(content, password) || !cipherpages::looksEnciphered(content);
}

// False for a damaged file; throws if it is not a database at all.
bool isWhole(const QString &place, const QString &password)
{
    try {
        const DatabasePrivate opened(registry::acquire(place, password, false), false);
        return opened.connection().isSound() && takesWrites(opened.connection());
    } catch (const EngineError &error) {
        if (error.number() == err::Locked)
            throw EngineError(err::OpenedExclusively, QDir::toNativeSeparators(place));
        for (const int number : { err::Damaged, err::UnknownFormat, err::DiskError, err::InvalidOperation }) {
            if (error.number() == number)
                return false;
        }
        if (error.number() != err::WrongPassword || !isDamaged(place, password))
            throw;
        return false;
    }
}

// The file as its own journal leaves it, which the store plays as it opens a copy.
void copyWithJournal(const QString &place, const QString &password, const Scratch &copy)
{
    copyFile(place, copy.path());
    const QString journal = u"-journal"_s;
    if (!QFileInfo::exists(place + journal))
        return;
    copyFile(place + journal, copy.path() + journal);
    try {
        Connection file(copy.path(), password, Connection::Purpose::Salvage);
        file.verify();
    } catch (const EngineError &) { }
}

// What a repair works by and what it reports.
struct Order {
    const QString &password;
    const std::vector<TableDef> &wanted;
    RepairReport &report;
};

bool savePlain(const QString &copy, const Order &order, Connection &mended)
{
    return salvage::rows(contentOf(copy), order.wanted, mended, order.report);
}

// Only the store can read these pages, so the rows are asked for by their numbers.
bool saveProtected(const QString &copy, const Order &order, Connection &mended)
{
    try {
        Connection damaged(copy, order.password, Connection::Purpose::Salvage);
        damaged.verify();
        const bool saved = copy::readableRows(damaged, mended, order.report);
        StoredSchema schema(mended.handle());
        for (const TableDef &design : order.wanted) {
            if (!schema.stored(design.Name) && !order.report.lost.contains(design.Name, Qt::CaseInsensitive))
                order.report.lost.append(design.Name);
        }
        return saved;
    } catch (const EngineError &error) {
        if (error.number() != err::UnknownFormat && error.number() != err::Damaged)
            throw;
        if (!isDamaged(copy, order.password))
            throw EngineError(err::WrongPassword);
        return false;
    }
}

// The readable rows go into a new file, which takes the damaged one's place only when it is whole itself.
bool save(const QString &place, const Order &order, const Scratch &scratch)
{
    const Scratch copy(place, u".rescue"_s);
    const bool plain = registry::looksPlain(place) || order.password.isEmpty() || !cipherpages::looksEnciphered(contentOf(place));
    const QString key = plain ? QString() : order.password;
    copyWithJournal(place, key, copy);
    Connection mended(scratch.path(), key, Connection::Purpose::Create);
    const bool saved = plain ? savePlain(copy.path(), order, mended) : saveProtected(copy.path(), order, mended);
    if (saved && !mended.isSound())
        throw EngineError(err::Damaged, QDir::toNativeSeparators(place));
    return saved;
}

void mend(const QString &place, const Order &order)
{
    const Scratch scratch(place, making);
    const FileLock lock(place);
    const bool saved = save(place, order, scratch);
    if (saved) {
        setSamePermissions(place, scratch.path());
        order.report.original = keepDamaged(place);
    }
    // Before the new file is in place: it must not have the old one's journal played into it.
    sidefiles::setAllAside(place);
    if (saved)
        scratch.moveTo(place);
    else
        order.report.original = setAside(place);
}

}

void DBEngine::CompactDatabase(const QString &source, const QString &destination, const QString &locale, int)
{
    const QString from = basic::realPath(source);
    const QString to = basic::realPath(destination);
    if (!QFileInfo(to).dir().exists())
        throw EngineError(err::NoSuchPath, QDir::toNativeSeparators(to));
    if (QFileInfo::exists(to))
        throw EngineError(err::DatabaseExists);
    QString password = passwordOf(locale);
    if (password.isEmpty())
        password = registry::knownPassword(from);
    const Scratch scratch(to, making);
    {
        const DatabasePrivate opened(registry::acquire(from, password, false), true);
        Connection &file = opened.connection();
        Connection compacted(scratch.path(), file.keyed() ? file.password() : passwordOf(locale), Connection::Purpose::Scratch);
        copy::everything(file, compacted);
    }
    setSamePermissions(from, scratch.path());
    putInPlace(scratch.path(), to);
}

RepairReport DBEngine::RepairDatabase(const QString &path, const QString &connect, const std::vector<TableDef> &wanted)
{
    const QString place = basic::realPath(path);
    QString password = passwordOf(connect);
    if (password.isEmpty())
        password = registry::knownPassword(place);
    const bool shared = registry::inUse(place);
    if (isWhole(place, password))
        return {};
    if (shared)
        throw EngineError(err::FileInUse, QDir::toNativeSeparators(place));
    registry::forget(place);
    RepairReport report;
    report.damaged = true;
    mend(place, { password, wanted, report });
    registry::forget(place);
    return report;
}

}
