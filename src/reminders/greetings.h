#pragma once

#include <QString>

// Birthday greetings by e-mail. The letters are composed here; the user's mail program shows them and the user sends them.
namespace vorel {

struct GreetingLetter {
    QString to, subject;
    QString body;               // plain
    QString html;               // without the signature
};
GreetingLetter greetingLetter(const QString &name, const QString &address, const QString &subject);

// Whether letters go to the mail program's automation (EmailClient "Outlook") or by an address to the shell.
bool mailByAutomation();
// Hands one greeting to the mail program. Error 429 when this desktop has none.
void SendGreeting(const QString &name, const QString &address, const QString &subject);
// A greeting for each birthday of the current events query that asks for one and has had none today. Gives how many went
// out. Engine errors. One box names the letters that no program took; they are tried again on the next days, for a week.
int SendBirthdayEmails();

}
