#include "fuzzing.h"

#include "session/state.h"
#include "platform/dao/dao.h"
#include "store/rebuild.h"

// Lines: a query, a sort, a filter, criteria, a value to write. All through the recordset, on a main file with rows.
using namespace Qt::StringLiterals;
using namespace vorel;
using dao::Recordset;

namespace {

dao::Database opened()
{
    const QString path = fuzz::path(u"DATA.MDB"_s);
    UpgradeDatabase(DataFile::Main, path, 290);
    dao::Database file = dao::DBEngine::OpenDatabase(path);
    for (const char *table : {"APPOINTMENTS", "BILLS", "EVENTS", "SHOPPING", "TODO"}) {
        Recordset rows = file.OpenRecordset(QString::fromLatin1(table));
        for (int i = 0; i < 3; ++i) {
            rows.AddNew();
            for (int column = 1; column < static_cast<int>(rows.Fields().size()); ++column)
                fuzz::guarded([&] { rows.Set(column, dao::Value(u"2024-02-1%1"_s.arg(i))); });
            fuzz::guarded([&] { rows.Update(); });
        }
    }
    return file;
}

// What the window shows of a row is what the row holds, and there are as many as were told.
void walk(Recordset &rows)
{
    qsizetype at = 0;
    for (rows.rowTotal() ? rows.MoveFirst() : void(); !rows.EOF_() && at < 200; rows.MoveNext(), ++at) {
        for (int column = 0; column < static_cast<int>(rows.Fields().size()); ++column)
            fuzz::require(rows.Get(column) == rows.cell(at, column) || rows.Get(column).type() == basic::ValueType::Double,
                          u"row %1, column %2"_s.arg(at).arg(column));
        fuzz::require(rows.positionOf(rows.bookmarkAt(at)) == at, u"place of row %1"_s.arg(at));
    }
    fuzz::require(at >= 200 || at == rows.rowTotal(), u"%1 rows of %2"_s.arg(at).arg(rows.rowTotal()));
}

void use(dao::Database &file, const QStringList &lines)
{
    Recordset rows = file.OpenRecordset(lines[0]);
    walk(rows);
    fuzz::guarded([&] {
        Recordset other = file.OpenRecordset(lines[0], dao::dbOpenSnapshot);
        fuzz::require(other.rowTotal() == rows.rowTotal(), u"the snapshot has other rows"_s);
    });
    fuzz::guarded([&] {
        rows.setSort(lines[1]);
        rows.setFilter(lines[2]);
        Recordset refined = rows.OpenRecordset();
        walk(refined);
        fuzz::require(!lines[2].isEmpty() || refined.rowTotal() == rows.rowTotal(), u"sorting changed the rows"_s);
    });
    fuzz::guarded([&] { rows.FindFirst(lines[3]); rows.FindNext(lines[3]); rows.FindLast(lines[3]); rows.FindPrevious(lines[3]); });
    fuzz::guarded([&] {
        rows.MoveFirst();
        rows.Edit();
        for (int column = 0; column < static_cast<int>(rows.Fields().size()); ++column)
            fuzz::guarded([&] { rows.Set(column, dao::Value(lines[4])); });
        rows.Update();
        rows.Delete();
        rows.Requery();
        walk(rows);
    });
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static dao::Database file = opened();
    const fuzz::Input input(data, size, 5);
    fuzz::setRegion(input.choice);
    dao::Transaction undone(file);
    fuzz::guarded([&] { use(file, input.lines); });
    fuzz::guarded([&] { file.Execute(input.lines[0]); });
    return 0;
}
