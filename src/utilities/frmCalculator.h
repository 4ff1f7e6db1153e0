#pragma once

#include "platform/controls/form.h"
#include "utilities/calculator.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace vorel {

// The calculator with the unit converter beside it. Digits, operators, Enter, Esc, Delete and Backspace work it from the
// keyboard as long as the converter is not being used.
class frmCalculator : public controls::Form {
    Q_OBJECT
public:
    explicit frmCalculator(QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QPushButton *key(const QString &name, const QString &caption, const QString &spoken, std::function<void()> step);
    QWidget *composeKeys();
    QWidget *composePicture();
    QWidget *composeConversion();
    void press(const std::function<Calculator::Outcome()> &step);
    bool typed(const QKeyEvent &event);
    void GetList();
    void showNote();
    void cmdConvert_Click();
    void cmdColor_Click();
    void picImage_Click();
    void paint();
    void showPicture();

    Calculator m_calculator;
    QLabel *m_readout, *m_picture, *m_result, *m_note;
    QWidget *m_conversion;
    QLineEdit *m_amount;
    QListWidget *m_from, *m_to;
};

// Shows the calculator beside the screen that is worked on; the one that is open already comes to the front.
void showCalculator(QWidget *parent);

}
