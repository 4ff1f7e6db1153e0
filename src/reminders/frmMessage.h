#pragma once

#include "platform/controls/recordform.h"
#include "session/recordcall.h"

namespace vorel {

// The modal screen of the messages between users of one file.
//     frmMessage form(parent);
//     form.dtaData().FindFirst("ID = 5");        // or form.AddNewRecord({});
//     form.ShowModal();
// form.outcome().lastId is then the ID of the row that was last current. Closing emits the change of the messages.
class frmMessage : public controls::RecordForm {
    Q_OBJECT
public:
    explicit frmMessage(QWidget *parent = nullptr);

    RecordOutcome outcome() const { return m_outcome; }
    // A blank message from the current user, dated now. The text is not used: a message has no copies.
    void AddNewRecord(const QString &sourceID);
    void AllowInput();
    void FillLists();

protected:
    QWidget *createWidget(const controls::Field &field) override;
    controls::BindOptions bindOptions(const controls::Field &field) const override;
    QFormLayout *formOf(const controls::Field &) override { return m_form; }
    bool QueryUnload() override;

private:
    RecordOutcome m_outcome;
    void composeScreen();
    void dtaData_Reposition();
    void cmdSend_Click();
    void cmdUpdate_Click();
    void cmdDelete_Click();
    void removeEmpty();

    QFormLayout *m_form = nullptr;
    qint32 m_added = 0;                         // the message that New added last: left empty, it is not kept
};

}
