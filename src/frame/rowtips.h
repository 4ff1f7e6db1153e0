#pragma once

#include "platform/dao/dao.h"

#include <QString>

// What rests under the pointer over a row: the fields of its record, labelled, a line each.
namespace vorel {

// Reads the row by a query of its own. "" for a section without tips, a row that is not there, and one that is locked by
// a password of its own.
QString SetToolTip(dao::Database database, const QString &sectionCode, qint32 id);

}
