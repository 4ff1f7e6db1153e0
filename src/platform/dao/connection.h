#pragma once

#include "platform/dao/schema.h"
#include "platform/dao/sqlite.h"

#include <QByteArray>
#include <map>
#include <memory>
#include <unordered_map>

// One open file of this process, shared by all handles on it.
namespace vorel::dao {

// What distinguishes one file at a path from another that took its place.
struct FileIdentity {
    quint64 device = 0;
    quint64 node = 0;
    qint64 size = 0;
    qint64 modified = 0;        // nanoseconds
    static FileIdentity of(const QString &path);
    bool sameFile(const FileIdentity &other) const { return device == other.device && node == other.node; }
    bool operator==(const FileIdentity &) const = default;
};

class Connection {
public:
    // Open reads the header and the schema; Salvage takes what a damaged file still gives.
    // Scratch is Create without a wait for the disk.
    enum class Purpose { Open, Create, Scratch, Salvage };
    // EngineError as DBEngine::OpenDatabase throws it. An empty password means a plain file.
    Connection(const QString &path, const QString &password, Purpose purpose);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    sqlite3 *handle() const { return m_handle; }
    const QString &path() const { return m_path; }
    const QString &password() const { return m_password; }
    bool keyed() const { return m_keyed; }
    bool readOnly() const;
    bool exclusive() const { return m_exclusive; }
    void lockExclusively();             // 3045 if another process uses the file
    void unlockExclusively();
    void verify();                      // reads the schema again; throws if the file cannot be read
    void writeUnsynced();               // until the connection closes
    bool isSound() const;               // every page and index entry holds together and every row can be read; 3218
    void useLargeCache(bool use);       // by one more user, or one less
    void releaseMemory();               // nobody uses the file for now

    const StoredSchema &schema();
    void schemaChanged();
    std::shared_ptr<const jet::Translation> translation(const QString &text);

    // Stamps: a table's stamp is another number after any of its rows may have changed, whoever changed them.
    const quint64 *tableChanges(const QString &table);
    quint64 generation() const { return m_generation; }
    void everythingChanged() { ++m_generation; }
    void poll();                        // looks whether another process wrote
    void pollNowAndThen();              // the same, but at most five times a second

    // Transactions nest; commit and rollback take all levels above the given one with them.
    int begin();                        // the level that it opened, from 1
    void commitTo(int level);           // ends level and above
    void rollbackTo(int level) noexcept;
    int depth() const { return m_depth; }
    // Runs a step of several statements as one: all of it or none.
    template <class Step> void atomically(const Step &step)
    {
        const int level = begin();
        try {
            step();
        } catch (...) {
            afterFailure();
            rollbackTo(level);
            throw;
        }
        commitTo(level);
    }
    // To be called before every write: takes part in the workspace's transaction if one is on.
    void beforeWrite();
    // To be called when a write failed: the store may have rolled everything back by itself.
    void afterFailure() noexcept;

    qint64 nextCounter(const StoredTable &table);

private:
    void openHandle(bool create);
    void setUp(Purpose purpose);
    void readFirst();
    static void rowChanged(void *self, int operation, const char *database, const char *table, sqlite3_int64 row);
    static int waitForLock(void *self, int tries);
    void written();
    void beginWriting();
    void readEveryRow() const;

    QString m_path;
    QString m_password;
    sqlite3 *m_handle = nullptr;
    bool m_keyed = false;
    bool m_exclusive = false;
    std::unique_ptr<StoredSchema> m_schema;
    qint64 m_schemaVersion = -1;
    QHash<QString, std::shared_ptr<const jet::Translation>> m_translations;
    std::map<std::string, quint64> m_changes;   // by folded table name
    std::string m_lastChanged;                  // many rows of one table change in a run
    quint64 *m_lastCounter = nullptr;
    quint64 m_generation = 0;
    Statement m_dataVersion;
    qint64 m_seenVersion = -1;
    qint64 m_lastPoll = 0;
    int m_depth = 0;
    int m_largeCacheUsers = 0;
    std::unordered_map<std::string, qint64> m_counters;
    std::unordered_map<std::string, Statement> m_counterStatements;
};

// How long a write or read waits for another process, in milliseconds.
int lockWait();

// The time that the waits for a lock are counted by and spent in. Tests put another in its place.
struct LockClock {
    qint64 (*now)();                        // milliseconds
    void (*sleep)(int milliseconds);
};
LockClock setLockClock(LockClock clock);    // returns the one before

}
