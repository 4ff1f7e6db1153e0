#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign toDo()
{
    return {
        .id = SectionId::ToDo,
        .name = u"To Do"_s,
        .code = u"G"_s,
        .list = ListDesign{
            .title = u"To Do's"_s,
            .query = u"SELECT [ID],[TODO],[PRIORITY],[ACTIONED] FROM [TODO] ORDER BY [PRIORITY],[TODO]"_s,
            .columns = {hidden(u"ID"_s), shown(u"TODO"_s, u"To Do"_s), shown(u"PRIORITY"_s), shown(u"ACTIONED"_s, u"ACT"_s)},
            .growing = {u"TODO"_s},
            .rules = {{.kind = RowRule::Kind::Flag, .style = u"HILITE"_s, .fields = {u"ACTIONED"_s}}},
            .isEditedInCells = true},
        .grid = GridDesign{.word = u"TODO"_s, .widths = {2000, 1000, 1000}, .styleSet = u"TODO"_s,
                           .colour = GridColourDesign{u"ToDoGridColour"_s},
                           .empty = u"Nothing to do.\nType into the first line to add something."_s},
        .button = ButtonDesign{18, u" To Do  "_s, u" To Do  "_s, u"view-task"_s, RailGroup::Lists, 0,
                               {u"TO DO"_s, {u" List what is to be done, by priority, and tick it off when it is done."_s}}},
        .feature = FeatureDesign{u"ToDo"_s, {u"mnuPrintToDo"_s}},
        .print = PrintDesign{u"mnuPrintToDo"_s, u"To &Do List"_s,
            {.titleWord = u"TO DO'S as at "_s, .query = u"Select * from [TODO] WHERE [ACTIONED]=False ORDER BY [TODO];"_s,
             .size = 12, .rowLimit = 45, .columns = {column(u"TODO"_s, 1, 70), column(u"PRIORITY"_s, 85)},
             .noRows = u"No Records to Preview"_s}},
        .rowTip = RowTipDesign{u"TODO"_s,
                               {text(u" TO DO:"_s, u"ToDo"_s), text(u" PRIORITY:"_s, u"Priority"_s), date(u" DUE:"_s, u"DATEDUE"_s)}},
        .help = HelpDesign{u"\\INFOTODO.RTF"_s},
    };
}

}
