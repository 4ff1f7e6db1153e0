#include "calendar/frmCalendarDrop.h"
#include "platform/basic/dates.h"
#include "store/mainfile.h"
#include "support/screens.h"

#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

namespace vorel {

using namespace Qt::StringLiterals;

class PickerScreen : public test::MainFileTest {
protected:
    // What a user does once the picker is open.
    bool pick(const std::function<void(frmCalendarDrop &)> &user, const QString &format = state().settings.gDateDisplay)
    {
        bool applied = false;
        test::inModal<frmCalendarDrop>([&] { applied = OpenDatePicker(&box, format); }, user);
        return applied;
    }
    template <class W = QAbstractButton> static W *at(frmCalendarDrop &picker, const QString &name)
    {
        return test::control<W>(picker, name);
    }
    static void click(frmCalendarDrop &picker, const QString &name) { QTest::mouseClick(at(picker, name), Qt::LeftButton); }

    QLineEdit box;
};

TEST_F(PickerScreen, OpensOnTheBoxsDate)
{
    struct Case {
        QString text, title;
        int weekStart;
        int cell;               // of the marked day
        bool given;
    };
    const Case cases[] = {
        {u"12/25/2026"_s, u"December 2026"_s, 1, 2 + 24, true},     // 1 December 2026 is a Tuesday
        {u"12/25/2026"_s, u"December 2026"_s, 2, 1 + 24, true},
        {{}, u"November 2026"_s, 1, 21, false},
        {u"soon"_s, u"November 2026"_s, 1, 21, false},
    };
    for (const Case &c : cases) {
        state().settings.gWeekStartDay = static_cast<std::int16_t>(c.weekStart);
        box.setText(c.text);
        EXPECT_FALSE(pick([&](frmCalendarDrop &picker) {
            EXPECT_EQ(picker.windowTitle(), c.title);
            EXPECT_EQ(at(picker, u"CmdAction"_s)->isEnabled(), c.given);
            EXPECT_EQ(at<QLabel>(picker, u"lblDate"_s)->text(), c.given ? c.text : QString());
            for (int index = 0; index < monthCellCount; ++index)
                EXPECT_EQ(at(picker, u"LBL_Date(%1)"_s.arg(index))->isChecked(), index == c.cell) << index;
            QTest::keyClick(&picker, Qt::Key_Escape);
        }));
        EXPECT_EQ(box.text(), c.text);
    }
}

// Whatever the format and the region: it opens on the day shown and gives back the day clicked, which the box keeps.
TEST_F(PickerScreen, DisplayFormatsAgainstTheRegion)
{
    for (const char *region : {"en_US", "en_AU", "de_DE"}) {
        setRegion(QString::fromLatin1(region));
        for (const QString &format : {u""_s, u"dd/mm/yyyy"_s, u"mm/dd/yyyy"_s, u"dd.mm.yy"_s, u"ddd d mmm yyyy"_s, u"yyyy"_s}) {
            state().settings.gDateDisplay = format;
            showDate(&box, basic::DateSerial(2026, 3, 5));
            EXPECT_TRUE(pick([&](frmCalendarDrop &picker) {
                EXPECT_EQ(picker.selectedDate(), basic::DateSerial(2026, 3, 5)) << region << ' ' << qPrintable(format);
                click(picker, u"LBL_Date(8)"_s);        // 1 March 2026 is a Sunday: the 9th
                click(picker, u"cmdApply"_s);
            }));
            EXPECT_EQ(shownDate(&box), basic::DateSerial(2026, 3, 9)) << region << ' ' << qPrintable(format);
        }
        box.setText(u"soon"_s);
        EXPECT_FALSE(shownDate(&box));
    }
}

TEST_F(PickerScreen, DropsDownBesideItsBoxAndNeverOverIt)
{
    const QRect desktop(0, 0, 1024, 720);
    const QSize size(300, 400);
    for (const QRect &area : {QRect(100, 100, 120, 24), QRect(100, 600, 120, 24), QRect(980, 300, 40, 24), QRect(100, 340, 120, 24),
                              QRect(950, 360, 60, 24)}) {
        const QRect place(frmCalendarDrop::placeBeside(area, size, desktop), size);
        EXPECT_FALSE(place.intersects(area)) << area.x() << ' ' << area.y();
        EXPECT_TRUE(desktop.contains(place)) << area.x() << ' ' << area.y();
    }
    pick([&](frmCalendarDrop &picker) {
        EXPECT_TRUE(picker.windowFlags() & Qt::FramelessWindowHint);
        click(picker, u"cmdNext"_s);
        EXPECT_EQ(at<QLabel>(picker, u"lblTitle"_s)->text(), u"December 2026"_s);
        click(picker, u"cmdPrevious"_s);
        EXPECT_EQ(at<QLabel>(picker, u"lblTitle"_s)->text(), u"November 2026"_s);
    });
}

TEST_F(PickerScreen, CellsNameTheirWholeDate)
{
    box.setText(u"11/05/2026"_s);
    pick([&](frmCalendarDrop &picker) {
        EXPECT_EQ(at(picker, u"LBL_Date(4)"_s)->accessibleName(), u"Thursday, 5 November 2026, selected"_s);
        EXPECT_EQ(at(picker, u"LBL_Date(21)"_s)->accessibleName(), u"Sunday, 22 November 2026, today"_s);
        EXPECT_FALSE(at(picker, u"LBL_Date(30)"_s)->isEnabled());
        EXPECT_EQ(at(picker, u"LBL_Date(30)"_s)->text(), QString());
    });
}

TEST_F(PickerScreen, KeysAndButtonsLeadToADate)
{
    struct Case {
        const char *name;
        std::function<void(frmCalendarDrop &)> user;
        const char16_t *text;
    };
    const auto key = [](Qt::Key code, Qt::KeyboardModifiers with = {}) {
        return [code, with](frmCalendarDrop &picker) {
            QWidget *focus = picker.focusWidget() ? picker.focusWidget() : &picker;
            QTest::keyClick(focus, code, with);
        };
    };
    const auto press = [](const QString &name) { return [name](frmCalendarDrop &picker) { click(picker, name); }; };
    const Case cases[] = {
        {"as it is", [](frmCalendarDrop &) {}, u"1/31/2027"},
        {"left", key(Qt::Key_Left), u"1/30/2027"},
        {"right", key(Qt::Key_Right), u"2/1/2027"},
        {"up", key(Qt::Key_Up), u"1/24/2027"},
        {"down", key(Qt::Key_Down), u"2/7/2027"},
        {"page up", key(Qt::Key_PageUp), u"12/31/2026"},
        {"page down", key(Qt::Key_PageDown), u"2/28/2027"},
        {"a year on", key(Qt::Key_PageDown, Qt::ControlModifier), u"1/31/2028"},
        {"home", key(Qt::Key_Home), u"1/1/2027"},
        {"a cell", press(u"LBL_Date(11)"_s), u"1/7/2027"},          // 1 January 2027 is a Friday: cell 5
        {"a blank cell", press(u"LBL_Date(1)"_s), u"1/31/2027"},
        {"today", press(u"Today"_s), u"11/22/2026"},
        {"month bar", [](frmCalendarDrop &picker) { at<QScrollBar>(picker, u"HScroll1"_s)->setValue(6); }, u"6/30/2027"},
        {"year bar", [](frmCalendarDrop &picker) { at<QScrollBar>(picker, u"HScroll2"_s)->setValue(1947); }, u"1/31/1947"},
        {"back", [&](frmCalendarDrop &picker) { click(picker, u"Today"_s); click(picker, u"CmdAction"_s); }, u"1/31/2027"},
    };
    for (const Case &c : cases) {
        box.setText(u"1/31/2027"_s);
        EXPECT_TRUE(pick([&](frmCalendarDrop &picker) {
            c.user(picker);
            click(picker, u"cmdApply"_s);
        })) << c.name;
        EXPECT_EQ(box.text(), QString::fromUtf16(c.text)) << c.name;

        box.setText(u"1/31/2027"_s);
        EXPECT_FALSE(pick([&](frmCalendarDrop &picker) {
            c.user(picker);
            click(picker, u"cmdCancel"_s);
        })) << c.name;
        EXPECT_EQ(box.text(), u"1/31/2027"_s) << c.name;
    }
}

TEST_F(PickerScreen, EnterAndDoubleClickApplyInTheDisplayFormat)
{
    state().settings.gDateDisplay = u"dd mmm yyyy"_s;
    box.setText(u"05 Dec 2026"_s);
    EXPECT_TRUE(pick([](frmCalendarDrop &picker) {
        QTest::keyClick(picker.focusWidget(), Qt::Key_Right);
        QTest::keyClick(picker.focusWidget(), Qt::Key_Return);
    }));
    EXPECT_EQ(box.text(), u"06 Dec 2026"_s);
    EXPECT_TRUE(pick([](frmCalendarDrop &picker) { QTest::mouseDClick(at(picker, u"LBL_Date(2)"_s), Qt::LeftButton); }));
    EXPECT_EQ(box.text(), u"01 Dec 2026"_s);
}

TEST_F(PickerScreen, CalendarsEndsHold)
{
    box.setText(u"12/31/9999"_s);
    EXPECT_TRUE(pick([](frmCalendarDrop &picker) {
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_PageDown})
            QTest::keyClick(picker.focusWidget(), key);
        click(picker, u"cmdApply"_s);
    }));
    EXPECT_EQ(box.text(), u"12/31/9999"_s);
}

}
