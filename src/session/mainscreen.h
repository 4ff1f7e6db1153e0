#pragma once

#include <QString>

namespace vorel {

// What lower folders ask of the main screen.
class MainScreen {
public:
    MainScreen() { current() = this; }
    virtual ~MainScreen() { current() = nullptr; }
    MainScreen(const MainScreen &) = delete;
    MainScreen &operator=(const MainScreen &) = delete;
    static MainScreen *&current();              // nullptr while there is none
    virtual void DisplayCategory(const QString &name) = 0;
    virtual void GetData() = 0;
    virtual void RefreshData() = 0;
    virtual void DisplayCaption() = 0;
    virtual void DisplayDates() = 0;
    virtual void DisableButtons(bool enable) = 0;
    virtual void CheckForMessages() = 0;
    virtual void UpdateRowHeight() {}
    // The alerts are suspended while a screen is open that they would disturb; afterwards they resume if they ran before.
    virtual void holdTimer(bool) {}
    // Writes what was changed in the grids' cells. false: a row was refused, the reason was shown, and its typing is kept:
    // the caller must not leave or read the rows.
    virtual bool writeRows() = 0;
};

inline MainScreen *&MainScreen::current()
{
    static MainScreen *screen = nullptr;
    return screen;
}

}
