#include "session/sections/parts.h"

namespace vorel::sections {

// Several of the reminder grids on one screen.

SectionDesign allReminders()
{
    return {
        .id = SectionId::AllReminders,
        .name = u"All"_s,
        .code = u"All"_s,
        .kind = SectionKind::Reminder,
        .refreshesReminders = false,
        .grids = {true, true, true},
        .button = ButtonDesign{3, u" All "_s, u" Display Appointments, Bills and Events "_s, u"view-calendar-list"_s,
                               RailGroup::Reminders, 0,
                               {u"ALL"_s,
                                {u" Your appointments, bills and events on one screen."_s,
                                 u" Double click on a title to see that list alone."_s}}},
    };
}

SectionDesign appointmentsAndBills()
{
    return {.id = SectionId::AppointmentsAndBills, .name = u"AB"_s, .code = u"AB"_s, .kind = SectionKind::Reminder,
            .grids = {true, true, false}};
}

SectionDesign appointmentsAndEvents()
{
    return {.id = SectionId::AppointmentsAndEvents, .name = u"AE"_s, .code = u"AE"_s, .kind = SectionKind::Reminder,
            .grids = {true, false, true}};
}

SectionDesign billsAndEvents()
{
    return {.id = SectionId::BillsAndEvents, .name = u"BE"_s, .code = u"BE"_s, .kind = SectionKind::Reminder,
            .grids = {false, true, true}};
}

}
