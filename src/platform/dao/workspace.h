#pragma once

// The workspace's transaction (DBEngine::BeginTrans). Internal.
namespace vorel::dao {

class Connection;

namespace workspace {

// Takes the connection into every open level of the workspace's transaction: at its first write, so that files which a
// routine only reads are not locked.
void join(Connection &connection);
void forget(const Connection &connection);      // it is being closed

}

}
