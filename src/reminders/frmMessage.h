#pragma once

#include "platform/controls/datacontrol.h"
#include "platform/controls/form.h"
#include "session/recordcall.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace vorel {

// The modal screen of the messages between users of one file.
//     frmMessage form(parent);
//     form.dtaData().FindFirst("ID = 5");        // or form.AddNewRecord({});
//     form.ShowModal();
// form.outcome().lastId is then the ID of the row that was last current. When it closes, the change of the messages is told.
class frmMessage : public controls::Form {
    Q_OBJECT
public:
    explicit frmMessage(QWidget *parent = nullptr);
    ~frmMessage() override;

    controls::DataControl &dtaData() { return *m_data; }
    RecordOutcome outcome() const { return m_outcome; }
    // A blank message from the current user, dated now. The text is not used: a message has no copies.
    void AddNewRecord(const QString &sourceID);
    void AllowInput();
    void FillLists();

protected:
    bool QueryUnload() override;
    void Unload() override;

private:
    RecordOutcome m_outcome;
    QComboBox *createNames(const QString &name);
    void createFields();
    void composeScreen();
    void connectHandlers();
    void dtaData_Reposition();
    void cmdSend_Click();
    void cmdUpdate_Click();
    void cmdDelete_Click();

    controls::DataControl *m_data;
    QComboBox *cboName, *cboFrom;
    QLineEdit *txtDate;
    QPlainTextEdit *txtMessage;
    QCheckBox *chkRead, *chkDelete;
    QLabel *lblState;                           // what became of the message
    QAbstractButton *cmdNew, *cmdDelete, *cmdSend, *cmdUpdate, *cmdClose;
};

}
