#pragma once

#include "platform/dao/dao.h"

#include <QStringList>
#include <map>

// The Shopping section: what its rows come to, and the list's own rules.
namespace vorel {

// By row ID. A row that has no ID yet is kept under 0. Filled on entry to the section, emptied on leaving it.
struct ShoppingVariables {
    std::map<qint32, double> TOTAL;
    std::map<qint32, bool> PICK;
    QStringList stores;                 // for the list of the STORE column, in order, no empty one

    void put(qint32 id, double total, bool pick);
    void remove(qint32 id);
    void addStore(const QString &store);
};

// Reads the rows and the stores of the main file.
ShoppingVariables FillShoppingVariables(dao::Database &database);
// The sum of what is picked.
double TotalShopping(const ShoppingVariables &variables);
// Takes the check off each picked row, all in one transaction; the first row is current then. Nothing without rows.
void ClearShoppingChecks(dao::Database &database, dao::Recordset &rows, ShoppingVariables &variables);

QString shoppingTitle(double total);
// Val of the number times Val of the amount.
double rowTotal(const basic::Value &number, const basic::Value &amount);
// Whether the list holds the item already, whatever the case; a blank at the end makes another item.
bool isOnShoppingList(dao::Database &database, const QString &item);

}
