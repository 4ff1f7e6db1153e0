#pragma once

#include "platform/controls/form.h"

class QComboBox;
class QLineEdit;
class QRadioButton;
class QSpinBox;

namespace vorel {

// Which pages to print, and how often. CMD_OK sets the player's bounds.
class frmPreviewPages : public controls::Form {
    Q_OBJECT
public:
    explicit frmPreviewPages(QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void CMD_OK_Click();
    void enter(QLineEdit *box);
    void leave(QLineEdit *box);

    QRadioButton *m_all = nullptr;      // OPT_Pages(0)
    QRadioButton *m_range = nullptr;    // OPT_Pages(1)
    QLineEdit *TXT_From = nullptr;
    QLineEdit *TXT_To = nullptr;
    QSpinBox *m_copies = nullptr;
    QComboBox *m_printer = nullptr;
};

}
