#pragma once

#include "calendar/monthlist.h"

namespace vorel {

// The month as a page for the wall: its picture, the present year beside it, the days, and below and beside them the blocks
// that are asked for. What has no room goes on to further pages. Shows the preview.
void PrintMonthCalendar(int month, int year, const CalendarPaper &paper);

}
