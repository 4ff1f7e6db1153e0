#pragma once

#include "platform/dao/connection.h"

// The connections of this process. All handles on a file share one; after the last handle closes it is kept, so that
// opening a file for each small task stays cheap and a password's key is derived once in a run.
namespace vorel::dao::registry {

std::shared_ptr<Connection> acquire(const QString &path, const QString &password, bool exclusive);
std::shared_ptr<Connection> create(const QString &path, const QString &password,
                                   Connection::Purpose purpose = Connection::Purpose::Create);
void release(const std::shared_ptr<Connection> &connection);
void forget(const QString &path);
bool inUse(const QString &path);                // by a handle of this process
QString knownPassword(const QString &path);     // of a protected file opened before in this run
bool looksPlain(const QString &path);           // by its first bytes
void pollAll();                                 // those in use

// What is at the path, found without opening it as a database. Throws 3024, 3044, 3051, 3343, 3049.
enum class FileKind { Plain, Protected };
FileKind inspect(const QString &path, const QString &password);

}
