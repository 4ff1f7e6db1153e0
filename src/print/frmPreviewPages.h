#pragma once

#include "platform/controls/form.h"

class QComboBox;
class QLineEdit;
class QRadioButton;
class QSpinBox;

namespace vorel {

class PrintJob;

// Which pages to print, how often and where. CMD_OK sets the player's bounds and the job's printer.
class frmPreviewPages : public controls::Form {
    Q_OBJECT
public:
    explicit frmPreviewPages(PrintJob &job, QWidget *parent = nullptr);
    bool isChanged() const { return m_isChanged; }      // OK changed something: there is something to print

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void CMD_OK_Click();
    void enter(QLineEdit *box);
    void leave(QLineEdit *box);

    PrintJob &m_job;
    bool m_isChanged = false;
    QRadioButton *m_all = nullptr;      // OPT_Pages(0)
    QRadioButton *m_range = nullptr;    // OPT_Pages(1)
    QLineEdit *TXT_From = nullptr;
    QLineEdit *TXT_To = nullptr;
    QSpinBox *m_copies = nullptr;
    QComboBox *m_printer = nullptr;
};

}
