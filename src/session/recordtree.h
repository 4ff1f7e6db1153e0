#pragma once

#include "session/recorddesign.h"

// The readers of the trees that most record sections have. A reader of a section's own has the same form.
namespace vorel::records {

// A group for each digit and letter that a field begins with; the letters alone for the second one. A row without a text
// there, or one that begins with anything else, has no leaf.
void readTreeByFirstCharacter(const TreeRequest &request, std::vector<TreeNode> &nodes);
void readTreeByFirstLetter(const TreeRequest &request, std::vector<TreeNode> &nodes);
// A group for each value of CATEGORY, or of the field. A row without a value has no leaf. A value with an apostrophe cannot
// be part of the query: its group is left out, and once the others are read an EngineError names it.
void readTreeByCategory(const TreeRequest &request, std::vector<TreeNode> &nodes);
void readTreeByField(const TreeRequest &request, std::vector<TreeNode> &nodes);

// Proper case; of a surname the letter behind the first "Mc", "Mac", "O'", "O`" and "-" is a capital too.
QString MixedCaseName(const QString &text, NameCase names = NameCase::Surnames);
// Names are shown and kept in capitals (the setting ContactsUpperCase, which is on until it is switched off).
bool namesInCapitals();

}
