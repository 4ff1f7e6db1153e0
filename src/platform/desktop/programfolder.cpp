#include "platform/desktop/desktop.h"

#include "platform/basic/files.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStandardPaths>

namespace vorel::desktop {

using namespace Qt::StringLiterals;

namespace {

// The folder holds private records: created for its owner alone.
void make(const QString &folder)
{
    if (QDir(folder).exists() || !QDir().mkpath(folder))
        return;
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QString fileIn(const QString &folder, const QString &name)
{
    const QString path = folder + u'/' + name;
    return basic::Dir(path).isEmpty() ? QString() : basic::realPath(path);
}

QString builtIn(const QString &name)
{
    if (const QString exact = u":/"_s + name; QFile::exists(exact))
        return exact;
    const QString wanted = u":/"_s + name;
    QDirIterator it(u":/"_s, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        if (const QString path = it.next(); path.compare(wanted, Qt::CaseInsensitive) == 0)
            return path;
    }
    return {};
}

}

QString decideProgramFolder()
{
    if (const QString set = qEnvironmentVariable("VOREL_FOLDER"); !set.trimmed().isEmpty()) {
        const QString folder = QDir::cleanPath(QDir(set).absolutePath());
        make(folder);
        return folder;
    }
    const QString own = QCoreApplication::applicationDirPath();
    if (!fileIn(own, u"vorelreminder.ini"_s).isEmpty())
        return own;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/VorelReminder"_s;
    make(folder);
    return folder;
}

QString findResource(const QString &name)
{
    QString relative = name;
    relative.replace(u'\\', u'/');
    while (relative.startsWith(u'/'))
        relative.remove(0, 1);
    if (relative.isEmpty())
        return {};
    for (const QString &folder : {basic::programFolder(),
                                  QCoreApplication::applicationDirPath() + u"/../share/vorelreminder"_s}) {
        if (const QString found = folder.isEmpty() ? QString() : fileIn(folder, relative); !found.isEmpty())
            return found;
    }
    return builtIn(relative);
}

}
