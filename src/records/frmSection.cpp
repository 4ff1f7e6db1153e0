#include "records/frmSection.h"

#include "media/frmDataPath.h"
#include "media/frmShowPic.h"
#include "platform/basic/convert.h"
#include "platform/basic/prompts.h"
#include "platform/basic/twips.h"
#include "platform/controls/fieldadapter.h"
#include "platform/controls/picturebox.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/hourglass.h"
#include "records/frmChildGrid.h"
#include "records/frmPictureSet.h"
#include "records/frmRecordTree.h"
#include "records/frmSectionPanel.h"
#include "session/mainscreen.h"
#include "session/shared.h"
#include "utilities/frmInformation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;

namespace {

// Above so many records the screen is painted before its tree is read.
constexpr qsizetype manyRecords = 20000;

}

frmSection::frmSection(const records::RecordDesign &design, QWidget *parent)
    : RecordForm(design.screen, design.dataControl, parent), m_design(design)
{
    setRecordTitle(design.title, {});
    dtaData().setDatabaseName(state().path(design.file));
    dtaData().setRecordSource(design.rows);
    dtaData().setMovesAsk(true);
    dtaData().setValidate([this](bool changed) {
        tidyRow(changed);
        return true;
    });
}

void frmSection::Load()
{
    loadSettings();
    composeScreen();
    createOwn();
    orderTabs();
    GetColours();
    connectHandlers();
    connectKeys();
    if (!m_design.trees.empty()) {
        m_treeButton = &m_design.trees.front();
        highlight(m_treeButton->name);
    }
    dtaData().Refresh();
    if (dtaData().Recordset()) {                        // else the reason has been shown
        FillLists();
        if (m_treeButton && dtaData().Recordset().rowTotal() <= manyRecords)
            showTree(*m_treeButton, true);
        else if (m_tree)
            m_treeAwaited = true;
    }
    AllowInput();
    CheckOptions();
    ShowInfo(1);
    if (m_tree)
        m_tree->setFocus();
}

void frmSection::connectHandlers()
{
    on(&dtaData(), &controls::DataControl::Reposition, handlers(), [this] { dtaData_Reposition(); });
    if (m_tree)
        on(m_tree, &RecordTree::NodeClicked, handlers(), [this](qint32 id) { TreeView_NodeClick(id); });
    on(m_tabs, &QTabBar::currentChanged, handlers(), [this](int index) { ShowInfo(index + 1); });
    on(m_image, &controls::PictureBox::Clicked, handlers(), [this] { GetFilePath(); });
    on(m_image, &controls::PictureBox::Shown, handlers(), [this] { placePicInfo(); });
    for (const records::TreeButton &button : m_design.trees)
        onClick(button.name, [this, &button] { treeButton_Click(button); });
    for (const records::Option &option : m_design.options)
        on(control<QCheckBox>(option.check), &QCheckBox::toggled, handlers(), [this] { CheckOptions(); });
    for (ChildGridView *grid : std::as_const(m_children))
        on(grid, &ChildGridView::rowsChanged, handlers(), [this, grid] { childChanged(grid->design().control); });
}

void frmSection::connectKeys()
{
    onClick(u"cmdUpdate"_s, [this] { cmdUpdate_Click(); });
    onClick(u"cmdDelete"_s, [this] { cmdDelete_Click(); });
    onClick(u"cmdView"_s, [this] { cmdView_Click(); });
    onClick(u"cmdColor"_s, [this] { cmdColor_Click(); });
    onClick(u"cmdNew"_s, [this] { newClicked(m_tabs->currentIndex() + 1); });
    onClick(u"cmdInfo"_s, [this] { ShowInfoPage(m_design.letter); });
    onClick(u"cmdWeb"_s, [this] {
        if (!desktop::ShellExecute(m_design.web))
            basic::MsgBox(u"Unable to open "_s + m_design.web, {}, basic::Icon::Exclamation);
    });
    useRecordKeys();
    on(this, &Form::helpWanted, handlers(), [this] { ShowInfoPage(m_design.letter); });
    for (const auto &[keys, step] : {std::pair{QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1}, {QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1}})
        on(new QShortcut(keys, this), &QShortcut::activated, handlers(),
           [this, step = step] { m_tabs->setCurrentIndex((m_tabs->currentIndex() + step + m_tabs->count()) % m_tabs->count()); });
}

SectionPanel *frmSection::panel(const QString &name) const
{
    return control<SectionPanel>(name);
}

qint32 frmSection::currentId() const
{
    return static_cast<qint32>(basic::Val(text(u"lblIDNum"_s)));
}

// The row as it is shown.
void frmSection::dtaData_Reposition()
{
    m_outcome.lastId = currentId();
    setRecordTitle(m_design.title, shownApostrophes(text(m_design.nameControl)));
    selectNode();
    m_path = text(u"lblPictureFile"_s);
    ShowPic();
    showChildren();
    rowShown();
    AllowInput();                           // another process may have deleted the last row
}

void frmSection::showChildren()
{
    for (ChildGridView *grid : std::as_const(m_children))
        grid->showRowsOf(dtaData().hasRows() ? text(grid->design().keyControl) : QString());
    if (m_pictures)
        m_pictures->showSetsOf({currentId(), text(m_design.nameControl)}, text(m_design.nameControl));
}

void frmSection::selectNode()
{
    if (m_tree)
        SelectTreeNode(*m_tree, text(u"lblIDNum"_s));
}

// What was typed into the row that is left is saved without asking. A group has no row.
void frmSection::TreeView_NodeClick(qint32 id)
{
    if (!dtaData().Leave())
        selectNode();
    else if (id > 0 && id != currentId())
        dtaData().FindFirst(u"ID="_s + dao::literal(id));
}

void frmSection::rebuildTree()
{
    if (m_treeButton)
        showTree(*m_treeButton);
}

void frmSection::showTree(const records::TreeButton &button, bool isJustRead)
{
    FillRecordTree(*m_tree, button.read, {state().path(m_design.file), m_design.table, button.field, button.leaf, m_design.names,
                                          isJustRead ? dtaData().Recordset() : dao::Recordset()});
    selectNode();
}

void frmSection::treeButton_Click(const records::TreeButton &button)
{
    highlight(button.name);
    m_treeButton = &button;
    rebuildTree();
    m_tree->setFocus();
}

void frmSection::AllowInput()
{
    const bool rows = dtaData().hasRows();
    for (const QString &name : {u"cmdDelete"_s, u"cmdUpdate"_s, u"cmdView"_s})
        control<QWidget>(name)->setEnabled(rows);
    m_stack->setEnabled(rows);
    m_image->setEnabled(rows);
    if (m_empty)
        m_empty->setVisible(!rows && dtaData().Recordset());
}

void frmSection::FillLists()
{
    m_unread.clear();
    for (const records::Choices &list : m_design.lists) {
        if (list.whenUsed)
            m_unread.push_back(&list);
        else
            fillList(list);
    }
    if (const records::Field *field = fieldOf(focusWidget()))
        fillWhenUsed(field->control);
}

void frmSection::fillList(const records::Choices &list)
{
    basic::Trap([&] {
        const QStringList values = records::listValues(state().path(m_design.file), list);
        for (const QString &name : list.controls) {
            auto *box = control<QComboBox>(name);
            const QSignalBlocker quiet(box), quietEdit(box->lineEdit());     // the text stays as it is
            const QString typed = box->currentText();
            box->clear();
            box->addItems(values);
            box->setCurrentIndex(static_cast<int>(values.indexOf(typed)));
            box->setEditText(typed);
        }
    });
}

void frmSection::fillWhenUsed(const QString &name)
{
    const auto list = std::find_if(m_unread.begin(), m_unread.end(), [&](const records::Choices *choices) {
        return std::find(choices->controls.begin(), choices->controls.end(), name) != choices->controls.end();
    });
    if (list == m_unread.end())
        return;
    const records::Choices *wanted = *list;
    m_unread.erase(list);
    fillList(*wanted);
}

void frmSection::CheckOptions()
{
    for (const records::Option &option : m_design.options) {
        for (const QString &name : option.controls) {
            if (option.enables)
                control<QWidget>(name)->setEnabled(ticked(option.check));
            else
                showField(name, ticked(option.check));
        }
    }
}

void frmSection::ShowInfo(int tab)
{
    if (tab < 1 || tab > m_stack->count())
        return;
    m_stack->setCurrentIndex(tab - 1);
    m_tabs->setCurrentIndex(tab - 1);
    const records::Panel &shown = m_design.panels[static_cast<std::size_t>(tab - 1)];
    auto *button = control<QPushButton>(u"cmdNew"_s);
    button->setText(shown.newCaption.isEmpty() ? u"&New"_s : shown.newCaption);
    button->setToolTip(shown.newTip.isEmpty() ? u" Adds a new Record (Ctrl+N) "_s : shown.newTip);
    tabShown(tab);
}

void frmSection::GetFilePath()
{
    if (!dtaData().hasRows())
        return;
    m_path = text(u"lblPictureFile"_s);
    m_path = choosePath(PathKind::Picture, u"lblPictureFile"_s);
    setText(u"lblPictureFile"_s, m_path);
    ShowPic();
}

void frmSection::chooseSound(const QString &name)
{
    setText(name, choosePath(PathKind::Sound, name));
}

QString frmSection::choosePath(PathKind kind, const QString &name)
{
    qsizetype room = 0;
    for (const records::Field &field : m_design.fields)
        if (field.control == name)
            room = textRoom(dtaData().Recordset(), field.field);
    return chooseDataPath({.caption = chooserOf(*sectionByCode(m_design.letter), kind), .path = text(name),
                           .name = text(m_design.nameControl), .screen = this, .room = room, .section = m_design.letter});
}

void frmSection::ShowPic()
{
    vorel::ShowPic({m_image, {control<QLabel>(u"lblPicInfo1"_s), control<QLabel>(u"lblPicInfo2"_s)}}, m_path, m_design.letter);
    placePicInfo();
}

std::vector<records::ViewBlock> frmSection::pageBlocks() const
{
    std::vector<records::ViewBlock> blocks;
    for (const records::PageBlock &block : m_design.page) {
        QString words = text(block.control);
        if (const auto *rich = qobject_cast<QTextEdit *>(control<QWidget>(block.control)))
            words = rich->toPlainText();
        words.replace(u"\r\n"_s, u"\n"_s).replace(u'\n', u"\r\n"_s);
        blocks.push_back({block.label, words, block.onlyIfFilled, block.dashed});
    }
    return blocks;
}

void frmSection::cmdView_Click()
{
    const desktop::Hourglass busy;
    records::showViewPage({m_design.pageFile, pageHeading(), m_path,
                           m_image->pictureSize() * basic::twipsPerPixel, pageBlocks()});
}

// The rich text's own menu is open for as long as the user likes; the main screen's alerts wait for it.
void frmSection::holdMainTimer(QWidget *box)
{
    auto *menu = box->findChild<QMenu *>(u"mnuFormat"_s);
    if (!menu)
        return;
    const auto hold = [](bool held) {
        if (MainScreen *screen = MainScreen::current())
            screen->holdTimer(held);
    };
    on(menu, &QMenu::aboutToShow, handlers(), [hold] { hold(true); });
    on(menu, &QMenu::aboutToHide, handlers(), [hold] { hold(false); });
}

}
