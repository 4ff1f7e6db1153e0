#pragma once

#include "platform/controls/recordform.h"
#include "reminders/record.h"
#include "session/recordcall.h"

class QButtonGroup;

namespace vorel {

// The modal screen of an appointment, a bill or an event, by its section's code ("A", "B", "E").
//     frmRecord form(u"A"_s);
//     form.dtaData().setRecordSource(state().period.gSqlAppointments);
//     form.dtaData().Refresh();
//     form.dtaData().FindFirst("ID = 5");        // or form.AddNewRecord({});
//     form.ShowModal();
// form.outcome().lastId is then the ID of the row that was last current.
class frmRecord : public controls::RecordForm {
    Q_OBJECT
public:
    explicit frmRecord(const QString &section, QWidget *parent = nullptr);

    RecordOutcome outcome() const { return m_outcome; }
    // A blank row of the day, today unless given, or with a source ID a copy of that row, after its question. Refreshes the
    // rows first.
    void AddNewRecord(const QString &sourceID, const std::optional<basic::DateTime> &day = {});

    void AllowInput();
    void FormatDates();
    void ShowPic(const QString &path);                  // "" or no readable picture: the section's own
    QString GetFilePath(const QString &startPath);      // the chooser's answer: startPath if nothing was applied
    void SetScheduler(bool visible);

protected:
    QWidget *createWidget(const controls::Field &field) override;
    controls::BindOptions bindOptions(const controls::Field &field) const override;
    QFormLayout *formOf(const controls::Field &field) override;
    QWidgetList buttonsBeside(const controls::Field &field) override;
    void pickDate(const controls::Field &field) override;
    bool QueryUnload() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isA(ReminderKind kind) const { return m_design.kind == kind; }
    RecordOutcome m_outcome;

    // Layout (frmRecordLayout.cpp)
    void createButtons();
    void createDateSlots();
    QWidget *createFrequencyPanel();
    QLayout *createOptions();
    QLayout *createPeriods();
    QWidget *createDetailsPanel();
    QWidget *createPicture();
    void composeScreen();
    void orderTabs(const QWidget *navigator);
    void connectHandlers();
    void connectButtons();
    void moveCalcBeside(const QString &box);

    // What the screen does (frmRecord.cpp, frmRecordSave.cpp)
    void cmdUpdate_Click();
    void cmdDelete_Click();
    void cmdCalc_Click();
    void cmdWebsite_Click();
    void cmdEmail_Click();
    void cmdPicture_Click();
    void chkDelete_MouseUp();
    void chkEmail_Click();
    void chkCard_Click();
    void cboSubject_Click();
    void txtDate_LostFocus();
    void cboTime_LostFocus();
    void txtEmail_DblClick();
    SeriesFields seriesFields() const;
    bool agreesToLength(const SeriesFields &fields);
    qint32 survivorAfterDelete();                       // the ID to go to once the current row is deleted, 0 if none

    // The row as shown (frmRecordReposition.cpp)
    void dtaData_Reposition();
    void rememberDates();
    void applyBirthday();
    void showEventParts();
    void showGreeting(const reminders::Greeting &greeting);
    void takeViewAsShown();
    void storeView();                                   // what showing the row put into its boxes
    std::optional<basic::DateTime> dateOf(const QString &box) const;
    std::optional<basic::DateTime> rowDate() const { return dateOf(QStringLiteral("txtDate")); }
    void correctDate();                                 // a text that is not a date becomes today

    // Frequency panel (frmRecordFrequency.cpp)
    void showFrequency();
    void selectOption(int index);                       // noOption clears all
    int selectedOption() const;
    void optPeriod_MouseUp();
    void optPeriod_Click(int index);
    void cboDays_Change();
    void cboDays_Click();
    void cmdSchedule_Click();
    void cmdApply_Click();
    void cmdCancel_Click();

    const reminders::ReminderDesign &m_design;
    QHash<QString, QWidget *> m_slots;                  // by date box: where cmdCalc goes beside it
    QFormLayout *m_form = nullptr;
    QButtonGroup *m_options = nullptr;
    QString m_calcBox;                                  // the date box that cmdCalc belongs to
    bool m_showing = false;                             // a row is being shown: changes are not the user's
};

}
