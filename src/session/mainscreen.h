#pragma once

#include <QString>

namespace vorel {

// What lower rooms ask of the main screen.
class MainScreen {
public:
    virtual ~MainScreen() = default;
    virtual void DisplayCategory(const QString &name) = 0;
    virtual void GetData() = 0;
    virtual void RefreshData() = 0;
    virtual void DisplayCaption() = 0;
    virtual void DisplayDates() = 0;
    virtual void DisableButtons(bool enable) = 0;
    virtual void CheckForMessages() = 0;
    virtual void UpdateRowHeight() {}
    // The alerts wait while something stands open that they would disturb; afterwards they go on if they went before.
    virtual void holdTimer(bool) {}
    // Writes what was changed in the grids' cells. false: a row was refused, the user was told, and its typing is kept:
    // the caller must not leave or read the rows.
    virtual bool writeRows() = 0;
};

}
