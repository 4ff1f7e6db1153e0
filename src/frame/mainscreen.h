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
};

}
