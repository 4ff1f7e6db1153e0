#include "media/picturerows.h"

#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/text.h"
#include "session/datafiles.h"
#include "session/sectiondesign.h"
#include "session/shared.h"

#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Value;

namespace {

constexpr int invalidCallError = 5;

QString pathField(int slot)
{
    return u"PICFILE%1"_s.arg(slot);
}

QString captionField(int slot)
{
    return u"PICFILE%1CAPTION"_s.arg(slot);
}

QString numberField(int slot)
{
    return u"PIC%1SORTNUM"_s.arg(slot);
}

QString textOf(const Value &value)
{
    return value.isNull() ? QString() : basic::Trim(value.text());
}

QString selectOf(const PictureSetDesign &table, const PictureOwner &owner)
{
    const Value key = table.readKey == u"USERNAME" ? Value(graveApostrophes(owner.user)) : Value(owner.id);
    QStringList order;
    for (int slot = 1; slot <= table.slotCount; ++slot)
        order << u"VAL(["_s + numberField(slot) + u"])"_s;
    return table.select + dao::literal(key) + u" ORDER BY "_s + order.join(u',');
}

PictureSlot slotOf(dao::Recordset &row, int slot)
{
    const Value number = row.Get(numberField(slot));
    return {textOf(row.Get(pathField(slot))), textOf(row.Get(captionField(slot))), number.isNull() ? 0 : basic::CDbl(number)};
}

void startRow(dao::Recordset &rows, const PictureSetDesign &table, const PictureOwner &owner)
{
    rows.AddNew();
    rows.Set(table.ownKey, owner.id);
    rows.Set(u"USERNAME", graveApostrophes(owner.user));
}

// Fills and writes the row that is being edited or added; a refused one is dropped.
dao::Bookmark store(dao::Recordset &rows, const PictureSetDesign &table, const std::vector<PictureSlot> &pictures)
{
    try {
        for (int slot = 1; slot <= table.slotCount; ++slot) {
            const auto index = static_cast<std::size_t>(slot - 1);
            const PictureSlot picture = index < pictures.size() ? pictures[index] : PictureSlot();
            rows.Set(pathField(slot), basic::Trim(picture.path));
            rows.Set(captionField(slot), basic::Trim(picture.caption));
            rows.Set(numberField(slot), picture.sortNumber);
        }
        rows.Update();
    } catch (...) {
        rows.CancelUpdate();
        throw;
    }
    return rows.LastModified();
}

struct Table {
    const PictureSetDesign &set;
    dao::Database file;
};

Table open(const QString &section)
{
    const SectionDesign *design = sectionByCode(section);
    if (!design || !design->pictures || !design->pictures->set)
        throw basic::BasicError(invalidCallError);      // the section has no such table
    return {*design->pictures->set, openDataFile(design->file)};
}

}

std::vector<PictureSet> readPictureSets(const QString &section, const PictureOwner &owner)
{
    auto [table, file] = open(section);
    dao::Recordset rows = file.OpenRecordset(selectOf(table, owner));
    std::vector<PictureSet> sets;
    for (; !rows.EOF_(); rows.MoveNext()) {
        PictureSet &set = sets.emplace_back(PictureSet{rows.Bookmark(), {}});
        for (int slot = 1; slot <= table.slotCount; ++slot)
            set.pictures.push_back(slotOf(rows, slot));
    }
    return sets;
}

std::vector<PictureSlot> GetSlideShowFiles(const QString &section, const PictureOwner &owner)
{
    std::vector<PictureSlot> shown;
    for (PictureSet &set : readPictureSets(section, owner)) {
        std::erase_if(set.pictures, [](const PictureSlot &slot) { return slot.path.isEmpty(); });
        std::stable_sort(set.pictures.begin(), set.pictures.end(),
                         [](const PictureSlot &a, const PictureSlot &b) { return a.sortNumber < b.sortNumber; });
        std::move(set.pictures.begin(), set.pictures.end(), std::back_inserter(shown));
    }
    return shown;
}

PictureSet addPictureSet(const QString &section, const PictureOwner &owner)
{
    auto [table, file] = open(section);
    dao::Recordset rows = file.OpenRecordset(selectOf(table, owner));
    PictureSet set;
    set.pictures.resize(static_cast<std::size_t>(table.slotCount));
    startRow(rows, table, owner);
    set.row = store(rows, table, set.pictures);
    return set;
}

void savePictureRow(const QString &section, const PictureOwner &owner, PictureSet &set)
{
    auto [table, file] = open(section);
    dao::Recordset rows = file.OpenRecordset(selectOf(table, owner));
    if (set.row.isValid())
        rows.setBookmark(set.row);
    if (rows.EOF_())
        startRow(rows, table, owner);
    else
        rows.Edit();
    set.row = store(rows, table, set.pictures);
}

void removePictureSet(const QString &section, const PictureOwner &owner, const PictureSet &set)
{
    auto [table, file] = open(section);
    dao::Recordset rows = file.OpenRecordset(selectOf(table, owner));
    rows.setBookmark(set.row);
    rows.Delete();
}

void removePictureRows(const QString &section, const PictureOwner &owner)
{
    auto [table, file] = open(section);
    file.Execute(table.remove + dao::literal(owner.id));
}

void movePicture(PictureSet &set, std::size_t from, std::size_t to)
{
    if (from >= set.pictures.size() || to >= set.pictures.size())
        return;
    const auto at = [&](std::size_t slot) { return set.pictures.begin() + static_cast<std::ptrdiff_t>(slot); };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else
        std::rotate(at(to), at(from), at(from + 1));
    // Empty slots take no number.
    double number = 0;
    for (PictureSlot &slot : set.pictures)
        slot.sortNumber = slot.path.isEmpty() ? 0 : ++number;
}

}
