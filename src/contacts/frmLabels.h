#pragma once

#include "contacts/addresslist.h"
#include "platform/controls/form.h"

#include <map>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTreeView;

namespace vorel {

class frmLabelSheet;

enum class LabelMode { Labels, Envelopes };

// Prints the postal addresses of the ticked contacts on a sheet of labels, or on envelopes.
class frmLabels : public controls::Form {
    Q_OBJECT
public:
    explicit frmLabels(LabelMode mode, QWidget *parent = nullptr);

protected:
    void Unload() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLayout *composeList();
    QWidget *composeLayout();
    QWidget *composeEnvelope();
    QWidget *composeKeys();
    void FillCategoryList();
    void GetContactList();
    void showTicks();
    void showAddress();
    void setStart(int number);
    void tickSelected();
    void showLayout(bool on);
    void limitSender();
    void keepSender();
    QStringList addressOf(int row) const;
    void cmdPrint_Click();

    const LabelMode m_mode;
    bool m_isSenderBlank = true;
    dao::Database m_database;
    AddressList m_list;
    std::map<int, QString> m_typed;             // addresses of rows that were changed by hand, for this print alone
    QTreeView *lvList;
    QComboBox *cboCategory, *m_sizes = nullptr;
    QCheckBox *m_all, *chkReturnAddress = nullptr;
    QLabel *m_note, *m_state;
    QWidget *m_layout = nullptr;                // the picture of the sheet with its buttons
    frmLabelSheet *Picture1 = nullptr;
    QLineEdit *txtNumber = nullptr;
    QPlainTextEdit *txtAddress = nullptr, *txtReturnAddress = nullptr;
    QAbstractButton *cmdPrint, *cmdLayout = nullptr;
};

}
