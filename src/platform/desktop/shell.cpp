#include "platform/desktop/desktop.h"

#include "platform/basic/files.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace vorel::desktop {

using namespace Qt::StringLiterals;

namespace {

// "http:..." is an address, "C:\letter.doc" is not.
bool hasScheme(const QString &target)
{
    const qsizetype colon = target.indexOf(u':');
    if (colon < 2 || !target[0].isLetter())
        return false;
    for (const QChar c : QStringView(target).left(colon)) {
        if (!c.isLetterOrNumber() && c != u'+' && c != u'-' && c != u'.')
            return false;
    }
    return true;
}

}

bool ShellExecute(const QString &target, const QStringList &arguments)
{
    const QString wanted = target.trimmed();
    if (wanted.isEmpty())
        return false;
    const QFileInfo file(basic::realPath(wanted));
    if (file.isFile() && file.isExecutable())
        return QProcess::startDetached(file.absoluteFilePath(), arguments, file.absolutePath());
    if (file.exists())
        return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
    if (hasScheme(wanted))
        return QDesktopServices::openUrl(QUrl(wanted, QUrl::TolerantMode));
    if (wanted.startsWith(u"www."_s, Qt::CaseInsensitive))
        return QDesktopServices::openUrl(QUrl(u"http://"_s + wanted, QUrl::TolerantMode));
    if (wanted.contains(u'/') || wanted.contains(u'\\'))
        return false;
    const QString program = QStandardPaths::findExecutable(wanted);
    return !program.isEmpty() && QProcess::startDetached(program, arguments);
}

}
