#include "platform/dao/connection.h"

#include "platform/dao/workspace.h"
#include "platform/dao/writes.h"

#include <QFile>
#include <QFileInfo>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <utility>
#include <ctime>
#include <unistd.h>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

constexpr int translationsKept = 256;
constexpr qint64 pollEvery = 200;       // milliseconds

int lockWaitMilliseconds = 5000;

// After a wait that was in vain the next statements on the file fail at once for so long, or until one gets through: a
// screen asks many statements in a row, and each would wait again.
constexpr qint64 busyFor = 5000;

// Coarse, because it is asked for each row that is shown.
qint64 milliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return now.tv_sec * 1000LL + now.tv_nsec / 1'000'000;
}

LockClock lockClock = { milliseconds, [](int pause) { sqlite3_sleep(pause); } };

std::function<void(const char *)> &rowListener()
{
    static std::function<void(const char *)> listener;
    return listener;
}

// Until when a file counts as busy, by its path: each opening of a locked file is a connection of its own.
std::map<QString, qint64> &busyFiles()
{
    static std::map<QString, qint64> files;
    return files;
}

bool isBusy(const QString &path)
{
    const auto found = busyFiles().find(path);
    if (found == busyFiles().end())
        return false;
    if (lockClock.now() < found->second)
        return true;
    busyFiles().erase(found);
    return false;
}

bool isSpent(const QString &journal)
{
    QFile file(journal);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray mark = file.read(8);
    return mark == QByteArray(mark.size(), '\0');
}

std::string folded(const QString &name)
{
    return name.toLower().toStdString();
}

}

LockClock setLockClock(LockClock clock)
{
    return std::exchange(lockClock, clock);
}

int lockWait()
{
    return lockWaitMilliseconds;
}

int DBEngine::LockWait()
{
    return lockWaitMilliseconds;
}

void DBEngine::setLockWait(int waitMilliseconds)
{
    lockWaitMilliseconds = waitMilliseconds;
    busyFiles().clear();        // the new wait is worth trying
}

FileIdentity FileIdentity::of(const QString &path)
{
    struct stat info = {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return {};
    return { info.st_dev, info.st_ino, info.st_size, info.st_mtim.tv_sec * 1'000'000'000LL + info.st_mtim.tv_nsec };
}

Connection::Connection(const QString &path, const QString &password, Purpose purpose) : m_path(path), m_password(password)
{
    try {
        openHandle(purpose == Purpose::Create || purpose == Purpose::Scratch);
        setUp(purpose);
        if (purpose == Purpose::Open)
            readFirst();
    } catch (...) {
        sqlite3_close_v2(m_handle);
        throw;
    }
}

Connection::~Connection()
{
    m_dataVersion = Statement();
    m_counterStatements.clear();
    if (m_depth > 0)
        executeQuietly(m_handle, "ROLLBACK");
    sqlite3_close_v2(m_handle);
}

void Connection::openHandle(bool create)
{
    // No one asks for the store's memory statistics, which would take a lock at each allocation.
    static const int configured = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    Q_UNUSED(configured);
    const int access = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (create ? SQLITE_OPEN_CREATE : 0);
    const int code = sqlite3_open_v2(QFile::encodeName(m_path).constData(), &m_handle, access, nullptr);
    if (!m_handle)
        throw EngineError(err::OutOfResources);
    if (code != SQLITE_OK)
        throwStoreError(code, QString::fromUtf8(sqlite3_errmsg(m_handle)), m_path, sqlite3_system_errno(m_handle));
    sqlite3_extended_result_codes(m_handle, 1);
    sqlite3_busy_handler(m_handle, waitForLock, this);
}

// A protected file keeps the format of SQLCipher 3 whatever library opens it: AES-256-CBC, pages of 1024 bytes, 64,000
// rounds of PBKDF2-HMAC-SHA1, HMAC-SHA1 a page. Version 3 has these as defaults and passes over the second line; version
// 4 takes them from it. Both must come before the first read.
void Connection::setUp(Purpose purpose)
{
    const bool create = purpose == Purpose::Create || purpose == Purpose::Scratch;
    if (!m_password.isEmpty()) {
        const QByteArray key = m_password.toUtf8();
        const int code = sqlite3_key(m_handle, key.constData(), static_cast<int>(key.size()));
        if (code != SQLITE_OK)
            throwStoreError(m_handle, code);
        execute(m_handle, "PRAGMA cipher_compatibility = 3");
        m_keyed = true;
    } else if (create) {
        execute(m_handle, "PRAGMA page_size = 4096");
    }
    // First of all settings: lets a file be read that is shorter than it says, and a schema with a damaged entry for its sound ones.
    if (purpose == Purpose::Salvage)
        execute(m_handle, "PRAGMA writable_schema = ON");
    // A rollback journal leaves one file to copy, which any tool opens; only FULL keeps it whole over a power loss.
    execute(m_handle, "PRAGMA synchronous = FULL; PRAGMA cache_size = -2048; PRAGMA mmap_size = 0");
    if (purpose == Purpose::Scratch)
        writeUnsynced();
    jet::registerFunctions(m_handle);
    sqlite3_update_hook(m_handle, rowChanged, this);
    if (create) {
        // An empty file is not yet a database: the header gets written now.
        execute(m_handle, "PRAGMA journal_mode = DELETE; BEGIN IMMEDIATE; CREATE TABLE x (x); DROP TABLE x; COMMIT");
    }
}

void Connection::readFirst()
{
    verify();
    m_dataVersion = Statement(m_handle, "PRAGMA data_version");
    poll();
}

void Connection::verify()
{
    Statement statement(m_handle, "SELECT count(*) FROM sqlite_master");
    statement.run();
}

void Connection::writeUnsynced()
{
    execute(m_handle, "PRAGMA synchronous = OFF");
}

bool Connection::isSound() const
{
    try {
        Statement check(m_handle, "PRAGMA integrity_check(1)");
        const ResetGuard reset(check);
        if (!check.step() || check.text(0) != u"ok")
            return false;
        readEveryRow();
        return true;
    } catch (const EngineError &error) {
        if (error.number() == err::Locked)
            throw;
        return false;
    }
}

// The store's check looks at the pages and not into the rows. A table that does not answer to its own name has a damaged design.
void Connection::readEveryRow() const
{
    std::vector<QByteArray> tables;
    Statement list(m_handle, "SELECT name FROM sqlite_master WHERE type = 'table' AND sql NOT LIKE 'CREATE VIRTUAL%'");
    while (list.step())
        tables.push_back(quoted(list.text(0)));
    for (const QByteArray &table : tables) {
        Statement rows(m_handle, "SELECT * FROM " + table + " NOT INDEXED");
        while (rows.step()) { }
    }
}

void Connection::useLargeCache(bool use)
{
    const int before = m_largeCacheUsers;
    m_largeCacheUsers += use ? 1 : -1;
    if (before == 0 || m_largeCacheUsers == 0)
        executeQuietly(m_handle, m_largeCacheUsers > 0 ? "PRAGMA cache_size = -16384" : "PRAGMA cache_size = -2048");
}

void Connection::releaseMemory()
{
    if (m_largeCacheUsers > 0) {
        m_largeCacheUsers = 1;
        useLargeCache(false);
    }
    sqlite3_db_release_memory(m_handle);
}

bool Connection::readOnly() const
{
    return sqlite3_db_readonly(m_handle, "main") == 1;
}

void Connection::lockExclusively()
{
    if (m_exclusive)
        return;
    execute(m_handle, "PRAGMA locking_mode = EXCLUSIVE");
    const int code = executeQuietly(m_handle, readOnly() ? "SELECT count(*) FROM sqlite_master" : "BEGIN EXCLUSIVE; COMMIT");
    if (code == SQLITE_OK) {
        m_exclusive = true;
        return;
    }
    executeQuietly(m_handle, "PRAGMA locking_mode = NORMAL; SELECT count(*) FROM sqlite_master");
    if ((code & 0xff) == SQLITE_BUSY)
        throw EngineError(err::FileInUse, m_path);
    throwStoreError(m_handle, code);
}

void Connection::unlockExclusively()
{
    if (!m_exclusive)
        return;
    m_exclusive = false;
    // In exclusive mode a spent journal stays behind, emptied; while the lock still holds it can go.
    const QString journal = m_path + u"-journal"_s;
    if (sqlite3_get_autocommit(m_handle) && !readOnly() && isSpent(journal))
        QFile::remove(journal);
    executeQuietly(m_handle, "PRAGMA locking_mode = NORMAL; SELECT count(*) FROM sqlite_master");
}

int Connection::waitForLock(void *self, int tries)
{
    static const int pauses[] = { 1, 2, 5, 10, 15, 20, 25, 25, 50, 50, 100 };
    constexpr int count = static_cast<int>(std::size(pauses));
    const QString &path = static_cast<Connection *>(self)->m_path;
    if (tries == 0 && isBusy(path))
        return 0;
    int waited = 0;
    for (int i = 0; i < tries; ++i)
        waited += pauses[std::min(i, count - 1)];
    if (waited >= lockWaitMilliseconds) {
        busyFiles()[path] = lockClock.now() + busyFor;
        return 0;
    }
    lockClock.sleep(std::min(pauses[std::min(tries, count - 1)], lockWaitMilliseconds - waited));
    return 1;
}

// A read may get through while another program keeps every write out, so that a write alone ends the busy time early.
void Connection::written()
{
    if (!busyFiles().empty())
        busyFiles().erase(m_path);
}

const StoredSchema &Connection::schema()
{
    if (!m_schema) {
        m_schema = std::make_unique<StoredSchema>(m_handle);
        m_schemaVersion = integerOf(m_handle, "PRAGMA schema_version");
    }
    return *m_schema;
}

void Connection::schemaChanged()
{
    m_schema.reset();
    m_translations.clear();
    m_counterStatements.clear();
    everythingChanged();
}

std::shared_ptr<const jet::Translation> Connection::translation(const QString &text)
{
    const auto known = m_translations.constFind(text);
    if (known != m_translations.constEnd())
        return *known;
    auto fresh = std::make_shared<const jet::Translation>(jet::translate(text, schema()));
    if (m_translations.size() >= translationsKept)
        m_translations.clear();
    m_translations.insert(text, fresh);
    return fresh;
}

const quint64 *Connection::tableChanges(const QString &table)
{
    return &m_changes[folded(table)];
}

void Connection::rowChanged(void *self, int, const char *, const char *table, sqlite3_int64)
{
    auto *connection = static_cast<Connection *>(self);
    if (!connection->m_lastCounter || connection->m_lastChanged != table) {
        connection->m_lastChanged = table;
        connection->m_lastCounter = &connection->m_changes[folded(QString::fromUtf8(table))];
    }
    ++*connection->m_lastCounter;
    connection->written();
    if (const auto &listener = rowListener())
        listener(table);
}

void Connection::poll()
{
    m_lastPoll = milliseconds();
    if (!m_dataVersion)
        m_dataVersion = Statement(m_handle, "PRAGMA data_version");
    const ResetGuard reset(m_dataVersion);
    if (!m_dataVersion.step())
        return;
    const qint64 version = m_dataVersion.integer(0);
    m_dataVersion.reset();
    if (version == m_seenVersion)
        return;
    const bool first = m_seenVersion < 0;
    m_seenVersion = version;
    if (first)
        return;
    everythingChanged();
    if (m_schema && integerOf(m_handle, "PRAGMA schema_version") != m_schemaVersion)
        schemaChanged();
}

void Connection::pollNowAndThen()
{
    if (milliseconds() - m_lastPoll >= pollEvery)
        poll();
}

void Connection::beginWriting()
{
    execute(m_handle, "BEGIN IMMEDIATE");
    written();
}

int Connection::begin()
{
    if (m_depth == 0)
        beginWriting();
    else
        execute(m_handle, "SAVEPOINT level" + QByteArray::number(m_depth + 1));
    return ++m_depth;
}

void Connection::commitTo(int level)
{
    if (level > m_depth || level < 1)
        throw EngineError(err::NoTransaction);
    if (level > 1) {
        execute(m_handle, "RELEASE level" + QByteArray::number(level));
        m_depth = level - 1;
        return;
    }
    const int code = executeQuietly(m_handle, "COMMIT");
    if (code == SQLITE_OK) {
        m_depth = 0;
        return;
    }
    try {
        throwStoreError(m_handle, code);
    } catch (const EngineError &) {
        rollbackTo(1);
        throw;
    }
}

void Connection::rollbackTo(int level) noexcept
{
    if (level > m_depth || level < 1)
        return;
    if (level > 1) {
        const QByteArray name = "level" + QByteArray::number(level);
        executeQuietly(m_handle, ("ROLLBACK TO " + name + "; RELEASE " + name).constData());
    } else if (!sqlite3_get_autocommit(m_handle)) {
        executeQuietly(m_handle, "ROLLBACK");
    }
    m_depth = level - 1;
    schemaChanged();
}

void Connection::beforeWrite()
{
    workspace::join(*this);
}

void Connection::afterFailure() noexcept
{
    if (m_depth > 0 && sqlite3_get_autocommit(m_handle)) {
        m_depth = 0;
        schemaChanged();
    }
}

// The number is taken when a row is begun, and not given again in this run even if the row is abandoned.
qint64 Connection::nextCounter(const StoredTable &table)
{
    const std::string name = folded(table.def.Name);
    Statement &statement = m_counterStatements[name];
    if (!statement) {
        const bool counted = integerOf(m_handle, "SELECT count(*) FROM sqlite_master WHERE name = 'sqlite_sequence'") > 0;
        const QByteArray given = counted ? "(SELECT seq FROM sqlite_sequence WHERE name = " + sqlText(table.def.Name) + ')'
                                         : QByteArray("0");
        statement = Statement(m_handle, "SELECT max(ifnull(" + given + ", 0), ifnull((SELECT max(rowid) FROM "
                                            + quoted(table.def.Name) + "), 0))");
    }
    const ResetGuard reset(statement);
    const qint64 stored = statement.step() ? statement.integer(0) : 0;
    qint64 &last = m_counters[name];
    last = std::max(last, stored) + 1;
    if (last > std::numeric_limits<qint32>::max())
        throw EngineError(err::NumericOverflow);
    return last;
}

void onRowWritten(std::function<void(const char *)> listener)
{
    rowListener() = std::move(listener);
}

}
