#pragma once

#include "session/reportdesign.h"

// The one engine that prints the list reports. Internal to this folder.
namespace vorel {

// Opens the file and the query, and prints; the message where there are no rows.
void printList(const ListReport &report);
// The same over an open recordset.
void printRows(const ListReport &report, dao::Recordset &rows);

}
