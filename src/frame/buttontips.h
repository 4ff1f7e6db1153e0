#pragma once

#include <QStringList>

// What the pane at the right tells while the pointer rests on a button of the main screen.
namespace vorel {

struct ButtonTip {
    QString heading;
    QStringList lines;
};

ButtonTip sectionTip(int index);                        // of cmdCat(index)
ButtonTip toolTip(const QString &buttonName);           // of cmdEmail and the like; empty for a button without one

}
