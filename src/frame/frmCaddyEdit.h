#pragma once

#include "frame/frmCaddyControls.h"
#include "session/mainscreen.h"
#include "session/recordcall.h"

namespace vorel {

// Opens the record screens from the grids.
class CaddyEdit : public QObject {
    Q_OBJECT
public:
    CaddyEdit(CaddyControls &c, MainScreen &screen, QWidget *window);

    void EditAppointment() { editReminder(m_c.appointments()); }
    void EditBill() { editReminder(m_c.bills()); }
    void EditEvent() { editReminder(m_c.events()); }
    void EditRow(GridPane &pane, qint32 id);     // whatever row is selected, whatever the period on show
    void openCall(const RecordCall &call, QWidget *over);       // of a reminder, for another screen
    void ShowEdit();
    void NewRecord();
    void panNew_Click();
    void subjectButton(qsizetype row);          // the button of a row of SUBJECTGRID
    void editSearched();                        // the row that the search found
    void DblClick(GridPane &pane, int yTwips);
    QString toolTip(const GridPane &pane, qsizetype row, int column) const;
    controls::Grid *activeGrid() const;         // the grid on show that the keyboard works on, or worked on last
    void showDetails();                         // the pane at the right follows that grid's row

signals:
    void activeGridChanged(controls::Grid *grid);

private:
    void editReminder(GridPane &pane);
    void openReminder(GridPane &pane, const RecordCall &call, QWidget *over);
    void showLast(GridPane &pane);
    RecordOutcome showReminder(const GridPane &pane, const RecordCall &call, QWidget *over);
    bool hasFile() const;
    void openSubject(qint32 id);
    GridPane *currentReminder() const;
    void stopTimers();
    void startTimers();

    CaddyControls &m_c;
    MainScreen &m_screen;
    QWidget *m_window;
    const GridPane *m_lastUsed = nullptr;   // the reminder grid that last had the keyboard
};

}
