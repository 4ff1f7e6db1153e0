#pragma once

#include "reminders/frmRecord.h"
#include "store/mainfile.h"
#include "support/screens.h"
#include "support/scriptedprompts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>

namespace vorel::test {

// The real screen over a real main file, driven by its controls' names.
class RecordScreen : public MainFileTest {
protected:
    static constexpr int none = 0;

    // Opens the screen of the code on the row; none: without rows.
    frmRecord &openScreen(const QString &code, int id)
    {
        form = std::make_unique<frmRecord>(code);
        form->dtaData().setRecordSource(reminders::reminderDesign(code).allRows.toString());
        form->dtaData().Refresh();
        if (id != none) {
            EXPECT_TRUE(form->dtaData().FindFirst(u"ID = %1"_s.arg(id)));
        }
        form->show();
        return *form;
    }

    template <class W = QWidget> W *at(const QString &name) { return control<W>(*form, name); }
    bool isShown(const QString &name) { return at(name)->isVisible(); }
    QString text(const QString &name) { return shownText(at(name)); }
    void click(const QString &name) { test::click(*form, name); }
    void type(const QString &name, const QString &words) { typeInto(at(name), words); }
    void leave(const QString &name)
    {
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(at(name), &out);
    }

    ScriptedPrompts &user = m_prompts;
    std::unique_ptr<frmRecord> form;
};

}
