#pragma once

#include "session/state.h"

#include <set>

// The cheap looks at the data files that a start can afford.
namespace vorel::store {

// The files that get a full check: those that do not open, those in which the last run met damage, and those that are not
// as it left them or that it did not know; after a run that was broken off, all.
std::set<DataFile> suspects();

// What the user reads of a data file that opened and turns out to be damaged when it is read; notes it as a suspect of the
// next start. Empty for a file that is none of the thirteen.
QString damageMet(const QString &path);
void forgetDamage(const QString &path);         // it has been repaired

// The number of the error with which the file opens, 0 if it does.
int openingError(DataFile file);
bool isInUse(int errorNumber);

// Whether the file is of the current version and its safety copy of an older one.
bool wasUpgraded(DataFile file);

}
