#pragma once

#include <QString>
#include <memory>

// Letters that the user's own mail program shows and the user sends. Nothing here sends anything.
namespace vorel::mail {

// One letter of the mail program, as its automation offers it.
class MailItem {
public:
    virtual ~MailItem() = default;
    virtual void Display() = 0;             // error 429 when no program on this desktop takes it

    QString To;
    QString Subject;
    QString Body;                           // plain; any line ends
    QString HTMLBody;                       // "" for a plain letter
};

class MailProgram {
public:
    virtual ~MailProgram() = default;
    virtual std::unique_ptr<MailItem> CreateItem(int kind) = 0;     // 0: a letter; error 5 for any other kind
    virtual QString Signature() const { return {}; }                // HTML that precedes a letter's body
};

// The one in use: the desktop's, unless a test has set another (not owned; nullptr: the desktop's again).
MailProgram &mailProgram();
void setMailProgram(MailProgram *program);

// A letter as a message file: unsent, plain and HTML side by side, Unicode safe, no header that a value could add.
QByteArray messageFile(const QString &to, const QString &subject, const QString &body, const QString &html);
// "mailto:" with every value percent-encoded; an empty subject and an empty body are left out.
QString mailtoAddress(const QString &to, const QString &subject = {}, const QString &body = {});
// Opens the mail program on a new letter. false: this desktop has none.
bool OpenMailTo(const QString &to, const QString &subject = {}, const QString &body = {});

}
