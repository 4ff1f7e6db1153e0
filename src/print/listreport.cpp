#include "print/listreport.h"

#include "frame/startup.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/files.h"
#include "platform/basic/format.h"
#include "platform/basic/prompts.h"
#include "print/listwriter.h"
#include "print/player.h"

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

ListColumn::Cell fieldText(const QString &field)
{
    return [field](const dao::Recordset &rows) { return rows.Get(field).text(); };
}

ListColumn::Cell fieldFormat(const QString &field, const QString &format)
{
    return [field, format](const dao::Recordset &rows) {
        const Value value = rows.Get(field);
        return value.isNull() ? QString() : basic::Format(value, format);
    };
}

std::function<basic::Currency(const dao::Recordset &)> fieldSum(const QString &field)
{
    return [field](const dao::Recordset &rows) {
        const Value value = rows.Get(field);
        return value.isNull() ? basic::Currency() : basic::CCur(value);
    };
}

dao::Database OpenSectionFile(DataFile file)
{
    const DataFileEntry &entry = dataFiles()[static_cast<std::size_t>(file)];
    QString path = state().path(file);
    // The passwords stand in the main file where they have none of their own.
    const bool isMissing = file == DataFile::DataP && basic::Dir(path).isEmpty();
    if (isMissing)
        path = state().path(DataFile::Main);
    return dao::DBEngine::OpenDatabase(path, false, false, entry.isProtected && !isMissing ? protectedConnect() : QString());
}

void PrintList(const ListReport &report)
{
    const Hourglass hourglass;
    dao::Database database = OpenSectionFile(report.file);
    dao::Recordset rows = database.OpenRecordset(report.query);
    PrintRows(report, rows);
    rows.Close();
    database.Close();
}

void PrintRows(const ListReport &report, dao::Recordset &rows)
{
    const Hourglass hourglass;
    if (rows.rowTotal() < 1) {
        ShowHourglass(false);
        basic::MsgBox(report.noRows, {}, basic::Icon::Information);
        return;
    }
    rows.MoveLast();
    rows.MoveFirst();
    ListWriter(report).write(rows);
}

}
