#pragma once

#include "frame/frmCaddyControls.h"
#include "reminders/alerts.h"

#include <QPointer>
#include <functional>

namespace vorel {

class CaddyEdit;
class CaddyPainting;

// The warnings of appointments on the main screen: the panel, the outline, the row's colour, the sound, the desktop's
// notice. What warns is decided in reminders/alerts.h.
class CaddyAlerts : public QObject {
    Q_OBJECT
public:
    CaddyAlerts(CaddyControls &c, CaddyPainting &painting, CaddyEdit &edit, QWidget *window, std::function<void()> busy);

    void showTime();
    void Timer2_Timer();                // CheckAppointments; a failure is reported once, not at every tick
    void CheckAppointments();
    void panAppoint_Click();            // the long text, then the row
    void CreateAppointsFile();
    void cmdPopUpCloser_Click();

private:
    void showAlert(const Alert &alert);
    void announce(const std::vector<Alert> &alerts);
    void openRow(qint32 id);
    void setWarning(qint32 id);

    CaddyControls &m_c;
    CaddyPainting &m_painting;
    CaddyEdit &m_edit;
    QWidget *m_window;
    std::function<void()> m_busy;       // the file is locked
    AlertLog m_log;
    QString m_text;                     // what a click on the panel shows
    qint32 m_id = 0;                    // the row that the panel speaks of
    bool m_failing = false;
    bool m_ticking = false;
};

}
