#pragma once

#include "contacts/contactevents.h"
#include "contacts/contactname.h"
#include "records/frmSection.h"

namespace vorel {

// The address book: people and businesses, whose names are built by one rule, and whose birthdays and anniversaries become events.
class frmContacts : public frmSection {
    Q_OBJECT
public:
    explicit frmContacts(QWidget *parent = nullptr);

    void UpdateRecord();                                // the name rule on the controls
    void CheckForDuplicates();
    void FillContactsTree() { rebuildTree(); }
    void FillCategories() { FillLists(); }
    void FormatDates();                                 // the boxes of the events tell what is there

protected:
    void createOwn() override;
    void rowShown() override;
    bool prepareSave() override;
    void tidyRow(bool changed) override;
    void afterSave() override;
    void beforeDelete() override { m_wasLinked = isLinked(); }
    void afterDelete(qint32 id) override;
    void tabShown(int tab) override;
    std::vector<records::ViewBlock> pageBlocks() const override;
    QString pageHeading() const override;
    QWidgetList buttonsBeside(const controls::Field &field) override;
    QFormLayout *formOf(const controls::Field &field) override;
    controls::BindOptions bindOptions(const controls::Field &field) const override;
    void revealField(QWidget *widget) override;
    void runAction(const controls::Field &field) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    contacts::ContactName shownName() const;
    void followCategory();                              // which may be put away
    void chkPrivate_Click();
    void cboSalutation_Click();
    void copyAddress(const QString &from);
    void cmdEnvelope_Click();
    void cmdCats_Click();
    void cmdUCase_Click();
    void cmdRefresh_Click();
    void readAgain();                                   // the rows, the row on show and the tree
    bool isLinked() const;                              // to an entry of the mail program

    // Dates (frmContactsDates.cpp)
    void createDates();
    void connectDates();
    void chkEventsDOB_Click(int row);
    void chkEventsAnn_Click(int row);
    void chkAutoEmail_Click(int row);
    contacts::Birthday birthday(int row) const;
    contacts::Anniversary anniversary(int row) const;
    void beepAt(const QString &name);

    bool m_saving = false;                              // cmdUpdate writes, changed or not
    bool m_wasLinked = false;                           // the contact that is being deleted
    QString m_nameShown, m_categoryShown;               // as they were stored
};

}
