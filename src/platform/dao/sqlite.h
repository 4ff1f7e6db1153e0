#pragma once

#include "platform/dao/types.h"

#include <QByteArray>
#include <sqlcipher/sqlite3.h>

// The thin layer over the store's C interface. Internal to this folder: no public header includes it.
namespace vorel::dao {

// Ends the work with the engine's number for a failure of the store.
[[noreturn]] void throwStoreError(sqlite3 *connection, int code);
// The same from a code and a text alone, e.g. one that was kept over a clean-up.
[[noreturn]] void throwStoreError(int code, const QString &text, const QString &path, int systemError);

void execute(sqlite3 *connection, const QByteArray &sql);
// Without throwing, for clean-up paths.
int executeQuietly(sqlite3 *connection, const char *sql) noexcept;

// A prepared statement. Move-only; finalized on destruction; never left stepping by this folder's code, because an
// open read would keep other processes from writing.
class Statement {
public:
    Statement() = default;
    Statement(sqlite3 *connection, const QByteArray &sql);
    ~Statement() { sqlite3_finalize(m_statement); }
    Statement(Statement &&other) noexcept : m_statement(other.m_statement) { other.m_statement = nullptr; }
    Statement &operator=(Statement &&other) noexcept
    {
        std::swap(m_statement, other.m_statement);
        return *this;
    }
    explicit operator bool() const { return m_statement != nullptr; }
    sqlite3_stmt *get() const { return m_statement; }

    // True with a row; false at the end, reset by then. A failure resets and throws.
    bool step();
    void run()
    {
        while (step()) { }
    }
    void reset() noexcept { sqlite3_reset(m_statement); }

    void bind(int index, qint64 number) { check(sqlite3_bind_int64(m_statement, index, number)); }
    void bind(int index, const QByteArray &text);
    void bindCopy(int index, const sqlite3_value *value) { check(sqlite3_bind_value(m_statement, index, value)); }
    void bind(int index, const Value &value);       // in the form that files keep
    void bindNull(int index) { check(sqlite3_bind_null(m_statement, index)); }

    qint64 integer(int column) const { return sqlite3_column_int64(m_statement, column); }
    QByteArray bytes(int column) const;
    QString text(int column) const { return QString::fromUtf8(bytes(column)); }
    bool isNull(int column) const { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }

private:
    void check(int code);
    sqlite3_stmt *m_statement = nullptr;
};

// Runs the reset at the end of a block, however it is left.
class ResetGuard {
public:
    explicit ResetGuard(Statement &statement) : m_statement(statement) {}
    ~ResetGuard() { m_statement.reset(); }
    ResetGuard(const ResetGuard &) = delete;
    ResetGuard &operator=(const ResetGuard &) = delete;

private:
    Statement &m_statement;
};

// The number in the first column of the first row, 0 without one.
qint64 integerOf(sqlite3 *connection, const QByteArray &sql);

// A name as an identifier of SQL: in double quotes, its own doubled.
QByteArray quoted(QStringView name);
// A text as a literal of SQL.
QByteArray sqlText(QStringView text);

}
