#include "store/tablecopy.h"

#include "platform/basic/convert.h"
#include "platform/basic/text.h"

#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Value;

namespace {

template <class Item> const Item *named(const std::vector<Item> &items, const QString &name)
{
    const auto found = std::find_if(items.begin(), items.end(), [&](const Item &item) {
        return item.Name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == items.end() ? nullptr : &*found;
}

bool sameProperties(const dao::FieldDef &a, const dao::FieldDef &b)
{
    return a.Type == b.Type && a.Size == b.Size && a.AllowZeroLength == b.AllowZeroLength
        && a.DefaultValue == b.DefaultValue && a.Required == b.Required && a.ValidationRule == b.ValidationRule
        && a.ValidationText == b.ValidationText;
}

bool sameProperties(const dao::IndexDef &a, const dao::IndexDef &b)
{
    const auto within = [](const QStringList &fields, const QStringList &others) {
        return std::all_of(fields.begin(), fields.end(),
                           [&](const QString &field) { return others.contains(field, Qt::CaseInsensitive); });
    };
    return a.Unique == b.Unique && a.Primary == b.Primary && within(a.Fields, b.Fields) && within(b.Fields, a.Fields);
}

template <class Item> bool differ(const std::vector<Item> &a, const std::vector<Item> &b, bool compareProperties)
{
    return std::any_of(b.begin(), b.end(), [&](const Item &wanted) {
        const Item *found = named(a, wanted.Name);
        return !found || (compareProperties && !sameProperties(*found, wanted));
    });
}

bool isNumeric(dao::DataType type)
{
    switch (type) {
    case dao::dbInteger:
    case dao::dbLong:
    case dao::dbSingle:
    case dao::dbDouble:
    case dao::dbCurrency:
    case dao::dbBoolean:
    case dao::dbByte:
        return true;
    default:
        return false;
    }
}

bool isWords(dao::DataType type)
{
    return type == dao::dbText || type == dao::dbMemo;
}

Value cast(const Value &value, dao::DataType type)
{
    switch (type) {
    case dao::dbInteger: return basic::CInt(value);
    case dao::dbLong: return basic::CLng(value);
    case dao::dbSingle: return basic::CSng(value);
    case dao::dbDouble: return basic::CDbl(value);
    case dao::dbCurrency: return basic::CCur(value);
    case dao::dbBoolean: return basic::CBool(value);
    case dao::dbByte: return basic::CByte(value);
    case dao::dbDate: return basic::CDate(value);
    default: return value;
    }
}

// A long text has no size to be cut to.
Value cut(const Value &value, const FieldMapEntry &entry)
{
    const QString text = value.text();
    return basic::Trim(entry.newType == dao::dbMemo ? text : basic::Left(text, entry.newSize));
}

Value converted(const Value &value, const FieldMapEntry &entry)
{
    if (entry.newType == entry.oldType)
        return entry.newSize == entry.oldSize ? value : cut(value, entry);
    if (isNumeric(entry.newType) && !isNumeric(entry.oldType))
        return cast(basic::Val(value.text()), entry.newType);
    if (entry.newType == dao::dbDate)
        return cast(value, dao::dbDate);
    return isWords(entry.newType) ? cut(value, entry) : value;
}

std::vector<FieldMapEntry> fieldMap(const dao::TableDef &from, const dao::TableDef &to)
{
    std::vector<FieldMapEntry> map;
    for (const dao::FieldDef &field : to.Fields) {
        if (const dao::FieldDef *old = named(from.Fields, field.Name))
            map.push_back({field.Name, old->Type, old->Size, field.Type, field.Size, field.AllowZeroLength});
    }
    return map;
}

QString counterOf(const dao::TableDef &table)
{
    for (const dao::FieldDef &field : table.Fields) {
        if (field.Attributes & dao::dbAutoIncrField)
            return field.Name;
    }
    return {};
}

// Without the number the row gets the next one.
void addRow(const dao::Recordset &from, dao::Recordset &to, const std::vector<FieldMapEntry> &map, const QString &counter,
            bool withNumber)
{
    to.AddNew();
    for (const FieldMapEntry &entry : map) {
        const Value value = ConvertFieldValue(from.Get(entry.name), entry);
        if (entry.name != counter || (withNumber && !value.isNull()))
            to.Set(entry.name, value);
    }
    to.Update();
}

// A number that the older table did not count itself may be missing or occur twice. Where no index forbids that, it must
// not cost the row. false: the row waits until those with a number of their own have theirs.
bool copyRow(const dao::Recordset &from, dao::Recordset &to, const std::vector<FieldMapEntry> &map, const QString &counter,
             bool mayRepeat)
{
    const bool isCounted = std::any_of(map.begin(), map.end(), [&](const FieldMapEntry &entry) { return entry.name == counter; });
    if (isCounted && mayRepeat && from.Get(counter).isNull())
        return false;
    try {
        addRow(from, to, map, counter, true);
    } catch (const dao::EngineError &error) {
        if (error.number() != dao::err::DuplicateValue || !mayRepeat)
            throw;
        to.CancelUpdate();
        return false;
    }
    return true;
}

}

QString setAsideName(const QString &table)
{
    return table + u"$$"_s;
}

bool FieldsDiffer(const std::vector<dao::FieldDef> &a, const std::vector<dao::FieldDef> &b, bool compareProperties)
{
    return differ(a, b, compareProperties);
}

bool IndexesDiffer(const std::vector<dao::IndexDef> &a, const std::vector<dao::IndexDef> &b, bool compareProperties)
{
    return differ(a, b, compareProperties);
}

bool TableChanged(const dao::Database &db, const dao::TableDef &newTable)
{
    const dao::TableDef old = db.TableDefByName(setAsideName(newTable.Name));
    return FieldsDiffer(old.Fields, newTable.Fields) || FieldsDiffer(newTable.Fields, old.Fields, true)
        || IndexesDiffer(old.Indexes, newTable.Indexes) || IndexesDiffer(newTable.Indexes, old.Indexes, true);
}

Value ConvertFieldValue(const Value &value, const FieldMapEntry &entry)
{
    if (value.isNull())
        return value;
    const Value result = converted(value, entry);
    if (isWords(entry.newType) && !entry.allowZeroLength && result.text().isEmpty())
        return u" "_s;
    return result;
}

bool CopyTableRows(dao::Database &db, const dao::TableDef &newTable)
{
    const QString oldName = setAsideName(newTable.Name);
    const std::vector<FieldMapEntry> map = fieldMap(db.TableDefByName(oldName), newTable);
    if (map.empty())
        return true;
    const QString counter = counterOf(newTable);
    dao::Recordset to = db.OpenRecordset(newTable.Name, dao::dbOpenDynaset);
    dao::Recordset from = db.OpenRecordset(oldName, dao::dbOpenSnapshot);
    std::vector<dao::Bookmark> later;
    for (; !from.EOF_(); from.MoveNext()) {
        if (!copyRow(from, to, map, counter, newTable.Indexes.empty()))
            later.push_back(from.Bookmark());
    }
    for (const dao::Bookmark mark : later) {
        from.setBookmark(mark);
        addRow(from, to, map, counter, false);
    }
    from.Close();
    to.Close();
    return true;
}

}
