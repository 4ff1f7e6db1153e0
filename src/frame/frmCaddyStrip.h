#pragma once

#include "frame/frmCaddyControls.h"

namespace vorel {

// The strip below: the clock, the hints, the messages that wait.
class CaddyStrip {
public:
    explicit CaddyStrip(CaddyControls &c) : m_c(c) {}

    void Timer2_Timer();
    void ScrollMessages();
    void CheckForMessages();

private:
    CaddyControls &m_c;
};

}
