#pragma once

#include "platform/dao/connection.h"

// Data definition: creates, changes and drops tables and indexes. Internal.
namespace vorel::dao {

// Within a transaction of the caller's.
void createTable(Connection &file, const TableDef &design);
// The store's own index on a field.
void createHelper(Connection &file, const TableDef &design, const QString &field);
// Carries out a CREATE, ALTER or DROP statement, all of it or nothing.
void define(Connection &file, const jet::Translation &statement);

}
