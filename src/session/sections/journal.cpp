#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign journal()
{
    return {
        .id = SectionId::Journal,
        .name = u"Journal"_s,
        .code = u"J"_s,
        .file = DataFile::DataJ,
        .missingFile = MissingFile::Empty,
        .isGuarded = true,
        .refreshesReminders = false,
        .list = ListDesign{
            .title = u"JOURNAL"_s,
            .query = u"SELECT [ID],[DATE],[NOTESDISPLAY] FROM [JOURNAL] ORDER BY [DATE]"_s,
            .columns = {hidden(u"ID"_s), shown(u"DATE"_s), shown(u"NOTESDISPLAY"_s, u"NOTES"_s)},
            .searched = {u"NOTESDISPLAY"_s}},
        .grid = GridDesign{.word = u"JOURNAL"_s, .widths = {1400, 1500}, .styleSet = u"JOURNAL"_s,
                           .colour = GridColourDesign{u"JournalGridColour"_s},
                           .empty = u"The journal is empty.\nPress New to write the first entry."_s},
        .button = ButtonDesign{17, u" Journal  "_s, u" Journal "_s, u"view-pim-journal"_s, RailGroup::Lists, 3,
                               {u"JOURNAL"_s,
                                {u" Record your personal information and thoughts in this SECURE area"_s,
                                 u" It is kept in an encrypted file."_s}}},
        .feature = FeatureDesign{u"Journal"_s, {u"mnuPrintJournal"_s}},
        // The caller that prints adds whose journal it is, and which of its records.
        .print = PrintDesign{u"mnuPrintJournal"_s, u"&Journal"_s,
            {.titleWord = u"JOURNAL OF %1 as at "_s, .file = DataFile::DataJ, .orientation = 2, .rowLimit = 9,
             .columns = {column(u"DATE"_s, 1), wrapped(u"NOTE"_s, u"NOTESDISPLAY"_s, 15, 130)}}},
        .rowTip = RowTipDesign{u"JOURNAL"_s, {day(u" DATE:"_s, u"DATE"_s), text(u" NOTES:"_s, u"NOTESDISPLAY"_s)}},
        .screen = RecordScreenDesign{.name = u"frmNotes"_s},
        .help = HelpDesign{u"\\INFOJOURNAL.RTF"_s, u"admin"_s},
    };
}

}
