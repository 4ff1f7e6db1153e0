#pragma once

namespace vorel::contacts {

// Writes all stored names anew in the case that the setting of names in capitals asks for: the contacts, the titles of movies, books
// and music, the items of the inventory and the subjects of the events. Each file is one transaction. Engine errors.
void ConvertRecordCase();

}
