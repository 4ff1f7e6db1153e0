#pragma once

#include "platform/dao/dao.h"

#include <vector>

// The wanted designs of the data files' tables, declared once as tables; creation, comparison and tests read them.
namespace vorel::store {

inline constexpr int currentVersion = 290;      // of the design, stamped into [Database Info]

const std::vector<dao::TableDef> &mainDesigns();    // in the order in which they are built

}
