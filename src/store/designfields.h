#pragma once

#include "platform/dao/dao.h"

#include <vector>

// The small routines that the table designs are written with, one for each kind of field. Text of both kinds takes the
// empty text; numbers start at 0; no field is required.
namespace vorel::store::design {

using dao::FieldDef;
using dao::IndexDef;
using dao::TableDef;

FieldDef counter(const QString &name);                  // the table numbers it itself
FieldDef text(const QString &name, int characters);
FieldDef memo(const QString &name);
FieldDef integer(const QString &name);                  // 16 bit
FieldDef longer(const QString &name);                   // 32 bit
FieldDef real(const QString &name);                     // 64-bit float
FieldDef money(const QString &name);                    // four decimals
FieldDef flag(const QString &name);
FieldDef date(const QString &name);

IndexDef primaryKey();                                  // "PrimaryKey" on ID
IndexDef uniqueIndex(const QString &name, const QString &fieldName);

TableDef table(const QString &name, std::vector<FieldDef> fields, std::vector<IndexDef> indexes = {},
               const QStringList &helpers = {});
// The fields and, after them, picture slots: all file names, all captions, all sort numbers.
std::vector<FieldDef> withPictures(std::vector<FieldDef> fields, int count);

}
