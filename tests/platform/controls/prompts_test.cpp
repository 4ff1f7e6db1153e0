#include "platform/controls/prompts.h"
#include "support/screens.h"

#include <QApplication>
#include <QDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel;
using basic::Answer;
using basic::Buttons;
using basic::Icon;

TEST(ScreenPrompts, MessageOffersItsButtonsAndGivesTheAnswer)
{
    controls::ScreenPrompts prompts;
    struct Case { Buttons buttons; QMessageBox::StandardButton press; Answer answer; Answer onEsc; };
    const std::vector<Case> cases {
        {Buttons::Ok, QMessageBox::Ok, Answer::Ok, Answer::Ok},
        {Buttons::OkCancel, QMessageBox::Ok, Answer::Ok, Answer::Cancel},
        {Buttons::OkCancel, QMessageBox::Cancel, Answer::Cancel, Answer::Cancel},
        {Buttons::YesNo, QMessageBox::Yes, Answer::Yes, Answer::No},
        {Buttons::YesNo, QMessageBox::No, Answer::No, Answer::No},
        {Buttons::YesNoCancel, QMessageBox::No, Answer::No, Answer::Cancel},
        {Buttons::RetryCancel, QMessageBox::Retry, Answer::Retry, Answer::Cancel},
    };
    for (const Case &c : cases) {
        const auto press = [&](QMessageBox &box) {
            EXPECT_EQ(u"MsgBox"_s, box.objectName());
            EXPECT_EQ(u"<b>Sure</b>?"_s, box.text());
            EXPECT_EQ(Qt::PlainText, box.textFormat());
            EXPECT_EQ(u"Question?"_s, box.windowTitle());
            EXPECT_EQ(QMessageBox::Question, box.icon());
            ASSERT_TRUE(box.button(c.press));
            QTest::mouseClick(box.button(c.press), Qt::LeftButton);
        };
        test::inModal<QMessageBox>(
            [&] { EXPECT_EQ(c.answer, prompts.message(u"<b>Sure</b>?"_s, u"Question?"_s, c.buttons, Icon::Question)); },
            press);
        test::inModal<QMessageBox>([&] { EXPECT_EQ(c.onEsc, prompts.message(u"?"_s, {}, c.buttons, Icon::None)); },
                                   [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); });
    }
}

TEST(ScreenPrompts, InputGivesTheTextOrNothing)
{
    controls::ScreenPrompts prompts;
    const auto typeIn = [](QInputDialog &box) {
        EXPECT_EQ(u"InputBox"_s, box.objectName());
        EXPECT_EQ(u"Enter Sort Column:"_s, box.labelText());
        EXPECT_EQ(u"Title"_s, box.textValue());
        box.setTextValue(u"Author"_s);
        box.accept();
    };
    test::inModal<QInputDialog>([&] { EXPECT_EQ(u"Author"_s, prompts.input(u"Enter Sort Column:"_s, {}, u"Title"_s)); },
                                typeIn);
    test::inModal<QInputDialog>([&] { EXPECT_EQ(u""_s, prompts.input(u"x"_s, {}, u"Title"_s)); },
                                [](QInputDialog &box) { box.reject(); });
}

TEST(ScreenPrompts, BoxMayLoseItsParentWhileItIsOpen)
{
    controls::ScreenPrompts prompts;
    auto *screen = new QDialog;
    screen->show();
    QApplication::setActiveWindow(screen);
    QTimer::singleShot(0, qApp, [screen] { delete screen; });
    EXPECT_EQ(Answer::No, prompts.message(u"Sure?"_s, {}, Buttons::YesNo, Icon::None));
}
