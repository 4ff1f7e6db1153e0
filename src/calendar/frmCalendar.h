#pragma once

#include "calendar/monthlist.h"
#include "platform/controls/form.h"
#include "session/recordcall.h"

#include <array>

class QAction;
class QBoxLayout;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QScrollArea;
class QScrollBar;
class QStackedWidget;
class QTimer;

namespace vorel {

namespace controls {
class PictureBox;
class RichTextBox;
}
class CalendarDay;
class SmallMonth;

// What the calendar asks of the rooms above it.
struct CalendarCalls {
    std::function<void(const RecordCall &call, QWidget *screen)> open;      // the record screen of a reminder
    std::function<void(int year, int month, const CalendarPaper &paper)> print;
};

// The month with its picture and its list, and the year. Follows every change of the reminders.
class frmCalendar : public controls::Form {
    Q_OBJECT
public:
    explicit frmCalendar(CalendarCalls calls, QWidget *parent = nullptr);

    void DefaultDate(const QString &date);          // a text that is no date is today
    void showDay(basic::DateTime day);
    basic::DateTime shownDate() const { return m_date; }
    void UpdateTitle();
    bool isYearShown() const;
    void reload();                                  // the rows anew, once the program comes to rest

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Layout (frmCalendarLayout.cpp)
    void compose();
    QLayout *composeHead();
    QWidget *composeMonth();
    QWidget *composeYear();
    QWidget *composeSide();
    QLayout *composeKinds();
    QWidget *composeKeys();
    QAbstractButton *arrow(const QString &name, Qt::ArrowType arrow, const QString &spoken);
    void connectHandlers();
    void connectMonth();
    void createNewEntries();
    void paintScreen();

    // The month (frmCalendar.cpp)
    void selectDate(basic::DateTime day);
    void setControls();
    void readMonth();
    void drawMonth();
    void readYear();
    void drawYear();
    void LBL_Date_Click(int index);
    void showWaiting();
    MonthKinds kinds() const;
    ListKinds listKinds() const;
    bool ticked(const QString &name) const;

    // What its buttons do
    void cmdFind_Click();
    void cmdColor_Click();
    void cmdMonth_Click();
    void DisplayYearCalendar(bool show);
    void GetCalendarData(dao::Database &database);
    void PrintWholeCalendar();
    void picImage_Click();
    void DisplayPicture();
    QString GetFilePath(const QString &path);
    void chkInfo_Click();
    void arrange();

    // The rows of a day
    void openDay(const DayEntry *entry);
    void openRow(const DayEntry &entry);
    void openNew(DayKind kind);
    void showDayMenu(const QPoint &screenPlace);
    void fillDayMenu(QMenu &menu);
    CalendarDay *pickedCell() const;

    CalendarCalls m_calls;
    std::array<CalendarDay *, monthCellCount> m_cells{};
    std::array<QLabel *, 7> m_heads{};
    std::array<QLabel *, 6> m_weeks{};
    std::array<SmallMonth *, 12> m_months{};
    QLabel *m_title = nullptr, *m_pictureFile = nullptr;
    QScrollBar *m_scrollMonth = nullptr, *m_scrollYear = nullptr;
    QComboBox *m_cboMonth = nullptr, *m_cboYear = nullptr, *m_cboCategory = nullptr;
    QAbstractButton *m_yearKey = nullptr, *m_detailsKey = nullptr;
    QLineEdit *m_txtDate = nullptr;
    QStackedWidget *m_pages = nullptr;
    QScrollArea *m_year = nullptr;
    QBoxLayout *m_head = nullptr;                   // its two halves lie below each other where the width does not do
    std::array<QAction *, 3> m_newEntries{};        // New appointment, bill, event
    QGridLayout *m_grid = nullptr;                  // of the days
    QWidget *m_side = nullptr;
    controls::PictureBox *m_picture = nullptr;
    controls::RichTextBox *m_info = nullptr;
    QTimer *m_timer = nullptr;

    basic::DateTime m_date, m_today;
    DaySpan m_span;                                 // the shown month's first and last day
    int m_days = 0;                                 // of the shown month
    std::vector<DayEntry> m_entries;                // of the shown month
    int m_weekStart = 1;
    int m_markedYear = 0;                           // whose marks the year view has
    bool m_drawing = false, m_isStale = true;
};

// Opens the calendar beside the screen that is worked on; one that is open comes up. day: nullopt = as it is, or today.
void showCalendar(const CalendarCalls &calls, QWidget *parent, const std::optional<basic::DateTime> &day = {});
// The same, modal.
void showCalendarModal(const CalendarCalls &calls, QWidget *parent);

}
