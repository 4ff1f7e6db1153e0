#include "platform/richtext/checkbytes.h"

#include "platform/richtext/richtext.h"

#include <QTextDocument>

namespace vorel::test {

using namespace Qt::StringLiterals;

QString checkBytes(const QByteArray &bytes)
{
    QTextDocument first, second;
    richtext::read(first, bytes);
    const QString written = richtext::write(first);
    richtext::read(second, written);
    if (const QString again = richtext::write(second); again != written)
        return u"written: %1\nagain: %2"_s.arg(written, again);
    // Of a plain text the control characters are left out.
    if (richtext::isRtf(QString::fromLatin1(bytes)) && richtext::plainText(first) != richtext::plainText(second))
        return u"the words differ: "_s + written;
    return {};
}

}
