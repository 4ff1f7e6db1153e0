#include "platform/dao/sqlite.h"

#include "platform/dao/dao.h"
#include "platform/dao/jet/translator.h"

#include <QDir>
#include <cerrno>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

// "NOT NULL constraint failed: TABLE.FIELD" and its like: what follows the colon.
QString failedName(const QString &text)
{
    const qsizetype colon = text.indexOf(u": "_s);
    return colon < 0 ? QString() : text.mid(colon + 2);
}

[[noreturn]] void throwConstraint(int code, const QString &text)
{
    const QString name = failedName(text);
    if (code == SQLITE_CONSTRAINT_NOTNULL)
        throw EngineError(err::ValueRequired, name.mid(name.indexOf(u'.') + 1));
    if (code != SQLITE_CONSTRAINT_CHECK)
        throw EngineError(err::DuplicateValue);
    const QString zeroLength = u"AllowZeroLength "_s;
    if (name.startsWith(zeroLength))
        throw EngineError(err::ZeroLengthText, name.mid(zeroLength.size()));
    if (name.startsWith(u"Required "_s))
        throw EngineError(err::NullInIndex);
    throw EngineError(err::ValidationRule, name);
}

std::function<QString(const QString &)> &damageText()
{
    static std::function<QString(const QString &)> installed;
    return installed;
}

[[noreturn]] void throwDamaged(const QString &path)
{
    const QString text = damageText() ? damageText()(path) : QString();
    if (!text.isEmpty())
        throw EngineError(err::Damaged, text, nullptr);
    throw EngineError(err::Damaged, QDir::toNativeSeparators(path));
}

bool outOfSpace(int systemError)
{
    return systemError == ENOSPC || systemError == EFBIG || systemError == EDQUOT;
}

}

void DBEngine::setDamageText(std::function<QString(const QString &)> textOf)
{
    damageText() = std::move(textOf);
}

void throwStoreError(int code, const QString &text, const QString &path, int systemError)
{
    const QString name = QDir::toNativeSeparators(path);
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw EngineError(err::Locked);
    case SQLITE_READONLY:
        if (code == SQLITE_READONLY_DBMOVED)        // what it would write to has no name any more, or lies elsewhere
            throw EngineError(err::FileNotFound, name);
        throw EngineError(err::ReadOnly);
    case SQLITE_CONSTRAINT:
        throwConstraint(code, text);
    case SQLITE_FULL:
        throw EngineError(err::DiskFull);
    case SQLITE_IOERR:
        throw EngineError(outOfSpace(systemError) ? err::DiskFull : err::DiskError);
    case SQLITE_CORRUPT:
        throwDamaged(path);
    case SQLITE_NOTADB:
        throw EngineError(err::UnknownFormat, name);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        throw EngineError(err::NoPermission, name);
    case SQLITE_NOMEM:
        throw EngineError(err::OutOfResources);
    case SQLITE_TOOBIG:
        throw EngineError(err::TooLong);
    case SQLITE_MISMATCH:
        throw EngineError(err::Conversion);
    case SQLITE_INTERRUPT:
        throw EngineError(err::Canceled);
    case SQLITE_ERROR:
        jet::throwFunctionError(text.toUtf8().constData());
        break;
    default:
        break;
    }
    jet::throwFunctionError(text.toUtf8().constData());
    // Code 0 says "not an error", which nobody must ever read as an error's text.
    const bool hasText = (code & 0xff) != SQLITE_OK && !text.isEmpty();
    throw EngineError(err::InvalidOperation, hasText ? u"Invalid operation. ("_s + text + u')' : EngineError::standardText(err::InvalidOperation), nullptr);
}

void throwStoreError(sqlite3 *connection, int code)
{
    const int extended = sqlite3_extended_errcode(connection);
    // A finer code is of use only if it belongs to the failure at hand.
    const int finest = (extended & 0xff) == (code & 0xff) ? extended : code;
    const char *file = sqlite3_db_filename(connection, "main");
    throwStoreError(finest, QString::fromUtf8(sqlite3_errmsg(connection)), QString::fromUtf8(file ? file : ""),
                    sqlite3_system_errno(connection));
}

void execute(sqlite3 *connection, const QByteArray &sql)
{
    const int code = sqlite3_exec(connection, sql.constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throwStoreError(connection, code);
}

int executeQuietly(sqlite3 *connection, const char *sql) noexcept
{
    return sqlite3_exec(connection, sql, nullptr, nullptr, nullptr);
}

Statement::Statement(sqlite3 *connection, const QByteArray &sql)
{
    const int code = sqlite3_prepare_v2(connection, sql.constData(), static_cast<int>(sql.size()) + 1, &m_statement, nullptr);
    if (code != SQLITE_OK)
        throwStoreError(connection, code);
    if (!m_statement)
        throw EngineError(err::InvalidOperation);
}

bool Statement::step()
{
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE) {
        sqlite3_reset(m_statement);
        return false;
    }
    sqlite3 *connection = sqlite3_db_handle(m_statement);
    const int finest = sqlite3_extended_errcode(connection);
    const QString text = QString::fromUtf8(sqlite3_errmsg(connection));
    const int systemError = sqlite3_system_errno(connection);
    const char *file = sqlite3_db_filename(connection, "main");
    sqlite3_reset(m_statement);
    throwStoreError((finest & 0xff) == (code & 0xff) ? finest : code, text, QString::fromUtf8(file ? file : ""), systemError);
}

void Statement::bind(int index, const QByteArray &text)
{
    check(sqlite3_bind_text(m_statement, index, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT));
}

void Statement::bind(int index, const Value &value)
{
    switch (value.type()) {
    case basic::ValueType::Null:
        return bindNull(index);
    case basic::ValueType::Boolean:
        return bind(index, qint64{value.get<bool>() ? -1 : 0});
    case basic::ValueType::Byte:
        return bind(index, qint64{value.get<std::uint8_t>()});
    case basic::ValueType::Integer:
        return bind(index, qint64{value.get<std::int16_t>()});
    case basic::ValueType::Long:
        return bind(index, qint64{value.get<std::int32_t>()});
    case basic::ValueType::Currency:
        return bind(index, qint64{value.get<basic::Currency>().scaled()});
    case basic::ValueType::Single:
        return check(sqlite3_bind_double(m_statement, index, static_cast<double>(value.get<float>())));
    case basic::ValueType::Double:
        return check(sqlite3_bind_double(m_statement, index, value.get<double>()));
    case basic::ValueType::Date:
        return bind(index, value.get<basic::DateTime>().toStored().toUtf8());
    case basic::ValueType::Text:
        return bind(index, value.get<QString>().toUtf8());
    case basic::ValueType::Binary: {
        const QByteArray &content = value.get<QByteArray>();
        return check(sqlite3_bind_blob(m_statement, index, content.isNull() ? "" : content.constData(),
                                       static_cast<int>(content.size()), SQLITE_TRANSIENT));
    }
    }
}

QByteArray Statement::bytes(int column) const
{
    const void *data = sqlite3_column_type(m_statement, column) == SQLITE_BLOB
        ? sqlite3_column_blob(m_statement, column)
        : static_cast<const void *>(sqlite3_column_text(m_statement, column));
    return QByteArray(static_cast<const char *>(data), sqlite3_column_bytes(m_statement, column));
}

void Statement::check(int code)
{
    if (code != SQLITE_OK)
        throwStoreError(sqlite3_db_handle(m_statement), code);
}

qint64 integerOf(sqlite3 *connection, const QByteArray &sql)
{
    Statement statement(connection, sql);
    const ResetGuard reset(statement);
    return statement.step() ? statement.integer(0) : 0;
}

QByteArray quoted(QStringView name)
{
    return '"' + name.toUtf8().replace('"', "\"\"") + '"';
}

QByteArray sqlText(QStringView text)
{
    return '\'' + text.toUtf8().replace('\'', "''") + '\'';
}

}
