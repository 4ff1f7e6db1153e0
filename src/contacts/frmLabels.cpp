#include "contacts/frmLabels.h"

#include "contacts/frmLabelSheet.h"
#include "platform/basic/prompts.h"
#include "platform/controls/colours.h"
#include "platform/controls/keyrow.h"
#include "platform/controls/layout.h"
#include "platform/printer/printer.h"
#include "print/labels.h"
#include "session/datafiles.h"
#include "session/shared.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTreeView>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

namespace {

QPlainTextEdit *addressBox(const QString &name, int lines)
{
    auto *box = new QPlainTextEdit;
    box->setObjectName(name);
    box->setTabChangesFocus(true);
    box->setLineWrapMode(QPlainTextEdit::NoWrap);
    box->setMinimumHeight(lines * box->fontMetrics().lineSpacing() + 2 * layout::unit);
    box->setMinimumWidth(34 * layout::unit);
    return box;
}

QLabel *labelFor(const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

// The text as it counts in the configuration file, where a line end takes two characters.
qsizetype keptLength(const QString &text)
{
    return text.size() + text.count(u'\n');
}

}

frmLabels::frmLabels(LabelMode mode, QWidget *parent)
    : Form(u"frmLabels"_s, parent), m_mode(mode), lvList(new QTreeView), cboCategory(new QComboBox), m_all(new QCheckBox(u"Tick a&ll"_s)),
      m_note(new QLabel), m_state(new QLabel),
      cmdPrint(controls::button(u"cmdPrint"_s, u"&Print"_s, u"document-print"_s,
                                mode == LabelMode::Labels ? u" Print Labels "_s : u" Print Envelope "_s))
{
    setWindowTitle(mode == LabelMode::Labels ? u"Label Printing"_s : u"Envelope Printing"_s);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    auto *content = new QHBoxLayout;
    layout::setMargins(content, 2 * layout::unit);
    content->setSpacing(2 * layout::unit);
    content->addLayout(composeList(), 1);
    content->addWidget(mode == LabelMode::Labels ? composeLayout() : composeEnvelope());
    whole->addLayout(content, 1);
    whole->addWidget(composeKeys());
    resize(146 * layout::unit, 78 * layout::unit);
    on(&m_list, &AddressList::ticksChanged, handlers(), [this] { showTicks(); });
    on(cboCategory, &QComboBox::currentIndexChanged, handlers(), [this] { GetContactList(); });
    on(m_all, &QCheckBox::clicked, handlers(), [this] { m_list.tickAll(m_all->isChecked()); });
    on(lvList->selectionModel(), &QItemSelectionModel::currentRowChanged, handlers(), [this] { showAddress(); });
    basic::Trap([this] {
        m_database = openDataFile(DataFile::Contacts);
        FillCategoryList();
        GetContactList();
    });
    showTicks();
    lvList->setFocus();
}

QLayout *frmLabels::composeList()
{
    cboCategory->setObjectName(u"cboCategory"_s);
    cboCategory->setMinimumContentsLength(20);
    m_all->setObjectName(u"chkAll"_s);
    m_note->setObjectName(u"lblNote"_s);
    m_note->setWordWrap(true);
    m_note->setMinimumHeight(2 * m_note->fontMetrics().lineSpacing());
    lvList->setObjectName(u"lvList"_s);
    lvList->setAccessibleName(u"Contacts and their postal addresses"_s);
    lvList->setModel(&m_list);
    lvList->setRootIsDecorated(false);
    lvList->setUniformRowHeights(true);
    lvList->setAllColumnsShowFocus(true);
    lvList->setAlternatingRowColors(true);
    lvList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvList->setTextElideMode(Qt::ElideRight);
    lvList->installEventFilter(this);
    layout::setRoomyRows(lvList);
    const int widths[] = {24, 26, 17, 8, 9, 11};
    for (int column = 0; column < AddressList::ColumnCount; ++column)
        lvList->header()->resizeSection(column, widths[column] * layout::unit);
    lvList->header()->setStretchLastSection(true);
    return layout::Column({layout::Row({labelFor(u"&Category"_s, cboCategory), cboCategory, layout::Stretch{}, m_all}), lvList, m_note});
}

QWidget *frmLabels::composeLayout()
{
    Picture1 = new frmLabelSheet;
    txtNumber = new QLineEdit(u"1"_s);
    txtNumber->setObjectName(u"txtNumber"_s);
    txtNumber->setMaxLength(4);
    txtNumber->setFixedWidth(6 * layout::unit);
    txtNumber->setAlignment(Qt::AlignRight);
    cmdLayout = controls::button(u"cmdLayout"_s, u"La&yout"_s, u"view-grid"_s, u" Shows the sheet of labels "_s);
    QAbstractButton *close = controls::button(u"cmdCloseLayout"_s, u"Close Layo&ut"_s, {}, u" Hides the sheet of labels "_s);
    m_layout = new QWidget;
    m_layout->setObjectName(u"picLayout"_s);
    QLayout *sheet = layout::Column({Picture1, layout::Row({layout::Stretch{}, close})});
    m_layout->setLayout(sheet);
    m_layout->setMinimumWidth(36 * layout::unit);
    m_layout->hide();
    on(Picture1, &frmLabelSheet::startChosen, handlers(), [this](int number) { setStart(number); });
    on(txtNumber, &QLineEdit::editingFinished, handlers(), [this] { setStart(labelStart(txtNumber->text())); });
    on(cmdLayout, &QAbstractButton::clicked, handlers(), [this] { showLayout(true); });
    on(close, &QAbstractButton::clicked, handlers(), [this] { showLayout(false); });
    return m_layout;
}

QWidget *frmLabels::composeEnvelope()
{
    m_sizes = new QComboBox;
    m_sizes->setObjectName(u"cboEnvelope"_s);
    for (const EnvelopeSize &size : envelopeSizes()) {
        const double millimetre = printer::twipsPerInch / 25.4;
        m_sizes->addItem(u"%1  (%2 x %3 mm)"_s.arg(size.name).arg(qRound(size.width / millimetre)).arg(qRound(size.height / millimetre)), size.name);
    }
    m_sizes->setCurrentIndex(m_sizes->findData(envelopeSize().name));
    txtAddress = addressBox(u"txtAddress"_s, 7);
    txtReturnAddress = addressBox(u"txtReturnAddress"_s, 5);
    txtReturnAddress->setPlainText(returnAddress().join(u'\n'));
    chkReturnAddress = new QCheckBox(u"Print the &return address"_s);
    chkReturnAddress->setObjectName(u"chkReturnAddress"_s);
    m_isSenderBlank = txtReturnAddress->toPlainText().isEmpty();
    chkReturnAddress->setChecked(!m_isSenderBlank);
    txtReturnAddress->setAccessibleName(u"Return address"_s);
    on(m_sizes, &QComboBox::activated, handlers(), [this] { keepEnvelopeSize(m_sizes->currentData().toString()); });
    on(txtReturnAddress, &QPlainTextEdit::textChanged, handlers(), [this] { limitSender(); });
    on(txtAddress, &QPlainTextEdit::textChanged, handlers(), [this] {
        if (const int row = lvList->currentIndex().row(); row >= 0)
            m_typed[row] = txtAddress->toPlainText();
    });
    auto *pane = new QWidget;
    auto *column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(layout::unit);
    column->addLayout(layout::Row({labelFor(u"&Envelope"_s, m_sizes), m_sizes, layout::Stretch{}}));
    column->addSpacing(layout::unit);
    column->addWidget(labelFor(u"&Address"_s, txtAddress));
    column->addWidget(txtAddress, 1);
    column->addSpacing(layout::unit);
    column->addWidget(chkReturnAddress);
    column->addWidget(txtReturnAddress, 1);
    column->addStretch(1);
    return pane;
}

QWidget *frmLabels::composeKeys()
{
    m_state->setObjectName(u"lblState"_s);
    m_state->setAlignment(Qt::AlignCenter);
    QAbstractButton *close = controls::button(u"cmdClose"_s, u"Cl&ose"_s, u"window-close"_s);
    on(close, &QAbstractButton::clicked, handlers(), [this] { Close(); });
    on(cmdPrint, &QAbstractButton::clicked, handlers(), [this] { cmdPrint_Click(); });
    QWidgetList left;
    if (m_mode == LabelMode::Labels)
        left = {labelFor(u"&Start on Label #:"_s, txtNumber), txtNumber, cmdLayout};
    auto *keys = new controls::KeyRow(left, m_state, {cmdPrint, close}, this);
    layout::chainTabs({cboCategory, m_all, lvList, m_sizes, txtAddress, chkReturnAddress, txtReturnAddress, Picture1,
                       findChild<QWidget *>(u"cmdCloseLayout"_s), txtNumber, cmdLayout, cmdPrint, close});
    return keys;
}

void frmLabels::FillCategoryList()
{
    const QSignalBlocker quiet(cboCategory);
    cboCategory->clear();
    cboCategory->addItem(u"All"_s);
    for (const QString &name : contactCategories(m_database))
        cboCategory->addItem(shownApostrophes(name), name);
}

void frmLabels::GetContactList()
{
    m_typed.clear();
    m_list.GetContactList(m_database, cboCategory->currentData().toString());
    if (m_list.rowCount() > 0)
        lvList->setCurrentIndex(m_list.index(0, 0));
    showAddress();
}

// The hint counts what the ticks would print badly, so that it is read before the paper is spoilt.
void frmLabels::showTicks()
{
    const auto ticked = static_cast<int>(m_list.ticked().size());
    m_all->setEnabled(m_list.rowCount() > 0);
    m_all->setTristate(false);
    m_all->setCheckState(ticked == 0 ? Qt::Unchecked : ticked == m_list.rowCount() ? Qt::Checked : Qt::PartiallyChecked);
    if (m_list.rowCount() == 0)
        m_state->setText(u"No contacts here."_s);
    else if (m_mode == LabelMode::Envelopes)
        m_state->setText(ticked == 0 ? u"Prints the address on show"_s : ticked == 1 ? u"Prints the ticked contact"_s
                                                                              : u"Prints the %1 ticked contacts"_s.arg(ticked));
    else
        m_state->setText(u"%1 of %2 ticked"_s.arg(ticked).arg(m_list.rowCount()));
    const int missing = m_list.tickedIncomplete();
    const QString hint = u"<b>PLEASE NOTE:</b> A contact whose address is missing or incomplete here needs its Postal Address completed in Contacts."_s;
    m_note->setText(missing == 0 ? hint
                    : hint + u" <b>%1</b>"_s.arg(missing == 1 ? u"1 ticked contact has no complete address."_s
                                                              : u"%1 ticked contacts have no complete address."_s.arg(missing)));
    if (Picture1)
        Picture1->setCount(ticked);
}

QStringList frmLabels::addressOf(int row) const
{
    const auto typed = m_typed.find(row);
    return typed == m_typed.end() ? addressLines(m_list.address(row)) : typed->second.split(u'\n');
}

void frmLabels::showAddress()
{
    if (!txtAddress)
        return;
    const int row = lvList->currentIndex().row();
    const QSignalBlocker quiet(txtAddress);
    txtAddress->setPlainText(row < 0 ? QString() : addressOf(row).join(u'\n'));
    txtAddress->setEnabled(row >= 0);
}

void frmLabels::setStart(int number)
{
    txtNumber->setText(QString::number(number));
    Picture1->setStart(number);
}

void frmLabels::showLayout(bool visible)
{
    m_layout->setVisible(visible);
    cmdLayout->setEnabled(!visible);
    if (visible)
        Picture1->setFocus();
    else
        cmdLayout->setFocus();
}

// What the configuration file cannot give back is not taken.
void frmLabels::limitSender()
{
    const QString text = txtReturnAddress->toPlainText();
    if (std::exchange(m_isSenderBlank, text.isEmpty()))
        chkReturnAddress->setChecked(true);         // a typed address is meant to be printed
    if (keptLength(text) <= longestReturnAddress)
        return;
    QString cut = text;
    while (keptLength(cut) > longestReturnAddress)
        cut.chop(1);
    const int cursor = std::min(txtReturnAddress->textCursor().position(), static_cast<int>(cut.size()));
    const QSignalBlocker quiet(txtReturnAddress);
    txtReturnAddress->setPlainText(cut);
    QTextCursor place = txtReturnAddress->textCursor();
    place.setPosition(cursor);
    txtReturnAddress->setTextCursor(place);
    basic::prompts().beep();
    m_state->setText(u"The return address has room for %1 characters."_s.arg(longestReturnAddress));
}

void frmLabels::keepSender()
{
    if (txtReturnAddress && txtReturnAddress->toPlainText().trimmed().split(u'\n') != returnAddress())
        keepReturnAddress(txtReturnAddress->toPlainText());
}

void frmLabels::Unload()
{
    keepSender();
}

// The space bar ticks what is selected: all of it as the current row.
void frmLabels::tickSelected()
{
    const bool on = m_list.ticked().count(lvList->currentIndex().row()) == 0;
    for (const QModelIndex &index : lvList->selectionModel()->selectedRows())
        m_list.tick(index.row(), on);
}

bool frmLabels::eventFilter(QObject *watched, QEvent *event)
{
    const bool isSpace = watched == lvList && event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space;
    if (!isSpace || !lvList->currentIndex().isValid())
        return Form::eventFilter(watched, event);
    basic::Trap([this] { tickSelected(); });
    return true;
}

void frmLabels::cmdPrint_Click()
{
    std::vector<QStringList> addresses;
    for (const int row : m_list.ticked()) {
        if (const QStringList lines = addressOf(row); !lines.isEmpty())
            addresses.push_back(lines);
    }
    if (m_mode == LabelMode::Labels) {
        setStart(labelStart(txtNumber->text()));
        PrintLabels(addresses, labelStart(txtNumber->text()));
        return;
    }
    keepSender();
    if (addresses.empty())                      // the one on show, as it was typed
        addresses.push_back(txtAddress->toPlainText().split(u'\n'));
    printEnvelopes(addresses, chkReturnAddress->isChecked() ? txtReturnAddress->toPlainText().split(u'\n') : QStringList(), envelopeSize());
}

}
