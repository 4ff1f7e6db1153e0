#include "platform/dao/workspace.h"

#include "platform/dao/database_p.h"
#include "platform/dao/dao.h"

#include <algorithm>
#include <vector>

namespace vorel::dao {

namespace workspace {

namespace {

// The files that take part in each open level, with the level of their own that it opened.
struct Part {
    Connection *connection;
    int level;
};
std::vector<std::vector<Part>> &levels()
{
    static auto *list = new std::vector<std::vector<Part>>();
    return *list;
}

}

void join(Connection &connection)
{
    for (auto &level : levels()) {
        const bool joined = std::any_of(level.begin(), level.end(),
                                        [&](const Part &part) { return part.connection == &connection; });
        if (!joined)
            level.push_back({ &connection, connection.begin() });
    }
}

void forget(const Connection &connection)
{
    for (auto &level : levels())
        std::erase_if(level, [&](const Part &part) { return part.connection == &connection; });
}

}

void DBEngine::BeginTrans()
{
    workspace::levels().emplace_back();
}

void DBEngine::CommitTrans()
{
    auto &levels = workspace::levels();
    if (levels.empty())
        throw EngineError(err::NoTransaction);
    const auto parts = std::move(levels.back());
    levels.pop_back();
    for (size_t i = 0; i < parts.size(); ++i) {
        try {
            parts[i].connection->commitTo(parts[i].level);
        } catch (...) {
            for (size_t rest = i + 1; rest < parts.size(); ++rest)
                parts[rest].connection->rollbackTo(parts[rest].level);
            throw;
        }
    }
}

void DBEngine::Rollback()
{
    auto &levels = workspace::levels();
    if (levels.empty())
        throw EngineError(err::NoTransaction);
    const auto parts = std::move(levels.back());
    levels.pop_back();
    for (const auto &part : parts)
        part.connection->rollbackTo(part.level);
}

struct Transaction::State {
    std::shared_ptr<DatabasePrivate> database;
    Connection *connection = nullptr;
    int level = 0;
};

Transaction::Transaction(Database &database) : m_state(std::make_unique<State>())
{
    if (!database.d)
        throw EngineError(err::ObjectInvalid);
    m_state->database = database.d;
    m_state->connection = &database.d->writable();
    m_state->level = m_state->connection->begin();
}

Transaction::~Transaction()
{
    if (m_state->level > 0 && m_state->database->isOpen())
        m_state->connection->rollbackTo(m_state->level);
}

void Transaction::Commit()
{
    if (m_state->level == 0)
        throw EngineError(err::NoTransaction);
    m_state->database->connection().commitTo(std::exchange(m_state->level, 0));
}

}
