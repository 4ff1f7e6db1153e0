#pragma once

#include "platform/basic/task.h"

#include <QPointer>
#include <QWidget>

class QProgressBar;
class QPushButton;
class QTimer;

namespace vorel::controls {

class ElidedLabel;

// One line that shows a task: what it is at, a bar, and Cancel. It is seen from half a second after the start to the end,
// so that quick work does not flicker. While the task runs the guarded part of the screen takes no input; the rest of the
// program stays alive.
class TaskStrip : public QWidget {
    Q_OBJECT
public:
    explicit TaskStrip(basic::Task &task, QWidget *parent = nullptr);

    void setGuarded(QWidget *part);         // disabled while the task runs; nullptr: nothing is

private:
    void begin();
    void showProgress();
    void end();
    void cancel();

    basic::Task &m_task;
    QPointer<QWidget> m_guarded, m_focus;
    ElidedLabel *m_text;
    QProgressBar *m_bar;
    QPushButton *m_cancel;
    QTimer *m_delay;
};

}
