#include "contacts/frmInfoCard.h"

#include "platform/basic/prompts.h"
#include "platform/controls/keyrow.h"
#include "platform/controls/layout.h"
#include "platform/printer/printer.h"
#include "session/datafiles.h"
#include "utilities/frmInformation.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QStringListModel>
#include <QTreeWidget>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

namespace {

constexpr int entryRole = Qt::UserRole;         // the lines of an entry, the name first

QLabel *heading(const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

// What an empty list says in its middle.
QLabel *noteIn(QAbstractScrollArea *list)
{
    auto *note = new QLabel;
    note->setWordWrap(true);
    note->setAlignment(Qt::AlignCenter);
    note->setEnabled(false);
    auto *middle = new QVBoxLayout(list->viewport());
    middle->addWidget(note);
    return note;
}

const QString cardNote = QStringLiteral(
    "<html><h3>ADDRESS AND PHONE CARD PRINTOUT</h3>"
    "<p>This feature prints a purse, wallet or pocket size list of the people whom you want to reach wherever you are.</p>"
    "<ol><li>Choose a contact at the left.</li>"
    "<li>Tick the items that the card should have. The next contact starts with the same ticks.</li>"
    "<li>Add puts the name and these items on the card. It holds up to 20 entries; drag them into the order that you like, or "
    "move one by Ctrl and the arrow keys. A double click or Del removes one.</li>"
    "<li>Print sends the card to the printer. Cut along the lines, fold it, and have it laminated.</li></ol></html>");

}

frmInfoCard::frmInfoCard(std::function<void(qint32 id)> open, QWidget *parent)
    : Form(u"frmInfoCard"_s, parent), m_open(std::move(open)), lstContacts(new QListView), lvInfo(new QTreeWidget), lstList(new QListWidget), m_count(new QLabel),
      m_state(new QLabel), m_hint(noteIn(lvInfo)), m_cardHint(noteIn(lstList)),
      cmdAdd(controls::button(u"cmdAdd"_s, u"&Add"_s, u"list-add"_s, u" Adds the ticked items to the card "_s)),
      cmdPrint(controls::button(u"cmdPrint"_s, u"&Print"_s, u"document-print"_s, u" Prints the card "_s)),
      cmdContact(controls::button(u"cmdContact"_s, u"&Contact..."_s, u"view-pim-contacts"_s, u" Opens the contact "_s))
{
    setWindowTitle(u" Address and Phone Card"_s);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    QLayout *lists = composeLists();
    layout::setMargins(lists, 2 * layout::unit);
    whole->addLayout(lists, 1);
    whole->addWidget(composeKeys());
    resize(116 * layout::unit, 70 * layout::unit);
    on(cmdAdd, &QAbstractButton::clicked, handlers(), [this] { cmdAdd_Click(); });
    on(lvInfo, &QTreeWidget::itemChanged, handlers(), [this] { rememberTicks(); });
    on(lstContacts->selectionModel(), &QItemSelectionModel::currentRowChanged, handlers(), [this] { showItems(); });
    on(lstContacts, &QListView::doubleClicked, handlers(), [this] { cmdAdd_Click(); });
    on(lstList, &QListWidget::itemDoubleClicked, handlers(), [this] { removeEntry(); });
    basic::Trap([this] { FillContacts(); });
    entriesChanged();
    lstContacts->setFocus();
}

QLayout *frmInfoCard::composeLists()
{
    lstContacts->setObjectName(u"lstContacts"_s);
    lstContacts->setUniformItemSizes(true);
    lstContacts->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstContacts->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstContacts->setModel(new QStringListModel(lstContacts));
    lvInfo->setObjectName(u"lvInfo"_s);
    lvInfo->setHeaderLabels({u"CATEGORY"_s, u"DATA"_s});
    lvInfo->setRootIsDecorated(false);
    lvInfo->setUniformRowHeights(true);
    lvInfo->setAllColumnsShowFocus(true);
    lvInfo->header()->setSectionsMovable(false);
    lvInfo->header()->resizeSection(0, 18 * layout::unit);
    lstList->setObjectName(u"lstList"_s);
    lstList->setDragDropMode(QAbstractItemView::InternalMove);
    lstList->setDefaultDropAction(Qt::MoveAction);
    lstList->setAlternatingRowColors(true);
    lstList->setWordWrap(true);
    lstList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstList->installEventFilter(this);
    m_count->setObjectName(u"lblCount"_s);
    for (QAbstractItemView *list : std::initializer_list<QAbstractItemView *>{lstContacts, lvInfo, lstList})
        layout::setRoomyRows(list);

    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(2 * layout::unit);
    grid->setVerticalSpacing(layout::unit);
    grid->addWidget(heading(u"C&ontacts"_s, lstContacts), 0, 0);
    grid->addWidget(heading(u"&Items of this contact"_s, lvInfo), 0, 1);
    grid->addWidget(heading(u"On the car&d"_s, lstList), 0, 2);
    grid->addWidget(lstContacts, 1, 0, 2, 1);
    grid->addWidget(lvInfo, 1, 1);
    grid->addWidget(lstList, 1, 2);
    grid->addLayout(layout::Row({layout::Stretch{}, cmdAdd}), 2, 1);
    grid->addWidget(m_count, 2, 2);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 4);
    grid->setColumnStretch(2, 3);
    return grid;
}

QWidget *frmInfoCard::composeKeys()
{
    m_state->setObjectName(u"lblState"_s);
    m_state->setAlignment(Qt::AlignCenter);
    QAbstractButton *info = controls::button(u"cmdInfo"_s, u"I&nformation"_s, u"help-about"_s, u" What the card is for "_s);
    QAbstractButton *close = controls::button(u"cmdClose"_s, u"C&lose"_s, u"window-close"_s);
    on(info, &QAbstractButton::clicked, handlers(), [this] { cmdInfo_Click(); });
    on(cmdContact, &QAbstractButton::clicked, handlers(), [this] { cmdContact_Click(); });
    on(cmdPrint, &QAbstractButton::clicked, handlers(), [this] { cmdPrint_Click(); });
    on(close, &QAbstractButton::clicked, handlers(), [this] { Close(); });
    auto *keys = new controls::KeyRow({info, cmdContact}, m_state, {cmdPrint, close}, this);
    layout::chainTabs({lstContacts, lvInfo, cmdAdd, lstList, info, cmdContact, cmdPrint, close});
    return keys;
}

void frmInfoCard::FillContacts()
{
    if (!m_database)
        m_database = openDataFile(DataFile::Contacts);
    const QModelIndex before = lstContacts->currentIndex();
    auto *names = qobject_cast<QStringListModel *>(lstContacts->model());
    names->setStringList(cardContacts(m_database));
    if (names->rowCount() > 0)
        lstContacts->setCurrentIndex(names->index(std::clamp(before.row(), 0, names->rowCount() - 1)));
    showItems();
}

QString frmInfoCard::currentName() const
{
    return lstContacts->currentIndex().data().toString();
}

// Contacts of one name follow each other in the list, in the order in which the query for the name gives them.
void frmInfoCard::showItems()
{
    const QModelIndex current = lstContacts->currentIndex();
    int same = 0;
    while (current.row() > same && current.siblingAtRow(current.row() - same - 1).data() == current.data())
        ++same;
    const QSignalBlocker quiet(lvInfo);
    lvInfo->clear();
    cmdAdd->setEnabled(current.isValid());
    cmdContact->setEnabled(current.isValid());
    m_hint->setText(current.isValid() ? QString() : u"No contacts yet."_s);
    if (!current.isValid())
        return;
    const CardContact contact = cardContact(m_database, currentName(), same);
    m_id = contact.id;
    for (const CardItem &item : contact.items) {
        auto *row = new QTreeWidgetItem(lvInfo, {item.category, item.data});
        row->setCheckState(0, m_wanted.contains(item.category) ? Qt::Checked : Qt::Unchecked);
        row->setToolTip(1, item.data);
    }
    if (lvInfo->topLevelItemCount() == 0)
        m_hint->setText(u"This contact has no address and no numbers."_s);
}

void frmInfoCard::rememberTicks()
{
    for (int i = 0; i < lvInfo->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = lvInfo->topLevelItem(i);
        if (item->checkState(0) == Qt::Checked)
            m_wanted.insert(item->text(0));
        else
            m_wanted.remove(item->text(0));
    }
}

void frmInfoCard::cmdAdd_Click()
{
    if (!lstContacts->currentIndex().isValid())
        return;
    if (lstList->count() >= mostCardEntries) {
        basic::MsgBox(u"You have reached the maximum of 20 entries"_s, {}, basic::Icon::Information);
        return;
    }
    QStringList lines{currentName()};
    for (int i = 0; i < lvInfo->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = lvInfo->topLevelItem(i);
        if (item->checkState(0) == Qt::Checked)
            lines << CardItem{item->text(0), item->text(1)}.line();
    }
    auto *entry = new QListWidgetItem(lines.join(u'\n'), lstList);
    entry->setData(entryRole, lines);
    entry->setToolTip(lines.join(u'\n'));
    lstList->setCurrentItem(entry);
    entriesChanged();
}

void frmInfoCard::removeEntry()
{
    delete lstList->currentItem();
    entriesChanged();
}

void frmInfoCard::moveEntry(int step)
{
    const int from = lstList->currentRow(), to = from + step;
    if (from < 0 || to < 0 || to >= lstList->count())
        return;
    lstList->insertItem(to, lstList->takeItem(from));
    lstList->setCurrentRow(to);
}

void frmInfoCard::entriesChanged()
{
    m_count->setText(u"%1 of %2 entries"_s.arg(lstList->count()).arg(mostCardEntries));
    m_cardHint->setText(lstList->count() > 0 ? QString() : u"Tick items and press Add."_s);
    cmdPrint->setEnabled(lstList->count() > 0);
    m_state->clear();
}

bool frmInfoCard::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != lstList || event->type() != QEvent::KeyPress)
        return Form::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isMove = key->modifiers() == Qt::ControlModifier && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down);
    if (key->key() == Qt::Key_Delete)
        removeEntry();
    else if (isMove)
        moveEntry(key->key() == Qt::Key_Up ? -1 : 1);
    else
        return Form::eventFilter(watched, event);
    return true;
}

void frmInfoCard::cmdPrint_Click()
{
    std::vector<CardEntry> entries;
    for (int i = 0; i < lstList->count(); ++i) {
        const QStringList lines = lstList->item(i)->data(entryRole).toStringList();
        entries.push_back({lines.value(0), lines.mid(1)});
    }
    printInfoCard(entries);
    m_state->setText(printer::Printer().hasHardware() ? u"Sent to the printer"_s : QString());
}

void frmInfoCard::cmdContact_Click()
{
    if (m_id == 0)
        return;
    m_open(m_id);
    FillContacts();
}

void frmInfoCard::cmdInfo_Click()
{
    showNote(u"Address and Phone Card - Information - "_s + basic::applicationTitle(), cardNote);
}

}
