#include "session/webpage.h"

#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/desktop/desktop.h"

#include <QDir>
#include <QFile>
#include <QUrl>

namespace vorel {

using namespace Qt::StringLiterals;

QString escapedForPage(const QString &text)
{
    QString kept;
    kept.reserve(text.size());
    for (const QChar c : text) {
        if (c.category() != QChar::Other_Control || c == u'\t')
            kept += c;
    }
    return kept.toHtmlEscaped();
}

QString pagePath(const QString &name)
{
    const QString plain = name.startsWith(u'\\') || name.startsWith(u'/') ? name.mid(1) : name;
    return basic::realPath(basic::programFolder() + u'/' + plain);
}

void writePage(const QString &path, const QString &html)
{
    QFile file(path);
    const auto fail = [&] {
        const QString reason = file.errorString();
        throw basic::Error(75, u"The page "_s + QDir::toNativeSeparators(path) + u" cannot be written: "_s + reason);
    };
    if ((file.exists() || QFileInfo(path).isSymLink()) && !file.remove())
        fail();
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        fail();
    const QByteArray bytes = html.toUtf8();
    if (file.write(bytes) == bytes.size() && file.flush())
        return;
    file.close();       // half a page is worse than none
    QFile::remove(path);
    fail();
}

// As an address: on a disk where every file may be run, the page would be started as a program.
void openPage(const QString &path)
{
    const QString address = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toString(QUrl::FullyEncoded);
    if (!desktop::ShellExecute(address))
        throw basic::Error(53, u"No program on this desktop opens the page "_s + QDir::toNativeSeparators(path));
}

}
