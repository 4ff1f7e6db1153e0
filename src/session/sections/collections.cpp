#include "session/sections/collections.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

std::vector<Field> collectionFields(std::vector<Field> details, bool hasSound)
{
    for (Field &field : details) {
        if (field.panel.isEmpty())
            field.panel = u"picDetails"_s;
    }
    const auto add = [&](Field field) { details.push_back(std::move(field)); };
    add({.control = u"cboRating"_s, .field = u"RATING"_s, .kind = List, .panel = u"picReview"_s, .label = u"Ratin&g"_s});
    add({.control = u"txtComments"_s, .field = u"COMMENTS"_s, .kind = Rich, .panel = u"picReview"_s, .label = u"Comment&s"_s});
    add({.control = u"chkOwnCopy"_s, .field = u"HAVECOPY"_s, .kind = Check, .panel = u"picLoan"_s, .label = u"Own &Copy"_s});
    add({.control = u"txtStorageID"_s, .field = u"STORAGEID"_s, .panel = u"picLoan"_s, .label = u"Libra&y #"_s, .labelName = u"lblLibrary"_s});    // spelled so on purpose
    add({.control = u"txtOnLoan"_s, .field = u"ONLOAN"_s, .panel = u"picLoan"_s, .label = u"Currently On loan &to"_s});
    if (hasSound)
        add({.control = u"lblSoundFile"_s, .field = u"SOUNDFILENAME"_s, .kind = Path, .panel = u"picOther"_s, .label = u"Sound"_s,
             .labelName = u"lblSound"_s});
    add({.control = u"lblPictureFile"_s, .field = u"FILENAME"_s, .kind = Path, .panel = u"picOther"_s, .label = u"Picture"_s,
         .labelName = u"lblPicture"_s});
    add({.control = u"lblIDNum"_s, .field = u"ID"_s, .kind = Hidden});
    return details;
}

QString newRecordHint(const QString &what, const QString &pictured)
{
    return u"If you have the Internet connected then you may find the description of the "_s + what
        + u" to paste here, otherwise enter your own. You may also find a picture of the "_s + pictured
        + u" to load into your picture box"_s;
}

}
