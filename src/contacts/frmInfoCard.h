#pragma once

#include "contacts/infocard.h"
#include "platform/controls/form.h"

#include <QSet>

class QLabel;
class QListView;
class QListWidget;
class QTreeWidget;

namespace vorel {

// Chooses contacts and their numbers for the pocket card, and prints it.
class frmInfoCard : public controls::Form {
    Q_OBJECT
public:
    // open: shows the record screen of the contact with this ID.
    explicit frmInfoCard(std::function<void(qint32 id)> open, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLayout *composeLists();
    QWidget *composeKeys();
    void FillContacts();
    QString currentName() const;
    void showItems();
    void rememberTicks();
    void cmdAdd_Click();
    void cmdPrint_Click();
    void cmdContact_Click();
    void cmdInfo_Click();
    void removeEntry();
    void moveEntry(int step);
    void entriesChanged();

    std::function<void(qint32 id)> m_open;
    dao::Database m_database;
    qint32 m_id = 0;                            // of the contact on show
    QListView *lstContacts;
    QTreeWidget *lvInfo;
    QListWidget *lstList;
    QLabel *m_count, *m_state, *m_hint, *m_cardHint;
    QAbstractButton *cmdAdd, *cmdPrint, *cmdContact;
    QSet<QString> m_wanted;                     // the categories that were ticked last: the next contact starts with them
};

}
