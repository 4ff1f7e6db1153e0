#include "session/ini.h"
#include "frame/periods.h"
#include "frame/startup.h"
#include "platform/mail/mailprogram.h"
#include "reminders/greetings.h"
#include "store/mainfile.h"
#include "support/opened.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// Takes the letters of both ways out: by address through the desktop, and by the mail program's automation.
class Post : public mail::MailProgram {
public:
    Post() { mail::setMailProgram(this); }
    ~Post() override { mail::setMailProgram(nullptr); }
    std::unique_ptr<mail::MailItem> CreateItem(int kind) override
    {
        EXPECT_EQ(kind, 0);
        struct Item : mail::MailItem {
            explicit Item(Post &out) : post(out) {}
            void Display() override
            {
                if (post.fails)
                    throw basic::Error(429, u"no such program"_s);
                post.shown << QStringList{To, Subject, Body, HTMLBody}.join(u'|');
            }
            Post &post;
        };
        return std::make_unique<Item>(*this);
    }
    QString Signature() const override { return u"<P>Yours</P>"_s; }

    QStringList shown;                  // by automation
    bool fails = false;
    test::Opened byAddress{{u"mailto"_s}};
};

class Greetings : public test::MainFileTest {
protected:
    Greetings()
    {
        state().gIniFile = m_folder.path(u"vorelreminder.ini"_s);
        DetectDateOrder();
        openMainDatabase();
        SetDayPeriod(u"Today"_s);
    }
    void add(const QString &date, const QString &subject, const QString &name, bool email, const QString &address,
             const QString &last)
    {
        execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT],[EMAIL],[EMAILADDRESS],[LASTEMAILDATE]) VALUES (#%1#,'%2','%3',%4,'%5',%6)"_s
                    .arg(date, subject, name, email ? u"True"_s : u"False"_s, address, last));
    }
    QStringList lastDates() { return rows(u"SELECT [LASTEMAILDATE] FROM [EVENTS] ORDER BY [ID]"_s); }

    Post post;
};

}

TEST_F(Greetings, OneADayToThoseWhoAskForIt)
{
    add(u"11/22/1947"_s, u"Birthday"_s, u"ann@x"_s, true, u"a1@x.org"_s, u"Null"_s);
    add(u"11/22/1980"_s, u"BIRTHDAY"_s, u"text"_s, true, u"a2@x.org"_s, u"'never yet'"_s);
    add(u"11/22/1980"_s, u"BIRTHDAY"_s, u"last year"_s, true, u"a3@x.org"_s, u"'11/22/2025'"_s);
    add(u"11/22/1980"_s, u"BIRTHDAY"_s, u"today"_s, true, u"no@x.org"_s, u"'11/22/2026'"_s);
    add(u"11/22/1980"_s, u"BIRTHDAY"_s, u"not wanted"_s, false, u"no@x.org"_s, u"'01/01/1900'"_s);
    add(u"11/22/1980"_s, u"BIRTHDAY"_s, u"no address"_s, true, u"  "_s, u"'01/01/1900'"_s);
    add(u"11/22/1980"_s, u"ANNIVERSARY"_s, u"no birthday"_s, true, u"no@x.org"_s, u"'01/01/1900'"_s);
    add(u"11/23/1980"_s, u"BIRTHDAY"_s, u"tomorrow"_s, true, u"no@x.org"_s, u"'01/01/1900'"_s);
    EXPECT_EQ(SendBirthdayEmails(), 3);
    EXPECT_EQ(SendBirthdayEmails(), 0) << "the second run of the day";
    EXPECT_EQ(post.byAddress.urls.size(), 3);
    EXPECT_TRUE(post.shown.isEmpty());
    EXPECT_EQ(lastDates(), (QStringList{u"11/22/2026"_s, u"11/22/2026"_s, u"11/22/2026"_s, u"11/22/2026"_s, u"01/01/1900"_s,
                                        u"01/01/1900"_s, u"01/01/1900"_s, u"01/01/1900"_s}));
    m_clock.addDays(1);
    SetDayPeriod(u"Today"_s);
    EXPECT_EQ(SendBirthdayEmails(), 1);
}

// A display format that is longer than the field keeps the day in its short form.
TEST_F(Greetings, DisplayFormatsThatDoNotFit)
{
    add(u"11/22/1980"_s, u"BIRTHDAY"_s, u"Ann"_s, true, u"a@x.org"_s, u"Null"_s);
    for (const QString &format : {u"dddd, dd mmmm yyyy"_s, u"dd.mm.yyyy"_s, u"dd.mm.yy"_s}) {     // too long, or not read back here
        state().settings.gDateDisplay = format;
        EXPECT_EQ(SendBirthdayEmails(), 1) << qPrintable(format);
        EXPECT_EQ(lastDates(), QStringList{u"11/22/2026"_s}) << qPrintable(format);
        EXPECT_EQ(SendBirthdayEmails(), 0) << qPrintable(format);
        execute(u"UPDATE [EVENTS] SET [LASTEMAILDATE]=Null"_s);
    }
}

// Without a mail program: one box for all, and another attempt on the next days, when the birthday is over.
TEST_F(Greetings, FailedOnesAreToldTogetherAndTriedAgainTheNextDay)
{
    add(u"11/22/1980"_s, u"BIRTHDAY"_s, u"PAT O`HARA"_s, true, u"p@x.org"_s, u"Null"_s);
    add(u"11/22/1990"_s, u"BIRTHDAY"_s, u"Ann"_s, true, u"a@x.org"_s, u"Null"_s);
    PutIniValue(iniSettings, u"EmailClient"_s, u"Outlook"_s);
    post.fails = true;
    m_prompts.expect(u"These birthday greetings were not sent:"_s);
    EXPECT_EQ(SendBirthdayEmails(), 0);
    EXPECT_TRUE(m_prompts.shown().back().text.contains(u"\r\nPAT O'HARA: "_s) && m_prompts.shown().back().text.contains(u"\r\nAnn: "_s));
    EXPECT_EQ(SendBirthdayEmails(), 0) << "the second run of the day";

    m_clock.addDays(1);
    state().period.gSqlEvents = u"select * from [EVENTS] WHERE [DATE]=#01/01/2030#"_s;    // what is on show has no say in it
    post.fails = false;
    execute(u"UPDATE [EVENTS] SET [EMAIL]=False WHERE [EVENT]='Ann'"_s);
    EXPECT_EQ(SendBirthdayEmails(), 1);
    ASSERT_EQ(post.shown.size(), 1);
    EXPECT_TRUE(post.shown[0].startsWith(u"p@x.org|"_s));
    m_clock.addDays(1);
    SetDayPeriod(u"Today"_s);
    EXPECT_EQ(SendBirthdayEmails(), 0);
}

TEST_F(Greetings, EveryCharacterReachesTheAddress)
{
    EXPECT_TRUE(greetingLetter(u"PAT O`HARA"_s, {}, u"BIRTHDAY"_s).body.startsWith(u"Dear PAT O'HARA\r\n"_s));
    SendGreeting(u"Zoë & Bob? #1 50%+"_s, u"zoe+home@x.org"_s, u"BIRTHDAY"_s);
    ASSERT_EQ(post.byAddress.urls.size(), 1);
    EXPECT_EQ(post.byAddress.urls[0].toString(QUrl::FullyEncoded),
              u"mailto:zoe%2Bhome@x.org?subject=BIRTHDAY&body=Dear%20Zo%C3%AB%20%26%20Bob%3F%20%231%2050%25%2B"
              "%0D%0AHOPE%20YOU%20HAVE%20A%20VERY%20HAPPY%20BIRTHDAY"_s);
}

TEST_F(Greetings, ThroughTheMailProgram)
{
    PutIniValue(iniSettings, u"EmailClient"_s, u"Outlook"_s);
    SendGreeting(u"Tom & <Ann>"_s, u"a@x.org"_s, u"BIRTHDAY"_s);
    EXPECT_EQ(post.shown, QStringList{u"a@x.org|BIRTHDAY|Dear Tom & <Ann>\r\nHOPE YOU HAVE A VERY HAPPY BIRTHDAY|"
                                      "<P>Yours</P><BODY><DIV>Dear Tom &amp; &lt;Ann&gt; </DIV>"
                                      "<DIV>HOPE YOU HAVE A VERY HAPPY BIRTHDAY</DIV></BODY></HTML>"_s});
    EXPECT_TRUE(post.byAddress.urls.isEmpty());
}

}
