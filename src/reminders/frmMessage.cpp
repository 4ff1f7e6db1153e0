#include "reminders/frmMessage.h"

#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "platform/basic/prompts.h"
#include "platform/controls/keyrow.h"
#include "platform/controls/layout.h"
#include "reminders/messages.h"
#include "session/state.h"

#include <QComboBox>
#include <QFrame>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::Field;
using controls::FieldKind;
using controls::on;
namespace layout = controls::layout;

namespace {

QString shownMoment(const basic::Value &stored)
{
    if (stored.isNull() || !basic::IsDate(stored))
        return stored.text();
    const basic::DateTime moment = basic::CDate(stored);
    return displayDate(moment.dayOnly()) + basic::Format(moment, u" hh:mm A/P");
}

// A name can be typed as well: a message to an unknown name simply waits.
const std::vector<Field> &fieldTable()
{
    static const std::vector<Field> table{
        {.control = u"cboName"_s, .field = u"TO"_s, .kind = FieldKind::List, .label = u"&To:"_s},
        {.control = u"cboFrom"_s, .field = u"FROM"_s, .kind = FieldKind::List, .label = u"&From:"_s},
        {.control = u"txtDate"_s, .field = u"DATE"_s, .label = u"Date:"_s},
        {.control = u"txtMessage"_s, .field = u"MESSAGE"_s, .kind = FieldKind::Lines, .label = u"&Message:"_s},
        {.control = u"chkRead"_s, .field = u"Read"_s, .kind = FieldKind::Check, .label = u"&Read"_s},
        {.control = u"chkDelete"_s, .field = u"Delete"_s, .kind = FieldKind::Check, .beside = true, .label = u"D&elete after date"_s},
    };
    return table;
}

}

frmMessage::frmMessage(QWidget *parent) : RecordForm(u"frmMessage"_s, u"dtaData"_s, parent)
{
    dtaData().setDatabaseName(state().path(DataFile::Main));
    dtaData().setRecordSource(u"SELECT * FROM [Messages] ORDER BY [Date]"_s);
    composeScreen();
    on(&dtaData(), &controls::DataControl::Reposition, handlers(), [this] { dtaData_Reposition(); });
    useRecordKeys();
    onClick(u"cmdNew"_s, [this] { AddNewRecord({}); });
    onClick(u"cmdDelete"_s, [this] { cmdDelete_Click(); });
    onClick(u"cmdSend"_s, [this] { cmdSend_Click(); });
    onClick(u"cmdUpdate"_s, [this] { cmdUpdate_Click(); });
    addShortcut(Qt::CTRL | Qt::Key_Return, u"cmdSend"_s);
    basic::Trap([this] { FillLists(); });
    dtaData().Refresh();
    AllowInput();
}

QWidget *frmMessage::createWidget(const Field &field)
{
    QWidget *widget = RecordForm::createWidget(field);
    if (auto *date = qobject_cast<QLineEdit *>(widget)) {       // when it was written: shown, not typed
        date->setReadOnly(true);
        date->setFrame(false);
        date->setFocusPolicy(Qt::NoFocus);
        date->setBackgroundRole(QPalette::Window);
        QPalette flat = date->palette();
        flat.setColor(QPalette::Base, Qt::transparent);
        date->setPalette(flat);
    } else if (auto *lines = qobject_cast<QPlainTextEdit *>(widget)) {
        lines->setMinimumSize(64 * layout::unit, 20 * layout::unit);
        lines->setMaximumHeight(QWIDGETSIZE_MAX);
    }
    return widget;
}

controls::BindOptions frmMessage::bindOptions(const Field &field) const
{
    controls::BindOptions options = RecordForm::bindOptions(field);
    if (field.control == u"txtDate")
        options.show = shownMoment;
    return options;
}

void frmMessage::composeScreen()
{
    setRecordTitle(u"Messages"_s, {});
    for (const controls::ScreenKey &key : std::vector<controls::ScreenKey>{
             {u"cmdNew"_s, u"&New"_s, u"document-new"_s, u" Writes a new Message "_s},
             {u"cmdDelete"_s, u"De&lete"_s, u"edit-delete"_s, u" Deletes this Message "_s},
             {u"cmdSend"_s, u"&Send"_s, u"mail-send"_s, u" Sends this Message "_s},
             {u"cmdUpdate"_s, u"&Update"_s, u"document-save"_s, u" Saves this Message "_s},
             {u"cmdClose"_s, u"Cl&ose"_s, u"window-close"_s}})
        addButton(key);
    m_form = createFormLayout();
    layout::setMargins(m_form, 2 * layout::unit);
    createFields(fieldTable());
    auto *navigator = new controls::DataNavigator(&dtaData());
    navigator->setObjectName(u"navigator"_s);
    keep(navigator);
    QWidget *keys = createKeyRow({u"navigator"_s, u"cmdNew"_s, u"cmdDelete"_s}, {u"cmdSend"_s, u"cmdUpdate"_s, u"cmdClose"_s});
    auto *rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(m_form, 1);
    column->addWidget(rule);
    column->addWidget(keys);
    QWidgetList chain = fieldChain();
    for (QAbstractButton *step : navigator->findChildren<QAbstractButton *>())
        chain += step;
    for (const QString &name : {u"cmdNew"_s, u"cmdDelete"_s, u"cmdSend"_s, u"cmdUpdate"_s, u"cmdClose"_s})
        chain += control(name);
    chainTabs(chain);
}

void frmMessage::FillLists()
{
    const QStringList names = messageNames();
    for (const QString &name : {u"cboName"_s, u"cboFrom"_s}) {
        auto *list = control<QComboBox>(name);
        const QString typed = list->currentText();
        list->clear();
        list->addItems(names);
        list->setCurrentIndex(list->findText(typed));
        list->setEditText(typed);
    }
}

void frmMessage::AllowInput()
{
    const bool rows = dtaData().hasRows();
    for (const Field &field : fields())
        control(field.control)->setEnabled(rows);
    for (const QString &name : {u"cmdDelete"_s, u"cmdSend"_s, u"cmdUpdate"_s})
        control(name)->setEnabled(rows);
}

void frmMessage::dtaData_Reposition()
{
    const bool rows = dtaData().hasRows() && dtaData().Recordset() && !dtaData().Recordset().EOF_();
    setRecordTitle(u"Messages"_s, rows ? text(u"cboName"_s) : QString());
    if (rows)
        m_outcome.lastId = basic::CLng(dtaData().Recordset().Get(u"ID"));
}

// A message that New added and that was left empty is not kept.
void frmMessage::removeEmpty()
{
    if (m_added != 0)
        removeEmptyMessage(dtaData().Database(), std::exchange(m_added, 0));
}

void frmMessage::AddNewRecord(const QString &)
{
    if (!dtaData().UpdateRecord())
        return;
    removeEmpty();
    dtaData().Refresh();
    if (!dtaData().Recordset())
        return;
    dtaData().setBookmark(addMessage(dtaData().Recordset()));
    m_added = m_outcome.lastId;
    AllowInput();
    control(u"cboName"_s)->setFocus();
}

void frmMessage::cmdUpdate_Click()
{
    if (!dtaData().hasRows() || !dtaData().UpdateRecord())
        return;
    FillLists();
    dao::DBEngine::Idle(dao::dbRefreshCache);
    dtaData_Reposition();
    showState(u"Saved"_s);
}

// The row is what the other user finds; the network's own message, where there is such a service, only speaks of it.
void frmMessage::cmdSend_Click()
{
    if (!dtaData().hasRows())
        return;
    const auto ask = [this](const QString &words, const QString &field) {
        basic::MsgBox(words, {}, basic::Icon::Information);
        control(field)->setFocus();
    };
    const QString to = text(u"cboName"_s).trimmed(), message = text(u"txtMessage"_s);
    if (to.isEmpty())
        return ask(u"Choose a recipient."_s, u"cboName"_s);
    if (message.trimmed().isEmpty())
        return ask(u"Type a message."_s, u"txtMessage"_s);
    cmdUpdate_Click();
    if (dtaData().isDirty())
        return;
    SendNetMessage(to, text(u"cboFrom"_s), message);
    showState(u"Left for "_s + to);
}

void frmMessage::cmdDelete_Click()
{
    if (!dtaData().hasRows() || !basic::askYesNo(u"Do you want to Delete this Record ?"_s, u"Question?"_s))
        return;
    dtaData().revert();                         // the edits are discarded with the row
    dao::Recordset &rows = dtaData().Recordset();
    const qsizetype here = rows.AbsolutePosition();
    rows.Delete();
    dtaData().Refresh();
    if (dtaData().hasRows()) {
        const qsizetype next = std::min(here, dtaData().Recordset().rowTotal() - 1);
        dtaData().setBookmark(dtaData().Recordset().bookmarkAt(next));
    }
    AllowInput();
}

bool frmMessage::QueryUnload()
{
    if (!RecordForm::QueryUnload())
        return false;
    removeEmpty();
    return true;
}

}
