#include "records/frmSection.h"

#include "platform/basic/colournumber.h"
#include "platform/basic/prompts.h"
#include "platform/controls/colours.h"
#include "platform/controls/layout.h"
#include "platform/controls/picturebox.h"
#include "platform/desktop/desktop.h"
#include "records/frmRecordTree.h"
#include "records/frmSectionPanel.h"
#include "session/ini.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>

// Where everything stands.
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

struct KeyRow {
    const char16_t *name, *caption, *icon, *tip;
};
constexpr KeyRow recordKeys[] = {
    {u"cmdNew", u"&New", u"document-new", u" Adds a new Record (Ctrl+N) "},
    {u"cmdDelete", u"De&lete", u"edit-delete", u" Deletes this Record "},
    {u"cmdUpdate", u"&Update", u"document-save", u" Saves this Record (Ctrl+S) "},
};
constexpr KeyRow screenKeys[] = {
    {u"cmdView", u"Vie&w", u"document-print-preview", u" Shows this Record in the Browser "},
    {u"cmdWeb", u"We&b", u"internet-web-browser", u" Opens a Website on this subject "},
    {u"cmdColor", u"Colou&r...", u"color-management", u" Changes the Colour of this screen "},
    {u"cmdInfo", u"&Info", u"help-contents", u" Information about this section (F1) "},
    {u"cmdClose", u"Cl&ose", u"window-close", u""},
};

}

void frmSection::loadSettings()
{
    const QString back = GetIniValue(iniSettings, m_design.colourKey.toString(), {});
    if (!back.isEmpty()) {
        if (const auto number = colourNumber(back); number && *number <= 0xFFFFFF)
            m_back = basic::colourOfNumber(*number);
    }
    m_fieldColour = settingColour(u"DefaultColour"_s, 0xFFFFFF);
    m_focusColour = settingColour(u"EditColour"_s, 0xFFFF);
}

QImage frmSection::groundPicture() const
{
    if (!m_design.pictureKey.isEmpty() && GetIniValue(iniSettings, m_design.pictureKey.toString(), u"1"_s) != u"1")
        return {};
    const QString file = desktop::findResource(m_design.picture.toString());
    return file.isEmpty() ? QImage() : QImage(file);
}

QPushButton *frmSection::addButton(const QString &name, const QString &caption, const QString &icon, const QString &tip)
{
    auto *made = qobject_cast<QPushButton *>(controls::button(name, caption, icon, tip));
    made->setParent(this);
    if (caption.isEmpty()) {                // a desktop without that icon still tells what the key is for
        const auto own = icon == u"view-refresh" ? QStyle::SP_BrowserReload : QStyle::SP_FileDialogDetailedView;
        made->setIcon(QIcon::fromTheme(icon, style()->standardIcon(own)));
        made->setText({});
    }
    keep(made);
    return made;
}

void frmSection::createButtons()
{
    const auto text = [](const char16_t *words) { return QString::fromUtf16(words); };
    for (const auto &row : recordKeys)
        addButton(text(row.name), text(row.caption), text(row.icon), text(row.tip));
    for (const auto &row : screenKeys)
        addButton(text(row.name), text(row.caption), text(row.icon), text(row.tip));
    for (const records::TreeButton &row : m_design.trees)
        addButton(row.name.toString(), row.caption.toString(), {}, row.tip.toString())->setMinimumWidth(8 * layout::unit);
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

// The notes stand on the upper and lower edge of the picture, wherever that ends in its box.
void frmSection::placePicInfo()
{
    const QSize picture = m_image->pictureSize();
    const QSize fitted = picture.isValid() ? picture.scaled(m_image->size(), Qt::KeepAspectRatio) : m_image->size();
    const int top = (m_image->height() - fitted.height()) / 2;
    const int high = 3 * layout::unit;
    control<QLabel>(u"lblPicInfo1"_s)->setGeometry(0, top, m_image->width(), high);
    control<QLabel>(u"lblPicInfo2"_s)->setGeometry(0, top + fitted.height() - high, m_image->width(), high);
}

QLayout *frmSection::createLeft()
{
    m_treeKeys = new QHBoxLayout;
    m_treeKeys->setSpacing(layout::unit);
    for (const records::TreeButton &row : m_design.trees)
        m_treeKeys->addWidget(control<QWidget>(row.name.toString()), 1);
    m_tree = new RecordTree(this);
    m_tree->setAccessibleName(u"Records"_s);
    keep(m_tree);
    m_empty = new QLabel(m_design.emptyNote.toString(), m_tree->viewport());
    m_empty->setObjectName(u"lblEmpty"_s);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setForegroundRole(QPalette::PlaceholderText);
    auto *over = new QVBoxLayout(m_tree->viewport());
    over->addWidget(m_empty);
    m_navigator = new controls::DataNavigator(m_data);
    auto *left = new QVBoxLayout;
    left->setSpacing(layout::unit);
    left->addLayout(m_treeKeys);
    left->addWidget(m_tree, 1);
    left->addWidget(m_navigator);
    left->addWidget(createPicture());
    return left;
}

void frmSection::placeBesideTrees(QWidget *made)
{
    made->setMinimumWidth(0);
    m_treeKeys->addWidget(made);
}

void frmSection::placeBeside(const QString &field, QWidget *made)
{
    auto *row = qobject_cast<QHBoxLayout *>(m_lines.value(field)->layout());
    row->insertWidget(row->count() - 1, made);
}

QLayout *frmSection::createRight()
{
    m_tabs = new QTabBar(this);
    m_tabs->setObjectName(u"TabStrip1"_s);
    m_tabs->setDrawBase(false);
    m_tabs->setExpanding(false);
    keep(m_tabs);
    m_stack = new QStackedWidget(this);
    for (const records::Panel &row : m_design.panels) {
        auto *made = new SectionPanel(row.name.toString(), m_stack);
        m_panels.insert(row.name.toString(), made);
        keep(made);
        m_tabs->addTab(row.caption.toString());
        m_stack->addWidget(made);
    }
    createFields();
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

QLayout *frmSection::createKeys()
{
    auto *keys = new QHBoxLayout;
    keys->setSpacing(layout::unit);
    layout::setMargins(keys, 2 * layout::unit);
    for (const auto &row : recordKeys)
        keys->addWidget(control<QWidget>(QString::fromUtf16(row.name)));
    keys->addStretch(1);
    for (const auto &row : screenKeys)
        keys->addWidget(control<QWidget>(QString::fromUtf16(row.name)));
    return keys;
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
    all->addLayout(createKeys());
    for (SectionPanel *one : std::as_const(m_panels)) {
        if (one->findChildren<QTextEdit *>().isEmpty())
            one->column()->addStretch(1);
    }
    resize(145 * layout::unit, 88 * layout::unit);
}

// The Tab key goes as the screen reads: tree and picture, the tabs, the fields with their keys, the keys of the screen.
void frmSection::orderTabs()
{
    QWidgetList chain;
    const auto add = [&](QWidget *widget) {
        if (widget && widget->focusPolicy() != Qt::NoFocus && !chain.contains(widget))
            chain += widget;
    };
    for (const records::TreeButton &row : m_design.trees)
        add(control<QWidget>(row.name.toString()));
    add(m_tree);
    for (QAbstractButton *step : m_navigator->findChildren<QAbstractButton *>())
        add(step);
    add(m_image);
    add(m_tabs);
    for (const records::Field &field : m_design.fields) {
        add(control<QWidget>(field.control.toString()));
        if (QWidget *line = m_lines.value(field.control.toString())) {
            for (QPushButton *key : line->findChildren<QPushButton *>())
                add(key);
        }
    }
    for (const auto &row : recordKeys)
        add(control<QWidget>(QString::fromUtf16(row.name)));
    for (const auto &row : screenKeys)
        add(control<QWidget>(QString::fromUtf16(row.name)));
    for (qsizetype i = 1; i < chain.size(); ++i)
        setTabOrder(chain[i - 1], chain[i]);
}

void frmSection::highlight(const QString &name)
{
    for (const records::TreeButton &row : m_design.trees) {
        auto *key = control<QPushButton>(row.name.toString());
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
    Form::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange && !m_ending && m_stack)
        GetColours();
}

}
