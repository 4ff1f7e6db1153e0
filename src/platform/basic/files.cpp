#include "platform/basic/files.h"

#include <QDir>
#include <QFileInfo>

namespace vorel::basic {

namespace {

QString &storedFolder()
{
    static QString folder;
    return folder;
}

// The name of the folder's entry that equals `name` but for case, or "".
QString entryLike(const QString &folder, const QString &name)
{
    const QDir directory(folder.isEmpty() ? QStringLiteral(".") : folder);
    const QStringList entries =
        directory.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return {};
}

}

QString realPath(const QString &path)
{
    if (path.isEmpty() || QFileInfo::exists(path))
        return path;
    const bool isOfProgram = path.startsWith(u'\\') && !path.startsWith(u"\\\\") && !programFolder().isEmpty();
    QString wanted = isOfProgram ? programFolder() + path : path;
    wanted.replace(u'\\', u'/');
    if (QFileInfo::exists(wanted))
        return wanted;
    const QStringList parts = wanted.split(u'/');
    QString found;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        QString name = parts[i];
        const QString next = found + name;
        if (!name.isEmpty() && !QFileInfo::exists(next)) {
            name = entryLike(found, name);
            // Not found: the rest is kept as given, below the folder that was found.
            if (name.isEmpty())
                return found + parts.mid(i).join(u'/');
        }
        found += name;
        if (i + 1 < parts.size())
            found += u'/';
    }
    return found;
}

QString Dir(const QString &path)
{
    const QFileInfo info(realPath(path));
    return info.isFile() ? info.fileName() : QString();
}

QString keptPath(const QString &path)
{
    const QString folder = QDir::cleanPath(realPath(programFolder())), file = QDir::cleanPath(realPath(path));
    if (path.isEmpty() || folder.isEmpty() || !QFileInfo(file).isAbsolute())
        return path;
    const auto tailOf = [](const QString &whole, const QString &start) {
        return whole.startsWith(start + u'/') ? whole.mid(start.size()) : QString();
    };
    QString tail = tailOf(file, folder);
    if (tail.isEmpty())             // the same folder by another name, through a link
        tail = tailOf(QFileInfo(file).canonicalFilePath(), QFileInfo(folder).canonicalFilePath());
    if (tail.isEmpty() || tail.contains(u'\\'))
        return path;
    return tail.replace(u'/', u'\\');
}

const QString &programFolder()
{
    return storedFolder();
}

void setProgramFolder(const QString &path)
{
    storedFolder() = path;
}

}
