#pragma once

#include "platform/dao/connection.h"

// Whole files into new ones, for compaction and repair.
namespace vorel::dao::copy {

// Tables with their rows, indexes, views, in the order of their creation. Counters go on from the highest number that
// is in use. Throws at the first thing that cannot be read.
void everything(Connection &from, Connection &to);

// The same, passing over what cannot be read, counted into the report; false if no table's design could be read at all.
bool readableRows(Connection &from, Connection &to, RepairReport &report);

}
