#pragma once

#include "calendar/picker.h"
#include "platform/controls/form.h"

#include <array>

class QAbstractButton;
class QLabel;
class QScrollBar;

namespace vorel {

class DayCell;

// The small modal month calendar of the date boxes. Shown by OpenDatePicker.
class frmCalendarDrop : public controls::Form {
    Q_OBJECT
public:
    explicit frmCalendarDrop(QWidget *parent = nullptr);

    // Goes to the day, or to today without one. CmdAction comes back to it.
    void DefaultDate(const std::optional<basic::DateTime> &day);
    void UpdateTitle();
    // What it drops down beside. Global coordinates.
    void setDropArea(const QRect &area) { m_area = area; }
    static QPoint placeBeside(const QRect &area, QSize size, const QRect &desktop);

    basic::DateTime selectedDate() const { return m_date; }
    bool applied() const { return m_applied; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void compose();
    QLayout *composeMonth();
    QAbstractButton *createArrow(const QString &name, Qt::ArrowType arrow, int months);
    void connectHandlers();
    void drawMonth();
    void selectDate(basic::DateTime date);
    void LBL_Date_Click(int index);
    void HScroll_Change();
    void CmdAction_Click();
    void cmdApply_Click();

    std::array<DayCell *, monthCellCount> m_cells{};
    QLabel *m_title = nullptr;
    QLabel *m_given = nullptr;
    QScrollBar *m_month = nullptr, *m_year = nullptr;
    QAbstractButton *m_today = nullptr, *m_action = nullptr, *m_apply = nullptr, *m_cancel = nullptr;
    QRect m_area;
    basic::DateTime m_date, m_givenDate;
    int m_weekStart = 1;
    bool m_drawing = false;
    bool m_applied = false;
};

}
