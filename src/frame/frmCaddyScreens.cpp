#include "frame/frmCaddyScreens.h"

#include "contacts/frmContacts.h"
#include "records/frmBooks.h"
#include "records/frmInventory.h"
#include "records/frmMovies.h"
#include "records/frmMusic.h"
#include "reminders/frmMessage.h"

namespace vorel {

using namespace Qt::StringLiterals;

const std::vector<RecordScreen> &recordScreens()
{
    static const std::vector<RecordScreen> table = {
        {u"frmBooks"_s, openRecordScreen<frmBooks>},
        {u"frmContacts"_s, openRecordScreen<frmContacts>},
        {u"frmInventory"_s, openRecordScreen<frmInventory>},
        {u"frmMessage"_s, openRecordScreen<frmMessage>},
        {u"frmMovies"_s, openRecordScreen<frmMovies>},
        {u"frmMusic"_s, openRecordScreen<frmMusic>},
    };
    return table;
}

const RecordScreen *recordScreen(const QString &name)
{
    for (const RecordScreen &screen : recordScreens())
        if (screen.name == name)
            return &screen;
    return nullptr;
}

}
