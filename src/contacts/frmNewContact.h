#pragma once

#include "contacts/newcontact.h"
#include "platform/controls/form.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;

namespace vorel {

// The short form of a contact, for a name that the address book does not know yet. Modal.
class frmNewContact : public controls::Form {
    Q_OBJECT
public:
    frmNewContact(const QString &name, bool isPrivate, QWidget *parent = nullptr);

    qint32 savedId() const { return m_id; }             // 0: closed without saving
    void UpdateRecord();                                // the names that the rule builds

private:
    contacts::NewContact typed() const;
    QLineEdit *createText(const QString &name, int room);
    QComboBox *createList(const QString &name, const QStringList &choices, int room);
    QWidget *createPrivate();
    QWidget *createBusiness();
    QWidget *createNames();
    void chkPrivate_Click();
    void cmdSave_Click();

    QCheckBox *m_private;
    QGroupBox *m_person = nullptr, *m_business = nullptr;
    QLabel *m_full = nullptr, *m_fileAs = nullptr, *m_sort = nullptr;
    qint32 m_id = 0;
};

}
