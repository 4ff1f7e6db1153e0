#pragma once

#include "frame/frmCaddyControls.h"
#include "reminders/messages.h"
#include "session/mainscreen.h"

namespace vorel {

// The strip below: the hints, the messages that wait, the backups that are due, and the Messages menu.
class CaddyStrip {
public:
    CaddyStrip(CaddyControls &c, MainScreen &screen) : m_c(c), m_screen(screen) {}

    void ScrollMessages();
    void CheckForMessages();
    void CheckForBackupFiles();
    void showMessages(MessageView view);            // the grid of messages: those sent, those received, or all

private:
    CaddyControls &m_c;
    MainScreen &m_screen;
};

}
