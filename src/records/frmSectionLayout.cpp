#include "records/frmSection.h"

#include "platform/basic/colournumber.h"
#include "platform/basic/prompts.h"
#include "platform/controls/colours.h"
#include "platform/controls/keyrow.h"
#include "platform/controls/layout.h"
#include "platform/controls/picturebox.h"
#include "platform/desktop/desktop.h"
#include "records/frmChildGrid.h"
#include "records/frmPictureSet.h"
#include "records/frmRecordTree.h"
#include "records/frmSectionPanel.h"
#include "session/ini.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>

// Where everything is on the screen.
namespace vorel {

using namespace Qt::StringLiterals;
namespace layout = controls::layout;

namespace {

constexpr int leftWidth = 38 * layout::unit, pictureHeight = 27 * layout::unit;
const QColor highlightColour = QColor::fromRgb(0x00FFFF);

QColor settingColour(const QString &key, quint32 stock)
{
    const quint32 number = GetIniColour(key, stock);
    if (number == stock)
        return {};
    return basic::colourOfNumber(number);
}

const std::vector<controls::ScreenKey> &recordButtons()
{
    static const std::vector<controls::ScreenKey> buttons{
        {u"cmdNew"_s, u"&New"_s, u"document-new"_s, u" Adds a new Record (Ctrl+N) "_s},
        {u"cmdDelete"_s, u"De&lete"_s, u"edit-delete"_s, u" Deletes this Record "_s},
        {u"cmdUpdate"_s, u"&Update"_s, u"document-save"_s, u" Saves this Record (Ctrl+S) "_s},
    };
    return buttons;
}

const std::vector<controls::ScreenKey> &screenButtons()
{
    static const std::vector<controls::ScreenKey> buttons{
        {u"cmdView"_s, u"Vie&w"_s, u"document-print-preview"_s, u" Shows this Record in the Browser "_s},
        {u"cmdWeb"_s, u"We&b"_s, u"internet-web-browser"_s, u" Opens a Website on this subject "_s},
        {u"cmdColor"_s, u"Colou&r..."_s, u"color-management"_s, u" Changes the Colour of this screen "_s},
        {u"cmdInfo"_s, u"&Info"_s, u"help-contents"_s, u" Information about this section (F1) "_s},
        {u"cmdClose"_s, u"Cl&ose"_s, u"window-close"_s},
    };
    return buttons;
}

QStringList namesOf(const std::vector<controls::ScreenKey> &buttons)
{
    QStringList names;
    for (const controls::ScreenKey &button : buttons)
        names += button.name;
    return names;
}

}

void frmSection::loadSettings()
{
    const QString back = GetIniValue(iniSettings, m_design.colourKey, {});
    if (!back.isEmpty()) {
        if (const auto number = colourNumber(back); number && *number <= 0xFFFFFF)
            m_back = basic::colourOfNumber(*number);
    }
    m_fieldColour = settingColour(u"DefaultColour"_s, 0xFFFFFF);
    m_focusColour = settingColour(u"EditColour"_s, 0xFFFF);
}

QImage frmSection::groundPicture() const
{
    if (!m_design.pictureKey.isEmpty() && GetIniValue(iniSettings, m_design.pictureKey, u"1"_s) != u"1")
        return {};
    const QString file = m_design.picture.isEmpty() ? QString() : desktop::findResource(m_design.picture);
    return file.isEmpty() ? QImage() : QImage(file);
}

QStringList frmSection::recordKeys() const
{
    return namesOf(recordButtons());
}

// A section's own come first: what does not fit goes into the menu from the end.
QStringList frmSection::screenKeys() const
{
    return namesOf(m_design.keys) + namesOf(screenButtons());
}

void frmSection::createButtons()
{
    for (const auto *buttons : {&recordButtons(), &m_design.keys, &screenButtons()}) {
        for (const controls::ScreenKey &button : *buttons)
            addButton(button);
    }
    for (const records::TreeButton &row : m_design.trees)
        addButton({row.name, row.caption, {}, row.tip})->setMinimumWidth(8 * layout::unit);
}

QWidget *frmSection::createPicture()
{
    m_image = new controls::PictureBox(u"picImage"_s, this);
    m_image->setAccessibleName(u"Picture of the record"_s);
    m_image->setToolTip(u" Click to choose a Picture "_s);
    m_image->setCursor(Qt::PointingHandCursor);
    m_image->setFixedHeight(pictureHeight);
    m_image->installEventFilter(this);
    keep(m_image);
    auto *scratch = new controls::PictureBox(u"picHidden"_s, this);
    scratch->hide();
    keep(scratch);
    const QString product = basic::applicationTitle().toUpper() + u' ' + QString::number(VOREL_VERSION_MAJOR);
    for (const auto &[name, words] : {std::pair{u"lblPicInfo1"_s, product}, {u"lblPicInfo2"_s, u"CLICK FOR A PICTURE OF YOUR OWN"_s}}) {
        auto *note = new QLabel(words, m_image);
        note->setObjectName(name);
        note->setAlignment(Qt::AlignCenter);
        note->setAttribute(Qt::WA_TransparentForMouseEvents);
        QFont small = note->font();
        small.setPointSizeF(small.pointSizeF() * 0.8);
        note->setFont(small);
        note->hide();
        keep(note);
    }
    return m_image;
}

// The notes are placed at the upper and lower edge of the picture, wherever that ends in its box.
void frmSection::placePicInfo()
{
    const QSize picture = m_image->pictureSize();
    const QSize fitted = picture.isValid() ? picture.scaled(m_image->size(), Qt::KeepAspectRatio) : m_image->size();
    const int top = (m_image->height() - fitted.height()) / 2;
    const int high = 3 * layout::unit;
    control<QLabel>(u"lblPicInfo1"_s)->setGeometry(0, top, m_image->width(), high);
    control<QLabel>(u"lblPicInfo2"_s)->setGeometry(0, top + fitted.height() - high, m_image->width(), high);
}

QWidget *frmSection::createTree()
{
    m_tree = new RecordTree(this);
    m_tree->setAccessibleName(u"Records"_s);
    m_tree->viewport()->installEventFilter(this);
    keep(m_tree);
    m_empty = new QLabel(m_design.emptyNote, m_tree->viewport());
    m_empty->setObjectName(u"lblEmpty"_s);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setForegroundRole(QPalette::PlaceholderText);
    auto *over = new QVBoxLayout(m_tree->viewport());
    over->addWidget(m_empty);
    return m_tree;
}

// Goes to the first record that the typed text fits, at each key.
QWidget *frmSection::createSearch()
{
    auto *box = new QLineEdit(this);
    box->setObjectName(u"txtSearch"_s);
    box->setAccessibleName(u"Search"_s);
    box->setPlaceholderText(u"Search"_s);
    box->setClearButtonEnabled(true);
    keep(box);
    controls::on(box, &QLineEdit::textEdited, handlers(), [this](const QString &typed) {
        QString words = typed.toUpper();
        words.replace(u'\'', u'`').replace(u'[', u"[[]"_s);      // a lone bracket would break the pattern
        if (!words.isEmpty())
            dtaData().FindFirst(QString(m_design.search).replace(u"%1"_s, words));
    });
    return box;
}

QLayout *frmSection::createLeft()
{
    auto *left = new QVBoxLayout;
    left->setSpacing(layout::unit);
    if (!m_design.trees.empty()) {
        m_treeKeys = new QHBoxLayout;
        m_treeKeys->setSpacing(layout::unit);
        for (const records::TreeButton &row : m_design.trees)
            m_treeKeys->addWidget(control<QWidget>(row.name), 1);
        left->addLayout(m_treeKeys);
        left->addWidget(createTree(), 1);
    }
    if (!m_design.search.isEmpty())
        left->addWidget(createSearch());
    m_navigator = new controls::DataNavigator(&dtaData());
    left->addWidget(m_navigator);
    left->addWidget(createPicture());
    if (m_design.trees.empty())
        left->addStretch(1);
    return left;
}

void frmSection::placeBesideTrees(QWidget *widget)
{
    widget->setMinimumWidth(0);
    m_treeKeys->addWidget(widget);
}

QLayout *frmSection::createRight()
{
    m_tabs = new QTabBar(this);
    m_tabs->setObjectName(m_design.tabStrip);
    m_tabs->setDrawBase(false);
    m_tabs->setExpanding(false);
    keep(m_tabs);
    m_stack = new QStackedWidget(this);
    for (const records::Panel &row : m_design.panels) {
        auto *created = new SectionPanel(row.name, row.columns, m_stack);
        m_panels.push_back(created);
        keep(created);
        m_tabs->addTab(row.caption);
        m_stack->addWidget(created);
    }
    createFields(m_design.fields);
    createChildren();
    auto *frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    auto *inner = new QVBoxLayout(frame);
    layout::setMargins(inner, 0);
    inner->addWidget(m_stack);
    auto *right = new QVBoxLayout;
    right->setSpacing(0);
    right->addWidget(m_tabs);
    right->addWidget(frame, 1);
    return right;
}

void frmSection::createChildren()
{
    for (const records::ChildGrid &wanted : m_design.children) {
        auto *grid = new ChildGridView(wanted, state().path(m_design.file), &dtaData(), panel(wanted.panel));
        panel(wanted.panel)->column()->addWidget(grid, 1);
        keep(grid->grid());
        m_children.insert(wanted.control, grid);
    }
    if (m_design.picturePanel.isEmpty())
        return;
    SectionPanel *on = panel(m_design.picturePanel);
    m_pictures = new PictureSetView(m_design.letter, on);
    on->column()->addWidget(m_pictures, 1);
    dtaData().addRowWriter(m_pictures, [this] { return m_pictures->save(); }, [this] { m_pictures->undo(); },
                           [this] { return m_pictures->isChanged(); }, [this] { m_pictures->retake(); });
}

void frmSection::composeScreen()
{
    createButtons();
    auto *left = new QWidget(this);
    left->setFixedWidth(leftWidth);
    QLayout *column = createLeft();
    layout::setMargins(column, 0);
    left->setLayout(column);
    auto *body = new QHBoxLayout;
    layout::setMargins(body, 2 * layout::unit);
    body->setSpacing(2 * layout::unit);
    body->addWidget(left);
    body->addLayout(createRight(), 1);
    auto *rule = new QFrame(this);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    auto *all = new QVBoxLayout(this);
    layout::setMargins(all, 0);
    all->setSpacing(0);
    all->addLayout(body, 1);
    all->addWidget(rule);
    all->addWidget(createKeyRow(recordKeys(), screenKeys()));
    for (SectionPanel *panel : m_panels) {
        if (panel->findChildren<QTextEdit *>().isEmpty() && panel->findChildren<ChildGridView *>().isEmpty())
            panel->column()->addStretch(1);
    }
    resize(145 * layout::unit, 88 * layout::unit);
}

// The Tab key goes as the screen reads: tree and picture, the tabs, the fields with their buttons, the buttons of the screen.
void frmSection::orderTabs()
{
    QWidgetList chain;
    for (const records::TreeButton &row : m_design.trees)
        chain += control<QWidget>(row.name);
    chain += m_tree;
    if (hasControl(u"txtSearch"_s))
        chain += control<QWidget>(u"txtSearch"_s);
    for (QAbstractButton *step : m_navigator->findChildren<QAbstractButton *>())
        chain += step;
    chain += m_image;
    chain += m_tabs;
    chain += fieldChain();
    for (const QString &name : recordKeys() + screenKeys())
        chain += control<QWidget>(name);
    chainTabs(chain);
}

void frmSection::highlight(const QString &name)
{
    for (const records::TreeButton &row : m_design.trees) {
        auto *key = control<QPushButton>(row.name);
        QPalette own = QApplication::palette(key);
        if (row.name == name) {
            for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
                own.setColor(group, QPalette::Button, highlightColour);
                own.setColor(group, QPalette::ButtonText, controls::blackOrWhiteOn(highlightColour));
            }
        }
        key->setPalette(own);
    }
}

// A change of the desktop's palette reaches what is painted in colours of its own.
void frmSection::changeEvent(QEvent *event)
{
    RecordForm::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange && m_stack && m_stack->count() > 0)
        GetColours();
}

}
