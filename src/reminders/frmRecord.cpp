#include "reminders/frmRecord.h"

#include "calendar/picker.h"
#include "media/frmDataPath.h"
#include "platform/basic/prompts.h"
#include "platform/desktop/desktop.h"
#include "session/datetexts.h"
#include "session/state.h"
#include "utilities/frmInformation.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMouseEvent>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;

frmRecord::frmRecord(const QString &section, QWidget *parent)
    : RecordForm(u"frmRecord"_s, u"dtaData"_s, parent), m_design(reminders::reminderDesign(section))
{
    dtaData().setDatabaseName(state().path(DataFile::Main));
    composeScreen();
    connectHandlers();
    connectButtons();
    if (isA(ReminderKind::Event))
        basic::Trap([&] { control<QComboBox>(u"cboSubject"_s)->addItems(reminders::subjects()); });
    dtaData().showRow();
}

void frmRecord::connectHandlers()
{
    on(&dtaData(), &controls::DataControl::Reposition, handlers(), [this] { dtaData_Reposition(); });
    on(control<QLineEdit>(u"txtDate"_s), &QLineEdit::editingFinished, handlers(), [this] { txtDate_LostFocus(); });
    on(control<QComboBox>(u"cboTime"_s)->lineEdit(), &QLineEdit::editingFinished, handlers(), [this] { cboTime_LostFocus(); });
    on(control<QCheckBox>(u"chkDelete"_s), &QCheckBox::clicked, handlers(), [this] { chkDelete_MouseUp(); });
    on(control<QCheckBox>(u"chkEmail"_s), &QCheckBox::clicked, handlers(), [this] { chkEmail_Click(); });
    on(control<QCheckBox>(u"chkCard"_s), &QCheckBox::clicked, handlers(), [this] { chkCard_Click(); });
    on(control<QComboBox>(u"cboSubject"_s), &QComboBox::activated, handlers(), [this] { cboSubject_Click(); });
    on(control<QComboBox>(u"cboSubject"_s)->lineEdit(), &QLineEdit::editingFinished, handlers(), [this] {
        // Passing by changes nothing: an address box that the user has just opened stays open.
        if (reminders::isBirthday(text(u"cboSubject"_s)) == control(u"txtDateTo"_s)->isEnabled())
            cboSubject_Click();
    });
    control(u"txtEmail"_s)->installEventFilter(this);
    control(u"picImage"_s)->installEventFilter(this);

    on(m_options, &QButtonGroup::buttonReleased, handlers(), [this] { optPeriod_MouseUp(); });
    on(m_options, &QButtonGroup::idClicked, handlers(), [this](int index) { optPeriod_Click(index); });
    auto *days = control<QComboBox>(u"cboDays"_s);
    on(days, &QComboBox::editTextChanged, handlers(), [this] { cboDays_Change(); });
    on(days, &QComboBox::activated, handlers(), [this] { cboDays_Click(); });
}

void frmRecord::connectButtons()
{
    const std::pair<QString, void (frmRecord::*)()> clicks[] = {
        {u"cmdUpdate"_s, &frmRecord::cmdUpdate_Click},     {u"cmdDelete"_s, &frmRecord::cmdDelete_Click},
        {u"cmdCalc"_s, &frmRecord::cmdCalc_Click},         {u"cmdWebsite"_s, &frmRecord::cmdWebsite_Click},
        {u"cmdEmail"_s, &frmRecord::cmdEmail_Click},       {u"cmdPicture"_s, &frmRecord::cmdPicture_Click},
        {u"cmdSchedule"_s, &frmRecord::cmdSchedule_Click}, {u"cmdApply"_s, &frmRecord::cmdApply_Click},
        {u"cmdCancel"_s, &frmRecord::cmdCancel_Click},
    };
    for (const auto &[name, handler] : clicks)
        onClick(name, [this, handler = handler] { (this->*handler)(); });
    onClick(u"cmdNew"_s, [this] { AddNewRecord({}); });
    onClick(u"cmdReplicate"_s, [this] { AddNewRecord(text(u"lblID2"_s)); });
    onClick(u"cmdRemove"_s, [this] {
        setText(u"lblFilename"_s, {});
        ShowPic({});
    });
    useRecordKeys();
    on(this, &Form::helpWanted, handlers(), [this] { ShowInfoPage(m_design.code); });
}

bool frmRecord::eventFilter(QObject *watched, QEvent *event)
{
    const QString name = watched->objectName();
    if (m_slots.contains(name) && (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress)) {
        moveCalcBeside(name);
    } else if (name == u"txtEmail" && event->type() == QEvent::MouseButtonDblClick) {
        basic::Trap([&] { txtEmail_DblClick(); });
        return true;
    } else if (name == u"picImage" && event->type() == QEvent::MouseButtonRelease && isA(ReminderKind::Event) && dtaData().hasRows()) {
        basic::Trap([&] { cmdPicture_Click(); });
    }
    return RecordForm::eventFilter(watched, event);
}

void frmRecord::AllowInput()
{
    const bool rows = dtaData().hasRows();
    for (const QString &name : {u"cmdReplicate"_s, u"cmdUpdate"_s, u"cmdDelete"_s, u"cmdSchedule"_s, u"fraBill"_s,
                                u"panFullDetails"_s})
        control(name)->setEnabled(rows);
    for (const controls::Field &field : fields()) {
        if (field.kind != controls::FieldKind::Hidden && formOf(field))
            lineOf(field.control)->setEnabled(rows);
    }
}

void frmRecord::pickDate(const controls::Field &field)
{
    moveCalcBeside(field.control);
    cmdCalc_Click();
}

void frmRecord::cmdCalc_Click()
{
    if (OpenDatePicker(control(m_calcBox)) && m_calcBox == u"txtDate")
        correctDate();
}

void frmRecord::cmdWebsite_Click()
{
    const QString address = reminders::webAddress(text(u"txtWebsite"_s));
    if (!address.isEmpty() && !desktop::ShellExecute(address))
        basic::MsgBox(u"Unable to open "_s + address, {}, basic::Icon::Exclamation);
}

void frmRecord::cmdEmail_Click()
{
    const QString address = text(u"txtEmail"_s).trimmed();
    if (!address.isEmpty() && !desktop::ShellExecute(u"mailto:"_s + address))
        basic::MsgBox(u"Unable to open "_s + address, {}, basic::Icon::Exclamation);
}

void frmRecord::cmdPicture_Click()
{
    const QString path = GetFilePath(text(u"lblFilename"_s));
    setText(u"lblFilename"_s, path);
    ShowPic(path);
}

QString frmRecord::GetFilePath(const QString &startPath)
{
    return chooseDataPath({u"Event Picture"_s, startPath, text(u"txtEvent"_s), this,
                           textRoom(dtaData().Recordset(), u"FILENAME")});
}

void frmRecord::chkDelete_MouseUp()
{
    if (!ticked(u"chkDelete"_s))
        return;
    const QString question = u"This Record will be DELETED "_s + QString::number(state().settings.gDeleteAfterDays)
        + u" days after the Display Date!\r\nAre you sure about this option?"_s;
    if (!basic::askYesNo(question))
        control<QCheckBox>(u"chkDelete"_s)->setChecked(false);
}

void frmRecord::chkEmail_Click()
{
    const bool wanted = ticked(u"chkEmail"_s);
    showField(u"txtEmail"_s, wanted);
    showField(u"lblLastEmailDate"_s, wanted);
    if (!wanted)
        control(u"lblEmail1"_s)->show();
}

void frmRecord::chkCard_Click()
{
    const bool wanted = ticked(u"chkCard"_s);
    showField(u"chkCardBuy"_s, wanted);
    showField(u"chkCardSent"_s, wanted);
}

void frmRecord::cboSubject_Click()
{
    applyBirthday();
    showEventParts();
}

void frmRecord::txtDate_LostFocus()
{
    if (reminders::number(text(u"lblID1"_s)) == 0)
        return;
    const bool invalid = !rowDate();
    correctDate();              // before the box, which takes the focus: this runs once more
    if (invalid)
        basic::MsgBox(u"Invalid Date ... defaulting to todays date"_s);
}

void frmRecord::txtEmail_DblClick() { setText(u"txtEmail"_s, reminders::contactAddress(text(u"lblEmailID"_s))); }

void frmRecord::cboTime_LostFocus() { setText(u"cboTime"_s, typedTime(text(u"cboTime"_s))); }

}
