#pragma once

#include "session/recorddesign.h"

// The trees of the contacts. Groups are letters, or categories; a leaf is a contact by its sort name, a business by its company.
// A contact of the same name as the one before it has no leaf of its own. Below a business stand the people to ask for there.
namespace vorel::records {

void readContacts(const TreeRequest &request, std::vector<TreeNode> &nodes);
void readBusinesses(const TreeRequest &request, std::vector<TreeNode> &nodes);
void readPrivateContacts(const TreeRequest &request, std::vector<TreeNode> &nodes);
// A group for each category, with its grave accents as apostrophes again; those without a category come first, under "".
void readContactCategories(const TreeRequest &request, std::vector<TreeNode> &nodes);

}
