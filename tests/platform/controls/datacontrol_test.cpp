#include "people.h"
#include "platform/controls/refusal.h"
#include "support/scriptedprompts.h"
#include "support/steps.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace vorel;
using controls::DataControl;

namespace {

// A control over the table with a box for the name and one for the age, and a count of its signals.
struct Screen {
    test::People people;
    DataControl data;
    QLineEdit name, age;
    int repositions = 0, exchanges = 0;
    QList<int> errors;

    explicit Screen(bool listening = true)
    {
        data.bind(&name, u"Name"_s);
        data.bind(&age, u"Age"_s);
        QObject::connect(&data, &DataControl::Reposition, [this] { ++repositions; });
        QObject::connect(&data, &DataControl::RowsChanged, [this] { ++exchanges; });
        if (listening)
            QObject::connect(&data, &DataControl::Error, [this](int number) { errors.append(number); });
        people.open(data);
    }
    void type(QLineEdit &box, const QString &text)
    {
        box.selectAll();
        QTest::keyClicks(&box, text);
    }

    // Steps in controls.tsv. A move shows the name it comes to, "no: " before it if it did not move.
    test::Verbs verbs;
    QLabel echo;
    void play(const char *table);
};

void Screen::play(const char *table)
{
    const auto act = [this](const QString &verb, const std::function<void(const QString &)> &step) {
        verbs[verb] = [step](const QString &rest) { step(rest); return QString(); };
    };
    const auto move = [this](const QString &verb, const std::function<bool(const QString &)> &step) {
        verbs[verb] = [this, step](const QString &rest) {
            const QString mark = step(rest) ? QString() : u"no: "_s;
            return mark + name.text();
        };
    };
    const auto box = [this](const QString &rest) -> QLineEdit & { return test::word(rest, 0) == u"age" ? age : name; };
    act(u"type"_s, [=, this](const QString &rest) { type(box(rest), rest.section(u' ', 1)); });
    act(u"put"_s, [=](const QString &rest) { box(rest).setText(rest.section(u' ', 1)); });
    act(u"bind"_s, [this](const QString &rest) {
        data.bind(test::word(rest, 0) == u"echo" ? static_cast<QWidget *>(&echo) : &name, test::word(rest, 1));
    });
    act(u"sql"_s, [this](const QString &sql) { people.execute(sql); });
    act(u"source"_s, [this](const QString &sql) { data.setRecordSource(sql); data.Refresh(); });
    act(u"remove"_s, [this](const QString &) { QFile::remove(people.file()); });
    act(u"sorted"_s, [this](const QString &sort) {
        data.Recordset().setSort(sort);
        data.setRecordset(data.Recordset().OpenRecordset());
    });
    act(u"revert"_s, [this](const QString &) { data.revert(); });
    act(u"Close"_s, [this](const QString &) { data.Close(); });
    act(u"delete"_s, [this](const QString &) { data.Recordset().Delete(); });
    act(u"AddNew"_s, [this](const QString &) { data.Recordset().AddNew(); });
    act(u"Set"_s, [this](const QString &text) { data.Recordset().Set(u"Name", text); });
    act(u"Update"_s, [this](const QString &) { data.Recordset().Update(); });
    act(u"goto"_s, [this](const QString &) { data.Recordset().setBookmark(data.Recordset().LastModified()); data.showRow(); });
    move(u"MoveFirst"_s, [this](const QString &) { return data.MoveFirst(); });
    move(u"MoveLast"_s, [this](const QString &) { return data.MoveLast(); });
    move(u"MoveNext"_s, [this](const QString &) { return data.MoveNext(); });
    move(u"MovePrevious"_s, [this](const QString &) { return data.MovePrevious(); });
    move(u"FindFirst"_s, [this](const QString &criteria) { return data.FindFirst(criteria); });
    move(u"row"_s, [this](const QString &row) { return data.setBookmark(data.Recordset().bookmarkAt(row.toInt())); });
    verbs[u"name"_s] = [this](const QString &) { return name.text(); };
    verbs[u"echo"_s] = [this](const QString &) { return echo.text(); };
    verbs[u"save"_s] = [this](const QString &) { return test::yes(data.UpdateRecord()); };
    verbs[u"dirty"_s] = [this](const QString &) { return test::yes(data.isDirty()); };
    verbs[u"hasRows"_s] = [this](const QString &) { return test::yes(data.hasRows()); };
    verbs[u"open"_s] = [this](const QString &) { return test::yes(static_cast<bool>(data.Recordset())); };
    verbs[u"total"_s] = [this](const QString &) { return QString::number(data.Recordset().rowTotal()); };
    verbs[u"stored"_s] = [this](const QString &rest) { return people.text(test::word(rest, 0).toInt(), test::word(rest, 1)); };
    verbs[u"errors"_s] = [this](const QString &) {
        QStringList numbers;
        for (const int number : std::exchange(errors, {}))
            numbers << QString::number(number);
        return numbers.join(u' ');
    };
    test::play("controls", table, verbs);
}

}

TEST(DataControl, ShowsTheFirstRowAndMoves)
{
    Screen s;
    EXPECT_EQ(1, s.repositions);
    EXPECT_EQ(1, s.exchanges);
    s.play("moves");
}

TEST(DataControl, WritesOnlyWhatWasTyped) { Screen().play("only what was typed"); }
TEST(DataControl, TypingAndTakingItBackWritesNothing) { Screen().play("taken back"); }
TEST(DataControl, RowDeletedElsewhereIsToldOnceAndDropped) { Screen().play("deleted elsewhere"); }
TEST(DataControl, OwnDeletionAsksNothing) { Screen().play("own deletion"); }
TEST(DataControl, RowAddedByCodeBecomesCurrent) { Screen().play("added by code"); }
TEST(DataControl, SourceThatCannotBeOpenedLeavesTheOldRows) { Screen().play("no source"); }
TEST(DataControl, TwoWidgetsOfOneFieldAgree) { Screen().play("two widgets"); }
TEST(DataControl, ExchangedAndClosedRecordsets) { Screen().play("exchanged and closed"); }

TEST(DataControl, EveryMoveSavesFirst)
{
    const std::vector<std::pair<const char *, std::function<bool(DataControl &)>>> moves {
        {"first", [](DataControl &d) { return d.MoveFirst(); }},
        {"last", [](DataControl &d) { return d.MoveLast(); }},
        {"next", [](DataControl &d) { return d.MoveNext(); }},
        {"previous", [](DataControl &d) { return d.MovePrevious(); }},
        {"find", [](DataControl &d) { return d.FindFirst(u"ID = 3"_s); }},
        {"bookmark", [](DataControl &d) { return d.setBookmark(d.Recordset().bookmarkAt(2)); }},
        {"recordset moved by code", [](DataControl &d) {
             d.Recordset().MoveLast();
             d.showRow();
             return true;
         }},
    };
    for (const auto &[name, move] : moves) {
        Screen s;
        SCOPED_TRACE(name);
        s.data.MoveNext();
        s.type(s.name, u"Robert"_s);
        EXPECT_TRUE(move(s.data));
        EXPECT_EQ(u"Robert"_s, s.people.text(2, u"Name"_s));
        s.data.FindFirst(u"ID = 2"_s);
        s.type(s.age, u"old"_s);                // no number: the engine refuses
        move(s.data);
        EXPECT_EQ(QList<int>{3421}, s.errors);
        EXPECT_EQ(u"Robert old"_s, s.name.text() + u' ' + s.age.text()) << "what was typed stays";
        EXPECT_EQ(u"30"_s, s.people.text(2, u"Age"_s));
        s.type(s.age, u"31"_s);
        EXPECT_TRUE(s.data.UpdateRecord());
        EXPECT_EQ(u"31"_s, s.people.text(2, u"Age"_s));
    }
}

TEST(DataControl, RefusedRowIsSavedWholeOrNotAtAll)
{
    Screen s;
    struct Case { QString name, age; int error; };
    const std::vector<Case> cases {
        {u"Bob"_s, u"1"_s, 3022},               // the unique index
        {u"Annie"_s, u"99999"_s, 0},            // more than 16 bits: 6 or 3421, by the engine
    };
    for (const Case &c : cases) {
        s.errors.clear();
        s.type(s.name, c.name);
        s.type(s.age, c.age);
        EXPECT_FALSE(s.data.UpdateRecord()) << c.name.toStdString();
        ASSERT_EQ(1, s.errors.size()) << c.name.toStdString();
        EXPECT_TRUE(c.error == 0 || c.error == s.errors[0]) << s.errors[0];
        EXPECT_TRUE(s.data.isDirty() && !s.data.Recordset().editPending());
        EXPECT_EQ(c.name, s.name.text());
        EXPECT_EQ(u"Ann 30"_s, s.people.text(1, u"Name"_s) + u' ' + s.people.text(1, u"Age"_s));
    }
}

TEST(DataControl, ARefusalNamesTheFieldAndWhatItHolds)
{
    const auto text = [](dao::DataType type, int error, const QString &typed) {
        dao::RecordsetField field;
        field.Type = type;
        field.Size = 100;
        return controls::refusalText(u"Author"_s, typed, field, typed, dao::EngineError(error));
    };
    EXPECT_EQ(text(dao::dbText, dao::err::TooLong, QString(110, u'x') + u"\r\n"_s), u"Author: too long, 112 of 100"_s);
    EXPECT_EQ(text(dao::dbDate, dao::err::Conversion, u"30/2/26"_s), u"Author: \"30/2/26\" is not a date"_s);
    EXPECT_EQ(text(dao::dbText, dao::err::ValueRequired, {}), u"Author: must be filled in"_s);
}

TEST(DataControl, UnheardErrorGetsABox)
{
    Screen s(false);
    test::ScriptedPrompts user;
    user.expect(u"is not a number"_s);
    s.type(s.age, u"old"_s);
    EXPECT_FALSE(s.data.UpdateRecord());
}

// Asked before each write and move, changed or not; it may change the row, and hold it back.
TEST(DataControl, ValidationIsAskedWhicheverWayTheRowIsLeft)
{
    Screen s;
    QStringList asked;
    bool agrees = true;
    s.data.setValidate([&](bool changed) {
        asked += changed ? u"changed"_s : u"clean"_s;
        if (changed && s.name.text().isEmpty())
            s.name.setText(u"Unnamed"_s);
        return agrees;
    });
    EXPECT_TRUE(s.data.MoveNext());
    s.type(s.age, u"31"_s);
    s.name.clear();
    EXPECT_TRUE(s.data.Leave());
    EXPECT_EQ(u"Unnamed"_s, s.people.text(2, u"Name"_s));
    EXPECT_EQ((QStringList{u"clean"_s, u"changed"_s}), asked);
    agrees = false;
    s.type(s.age, u"32"_s);
    EXPECT_FALSE(s.data.MoveLast());
    EXPECT_FALSE(s.data.UpdateRecord());
    EXPECT_EQ(u"31"_s, s.people.text(2, u"Age"_s));
    EXPECT_EQ(u"32"_s, s.age.text());
}

// All writers are asked; one whose owner has gone is forgotten; what all of them write is one transaction with the row.
TEST(DataControl, RowWritersEndWithTheirOwners)
{
    Screen s;
    auto owner = std::make_unique<QObject>();
    QObject other;
    QStringList asked;
    const auto writer = [&](const QString &name) { return [&asked, name] { asked += name; return true; }; };
    s.data.addRowWriter(owner.get(), writer(u"first"_s));
    s.data.addRowWriter(&other, [&] {
        asked += u"second"_s;
        dao::Database file = dao::DBEngine::OpenDatabase(s.people.file());
        file.Execute(u"UPDATE [People] SET [Notes]='kept' WHERE [ID]=3"_s);
        return s.age.text() != u"0";
    }, [&] { asked += u"undo"_s; }, [] { return true; });
    EXPECT_TRUE(s.data.UpdateRecord());
    owner.reset();
    s.type(s.age, u"31"_s);
    EXPECT_TRUE(s.data.UpdateRecord());
    s.data.revert();
    EXPECT_EQ((QStringList{u"first"_s, u"second"_s, u"second"_s, u"undo"_s}), asked);
    EXPECT_EQ(u"31"_s, s.people.text(1, u"Age"_s));
    EXPECT_EQ(u"kept"_s, s.people.text(3, u"Notes"_s));

    // One that refuses holds the row back, and keeps what it has written itself.
    s.people.execute(u"UPDATE [People] SET [Notes]='x' WHERE [ID]=3"_s);
    s.type(s.age, u"0"_s);
    EXPECT_FALSE(s.data.UpdateRecord());
    EXPECT_EQ(u"31"_s, s.people.text(1, u"Age"_s));
    EXPECT_EQ(u"kept"_s, s.people.text(3, u"Notes"_s));
}

TEST(DataControl, TellsWhenItGetsDirtyAndClean)
{
    Screen s;
    QStringList said;
    QObject::connect(&s.data, &DataControl::DirtyChanged, [&](bool dirty) { said += dirty ? u"dirty"_s : u"clean"_s; });
    s.verbs[u"said"_s] = [&](const QString &) { return said.join(u' '); };
    s.play("dirty");
    // Typed texts stop at what the field holds; a text of any length fits a memo.
    s.type(s.name, QString(50, u'x'));
    EXPECT_EQ(20, s.name.text().size());
    QLineEdit notes;
    s.data.bind(&notes, u"Notes"_s);
    notes.setText(QString(5000, u'x'));
    EXPECT_EQ(5000, notes.text().size());
}

TEST(DataControl, OutlivesItsWidgetsAndDiesUnderItsOwnError)
{
    Screen s;
    {
        QLineEdit passing;
        s.data.bind(&passing, u"Email"_s);
        passing.setText(u"x@y"_s);
    }
    s.type(s.name, u"Anna"_s);
    EXPECT_TRUE(s.data.MoveNext());
    EXPECT_EQ(u""_s, s.people.text(1, u"Email"_s));

    auto dying = std::make_unique<DataControl>();
    QLineEdit box;
    dying->bind(&box, u"Age"_s);
    s.people.open(*dying);
    QObject::connect(dying.get(), &DataControl::Error, [&] { dying.reset(); });
    box.setText(u"old"_s);
    EXPECT_FALSE(dying->MoveNext());
    EXPECT_FALSE(dying);
}

TEST(DataNavigator, StepsAndTellsThePosition)
{
    Screen s;
    controls::DataNavigator navigator(&s.data);
    const auto step = [&](const char *name) { return navigator.findChild<QToolButton *>(QString::fromLatin1(name)); };
    const auto *position = navigator.findChild<QLabel *>(u"position"_s);
    EXPECT_EQ(u"1 of 3"_s, position->text());
    EXPECT_FALSE(step("previous")->isEnabled());
    QTest::mouseClick(step("next"), Qt::LeftButton);
    EXPECT_EQ(u"Bob"_s, s.name.text());
    EXPECT_EQ(u"2 of 3"_s, position->text());
    s.type(s.name, u"Robert"_s);
    QTest::mouseClick(step("last"), Qt::LeftButton);
    EXPECT_EQ(u"3 of 3"_s, position->text());
    EXPECT_FALSE(step("next")->isEnabled());
    EXPECT_EQ(u"Robert"_s, s.people.text(2, u"Name"_s));
    for (const auto *button : navigator.findChildren<QToolButton *>())
        EXPECT_FALSE(button->accessibleName().isEmpty());
    s.data.Close();
    EXPECT_EQ(u"0 of 0"_s, position->text());
}
