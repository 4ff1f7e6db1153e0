#pragma once

#include "session/recorddesign.h"

// What a record screen asks of its tables.
namespace vorel::records {

// Adds a row with the section's first values and the user's name and stores it. A value that the field's kind cannot hold
// empty is Null; a field that the table lacks is passed over.
dao::Bookmark addRow(dao::Recordset &rows, const RecordDesign &design);

// The choices of a list, read by a short connection of its own. A null is an empty entry.
QStringList listValues(const QString &databasePath, const Choices &list);
// Deletes the rows of other tables that belong to the record, by the design's statements.
void deleteChildren(dao::Database &database, const RecordDesign &design, qint32 id, const QString &name);
// The tracks of a music title, in the order in which they were entered.
QStringList Tracks(const QString &databasePath, qint32 id);

}
