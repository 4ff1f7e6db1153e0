#pragma once

#include "session/state.h"

#include <vector>

// The wanted designs of the data files' tables, declared once as tables; creation, comparison and tests read them.
namespace vorel::store {

inline constexpr int currentVersion = 290;      // of the design, stamped into [Database Info]

// Of one file, in the order in which they are built.
const std::vector<dao::TableDef> &designsOf(DataFile file);

const std::vector<dao::TableDef> &mainDesigns();
const std::vector<dao::TableDef> &contactsDesigns();
const std::vector<dao::TableDef> &gardenDesigns();
const std::vector<dao::TableDef> &moviesDesigns();
const std::vector<dao::TableDef> &musicDesigns();
const std::vector<dao::TableDef> &booksDesigns();
const std::vector<dao::TableDef> &notesDesigns();
const std::vector<dao::TableDef> &howToDesigns();       // health and vehicles lie in this file too
const std::vector<dao::TableDef> &recipeDesigns();
const std::vector<dao::TableDef> &sportsDesigns();
const std::vector<dao::TableDef> &accountsDesigns();
const std::vector<dao::TableDef> &passwordsDesigns();
const std::vector<dao::TableDef> &journalDesigns();

}
