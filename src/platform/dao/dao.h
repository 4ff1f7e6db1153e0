#pragma once

#include "platform/dao/types.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

// Data access: databases, table designs, keyset recordsets, over SQLCipher. All objects are cheap handles that share
// what they name; a closed or empty one throws 3420. One thread.
namespace vorel::dao {

// A field of a table design.
struct FieldDef {
    QString Name{};
    DataType Type = dbText;
    int Size = 0;                   // characters for dbText; DAO's byte sizes for the others
    int Attributes = 0;             // dbAutoIncrField
    bool AllowZeroLength = false;
    bool Required = false;
    QString DefaultValue{};           // "" or a number's text
    QString ValidationRule{};
    QString ValidationText{};
    bool operator==(const FieldDef &) const = default;
};

struct IndexDef {
    QString Name{};
    QStringList Fields{};
    bool Primary = false;
    bool Unique = false;
    bool Required = false;
    bool operator==(const IndexDef &) const = default;
};

struct TableDef {
    QString Name{};
    std::vector<FieldDef> Fields{};
    std::vector<IndexDef> Indexes{};
    // Fields that the program often selects by; each gets an index of the store's own, which Indexes never lists.
    QStringList Helpers{};
    int Attributes = 0;             // 0 = a user table
};

// Where a row stands: opaque, valid until the recordset closes or requeries.
class Bookmark {
public:
    Bookmark() = default;
    explicit Bookmark(qint64 key) : m_key(key), m_valid(true) {}
    bool isValid() const { return m_valid; }
    qint64 key() const { return m_key; }
    bool operator==(const Bookmark &) const = default;
private:
    qint64 m_key = 0;
    bool m_valid = false;
};

struct RecordsetField {
    QString Name;
    DataType Type = dbText;
    int Size = 0;
    int Attributes = 0;
    QString SourceTable;
    QString SourceField;
};

class RecordsetPrivate;
class DatabasePrivate;

class Recordset {
public:
    Recordset() = default;
    explicit operator bool() const { return d != nullptr; }     // open
    void Close();

    const std::vector<RecordsetField> &Fields() const;
    int fieldIndex(QStringView name) const;                     // 3265 if there is none
    RecordsetType Type() const;
    bool Updatable() const;

    bool BOF() const;
    bool EOF_() const;                                          // EOF is a macro of <cstdio>
    qsizetype RecordCount() const;                              // rows visited so far; exact after MoveLast
    qsizetype AbsolutePosition() const;                         // zero-based, -1 without a current row
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    void Move(qsizetype rows);

    // The current row's field, or the copy buffer's while AddNew or Edit is pending. 3021 without a current row, 3265.
    Value Get(QStringView name) const;
    Value Get(int column) const;
    // Assigns to the copy buffer with DAO's conversions. 3020 without AddNew/Edit, 3163 too long, 3421, 3315.
    void Set(QStringView name, const Value &value);
    void Set(int column, const Value &value);

    void AddNew();
    void Edit();
    void Update();
    void CancelUpdate();
    void Delete();
    bool editPending() const;

    dao::Bookmark Bookmark() const;
    void setBookmark(dao::Bookmark mark);                       // 3159, 3167
    dao::Bookmark LastModified() const;
    void FindFirst(QStringView criteria);
    void FindNext(QStringView criteria);
    void FindPrevious(QStringView criteria);
    void FindLast(QStringView criteria);
    bool NoMatch() const;

    QString Sort() const;
    void setSort(const QString &fields);                        // acts when another recordset is opened from this one
    QString Filter() const;
    void setFilter(const QString &criteria);
    Recordset OpenRecordset(RecordsetType type = dbOpenDynaset) const;
    Recordset Clone() const;
    void Requery();

    // Questions that do not throw: a closed recordset, a row that is gone and an unknown field answer with false or `otherwise`.
    bool tryBookmark(dao::Bookmark mark);                       // makes it the current row; where it cannot, that stays
    Value valueOr(QStringView name, const Value &otherwise) const;
    bool hasCurrentRow() const;
    void dropPending();                                         // as CancelUpdate where a row is pending
    void letGo();                                               // as Close where it is open
    bool isOpen() const;

    // For grids: rows by position without moving the current row; a closed recordset has none. rowTotal costs nothing
    // beyond the keys.
    qsizetype rowTotal() const;
    Value cell(qsizetype row, int column) const;                // Null for a row deleted meanwhile; 3218 while locked
    dao::Bookmark bookmarkAt(qsizetype row) const;
    qsizetype positionOf(dao::Bookmark mark) const;             // -1 if it is not in the set

private:
    friend class Database;
    friend class RecordsetPrivate;
    friend class NewRow;
    explicit Recordset(std::shared_ptr<RecordsetPrivate> p) : d(std::move(p)) {}
    std::shared_ptr<RecordsetPrivate> d;
};

// AddNew that takes itself back unless it is saved, so that no failure leaves the recordset with a row pending.
class NewRow {
public:
    explicit NewRow(Recordset &rows);                           // as AddNew
    ~NewRow();
    NewRow(const NewRow &) = delete;
    NewRow &operator=(const NewRow &) = delete;
    NewRow &set(QStringView name, const Value &value);
    void save();                                                // as Update; after a failure it can be tried again
private:
    Recordset m_rows;
    bool m_pending = true;
};

class Database {
public:
    Database() = default;
    explicit operator bool() const { return d != nullptr; }
    QString Name() const;                                       // its path
    void Close();
    void letGo();                                               // as Close where it is open

    Recordset OpenRecordset(const QString &source, RecordsetType type = dbOpenDynaset);
    Recordset CreateSnapshot(const QString &sql) { return OpenRecordset(sql, dbOpenSnapshot); }
    void Execute(const QString &sql);                           // one action statement; 3065 for a select
    int RecordsAffected() const;
    int QueryTimeout() const;                                   // kept for its callers; no query is broken off
    void setQueryTimeout(int seconds);

    // Designs. Read: in order of creation. 3265 for an unknown name, 3010 for one that exists.
    std::vector<TableDef> TableDefs() const;
    TableDef TableDefByName(QStringView name) const;
    bool hasTable(QStringView name) const;
    void AppendTable(const TableDef &design);
    void DeleteTable(QStringView name);
    void RenameTable(QStringView oldName, const QString &newName);
    void appendHelpers(const TableDef &design);                 // those of its helper indexes that the table lacks
    void writeUnsynced();                                       // for a scratch file: no write waits for the disk any more
    QStringList QueryDefs() const;                              // saved queries (SQLite views)
    void DeleteQuery(const QString &name);

private:
    friend class DatabasePrivate;
    friend class Transaction;
    friend class ManyReads;
    friend struct DatabaseAccess;
    explicit Database(std::shared_ptr<DatabasePrivate> p) : d(std::move(p)) {}
    std::shared_ptr<DatabasePrivate> d;
};

// One transaction on one database: rolled back on destruction unless committed. Nested ones join the outer.
class Transaction {
public:
    explicit Transaction(Database &database);                   // BEGIN IMMEDIATE
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    void Commit();
private:
    struct State;
    std::unique_ptr<State> m_state;
};

// While one lives, pages that were read are kept: for a routine that asks many queries of one table.
class ManyReads {
public:
    explicit ManyReads(Database &database);
    ~ManyReads();
    ManyReads(const ManyReads &) = delete;
    ManyReads &operator=(const ManyReads &) = delete;
private:
    std::shared_ptr<DatabasePrivate> m_database;
};

// What RepairDatabase found and did.
struct RepairReport {
    bool damaged = false;
    qsizetype rowsSeen = 0;         // rows that the damaged file still shows some trace of
    qsizetype rowsSaved = 0;
    QString original;               // where the damaged file lies now
    QStringList lost;               // tables that the new file lacks, or has without all the rows that were seen
};

namespace DBEngine {

// connect: "" or ";pwd=..." or "Access". Errors: 3024 no such file, 3044 no such folder, 3049/3343 not a database or
// damaged, 3031 wrong password, 3051 no permission, 3356 opened exclusively elsewhere. A read-only file opens
// read-only by itself (writes then give 3027).
Database OpenDatabase(const QString &path, bool exclusive = false, bool readOnly = false, const QString &connect = {});
// locale: ";LANGID=...;pwd=..." ; the file must not exist (3204).
Database CreateDatabase(const QString &path, const QString &locale, int version = dbVersion30);
// The same for a file that its maker brings to its place by putInPlace: no write waits for the disk.
Database createScratch(const QString &path, const QString &locale);
// Syncs a file that no handle is open on and moves it over the place in one step: whoever looks, also after a kill or a
// power loss, finds the old file or the new one. 3045 if a handle is open, 3026 without room, 3051 where it may not.
void putInPlace(const QString &scratch, const QString &place);
void CompactDatabase(const QString &source, const QString &destination, const QString &locale = {}, int version = dbVersion30);
// Checks a file, every row included, and leaves a sound one as it is, byte for byte. A damaged one is replaced, in one
// step, by a new file with the rows that can be read; it stays beside it as PATH.damaged (.damaged2, ... while older ones
// exist). If no table can be read, it goes there and nothing stands at the path. `wanted` are the designs that the file
// should hold: a table whose own design text is damaged is built by them and keeps its rows. Untouched, with an error: 3031
// wrong password, 3356 another program uses it, 3045 this one does, 3051 no permission, 3026 disk full.
RepairReport RepairDatabase(const QString &path, const QString &connect = {}, const std::vector<TableDef> &wanted = {});
void Idle(int what = dbRefreshCache);                           // rows of other handles are seen from here on

// What error 3049 says of a file that turns out to be damaged, in place of the engine's text; "" keeps that one. Asked each
// time, so it may note the file.
void setDamageText(std::function<QString(const QString &path)> textOf);

// Lets go of what is kept of a file between its uses (its connection, the key of a protected one). Nobody needs to call it
// before a file is deleted or replaced: a file that took the place of another is noticed at the next opening.
void Forget(const QString &path);
// How long a read or write waits for another process before it fails with 3218; 5,000 ms unless set. After a wait in vain
// the next ones on that file fail at once, until a write gets through or 5 s have passed.
void setLockWait(int waitMilliseconds);
int LockWait();

// The workspace's transaction over the databases open in it.
void BeginTrans();
void CommitTrans();                                             // 3034 without BeginTrans
void Rollback();

}

// The ";pwd=" part of a connect or locale string, "" if none.
QString passwordOf(const QString &connect);

// A value as a query text spells it, whatever the region: 'it''s', #11/22/2026 09:30:00#, 12.5, -1, Null. What a user typed
// or a row holds enters a query in this way unless a rule wants asTyped. 3421 for bytes.
QString literal(const Value &value);
// The text between single quotes with nothing done to the quotes in it, for the queries whose rule is that a name with an
// apostrophe breaks them: they fail with 3075 rather than find a row.
QString asTyped(QStringView text);

}
