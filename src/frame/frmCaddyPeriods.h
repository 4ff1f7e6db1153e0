#pragma once

#include "frame/frmCaddyControls.h"
#include "frame/periods.h"
#include "session/mainscreen.h"

namespace vorel {

// The period keys and menus, and what the screen says of dates.
class CaddyPeriods {
public:
    CaddyPeriods(CaddyControls &c, MainScreen &screen) : m_c(c), m_screen(screen) {}

    void choose(const PeriodEntry &period);     // and show its rows
    void choose(const QString &menu);           // by the menu entry's name; an unknown one does nothing
    void chooseDay(basic::DateTime day);        // one day, whatever its place to today
    // When the day has changed, all that depends on today is computed again: dates, captions, tips, the rows of the period
    // on show, which is relative to today. Rows that are being typed into are waited for.
    void followDay();
    void showChosen();                          // marks and names the chosen period's keys, in the palette's colours
    void DisplayDates();
    void DisplayCaption();

private:
    CaddyControls &m_c;
    MainScreen &m_screen;
    void showDates();

    const PeriodEntry *m_period = nullptr;      // set last
    basic::DateTime m_day;                      // of which the screen speaks
};

}
