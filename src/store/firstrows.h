#pragma once

#include "session/state.h"

#include <vector>

// Rows that the store itself writes: the ones that the screens need, and the sample rows of a new installation.
namespace vorel::store {

struct FirstField {
    const char16_t *name;
    basic::Value value;
};

// Rows written together if the query finds none.
struct FirstRows {
    DataFile file;
    const char16_t *query;
    std::vector<std::vector<FirstField>> rows;
};

// The one-row tables. dayFirst: the regional order, which decides the tax year's start and the tax system.
std::vector<FirstRows> requiredRows(basic::DateTime today, bool dayFirst);
// Sample rows that show each section at work. Their pictures lie in the program folder.
std::vector<FirstRows> sampleRows(basic::DateTime today);

// Writes those of the groups that belong to the file and find their table empty. A text that does not fit its field (a
// picture's path in a deep folder) is left out.
void addFirstRows(const std::vector<FirstRows> &groups, DataFile file, dao::Database &database);

}
