#pragma once

#include "session/recorddesign.h"
#include "session/recordtree.h"

// What the collections (books, movies, music) have in common.
namespace vorel::records {

inline TreeButton allButton(const QString &field, const QString &tip = QStringLiteral(" By first character "))
{
    return {QStringLiteral("cmdAll"), QStringLiteral("All"), tip, readTreeByFirstCharacter, field, field};
}

inline TreeButton categoryButton(const QString &field)
{
    return {QStringLiteral("cmdCategory"), QStringLiteral("Category"), QStringLiteral(" By category "), readTreeByCategory, field, field};
}

// A field's values group the titles.
inline TreeButton valueButton(const QString &name, const QString &caption, const QString &tip, const QString &field)
{
    return {name, caption, tip, readTreeByField, field, QStringLiteral("TITLE")};
}

// The fields of a collection: its own on the details, then what every collection holds of its copies.
std::vector<Field> collectionFields(std::vector<Field> details, bool hasSound);
// The hint that a new record starts with.
QString newRecordHint(const QString &what, const QString &pictured);

}
