#include "frame/frmCaddyPeriods.h"

#include "calendar/frmCalendarSmallMonth.h"
#include "frame/frmCaddyLayout.h"
#include "platform/basic/clock.h"
#include "platform/basic/format.h"
#include "platform/controls/colours.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QToolButton>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

const PeriodEntry *periodByMenu(const QString &menu)
{
    for (const PeriodEntry &period : periodTable())
        if (QStringView(period.menu) == menu)
            return &period;
    return nullptr;
}

}

void CaddyPeriods::choose(const PeriodEntry &period)
{
    period.set();
    m_period = &period;
    m_c.picMonth->setPicked({});
    m_screen.GetData();
}

void CaddyPeriods::chooseDay(basic::DateTime day)
{
    state().period.gPeriodStart = state().period.gPeriodEnd = shortDate(day);
    SetDayPeriod({});
    m_period = nullptr;
    m_screen.GetData();
}

void CaddyPeriods::choose(const QString &menu)
{
    if (const PeriodEntry *period = periodByMenu(menu))
        choose(*period);
}

void CaddyPeriods::showDates()
{
    m_day = basic::Date();
    m_c.lblDate->setText(displayDate(m_day));
    m_c.lblTime->setText(basic::Format(basic::Now(), u"hh:mm AM/PM"));
    for (const PeriodEntry &period : periodTable()) {
        const QString caption = period.caption();
        if (const auto entry = m_c.actions.find(QString::fromUtf16(period.menu)); entry != m_c.actions.end())
            entry->second->setText(caption);
        if (const auto key = m_c.toolbarKeys.find(QString::fromUtf16(period.toolbarKey)); key != m_c.toolbarKeys.end())
            key->second->setToolTip(caption);
    }
}

void CaddyPeriods::DisplayDates()
{
    showDates();
    choose(startPeriod());
}

void CaddyPeriods::followDay()
{
    if (m_day == basic::Date() || !m_day.hasDate() || m_c.isTyping())
        return;
    state().period.gToday = basic::Date();
    showDates();
    if (m_period)
        choose(*m_period);
    for (const GridPane &pane : m_c.panes)
        pane.grid->Repaint();                   // rows of today have a colour
}

void CaddyPeriods::DisplayCaption()
{
    m_c.panPeriod->setText(periodCaption());
    m_c.lblUsername->setText(state().settings.gUserName);
    showChosen();
}

void CaddyPeriods::showChosen()
{
    const QString chosen = m_period ? QString::fromUtf16(m_period->toolbarKey) : QString();
    for (const auto &[key, action] : m_c.toolbarKeys)
        if (action->isCheckable())
            action->setChecked(key == chosen);
    const QPalette system = QGuiApplication::palette();
    for (const CaddyControls::PeriodGroup &group : m_c.periodGroups) {
        const bool here = std::find(group.keys.begin(), group.keys.end(), chosen) != group.keys.end();
        group.here->setText(here && chosen != group.keys[1] ? periodKeyName(chosen) : group.caption);
        QPalette colours = system;
        colours.setColor(QPalette::Window, controls::blend(system.color(QPalette::Window), system.color(QPalette::Highlight), 0.3));
        group.box->setPalette(here ? colours : system);
        group.box->setAutoFillBackground(here);
    }
}

}
