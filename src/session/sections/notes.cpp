#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign notes()
{
    return {
        .id = SectionId::Notes,
        .name = u"Notes"_s,
        .code = u"N"_s,
        .file = DataFile::Notes,
        .refreshesReminders = false,
        .list = ListDesign{
            .title = u"NOTES"_s,
            .query = u"SELECT [ID],[DATE],[NAME],[NOTES] FROM [NOTES] ORDER BY [DATE]"_s,
            .columns = {hidden(u"ID"_s), shown(u"DATE"_s), shown(u"NAME"_s), shown(u"NOTES"_s)},
            .growing = {u"NOTES"_s},
            .searched = {u"NAME"_s}},
        .grid = GridDesign{.word = u"NOTES"_s, .widths = {1400, 1500, 1500}, .styleSet = u"NOTES"_s,
                           .empty = u"No notes yet.\nPress New to write the first one."_s},
        .button = ButtonDesign{6, u" Notes  "_s, u" Notes or Diary "_s, u"view-pim-notes"_s, RailGroup::Lists, 2,
                               {u"NOTES"_s, {u" Keep your notes or a diary here, by date and name."_s}}},
        .feature = FeatureDesign{u"Notes"_s, {u"mnuPrintNotes"_s, u"mnuViewNotes"_s}},
        .print = PrintDesign{u"mnuPrintNotes"_s, u"&Notes"_s,
            {.titleWord = u"NOTES as at "_s, .file = DataFile::Notes, .query = u"Select * from [NOTES] order by [DATE]"_s,
             .orientation = 2, .rowLimit = 9,
             .columns = {column(u"DATE"_s, 1), column(u"NAME"_s, 15), wrapped(u"NOTE"_s, u"NOTES"_s, 30, 130)}}},
        .rowTip = RowTipDesign{u"NOTES"_s, {day(u" DATE:"_s, u"DATE"_s), text(u" NAME:"_s, u"NAME"_s), text(u" NOTES:"_s, u"NOTES"_s)}},
        .screen = RecordScreenDesign{.name = u"frmNotes"_s},
        .help = HelpDesign{u"\\INFONOTES.RTF"_s, u"notes"_s},
    };
}

}
