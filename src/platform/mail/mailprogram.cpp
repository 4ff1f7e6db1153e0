#include "platform/mail/mailprogram.h"

#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/desktop/desktop.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QUrl>

namespace vorel::mail {

using namespace Qt::StringLiterals;

namespace {

constexpr int noProgram = 429;                  // "ActiveX component can't create object"
constexpr int keptLetters = 20;                 // more than anybody opens before the mail program has read them

MailProgram *chosenProgram = nullptr;

// A header's value, on one line; other letters than ASCII as encoded words that fit one line each.
QByteArray headerText(const QString &text)
{
    const QString line = text.simplified();
    if (std::all_of(line.begin(), line.end(), [](QChar c) { return c >= u' ' && c < u'\x7f'; }))
        return line.toLatin1();
    QByteArrayList words;
    QByteArray part;
    const auto flush = [&] {
        if (!part.isEmpty())
            words << "=?utf-8?B?" + part.toBase64() + "?=";
        part.clear();
    };
    for (const uint code : line.toUcs4()) {
        const QByteArray bytes = QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1).toUtf8();
        if (part.size() + bytes.size() > 36)
            flush();
        part += bytes;
    }
    flush();
    return words.join("\r\n ");
}

// Base64 in lines of 76: any text passes any mail program unchanged.
QByteArray bodyPart(const QByteArray &kind, const QString &text)
{
    QString lines = text;
    lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\n', u"\r\n"_s);
    const QByteArray coded = lines.toUtf8().toBase64();
    QByteArray part = "Content-Type: " + kind + "; charset=utf-8\r\nContent-Transfer-Encoding: base64\r\n\r\n";
    for (qsizetype at = 0; at < coded.size(); at += 76)
        part += coded.mid(at, 76) + "\r\n";
    return part;
}

// The desktop's mail program takes a letter as a message file marked as not sent yet. It may read the file well after it
// was started, so the last few stay; a desktop that opens no such files gets the plain letter by its address.
class DesktopItem : public MailItem {
public:
    void Display() override
    {
        const QString file = writeLetter(messageFile(To, Subject, Body, HTMLBody));
        if (!file.isEmpty() && desktop::ShellExecute(file))
            return;
        if (!OpenMailTo(To, Subject, Body))
            throw basic::Error(noProgram, u"No mail program is set up on this desktop for the letter to "_s + To);
    }

private:
    static QString writeLetter(const QByteArray &letter)
    {
        QDir outbox(basic::programFolder() + u"/Letters"_s);
        if (!outbox.exists() && !QDir().mkpath(outbox.path()))
            return {};
        QFile::setPermissions(outbox.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QStringList earlier = outbox.entryList({u"letter*.eml"_s}, QDir::Files, QDir::Name);
        const int last = earlier.isEmpty() ? 0 : QStringView(earlier.last()).mid(6).chopped(4).toInt();
        while (earlier.size() >= keptLetters)
            outbox.remove(earlier.takeFirst());
        QSaveFile file(outbox.filePath(u"letter%1.eml"_s.arg(last + 1, 6, 10, QChar(u'0'))));
        const bool written = file.open(QIODevice::WriteOnly) && file.write(letter) == letter.size() && file.commit();
        return written ? file.fileName() : QString();
    }
};

class DesktopProgram : public MailProgram {
public:
    std::unique_ptr<MailItem> CreateItem(int kind) override
    {
        if (kind != 0)
            throw basic::BasicError(5);
        return std::make_unique<DesktopItem>();
    }
};

}

MailProgram &mailProgram()
{
    static DesktopProgram own;
    return chosenProgram ? *chosenProgram : own;
}

void setMailProgram(MailProgram *program)
{
    chosenProgram = program;
}

QByteArray messageFile(const QString &to, const QString &subject, const QString &body, const QString &html)
{
    QByteArray letter = "X-Unsent: 1\r\nTo: " + headerText(to) + "\r\nSubject: " + headerText(subject)
        + "\r\nMIME-Version: 1.0\r\n";
    if (html.isEmpty())
        return letter + bodyPart("text/plain", body);
    // Base64 has no "=_" within a line, so the boundary cannot occur in a part.
    const QByteArray boundary = "=_letter";
    letter += "Content-Type: multipart/alternative; boundary=\"" + boundary + "\"\r\n\r\n";
    for (const QByteArray &part : {bodyPart("text/plain", body), bodyPart("text/html", html)})
        letter += "--" + boundary + "\r\n" + part;
    return letter + "--" + boundary + "--\r\n";
}

QString mailtoAddress(const QString &to, const QString &subject, const QString &body)
{
    const auto coded = [](const QString &text, const QByteArray &kept = {}) {
        return QString::fromLatin1(QUrl::toPercentEncoding(text, kept));
    };
    QStringList fields;
    if (!subject.isEmpty())
        fields << u"subject="_s + coded(subject);
    if (!body.isEmpty())
        fields << u"body="_s + coded(body);
    const QString address = u"mailto:"_s + coded(to.trimmed(), "@,");
    return fields.isEmpty() ? address : address + u'?' + fields.join(u'&');
}

bool OpenMailTo(const QString &to, const QString &subject, const QString &body)
{
    return desktop::ShellExecute(mailtoAddress(to, subject, body));
}

}
