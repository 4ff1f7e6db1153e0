#include "contacts/frmNewContact.h"

#include "platform/basic/prompts.h"
#include "platform/controls/layout.h"
#include "session/recordtree.h"
#include "session/shared.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

frmNewContact::frmNewContact(const QString &name, bool isPrivate, QWidget *parent)
    : Form(u"frmNewContact"_s, parent), m_private(new QCheckBox(u"&Private"_s, this))
{
    setWindowTitle(u"New Contact"_s);
    m_private->setObjectName(u"chkPrivate"_s);
    m_private->setChecked(isPrivate);
    auto *save = controls::button(u"cmdSave"_s, u"Sa&ve"_s, u"document-save"_s, u" Saves this Contact "_s);
    auto *close = controls::button(u"cmdClose"_s, u"Cl&ose"_s, u"window-close"_s);
    auto *all = new QVBoxLayout(this);
    layout::setMargins(all, 2 * layout::unit);
    all->setSpacing(2 * layout::unit);
    for (QWidget *part : {static_cast<QWidget *>(m_private), createPrivate(), createBusiness(), createNames()})
        all->addWidget(part);
    all->addStretch(1);
    all->addLayout(layout::Row({layout::Stretch{}, save, close}));
    setMinimumWidth(60 * layout::unit);
    on(save, &QAbstractButton::clicked, handlers(), [this] { cmdSave_Click(); });
    on(close, &QAbstractButton::clicked, handlers(), [this] { Close(); });
    on(m_private, &QCheckBox::clicked, handlers(), [this] { chkPrivate_Click(); });
    auto *first = findChild<QLineEdit *>(isPrivate ? u"txtSurname"_s : u"txtCompanyName"_s);
    first->setText(name);
    first->setFocus();
    chkPrivate_Click();
}

// What a query quotes takes no apostrophe.
QLineEdit *frmNewContact::createText(const QString &name, int room)
{
    auto *edit = new QLineEdit(this);
    edit->setObjectName(name);
    edit->setMaxLength(room);
    on(edit, &QLineEdit::textChanged, handlers(), [this, edit](const QString &text) {
        if (text.contains(u'\'')) {
            const int at = edit->cursorPosition();
            edit->setText(graveApostrophes(text));
            edit->setCursorPosition(at);
            return;
        }
        UpdateRecord();
    });
    return edit;
}

QComboBox *frmNewContact::createList(const QString &name, const QStringList &choices, int room)
{
    auto *list = new QComboBox(this);
    list->setObjectName(name);
    list->setEditable(true);
    list->addItems(choices);
    list->setCurrentText({});
    list->lineEdit()->setMaxLength(room);
    return list;
}

QWidget *frmNewContact::createPrivate()
{
    m_person = qobject_cast<QGroupBox *>(layout::Group(u"fraPrivate"_s, u"Person"_s, layout::Fields({
        {u"Salu&tation"_s, createList(u"cboSalutation"_s, {u"Mr."_s, u"Mrs."_s, u"Miss."_s, u"Ms."_s, u"Dr."_s}, 15)},
        {u"&Gender"_s, createList(u"cboGender"_s, {u"Female"_s, u"Male"_s}, 10)},
        {u"&First name"_s, createText(u"txtFirstName"_s, 100)},
        {u"&Middle name"_s, createText(u"txtMiddleName"_s, 100)},
        {u"&Last name"_s, createText(u"txtSurname"_s, 100)}})));
    return m_person;
}

QWidget *frmNewContact::createBusiness()
{
    // The company is the last name too, which holds less.
    m_business = qobject_cast<QGroupBox *>(layout::Group(u"fraBusiness"_s, u"Business"_s, layout::Fields({
        {u"Compan&y"_s, createText(u"txtCompanyName"_s, 100)},
        {u"&Business #"_s, createText(u"txtABN"_s, 25)},
        {u"&Contact"_s, createText(u"txtContact"_s, 200)},
        {u"Mana&ger"_s, createText(u"txtManager"_s, 100)},
        {u"&Assistant"_s, createText(u"txtAssistantName"_s, 50)}})));
    return m_business;
}

QWidget *frmNewContact::createNames()
{
    const auto label = [this](const QString &name) {
        auto *shown = new QLabel(this);
        shown->setObjectName(name);
        shown->setTextFormat(Qt::PlainText);
        shown->setWordWrap(true);
        return shown;
    };
    m_full = label(u"txtFullName"_s);
    m_sort = label(u"lblSortname"_s);
    m_fileAs = label(u"lblFileAs"_s);
    return layout::Group(u"fraNames"_s, u"Shown as"_s,
                         layout::Fields({{u"Full name"_s, m_full}, {u"Sort name"_s, m_sort}, {u"Filed as"_s, m_fileAs}}));
}

contacts::NewContact frmNewContact::typed() const
{
    const auto text = [this](const QString &name) { return findChild<QLineEdit *>(name)->text(); };
    const auto chosen = [this](const QString &name) { return findChild<QComboBox *>(name)->currentText(); };
    const bool isPrivate = m_private->isChecked();
    contacts::NewContact contact;
    contact.name.isPrivate = isPrivate;
    if (isPrivate) {
        contact.name.lastName = text(u"txtSurname"_s);
        contact.name.firstName = text(u"txtFirstName"_s);
        contact.name.middleName = text(u"txtMiddleName"_s);
        contact.gender = chosen(u"cboGender"_s);
        contact.title = chosen(u"cboSalutation"_s);
    } else {
        contact.name.companyName = text(u"txtCompanyName"_s);
        contact.businessNumber = text(u"txtABN"_s);
        contact.contact = text(u"txtContact"_s);
        contact.manager = text(u"txtManager"_s);
        contact.assistant = text(u"txtAssistantName"_s);
    }
    contact.name = contacts::applyNameRule(contact.name, !isPrivate || records::namesInCapitals());
    return contact;
}

void frmNewContact::UpdateRecord()
{
    if (!m_fileAs)                          // still being built
        return;
    const contacts::ContactName name = typed().name;
    m_full->setText(name.fullName);
    m_sort->setText(name.sortName);
    m_fileAs->setText(name.fileAs);
}

void frmNewContact::chkPrivate_Click()
{
    m_person->setVisible(m_private->isChecked());
    m_business->setVisible(!m_private->isChecked());
    UpdateRecord();
}

void frmNewContact::cmdSave_Click()
{
    const contacts::NewContact contact = typed();
    if (contact.name.sortName.trimmed().isEmpty()) {
        basic::prompts().beep();
        findChild<QLineEdit *>(m_private->isChecked() ? u"txtSurname"_s : u"txtCompanyName"_s)->setFocus();
        return;
    }
    m_id = contacts::addContact(contact);
    Close();
}

}
