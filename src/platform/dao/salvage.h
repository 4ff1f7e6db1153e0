#pragma once

#include "platform/dao/connection.h"

// The rows of a damaged plain file, page by page.
namespace vorel::dao::salvage {

// Builds the tables in the new file, with their indexes and views: by the designs that can still be read, and by `wanted`
// where a table's own design cannot. Saves every row on a page that can be read: those that the tables' trees lead to
// first, then those that a damaged page has cut off, which go to the table that they fit. Counts into the report. False if
// neither a design nor a row of a wanted table can be read. Errors of the new file are thrown.
bool rows(const QByteArray &damaged, const std::vector<TableDef> &wanted, Connection &to, RepairReport &report);

}
