#pragma once

#include "platform/controls/form.h"
#include "print/addressbook.h"

class QComboBox;
class QLabel;

namespace vorel {

// The settings of the printed address book, which contacts it has, and its printing.
class frmPrintAddressBook : public controls::Form {
    Q_OBJECT
public:
    explicit frmPrintAddressBook(QWidget *parent = nullptr);

private:
    QWidget *composeSettings();
    QWidget *composeContacts();
    QWidget *composeKeys();
    QComboBox *numberList(const QString &name, const QList<int> &numbers, double current);
    QComboBox *colourList(const QString &name, int current);
    void showFont();
    void countMarked();
    void settingsChanged();
    void cmdContactsFont_Click();
    void cmdPrintContacts_Click();

    AddressBookStyle m_style;
    QComboBox *cboLinesPerPage = nullptr, *cboTopMargin = nullptr, *cboLeftMargin = nullptr;
    QComboBox *cboAddressHeadingColor = nullptr, *cboAddressHeadingFontColor = nullptr, *cboPrint = nullptr;
    QLabel *m_font, *m_marked, *m_state;
    class Sample;
    Sample *m_sample;
};

// The sixteen colours in the order of their numbers.
const QStringList &bookColourNames();

}
