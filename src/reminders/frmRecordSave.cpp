#include "reminders/frmRecord.h"

#include "platform/basic/prompts.h"
#include "session/datetexts.h"
#include "session/shared.h"
#include "session/state.h"

// What writes: a new row, a copy, a save, a delete, the way out.
namespace vorel {

using namespace Qt::StringLiterals;

void frmRecord::AddNewRecord(const QString &sourceID, const std::optional<basic::DateTime> &day)
{
    const bool copy = !sourceID.trimmed().isEmpty();
    if (copy && !basic::askYesNo(u"Create a Duplicate Record?"_s))
        return;
    if (!dtaData().UpdateRecord())
        return;
    if (dtaData().RecordSource().isEmpty())
        dtaData().setRecordSource(m_design.allRows.toString());
    dtaData().Refresh();
    if (!dtaData().Recordset())
        return;
    if (const auto added = reminders::addRow(dtaData().Recordset(), m_design, sourceID, day))
        dtaData().setBookmark(*added);
    AllowInput();
}

SeriesFields frmRecord::seriesFields() const
{
    SeriesFields fields;
    fields.kind = m_design.kind;
    fields.text = text(m_design.textControl.toString());
    fields.date = rowDate();
    fields.time = typedTime(text(u"cboTime"_s));
    fields.amount = reminders::amount(text(u"txtAmount"_s));
    fields.website = text(u"txtWebsite"_s);
    fields.fixedAmount = ticked(u"chkFixedAmount"_s);
    fields.deleteAfter = ticked(u"chkDelete"_s);
    fields.months = reminders::wholeNumber(text(u"txtPeriodMonth"_s));
    fields.days = reminders::wholeNumber(text(u"txtPeriodDays"_s));
    fields.weekNum = text(u"cboDay"_s);
    fields.weekDay = text(u"cboWeekDay"_s);
    fields.weekdayRule = ticked(u"optPeriod(3)"_s);
    return fields;
}

// A digit missing in the year asks for hundreds of thousands of rows.
bool frmRecord::agreesToLength(const SeriesFields &fields)
{
    constexpr int many = 5000;
    const int rows = seriesLength(fields);
    return rows <= many
        || basic::askYesNo(u"This makes %1 dates, from the year %2 on.\r\nDo you want to create them?"_s.arg(rows).arg(fields.date->year()),
                           u"Question?"_s);
}

// The row and its series are one change. A text with an apostrophe from before has no series: its row is saved alone.
void frmRecord::cmdUpdate_Click()
{
    if (!dtaData().hasRows())
        return;
    correctDate();
    cboTime_LostFocus();
    if (isA(ReminderKind::Bill) && text(u"txtAmount"_s).trimmed().isEmpty())
        setText(u"txtAmount"_s, reminders::moneyText({}));
    const SeriesFields fields = seriesFields();
    if (!agreesToLength(fields))
        return;
    const QString details = text(u"rtbFullDetails"_s);
    SeriesResult added;
    const bool saved = dtaData().UpdateRecord([&] {
        // The save has shown the row as it is stored; what the view had put in place of empty fields is part of it now.
        correctDate();
        if (text(u"rtbFullDetails"_s).isEmpty())
            setText(u"rtbFullDetails"_s, details);
        FormatDates();
        storeView();
        if (canHaveSeries(fields))
            added = createSeries(dtaData().Database(), fields);
    });
    if (!saved)
        return;
    if (isA(ReminderKind::Bill))
        setText(u"txtAmount"_s, reminders::moneyText(text(u"txtAmount"_s)));
    dtaData().takeAsShown(control(u"txtAmount"_s));
    takeViewAsShown();
    dao::DBEngine::Idle(dao::dbRefreshCache);
    setRecordTitle(m_design.title.toString(), shownApostrophes(fields.text));
    if (seriesLength(fields) > 0 && !canHaveSeries(fields))
        basic::MsgBox(u"The row is saved, but not repeated: its text holds an apostrophe. Type the text again and choose Update."_s);
    showState(reminders::savedWords(added));
}

qint32 frmRecord::survivorAfterDelete()
{
    const dao::Recordset &rows = dtaData().Recordset();
    const int id = rows.fieldIndex(u"ID");
    const qsizetype here = rows.AbsolutePosition();
    const auto idAt = [&](qsizetype row) {
        const dao::Value value = rows.cell(row, id);    // Null: the series went before
        return value.isNull() ? 0 : static_cast<qint32>(reminders::number(value.text()));
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

// Any row's delete takes its whole series, repeating or not, in one transaction. A text with an apostrophe from before
// cannot be looked for: its row goes alone.
void frmRecord::cmdDelete_Click()
{
    if (!dtaData().hasRows()) {
        dtaData().Refresh();
        AllowInput();
        return;
    }
    if (!basic::askYesNo(u"Do you want to Delete this Record ?"_s, u"Question?"_s))
        return;
    const SeriesFields fields = seriesFields();
    dtaData().revert();         // the edits are discarded with the row
    dao::Database &file = dtaData().Database();
    dao::Transaction all(file);
    if (canHaveSeries(fields))
        DeleteFutureDates(file, fields);
    file.Execute(u"DELETE * FROM [%1] WHERE [ID]="_s.arg(m_design.table) + dao::literal(reminders::rowNumber(text(u"lblID1"_s))));
    all.Commit();
    dao::DBEngine::Idle(dao::dbRefreshCache);
    const qint32 next = survivorAfterDelete();
    dtaData().Refresh();
    if (next != 0)
        dtaData().FindFirst(u"ID = "_s + dao::literal(next));
    AllowInput();
}

// Whatever closes the screen writes what was typed. Typing that cannot be saved keeps the screen open; on a second attempt the user
// may let it go.
bool frmRecord::QueryUnload()
{
    if (dtaData().isDirty())
        txtDate_LostFocus();
    return RecordForm::QueryUnload();
}

}
