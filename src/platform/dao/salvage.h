#pragma once

#include "platform/dao/connection.h"

// The rows of a damaged plain file, page by page.
namespace vorel::dao::salvage {

// Builds the tables whose designs can still be read in the new file, with their indexes and views, and saves every row on
// a page that can be read: those that the tables' trees lead to first, then those that a damaged page has cut off, which
// go to the table that they fit. False if no table's design can be read. Errors of the new file are thrown.
bool rows(const QByteArray &damaged, Connection &to);

}
