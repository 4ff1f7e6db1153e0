#pragma once

#include "platform/dao/dao.h"

// How a table of an older file is compared with the wanted design, and how its rows come over.
namespace vorel {

// The name of a file's own table while the wanted one is built beside it.
QString setAsideName(const QString &table);     // name + "$$"

// b's fields against a's: true if a lacks one or, with compareProperties, holds one with another type, size or rule.
bool FieldsDiffer(const std::vector<dao::FieldDef> &a, const std::vector<dao::FieldDef> &b, bool compareProperties = false);
bool IndexesDiffer(const std::vector<dao::IndexDef> &a, const std::vector<dao::IndexDef> &b,
                   bool compareProperties = false);
// Whether the table that was set aside has another design than the wanted one. 3265 if none was set aside. The store's
// own helper indexes do not count.
bool TableChanged(const dao::Database &db, const dao::TableDef &newTable);

// A field that both designs have.
struct FieldMapEntry {
    QString name;
    dao::DataType oldType = dao::dbText;
    int oldSize = 0;
    dao::DataType newType = dao::dbText;
    int newSize = 0;
    bool allowZeroLength = true;
};

// The value as the new field takes it: a shortened text is cut and trimmed, a text that becomes a number is read up to
// where it stops being one. BasicError 13 for a text that is not a date, 6 for a number that the new type cannot hold.
basic::Value ConvertFieldValue(const basic::Value &value, const FieldMapEntry &entry);

// Adds the rows of the table that was set aside to the new one of that name, field by field. True, also where the two have
// no field in common and nothing is copied. The first row that cannot be taken over ends it with the error.
bool CopyTableRows(dao::Database &db, const dao::TableDef &newTable);

}
