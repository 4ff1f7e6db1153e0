#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign events()
{
    return {
        .id = SectionId::Events,
        .name = u"Events"_s,
        .code = u"E"_s,
        .kind = SectionKind::Reminder,
        .grids = {false, false, true},
        .grid = GridDesign{.word = u"EVENTS"_s, .widths = {1300, 510, 1600, 3300, 3000, 500, 510}, .styleSet = u"EVENTS"_s,
                           .colour = GridColourDesign{u"EventsGridColour"_s, 0xC0FFFF, true},
                           .empty = u"No events in this period.\nPress New to enter one."_s},
        .button = ButtonDesign{2, u" Events "_s, u" Events "_s, u"view-calendar-special-occasion"_s, RailGroup::Reminders, 3,
                               {u"EVENTS"_s,
                                {u" Record birthdays, anniversaries, holidays and sports in this section."_s,
                                 u" What comes back every year is shown on its day of this year."_s}}},
        .feature = FeatureDesign{u"Events"_s, {u"mnuPrintEvents"_s, u"mnuDisplayE"_s}},
        .print = PrintDesign{u"mnuPrintEvents"_s, u"&Events"_s,
            {.titleWord = u"EVENTS"_s, .isDated = false, .size = 0, .rowLimit = 55,
             .columns = {{.heading = u"DATE"_s, .cell = fieldShortDate(u"DATE"_s), .percent = 1},
                         wrapped(u"EVENT"_s, u"SUBJECT"_s, 15, columnWide), wrapped(u"DETAILS"_s, u"EVENT"_s, 32, columnWide)},
             .head = ListHead::Block, .countWord = u"NUMBER OF RECORDS LISTED: "_s, .hideEmail = true,
             .noRows = u"No Records to Preview"_s}},
        .rowTip = RowTipDesign{u"EVENTS"_s,
                               {date(u" DATE:"_s, u"DATE"_s), date(u" TO:"_s, u"DATETO"_s), text(u" SUBJECT:"_s, u"SUBJECT"_s),
                                text(u" EVENT:"_s, u"EVENT"_s), text(u" EMAIL:"_s, u"EmailAddress"_s)}},
        .pictures = PicturesDesign{u"EventPictures"_s, {{u"Event Picture"_s}}},
        .help = HelpDesign{u"\\INFOEVENTS.RTF"_s},
    };
}

}
