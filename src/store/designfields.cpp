#include "store/designfields.h"

namespace vorel::store::design {

using namespace Qt::StringLiterals;

namespace {

FieldDef field(const QString &name, dao::DataType type, int size)
{
    FieldDef design;
    design.Name = name;
    design.Type = type;
    design.Size = size;
    return design;
}

FieldDef words(const QString &name, dao::DataType type, int characters)
{
    FieldDef design = field(name, type, characters);
    design.AllowZeroLength = true;
    return design;
}

FieldDef number(const QString &name, dao::DataType type, int bytes)
{
    FieldDef design = field(name, type, bytes);
    design.DefaultValue = u"0"_s;
    return design;
}

}

FieldDef counter(const QString &name)
{
    FieldDef design = field(name, dao::dbLong, 4);
    design.Attributes = dao::dbAutoIncrField;
    return design;
}

FieldDef text(const QString &name, int characters) { return words(name, dao::dbText, characters); }
FieldDef memo(const QString &name) { return words(name, dao::dbMemo, 0); }
FieldDef integer(const QString &name) { return number(name, dao::dbInteger, 2); }
FieldDef longer(const QString &name) { return number(name, dao::dbLong, 4); }
FieldDef real(const QString &name) { return number(name, dao::dbDouble, 8); }
FieldDef money(const QString &name) { return number(name, dao::dbCurrency, 8); }
FieldDef flag(const QString &name) { return field(name, dao::dbBoolean, 1); }
FieldDef date(const QString &name) { return field(name, dao::dbDate, 8); }

IndexDef uniqueIndex(const QString &name, const QString &fieldName)
{
    IndexDef design;
    design.Name = name;
    design.Fields = QStringList{fieldName};
    design.Unique = true;
    return design;
}

IndexDef primaryKey()
{
    IndexDef design = uniqueIndex(u"PrimaryKey"_s, u"ID"_s);
    design.Primary = true;
    design.Required = true;
    return design;
}

TableDef table(const QString &name, std::vector<FieldDef> fields, std::vector<IndexDef> indexes,
               const QStringList &helpers)
{
    TableDef design;
    design.Name = name;
    design.Fields = std::move(fields);
    design.Indexes = std::move(indexes);
    design.Helpers = helpers;
    return design;
}

std::vector<FieldDef> withPictures(std::vector<FieldDef> fields, int count)
{
    for (int slot = 1; slot <= count; ++slot)
        fields.push_back(text(u"PICFILE%1"_s.arg(slot), 255));
    for (int slot = 1; slot <= count; ++slot)
        fields.push_back(memo(u"PICFILE%1CAPTION"_s.arg(slot)));
    for (int slot = 1; slot <= count; ++slot)
        fields.push_back(real(u"PIC%1SORTNUM"_s.arg(slot)));
    return fields;
}

}
