#pragma once

#include "platform/basic/error.h"
#include "session/recordcall.h"

#include <QString>
#include <vector>

class QWidget;

// The record screens that the designs of the sections name. A new screen is one row of the table in the .cpp.
namespace vorel {

struct RecordScreen {
    QString name;                       // as the section's design names it
    RecordOutcome (*open)(const RecordCall &, QWidget *parent);
};
const std::vector<RecordScreen> &recordScreens();
const RecordScreen *recordScreen(const QString &name);  // nullptr: not part of this version yet

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
