#include "reminders/frmRecord.h"

#include "calendar/picker.h"
#include "platform/basic/prompts.h"
#include "session/state.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>

// The frequency panel: what it offers only fills the two period boxes and the weekday lists; a save makes the rows.
namespace vorel {

using namespace Qt::StringLiterals;

void frmRecord::SetScheduler(bool visible)
{
    for (const QString &name : {u"fraBill"_s, u"lblPeriodMonth"_s, u"lblPeriodDays"_s, u"txtPeriodDays"_s, u"txtPeriodMonth"_s})
        control(name)->setVisible(visible);
}

void frmRecord::showFrequency()
{
    if (const auto initial = rowDate())
        showDate(control(u"lblInitialDate"_s), *initial);
    else
        setText(u"lblInitialDate"_s, text(u"txtDate"_s));
    setText(u"lblNextDate"_s, {});
    const reminders::Frequency panel = reminders::frequencyOf(text(u"txtPeriodMonth"_s), text(u"txtPeriodDays"_s),
                                                        text(u"cboDay"_s), text(u"cboWeekDay"_s));
    selectOption(panel.option);
    setText(u"cboDays"_s, panel.days);
    SetScheduler(panel.shown && !isA(ReminderKind::Event));
}

void frmRecord::selectOption(int index)
{
    m_options->setExclusive(false);
    for (QAbstractButton *option : m_options->buttons())
        option->setChecked(m_options->id(option) == index);
    m_options->setExclusive(true);
}

int frmRecord::selectedOption() const
{
    const int index = m_options->checkedId();
    return index < 0 ? reminders::noOption : index;
}

void frmRecord::optPeriod_MouseUp()
{
    for (const QString &name : {u"cboDay"_s, u"cboWeekDay"_s, u"cboDays"_s})
        setText(name, {});
}

void frmRecord::optPeriod_Click(int index)
{
    if (const auto next = reminders::nextDate(index, rowDate(), text(u"cboDays"_s)))
        showDate(control(u"lblNextDate"_s), *next);
}

void frmRecord::cboDays_Change()
{
    if (!m_showing && reminders::number(text(u"cboDays"_s)) != 0)
        cboDays_Click();
}

void frmRecord::cboDays_Click() { optPeriod_Click(4); }

void frmRecord::cmdSchedule_Click() { SetScheduler(control(u"fraBill"_s)->isHidden()); }

// The start of the series stays the row's own date; the date shown as next due is information only.
void frmRecord::cmdApply_Click()
{
    const reminders::Period period = reminders::appliedPeriod(selectedOption(), text(u"cboDays"_s));
    setText(u"txtPeriodMonth"_s, period.months);
    setText(u"txtPeriodDays"_s, period.days);
    if (!shownDate(control(u"lblNextDate"_s)))
        return;
    if (basic::askYesNo(u"Do you want to Commence on "_s + text(u"txtDate"_s) + u"?"_s, u"Question?"_s))
        setText(u"lblDay"_s, reminders::weekDayOf(rowDate()));
}

void frmRecord::cmdCancel_Click()
{
    if (const auto initial = shownDate(control(u"lblInitialDate"_s)))
        showDate(control(u"txtDate"_s), *initial);
    setText(u"lblDay"_s, reminders::weekDayOf(rowDate()));
}

}
