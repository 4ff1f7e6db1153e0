#pragma once

#include "platform/dao/dao.h"

#include <QStringList>
#include <vector>

// The pocket card: names with the numbers and addresses that the user picked, in print small enough for a purse.
namespace vorel {

struct CardItem {
    QString category;                   // "STREET" ... "EMAIL - 3"
    QString data;
    QString line() const;               // as the card prints it: "HOME: 9555 1", an address without a word before it
};
struct CardEntry {
    QString name;
    QStringList lines;
};
inline constexpr qsizetype mostCardEntries = 20;

QStringList cardContacts(dao::Database &database);      // the sort names of all visible contacts
struct CardContact {
    qint32 id = 0;                      // 0: it is not there any more
    std::vector<CardItem> items;        // what is present, in the order of the card
};
// Of several contacts with one sort name the same-th, from 0.
CardContact cardContact(dao::Database &database, const QString &sortName, int same = 0);

// Straight to the printer; without one the pages are shown. Small cards with lines to cut along, filled from entry to entry.
void printInfoCard(const std::vector<CardEntry> &entries);

}
