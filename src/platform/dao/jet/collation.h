#pragma once

#include <string>
#include <string_view>

namespace vorel::dao::jet {

// The engine's order of texts (UTF-8), negative, 0 or positive: case does not count, trailing blanks do not count,
// accents only break ties, a hyphen or an apostrophe weighs nothing beside other characters, digits come before letters.
int compareText(std::string_view a, std::string_view b);

// Adds the text's place in that order, as bytes that compare like unsigned ones; no place is the beginning of another.
// For many comparisons of one text.
void appendSortKey(std::string_view text, std::string &key);

}
