#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign appointments()
{
    return {
        .id = SectionId::Appointments,
        .name = u"Appointments"_s,
        .code = u"A"_s,
        .kind = SectionKind::Reminder,
        .grids = {true, false, false},
        .grid = GridDesign{.word = u"APPS"_s, .widths = {1500, 500, 1000, 1300, 550}, .styleSet = u"APPOINTMENTS"_s,
                           .colour = GridColourDesign{u"AppointsGridColour"_s, 0xC0FFFF, true},
                           .empty = u"No appointments in this period.\nPress New to enter one."_s},
        .button = ButtonDesign{0, u" Appoint/s"_s, u"Appointments "_s, u"appointment-new"_s, RailGroup::Reminders, 1,
                               {u"APPOINTMENTS"_s,
                                {u" Record all of your engagements, meetings, or appointments in this section."_s,
                                 u" You are warned before and after the time of each of them."_s}}},
        .feature = FeatureDesign{u"Appointments"_s, {u"mnuPrintAppointments"_s, u"mnuDisplayA"_s}},
        .print = PrintDesign{u"mnuPrintAppointments"_s, u"&Appointments"_s,
            {.titleWord = u"APPOINTMENTS"_s, .isDated = false, .orientation = 2, .size = 0, .rowLimit = 20,
             .columns = {{.heading = u"DATE"_s, .cell = fieldShortDate(u"DATE"_s), .percent = 1},
                         {.heading = u"TIME"_s, .cell = fieldFormat(u"APPTIME"_s, u"hh:mm am/pm"_s), .percent = 16.5},
                         wrapped(u"APPOINTMENT"_s, u"APPOINTMENT"_s, 27, columnWide),
                         {.heading = u"MET"_s, .cell = yesWhenSet(u"MET"_s), .percent = 93}},
             .head = ListHead::Block, .countWord = u"NUMBER OF RECORDS LISTED: "_s, .hideEmail = true,
             .noRows = u"No Records to Preview"_s}},
        .rowTip = RowTipDesign{u"APPOINTMENTS"_s,
                               {day(u" DATE:"_s, u"DATE"_s), text(u" TIME:"_s, u"APPTIME"_s),
                                text(u" APPOINTMENT:"_s, u"APPOINTMENT"_s)}},
        .help = HelpDesign{u"\\INFOAPPOINTS.RTF"_s},
    };
}

}
