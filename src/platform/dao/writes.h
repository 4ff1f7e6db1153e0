#pragma once

#include <functional>

namespace vorel::dao {

// Calls the listener with the name of a table for each row that this process inserts, updates or deletes, in whatever way
// and on whatever thread, while the store is still writing: it must do no more than note the name. A statement that
// empties a whole table names no rows. One listener at a time;
// empty: none. A write that is rolled back was reported all the same.
void onRowWritten(std::function<void(const char *table)> listener);

}
