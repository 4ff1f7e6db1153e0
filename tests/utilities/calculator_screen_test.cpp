#include "session/ini.h"
#include "session/state.h"
#include "support/screens.h"
#include "support/scriptedprompts.h"
#include "support/testfolder.h"
#include "utilities/frmCalculator.h"

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

class CalculatorScreen : public ::testing::Test {
protected:
    CalculatorScreen() { state().gIniFile = folder.path(u"vorelreminder.ini"_s); }
    ~CalculatorScreen() override { state() = State{}; }
    void SetUp() override
    {
        screen.show();
        screen.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    }
    template <class W> W *at(const QString &name) { return test::control<W>(screen, name); }
    QString label(const QString &name) { return at<QLabel>(name)->text(); }
    void click(const QString &name) { test::click(screen, name); }
    void choose(const QString &list, const QString &unit)
    {
        auto *units = at<QListWidget>(list);
        const QList<QListWidgetItem *> found = units->findItems(unit, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << qPrintable(unit);
        units->setCurrentItem(found[0]);
    }

    const test::TestFolder folder;
    test::ScriptedPrompts user;
    frmCalculator screen;
};

}

TEST_F(CalculatorScreen, KeysOfTheScreenAndOfTheKeyboard)
{
    for (const QString &name : {u"Number(6)"_s, u"Operator(3)"_s, u"Number(8)"_s, u"Operator(4)"_s})
        click(name);
    EXPECT_EQ(label(u"Readout"_s), u"0.75"_s);
    for (const QString &name : {u"Cancel"_s, u"Number(9)"_s, u"Decimal"_s, u"Number(5)"_s, u"Operator(1)"_s, u"Number(1)"_s,
                                u"CancelEntry"_s, u"Number(2)"_s, u"Operator(0)"_s, u"Number(4)"_s, u"Operator(2)"_s})
        click(name);
    EXPECT_EQ(label(u"Readout"_s), u"11.5"_s);
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_EQ(label(u"Readout"_s), u"0"_s);
    QTest::keyClicks(&screen, u"200+10%"_s);
    QTest::keyClick(&screen, Qt::Key_Enter);
    EXPECT_EQ(label(u"Readout"_s), u"220"_s);
    QTest::keyClicks(&screen, u"*35"_s);
    QTest::keyClick(&screen, Qt::Key_Backspace);
    QTest::keyClick(&screen, Qt::Key_Return);
    EXPECT_EQ(label(u"Readout"_s), u"660"_s);
    user.expect(u"Can't divide by zero"_s);
    QTest::keyClicks(&screen, u"/0="_s);
    EXPECT_EQ(user.shown().back().title, u"Calculator"_s);
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_TRUE(screen.isVisible());
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_FALSE(screen.isVisible()) << "nothing left to clear";
}

TEST_F(CalculatorScreen, ConvertsWhatIsChosen)
{
    choose(u"lstFrom"_s, u"Yards"_s);
    EXPECT_EQ(at<QListWidget>(u"lstTo"_s)->count(), 7);
    choose(u"lstTo"_s, u"Metres"_s);
    auto *amount = at<QLineEdit>(u"txtConvert"_s);
    amount->setFocus();
    QTest::keyClicks(amount, u"10"_s);
    QTest::keyClick(amount, Qt::Key_Return);
    EXPECT_EQ(label(u"lblResult"_s), u"10 Yards = 9.144 Metres"_s);
    EXPECT_EQ(label(u"Readout"_s), u"0"_s) << "the amount is not the calculator's";
    choose(u"lstFrom"_s, u"Celsius"_s);
    click(u"cmdConvert"_s);
    EXPECT_EQ(label(u"lblResult"_s), u"10 Celsius = 44 Farenheight"_s);
    for (const QString &nothing : {u"0"_s, u"cold"_s, QString()}) {
        amount->setText(nothing);
        click(u"cmdConvert"_s);
        EXPECT_EQ(label(u"lblResult"_s), QString());
    }
}

TEST_F(CalculatorScreen, ColourAndPictureAreKept)
{
    EXPECT_EQ(screen.palette().color(QPalette::Window), QColor(Qt::black));
    user.expectColour(0x102030u);
    click(u"cmdColor"_s);
    EXPECT_EQ(GetIniValue(iniSettings, u"CalculatorBackColour"_s, {}), QString::number(0x302010));
    EXPECT_EQ(screen.palette().color(QPalette::Window), QColor(0x10, 0x20, 0x30));

    const QString picture = folder.path(u"own.jpg"_s);
    QImage drawn(64, 48, QImage::Format_RGB32);
    drawn.fill(Qt::red);
    ASSERT_TRUE(drawn.save(picture));
    const auto inChooser = [this](const QStringList &keys) {
        QTimer::singleShot(0, &screen, [this, keys] {
            auto *chooser = screen.findChild<QDialog *>(u"frmDataPath"_s);
            ASSERT_TRUE(chooser);
            for (const QString &key : keys)
                chooser->findChild<QAbstractButton *>(key)->click();
            chooser->close();
        });
    };
    user.expectFile(u"CalcPic"_s, picture);
    inChooser({u"cmdSearch"_s, u"cmdApply"_s});
    QTest::mouseClick(at<QLabel>(u"picImage"_s), Qt::LeftButton);
    inChooser({});
    QTest::keyClick(at<QLabel>(u"picImage"_s), Qt::Key_Space);
    EXPECT_EQ(GetIniValue(iniSettings, u"CalcPicFile"_s, {}), u"\\own.jpg"_s) << "kept so that it moves with the folder";
    EXPECT_TRUE(user.isDone());
    const frmCalculator next;
    EXPECT_FALSE(next.findChild<QLabel *>(u"picImage"_s)->pixmap(Qt::ReturnByValue).isNull());
}
