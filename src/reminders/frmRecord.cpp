#include "reminders/frmRecord.h"

#include "calendar/picker.h"
#include "media/frmDataPath.h"
#include "platform/basic/prompts.h"
#include "platform/controls/richtextbox.h"
#include "platform/desktop/desktop.h"
#include "session/state.h"
#include "utilities/frmInformation.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QShortcut>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;

frmRecord::frmRecord(QWidget *parent)
    : Form(u"frmRecord"_s, parent), m_section(record::section(state().selection.gRecordCode)), m_data(new controls::DataControl(this))
{
    m_data->setObjectName(u"dtaData"_s);
    m_data->setDatabaseName(state().path(DataFile::Main));
    m_data->setConnect(u"Access"_s);
    composeScreen();
    connectHandlers();
    connectButtons();
    if (m_section.kind == ReminderKind::Event)
        basic::Trap([&] { control<QComboBox>(u"cboSubject"_s)->addItems(record::subjects()); });
    m_data->showRow();
}

frmRecord::~frmRecord()
{
    // The fields go after this part of the screen; a focus that leaves one of them then must reach nobody.
    m_data->disconnect(this);
    m_options->disconnect(this);
    for (QWidget *widget : std::as_const(m_controls)) {
        widget->disconnect(this);
        widget->removeEventFilter(this);
    }
}

void frmRecord::connectHandlers()
{
    on(m_data, &controls::DataControl::Reposition, this, [this] { dtaData_Reposition(); });
    on(m_data, &controls::DataControl::Error, this, [this](int, const QString &message) { dtaData_Error(message); });
    on(control<QLineEdit>(u"txtDate"_s), &QLineEdit::editingFinished, this, [this] { txtDate_LostFocus(); });
    on(control<QCheckBox>(u"chkDelete"_s), &QCheckBox::clicked, this, [this] { chkDelete_MouseUp(); });
    on(control<QCheckBox>(u"chkEmail"_s), &QCheckBox::clicked, this, [this] { chkEmail_Click(); });
    on(control<QCheckBox>(u"chkCard"_s), &QCheckBox::clicked, this, [this] { chkCard_Click(); });
    on(control<QComboBox>(u"cboSubject"_s), &QComboBox::activated, this, [this] { cboSubject_Click(); });
    on(control<QComboBox>(u"cboSubject"_s)->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        // Passing by changes nothing: an address box that the user has just opened stays open.
        if (record::isBirthday(text(u"cboSubject"_s)) == control<QWidget>(u"txtDateTo"_s)->isEnabled())
            cboSubject_Click();
    });
    control<QWidget>(u"txtEmail"_s)->installEventFilter(this);
    control<QWidget>(u"picImage"_s)->installEventFilter(this);

    on(m_options, &QButtonGroup::buttonReleased, this, [this] { optPeriod_MouseUp(); });
    on(m_options, &QButtonGroup::idClicked, this, [this](int index) { optPeriod_Click(index); });
    auto *days = control<QComboBox>(u"cboDays"_s);
    on(days, &QComboBox::editTextChanged, this, [this] { cboDays_Change(); });
    on(days, &QComboBox::activated, this, [this] { cboDays_Click(); });
}

void frmRecord::connectButtons()
{
    const auto click = [this](const QString &name, void (frmRecord::*handler)()) {
        on(control<QPushButton>(name), &QPushButton::clicked, this, [this, handler] { (this->*handler)(); });
    };
    click(u"cmdUpdate"_s, &frmRecord::cmdUpdate_Click);
    click(u"cmdDelete"_s, &frmRecord::cmdDelete_Click);
    click(u"cmdCalc"_s, &frmRecord::cmdCalc_Click);
    click(u"cmdWebsite"_s, &frmRecord::cmdWebsite_Click);
    click(u"cmdEmail"_s, &frmRecord::cmdEmail_Click);
    click(u"cmdPicture"_s, &frmRecord::cmdPicture_Click);
    click(u"cmdSchedule"_s, &frmRecord::cmdSchedule_Click);
    click(u"cmdApply"_s, &frmRecord::cmdApply_Click);
    click(u"cmdCancel"_s, &frmRecord::cmdCancel_Click);
    on(control<QPushButton>(u"cmdNew"_s), &QPushButton::clicked, this, [this] { AddNewRecord({}); });
    on(control<QPushButton>(u"cmdReplicate"_s), &QPushButton::clicked, this, [this] { AddNewRecord(text(u"lblID2"_s)); });
    on(control<QPushButton>(u"cmdClose"_s), &QPushButton::clicked, this, [this] { Close(); });
    on(control<QPushButton>(u"cmdRemove"_s), &QPushButton::clicked, this, [this] {
        setText(u"lblFilename"_s, {});
        ShowPic({});
    });
    const auto key = [this](const QKeySequence &keys, const QString &name) {
        connect(new QShortcut(keys, this), &QShortcut::activated, control<QPushButton>(name), &QPushButton::click);
    };
    key(QKeySequence::New, u"cmdNew"_s);
    key(QKeySequence::Save, u"cmdUpdate"_s);
    setHelpPage(m_section.code.toString());
    on(new QShortcut(Qt::ALT | Qt::Key_Left, this), &QShortcut::activated, this, [this] { m_data->MovePrevious(); });
    on(new QShortcut(Qt::ALT | Qt::Key_Right, this), &QShortcut::activated, this, [this] { m_data->MoveNext(); });
}

QString frmRecord::text(const QString &name) const
{
    const QWidget *widget = m_controls.value(name);
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return edit->text();
    if (const auto *combo = qobject_cast<const QComboBox *>(widget))
        return combo->currentText();
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text();
    if (const auto *rich = qobject_cast<const controls::RichTextBox *>(widget))
        return rich->stored();
    return {};
}

// Only a change is a change: setting what stands there already leaves the cursor where the user put it.
void frmRecord::setText(const QString &name, const QString &newText)
{
    if (text(name) == newText)
        return;
    QWidget *widget = m_controls.value(name);
    if (auto *edit = qobject_cast<QLineEdit *>(widget)) {
        edit->setText(newText);
    } else if (auto *combo = qobject_cast<QComboBox *>(widget)) {
        combo->setCurrentIndex(combo->findText(newText));
        if (combo->isEditable())
            combo->setEditText(newText);
    } else if (auto *label = qobject_cast<QLabel *>(widget)) {
        label->setText(newText);
    } else if (auto *rich = qobject_cast<controls::RichTextBox *>(widget)) {
        rich->setStored(newText);
    }
}

bool frmRecord::ticked(const QString &name) const { return control<QAbstractButton>(name)->isChecked(); }

// With its label, and with the line that it stands in, so that the layout closes up.
void frmRecord::setVisible_(const QString &name, bool visible)
{
    control<QWidget>(name)->setVisible(visible);
    if (QLabel *label = m_labels.value(name))
        label->setVisible(visible);
    if (QBoxLayout *beside = m_beside.value(name))
        beside->parentWidget()->setVisible(visible);
}

bool frmRecord::eventFilter(QObject *watched, QEvent *event)
{
    const QString name = watched->objectName();
    const auto *mouse = event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick
        ? static_cast<QMouseEvent *>(event) : nullptr;
    if (m_slots.contains(name)) {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress)
            moveCalcBeside(name);
        if (event->type() == QEvent::KeyPress) {
            const auto *key = static_cast<QKeyEvent *>(event);
            if (key->key() == Qt::Key_F4 || (key->key() == Qt::Key_Down && key->modifiers() & Qt::AltModifier)) {
                basic::Trap([&] { cmdCalc_Click(); });
                return true;
            }
        }
    } else if (name == u"txtEmail" && event->type() == QEvent::MouseButtonDblClick) {
        basic::Trap([&] { txtEmail_DblClick(); });
        return true;
    } else if (name == u"picImage" && event->type() == QEvent::MouseButtonRelease
               && m_section.kind == ReminderKind::Event && m_data->hasRows()) {
        basic::Trap([&] { cmdPicture_Click(); });
    } else if (auto *label = qobject_cast<QLabel *>(watched); label && mouse && mouse->button() == Qt::LeftButton) {
        if (auto *box = qobject_cast<QCheckBox *>(label->buddy()); box && box->isEnabled()) {
            box->setFocus();
            box->click();
        }
    }
    return Form::eventFilter(watched, event);
}

void frmRecord::AllowInput()
{
    const bool rows = m_data->hasRows();
    for (const QString &name : {u"cmdReplicate"_s, u"cmdUpdate"_s, u"cmdDelete"_s, u"cmdSchedule"_s, u"fraBill"_s,
                                u"panFullDetails"_s})
        control<QWidget>(name)->setEnabled(rows);
    for (const QBoxLayout *line : std::as_const(m_beside))
        line->parentWidget()->setEnabled(rows);
}

void frmRecord::cmdCalc_Click()
{
    static constexpr std::pair<QStringView, QStringView> codes[] = {
        {u"txtDate", u"R1"}, {u"txtDateTo", u"R2"}, {u"txtBillingDate", u"R3"}, {u"txtPaymentDate", u"R4"}};
    for (const auto &[box, code] : codes) {
        if (m_calcBox != box || !OpenDatePicker(control<QWidget>(m_calcBox), code.toString()))
            continue;
        if (m_calcBox == u"txtDate")
            correctDate();
    }
}

void frmRecord::cmdWebsite_Click()
{
    const QString address = record::webAddress(text(u"txtWebsite"_s));
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
                           textRoom(m_data->Recordset(), u"FILENAME")});
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
    setVisible_(u"txtEmail"_s, wanted);
    setVisible_(u"lblLastEmailDate"_s, wanted);
    if (!wanted)
        control<QWidget>(u"lblEmail1"_s)->show();
}

void frmRecord::chkCard_Click()
{
    const bool wanted = ticked(u"chkCard"_s);
    setVisible_(u"chkCardBuy"_s, wanted);
    setVisible_(u"chkCardSent"_s, wanted);
}

void frmRecord::cboSubject_Click()
{
    applyBirthday();
    showEventParts();
}

void frmRecord::txtDate_LostFocus()
{
    if (record::number(text(u"lblID1"_s)) == 0)
        return;
    const bool invalid = !rowDate();
    correctDate();              // before the box: it takes the focus, and this runs once more
    if (invalid)
        basic::MsgBox(u"Invalid Date ... defaulting to todays date"_s);
}

void frmRecord::txtEmail_DblClick() { setText(u"txtEmail"_s, record::contactAddress(text(u"lblEmailID"_s))); }

void frmRecord::dtaData_Error(const QString &message) { basic::MsgBox(message, {}, basic::Icon::Exclamation); }

}
