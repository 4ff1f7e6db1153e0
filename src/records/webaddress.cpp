#include "records/webaddress.h"

#include "platform/basic/prompts.h"
#include "platform/desktop/desktop.h"
#include "platform/mail/mailprogram.h"

#include <QRegularExpression>

namespace vorel::records {

using namespace Qt::StringLiterals;

QString addressToOpen(const QString &text)
{
    static const QRegularExpression page(u"^(https?|ftps?)://[^\\s]+$"_s, QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression host(u"^[\\w-]+(\\.[\\w-]+)+([:/?#][^\\s]*)?$"_s, QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression mail(u"^(mailto:)?([^\\s@<>:/]+@[^\\s@<>:/]+)$"_s, QRegularExpression::CaseInsensitiveOption);
    const QString address = text.trimmed();
    if (page.match(address).hasMatch())
        return address;
    if (const auto found = mail.match(address); found.hasMatch())
        return mail::mailtoAddress(found.captured(2));
    if (!host.match(address).hasMatch())
        return {};
    return (address.startsWith(u"ftp."_s, Qt::CaseInsensitive) ? u"ftp://"_s : u"http://"_s) + address;
}

void openAddress(const QString &text)
{
    if (text.trimmed().isEmpty()) {
        basic::prompts().beep();
        return;
    }
    const QString address = addressToOpen(text);
    if (address.isEmpty())
        basic::MsgBox(u"\"%1\" is not an address of the web or of e-mail."_s.arg(text.trimmed()), {}, basic::Icon::Exclamation);
    else if (!desktop::ShellExecute(address))
        basic::MsgBox(u"Unable to open "_s + address, {}, basic::Icon::Exclamation);
}

}
