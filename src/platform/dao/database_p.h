#pragma once

#include "platform/dao/dao.h"
#include "platform/dao/registry.h"

namespace vorel::dao {

// One opened handle on a file. Closing it lets the shared connection go and ends its recordsets.
class DatabasePrivate {
public:
    DatabasePrivate(std::shared_ptr<Connection> connection, bool readOnly)
        : m_connection(std::move(connection)), m_readOnly(readOnly)
    {
    }
    ~DatabasePrivate() { close(); }
    DatabasePrivate(const DatabasePrivate &) = delete;
    DatabasePrivate &operator=(const DatabasePrivate &) = delete;

    bool isOpen() const { return m_connection != nullptr; }
    void close()
    {
        if (const auto connection = std::exchange(m_connection, nullptr))
            registry::release(connection);
    }
    Connection &connection() const
    {
        if (!m_connection)
            throw EngineError(err::ObjectInvalid);
        return *m_connection;
    }
    bool readOnly() const { return m_readOnly || connection().readOnly(); }
    // For a write: refuses a read-only file, takes part in the workspace's transaction.
    Connection &writable() const
    {
        if (readOnly())
            throw EngineError(err::ReadOnly);
        m_connection->beforeWrite();
        return *m_connection;
    }

    int affected = 0;
    int timeout = 60;

private:
    std::shared_ptr<Connection> m_connection;
    bool m_readOnly = false;
};

// How the engine's functions make a handle.
struct DatabaseAccess {
    static Database make(std::shared_ptr<Connection> connection, bool readOnly)
    {
        return Database(std::make_shared<DatabasePrivate>(std::move(connection), readOnly));
    }
};

}
