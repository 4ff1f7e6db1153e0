#include "reminders/greetings.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/prompts.h"
#include "platform/basic/text.h"
#include "platform/desktop/desktop.h"
#include "platform/mail/mailprogram.h"
#include "session/datetexts.h"
#include "session/ini.h"
#include "session/shared.h"
#include "session/state.h"

#include <map>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;
using basic::Value;

namespace {

const QString &birthday()
{
    static const QString subject = u"BIRTHDAY"_s;
    return subject;
}

bool wantsGreeting(const dao::Recordset &events)
{
    const Value wanted = events.Get(u"EMAIL");
    return events.Get(u"SUBJECT").text().toUpper() == birthday() && !wanted.isNull() && basic::CBool(wanted)
        && !basic::Trim(events.Get(u"EMAILADDRESS").text()).isEmpty();
}

// A text that is not a date means never sent.
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
        throw basic::Error(429, u"No mail program is set up on this desktop for the letter to "_s + address);
}

namespace {

constexpr int daysTried = 7;                // a later greeting would only embarrass
const QString retryKey = u"GreetingsToRetry"_s;

// The events whose greeting failed, with the day on which it failed first. Kept in the configuration file as
// "12 2026-11-22, 15 2026-11-23": the birthday is over when they are tried again.
using Retries = std::map<qint32, QDate>;

Retries storedRetries()
{
    Retries retries;
    for (const QString &entry : GetIniValue(iniSettings, retryKey, {}).split(u',', Qt::SkipEmptyParts)) {
        const QStringList parts = entry.simplified().split(u' ');
        const QDate failed = QDate::fromString(parts.value(1), Qt::ISODate);
        if (failed.isValid() && failed.daysTo(basic::Date().date()) <= daysTried)
            retries.emplace(parts.first().toInt(), failed);
    }
    return retries;
}

void storeRetries(const Retries &retries)
{
    QStringList entries;
    for (const auto &[id, failed] : retries)
        entries << QString::number(id) + u' ' + failed.toString(Qt::ISODate);
    const QString text = entries.join(u", "_s);
    if (text != GetIniValue(iniSettings, retryKey, {}))
        tryPutIniValue(iniSettings, retryKey, text);        // at worst they are not tried again
}

// One walk over today's events and those that are tried again.
class GreetingRun {
public:
    void walk(dao::Recordset events);
    void retry();
    int finish();

private:
    void send(dao::Recordset &events);

    const QString m_today = storedDateText(basic::Date());
    Retries m_retries = storedRetries();
    QStringList m_failures;
    int m_sent = 0;
};

void GreetingRun::walk(dao::Recordset events)
{
    for (; !events.EOF_(); events.MoveNext()) {
        if (wantsGreeting(events) && isDue(events.Get(u"LASTEMAILDATE").text(), m_today))
            send(events);
    }
    events.Close();
}

// First the day, then the letter: one a day at most, also when the program dies between the two.
void GreetingRun::send(dao::Recordset &events)
{
    const qint32 id = basic::CLng(events.Get(u"ID"));
    const QString name = events.Get(u"EVENT").text(), address = events.Get(u"EMAILADDRESS").text();
    events.Edit();
    events.Set(u"LASTEMAILDATE", m_today);
    events.Update();
    try {
        SendGreeting(name, address, birthday());
        ++m_sent;
        m_retries.erase(id);
    } catch (const basic::Error &e) {
        m_failures << shownApostrophes(name) + u": "_s + e.text();
        m_retries.try_emplace(id, basic::Date().date());
    }
}

void GreetingRun::retry()
{
    const Retries waiting = m_retries;
    for (const auto &[id, failed] : waiting) {
        dao::Recordset event = state().gMainDb.OpenRecordset(u"select * from [EVENTS] WHERE [ID]="_s + dao::literal(id));
        if (event.EOF_() || !wantsGreeting(event))
            m_retries.erase(id);
        walk(event);
    }
}

int GreetingRun::finish()
{
    storeRetries(m_retries);
    if (m_sent > 0)
        playSoundFile(desktop::findResource(u"\\WISH.wav"_s));
    if (!m_failures.isEmpty())
        basic::MsgBox(u"These birthday greetings were not sent:\r\n\r\n"_s + m_failures.join(u"\r\n"_s)
                          + u"\r\n\r\nThey are tried again tomorrow."_s, {}, basic::Icon::Exclamation);
    return m_sent;
}

}

int SendBirthdayEmails()
{
    if (!state().gMainDb)
        return 0;
    GreetingRun run;
    if (!state().period.gSqlEvents.isEmpty())
        run.walk(state().gMainDb.OpenRecordset(state().period.gSqlEvents));
    run.retry();
    return run.finish();
}

}
