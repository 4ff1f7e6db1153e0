#pragma once

#include "platform/controls/datacontrol.h"
#include "platform/controls/form.h"
#include "reminders/record.h"
#include "session/recordcall.h"

#include <QHash>

class QBoxLayout;
class QButtonGroup;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace vorel {

// The modal screen of an appointment, a bill or an event, by its section's code ("A", "B", "E").
//     frmRecord form(u"A"_s);
//     form.dtaData().setRecordSource(state().period.gSqlAppointments);
//     form.dtaData().Refresh();
//     form.dtaData().FindFirst("ID = 5");        // or form.AddNewRecord({});
//     form.ShowModal();
// form.outcome().lastId is then the ID of the row that was last current.
class frmRecord : public controls::Form {
    Q_OBJECT
public:
    explicit frmRecord(const QString &section, QWidget *parent = nullptr);
    ~frmRecord() override;

    controls::DataControl &dtaData() { return *m_data; }
    RecordOutcome outcome() const { return m_outcome; }
    // A blank row dated today, or with a source ID a copy of that row, after its question. Refreshes the rows first.
    void AddNewRecord(const QString &sourceID);

    void AllowInput();
    void FormatDates();
    void ShowPic(const QString &path);                  // "" or no readable picture: the section's own
    QString GetFilePath(const QString &startPath);      // the chooser's answer: startPath if nothing was applied
    void SetScheduler(bool visible);

protected:
    bool QueryUnload() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    RecordOutcome m_outcome;
    enum class Kind { Line, Date, Money, Digits, Time, Subject, List, Check, Caption, Rich };
    enum class Place { Row, Beside, Frequency, Details, Hidden };
    struct FieldRow;
    static const std::vector<FieldRow> &fieldTable();

    // Layout (frmRecordLayout.cpp)
    void createFields();
    QWidget *createField(const FieldRow &row);
    void bindField(const FieldRow &row, QWidget *widget);
    void placeField(const FieldRow &row, QWidget *widget, const QString &previous);
    QLabel *createLabel(const FieldRow &row, QWidget *buddy);
    void createButtons();
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
    void txtEmail_DblClick();
    void dtaData_Error(const QString &text);
    SeriesFields seriesFields() const;
    qint32 survivorAfterDelete();                       // the ID to stand on once the current row is gone, 0 if none

    // The row as shown (frmRecordReposition.cpp)
    void dtaData_Reposition();
    void showEventParts();
    void applyBirthday();
    void showGreeting(const record::Greeting &greeting);
    void takeViewAsShown();
    void storeView();                                   // what showing the row put into its boxes is stored on a save
    basic::Value toStore(const FieldRow &row, const QString &text) const;
    std::optional<basic::DateTime> rowDate() const;     // of txtDate
    void correctDate();                                 // a text that is no date becomes today

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

    template <class W> W *control(const QString &name) const { return static_cast<W *>(m_controls.value(name)); }
    QString text(const QString &name) const;
    void setText(const QString &name, const QString &text);
    bool ticked(const QString &name) const;
    void setVisible_(const QString &name, bool visible);

    const record::Section &m_section;
    controls::DataControl *m_data;
    QHash<QString, QWidget *> m_controls;               // by objectName, arrays included
    QHash<QString, QBoxLayout *> m_beside;              // by field: the line that the field stands in
    QHash<QString, QLabel *> m_labels;                  // by field
    QHash<QString, QWidget *> m_slots;                  // by date box: where cmdCalc stands beside it
    QFormLayout *m_fields = nullptr;
    QButtonGroup *m_options = nullptr;
    QString m_calcBox;                                  // the date box that cmdCalc serves
    bool m_showing = false;                             // a row is being shown: changes are not the user's
};

}
