#include "people.h"
#include "platform/controls/refusal.h"
#include "support/scriptedprompts.h"

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
};

}

TEST(DataControl, ShowsTheFirstRowAndMoves)
{
    Screen s;
    EXPECT_EQ(u"Ann"_s, s.name.text());
    EXPECT_EQ(1, s.repositions);
    EXPECT_EQ(1, s.exchanges);
    struct Step { const char *name; std::function<bool()> move; bool moved; QString shown; };
    const std::vector<Step> steps {
        {"next", [&] { return s.data.MoveNext(); }, true, u"Bob"_s},
        {"last", [&] { return s.data.MoveLast(); }, true, u"Cid"_s},
        {"next stays on the last", [&] { return s.data.MoveNext(); }, true, u"Cid"_s},
        {"previous", [&] { return s.data.MovePrevious(); }, true, u"Bob"_s},
        {"first", [&] { return s.data.MoveFirst(); }, true, u"Ann"_s},
        {"previous stays on the first", [&] { return s.data.MovePrevious(); }, true, u"Ann"_s},
        {"find", [&] { return s.data.FindFirst(u"ID = 3"_s); }, true, u"Cid"_s},
        {"not found stays", [&] { return s.data.FindFirst(u"ID = 99"_s); }, false, u"Cid"_s},
        {"bookmark", [&] { return s.data.setBookmark(s.data.Recordset().bookmarkAt(1)); }, true, u"Bob"_s},
    };
    for (const Step &step : steps) {
        EXPECT_EQ(step.moved, step.move()) << step.name;
        EXPECT_EQ(step.shown, s.name.text()) << step.name;
    }
    EXPECT_FALSE(s.data.FindFirst(u"Nonsense = = 1"_s));
    EXPECT_EQ(u"Bob"_s, s.name.text());
    EXPECT_EQ(1, s.errors.size());
}

TEST(DataControl, WritesOnlyWhatWasTyped)
{
    Screen s;
    EXPECT_FALSE(s.data.isDirty());
    s.people.execute(u"UPDATE [People] SET [Age]=44 WHERE [ID]=1"_s);      // someone else, another field
    s.type(s.name, u"Anna"_s);
    EXPECT_TRUE(s.data.isDirty());
    EXPECT_TRUE(s.data.UpdateRecord());
    EXPECT_FALSE(s.data.isDirty());
    EXPECT_EQ(u"Anna"_s, s.people.text(1, u"Name"_s));
    EXPECT_EQ(u"44"_s, s.people.text(1, u"Age"_s)) << "an untouched box must not write its old text back";
}

TEST(DataControl, TypingAndTakingItBackWritesNothing)
{
    Screen s;
    for (const QString &text : {u"X"_s, u"Ann"_s})
        s.type(s.name, text);
    EXPECT_FALSE(s.data.isDirty());
    s.type(s.name, u"Y"_s);
    s.data.revert();
    EXPECT_TRUE(s.data.MoveNext());
    EXPECT_EQ(u"Ann"_s, s.people.text(1, u"Name"_s));
}

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
    QList<bool> said;
    QObject::connect(&s.data, &DataControl::DirtyChanged, [&](bool dirty) { said += dirty; });
    s.type(s.name, u"Zoe"_s);
    s.name.setText(u"Ann"_s);               // as it was
    s.type(s.age, u"31"_s);
    s.data.MoveNext();
    s.data.MovePrevious();
    EXPECT_EQ((QList<bool>{true, false, true, false}), said);
    // Typed texts stop at what the field holds; a text of any length fits a memo.
    s.type(s.name, QString(50, u'x'));
    EXPECT_EQ(20, s.name.text().size());
    QLineEdit notes;
    s.data.bind(&notes, u"Notes"_s);
    notes.setText(QString(5000, u'x'));
    EXPECT_EQ(5000, notes.text().size());
}

TEST(DataControl, RowDeletedElsewhereIsToldOnceAndDropped)
{
    Screen s;
    s.data.MoveNext();
    s.type(s.name, u"Robert"_s);
    s.people.execute(u"DELETE FROM [People] WHERE [ID]=2"_s);
    EXPECT_FALSE(s.data.UpdateRecord());
    EXPECT_EQ(QList<int>{3167}, s.errors);
    EXPECT_EQ(u"Cid"_s, s.name.text());
    EXPECT_EQ(2, s.data.Recordset().rowTotal());
    EXPECT_TRUE(s.data.UpdateRecord()) << "the screen can be left now";

    s.people.execute(u"DELETE FROM [People] WHERE [ID]=1"_s);
    s.data.MovePrevious();
    EXPECT_EQ(u"Cid"_s, s.name.text()) << "the move lands on the row that took its place";
    EXPECT_EQ(1, s.data.Recordset().rowTotal());
}

TEST(DataControl, OwnDeletionAsksNothing)
{
    Screen s;
    s.data.MoveNext();
    s.type(s.name, u"Robert"_s);
    s.data.Recordset().Delete();
    EXPECT_TRUE(s.data.MoveNext());
    EXPECT_EQ(u"Cid"_s, s.name.text());
    s.data.Recordset().Delete();
    s.data.MoveNext();
    EXPECT_EQ(u"Ann"_s, s.name.text()) << "beyond the last row stands the last";
    s.type(s.name, u"X"_s);
    s.data.Recordset().Delete();
    s.data.MoveNext();
    EXPECT_EQ(u""_s, s.name.text());
    EXPECT_FALSE(s.data.hasRows());
    EXPECT_TRUE(s.errors.isEmpty());
    for (const auto move : {&DataControl::MoveFirst, &DataControl::MoveLast, &DataControl::MoveNext, &DataControl::MovePrevious})
        EXPECT_FALSE((s.data.*move)());
    s.type(s.name, u"typed into nothing"_s);
    EXPECT_FALSE(s.data.isDirty());
    EXPECT_TRUE(s.data.UpdateRecord());
}

TEST(DataControl, RowAddedByCodeBecomesCurrent)
{
    Screen s;
    s.type(s.name, u"Anna"_s);
    dao::Recordset &rows = s.data.Recordset();
    rows.AddNew();
    rows.Set(u"Name", u"Dora"_s);
    rows.Update();
    rows.setBookmark(rows.LastModified());
    s.data.showRow();
    EXPECT_EQ(u"Dora"_s, s.name.text());
    EXPECT_EQ(u"Anna"_s, s.people.text(1, u"Name"_s)) << "what was typed on the row before";

    rows.AddNew();
    rows.Set(u"Name", u"Bob"_s);
    EXPECT_THROW(rows.Update(), dao::EngineError);          // a duplicate; the addition stays pending
    s.type(s.name, u"Doris"_s);
    EXPECT_TRUE(s.data.UpdateRecord());
    EXPECT_EQ(u"Doris"_s, s.people.text(4, u"Name"_s));
    EXPECT_EQ(4, rows.rowTotal());
}

TEST(DataControl, SourceThatCannotBeOpenedLeavesTheOldRows)
{
    Screen s;
    s.data.setRecordSource(u"SELECT * FROM [Nowhere]"_s);
    s.data.Refresh();
    ASSERT_EQ(1, s.errors.size());
    EXPECT_EQ(u"Ann"_s, s.name.text());
    s.data.setRecordSource(u""_s);
    s.data.Refresh();
    EXPECT_EQ(u""_s, s.name.text());
    EXPECT_FALSE(s.data.hasRows());
    QFile::remove(s.people.file());
    s.data.setRecordSource(u"SELECT * FROM [People]"_s);
    s.data.Refresh();
    EXPECT_EQ(2, s.errors.size());
    EXPECT_EQ(3024, s.errors[1]);
    EXPECT_FALSE(s.data.hasRows());
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

TEST(DataControl, TwoWidgetsOfOneFieldAgree)
{
    Screen s;
    QLabel echo;
    s.data.bind(&echo, u"Name"_s);
    EXPECT_EQ(u"Ann"_s, echo.text()) << "filled at once while a row is on show";
    s.type(s.name, u"Anna"_s);
    ASSERT_TRUE(s.data.UpdateRecord());
    EXPECT_EQ(u"Anna"_s, echo.text());
    s.data.bind(&s.name, u"Email"_s);           // the widget changes its field
    s.type(s.name, u"a@b"_s);
    ASSERT_TRUE(s.data.UpdateRecord());
    EXPECT_EQ(u"Anna"_s, s.people.text(1, u"Name"_s));
    EXPECT_EQ(u"a@b"_s, s.people.text(1, u"Email"_s));
}

TEST(DataControl, ExchangedAndClosedRecordsets)
{
    Screen s;
    s.data.Recordset().setSort(u"[Name] desc"_s);
    s.data.setRecordset(s.data.Recordset().OpenRecordset());
    EXPECT_EQ(u"Cid"_s, s.name.text());
    s.type(s.name, u"unsaved"_s);
    s.data.Close();
    EXPECT_EQ(u"Cid"_s, s.people.text(3, u"Name"_s));
    EXPECT_FALSE(s.data.isDirty());
    EXPECT_TRUE(s.data.UpdateRecord());
    EXPECT_FALSE(s.data.Recordset());
    EXPECT_TRUE(s.errors.isEmpty());
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
