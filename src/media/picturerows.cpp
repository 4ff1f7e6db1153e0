#include "media/picturerows.h"

#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/text.h"
#include "session/shared.h"

#include <algorithm>
#include <array>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Value;

namespace {

constexpr std::array tables{
    PictureTable{u"P", DataFile::Contacts, u"select * from [CONTACTDATA] WHERE [ID]=",
                 u"DELETE * FROM [CONTACTDATA] where [ID]=", u"ID", u"ID", 6},
    PictureTable{u"L", DataFile::Main, u"select * from [PROFILEDATA] WHERE [ID]=",
                 u"DELETE * FROM [PROFILEDATA] where [ID]=", u"ID", u"ID", 6},
    PictureTable{u"MV", DataFile::HowTo, u"select * from [VEHICLEPICTURES] WHERE [ID]=",
                 u"DELETE * FROM [VEHICLEPICTURES] where [ID]=", u"ID", u"ID", 6},
    PictureTable{u"O", DataFile::HowTo, u"select * from [GENERALHEALTH] WHERE [USERNAME]='",
                 u"DELETE * FROM [GENERALHEALTH] where [IDNUM]=", u"USERNAME", u"IDNUM", 10},
    PictureTable{u"Q", DataFile::Sports, u"select * from [PERSONAL] WHERE [IDNUM]=",
                 u"DELETE * FROM [PERSONAL] where [IDNUM]=", u"IDNUM", u"IDNUM", 10},
    PictureTable{u"Z", DataFile::Garden, u"SELECT * FROM [GARDENDATA] where [ID]=",
                 u"DELETE * FROM [GARDENDATA] where [ID]=", u"ID", u"ID", 6},
};

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

QString selectOf(const PictureTable &table, const PictureOwner &owner)
{
    QString sql = table.select.toString();
    if (table.readKey == u"USERNAME")
        sql += graveApostrophes(owner.user) + u'\'';
    else
        sql += QString::number(owner.id);
    QStringList order;
    for (int slot = 1; slot <= table.slotCount; ++slot)
        order << u"VAL(["_s + numberField(slot) + u"])"_s;
    return sql + u" ORDER BY "_s + order.join(u',');
}

const PictureTable &known(const QString &section)
{
    const PictureTable *table = pictureTableOf(section);
    if (!table)
        throw basic::BasicError(5);
    return *table;
}

}

const PictureTable *pictureTableOf(const QString &section)
{
    const auto found = std::find_if(tables.begin(), tables.end(),
                                    [&](const PictureTable &table) { return table.section == section; });
    return found == tables.end() ? nullptr : &*found;
}

std::vector<PictureSlot> GetSlideShowFiles(const QString &section, const PictureOwner &owner)
{
    const PictureTable &table = known(section);
    dao::Database file = dao::DBEngine::OpenDatabase(state().path(table.file));
    dao::Recordset rows = file.OpenRecordset(selectOf(table, owner), dao::dbOpenSnapshot);
    std::vector<PictureSlot> pictures;
    for (; !rows.EOF_(); rows.MoveNext()) {
        const auto firstOfRow = static_cast<std::ptrdiff_t>(pictures.size());
        for (int slot = 1; slot <= table.slotCount; ++slot) {
            const Value number = rows.Get(numberField(slot));
            const PictureSlot one{textOf(rows.Get(pathField(slot))), textOf(rows.Get(captionField(slot))),
                                  number.isNull() ? 0 : basic::CDbl(number)};
            if (!one.path.isEmpty())
                pictures.push_back(one);
        }
        std::stable_sort(pictures.begin() + firstOfRow, pictures.end(),
                         [](const PictureSlot &a, const PictureSlot &b) { return a.sortNumber < b.sortNumber; });
    }
    return pictures;
}

void savePictureRow(const QString &section, const PictureOwner &owner, const std::vector<PictureSlot> &pictures)
{
    const PictureTable &table = known(section);
    dao::Database file = dao::DBEngine::OpenDatabase(state().path(table.file));
    dao::Recordset rows = file.OpenRecordset(selectOf(table, owner));
    if (rows.EOF_()) {
        rows.AddNew();
        rows.Set(table.ownKey, owner.id);
        rows.Set(u"USERNAME", graveApostrophes(owner.user));
    } else {
        rows.Edit();
    }
    for (int slot = 1; slot <= table.slotCount; ++slot) {
        const auto index = static_cast<std::size_t>(slot - 1);
        const PictureSlot one = index < pictures.size() ? pictures[index] : PictureSlot();
        rows.Set(pathField(slot), basic::Trim(one.path));
        rows.Set(captionField(slot), basic::Trim(one.caption));
        rows.Set(numberField(slot), one.sortNumber);
    }
    rows.Update();
}

void removePictureRows(const QString &section, const PictureOwner &owner)
{
    const PictureTable &table = known(section);
    dao::Database file = dao::DBEngine::OpenDatabase(state().path(table.file));
    file.Execute(table.remove.toString() + QString::number(owner.id));
}

}
