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
    void setQuietly(const QString &menu);       // sets the period, leaves the grids as they are
    void DisplayDates();
    void DisplayCaption();

private:
    CaddyControls &m_c;
    MainScreen &m_screen;
    QString m_key;                              // the toolbar key of the period set last
};

}
