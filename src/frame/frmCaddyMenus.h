#pragma once

#include "frame/frmCaddyControls.h"
#include "frame/frmCaddyPeriods.h"
#include "session/mainscreen.h"

#include <QMenu>

namespace vorel {

// The menus, the toolbar and the keys: each runs what its table row names.
class CaddyMenus {
public:
    CaddyMenus(CaddyControls &c, MainScreen &screen, CaddyPeriods &periods, QMainWindow *window);

    // What a menu entry of the screen's own does, by its name; an entry without one belongs to a screen to come.
    void answer(const QString &name, std::function<void()> step) { m_answers[name] = std::move(step); }
    void run(const QString &menuName);
    void printCurrent();
    void nextPane();                            // F6: rail, search, grids, details, round again

private:
    void buildMenus();
    void print(const QString &code);
    void offerLists();
    void connectToolbar();
    void addKeys();

    CaddyControls &m_c;
    MainScreen &m_screen;
    CaddyPeriods &m_periods;
    QMainWindow *m_window;
    QMenu m_lists;                              // the lists on show, for the print key
    std::map<QString, std::function<void()>> m_answers;
};

}
