#pragma once

#include "contacts/contactname.h"

namespace vorel::contacts {

// What the short form of a contact asks for.
struct NewContact {
    ContactName name{};
    QString gender{}, title{};
    QString businessNumber{}, contact{}, manager{}, assistant{};
};
// Adds it to the contacts file; its ID.
qint32 addContact(const NewContact &contact);

// How many contacts bear that full name, whatever its case.
qsizetype countOfName(const QString &databasePath, const QString &fullName);

}
