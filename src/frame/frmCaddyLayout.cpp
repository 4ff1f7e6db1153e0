#include "frame/frmCaddyLayout.h"

#include "calendar/frmCalendarSmallMonth.h"
#include "frame/frmCaddyGround.h"
#include "frame/frmCaddyHead.h"
#include "frame/frmCaddyIcons.h"
#include "frame/frmCaddyInfo.h"
#include "frame/frmCaddyPicture.h"
#include "frame/frmCaddyRail.h"
#include "frame/menus.h"
#include "platform/controls/elidedlabel.h"
#include "platform/controls/form.h"
#include "platform/controls/layout.h"
#include "session/sectiondesign.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

namespace vorel {

using namespace Qt::StringLiterals;
namespace layout = controls::layout;
using layout::unit;

namespace {

struct Tool {
    const char16_t *name;
    const char16_t *icon;
    const char16_t *tip;
};
constexpr Tool tools[] = {
    {u"cmdCalendar", u"view-calendar-month", u"Calendar"},
    {u"cmdCalculator", u"accessories-calculator", u"Calculator"},
    {u"cmdInvoice", u"view-financial-transfer", u"Invoices"},
    {u"cmdEmail", u"mail-message", u"Email"},
    {u"cmdSticky", u"knotes", u"Sticky note"},
    {u"cmdInfo", u"help-about", u"Information"},
    {u"cmdBackground", u"view-preview", u"Screen background picture"},
    {u"cmdColor", u"color-management", u"Screen colour"},
    {u"cmdWallpaper", u"preferences-desktop-wallpaper", u"Wallpaper"},
    {u"cmdPopUpCloser", u"window-close", u"Close the pop-up reminders"},
};

// The period keys in fours: back, the period itself, forward.
struct PeriodGroup {
    const char16_t *back, *here, *forward;
    const char16_t *caption;
};
constexpr PeriodGroup periodGroups[] = {
    {u"YESTERDAY", u"TODAY", u"TOMORROW", u"Today"},
    {u"LAST WEEK", u"THIS WEEK", u"NEXT WEEK", u"This Week"},
    {u"LAST MONTH", u"THIS MONTH", u"NEXT MONTH", u"This Month"},
    {u"LAST YEAR", u"THIS YEAR", u"NEXT YEAR", u"This Year"},
};

QString spoken(const QString &key)
{
    return key.left(1) + key.mid(1).toLower();
}

QToolButton *keyButton(CaddyControls &c, const QString &key, const QString &caption)
{
    auto *button = new QToolButton;
    button->setObjectName(key);
    button->setDefaultAction(c.toolbarKeys.at(key));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(spoken(key));
    button->setToolButtonStyle(caption.isEmpty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextOnly);
    return button;
}

// The keys do not move when the group's name changes.
void keepWidth(const CaddyControls::PeriodGroup &group)
{
    int width = 0;
    for (const QString &name : {periodKeyName(group.keys[0]), group.caption, periodKeyName(group.keys[2])})
        width = std::max(width, group.here->fontMetrics().horizontalAdvance(name));
    group.here->setMinimumWidth(width + 2 * unit);
}

void buildKeys(CaddyControls &c)
{
    for (const ToolbarButton &entry : toolbarTable()) {
        auto *action = new QAction(c.Toolbar1);
        action->setObjectName(entry.key);
        action->setText(spoken(entry.key));
        action->setToolTip(entry.toolTip);
        action->setCheckable(entry.key != u"CALCULATOR"_s && entry.key != u"CALENDAR"_s && entry.index != toolbarPrintIndex);
        c.toolbarKeys[entry.key] = action;
    }
}

QWidget *buildSearch(CaddyControls &c)
{
    c.panSearch = new QWidget;
    c.panSearch->setObjectName(u"panSearch"_s);
    c.txtSearch = new QLineEdit;
    c.txtSearch->setObjectName(u"txtSearch"_s);
    c.txtSearch->setPlaceholderText(u"Search"_s);
    c.txtSearch->setAccessibleName(u"Search"_s);
    c.txtSearch->setToolTip(u" Enter your Search Criteria Press ENTER to Edit "_s);
    c.txtSearch->setClearButtonEnabled(true);
    c.txtSearch->setMinimumWidth(120);
    c.txtSearch->setMaximumWidth(260);
    auto *next = new QToolButton;
    next->setObjectName(u"cmdNext"_s);
    next->setToolTip(u"Find the next row"_s);
    next->setAccessibleName(u"Find the next row"_s);
    next->setAutoRaise(true);
    next->setFocusPolicy(Qt::TabFocus);
    c.cmdNext = next;
    auto *row = new QHBoxLayout(c.panSearch);
    row->setContentsMargins(unit, 0, unit, 0);
    row->setSpacing(unit / 2);
    c.lblNotFound = new QLabel(u"Not found"_s);
    c.lblNotFound->setObjectName(u"lblNotFound"_s);
    c.lblNotFound->setAttribute(Qt::WA_TransparentForMouseEvents);
    c.lblNotFound->hide();
    // Within the box: beside it a small screen has no space.
    auto *inside = new QHBoxLayout(c.txtSearch);
    inside->setContentsMargins(0, 0, 3 * unit, 0);          // clear of the button that empties the box
    inside->addWidget(c.lblNotFound, 0, Qt::AlignRight);
    row->addWidget(c.txtSearch, 1);
    row->addWidget(next);
    return c.panSearch;
}

void buildToolbar(QMainWindow *window, CaddyControls &c)
{
    c.Toolbar1 = new QToolBar;
    c.Toolbar1->setObjectName(u"Toolbar1"_s);
    c.Toolbar1->setWindowTitle(u"Periods and search"_s);
    c.Toolbar1->setMovable(false);
    c.Toolbar1->setContextMenuPolicy(Qt::PreventContextMenu);
    buildKeys(c);
    for (const PeriodGroup &group : periodGroups) {
        auto *box = new QWidget;
        auto *row = new QHBoxLayout(box);
        row->setContentsMargins(0, 0, unit / 2, 0);
        row->setSpacing(0);
        const QString here = QString::fromUtf16(group.here);
        c.toolbarKeys.at(here)->setText(QString::fromUtf16(group.caption));
        // Without an icon set the arrows are texts: whole names would push the search off the bar.
        c.toolbarKeys.at(QString::fromUtf16(group.back))->setIconText(u"\u2039"_s);
        c.toolbarKeys.at(QString::fromUtf16(group.forward))->setIconText(u"\u203A"_s);
        row->addWidget(keyButton(c, QString::fromUtf16(group.back), {}));
        QToolButton *middle = keyButton(c, here, QString::fromUtf16(group.caption));
        row->addWidget(middle);
        row->addWidget(keyButton(c, QString::fromUtf16(group.forward), {}));
        c.periodKeys.push_back(c.Toolbar1->addWidget(box));
        c.periodGroups.push_back({box, middle, {QString::fromUtf16(group.back), here, QString::fromUtf16(group.forward)},
                                  QString::fromUtf16(group.caption)});
        keepWidth(c.periodGroups.back());
    }
    c.toolbarKeys.at(u"ALL RECORDS"_s)->setText(u"All"_s);
    c.periodKeys.push_back(c.Toolbar1->addWidget(keyButton(c, u"ALL RECORDS"_s, u"All"_s)));
    c.periodKeys.push_back(c.Toolbar1->addSeparator());
    for (const auto &[key, shortName] : {std::pair{u"CALENDAR"_s, u"Cal"_s}, {u"CALCULATOR"_s, u"Calc"_s}, {u"PRINT CURRENT CATEGORY"_s, u"Print"_s}}) {
        c.toolbarKeys.at(key)->setIconText(shortName);
        c.Toolbar1->addWidget(keyButton(c, key, {}));
    }
    auto *gap = new QWidget;
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    c.Toolbar1->addWidget(gap);
    c.Toolbar1->addWidget(buildSearch(c));
    window->addToolBar(Qt::TopToolBarArea, c.Toolbar1);
}

controls::Grid *makeGrid(const QString &name, const QString &title, controls::DataControl *data)
{
    auto *grid = new controls::Grid;
    grid->setObjectName(name);
    grid->setTitle(title);
    grid->setAccessibleName(title);
    grid->setMinimumHeight(72);
    grid->setDataControl(data);
    return grid;
}

std::array<GridPane, 4> panesOfSections()
{
    return {{{.code = u"A"_s, .sectionName = u"Appointments"_s, .layoutWord = u"APPS"_s, .sql = &ShownPeriod::gSqlAppointments,
              .newRowSource = u"select * from [APPOINTMENTS] ORDER BY [DATE],[APPTIME],[APPOINTMENT]"_s},
             {.code = u"B"_s, .sectionName = u"Bills"_s, .layoutWord = u"BILLS"_s, .sql = &ShownPeriod::gSqlBills,
              .newRowSource = u"select * from [BILLS] ORDER BY [DATE],[BILL],[AMOUNT]"_s, .textColumn = 3},
             {.code = u"E"_s, .sectionName = u"Events"_s, .layoutWord = u"EVENTS"_s, .sql = &ShownPeriod::gSqlEvents,
              .newRowSource = u"select * from [EVENTS] ORDER BY [DATE],[DATETO],[SUBJECT],[EVENT]"_s},
             {}}};
}

struct GridText {
    const char16_t *grid, *title, *data;
};
constexpr GridText gridTexts[] = {
    {u"APPOINTMENTSGRID", u"APPOINTMENTS, ENGAGEMENTS etc", u"dtaAppointmentsData"},
    {u"BILLSGRID", u"BILLS", u"dtaBillsData"},
    {u"EVENTSGRID", u"EVENTS eg  Birthdays, Anniversaries, Sports etc", u"dtaEventsData"},
    {u"SUBJECTGRID", u"", u"dtaSubjects"},
};

void buildGrids(QMainWindow *window, CaddyControls &c)
{
    c.panes = panesOfSections();
    c.SSPanel1 = new QSplitter(Qt::Vertical);
    c.SSPanel1->setObjectName(u"SSPanel1"_s);
    c.SSPanel1->setChildrenCollapsible(false);
    c.SSPanel1->setHandleWidth(unit);
    for (std::size_t i = 0; i < c.panes.size(); ++i) {
        GridPane &pane = c.panes[i];
        pane.data = new controls::DataControl(window);
        pane.data->setObjectName(QString::fromUtf16(gridTexts[i].data));
        pane.grid = makeGrid(QString::fromUtf16(gridTexts[i].grid), QString::fromUtf16(gridTexts[i].title), pane.data);
        c.SSPanel1->addWidget(pane.grid);
        c.SSPanel1->setStretchFactor(static_cast<int>(i), 1);
        pane.grid->hide();
    }
}

QWidget *buildHead(CaddyControls &c)
{
    c.panPeriod = new controls::ElidedLabel;
    c.panPeriod->setObjectName(u"panPeriod"_s);
    c.panPeriod->setAccessibleName(u"Period on show"_s);
    c.panPeriod->setFont(headingFont(c.panPeriod->font()));
    c.panNew = controls::button(u"panNew"_s, u"New"_s, {}, u"New record (Ctrl+N)"_s);
    c.appointments().panEdit = controls::button(u"panEditA"_s, u"Appointment"_s, {}, u"Open the selected appointment"_s);
    c.bills().panEdit = controls::button(u"panEditB"_s, u"Bill"_s, {}, u"Open the selected bill"_s);
    c.events().panEdit = controls::button(u"panEditE"_s, u"Event"_s, {}, u"Open the selected event"_s);
    for (GridPane &pane : c.reminders())
        pane.panEdit->setAccessibleName(u"Edit "_s + pane.panEdit->text());
    c.subjects().panEdit = controls::button(u"panEditS"_s, u"Edit"_s, {}, u"Open the selected record"_s);
    return new CaddyHead(c.panPeriod, {c.panNew, c.appointments().panEdit, c.bills().panEdit, c.events().panEdit, c.subjects().panEdit});
}

QWidget *buildSide(CaddyControls &c)
{
    c.picDetails = new DetailPane;
    auto *side = new QWidget;
    side->setObjectName(u"SidePane"_s);
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(unit);
    column->addWidget(c.picDetails, 1);
    c.picMonth = new MonthBox;
    column->addWidget(c.picMonth);
    auto *places = new QGridLayout;
    places->setSpacing(unit / 2);
    int place = 0;
    for (const Tool &tool : tools) {
        auto *button = new QToolButton;
        const QString name = QString::fromUtf16(tool.name), tip = QString::fromUtf16(tool.tip);
        button->setObjectName(name);
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::StrongFocus);
        c.tools[name] = button;
        places->addWidget(button, place / 5, place % 5, Qt::AlignCenter);
        ++place;
    }
    column->addLayout(places);
    side->setMinimumWidth(224);
    side->setMaximumWidth(420);
    return side;
}

void buildPage(QMainWindow *window, CaddyControls &c)
{
    buildGrids(window, c);
    auto *middle = new QWidget;
    auto *column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(unit);
    column->addWidget(buildHead(c));
    c.lblNotice = new QLabel;
    c.lblNotice->setObjectName(u"lblNotice"_s);
    c.lblNotice->setAccessibleName(u"Notice"_s);
    c.lblNotice->setWordWrap(true);
    c.lblNotice->setFrameShape(QFrame::StyledPanel);
    c.lblNotice->setMargin(unit);
    c.lblNotice->hide();
    column->addWidget(c.lblNotice);
    column->addWidget(c.SSPanel1, 1);
    auto *across = new QSplitter(Qt::Horizontal);
    across->setObjectName(u"Panes"_s);
    across->setChildrenCollapsible(false);
    across->setHandleWidth(unit);
    across->addWidget(middle);
    across->addWidget(buildSide(c));
    across->setStretchFactor(0, 1);
    across->setStretchFactor(1, 0);
    across->setSizes({800, 232});
    c.rail = new Rail;
    c.page = new CaddyGround;
    auto *row = new QHBoxLayout(c.page);
    row->setContentsMargins(0, 0, unit, unit);
    row->setSpacing(0);
    row->addWidget(c.rail);
    auto *inner = new QVBoxLayout;
    inner->setContentsMargins(unit, unit, 0, 0);
    inner->addWidget(across);
    row->addLayout(inner, 1);
    window->setCentralWidget(c.page);
}

// As the eye goes: periods and search, the rail, the buttons over the grids, the grids, the tools at the right.
void orderTabs(const CaddyControls &c)
{
    std::vector<QWidget *> order = {c.txtSearch, static_cast<QWidget *>(c.cmdNext)};
    for (const int index : c.rail->order())
        order.push_back(c.rail->button(index));
    order.push_back(c.panNew);
    for (const GridPane &pane : c.panes)
        order.push_back(pane.panEdit);
    for (const GridPane &pane : c.panes)
        order.push_back(pane.grid);
    order.push_back(c.picMonth);
    for (const Tool &tool : tools)
        order.push_back(c.tools.at(QString::fromUtf16(tool.name)));
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

QAbstractButton *signal(const QString &name, const QString &spokenName)
{
    auto *button = new SignalButton;
    button->setObjectName(name);
    button->setAutoDefault(false);
    button->setToolTip(spokenName);
    button->setAccessibleName(spokenName);
    button->hide();
    return button;
}

void buildStrip(QMainWindow *window, CaddyControls &c)
{
    c.StatusBar1 = new QStatusBar;
    c.StatusBar1->setObjectName(u"StatusBar1"_s);
    const auto label = [](const QString &name, const QString &spokenName) {
        auto *text = new controls::ElidedLabel;
        text->setObjectName(name);
        text->setAccessibleName(spokenName);
        text->setMargin(unit / 2);
        text->setMaximumWidth(28 * unit);
        text->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
        return text;
    };
    c.panInfo = new InfoPanel;
    c.panInfo->setObjectName(u"panInfo"_s);
    c.panInfo->setAccessibleName(u"Hints"_s);
    c.panAppoint = signal(u"panAppoint"_s, u"Appointment reminder"_s);
    c.panMessages = signal(u"panMessages"_s, u"Messages"_s);
    c.panBackup = signal(u"panBackup"_s, u"Backup reminder"_s);
    c.lblUsername = label(u"lblUsername"_s, u"User"_s);
    c.lblDate = label(u"lblDate"_s, u"Date"_s);
    c.lblTime = label(u"lblTime"_s, u"Time"_s);
    c.StatusBar1->addWidget(c.panAppoint);
    c.StatusBar1->addWidget(c.panMessages);
    c.StatusBar1->addWidget(c.panBackup);
    c.StatusBar1->addWidget(c.panInfo, 1);
    c.StatusBar1->addPermanentWidget(c.lblUsername);
    c.StatusBar1->addPermanentWidget(c.lblDate);
    c.StatusBar1->addPermanentWidget(c.lblTime);
    window->setStatusBar(c.StatusBar1);
}

}

QString periodKeyName(const QString &key)
{
    const QString small = key.toLower();
    QString name = small.left(1).toUpper() + small.mid(1);
    for (qsizetype i = 1; i < name.size(); ++i)
        if (name[i - 1] == u' ')
            name[i] = name[i].toUpper();
    return name;
}

QFont headingFont(const QFont &body)
{
    QFont heading = body;
    heading.setPointSizeF(body.pointSizeF() * 1.25);
    heading.setBold(true);
    return heading;
}

void applyCaddyIcons(CaddyControls &c)
{
    for (const PeriodGroup &group : periodGroups) {
        c.toolbarKeys.at(QString::fromUtf16(group.back))->setIcon(caddyIcon(u"go-previous"_s));
        c.toolbarKeys.at(QString::fromUtf16(group.forward))->setIcon(caddyIcon(u"go-next"_s));
    }
    for (const ToolbarButton &entry : toolbarTable())
        if (QAction *key = c.toolbarKeys.at(entry.key); !key->isCheckable())
            key->setIcon(caddyIcon(entry.icon));
    for (const Tool &tool : tools)
        c.tools.at(QString::fromUtf16(tool.name))->setIcon(caddyIcon(QString::fromUtf16(tool.icon)));
    c.cmdNext->setIcon(caddyIcon(u"go-down"_s));
    c.panNew->setIcon(caddyIcon(u"list-add"_s));
    for (GridPane &pane : c.reminders())
        pane.panEdit->setIcon(caddyIcon(u"document-edit"_s));
    showEditIcon(c);
}

// On the shopping list the button clears the checks: no pencil.
void showEditIcon(CaddyControls &c)
{
    c.subjects().panEdit->setIcon(isShown(SectionId::Shopping) ? QIcon() : caddyIcon(u"document-edit"_s));
}

CaddyControls::CaddyControls(QMainWindow *window)
{
    CaddyControls &c = *this;
    buildToolbar(window, c);
    buildPage(window, c);
    buildStrip(window, c);
    orderTabs(c);
    applyCaddyIcons(c);
    c.Timer2 = new QTimer(window);
    c.Timer2->setObjectName(u"Timer2"_s);
    c.Timer2->setInterval(6000);
    c.TimerMessages = new QTimer(window);
    c.TimerMessages->setObjectName(u"TimerMessages"_s);
    c.TimerMessages->setInterval(60000);
}

GridPane *CaddyControls::reminder(const QString &code)
{
    for (GridPane &pane : reminders())
        if (pane.code == code)
            return &pane;
    return nullptr;
}

GridPane &CaddyControls::paneOf(const controls::Grid *grid)
{
    return *std::find_if(panes.begin(), panes.end(), [grid](const GridPane &pane) { return pane.grid == grid; });
}

GridPane *CaddyControls::firstShown()
{
    for (GridPane &pane : reminders())
        if (pane.isShown())
            return &pane;
    return nullptr;
}

bool CaddyControls::isTyping() const
{
    const QWidget *focus = QApplication::focusWidget();
    return std::any_of(panes.begin(), panes.end(), [focus](const GridPane &pane) {
        return pane.grid->isRowChanged() || (focus && pane.grid->viewport()->isAncestorOf(focus));
    });
}

void CaddyControls::enableAction(const QString &name, bool enable)
{
    if (const auto found = actions.find(name); found != actions.end())
        found->second->setEnabled(enable);
}

void CaddyControls::showAction(const QString &name, bool show)
{
    if (const auto found = actions.find(name); found != actions.end())
        found->second->setVisible(show);
}

}
