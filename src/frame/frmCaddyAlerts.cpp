#include "frame/frmCaddyAlerts.h"

#include "frame/frmCaddyEdit.h"
#include "frame/frmCaddyInfo.h"
#include "frame/frmCaddyPainting.h"
#include "platform/basic/clock.h"
#include "platform/basic/error.h"
#include "platform/basic/format.h"
#include "platform/basic/prompts.h"
#include "platform/desktop/notify.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScopedValueRollback>

// Registers the built-in sounds; by the tool's own rule outside of any namespace.
static void initialiseSounds() { Q_INIT_RESOURCE(resources); }

namespace vorel {

using namespace Qt::StringLiterals;

CaddyAlerts::CaddyAlerts(CaddyControls &c, CaddyPainting &painting, CaddyEdit &edit, QWidget *window,
                         std::function<void()> busy)
    : m_c(c), m_painting(painting), m_edit(edit), m_window(window), m_busy(std::move(busy))
{
    initialiseSounds();
    m_c.tools.at(u"cmdPopUpCloser"_s)->setEnabled(false);
}

void CaddyAlerts::showTime()
{
    m_c.lblTime->setText(basic::Format(basic::Now(), u"hh:mm AM/PM"));
}

// A file that cannot be read would raise a box every six seconds, each over the one before.
void CaddyAlerts::Timer2_Timer()
{
    if (m_ticking)
        return;
    const QScopedValueRollback guard(m_ticking, true);
    bool locked = false;
    const auto check = [&] {
        try {
            CheckAppointments();
        } catch (const basic::Error &e) {
            locked = e.number() == dao::err::Locked;
            if (!locked)
                throw;
        }
    };
    // Reported once: a check that goes on failing says nothing new.
    m_failing = m_failing ? basic::IgnoreErrors(check) != 0 : !basic::Trap(check);
    if (locked)
        m_busy();
}

void CaddyAlerts::CheckAppointments()
{
    const AlertRule rule = alertRule();
    std::vector<Alert> alerts;
    if (rule.on && (rule.before != 0 || rule.after != 0))
        alerts = alertsFor(appointmentsOfToday(), rule, basic::Now());
    if (alerts.empty()) {
        m_c.panAppoint->hide();
        m_c.panAppoint->setToolTip({});
        m_text.clear();
    } else {
        showAlert(alerts.back());
    }
    m_c.panInfo->setWarning(!alerts.empty());
    setWarning(alerts.empty() ? 0 : alerts.back().id);
    announce(alerts);
}

void CaddyAlerts::showAlert(const Alert &alert)
{
    const bool red = alert.colour == AlertColour::Red;
    QPalette colours = m_c.panAppoint->palette();
    colours.setColor(QPalette::Button, red ? QColor(255, 0, 0) : QColor(0, 255, 0));
    colours.setColor(QPalette::ButtonText, red ? Qt::white : Qt::black);
    m_c.panAppoint->setPalette(colours);
    m_c.panAppoint->setText(QString(alert.caption).replace(u'&', u"&&"_s));
    m_c.panAppoint->setAccessibleName(alert.caption.trimmed());
    m_c.panAppoint->setToolTip(alert.toolTip);
    m_c.panAppoint->show();
    m_text = alert.text;
}

// The grid paints the warned row in its own colour.
void CaddyAlerts::setWarning(qint32 id)
{
    if (m_id == id)
        return;
    m_id = id;
    m_painting.setWarning(id);
    m_c.appointments().grid->Repaint();
}

void CaddyAlerts::announce(const std::vector<Alert> &alerts)
{
    bool rings = false;
    for (const Alert &alert : alerts) {
        if (!m_log.isNew(alert))
            continue;
        rings = true;
        const bool red = alert.colour == AlertColour::Red;
        const QString title = alert.caption.trimmed();
        const QString body = alert.text.section(u'\n', 4) + u'\n'
            + (red ? u"It is time."_s : QString::number(alert.minutes) + u" minute/s remaining"_s);
        desktop::Notify({alert.id, title, body, red, [self = QPointer(this), id = alert.id] {
                             if (self)
                                 basic::Trap([self, id] { self->openRow(id); });
                         }});
    }
    if (rings)
        SoundReminder();
}

void CaddyAlerts::panAppoint_Click()
{
    const qint32 id = m_id;                 // the next tick may change it while the text is read
    if (id == 0)
        return;
    basic::MsgBox(m_text, {}, basic::Icon::Information);
    openRow(id);
}

// From the desktop a click may come while another screen is open over this one: that one comes to the front.
void CaddyAlerts::openRow(qint32 id)
{
    QWidget *top = QApplication::activeModalWidget();
    QWidget *front = top ? top : m_window;
    if (front->isMinimized())
        front->showNormal();
    front->raise();
    front->activateWindow();
    if (!top)
        m_edit.EditRow(m_c.appointments(), id);
}

void CaddyAlerts::CreateAppointsFile()
{
    if (!writeAppointsFile() || !hasProgram(u"VorelPopUp.exe"_s))
        return;
    m_c.tools.at(u"cmdPopUpCloser"_s)->setEnabled(true);
    startProgram(u"VorelPopUp.exe"_s);
}

void CaddyAlerts::cmdPopUpCloser_Click()
{
    startProgram(u"PopUpCloser.exe"_s);
}

}
