#include "calendar/frmCalendar.h"

#include "calendar/frmCalendarDay.h"
#include "calendar/frmCalendarSmallMonth.h"
#include "calendar/monthpage.h"
#include "platform/basic/clock.h"
#include "platform/basic/colournumber.h"
#include "platform/controls/colours.h"
#include "platform/controls/elidedlabel.h"
#include "platform/controls/keyrow.h"
#include "platform/controls/layout.h"
#include "platform/controls/picturebox.h"
#include "platform/controls/richtextbox.h"
#include "session/changes.h"
#include "session/datafiles.h"
#include "session/ini.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>

// How the calendar screen is put together.
namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

namespace {

constexpr int sideWidth = 296;
constexpr QSize usualSize(1040, 700), leastSize(600, 340);

struct Kind {
    const char16_t *name, *caption, *tip;
    bool isTicked;
};
constexpr Kind kindTable[] = {
    {u"chkAppointments", u"&Appointments", u" Appointments in the month, the list and on paper ", true},
    {u"chkBills", u"&Bills", u" Bills in the month, the list and on paper ", true},
    {u"chkEvents", u"&Events", u" Events in the month, the list and on paper ", true},
    {u"chkToDo", u"&To do", u" The tasks to do in the list and on paper ", false},
    {u"chkCalendar", u"&Year on paper", u" The twelve months of the present year on the printed page ", true},
    {u"chkInfo", u"&List", u" The list of what falls in the month ", true},
};

QScrollBar *scrollBar(const QString &name, const QString &spoken, int least, int most, int page)
{
    auto *bar = new QScrollBar(Qt::Horizontal);
    bar->setObjectName(name);
    bar->setAccessibleName(spoken);
    bar->setToolTip(spoken);
    bar->setFocusPolicy(Qt::StrongFocus);
    bar->setRange(least, most);
    bar->setPageStep(page);
    return bar;
}

QPushButton *key(const QString &name, const QString &caption, const QString &icon, const QString &tip)
{
    auto *made = qobject_cast<QPushButton *>(controls::button(name, caption, icon, tip));
    made->setAutoDefault(false);
    return made;
}

QComboBox *list(const QString &name, const QString &spoken)
{
    auto *made = new QComboBox;
    made->setObjectName(name);
    made->setAccessibleName(spoken);
    made->setToolTip(spoken);
    return made;
}

QLabel *label(const QString &name, Qt::Alignment alignment = Qt::AlignCenter)
{
    auto *made = new QLabel;
    made->setObjectName(name);
    made->setAlignment(alignment);
    return made;
}

}

QAbstractButton *frmCalendar::arrow(const QString &name, Qt::ArrowType arrow, const QString &spoken)
{
    auto *made = new QToolButton;
    made->setObjectName(name);
    made->setArrowType(arrow);
    made->setAutoRaise(true);
    made->setFocusPolicy(Qt::NoFocus);              // keys do the same
    made->setAccessibleName(spoken);
    made->setToolTip(spoken);
    return made;
}

QLayout *frmCalendar::composeHead()
{
    m_title = label(u"lblTitle"_s, Qt::AlignLeft | Qt::AlignVCenter);
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * 1.9);
    m_title->setFont(large);
    m_title->setMinimumWidth(QFontMetrics(large).horizontalAdvance(u"September 2026"_s));
    m_cboMonth = list(u"cboMonth"_s, u"Month"_s);
    for (const QString &name : monthNames())
        m_cboMonth->addItem(name);
    m_cboYear = list(u"cboYear"_s, u"Year"_s);
    m_cboYear->setMaxVisibleItems(15);
    for (int year = firstYear; year <= lastYear; ++year)
        m_cboYear->addItem(QString::number(year));
    if (auto *view = qobject_cast<QListView *>(m_cboYear->view()))
        view->setUniformItemSizes(true);
    m_txtDate = new QLineEdit;
    m_txtDate->setObjectName(u"txtDate"_s);
    m_txtDate->setAccessibleName(u"Date"_s);
    m_txtDate->setToolTip(u" The picked day; type another date and press Enter "_s);
    m_txtDate->setMaximumWidth(fontMetrics().horizontalAdvance(u"00-00-00000000"_s));
    m_yearKey = key(u"cmdMonth"_s, u"&Year"_s, u"view-calendar-timeline"_s, {});
    m_yearKey->setCheckable(true);
    m_detailsKey = key(u"cmdDetails"_s, u"D&etails"_s, {}, u" The picture, what is shown, and the list "_s);
    m_detailsKey->setCheckable(true);
    m_head = new QBoxLayout(QBoxLayout::LeftToRight);
    m_head->setSpacing(layout::unit);
    m_head->addLayout(layout::Row({arrow(u"cmdPrevious"_s, Qt::LeftArrow, u"Previous month (PgUp)"_s),
                                   arrow(u"cmdNext"_s, Qt::RightArrow, u"Next month (PgDn)"_s), m_title, layout::Stretch{},
                                   key(u"Today"_s, u"To&day"_s, u"go-jump-today"_s, u" Goes to today (T) "_s)}), 1);
    m_head->addLayout(layout::Row({m_cboMonth, arrow(u"cmdLessYear"_s, Qt::LeftArrow, u"Year before (Ctrl+PgUp)"_s), m_cboYear,
                                   arrow(u"cmdAddYear"_s, Qt::RightArrow, u"Year after (Ctrl+PgDn)"_s), m_txtDate,
                                   key(u"cmdFind"_s, u"&Find"_s, {}, u" Goes to the typed date "_s), m_yearKey, m_detailsKey}));
    return m_head;
}

QWidget *frmCalendar::composeMonth()
{
    auto *page = new QWidget;
    auto *grid = m_grid = new QGridLayout;
    grid->setSpacing(0);
    QFont small = font();
    small.setPointSizeF(font().pointSizeF() * 0.88);
    for (int column = 0; column < monthColumns; ++column) {
        auto *&head = m_heads[static_cast<std::size_t>(column)];
        head = label(u"LBL_Day(%1)"_s.arg(column));
        head->setMargin(layout::unit / 2);
        grid->addWidget(head, 0, column + 1);
        grid->setColumnStretch(column + 1, 1);
    }
    for (int row = 0; row < monthCellCount / monthColumns; ++row) {
        auto *&week = m_weeks[static_cast<std::size_t>(row)];
        week = label(u"LBL_Week(%1)"_s.arg(row), Qt::AlignRight | Qt::AlignTop);
        week->setFont(small);
        week->setMargin(layout::unit / 2);
        week->setMinimumWidth(QFontMetrics(small).horizontalAdvance(u"00"_s) + layout::unit);
        grid->addWidget(week, row + 1, 0);
        grid->setRowStretch(row + 1, 1);
    }
    for (int cell = 0; cell < monthCellCount; ++cell) {
        auto *day = new CalendarDay;
        day->setObjectName(u"LBL_Date(%1)"_s.arg(cell + 1));
        m_cells[static_cast<std::size_t>(cell)] = day;
        grid->addWidget(day, cell / monthColumns + 1, cell % monthColumns + 1);
    }
    m_scrollMonth = scrollBar(u"scrollMonth"_s, u"Month"_s, 1, 12, 3);
    m_scrollYear = scrollBar(u"scrollYear"_s, u"Year"_s, firstYear, lastYear, 10);
    auto *column = new QVBoxLayout(page);
    layout::setMargins(column, 0);
    column->setSpacing(layout::unit);
    column->addLayout(grid, 1);
    column->addLayout(layout::Row({m_scrollMonth, m_scrollYear}));
    return page;
}

QWidget *frmCalendar::composeYear()
{
    auto *page = new QWidget;
    page->setObjectName(u"panYear"_s);
    auto *grid = new QGridLayout(page);
    layout::setMargins(grid, layout::unit / 2);
    grid->setHorizontalSpacing(layout::unit);
    grid->setVerticalSpacing(layout::unit);
    for (int month = 1; month <= 12; ++month) {
        auto *box = new SmallMonth;
        box->setObjectName(u"picMonth(%1)"_s.arg(month));
        box->setArrows(false);
        m_months[static_cast<std::size_t>(month - 1)] = box;
        grid->addWidget(box, (month - 1) / 4, (month - 1) % 4);
    }
    page->installEventFilter(this);                 // a click beside the months hides them
    m_year = new QScrollArea;
    m_year->setFrameShape(QFrame::NoFrame);
    m_year->setWidgetResizable(true);
    m_year->setFocusPolicy(Qt::NoFocus);
    m_year->setWidget(page);
    page->setAutoFillBackground(false);
    m_year->viewport()->setAutoFillBackground(false);
    return m_year;
}

QLayout *frmCalendar::composeKinds()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(layout::unit / 2);
    int place = 0;
    for (const Kind &kind : kindTable) {
        auto *box = new QCheckBox(QString::fromUtf16(kind.caption));
        box->setObjectName(QString::fromUtf16(kind.name));
        box->setToolTip(QString::fromUtf16(kind.tip));
        box->setChecked(kind.isTicked);
        grid->addWidget(box, place / 2, place % 2);
        ++place;
    }
    return grid;
}

QWidget *frmCalendar::composeSide()
{
    m_side = new QWidget;
    m_side->setObjectName(u"panSide"_s);
    m_side->setMinimumWidth(sideWidth);
    m_picture = new controls::PictureBox(u"picImage"_s);
    m_picture->setFocusPolicy(Qt::TabFocus);
    m_picture->setCursor(Qt::PointingHandCursor);
    m_picture->setAccessibleName(u"Picture of the month"_s);
    m_picture->setToolTip(u" Click to choose a picture for this month "_s);
    m_pictureFile = new controls::ElidedLabel;
    m_pictureFile->setObjectName(u"lblPictureFile"_s);
    m_pictureFile->setAccessibleName(u"File of the picture"_s);
    m_pictureFile->setAlignment(Qt::AlignCenter);
    m_cboCategory = list(u"cboCategory"_s, u"Category"_s);
    m_cboCategory->setToolTip(u" Which recurring events come back: all, or those of one category "_s);
    m_info = new controls::RichTextBox;
    m_info->setObjectName(u"rtbInfo"_s);
    m_info->setAccessibleName(u"What falls in the month"_s);
    m_info->setReadOnly(true);
    m_info->setTabChangesFocus(true);
    auto *column = new QVBoxLayout(m_side);
    layout::setMargins(column, 0);
    column->setSpacing(layout::unit);
    column->addWidget(m_picture);
    column->addWidget(m_pictureFile);
    column->addLayout(composeKinds());
    column->addLayout(layout::Fields({{u"&Category:"_s, m_cboCategory}}));
    column->addWidget(m_info, 1);
    column->addStretch();
    return m_side;
}

QWidget *frmCalendar::composeKeys()
{
    auto *row = new controls::KeyRow(
        {key(u"cmdPrint"_s, u"&Print..."_s, u"document-print"_s, u" Prints the month on paper (Ctrl+P) "_s)}, new QWidget,
        {key(u"cmdList"_s, u"Page with l&ist"_s, u"text-html"_s, u" Shows the month with its rows in the browser "_s),
         key(u"cmdBlank"_s, u"Blan&k page"_s, u"text-html"_s, u" Shows the month with room to write in the browser "_s),
         key(u"cmdColor"_s, u"Co&lour..."_s, {}, u" Back colour of this screen "_s),
         key(u"cmdClose"_s, u"Cl&ose"_s, u"window-close"_s, {})}, this);
    layout::setMargins(row->layout(), 0);
    return row;
}

void frmCalendar::compose()
{
    m_pages = new QStackedWidget;
    m_pages->setObjectName(u"panPages"_s);
    QLayout *head = composeHead();
    m_pages->addWidget(composeMonth());
    m_pages->addWidget(composeYear());
    auto *middle = new QHBoxLayout;
    middle->setSpacing(2 * layout::unit);
    middle->addWidget(m_pages, 3);
    middle->addWidget(composeSide(), 1);
    auto *whole = new QVBoxLayout(this);
    layout::setMargins(whole, 2 * layout::unit);
    whole->setSpacing(layout::unit);
    whole->addLayout(head);
    whole->addLayout(middle, 1);
    whole->addWidget(composeKeys());
    whole->setSizeConstraint(QLayout::SetNoConstraint);     // narrower, the parts are laid out otherwise
    setMinimumSize(leastSize);
    resize(usualSize);
    createNewEntries();
}

void frmCalendar::createNewEntries()
{
    const std::tuple<QString, QString, DayKind> entries[] = {{u"mnuNewAppointment"_s, u"New &appointment"_s, DayKind::Appointment},
                                                             {u"mnuNewBill"_s, u"New &bill"_s, DayKind::Bill},
                                                             {u"mnuNewEvent"_s, u"New &event"_s, DayKind::Event}};
    for (std::size_t i = 0; i < m_newEntries.size(); ++i) {
        const auto &[name, text, kind] = entries[i];
        m_newEntries[i] = new QAction(text, this);
        m_newEntries[i]->setObjectName(name);
        on(m_newEntries[i], &QAction::triggered, handlers(), [this, chosen = kind] { openNew(chosen); });
    }
}

void frmCalendar::connectMonth()
{
    for (std::size_t i = 0; i < m_cells.size(); ++i) {
        CalendarDay *day = m_cells[i];
        const int index = static_cast<int>(i) + 1;
        on(day, &CalendarDay::clicked, handlers(), [this, index] { LBL_Date_Click(index); });
        on(day, &CalendarDay::DblClick, handlers(), [this, index, day](const QPoint &place) {
            LBL_Date_Click(index);
            openDay(day->entryAt(place));
        });
        on(day, &CalendarDay::MenuWanted, handlers(), [this, index](const QPoint &place) {
            LBL_Date_Click(index);
            showDayMenu(place);
        });
    }
    for (SmallMonth *month : m_months) {
        on(month, &SmallMonth::DayClicked, handlers(), [this](basic::DateTime day) { selectDate(day); });
        on(month, &SmallMonth::DayDblClicked, handlers(), [this](basic::DateTime day) {
            selectDate(day);
            DisplayYearCalendar(false);
        });
        on(month, &SmallMonth::TitleClicked, handlers(), [this, month] {
            selectDate(basic::DateTime::fromParts(month->year(), month->month(), 1));
            DisplayYearCalendar(false);
        });
        on(month, &SmallMonth::Stepped, handlers(), [this](int years) { selectDate(monthsAway(m_date, 12 * years)); });
    }
}

void frmCalendar::connectHandlers()
{
    const auto click = [this](const QString &name, std::function<void()> step) {
        on(findChild<QAbstractButton *>(name), &QAbstractButton::clicked, handlers(), std::move(step));
    };
    click(u"cmdPrevious"_s, [this] { selectDate(monthsAway(m_date, -1)); });
    click(u"cmdNext"_s, [this] { selectDate(monthsAway(m_date, 1)); });
    click(u"cmdLessYear"_s, [this] { selectDate(monthsAway(m_date, -12)); });
    click(u"cmdAddYear"_s, [this] { selectDate(monthsAway(m_date, 12)); });
    click(u"Today"_s, [this] { selectDate(basic::Date()); });
    click(u"cmdFind"_s, [this] { cmdFind_Click(); });
    click(u"cmdDetails"_s, [this] { arrange(); });
    click(u"cmdMonth"_s, [this] { cmdMonth_Click(); });
    click(u"cmdColor"_s, [this] { cmdColor_Click(); });
    click(u"cmdPrint"_s, [this] { PrintWholeCalendar(); });
    click(u"cmdList"_s, [this] {
        dao::Database database = openDataFile(DataFile::Main);
        PrintCalendarList(database, m_date.year(), m_date.month(), kinds());
    });
    click(u"cmdBlank"_s, [this] { ShowBlankCalendar(m_date.year(), m_date.month()); });
    click(u"cmdClose"_s, [this] { Close(); });
    const auto chosen = [this] {
        if (!m_drawing)
            selectDate(monthsAway(m_date, (m_cboYear->currentIndex() + firstYear - m_date.year()) * 12 + m_cboMonth->currentIndex() + 1
                                              - m_date.month()));
    };
    on(m_cboMonth, &QComboBox::currentIndexChanged, handlers(), chosen);
    on(m_cboYear, &QComboBox::currentIndexChanged, handlers(), chosen);
    const auto scrolled = [this] {
        if (!m_drawing)
            selectDate(monthsAway(m_date, (m_scrollYear->value() - m_date.year()) * 12 + m_scrollMonth->value() - m_date.month()));
    };
    on(m_scrollMonth, &QScrollBar::valueChanged, handlers(), scrolled);
    on(m_scrollYear, &QScrollBar::valueChanged, handlers(), scrolled);
    for (const Kind &kind : kindTable)
        on(findChild<QCheckBox *>(QString::fromUtf16(kind.name)), &QCheckBox::toggled, handlers(), [this] {
            chkInfo_Click();
            reload();
        });
    on(m_cboCategory, &QComboBox::activated, handlers(), [this] { reload(); });
    on(m_picture, &controls::PictureBox::Clicked, handlers(), [this] { picImage_Click(); });
    on(&Changes::instance(), &Changes::changed, handlers(), [this](const QString &table) {
        if (isOnCalendar(table))
            reload();
    });
    m_timer = new QTimer(this);
    m_timer->setSingleShot(true);
    m_timer->setInterval(0);
    on(m_timer, &QTimer::timeout, handlers(), [this] { showWaiting(); });
    connectMonth();
}

// Without a colour of its own the screen has the palette's, light or dark; with it, everything takes its shade from it.
void frmCalendar::paintScreen()
{
    const QString kept = GetIniValue(iniSettings, u"CalendarBackColour"_s, {});
    QPalette colours = QGuiApplication::palette();
    if (const auto number = colourNumber(kept); number && *number <= 0xFFFFFF) {
        const QColor back = basic::colourOfNumber(*number), text = controls::blackOrWhiteOn(back);
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            colours.setColor(role, text);
        colours.setColor(QPalette::Window, back);
        colours.setColor(QPalette::Base, controls::blend(back, text == Qt::white ? QColor(Qt::black) : QColor(Qt::white), 0.35));
        colours.setColor(QPalette::Button, controls::blend(back, text, 0.1));
        colours.setColor(QPalette::PlaceholderText, controls::blend(text, back, 0.35));
    }
    setPalette(colours);
    QPalette pale = colours;
    pale.setColor(QPalette::WindowText, controls::blend(colours.color(QPalette::WindowText), colours.color(QPalette::Window), 0.35));
    for (QLabel *week : m_weeks)
        week->setPalette(pale);
    m_pictureFile->setPalette(pale);
    for (SmallMonth *month : m_months)
        month->update();
}

}
