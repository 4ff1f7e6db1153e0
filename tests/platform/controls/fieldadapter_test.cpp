#include "people.h"
#include "platform/basic/format.h"
#include "platform/controls/richtextbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;
using namespace vorel;
using controls::DataControl;

namespace {

struct Kind {
    const char *name;
    std::function<std::unique_ptr<QWidget>()> make;
    std::function<void(QWidget &, const QString &)> type;
    std::function<QString(QWidget &)> shown;
};

template <class W> W &as(QWidget &widget) { return static_cast<W &>(widget); }

const std::vector<Kind> textKinds {
    {"line edit", [] { return std::make_unique<QLineEdit>(); },
     [](QWidget &w, const QString &t) { as<QLineEdit>(w).clear(); QTest::keyClicks(&w, t); },
     [](QWidget &w) { return as<QLineEdit>(w).text(); }},
    {"editable combo box", [] {
         auto made = std::make_unique<QComboBox>();
         made->setEditable(true);
         made->addItems({u"One"_s, u"Two"_s});
         return made;
     },
     [](QWidget &w, const QString &t) { as<QComboBox>(w).lineEdit()->clear(); QTest::keyClicks(as<QComboBox>(w).lineEdit(), t); },
     [](QWidget &w) { return as<QComboBox>(w).currentText(); }},
    {"label", [] { return std::make_unique<QLabel>(); },
     [](QWidget &w, const QString &t) { as<QLabel>(w).setText(t); }, [](QWidget &w) { return as<QLabel>(w).text(); }},
    {"plain text edit", [] { return std::make_unique<QPlainTextEdit>(); },
     [](QWidget &w, const QString &t) { as<QPlainTextEdit>(w).clear(); QTest::keyClicks(&w, t); },
     [](QWidget &w) { return as<QPlainTextEdit>(w).toPlainText(); }},
    {"text edit", [] { return std::make_unique<QTextEdit>(); },
     [](QWidget &w, const QString &t) { as<QTextEdit>(w).clear(); QTest::keyClicks(&w, t); },
     [](QWidget &w) { return as<QTextEdit>(w).toPlainText(); }},
};

}

TEST(FieldAdapter, EveryTextWidgetShowsAndWritesEveryField)
{
    struct Case { QString field, typed, stored; bool null; };
    const std::vector<Case> cases {
        {u"Name"_s, u"O'Hara & <b>co"_s, u"O'Hara & <b>co"_s, false},
        {u"Name"_s, u""_s, u""_s, true},                    // the design takes no empty text
        {u"Email"_s, u""_s, u""_s, false},                  // this one does
        {u"Notes"_s, u"007"_s, u"007"_s, false},
        {u"Owed"_s, u"12.5"_s, u"12.5"_s, false},
        {u"Owed"_s, u" "_s, u""_s, true},
        {u"Born"_s, u"2/29/2004"_s, u"2/29/2004"_s, false},
        {u"Born"_s, u""_s, u""_s, true},
        {u"Age"_s, u""_s, u""_s, true},
    };
    const test::People people;
    for (const Kind &kind : textKinds) {
        for (const Case &c : cases) {
            people.execute(u"UPDATE [People] SET [Name]='Ann',[Age]=30,[Email]='e',[Notes]='n',[Owed]=1,[Born]=#1/1/2001# WHERE [ID]=1"_s);
            const auto widget = kind.make();
            DataControl data;
            data.bind(widget.get(), c.field);
            people.open(data);
            EXPECT_EQ(people.text(1, c.field), kind.shown(*widget)) << kind.name;
            kind.type(*widget, c.typed);
            EXPECT_TRUE(data.UpdateRecord()) << kind.name << ' ' << c.field.toStdString();
            const dao::Value stored = people.stored(1, c.field);
            EXPECT_EQ(c.stored, stored.text()) << kind.name << ' ' << c.field.toStdString();
            EXPECT_EQ(c.null, stored.isNull()) << kind.name << ' ' << c.field.toStdString();
        }
    }
}

TEST(FieldAdapter, CheckBox)
{
    const test::People people;
    QCheckBox box;
    DataControl data;
    data.bind(&box, u"Friend"_s);
    people.open(data);
    EXPECT_FALSE(box.isChecked());
    box.click();
    ASSERT_TRUE(data.MoveNext());
    EXPECT_EQ(dao::Value(true), people.stored(1, u"Friend"_s));
    EXPECT_FALSE(box.isChecked());
    data.MoveFirst();
    EXPECT_TRUE(box.isChecked());
    EXPECT_FALSE(data.isDirty());
    data.bind(&box, u"Age"_s);                      // any number but 0 is on
    EXPECT_TRUE(box.isChecked());
    box.click();
    ASSERT_TRUE(data.UpdateRecord());
    EXPECT_EQ(u"0"_s, people.text(1, u"Age"_s));
}

TEST(FieldAdapter, PickListShowsAValueItLacks)
{
    const test::People people;
    QComboBox list;
    list.addItems({u"Bob"_s, u"Zoe"_s});
    DataControl data;
    data.bind(&list, u"Name"_s);
    people.open(data);
    EXPECT_EQ(-1, list.currentIndex());
    EXPECT_EQ(u"Ann"_s, list.placeholderText());
    EXPECT_FALSE(data.isDirty());
    ASSERT_TRUE(data.MoveNext());
    EXPECT_EQ(u"Ann"_s, people.text(1, u"Name"_s)) << "not picked, not lost";
    EXPECT_EQ(u"Bob"_s, list.currentText());
    EXPECT_EQ(u""_s, list.placeholderText());
    list.setCurrentIndex(1);
    ASSERT_TRUE(data.UpdateRecord());
    EXPECT_EQ(u"Zoe"_s, people.text(2, u"Name"_s));
}

TEST(FieldAdapter, RichTextIsKeptAsStored)
{
    const test::People people;
    const QString plain = u"<b>not bold</b> & co\n  two"_s;
    people.execute(u"UPDATE [People] SET [Notes]='%1' WHERE [ID]=1"_s.arg(plain));
    controls::RichTextBox edit;
    DataControl data;
    data.bind(&edit, u"Notes"_s);
    people.open(data);
    EXPECT_EQ(plain, edit.Text()) << "a user's own brackets are no markup";
    edit.selectAll();
    edit.setSelBold(true);
    EXPECT_TRUE(data.isDirty());
    ASSERT_TRUE(data.MoveNext());
    EXPECT_TRUE(people.text(1, u"Notes"_s).startsWith(u"{\\rtf1"_s));
    EXPECT_EQ(u""_s, edit.Text());
    QTest::keyClicks(&edit, u"light"_s);
    ASSERT_TRUE(data.MoveFirst());
    EXPECT_EQ(u"light"_s, people.text(2, u"Notes"_s)) << "the bold of the row before stays there";
    EXPECT_EQ(plain, edit.Text());
    edit.selectAll();
    EXPECT_EQ(true, edit.SelBold());
    EXPECT_FALSE(data.isDirty());
    edit.ClearSelFormat();
    edit.textCursor().insertText(u"x"_s);
    ASSERT_TRUE(data.UpdateRecord());
    EXPECT_EQ(u"x"_s, people.text(1, u"Notes"_s)) << "what is not formatted stays plain";
}

TEST(FieldAdapter, RichTextReadsWhatOlderVersionsStored)
{
    const test::People people;
    const QString html = u"<!DOCTYPE HTML><html><body><p>one <b>two</b></p></body></html>"_s;
    people.execute(u"UPDATE [People] SET [Notes]='%1' WHERE [ID]=1"_s.arg(html));
    controls::RichTextBox edit;
    DataControl data;
    data.bind(&edit, u"Notes"_s);
    people.open(data);
    EXPECT_EQ(u"one two"_s, edit.Text());
    EXPECT_FALSE(data.isDirty());
    ASSERT_TRUE(data.UpdateRecord());
    EXPECT_EQ(html, people.text(1, u"Notes"_s)) << "looking at a row changes nothing in it";
    edit.selectAll();
    EXPECT_EQ(std::nullopt, edit.SelBold()) << "of both kinds";
    edit.setText(u"{\\rtf1 as typed}"_s);
    ASSERT_TRUE(data.MoveNext());
    ASSERT_TRUE(data.MoveFirst());
    EXPECT_EQ(u"{\\rtf1 as typed}"_s, edit.Text());
}

TEST(FieldAdapter, OwnShapeOfAValue)
{
    const test::People people;
    people.execute(u"UPDATE [People] SET [Born]=#6/15/2005#"_s);
    QLineEdit box;
    DataControl data;
    controls::BindOptions shape;
    shape.show = [](const dao::Value &v) { return basic::Format(v, u"dd mmm yyyy"); };
    shape.store = [](const QString &text) { return text == u"never" ? dao::Value() : dao::Value(text); };
    data.bind(&box, u"Born"_s, shape);
    people.open(data);
    EXPECT_EQ(u"15 Jun 2005"_s, box.text());
    EXPECT_FALSE(data.isDirty());
    box.setText(u"16 Jun 2005"_s);
    ASSERT_TRUE(data.UpdateRecord());
    EXPECT_EQ(dao::Value(basic::DateTime::fromParts(2005, 6, 16)), people.stored(1, u"Born"_s));
    box.setText(u"never"_s);
    ASSERT_TRUE(data.UpdateRecord());
    EXPECT_TRUE(people.stored(1, u"Born"_s).isNull());
}
