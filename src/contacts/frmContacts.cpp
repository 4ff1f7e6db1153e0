#include "contacts/frmContacts.h"

#include "contacts/categories.h"
#include "contacts/frmCategories.h"
#include "contacts/frmEdit.h"
#include "contacts/newcontact.h"
#include "contacts/recordcase.h"
#include "media/frmDataPath.h"
#include "platform/basic/convert.h"
#include "platform/basic/prompts.h"
#include "platform/controls/layout.h"
#include "platform/desktop/hourglass.h"
#include "print/envelope.h"
#include "records/frmSectionPanel.h"
#include "reminders/greetings.h"
#include "session/later.h"
#include "session/recordtree.h"
#include "session/shared.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

namespace {

const QStringList addressParts{u"Street"_s, u"City"_s, u"State"_s, u"PostalCode"_s, u"Country"_s, u"PostOfficeBox"_s, {}};

QString addressControl(const QString &kind, const QString &part)
{
    const bool isList = part == u"City" || part == u"State" || part == u"Country";
    return (isList ? u"cbo"_s : u"txt"_s) + kind + u"Address"_s + part;
}

}

frmContacts::frmContacts(QWidget *parent) : frmSection(records::contactsRecord(), parent)
{
    Load();
}

void frmContacts::createOwn()
{
    createDates();
    connectDates();
    QWidgetList copies;
    for (const controls::ScreenKey &key : {controls::ScreenKey{u"cmdPostal"_s, u"&Home as Postal"_s, {}, u" Copies the home address "_s},
                                           {u"cmdBusAsPostal"_s, u"Busine&ss as Postal"_s, {}, u" Copies the business address "_s},
                                           {u"cmdEnvelope"_s, u"&Envelope..."_s, u"document-print"_s, u" Prints an envelope "_s}})
        copies += addButton(key);
    panel(u"panAddress"_s)->column()->insertLayout(1, layout::Row({copies[0], copies[1], copies[2], layout::Stretch{}}));
    QPushButton *sort = addButton({u"cmdSortPic"_s, u"View &All Pictures..."_s, {}, u" Shows and sorts all pictures "_s});
    panel(u"picPictures"_s)->column()->addLayout(layout::Row({layout::Stretch{}, sort}));

    onClick(u"cmdPostal"_s, [this] { copyAddress(u"Home"_s); });
    onClick(u"cmdBusAsPostal"_s, [this] { copyAddress(u"Business"_s); });
    onClick(u"cmdEnvelope"_s, [this] { cmdEnvelope_Click(); });
    onClick(u"cmdSortPic"_s, [] { showLater(u"The page of all pictures"_s); });
    onClick(u"cmdOutlook"_s, [] { showLater(u"The mail program's address book"_s); });
    onClick(u"cmdCats"_s, [this] { cmdCats_Click(); });
    onClick(u"cmdUCase"_s, [this] { cmdUCase_Click(); });
    onClick(u"cmdRefresh"_s, [this] { cmdRefresh_Click(); });
    onClick(u"chkPrivate"_s, [this] { chkPrivate_Click(); });
    on(control<QComboBox>(u"cboSalutation"_s), &QComboBox::activated, handlers(), [this] { cboSalutation_Click(); });
}

contacts::ContactName frmContacts::shownName() const
{
    return {.isPrivate = ticked(u"chkPrivate"_s), .lastName = text(u"txtSurname"_s), .firstName = text(u"txtFirstName"_s),
            .middleName = text(u"txtMiddleName"_s), .companyName = text(u"txtCompanyName"_s)};
}

void frmContacts::UpdateRecord()
{
    const contacts::ContactName name = contacts::applyNameRule(shownName(), records::namesInCapitals());
    for (const auto &[control, words] : {std::pair{u"txtCompanyName"_s, name.companyName}, {u"txtSurname"_s, name.lastName},
                                         {u"txtFirstName"_s, name.firstName}, {u"txtMiddleName"_s, name.middleName},
                                         {u"txtFullName"_s, name.fullName}, {u"lblSortname"_s, name.sortName}, {u"lblFileAs"_s, name.fileAs}})
        setText(control, words);
}

void frmContacts::rowShown()
{
    m_nameShown = text(u"txtFullName"_s);
    if (basic::Val(text(u"lblNewImport"_s)) != 0 && text(u"cboCategory"_s).isEmpty())
        setText(u"cboCategory"_s, u"UnCategorised"_s);
    m_categoryShown = text(u"cboCategory"_s);
    FormatDates();
}

void frmContacts::tabShown(int)
{
    FormatDates();
}

// A business that becomes a person keeps what it has; a person who becomes a business has no first name and no home.
void frmContacts::chkPrivate_Click()
{
    if (!dtaData().hasRows())
        return;
    if (!ticked(u"chkPrivate"_s)) {
        contacts::ContactName name = shownName();
        contacts::makeBusiness(name);
        setText(u"txtCompanyName"_s, name.companyName);
        setText(u"txtFirstName"_s, {});
        setText(u"txtMiddleName"_s, {});
        for (const QString &part : addressParts)
            setText(addressControl(u"Home"_s, part), {});
    }
    UpdateRecord();
}

void frmContacts::cboSalutation_Click()
{
    const QString title = text(u"cboSalutation"_s);
    if (title.contains(u'&') || title.contains(u"and"_s)) {
        setText(u"cboGender"_s, u"N/A"_s);
        setText(u"txtSpouse"_s, u"N/A"_s);
    } else if (title == u"Mr." || title == u"Sir.") {
        setText(u"cboGender"_s, u"Male"_s);
    } else if (title == u"Mrs." || title == u"Miss." || title == u"Ms.") {
        setText(u"cboGender"_s, u"Female"_s);
    }
}

bool frmContacts::prepareSave()
{
    if (ticked(u"chkPrivate"_s) && text(u"txtSurname"_s).trimmed().isEmpty()
        && basic::askYesNo(u"You have identified this Contact as Private,\r\nYet you have not entered a last name\r\nClick Yes to edit!"_s,
                           u"Incomplete Contact"_s)) {
        revealField(control<QWidget>(u"txtSurname"_s));
        control<QWidget>(u"txtSurname"_s)->setFocus();
        return false;
    }
    m_saving = true;
    return true;
}

// Once for each save: the rule empties what a second pass would build on.
void frmContacts::tidyRow(bool changed)
{
    if (!dtaData().hasRows())
        return;
    if (basic::Val(text(u"lblNewImport"_s)) != 0)
        setText(u"lblNewImport"_s, u"0"_s);             // it has been looked at
    if (std::exchange(m_saving, false) || changed) {
        UpdateRecord();
        followCategory();
    }
}

// A contact that comes into a category that is put away would be the only one of it on show. It goes there only with the user's
// knowledge: it leaves the lists, too.
void frmContacts::followCategory()
{
    const QString category = text(u"cboCategory"_s);
    if (category.compare(m_categoryShown, Qt::CaseInsensitive) == 0 || !contacts::isPutAway(state().path(design().file), category))
        return;
    if (basic::askYesNo(u"The category \"%1\" is put away.\r\nDo you want to put this Contact away, too?"_s.arg(shownApostrophes(category)),
                        u"Categories"_s))
        setText(u"lblInvisible"_s, u"True"_s);
}

void frmContacts::afterSave()
{
    if (text(u"txtFullName"_s) != m_nameShown)
        CheckForDuplicates();
    if (isLinked())
        showLater(u"The update of the mail program's address book"_s);
    if (text(u"lblInvisible"_s) == u"True")
        readAgain();
}

// The row itself counts.
void frmContacts::CheckForDuplicates()
{
    const QString name = text(u"txtFullName"_s);
    if (!name.trimmed().isEmpty() && contacts::countOfName(state().path(design().file), name) > 1) {
        basic::prompts().beep();
        basic::MsgBox(u"You already have this person Entered"_s);
    }
}

bool frmContacts::isLinked() const
{
    return mailByAutomation() && !text(u"lblEntryID"_s).trimmed().isEmpty();
}

void frmContacts::afterDelete(qint32)
{
    FillLists();
    if (m_wasLinked)
        showLater(u"The deletion in the mail program's address book"_s);
}

void frmContacts::copyAddress(const QString &from)
{
    for (const QString &part : addressParts)
        setText(addressControl(u"Mailing"_s, part), text(addressControl(from, part)));
}

// To the postal address; without one to the home, or to the business.
void frmContacts::cmdEnvelope_Click()
{
    const auto isFilled = [this](const QString &kind) {
        return std::any_of(addressParts.begin(), addressParts.end(),
                           [&](const QString &part) { return !part.isEmpty() && !text(addressControl(kind, part)).trimmed().isEmpty(); });
    };
    const bool isPrivate = ticked(u"chkPrivate"_s);
    const QString kind = isFilled(u"Mailing"_s) ? u"Mailing"_s : isPrivate ? u"Home"_s : u"Business"_s;
    const auto part = [&](const QString &name) { return text(addressControl(kind, name)); };
    const QString name = isPrivate ? text(u"txtFirstName"_s).trimmed() + u' ' + text(u"txtSurname"_s).trimmed() : text(u"txtCompanyName"_s);
    printEnvelope(addressLines({.name = shownApostrophes(name).trimmed(), .postOfficeBox = part(u"PostOfficeBox"_s), .street = part(u"Street"_s),
                                .city = part(u"City"_s), .state = part(u"State"_s), .postalCode = part(u"PostalCode"_s),
                                .country = part(u"Country"_s)}));
}

void frmContacts::cmdCats_Click()
{
    if (!dtaData().Leave())
        return;
    frmCategories categories(state().path(design().file), this);
    categories.ShowModal();
    readAgain();
}

// All names are written anew, those of the other sections too.
void frmContacts::cmdUCase_Click()
{
    if (!dtaData().Leave())
        return;
    {
        const desktop::Hourglass busy;
        basic::Trap([] { contacts::ConvertRecordCase(); });
    }
    readAgain();
    control<QWidget>(u"TreeView"_s)->setFocus();
}

void frmContacts::cmdRefresh_Click()
{
    if (dtaData().Leave())
        readAgain();
}

void frmContacts::readAgain()
{
    const qint32 id = currentId();
    dao::DBEngine::Idle(dao::dbRefreshCache);
    if (!dtaData().Refresh())               // the reason has been shown; what is on show stays
        return;
    if (id != 0)
        dtaData().FindFirst(u"ID="_s + QString::number(id));
    FillContactsTree();
    FillCategories();
    AllowInput();
}

QString frmContacts::pageHeading() const
{
    const QString name = shownApostrophes(text(u"txtFullName"_s)).trimmed();
    return name.isEmpty() ? frmSection::pageHeading() : name;
}

// The telephone at work and the position are named one way for a person and another for a business.
std::vector<records::ViewBlock> frmContacts::pageBlocks() const
{
    const bool isPrivate = ticked(u"chkPrivate"_s);
    const QStringList others = isPrivate ? QStringList{u"BUSINESS   :"_s, u"POSITION  :"_s} : QStringList{u"WORK   :"_s, u"JOB TITLE  :"_s};
    std::vector<records::ViewBlock> blocks = frmSection::pageBlocks();
    std::erase_if(blocks, [&](const records::ViewBlock &block) { return others.contains(block.label); });
    return blocks;
}

QWidgetList frmContacts::buttonsBeside(const controls::Field &field)
{
    if (field.control.startsWith(u"txtEmail"_s) && field.control.endsWith(u"Address"_s)) {
        const QString name = memberName(u"cmdEmail"_s, field.control.mid(8, 1).toInt() - 1);
        QPushButton *write = addButton({name, {}, u"mail-message-new"_s, u" Writes an E-mail to this address "_s});
        onClick(name, [this, &field] { runAction(field); });
        return {write};
    }
    return frmSection::buttonsBeside(field);
}

// What was refused may be a name that the rule has built and that no box shows.
void frmContacts::revealField(QWidget *widget)
{
    if (!widget->isVisibleTo(this) && widget->focusPolicy() == Qt::NoFocus) {
        frmSection::revealField(control<QWidget>(u"txtSurname"_s));
        control<QWidget>(u"txtSurname"_s)->setFocus();
        return;
    }
    frmSection::revealField(widget);
}

void frmContacts::runAction(const controls::Field &field)
{
    if (field.control == u"txtLanguage") {
        setText(field.control, text(field.control) == u"English" ? u"*English*"_s : u"English"_s);
    } else if (field.action.startsWith(u"&Enlarge"_s)) {
        const QString caption = field.label.isEmpty() ? field.spoken : QString(field.label).remove(u'&');
        if (const auto words = enlargedEdit(caption, text(field.control), textRoom(dtaData().Recordset(), field.field), this))
            setText(field.control, *words);
    } else {
        frmSection::runAction(field);
    }
}

}
