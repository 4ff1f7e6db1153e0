#pragma once

#include "session/state.h"

#include <set>

// The cheap looks at the data files that a start can afford.
namespace vorel::store {

// The files that get a full check: those that do not open, and those that are not as the last run left them; after a run
// that was broken off, all.
std::set<DataFile> suspects();

// The number of the error with which the file opens, 0 if it does.
int openingError(DataFile file);
bool isInUse(int errorNumber);

// Whether the file is of the current version and its safety copy of an older one.
bool wasUpgraded(DataFile file);

}
