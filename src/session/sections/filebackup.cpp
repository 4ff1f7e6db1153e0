#include "platform/basic/clock.h"
#include "platform/basic/dates.h"
#include "session/sections/parts.h"

namespace vorel::sections {

namespace {

QString daysSinceBackup(const dao::Recordset &rows)
{
    const basic::Value last = rows.Get(u"LASTBACKUPDATE");
    return last.isDate() ? QString::number(basic::DateDiff(u"d", last.get<basic::DateTime>(), basic::Date())) : QString();
}

}

SectionDesign fileBackup()
{
    return {
        .id = SectionId::FileBackup,
        .name = u"File Backup"_s,
        .code = u"F"_s,
        .list = ListDesign{
            .title = u"FILE BACKUP"_s,
            .query = u"SELECT * FROM [FILEBACKUP] ORDER BY [FILENAME],[FILEDATE],[DAYS]"_s,
            .columns = {hidden(u"ID"_s), shown(u"FILENAME"_s, u"FILE NAME"_s), shown(u"FILEDATE"_s, u"FILE DATE"_s),
                        shown(u"LASTBACKUPDATE"_s, u"LAST B/UP"_s), shown(u"DAYS"_s), hidden(u"BACKUPAFTERDAYS"_s),
                        hidden(u"SOFTWARE"_s), hidden(u"UsersName"_s), hidden(u"IDNUM"_s), hidden(u"FILECOPY"_s)},
            .growing = {u"FILENAME"_s},
            .rules = {{.kind = RowRule::Kind::Overdue, .style = u"REDALERT"_s,
                       .fields = {u"LASTBACKUPDATE"_s, u"DAYS"_s, u"BACKUPAFTERDAYS"_s}}}},
        .grid = GridDesign{.word = u"BACKUP"_s, .widths = {2000, 1100, 1100, 600}, .styleSet = u"BACKUP"_s,
                           .colour = GridColourDesign{u"BackUpGridColour"_s},
                           .empty = u"No files yet.\nPress New to list the first one."_s},
        .button = ButtonDesign{5, u"File Backup "_s, u" File Backup Reminders "_s, u"document-save-all"_s, RailGroup::Household, 3,
                               {u"FILE BACKUP"_s,
                                {u" List the files that matter to you, with the date of their last backup."_s,
                                 u" A row turns red when a backup is overdue."_s}}},
        .feature = FeatureDesign{u"Backup"_s, {u"mnuPrintFiles"_s}},
        .print = PrintDesign{u"mnuPrintFiles"_s, u"&File Backup"_s,
            {.titleWord = u"BACKUP FILES as at "_s, .query = u"Select * from [FILEBACKUP] order by [FILENAME],[FILEDATE]"_s,
             .orientation = 2, .heightTest = false,
             .columns = {column(u"FILE NAME"_s, u"FILENAME"_s, 1, 36), column(u"FILE DATE"_s, u"FILEDATE"_s, 59),
                         column(u"LAST BACKUP DATE"_s, u"LASTBACKUPDATE"_s, 79),
                         {.heading = u"DAYS"_s, .cell = daysSinceBackup, .percent = 94, .alignment = u"R"_s, .bodyPercent = 99}}}},
        .rowTip = RowTipDesign{u"FILEBACKUP"_s,
                               {text(u" FILE NAME:"_s, u"FILENAME"_s), date(u" FILE DATE:"_s, u"FILEDATE"_s),
                                day(u" LAST BACKUP:"_s, u"LASTBACKUPDATE"_s),
                                text(u" REMIND AFTER DAYS:"_s, u"BACKUPAFTERDAYS"_s), text(u" COPY:"_s, u"FILECOPY"_s),
                                text(u" SOFTWARE:"_s, u"SOFTWARE"_s)}},
        .screen = RecordScreenDesign{.name = u"frmBackup"_s},
        .help = HelpDesign{u"\\INFOBACKUP.RTF"_s, u"backup"_s},
    };
}

}
