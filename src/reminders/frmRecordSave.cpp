#include "reminders/frmRecord.h"

#include "platform/basic/prompts.h"
#include "session/state.h"

#include <QButtonGroup>

// What writes: a new row, a copy, a save, a delete, the road out.
namespace vorel {

using namespace Qt::StringLiterals;

void frmRecord::AddNewRecord(const QString &sourceID)
{
    const bool copy = !sourceID.trimmed().isEmpty();
    if (copy && !basic::askYesNo(u"Create a Duplicate Record?"_s))
        return;
    if (!m_data->UpdateRecord())
        return;
    if (m_data->RecordSource().isEmpty())
        m_data->setRecordSource(m_section.allRows.toString());
    m_data->Refresh();
    if (!m_data->Recordset())
        return;
    if (const auto added = record::addRow(m_data->Recordset(), m_section, sourceID))
        m_data->setBookmark(*added);
    AllowInput();
}

SeriesFields frmRecord::seriesFields() const
{
    SeriesFields fields;
    fields.kind = m_section.kind;
    fields.text = text(m_section.textControl.toString());
    if (const auto date = rowDate())
        fields.date = record::dayMonthYear(*date);
    fields.time = text(u"cboTime"_s);
    fields.amount = text(u"txtAmount"_s);
    fields.website = text(u"txtWebsite"_s);
    fields.fixedAmount = ticked(u"chkFixedAmount"_s);
    fields.deleteAfter = ticked(u"chkDelete"_s);
    fields.periodMonth = text(u"txtPeriodMonth"_s);
    fields.periodDays = text(u"txtPeriodDays"_s);
    fields.weekNum = text(u"cboDay"_s);
    fields.weekDay = text(u"cboWeekDay"_s);
    fields.weekdayRule = ticked(u"optPeriod(3)"_s);
    return fields;
}

// The row first, then its series: when the series cannot be made (its text cannot stand in the query) the engine's
// error is told, the row itself is saved and no other row has changed.
void frmRecord::cmdUpdate_Click()
{
    if (!m_data->hasRows())
        return;
    correctDate();
    const QString details = text(u"rtbFullDetails"_s);
    if (!m_data->UpdateRecord())
        return;
    // The save showed the row as it is stored; what the view had put in place of empty fields is part of it now.
    correctDate();
    if (text(u"rtbFullDetails"_s).isEmpty())
        setText(u"rtbFullDetails"_s, details);
    if (m_section.kind == ReminderKind::Bill) {
        setText(u"txtAmount"_s, record::moneyText(text(u"txtAmount"_s)));
        m_data->takeAsShown(control<QWidget>(u"txtAmount"_s));
    }
    if (m_section.kind != ReminderKind::Event)
        basic::Trap([&] { createSeries(seriesFields()); });
    FormatDates();
    storeView();
    dao::DBEngine::Idle(dao::dbRefreshCache);
}

qint32 frmRecord::survivorAfterDelete()
{
    const dao::Recordset &rows = m_data->Recordset();
    const int id = rows.fieldIndex(u"ID");
    const qsizetype here = rows.AbsolutePosition();
    const auto idAt = [&](qsizetype row) {
        const dao::Value value = rows.cell(row, id);    // Null: the series went before
        return value.isNull() ? 0 : static_cast<qint32>(record::number(value.text()));
    };
    for (qsizetype row = here + 1; row < rows.rowTotal(); ++row) {
        if (const qint32 found = idAt(row))
            return found;
    }
    for (qsizetype row = here - 1; row >= 0; --row) {
        if (const qint32 found = idAt(row))
            return found;
    }
    return 0;
}

// Any row's delete takes its whole series, repeating or not.
void frmRecord::cmdDelete_Click()
{
    if (!m_data->hasRows()) {
        m_data->Refresh();
        AllowInput();
        return;
    }
    if (!basic::askYesNo(u"Do you want to Delete this Record ?"_s, u"Question?"_s))
        return;
    basic::Trap([&] { DeleteFutureDates(seriesFields()); });
    m_data->revert();           // what was typed goes with the row
    dao::DBEngine::Idle(dao::dbRefreshCache);
    const qint32 next = survivorAfterDelete();
    m_data->Recordset().Delete();
    m_data->Refresh();
    if (next != 0)
        m_data->FindFirst(u"ID = "_s + QString::number(next));
    AllowInput();
}

// Every road out writes what was typed. Typing that cannot be saved keeps the screen open; on a second attempt the user
// may let it go.
bool frmRecord::QueryUnload()
{
    if (m_data->isDirty())
        txtDate_LostFocus();
    return m_data->Leave();
}

}
