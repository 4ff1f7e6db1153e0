#include "frame/frmLater.h"

#include "session/state.h"
#include "utilities/frmInformation.h"

namespace vorel {

using namespace Qt::StringLiterals;

std::function<void()> &adminPassword()
{
    static std::function<void()> ask = [] { state().selection.gAdminOk = true; };
    return ask;
}

void showMissingContacts()
{
    static const QString note = QStringList{
        u" PLEASE NOTE:"_s,
        u" There are no contacts in this section."_s,
        u" If you have used an earlier version, your contacts can be brought over from it."_s,
        u" Open the Administration screen and choose Other."_s,
        u" Run the Contact Conversion Utility there once; a progress bar shows the progress."_s,
        u" Afterwards your contacts are listed in this section."_s}.join(u'\n');
    showNote(state().gProductTitle + u" - Missing Contacts"_s, note);
}

}
