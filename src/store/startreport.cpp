#include "store/startreport.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace vorel::store {

using namespace Qt::StringLiterals;

namespace {

const QString newLine = u"\r\n"_s, newParagraph = u"\r\n\r\n"_s;

struct Trouble {
    std::vector<int> numbers;
    QString words, advice;
};

// The engine's and the runtime's numbers in words. %1: the folders, %2: the space needed.
const std::vector<Trouble> &troubles()
{
    static const std::vector<Trouble> all = {
        {{dao::err::DiskFull, 61}, u"Not enough space on disk."_s, u"Free about %2 in %1, then start the program again."_s},
        {{dao::err::ReadOnly, dao::err::NoPermission, 70, 75}, u"You have no permission to write there."_s,
         u"Allow writing to the files and in %1, then start the program again."_s},
        {{dao::err::NoSuchPath, 76}, u"The folder does not exist."_s, u"Bring %1 back, then start the program again."_s},
        {{dao::err::FileInUse, dao::err::Locked, dao::err::OpenedExclusively}, u"Another program is using the data."_s, u"Close the other program, then start this one again."_s},
        {{dao::err::DiskError}, u"The disk or the network failed."_s, u"Check the disk, then start the program again."_s},
    };
    return all;
}

const Trouble *troubleOf(int number)
{
    const auto found = std::find_if(troubles().begin(), troubles().end(), [&](const Trouble &trouble) {
        return std::find(trouble.numbers.begin(), trouble.numbers.end(), number) != trouble.numbers.end();
    });
    return found == troubles().end() ? nullptr : &*found;
}

// The same for all files that met the same trouble.
QString wordsOf(const Failure &failure)
{
    if (const Trouble *trouble = troubleOf(failure.number))
        return trouble->words;
    return QString(failure.text).remove(QDir::toNativeSeparators(failure.path)).simplified();
}

// A rebuild needs the safety copy, the scratch file and some space for its journal.
QString roomFor(const QList<const Failure *> &group)
{
    constexpr qint64 newFile = 400 * 1024, megabyte = 1024 * 1024;
    qint64 bytes = 0;
    for (const Failure *failure : group)
        bytes += newFile + 3 * QFileInfo(failure->path).size();
    return u"%1 MB"_s.arg(bytes / megabyte + 1);
}

QString groupText(const QList<const Failure *> &group)
{
    QStringList paths, folders;
    for (const Failure *failure : group) {
        const QFileInfo file(failure->path);
        paths << u"    "_s + QDir::toNativeSeparators(failure->path);
        folders << QDir::toNativeSeparators(file.absolutePath());
    }
    folders.removeDuplicates();
    QString text = group.first()->outcome + newLine + paths.join(newLine) + newLine + wordsOf(*group.first());
    if (const Trouble *trouble = troubleOf(group.first()->number)) {
        QString advice = trouble->advice;
        text += u' ' + advice.replace(u"%1"_s, folders.join(u", "_s)).replace(u"%2"_s, roomFor(group));
    }
    return text;
}

QString mendingText(const Mending &mending)
{
    const QString name = QFileInfo(mending.path).fileName();
    QString text = QFileInfo(mending.path).absolutePath() + u'/' + name + newLine;
    if (mending.fromCopy)
        text += u"    The backup copy was restored."_s;
    else if (mending.beyondRepair)
        text += u"    No row could be read from it."_s;
    else if (mending.rowsSeen > mending.rowsSaved)
        text += u"    It was repaired: %1 of %2 rows came back."_s.arg(mending.rowsSaved).arg(mending.rowsSeen);
    else if (mending.rowsSeen > 0)
        text += u"    It was repaired: %1 rows came back."_s.arg(mending.rowsSaved);
    else
        text += u"    It was repaired."_s;
    // How many rows a cut-off part held cannot be counted.
    if (!mending.lost.isEmpty() && !mending.beyondRepair)
        text += (mending.rowsSeen > mending.rowsSaved ? u" Rows are missing in: %1."_s : u" An unknown number of rows is missing in: %1."_s)
                    .arg(mending.lost.join(u", "_s));
    return text + newLine + u"    The damaged file is kept as %1"_s.arg(QDir::toNativeSeparators(mending.original));
}

}

QString startReport(const std::vector<Mending> &mendings, const std::vector<Failure> &failures)
{
    QStringList parts;
    if (!mendings.empty())
        parts << u"These data files were damaged:"_s;
    for (const Mending &mending : mendings)
        parts << mendingText(mending);
    QStringList grouped;
    for (const Failure &first : failures) {
        const auto same = [&](const Failure &other) { return other.outcome == first.outcome && wordsOf(other) == wordsOf(first); };
        const QString key = first.outcome + wordsOf(first);
        if (grouped.contains(key))
            continue;
        grouped << key;
        QList<const Failure *> group;
        for (const Failure &other : failures) {
            if (same(other))
                group << &other;
        }
        parts << groupText(group);
    }
    return parts.join(newParagraph);
}

}
