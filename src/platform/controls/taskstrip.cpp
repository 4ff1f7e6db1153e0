#include "platform/controls/taskstrip.h"

#include "platform/controls/elidedlabel.h"
#include "platform/controls/form.h"
#include "platform/controls/layout.h"

#include <QApplication>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr int delayMilliseconds = 500;  // work that is done sooner shows nothing
constexpr int barSteps = 1000;          // a total may be larger than a bar can count

}

TaskStrip::TaskStrip(basic::Task &task, QWidget *parent)
    : QWidget(parent), m_task(task), m_text(new ElidedLabel), m_bar(new QProgressBar),
      m_cancel(new QPushButton(u"Cancel"_s)), m_delay(new QTimer(this))
{
    m_text->setObjectName(u"lblTask"_s);
    m_bar->setObjectName(u"barTask"_s);
    m_bar->setTextVisible(false);
    m_bar->setFixedWidth(25 * layout::unit);
    m_bar->setAccessibleName(u"Progress"_s);
    m_cancel->setObjectName(u"cmdCancelTask"_s);
    m_cancel->setAutoDefault(false);
    QLayout *line = layout::Row({m_text, m_bar, m_cancel});
    static_cast<QHBoxLayout *>(line)->setStretch(0, 1);
    setLayout(line);
    hide();
    m_delay->setSingleShot(true);
    m_delay->setInterval(delayMilliseconds);
    on(m_delay, &QTimer::timeout, this, [this] { setVisible(m_task.isRunning()); });
    on(m_cancel, &QPushButton::clicked, this, [this] { cancel(); });
    on(&task, &basic::Task::started, this, [this] { begin(); });
    on(&task, &basic::Task::progressed, this, [this] { showProgress(); });
    on(&task, &basic::Task::ended, this, [this] { end(); });
}

void TaskStrip::setGuarded(QWidget *part)
{
    m_guarded = part;
}

void TaskStrip::begin()
{
    m_text->clear();
    m_bar->setRange(0, 0);
    m_cancel->setEnabled(true);
    m_delay->start();
    if (m_guarded) {
        m_focus = QApplication::focusWidget();
        m_guarded->setEnabled(false);
    }
}

void TaskStrip::showProgress()
{
    const basic::TaskProgress at = m_task.progress();
    if (m_cancel->isEnabled())
        m_text->setText(at.text);
    m_bar->setRange(0, at.total > 0 ? barSteps : 0);
    if (at.total > 0)
        m_bar->setValue(static_cast<int>(barSteps * (static_cast<double>(at.done) / static_cast<double>(at.total))));
}

void TaskStrip::end()
{
    m_delay->stop();
    hide();
    if (!m_guarded)
        return;
    m_guarded->setEnabled(true);
    if (m_focus && m_guarded->isAncestorOf(m_focus))
        m_focus->setFocus();
}

// The worker may still be busy with its last piece, a slow disk's for instance.
void TaskStrip::cancel()
{
    m_cancel->setEnabled(false);
    m_text->setText(u"Stopping..."_s);
    m_task.cancel();
}

}
