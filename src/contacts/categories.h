#pragma once

#include <QString>
#include <vector>

// The categories of the contacts, each of which can be put away: its contacts then show in no list and no tree.
namespace vorel::contacts {

struct CategoryRow {
    QString name;
    bool isShown = true;
};
std::vector<CategoryRow> readCategories(const QString &databasePath);
bool isPutAway(const QString &databasePath, const QString &category);
// Marks the category and all of its contacts, in one transaction.
void showCategory(const QString &databasePath, const QString &name, bool isShown);

}
