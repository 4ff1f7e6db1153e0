#pragma once

#include <QWidget>
#include <memory>

class QLabel;
class QTimer;

namespace vorel {

class frmCaddy;

// The splash: reads the configuration, makes sure of the data files, loads the main screen hidden, and after its pause
// brings the reminders up to date and shows it.
class Startup : public QWidget {
    Q_OBJECT
public:
    Startup();
    ~Startup() override;

    void Load();
    void LoadVorel();
    void End();                         // as the desktop asks, at any time
    frmCaddy *mainScreen() const { return m_caddy.get(); }

protected:
    void paintEvent(QPaintEvent *) override;

private:
    void Timer1_Timer();

    QLabel *m_title, *m_version;
    QTimer *m_timer;
    int m_ticks = 0;
    std::unique_ptr<frmCaddy> m_caddy;
};

}
