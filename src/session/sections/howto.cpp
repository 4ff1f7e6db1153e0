#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign howTo()
{
    return {
        .id = SectionId::HowTo,
        .name = u"HOW TO"_s,
        .code = u"Y"_s,
        .file = DataFile::HowTo,
        .refreshesReminders = false,
        .list = ListDesign{
            .title = u"HOW TO"_s,
            .query = u"SELECT [ID],[SUBJECT],[HOWTO],[SOLUTION] FROM [HowTo] ORDER BY [SUBJECT],[HOWTO]"_s,
            .columns = {hidden(u"ID"_s), shown(u"SUBJECT"_s), shown(u"HOWTO"_s, u"HOW TO"_s), shown(u"SOLUTION"_s)},
            .growing = {u"SOLUTION"_s, u"HOWTO"_s},
            .searched = {u"HOWTO"_s}},
        .grid = GridDesign{.word = u"HOWTO"_s, .widths = {2000, 1000, 1000},
                           .empty = u"Nothing here yet.\nPress New to write the first entry."_s},
        .button = ButtonDesign{7, u" How To "_s, u" How To "_s, u"help-hint"_s, RailGroup::Collections, 5,
                               {u"HOW TO"_s, {u" Record your secrets to fixing things in this SECURE area"_s}}},
        .feature = FeatureDesign{u"HowTo"_s, {u"mnuPrintHowTo"_s, u"mnuViewHowTo"_s}},
        .print = PrintDesign{u"mnuPrintHowTo"_s, u"How T&o"_s,
            {.titleWord = u"HOW TO"_s, .isDated = false, .file = DataFile::HowTo,
             .query = u"Select * from [HowTo] order by [SUBJECT]"_s, .orientation = 2,
             .columns = {column(u"SUBJECT"_s, 0), column(u"HOW TO"_s, u"HOWTO"_s, 0), column(u"SOLUTION"_s, 0)},
             .head = ListHead::Block, .isTable = false}},
        .rowTip = RowTipDesign{u"HowTo"_s,
                               {text(u" SUBJECT:"_s, u"SUBJECT"_s), text(u" HOW TO:"_s, u"HOWTO"_s),
                                text(u" SOLUTION:"_s, u"SOLUTION"_s)}},
        .screen = RecordScreenDesign{.name = u"frmHowTo"_s},
        .help = HelpDesign{u"\\INFOHOWTO.RTF"_s, u"howto"_s, u"How To"_s},
    };
}

}
