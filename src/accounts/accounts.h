#pragma once

#include <QString>

// What the screens of the accounts share.
namespace vorel {

// Adds an account to the chart unless one of the same number, name and type exists. Numbers repeat in the chart.
void AddAccount(const QString &number, const QString &name, const QString &type);
// The chart of accounts that a household starts with; a second call adds nothing.
void SeedAccounts();

}
