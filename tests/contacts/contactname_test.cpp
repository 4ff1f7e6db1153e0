#include "contacts/contactname.h"
#include "records/webaddress.h"

#include <gtest/gtest.h>

// How a contact is called, and which of its addresses are opened.
namespace vorel {

using namespace Qt::StringLiterals;
using contacts::ContactName;

TEST(ContactName, OneRuleForAllNames)
{
    struct Case {
        bool capitals, isPrivate;
        QString last, first, middle, company;       // as typed
        QString lastName, firstName, sort, full;    // as ruled
    };
    const Case cases[] = {
        {true, true, u"mcleod"_s, u"jo"_s, {}, {}, u"MCLEOD"_s, u"jo"_s, u"MCLEOD, jo"_s, u"MCLEOD, jo"_s},
        {false, true, u"MCLEOD"_s, u"JO"_s, u"ann"_s, {}, u"McLeod"_s, u"JO"_s, u"McLeod, Jo"_s, u"McLeod, Jo ann"_s},
        {false, true, u"  smith "_s, u" "_s, {}, {}, u"Smith"_s, u" "_s, u"Smith"_s, u"Smith"_s},
        {true, true, u"o'hara"_s, {}, {}, {}, u"O'HARA"_s, {}, u"O`HARA"_s, u"O'HARA"_s},
        {false, true, {}, u"jo"_s, {}, {}, {}, u"jo"_s, u", Jo"_s, u", Jo"_s},
        {false, true, u"smith"_s, u"jo"_s, {}, u"MILL ltd"_s, u"Smith"_s, u"jo"_s, u"Smith, Jo"_s, u"Smith, Jo"_s},
        // Without any name the contact still has one to be found by.
        {true, true, {}, {}, {}, {}, u" "_s, {}, u" "_s, u" "_s},
        {true, true, {}, {}, u"Ann"_s, {}, u" "_s, {}, u" "_s, u" Ann"_s},
        {false, false, {}, {}, {}, u"mill & sons ltd"_s, u"Mill & Sons Ltd"_s, {}, u"Mill & Sons Ltd"_s, u"Mill & Sons Ltd"_s},
        {true, false, u"old"_s, {}, u"x"_s, u"Bob's mill"_s, u"BOB'S MILL"_s, {}, u"BOB`S MILL"_s, u"BOB'S MILL"_s},
        {false, false, u"old"_s, u"jo"_s, {}, u"mill"_s, u"Mill"_s, {}, u"Mill, Jo"_s, u"Mill, Jo"_s},
        {true, false, u"old"_s, {}, {}, u"   "_s, u" "_s, {}, u" "_s, u" "_s},
    };
    for (const Case &c : cases) {
        const ContactName named = contacts::applyNameRule({.isPrivate = c.isPrivate, .lastName = c.last, .firstName = c.first, .middleName = c.middle,
                                                 .companyName = c.company}, c.capitals);
        SCOPED_TRACE((c.last + u'/' + c.first + u'/' + c.company).toStdString());
        EXPECT_EQ(named.lastName, c.lastName);
        EXPECT_EQ(named.firstName, c.firstName);
        EXPECT_EQ(named.sortName, c.sort);
        EXPECT_EQ(named.fileAs, c.sort);
        EXPECT_EQ(named.fullName, c.full);
    }
}

TEST(ContactName, APersonWhoBecomesABusinessGivesItTheName)
{
    ContactName person{.lastName = u"Smith"_s, .firstName = u"Jo"_s, .middleName = u"Ann"_s};
    makeBusiness(person);
    EXPECT_EQ(person, (ContactName{.isPrivate = false, .lastName = u"Smith"_s, .companyName = u"Smith Jo"_s}));
    ContactName owner{.lastName = u"Smith"_s, .companyName = u"Mill"_s};
    makeBusiness(owner);
    EXPECT_EQ(owner.companyName, u"Mill"_s);
}

// A record may come from anywhere: nothing but a page or a letter is opened because it says so.
TEST(WebAddress, PagesAndLettersAlone)
{
    const std::pair<QString, QString> cases[] = {
        {u" www.example.org "_s, u"http://www.example.org"_s}, {u"example.org/a?b=1"_s, u"http://example.org/a?b=1"_s},
        {u"HTTPS://example.org"_s, u"HTTPS://example.org"_s},  {u"ftp.example.org"_s, u"ftp://ftp.example.org"_s},
        {u"jo@example.org"_s, u"mailto:jo@example.org"_s},     {u"mailto:jo@example.org"_s, u"mailto:jo@example.org"_s},
        {u"/bin/sh"_s, {}}, {u"file:///tmp/x.sh"_s, {}},       {u"two words.org"_s, {}}, {u"javascript:alert(1)"_s, {}}, {{}, {}},
        {u"http://exa mple.org"_s, {}}, {u"../x.sh"_s, {}}};
    for (const auto &[text, address] : cases)
        EXPECT_EQ(records::addressToOpen(text), address) << qPrintable(text);
}

}
