#include "frame/frmCaddyScreens.h"

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
        {{u"F"_s}, u"F"_s, u"frmBackup"_s},
        {{u"M"_s}, u"M"_s, u"frmMessage"_s, openRecordScreen<frmMessage>},
        {{u"I"_s}, u"I"_s, u"frmInventory"_s, openRecordScreen<frmInventory>},
        {{u"K"_s}, u"K"_s, u"frmBooks"_s, openRecordScreen<frmBooks>},
        {{u"MV"_s}, u"MV"_s, u"frmVehicle"_s},
        {{u"U"_s}, u"U"_s, u"frmMusic"_s, openRecordScreen<frmMusic>},
        {{u"V"_s}, u"V"_s, u"frmMovies"_s, openRecordScreen<frmMovies>},
        {{u"W"_s}, u"W"_s, u"frmPasswords"_s},
        {{u"N"_s}, u"N"_s, u"frmNotes"_s},
        {{u"J"_s}, u"J"_s, u"frmNotes"_s},
        {{u"O"_s}, u"O"_s, u"frmHealth"_s},
        {{u"Q"_s}, u"Q"_s, u"frmSport"_s},
        {{u"L"_s}, u"L"_s, u"frmProfile"_s},
        {{u"Y"_s}, u"Y"_s, u"frmHowTo"_s},
        {{u"R"_s}, u"R"_s, u"frmRecipes"_s},
        {{u"Z"_s}, u"Z"_s, u"frmGarden"_s},
        {{u"P"_s, u"D"_s, u"T"_s, u"C"_s, u"X"_s}, u"P"_s, u"frmContacts"_s},
    };
    return table;
}

const RecordScreen *recordScreen(const QString &code)
{
    for (const RecordScreen &screen : recordScreens())
        if (screen.codes.contains(code))
            return &screen;
    return nullptr;
}

}
