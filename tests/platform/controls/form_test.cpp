#include "platform/controls/form.h"
#include "platform/controls/layout.h"
#include "support/scriptedprompts.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

class TestForm : public controls::Form {
public:
    TestForm() : Form(u"frmTest"_s) {}

    bool agrees = true;
    int asked = 0, unloaded = 0;
    std::function<void()> whileAsking, whileUnloading;

protected:
    bool QueryUnload() override
    {
        ++asked;
        if (whileAsking)
            whileAsking();
        return agrees;
    }
    void Unload() override
    {
        ++unloaded;
        if (whileUnloading)
            whileUnloading();
    }
};

const std::vector<std::pair<const char *, std::function<void(TestForm &)>>> roads {
    {"Esc", [](TestForm &f) { QTest::keyClick(&f, Qt::Key_Escape); }},
    {"Ctrl+W", [](TestForm &f) { QTest::keyClick(&f, Qt::Key_W, Qt::ControlModifier); }},
    {"the window's button", [](TestForm &f) { f.close(); }},
    {"the window's button by event", [](TestForm &f) {
         QCloseEvent event;
         QCoreApplication::sendEvent(&f, &event);
     }},
    {"code", [](TestForm &f) { f.Close(); }},
    {"reject", [](TestForm &f) { f.reject(); }},
    {"accept", [](TestForm &f) { f.accept(); }},
    {"Esc in a field", [](TestForm &f) { QTest::keyClick(f.findChild<QLineEdit *>(), Qt::Key_Escape); }},
    {"Ctrl+W in a field", [](TestForm &f) { QTest::keyClick(f.findChild<QLineEdit *>(), Qt::Key_W, Qt::ControlModifier); }},
};

}

TEST(Form, EveryRoadOutAsksFirst)
{
    for (const auto &[name, leave] : roads) {
        TestForm form;
        new QLineEdit(&form);
        form.show();
        form.agrees = false;
        leave(form);
        EXPECT_TRUE(form.isVisible()) << name;
        EXPECT_EQ(1, form.asked) << name;
        EXPECT_EQ(0, form.unloaded) << name;
        form.agrees = true;
        leave(form);
        EXPECT_FALSE(form.isVisible()) << name;
        EXPECT_EQ(2, form.asked) << name;
        EXPECT_EQ(1, form.unloaded) << name;
    }
}

TEST(Form, LeavingTwiceAtOnceLeavesOnce)
{
    for (const auto &[name, leave] : roads) {
        TestForm form;
        new QLineEdit(&form);
        form.show();
        form.whileAsking = [&form, leave = leave] { leave(form); };
        form.whileUnloading = form.whileAsking;
        form.Close();
        EXPECT_EQ(1, form.asked) << name;
        EXPECT_EQ(1, form.unloaded) << name;
        EXPECT_FALSE(form.isVisible()) << name;
    }
}

TEST(Form, ModalScreenReturnsWhenItIsClosed)
{
    TestForm form;
    form.agrees = false;
    QTimer::singleShot(0, &form, [&] {
        EXPECT_TRUE(form.isModal());
        form.Close();                           // refused: still there
        form.agrees = true;
        QTimer::singleShot(0, &form, [&] { form.Close(); });
    });
    form.ShowModal();
    EXPECT_EQ(2, form.asked);
    EXPECT_EQ(1, form.unloaded);
}

TEST(Form, FailingStepIsShownAndTheScreenCloses)
{
    test::ScriptedPrompts user;
    user.expect(u"No current record."_s);
    user.expect(u"Type mismatch"_s);
    TestForm form;
    form.show();
    form.whileAsking = [] { throw basic::Error(3021, u"No current record."_s); };
    form.whileUnloading = [] { throw basic::BasicError(13); };
    form.Close();
    EXPECT_FALSE(form.isVisible());
}

TEST(Form, MayDieWhileItAsks)
{
    auto form = std::make_unique<TestForm>();
    form->show();
    TestForm *leaving = form.get();
    leaving->whileAsking = [&form] { form.release()->deleteLater(); };
    leaving->whileUnloading = [] { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); };
    leaving->Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(form);
}

TEST(Form, StaysInsideTheWorkArea)
{
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    struct Case { const char *name; QPoint place; QSize size; };
    const std::vector<Case> cases {
        {"too large", {0, 0}, area.size() * 2},
        {"off to the right and below", area.bottomRight() - QPoint(20, 20), {300, 200}},
        {"off to the left and above", {-200, -300}, {300, 200}},
    };
    for (const Case &c : cases) {
        TestForm form;
        form.setMinimumSize(c.size);
        form.resize(c.size);
        form.move(c.place);
        form.show();
        const QRect place = form.geometry();
        EXPECT_TRUE(area.contains(place)) << c.name << ": " << place.x() << ',' << place.y() << ' ' << place.width() << 'x' << place.height();
    }
}

TEST(Form, KeysThatDoNothingYet)
{
    TestForm form;
    auto *field = new QLineEdit(&form);
    auto *remove = controls::button(u"cmdDelete"_s, u"&Delete"_s);
    remove->setParent(&form);
    bool pressed = false;
    QObject::connect(remove, &QAbstractButton::clicked, [&] { pressed = true; });
    form.show();
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(field, Qt::Key_F1);
    EXPECT_FALSE(pressed) << "Return in a field presses no button";
    EXPECT_TRUE(form.isVisible());
    form.Close();
}

TEST(Form, HandlerRunsUnderTheTrap)
{
    test::ScriptedPrompts user;
    user.expect(u"Type mismatch"_s);
    QCheckBox box;
    int calls = 0;
    controls::on(&box, &QCheckBox::clicked, &box, [&] { ++calls; });
    controls::on(&box, &QCheckBox::clicked, &box, [&](bool checked) {
        EXPECT_TRUE(checked);
        throw basic::BasicError(13);
    });
    box.click();
    EXPECT_EQ(1, calls);
}

TEST(Layout, LabelsLeadToTheirFields)
{
    using namespace controls::layout;
    auto *name = new QLineEdit, *from = new QLineEdit;
    auto *dash = new QLabel(u"-"_s);
    QWidget screen;
    screen.setLayout(Column({Group(u"fraWho"_s, u"Who"_s,
                                   Fields({{u"&Name"_s, name}, {u"&Period"_s, Row({dash, from, Stretch()})}, {u""_s, Space {4}}})),
                             Space {8}, Stretch {2}}));
    const auto *group = screen.findChild<QWidget *>(u"fraWho"_s);
    ASSERT_TRUE(group);
    QHash<QString, QWidget *> buddies;
    for (const auto *label : group->findChildren<QLabel *>())
        buddies.insert(label->text(), label->buddy());
    EXPECT_EQ(name, buddies[u"&Name"_s]);
    EXPECT_EQ(from, buddies[u"&Period"_s]);
    EXPECT_EQ(unit, screen.layout()->spacing());
}

TEST(Layout, ButtonWithoutCaptionHasASpokenName)
{
    const std::unique_ptr<QAbstractButton> icon(controls::button(u"cmdCalc"_s, {}, u"view-calendar"_s, u" Choose a Date "_s));
    EXPECT_EQ(u"Choose a Date"_s, icon->accessibleName());
    EXPECT_TRUE(!icon->icon().isNull() || !icon->text().isEmpty()) << "never an empty face";
    const std::unique_ptr<QAbstractButton> plain(controls::button(u"cmdUpdate"_s, u"&Save"_s));
    EXPECT_EQ(u"cmdUpdate"_s, plain->objectName());
    EXPECT_EQ(u"&Save"_s, plain->text());
}
