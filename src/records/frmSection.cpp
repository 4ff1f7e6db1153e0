#include "records/frmSection.h"

#include "media/frmDataPath.h"
#include "media/frmShowPic.h"
#include "platform/basic/convert.h"
#include "platform/basic/prompts.h"
#include "platform/basic/twips.h"
#include "platform/controls/fieldadapter.h"
#include "platform/controls/picturebox.h"
#include "platform/controls/richtextbox.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/hourglass.h"
#include "records/frmRecordTree.h"
#include "records/frmSectionPanel.h"
#include "session/ini.h"
#include "session/mainscreen.h"
#include "utilities/frmInformation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
using records::TreeMode;

frmSection::frmSection(const records::RecordDesign &design, QWidget *parent)
    : Form(design.screen.toString(), parent), m_design(design), m_data(new controls::DataControl(this)),
      m_main(dynamic_cast<MainScreen *>(parent))
{
    setWindowTitle(design.title.toString());
    m_data->setObjectName(design.dataControl.toString());
    m_data->setDatabaseName(state().path(design.file));
    m_data->setConnect(u"Access"_s);
    m_data->setRecordSource(design.rows.toString());
    m_data->setMovesAsk(true);
}

frmSection::~frmSection()
{
    // The fields go after this part of the screen; what they tell then must reach nobody.
    m_ending = true;
    m_data->disconnect(this);
    for (QWidget *widget : std::as_const(m_controls))
        widget->disconnect(this);
    for (auto it = m_fieldOf.cbegin(); it != m_fieldOf.cend(); ++it)
        it.key()->removeEventFilter(this);
}

void frmSection::Load()
{
    loadSettings();
    composeScreen();
    createOwn();
    orderTabs();
    GetColours();
    highlight(u"cmdAll"_s);
    connectHandlers();
    m_data->Refresh();
    if (m_data->Recordset()) {                          // else the reason has been told
        limitTexts();
        FillLists();
        showTree(TreeMode::ByFirstCharacter, m_design.treeField.toString());
    }
    AllowInput();
    CheckOptions();
    ShowInfo(1);
    m_tree->setFocus();
}

void frmSection::connectHandlers()
{
    on(m_data, &controls::DataControl::Reposition, this, [this] { dtaData_Reposition(); });
    on(m_tree, &RecordTree::NodeClicked, this, [this](qint32 id) { TreeView_NodeClick(id); });
    on(m_tabs, &QTabBar::currentChanged, this, [this](int index) { ShowInfo(index + 1); });
    on(m_image, &controls::PictureBox::Clicked, this, [this] { GetFilePath(); });
    on(m_image, &controls::PictureBox::Shown, this, [this] { placePicInfo(); });
    const auto click = [this](const QString &name, void (frmSection::*handler)()) {
        on(control<QPushButton>(name), &QPushButton::clicked, this, [this, handler] { (this->*handler)(); });
    };
    click(u"cmdUpdate"_s, &frmSection::cmdUpdate_Click);
    click(u"cmdDelete"_s, &frmSection::cmdDelete_Click);
    click(u"cmdView"_s, &frmSection::cmdView_Click);
    click(u"cmdColor"_s, &frmSection::cmdColor_Click);
    on(control<QPushButton>(u"cmdNew"_s), &QPushButton::clicked, this, [this] { AddNewRecord(); });
    on(control<QPushButton>(u"cmdClose"_s), &QPushButton::clicked, this, [this] { Close(); });
    on(control<QPushButton>(u"cmdInfo"_s), &QPushButton::clicked, this, [this] { ShowInfoPage(m_design.letter); });
    on(control<QPushButton>(u"cmdWeb"_s), &QPushButton::clicked, this, [this] {
        const QString page = m_design.web.toString();
        if (!desktop::ShellExecute(page))
            basic::MsgBox(u"Unable to open "_s + page, {}, basic::Icon::Exclamation);
    });
    for (const records::TreeButton &button : m_design.trees)
        on(control<QPushButton>(button.name.toString()), &QPushButton::clicked, this, [this, &button] { treeButton_Click(button); });
    for (const records::Option &option : m_design.options)
        on(control<QCheckBox>(option.check.toString()), &QCheckBox::toggled, this, [this] { CheckOptions(); });

    const auto key = [this](const QKeySequence &keys, const QString &name) {
        connect(new QShortcut(keys, this), &QShortcut::activated, control<QPushButton>(name), &QPushButton::click);
    };
    key(QKeySequence::New, u"cmdNew"_s);
    key(QKeySequence::Save, u"cmdUpdate"_s);
    setHelpPage(m_design.letter.toString());
    on(new QShortcut(Qt::ALT | Qt::Key_Left, this), &QShortcut::activated, this, [this] { m_data->MovePrevious(); });
    on(new QShortcut(Qt::ALT | Qt::Key_Right, this), &QShortcut::activated, this, [this] { m_data->MoveNext(); });
    for (const auto &[keys, step] : {std::pair{QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1}, {QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1}})
        on(new QShortcut(keys, this), &QShortcut::activated, this,
           [this, step = step] { m_tabs->setCurrentIndex((m_tabs->currentIndex() + step + m_tabs->count()) % m_tabs->count()); });
}

QString frmSection::text(const QString &name) const
{
    const QWidget *widget = m_controls.value(name);
    if (const auto *rich = qobject_cast<const controls::RichTextBox *>(widget))
        return rich->Text();
    return widget ? controls::adapter::content(*widget) : QString();
}

void frmSection::setText(const QString &name, const QString &newText)
{
    if (QWidget *widget = m_controls.value(name); widget && text(name) != newText)
        controls::adapter::fill(*widget, newText, {});
}

bool frmSection::ticked(const QString &name) const
{
    return control<QCheckBox>(name)->isChecked();
}

qint32 frmSection::currentId() const
{
    return static_cast<qint32>(basic::Val(text(u"lblIDNum"_s)));
}

void frmSection::keep(QWidget *made)
{
    m_controls.insert(made->objectName(), made);
}

// The row as it comes on show.
void frmSection::dtaData_Reposition()
{
    if (m_ending)
        return;
    state().selection.gLastRecord = currentId();
    selectNode();
    m_path = text(u"lblPictureFile"_s);
    ShowPic();
    rowShown();
    AllowInput();                           // another process may have taken the last row
}

void frmSection::selectNode()
{
    SelectTreeNode(*m_tree, text(u"lblIDNum"_s));
}

// What was typed into the row that is left is saved without asking. A group stands for no row.
void frmSection::TreeView_NodeClick(qint32 id)
{
    if (!m_data->Leave())
        selectNode();
    else if (id > 0 && id != currentId())
        m_data->FindFirst(u"ID="_s + QString::number(id));
}

void frmSection::showTree(TreeMode mode, const QString &field)
{
    FillRecordTree(*m_tree, mode, state().path(m_design.file), m_design.table.toString(), field);
    selectNode();
}

void frmSection::treeButton_Click(const records::TreeButton &button)
{
    highlight(button.name.toString());
    showTree(button.mode, button.field.toString());
    m_tree->setFocus();
}

void frmSection::AllowInput()
{
    const bool rows = m_data->hasRows();
    for (const QString &name : {u"cmdDelete"_s, u"cmdUpdate"_s, u"cmdView"_s})
        control<QWidget>(name)->setEnabled(rows);
    m_stack->setEnabled(rows);
    m_image->setEnabled(rows);
    m_empty->setVisible(!rows && m_data->Recordset());
}

void frmSection::FillLists()
{
    for (const records::Choices &list : m_design.lists) {
        auto *box = control<QComboBox>(list.control.toString());
        basic::Trap([&] {
            const QStringList values = records::listValues(state().path(m_design.file), list);
            const QString typed = box->currentText();
            box->clear();
            box->addItems(values);
            box->setCurrentIndex(static_cast<int>(values.indexOf(typed)));
            box->setEditText(typed);
        });
    }
}

void frmSection::CheckOptions()
{
    for (const records::Option &option : m_design.options) {
        const bool on = ticked(option.check.toString());
        for (const QStringView name : option.controls) {
            const QString field = name.toString();
            if (option.enables) {
                control<QWidget>(field)->setEnabled(on);
                continue;
            }
            m_lines.value(field)->setVisible(on);
            if (QLabel *label = m_labels.value(field))
                label->setVisible(on);
        }
    }
}

void frmSection::ShowInfo(int tab)
{
    if (tab < 1 || tab > m_stack->count())
        return;
    m_stack->setCurrentIndex(tab - 1);
    m_tabs->setCurrentIndex(tab - 1);
}

void frmSection::GetFilePath()
{
    if (!m_data->hasRows())
        return;
    m_path = text(u"lblPictureFile"_s);
    m_path = choosePath(m_design.chooser.toString(), u"lblPictureFile"_s);
    setText(u"lblPictureFile"_s, m_path);
    ShowPic();
}

void frmSection::chooseSound(const QString &name)
{
    setText(name, choosePath(m_design.sound.toString(), name));
}

QString frmSection::choosePath(const QString &caption, const QString &name)
{
    qsizetype room = 0;
    for (const records::Field &field : m_design.fields)
        if (field.control == name)
            room = textRoom(m_data->Recordset(), field.field);
    return chooseDataPath({caption, text(name), text(m_design.nameControl.toString()), this, room});
}

void frmSection::ShowPic()
{
    vorel::ShowPic(this, m_path);
    placePicInfo();
}

std::vector<records::ViewBlock> frmSection::pageBlocks() const
{
    std::vector<records::ViewBlock> blocks;
    for (const records::PageBlock &block : m_design.page) {
        QString words = text(block.control.toString());
        words.replace(u"\r\n"_s, u"\n"_s).replace(u'\n', u"\r\n"_s);
        blocks.push_back({block.label.toString(), words, block.onlyIfFilled, block.dashed});
    }
    return blocks;
}

void frmSection::cmdView_Click()
{
    const desktop::Hourglass busy;
    records::showViewPage({m_design.pageFile.toString(), m_design.pageHeading.toString(), m_path,
                           m_image->pictureSize() * basic::twipsPerPixel, pageBlocks()});
}

// The rich text's own menu stands open for as long as the user likes; the main screen's alerts wait for it.
void frmSection::holdMainTimer(QWidget *box)
{
    auto *menu = box->findChild<QMenu *>(u"mnuFormat"_s);
    if (!menu || !m_main)
        return;
    on(menu, &QMenu::aboutToShow, this, [this] { m_main->holdTimer(true); });
    on(menu, &QMenu::aboutToHide, this, [this] { m_main->holdTimer(false); });
}

}
