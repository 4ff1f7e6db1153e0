#pragma once

#include "calendar/monthrows.h"

namespace vorel {

struct ListKinds {
    MonthKinds reminders{};
    bool toDo = false;
};
// What the printed calendar has beside the month itself.
struct CalendarPaper {
    ListKinds blocks{};
    bool yearStrip = true;
};

// What falls in the month as a list, for a rich-text box: a heading for each kind that is asked for, and below it a line
// for each row, its date in the display date format.
QString GetCalendarData(dao::Database &database, const DaySpan &span, const ListKinds &kinds);

}
