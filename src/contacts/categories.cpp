#include "contacts/categories.h"

#include "platform/basic/convert.h"
#include "platform/dao/dao.h"
#include "session/datafiles.h"

namespace vorel::contacts {

using namespace Qt::StringLiterals;

namespace {

QString categoryIs(const QString &name)
{
    return u" WHERE [CATEGORY]="_s + dao::literal(name) + u';';
}

bool isMarked(dao::Database &file, const QString &category)
{
    const dao::Recordset kept = file.CreateSnapshot(u"SELECT [INVISIBLE] FROM [CATEGORY]"_s + categoryIs(category));
    const dao::Value hidden = kept.valueOr(u"INVISIBLE", false);
    return !hidden.isNull() && basic::CBool(hidden);
}

}

std::vector<CategoryRow> readCategories(const QString &databasePath)
{
    dao::Database file = openDataFileAt(databasePath);
    dao::Recordset names = file.CreateSnapshot(u"SELECT DISTINCT [CATEGORY] FROM [CONTACTS] WHERE [CATEGORY]<>'' ORDER BY [CATEGORY];"_s);
    std::vector<CategoryRow> rows;
    for (; !names.EOF_(); names.MoveNext()) {
        const QString name = names.Get(0).text();
        rows.push_back({name, !isMarked(file, name)});
    }
    return rows;
}

bool isPutAway(const QString &databasePath, const QString &category)
{
    if (category.trimmed().isEmpty())
        return false;
    dao::Database file = openDataFileAt(databasePath);
    return isMarked(file, category);
}

void showCategory(const QString &databasePath, const QString &name, bool isShown)
{
    dao::Database file = openDataFileAt(databasePath);
    dao::Transaction all(file);
    dao::Recordset rows = file.OpenRecordset(u"SELECT * FROM [CATEGORY]"_s + categoryIs(name));
    if (rows.EOF_()) {
        dao::NewRow(rows).set(u"CATEGORY", name).set(u"INVISIBLE", !isShown).save();
    } else {
        rows.Edit();
        rows.Set(u"INVISIBLE", !isShown);
        rows.Update();
    }
    file.Execute(u"UPDATE [CONTACTS] SET [INVISIBLE]="_s + (isShown ? u"False"_s : u"True"_s) + categoryIs(name));
    all.Commit();
}

}
