#include "contacts/frmContacts.h"
#include "platform/basic/clock.h"
#include "records/sectionscreen.h"

// Birthdays and anniversaries of contacts among the events.
namespace vorel {

using namespace Qt::StringLiterals;

namespace {

class ContactDates : public test::SectionScreen {
protected:
    ContactDates()
    {
        run(DataFile::Contacts, {u"INSERT INTO [CONTACTS] (SORTNAME,LASTNAME,FULLNAME,[PRIVATE],INVISIBLE) VALUES('Ash','Ash','Ash',True,False)"_s});
        openScreen<frmContacts>(u"P"_s);
        form->findChild<QTabBar *>()->setCurrentIndex(4);
    }
    void birthday(int row, const QString &date, const QString &last, const QString &other)
    {
        type(u"txtdob(%1)"_s.arg(row), date);
        type(u"txtBirthdaySurName(%1)"_s.arg(row), last);
        type(u"txtBirthdayOtherName(%1)"_s.arg(row), other);
    }
    bool tick(const QString &check)
    {
        click(check);
        return at<QCheckBox>(check)->isChecked();
    }
    static QStringList events(const QString &fields = u"[DATE],[SUBJECT],[EVENT]"_s)
    {
        return read(DataFile::Main, u"select "_s + fields + u" from [EVENTS] order by [ID]"_s);
    }
};

}

TEST_F(ContactDates, ATickWritesOneEventAndClearingItRemovesBothForms)
{
    birthday(1, u"02/29/1984"_s, u"o'HARA"_s, u"jo 50% [x]"_s);
    EXPECT_TRUE(tick(u"chkEventsDOB(1)"_s));
    EXPECT_EQ(events(u"[DATE],[SUBJECT],[EVENT],[CONTACTID],[EMAILID],[EMAIL]"_s), QStringList{u"1984-02-29|Birthday|Jo 50% [x] O`Hara|1|1|False"_s});
    // The other form counts as well, and a second tick adds nothing.
    run(DataFile::Main, {u"UPDATE [EVENTS] SET [EVENT]='O`HARA, JO 50% [X]'"_s});
    form->findChild<QTabBar *>()->setCurrentIndex(0);
    form->findChild<QTabBar *>()->setCurrentIndex(4);
    EXPECT_TRUE(at<QCheckBox>(u"chkEventsDOB(1)"_s)->isChecked()) << "as it is in the file";
    at<QCheckBox>(u"chkEventsDOB(1)"_s)->setChecked(false);
    EXPECT_TRUE(tick(u"chkEventsDOB(1)"_s));
    EXPECT_EQ(events().size(), 1);
    // A changed name has no event; the old row stays.
    type(u"txtBirthdayOtherName(1)"_s, u"jane"_s);
    click(u"cmdUpdate"_s);
    EXPECT_FALSE(at<QCheckBox>(u"chkEventsDOB(1)"_s)->isChecked());
    EXPECT_EQ(events().size(), 1);
    type(u"txtBirthdayOtherName(1)"_s, u"jo 50% [x]"_s);
    click(u"cmdUpdate"_s);
    EXPECT_FALSE(tick(u"chkEventsDOB(1)"_s));
    EXPECT_TRUE(events().isEmpty());
}

TEST_F(ContactDates, AnIncompleteRowBeepsWhereSomethingIsMissing)
{
    struct Case { QString date, last, other, focus; };
    const Case cases[] = {{{}, {}, {}, {}},                                         // nothing to do
                          {{}, u"Ash"_s, u"Jo"_s, u"txtdob(0)"_s},
                          {u"01/01/1900"_s, u"Ash"_s, u"Jo"_s, u"txtdob(0)"_s},     // the days that stand for none
                          {u"01/01/4501"_s, u"Ash"_s, u"Jo"_s, u"txtdob(0)"_s},
                          {u"some day"_s, u"Ash"_s, u"Jo"_s, u"txtdob(0)"_s},
                          {u"02/30/1984"_s, u"Ash"_s, u"Jo"_s, u"txtdob(0)"_s},
                          {u"02/28/1984"_s, {}, u"Jo"_s, u"txtBirthdaySurName(0)"_s}};
    int beeps = 0;
    for (const Case &c : cases) {
        birthday(0, c.date, c.last, c.other);
        EXPECT_FALSE(tick(u"chkEventsDOB(0)"_s)) << qPrintable(c.date);
        EXPECT_EQ(user.beeps(), beeps += !c.focus.isEmpty()) << qPrintable(c.date);
        EXPECT_TRUE(c.focus.isEmpty() || form->focusWidget() == at(c.focus)) << qPrintable(c.date);
    }
    EXPECT_TRUE(events().isEmpty());
    for (const QString &part : {u"txtAnniversary(2)"_s, u"cboAnniversary(2)"_s, u"txtAnnivSurName(2)"_s}) {
        for (const auto &[name, words] : {std::pair{u"txtAnniversary(2)"_s, u"06/01/2001"_s}, {u"cboAnniversary(2)"_s, u"Wedding"_s},
                                          {u"txtAnnivSurName(2)"_s, u"jo and al"_s}})
            type(name, name == part ? QString() : words);
        EXPECT_FALSE(tick(u"chkEventsAnn(2)"_s)) << qPrintable(part);
        EXPECT_EQ(user.beeps(), ++beeps) << qPrintable(part);
    }
    type(u"txtAnnivSurName(2)"_s, u"jo and al"_s);
    EXPECT_TRUE(tick(u"chkEventsAnn(2)"_s));
    EXPECT_EQ(events(), QStringList{u"2001-06-01|Wedding|Jo And Al"_s});
    EXPECT_FALSE(tick(u"chkEventsAnn(2)"_s));
    EXPECT_TRUE(events().isEmpty());
}

TEST_F(ContactDates, GreetingsNeedAnAddressAndTheNameFollowsTheSetting)
{
    birthday(0, u"11/23/1984"_s, u"Ash"_s, u"Jo"_s);
    EXPECT_FALSE(tick(u"chkAutoEmail(0)"_s));
    type(u"txtEmail1Address"_s, u"jo@example.org"_s);
    EXPECT_TRUE(tick(u"chkAutoEmail(0)"_s));
    PutIniValue(iniSettings, u"BirthdayFormat"_s, u"Lastname, Firstname/s"_s);
    EXPECT_TRUE(tick(u"chkEventsDOB(0)"_s));
    EXPECT_EQ(events(u"[EVENT],[EMAIL],[EMAILADDRESS]"_s), QStringList{u"Ash, Jo|True|jo@example.org"_s});
    EXPECT_FALSE(tick(u"chkEventsDOB(0)"_s));
    EXPECT_FALSE(at<QCheckBox>(u"chkAutoEmail(0)"_s)->isChecked()) << "no event, no greeting";
}

// What an event cannot hold is told; a contact's number may be larger than an e-mail's.
TEST_F(ContactDates, WhatAnEventCannotHold)
{
    dao::Database main = dao::DBEngine::OpenDatabase(state().path(DataFile::Main));
    const basic::DateTime day = basic::DateTime::fromParts(1984, 11, 23);
    EXPECT_TRUE(contacts::addEvent(main, contacts::Birthday{u"Ash"_s, u"Jo"_s}, {.date = day, .picture = {}, .address = {}, .contact = 70000}));
    EXPECT_FALSE(contacts::addEvent(main, contacts::Birthday{u"Oak"_s, u"Al"_s}, {.date = day, .picture = QString(101, u'x'), .address = {}}));
    EXPECT_EQ(test::errorOf([&] { contacts::addEvent(main, contacts::Anniversary{QString(26, u'x'), u"Jo"_s}, day, 1); }), 3163);
    EXPECT_EQ(events(u"[EVENT],[CONTACTID],[EMAILID],[FILENAME]"_s), (QStringList{u"Jo Ash|70000|0|"_s, u"Al Oak|0|0|"_s}));
}

TEST_F(ContactDates, TheTipTellsStarSignAndAge)
{
    const basic::DateTime today = basic::Date();
    const basic::DateTime born = basic::DateTime(today.serial() - 20 * 365 - 364);
    type(u"txtdob(0)"_s, shortDate(born));
    QFocusEvent in(QEvent::FocusIn);
    QCoreApplication::sendEvent(at(u"txtdob(0)"_s), &in);
    EXPECT_TRUE(at(u"txtdob(0)"_s)->toolTip().startsWith(shortDate(born) + u' ')) << qPrintable(at(u"txtdob(0)"_s)->toolTip());
    EXPECT_TRUE(at(u"txtdob(0)"_s)->toolTip().endsWith(u" - Age 20"_s)) << qPrintable(at(u"txtdob(0)"_s)->toolTip());
    EXPECT_TRUE(contacts::birthdayTip(u"12/21/1984"_s).startsWith(u"12/21/1984 Sagittarius - Age "_s));
    EXPECT_EQ(contacts::birthdayTip(u"01/01/1900"_s), QString());
}

// A stored day that stands for none is not shown, and stays where it is.
TEST_F(ContactDates, DaysThatStandForNone)
{
    run(DataFile::Contacts, {u"UPDATE [CONTACTS] SET [BIRTHDAY]='01/01/4501',[DOB2]='some day',[DOB3]='2/29/1984'"_s});
    openScreen<frmContacts>(u"P"_s);
    EXPECT_EQ(text(u"txtdob(0)"_s) + u'/' + text(u"txtdob(1)"_s) + u'/' + text(u"txtdob(2)"_s), u"/some day/02/29/1984"_s);
    EXPECT_FALSE(form->isWindowModified());
}

}
