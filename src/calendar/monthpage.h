#pragma once

#include "calendar/monthrows.h"

// The month as a page for the browser, from Sunday to Saturday, to be seen or hung on the wall.
namespace vorel {

// The page's text: with the rows of the kinds in the days and as tables below, or blank, with room to write. picture: the
// stored path of the month's.
QString monthPageText(dao::Database &database, int year, int month, const MonthKinds &kinds, const QString &picture);
QString blankPageText(int year, int month, const QString &picture);
// The size in which a picture goes into the page: at most 220 wide or 185 high, as its proportion calls for.
QSize pagePictureSize(QSize picture);

// Write the page into the program folder and open it: \CALENDARLIST.HTML and \CALENDAR.HTML. Errors as writePage, openPage.
void PrintCalendarList(dao::Database &database, int year, int month, const MonthKinds &kinds);
void ShowBlankCalendar(int year, int month);

}
