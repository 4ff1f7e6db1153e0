#include "session/frmColours.h"
#include "session/ini.h"
#include "session/state.h"
#include "support/testfolder.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace vorel;
using namespace Qt::StringLiterals;

TEST(FormColours, BoxesTakeTheEditColourAndPanelsTheScreens)
{
    test::TestFolder folder;
    state() = State{};
    state().gIniFile = folder.path(u"vorelreminder.ini"_s);
    QWidget form;
    QPalette green = form.palette();
    green.setColor(QPalette::Window, QColor(10, 200, 30));
    form.setPalette(green);
    auto *box = new QLineEdit(&form);
    auto *combo = new QComboBox(&form);
    auto *memo = new QPlainTextEdit(&form);
    auto *panel = new QGroupBox(&form);
    auto *plain = new QLabel(u"Name"_s, &form);
    QPalette other = panel->palette();
    other.setColor(QPalette::Window, Qt::red);
    panel->setPalette(other);
    plain->setPalette(other);

    ApplyFormColours(&form);
    for (const QWidget *one : {static_cast<QWidget *>(box), static_cast<QWidget *>(combo), static_cast<QWidget *>(memo)})
        EXPECT_EQ(one->palette().color(QPalette::Base), QColor(255, 255, 0));       // 0xFFFF: red and green in full
    EXPECT_EQ(panel->palette().color(QPalette::Window), QColor(10, 200, 30));
    EXPECT_EQ(plain->palette().color(QPalette::Window), QColor(Qt::red)) << "a label is neither";

    PutIniValue(iniSettings, u"EditColour"_s, QString::number(0x400000));          // a dark blue
    ApplyFormColours(&form);
    EXPECT_EQ(box->palette().color(QPalette::Base), QColor(0, 0, 0x40));
    EXPECT_EQ(box->palette().color(QPalette::Text), QColor(Qt::white));

    box->setText(u"a"_s);
    memo->setPlainText(u"b"_s);
    combo->addItems({u"c"_s, u"d"_s});
    combo->setEditable(true);
    combo->setEditText(u"c"_s);
    ClearForm(&form);
    EXPECT_EQ(box->text() + memo->toPlainText() + combo->currentText(), QString());
    EXPECT_EQ(combo->count(), 2) << "the list stays";
}
