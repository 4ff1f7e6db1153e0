#include "platform/dao/registry.h"

#include "platform/dao/sidefiles.h"
#include "platform/dao/workspace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace vorel::dao::registry {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t idleKept = 32;
constexpr qsizetype saltBytes = 16;
constexpr qint64 protectedPage = 1024;
const QByteArray plainMark("SQLite format 3", 16);      // with its closing zero

struct Entry {
    QString key;
    std::shared_ptr<Connection> connection;
    FileIdentity identity;      // as the last use left it
    QByteArray salt;            // of a protected file
    int users = 0;
    bool replaced = false;      // another file took its place; its handles go on with the old one
};

// Never destroyed: handles may live until after the end of main.
std::vector<Entry> &entries()
{
    static auto *list = new std::vector<Entry>();
    return *list;
}

QString keyOf(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(QFileInfo(path).absoluteFilePath()) : canonical;
}

// Closing any descriptor of a file gives up all locks that the process has on it, so this must never be asked of a file
// while a connection may be reading or writing it.
QByteArray head(const QString &path, qsizetype bytes)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(bytes) : QByteArray();
}

// Another process or program wrote to the file since its last use here.
bool usableAfterChange(Entry &entry, const QString &path, const QString &password)
{
    if (!entry.connection->keyed() || head(path, saltBytes) != entry.salt)
        return false;
    if (inspect(path, password) != FileKind::Protected)
        return false;
    try {
        entry.connection->releaseMemory();
        entry.connection->verify();
        entry.connection->poll();
    } catch (const EngineError &) {
        return false;           // opening it afresh throws the right error
    }
    return true;
}

std::shared_ptr<Connection> share(Entry &entry, const QString &password, bool exclusive)
{
    const auto &connection = entry.connection;
    if (connection->keyed() && password != connection->password())
        throw EngineError(err::WrongPassword);
    if (entry.users > 0 && exclusive)
        throw EngineError(err::FileInUse, connection->path());
    if (entry.users > 0 && connection->exclusive())
        throw EngineError(err::OpenedExclusively, connection->path());
    if (exclusive)
        connection->lockExclusively();
    ++entry.users;
    return connection;
}

void remember(const QString &path, const std::shared_ptr<Connection> &connection, const QByteArray &salt)
{
    auto &list = entries();
    const auto idle = [](const Entry &entry) { return entry.users == 0; };
    if (static_cast<size_t>(std::count_if(list.begin(), list.end(), idle)) >= idleKept)
        list.erase(std::find_if(list.begin(), list.end(), idle));
    Entry entry;
    entry.key = keyOf(path);
    entry.connection = connection;
    entry.identity = FileIdentity::of(path);
    entry.salt = salt;
    entry.users = 1;
    list.push_back(std::move(entry));
}

std::shared_ptr<Connection> openFresh(const QString &path, const QString &password, bool exclusive)
{
    sidefiles::setForeignAside(path, password);
    const FileKind kind = inspect(path, password);
    const QByteArray salt = head(path, saltBytes);
    std::shared_ptr<Connection> connection;
    try {
        connection = std::make_shared<Connection>(path, kind == FileKind::Plain ? QString() : password,
                                                  Connection::Purpose::Open);
    } catch (const EngineError &error) {
        if (error.number() == err::UnknownFormat && kind == FileKind::Protected)
            throw EngineError(err::WrongPassword);
        if (error.number() == err::Locked)
            throw EngineError(err::OpenedExclusively, path);
        throw;
    }
    if (exclusive)
        connection->lockExclusively();
    remember(path, connection, salt);
    return connection;
}

}

FileKind inspect(const QString &path, const QString &password)
{
    const QFileInfo info(path);
    const QString name = QDir::toNativeSeparators(path);
    if (path.isEmpty() || !info.dir().exists())
        throw EngineError(err::NoSuchPath, name);
    if (!info.exists())
        throw EngineError(err::FileNotFound, name);
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        throw EngineError(err::NoPermission, name);
    const QByteArray header = file.read(100);
    const qint64 size = file.size();
    if (header.size() < 100 || !header.startsWith(plainMark)) {
        if (password.isEmpty() || size == 0 || size % protectedPage != 0)
            throw EngineError(err::UnknownFormat, name);
        return FileKind::Protected;
    }
    const int stored = static_cast<quint8>(header[16]) << 8 | static_cast<quint8>(header[17]);
    const int page = stored == 1 ? 65536 : stored;
    if (page < 512 || (page & (page - 1)) != 0)
        throw EngineError(err::Damaged, name);
    // The store itself passes over a last page that is cut short. Under a journal a write may have been broken off.
    if (size % page != 0 && !QFileInfo::exists(path + u"-journal"_s))
        throw EngineError(err::Damaged, name);
    return FileKind::Plain;
}

std::shared_ptr<Connection> acquire(const QString &path, const QString &password, bool exclusive)
{
    const QString key = keyOf(path);
    const FileIdentity now = FileIdentity::of(path);
    auto &list = entries();
    for (size_t i = 0; i < list.size();) {
        Entry &entry = list[i];
        if (entry.key != key || entry.replaced) {
            ++i;
            continue;
        }
        const bool same = entry.identity.sameFile(now);
        if (same && (entry.users > 0 || entry.identity == now || usableAfterChange(entry, path, password)))
            return share(entry, password, exclusive);
        if (entry.users > 0) {
            entry.replaced = true;
            ++i;
        } else {
            list.erase(list.begin() + static_cast<qptrdiff>(i));
        }
    }
    return openFresh(path, password, exclusive);
}

std::shared_ptr<Connection> create(const QString &path, const QString &password, Connection::Purpose purpose)
{
    forget(path);
    auto connection = std::make_shared<Connection>(path, password, purpose);
    remember(path, connection, head(path, saltBytes));
    return connection;
}

void release(const std::shared_ptr<Connection> &connection)
{
    auto &list = entries();
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const Entry &entry) { return entry.connection == connection; });
    if (found == list.end() || --found->users > 0)
        return;
    connection->rollbackTo(1);
    workspace::forget(*connection);
    connection->unlockExclusively();
    found->identity = FileIdentity::of(connection->path());
    if (found->replaced || found->identity == FileIdentity())
        list.erase(found);
    else
        connection->releaseMemory();
}

void forget(const QString &path)
{
    const QString key = keyOf(path);
    auto &list = entries();
    std::erase_if(list, [&](const Entry &entry) { return entry.key == key && entry.users == 0; });
    const FileIdentity now = FileIdentity::of(path);
    for (Entry &entry : list)
        entry.replaced |= entry.key == key && !entry.identity.sameFile(now);
}

bool inUse(const QString &path)
{
    const QString key = keyOf(path);
    const FileIdentity now = FileIdentity::of(path);
    return std::any_of(entries().begin(), entries().end(), [&](const Entry &entry) {
        return entry.key == key && entry.users > 0 && !entry.replaced && entry.identity.sameFile(now);
    });
}

QString knownPassword(const QString &path)
{
    const QString key = keyOf(path);
    const FileIdentity now = FileIdentity::of(path);
    for (const Entry &entry : entries()) {
        if (entry.key != key || !entry.connection->keyed())
            continue;
        if (entry.users > 0 ? entry.identity.sameFile(now) : head(path, saltBytes) == entry.salt)
            return entry.connection->password();
    }
    return {};
}

bool looksPlain(const QString &path)
{
    return head(path, plainMark.size()) == plainMark;
}

void pollAll()
{
    for (const Entry &entry : entries()) {
        if (entry.users > 0)
            entry.connection->poll();
    }
}

}
