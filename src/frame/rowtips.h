#pragma once

#include "platform/dao/dao.h"

#include <QString>
#include <vector>

// What rests under the pointer over a row: the fields of its record, labelled, a line each.
namespace vorel {

// Reads the row by a query of its own. "" for a section without tips, a row that is not there, and one that is locked by
// a password of its own.
QString SetToolTip(dao::Database database, const QString &sectionCode, qint32 id);

struct RecordLine {
    QString label;                      // "" = none
    QString text;                       // of several lines perhaps
    bool operator==(const RecordLine &) const = default;
};
// The whole record for the pane beside the grid, unfolded, with the next dates of a reminder that repeats. Nothing where the
// tip says nothing.
std::vector<RecordLine> recordDetails(dao::Database database, const QString &sectionCode, qint32 id);

}
