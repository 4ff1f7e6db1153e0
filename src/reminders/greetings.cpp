#include "reminders/greetings.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/text.h"
#include "platform/desktop/desktop.h"
#include "platform/mail/mailprogram.h"
#include "session/ini.h"
#include "session/shared.h"
#include "session/state.h"

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;
using basic::Value;

namespace {

constexpr qsizetype dateTextSize = 11;      // of LASTEMAILDATE

const QString &birthday()
{
    static const QString subject = u"BIRTHDAY"_s;
    return subject;
}

// A display format may be too long for the field, or one that this region does not read back: a greeting would then go out
// at each start, or never.
QString todayText()
{
    const QString shown = displayDate(basic::Date());
    const bool readsBack = basic::IsDate(shown) && basic::CDate(shown) == basic::Date();
    return shown.size() <= dateTextSize && readsBack ? shown : shortDate(basic::Date());
}

bool wantsGreeting(const dao::Recordset &events)
{
    const Value wanted = events.Get(u"EMAIL");
    return events.Get(u"SUBJECT").text().toUpper() == birthday() && !wanted.isNull() && basic::CBool(wanted)
        && !basic::Trim(events.Get(u"EMAILADDRESS").text()).isEmpty();
}

// A text that is no date stands for never.
bool isDue(const QString &lastSent, const QString &today)
{
    const DateTime last = basic::IsDate(lastSent) ? basic::CDate(lastSent) : DateTime::fromParts(1900, 1, 1);
    const DateTime now = basic::IsDate(today) ? basic::CDate(today) : basic::Date();
    return basic::DateDiff(u"d", last, now) > 0;
}

}

GreetingLetter greetingLetter(const QString &name, const QString &address, const QString &subject)
{
    GreetingLetter letter{address, subject, {}, {}};
    if (subject != birthday())
        return letter;
    const QString shown = shownApostrophes(name);
    letter.body = u"Dear "_s + shown + u"\r\nHOPE YOU HAVE A VERY HAPPY BIRTHDAY"_s;
    letter.html = u"<BODY><DIV>Dear "_s + shown.toHtmlEscaped()
        + u" </DIV><DIV>HOPE YOU HAVE A VERY HAPPY BIRTHDAY</DIV></BODY></HTML>"_s;
    return letter;
}

bool mailByAutomation()
{
    return GetIniValue(iniSettings, u"EmailClient"_s, {}) == u"Outlook";
}

void SendGreeting(const QString &name, const QString &address, const QString &subject)
{
    const GreetingLetter letter = greetingLetter(name, address, subject);
    if (mailByAutomation()) {
        mail::MailProgram &program = mail::mailProgram();
        const auto item = program.CreateItem(0);
        item->To = letter.to;
        item->Subject = letter.subject;
        item->Body = letter.body;
        item->HTMLBody = program.Signature() + letter.html;
        item->Display();
        return;
    }
    // No keys are fed to the window that opens: they would reach whatever has the keyboard by then, and a letter is sent
    // by its sender alone.
    if (!mail::OpenMailTo(letter.to, letter.subject, letter.body))
        throw basic::Error(429, u"There is no mail program on this desktop to take the letter to "_s + address);
}

int SendBirthdayEmails()
{
    if (!state().gMainDb || state().period.gSqlEvents.isEmpty())
        return 0;
    dao::Recordset events = state().gMainDb.OpenRecordset(state().period.gSqlEvents);
    const QString today = todayText();
    int sent = 0;
    for (; !events.EOF_(); events.MoveNext()) {
        if (!wantsGreeting(events) || !isDue(events.Get(u"LASTEMAILDATE").text(), today))
            continue;
        // First the day, then the letter: one a day at most, also when the program dies between the two.
        events.Edit();
        events.Set(u"LASTEMAILDATE", today);
        events.Update();
        const bool passed = basic::Trap([&] {
            SendGreeting(events.Get(u"EVENT").text(), events.Get(u"EMAILADDRESS").text(), birthday());
        });
        sent += passed ? 1 : 0;
    }
    events.Close();
    if (sent > 0)
        playSoundFile(desktop::findResource(u"\\WISH.wav"_s));
    return sent;
}

}
