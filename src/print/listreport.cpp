#include "print/listreport.h"

#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "platform/basic/format.h"
#include "platform/basic/prompts.h"
#include "print/listwriter.h"
#include "print/player.h"
#include "session/datafiles.h"

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

void printList(const ListReport &report)
{
    const Hourglass hourglass;
    dao::Database database = openDataFile(report.file);
    dao::Recordset rows = database.OpenRecordset(report.query);
    printRows(report, rows);
    rows.Close();
    database.Close();
}

void printRows(const ListReport &report, dao::Recordset &rows)
{
    const Hourglass hourglass;
    if (rows.rowTotal() < 1) {
        showHourglass(false);
        basic::MsgBox(report.noRows, {}, basic::Icon::Information);
        return;
    }
    rows.MoveLast();
    rows.MoveFirst();
    ListWriter(report).write(rows);
}

}
