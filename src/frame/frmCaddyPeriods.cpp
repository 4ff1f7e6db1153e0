#include "frame/frmCaddyPeriods.h"

#include "platform/basic/clock.h"
#include "platform/basic/format.h"

#include <QAction>
#include <QLabel>

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
    m_key = QString::fromUtf16(period.toolbarKey);
    m_screen.GetData();
}

void CaddyPeriods::choose(const QString &menu)
{
    if (const PeriodEntry *period = periodByMenu(menu))
        choose(*period);
}

void CaddyPeriods::setQuietly(const QString &menu)
{
    if (const PeriodEntry *period = periodByMenu(menu)) {
        period->set();
        m_key = QString::fromUtf16(period->toolbarKey);
    }
}

void CaddyPeriods::DisplayDates()
{
    m_c.lblDate->setText(displayDate(basic::Date()));
    m_c.lblTime->setText(basic::Format(basic::Now(), u"hh:mm AM/PM"));
    for (const PeriodEntry &period : periodTable()) {
        const QString caption = period.caption();
        if (const auto entry = m_c.actions.find(QString::fromUtf16(period.menu)); entry != m_c.actions.end())
            entry->second->setText(caption);
        if (const auto key = m_c.toolbarKeys.find(QString::fromUtf16(period.toolbarKey)); key != m_c.toolbarKeys.end())
            key->second->setToolTip(caption);
    }
    choose(startPeriod());
}

void CaddyPeriods::DisplayCaption()
{
    m_c.panPeriod->setText(periodCaption());
    m_c.lblUsername->setText(state().settings.gUserName);
    for (const auto &[key, action] : m_c.toolbarKeys)
        if (action->isCheckable())
            action->setChecked(key == m_key);
}

}
