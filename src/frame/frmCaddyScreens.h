#pragma once

#include "platform/basic/error.h"
#include "session/recordcall.h"

#include <QString>
#include <QStringList>
#include <vector>

class QWidget;

// Which screen a record of SUBJECTGRID opens on. A new screen is one row of the table in the .cpp:
//     {{u"M"_s}, u"M"_s, u"frmMessage"_s, openRecordScreen<frmMessage>},
namespace vorel {

struct RecordScreen {
    QStringList codes;                  // gSection
    QString recordCode;                 // of the record screen, one for several lists of the same records
    QString name;                       // its objectName
    RecordOutcome (*open)(const RecordCall &, QWidget *parent) = nullptr;         // nullptr: not part of this version yet
};
const std::vector<RecordScreen> &recordScreens();
const RecordScreen *recordScreen(const QString &code);  // nullptr: edited in the grid, or no section with records

// For a screen made by Screen(parent) with dtaData() and AddNewRecord({}), modal by ShowModal(). A row that is not found
// leaves it on its first one.
template <class Screen> RecordOutcome openRecordScreen(const RecordCall &call, QWidget *parent)
{
    Screen screen(parent);
    if (call.id == 0)
        basic::Trap([&] { screen.AddNewRecord({}); });
    else
        screen.dtaData().FindFirst(QStringLiteral("ID = %1").arg(call.id));
    screen.ShowModal();
    return screen.outcome();
}

}
