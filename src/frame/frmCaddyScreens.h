#pragma once

#include "platform/basic/error.h"

#include <QString>
#include <QStringList>
#include <vector>

class QWidget;

// Which screen a record of SUBJECTGRID opens on. A new screen is one row of the table in the .cpp:
//     {{u"M"_s}, u"M"_s, u"frmMessage"_s, openRecordScreen<frmMessage>},
namespace vorel {

struct RecordCall {
    QWidget *parent = nullptr;
    qint32 id = 0;                      // 0: a new row
};

struct RecordScreen {
    QStringList codes;                  // gSection
    QString recordCode;                 // gRecordCode while the screen stands
    QString name;                       // its objectName
    void (*open)(const RecordCall &) = nullptr;         // nullptr: not part of this version yet
};
const std::vector<RecordScreen> &recordScreens();
const RecordScreen *recordScreen(const QString &code);  // nullptr: edited in the grid, or no section with records

// For a screen made by Screen(parent) with dtaData() and AddNewRecord({}), modal by ShowModal(). A row that is not found
// leaves it on its first one.
template <class Screen> void openRecordScreen(const RecordCall &call)
{
    Screen screen(call.parent);
    if (call.id == 0)
        basic::Trap([&] { screen.AddNewRecord({}); });
    else
        screen.dtaData().FindFirst(QStringLiteral("ID = %1").arg(call.id));
    screen.ShowModal();
}

}
