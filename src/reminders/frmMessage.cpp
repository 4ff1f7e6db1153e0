#include "reminders/frmMessage.h"

#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "platform/basic/prompts.h"
#include "platform/controls/layout.h"
#include "reminders/messages.h"
#include "session/changes.h"
#include "session/state.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

namespace {

constexpr int nameSize = 30;                // of TO and FROM

QString shownMoment(const basic::Value &stored)
{
    if (stored.isNull() || !basic::IsDate(stored))
        return stored.text();
    const basic::DateTime moment = basic::CDate(stored);
    return displayDate(moment.dayOnly()) + basic::Format(moment, u" hh:mm A/P");
}

}

frmMessage::frmMessage(QWidget *parent) : Form(u"frmMessage"_s, parent), m_data(new controls::DataControl(this))
{
    m_data->setObjectName(u"dtaData"_s);
    m_data->setDatabaseName(state().path(DataFile::Main));
    m_data->setConnect(u"Access"_s);
    m_data->setRecordSource(u"SELECT * FROM [Messages] ORDER BY [Date]"_s);
    createFields();
    composeScreen();
    connectHandlers();
    basic::Trap([this] { FillLists(); });
    m_data->Refresh();
    AllowInput();
}

frmMessage::~frmMessage()
{
    m_data->disconnect(this);
}

// A name can be typed as well: a message to nobody the file knows simply waits.
QComboBox *frmMessage::createNames(const QString &name)
{
    auto *made = new QComboBox(this);
    made->setObjectName(name);
    made->setEditable(true);
    made->setInsertPolicy(QComboBox::NoInsert);
    made->lineEdit()->setMaxLength(nameSize);
    return made;
}

void frmMessage::createFields()
{
    cboName = createNames(u"cboName"_s);
    cboFrom = createNames(u"cboFrom"_s);
    txtDate = new QLineEdit(this);
    txtDate->setObjectName(u"txtDate"_s);
    txtDate->setReadOnly(true);                 // when it was written
    txtMessage = new QPlainTextEdit(this);
    txtMessage->setObjectName(u"txtMessage"_s);
    txtMessage->setTabChangesFocus(true);
    txtMessage->setMinimumSize(64 * layout::unit, 20 * layout::unit);
    const auto check = [this](const QString &name, const QString &caption) {
        auto *made = new QCheckBox(caption, this);
        made->setObjectName(name);
        return made;
    };
    chkRead = check(u"chkRead"_s, u"&Read"_s);
    chkDelete = check(u"chkDelete"_s, u"D&elete after date"_s);
    lblState = new QLabel(this);
    lblState->setObjectName(u"lblState"_s);
    lblState->setTextFormat(Qt::PlainText);
    cmdNew = controls::button(u"cmdNew"_s, u"&New"_s, u"document-new"_s, u" Writes a new Message "_s);
    cmdDelete = controls::button(u"cmdDelete"_s, u"De&lete"_s, u"edit-delete"_s, u" Deletes this Message "_s);
    cmdSend = controls::button(u"cmdSend"_s, u"&Send"_s, u"mail-send"_s, u" Sends this Message "_s);
    cmdUpdate = controls::button(u"cmdUpdate"_s, u"&Update"_s, u"document-save"_s, u" Saves this Message "_s);
    cmdClose = controls::button(u"cmdClose"_s, u"Cl&ose"_s, u"window-close"_s);

    m_data->bind(cboName, u"TO"_s);
    m_data->bind(cboFrom, u"FROM"_s);
    m_data->bind(txtDate, u"DATE"_s, {shownMoment, {}});
    m_data->bind(txtMessage, u"MESSAGE"_s);
    m_data->bind(chkRead, u"Read"_s);
    m_data->bind(chkDelete, u"Delete"_s);
}

void frmMessage::composeScreen()
{
    setWindowTitle(u"Messages"_s);
    QLayout *fields = layout::Fields({{u"&To:"_s, cboName},
                                      {u"&From:"_s, cboFrom},
                                      {u"Date:"_s, txtDate},
                                      {u"&Message:"_s, txtMessage},
                                      {QString(), layout::Row({chkRead, layout::Space{2 * layout::unit}, chkDelete,
                                                               layout::Stretch{}, lblState})}});
    layout::setMargins(fields, 2 * layout::unit);
    auto *navigator = new controls::DataNavigator(m_data);
    QLayout *keys = layout::Row({navigator, layout::Space{2 * layout::unit}, cmdNew, cmdDelete, layout::Stretch{}, cmdSend,
                                 cmdUpdate, cmdClose});
    layout::setMargins(keys, 2 * layout::unit);
    auto *rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(fields, 1);
    column->addWidget(rule);
    column->addLayout(keys);
    QWidgetList chain{cboName, cboFrom, txtDate, txtMessage, chkRead, chkDelete};
    for (QAbstractButton *step : navigator->findChildren<QAbstractButton *>())
        chain += step;
    chain += QWidgetList{cmdNew, cmdDelete, cmdSend, cmdUpdate, cmdClose};
    for (qsizetype i = 1; i < chain.size(); ++i)
        setTabOrder(chain[i - 1], chain[i]);
}

void frmMessage::connectHandlers()
{
    on(m_data, &controls::DataControl::Reposition, this, [this] { dtaData_Reposition(); });
    on(m_data, &controls::DataControl::Error, this,
       [](int, const QString &text) { basic::MsgBox(text, {}, basic::Icon::Exclamation); });
    on(cmdNew, &QAbstractButton::clicked, this, [this] { AddNewRecord({}); });
    on(cmdDelete, &QAbstractButton::clicked, this, [this] { cmdDelete_Click(); });
    on(cmdSend, &QAbstractButton::clicked, this, [this] { cmdSend_Click(); });
    on(cmdUpdate, &QAbstractButton::clicked, this, [this] { cmdUpdate_Click(); });
    on(cmdClose, &QAbstractButton::clicked, this, [this] { Close(); });
    const auto key = [this](const QKeySequence &keys, QAbstractButton *button) {
        connect(new QShortcut(keys, this), &QShortcut::activated, button, &QAbstractButton::click);
    };
    key(QKeySequence::New, cmdNew);
    key(QKeySequence::Save, cmdUpdate);
    key(Qt::CTRL | Qt::Key_Return, cmdSend);
    on(new QShortcut(Qt::ALT | Qt::Key_Left, this), &QShortcut::activated, this, [this] { m_data->MovePrevious(); });
    on(new QShortcut(Qt::ALT | Qt::Key_Right, this), &QShortcut::activated, this, [this] { m_data->MoveNext(); });
}

void frmMessage::FillLists()
{
    const QStringList names = messageNames();
    for (QComboBox *list : {cboName, cboFrom}) {
        const QString typed = list->currentText();
        list->clear();
        list->addItems(names);
        list->setCurrentIndex(list->findText(typed));
        list->setEditText(typed);
    }
}

void frmMessage::AllowInput()
{
    const bool rows = m_data->hasRows();
    for (QWidget *widget : QWidgetList{cboName, cboFrom, txtDate, txtMessage, chkRead, chkDelete, cmdDelete, cmdSend, cmdUpdate})
        widget->setEnabled(rows);
}

void frmMessage::dtaData_Reposition()
{
    lblState->clear();
    if (m_data->hasRows() && m_data->Recordset() && !m_data->Recordset().EOF_())
        m_outcome.lastId = basic::CLng(m_data->Recordset().Get(u"ID"));
}

void frmMessage::AddNewRecord(const QString &)
{
    if (!m_data->UpdateRecord())
        return;
    m_data->Refresh();
    if (!m_data->Recordset())
        return;
    m_data->setBookmark(addMessage(m_data->Recordset()));
    AllowInput();
    cboName->setFocus();
}

void frmMessage::cmdUpdate_Click()
{
    if (!m_data->hasRows() || !m_data->UpdateRecord())
        return;
    FillLists();
    dao::DBEngine::Idle(dao::dbRefreshCache);
    lblState->setText(u"Saved"_s);
}

// The row is what the other user finds; the network's own message, where there is such a service, only tells of it.
void frmMessage::cmdSend_Click()
{
    if (!m_data->hasRows())
        return;
    const QString to = cboName->currentText().trimmed();
    if (to.isEmpty()) {
        basic::MsgBox(u"Please say who the Message is for"_s, {}, basic::Icon::Information);
        cboName->setFocus();
        return;
    }
    cmdUpdate_Click();
    if (m_data->isDirty())
        return;
    SendNetMessage(to, cboFrom->currentText(), txtMessage->toPlainText());
    lblState->setText(u"Left for "_s + to);
}

void frmMessage::cmdDelete_Click()
{
    if (!m_data->hasRows() || !basic::askYesNo(u"Do you want to Delete this Record ?"_s, u"Question?"_s))
        return;
    m_data->revert();                           // what was typed goes with the row
    dao::Recordset &rows = m_data->Recordset();
    const qsizetype here = rows.AbsolutePosition();
    rows.Delete();
    m_data->Refresh();
    if (m_data->hasRows()) {
        const qsizetype next = std::min(here, m_data->Recordset().rowTotal() - 1);
        m_data->setBookmark(m_data->Recordset().bookmarkAt(next));
    }
    AllowInput();
}

// Every road out writes what was typed; what cannot be saved keeps the screen open, once.
bool frmMessage::QueryUnload()
{
    return m_data->Leave();
}

void frmMessage::Unload()
{
    emit Changes::instance().changed(u"MESSAGES"_s);
}

}
