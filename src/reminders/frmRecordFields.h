#pragma once

#include "reminders/frmRecord.h"

namespace vorel {

// One control of the screen: what it is, the field it is bound to, the sections that show it, where it stands.
struct frmRecord::FieldRow {
    QStringView control;
    QStringView field;
    Kind kind;
    QStringView sections;       // letters of the record codes
    QStringView label;          // with its mnemonic; "" = none
    QStringView labelName;
    Place place = Place::Row;
    QStringView spoken = {};    // accessible name where no label stands before it
};

}
