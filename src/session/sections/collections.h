#pragma once

#include "session/recorddesign.h"

// What the collections (books, movies, music) have in common.
namespace vorel::records {

constexpr TreeButton allButton(QStringView field)
{
    return {u"cmdAll", u"All", u" By first character ", TreeMode::ByFirstCharacter, field};
}

constexpr TreeButton categoryButton(QStringView field)
{
    return {u"cmdCategory", u"Category", u" By category ", TreeMode::ByCategory, field};
}

// What every collection holds of its copies.
inline void addLoanFields(std::vector<Field> &fields)
{
    fields.insert(fields.end(), {
        {u"chkOwnCopy", u"HAVECOPY", FieldKind::Check, u"picLoan", u"Own &Copy"},
        {u"txtStorageID", u"STORAGEID", FieldKind::Line, u"picLoan", u"Libra&y #", u"lblLibrary"},
        {u"txtOnLoan", u"ONLOAN", FieldKind::Line, u"picLoan", u"Currently On loan &to"},
    });
}

inline void addKeyFields(std::vector<Field> &fields)
{
    fields.insert(fields.end(), {
        {u"lblPictureFile", u"FILENAME", FieldKind::Picture, u"picOther", u"Picture:", u"lblPicture"},
        {u"lblIDNum", u"ID", FieldKind::Hidden},
    });
}

}
