#pragma once

#include "session/recorddesign.h"

// The tree of a record section as plain data.
namespace vorel::records {

struct TreeLeaf { qint32 id = 0; QString text; };
struct TreeGroup { QString text; std::vector<TreeLeaf> leaves; };

// Groups and leaves in the order in which they are shown. A row with no title, or one that begins with anything but a
// letter or a digit, has no leaf by first character. EngineError when a query fails (an apostrophe in a group's value).
// gSection decides which column a leaf's text comes from and how it is cased.
std::vector<TreeGroup> recordTreeRows(TreeMode mode, const QString &databasePath, const QString &table, const QString &field);
// The same, one group after the other: those in front of a query that fails are there when its error comes out.
void readRecordTree(TreeMode mode, const QString &databasePath, const QString &table, const QString &field,
                    std::vector<TreeGroup> &groups);

// Proper case; the letter behind the first "Mc", "Mac", "O'", "O`" and "-" is a capital too (not in Inventory).
QString MixedCaseName(const QString &text);
// Names are shown and kept in capitals (the setting ContactsUpperCase, which is on until it is switched off).
bool namesInCapitals();

}
