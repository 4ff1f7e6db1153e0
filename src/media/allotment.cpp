#include "media/allotment.h"

#include "media/pictures.h"
#include "platform/basic/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

using enum PathKind;

// The choosers that belong to no section.
const std::array others{Allotment{u"Data Path"_s, {}, Data}, Allotment{u"Sound Path"_s, {}, Sound}, Allotment{u"Setup Picture"_s, {}, Picture},
                        Allotment{u"Backup File"_s, {}, Backup}, Allotment{u"Backup Software"_s, {}, Backup}};

// "Contact Other Picture 0" to "5" of a set of six slots.
bool isSlotOf(const PictureSetDesign &set, const QString &caption)
{
    if (!caption.startsWith(set.chooser))
        return false;
    bool isNumber = false;
    const int slot = QStringView(caption).mid(set.chooser.size()).toInt(&isNumber);
    return isNumber && slot >= 0 && slot < set.slotCount;
}

constexpr qint64 pieceBytes = 1 << 20;      // between two looks at the cancellation

enum class Copied { Whole, Stopped, Failed };

// Copies under a scratch name first, so that no half file ever has the final name.
Copied copyWhole(const QString &from, const QString &to, basic::TaskContext &context, QString &failure)
{
    QFile source(from);
    QTemporaryFile scratch(QFileInfo(to).path() + u"/.transfer-XXXXXX"_s);
    const auto failed = [&](const QFileDevice &file) {
        failure = file.errorString();
        return Copied::Failed;
    };
    if (!source.open(QIODevice::ReadOnly))
        return failed(source);
    if (!scratch.open())
        return failed(scratch);
    while (!source.atEnd()) {
        if (context.isCancelled())
            return Copied::Stopped;
        const QByteArray bytes = source.read(pieceBytes);
        if (bytes.isEmpty() && source.error() != QFile::NoError)
            return failed(source);
        if (scratch.write(bytes) != bytes.size() || !scratch.flush())
            return failed(scratch);
        context.progress(source.pos(), source.size(), from);
    }
    scratch.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    // Written through to the disk before it gets its name: a power cut must not leave an empty picture under it.
    if (::fsync(scratch.handle()) != 0) {
        failure = QString::fromLocal8Bit(std::strerror(errno));
        return Copied::Failed;
    }
    // Fails if a file of the name was created meanwhile.
    if (!scratch.rename(to))
        return QFileInfo::exists(to) ? Copied::Whole : failed(scratch);
    scratch.setAutoRemove(false);
    return Copied::Whole;
}

// Nothing if it was stopped before it knew.
std::optional<bool> isSameContent(const QString &path, const QString &other, basic::TaskContext &context)
{
    if (QFileInfo(path).canonicalFilePath() == QFileInfo(other).canonicalFilePath())
        return true;
    QFile a(path), b(other);
    if (!a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly) || a.size() != b.size())
        return false;
    while (!a.atEnd()) {
        if (context.isCancelled())
            return std::nullopt;
        const QByteArray piece = a.read(pieceBytes);
        if (piece.isEmpty() || piece != b.read(pieceBytes))
            return false;
    }
    return true;
}

}

Allotment allotmentOf(const QString &caption)
{
    for (const SectionDesign &design : sectionDesigns()) {
        if (!design.pictures)
            continue;
        const PicturesDesign &pictures = *design.pictures;
        for (const ChooserDesign &chooser : pictures.choosers)
            if (chooser.caption == caption)
                return {caption, pictures.folder, chooser.kind};
        if (pictures.set && isSlotOf(*pictures.set, caption))
            return {caption, pictures.folder, Picture};
    }
    const auto found = std::find_if(others.begin(), others.end(), [&](const Allotment &other) { return other.caption == caption; });
    return found == others.end() ? Allotment{caption, {}, Picture} : *found;
}

QString filterOf(PathKind kind)
{
    switch (kind) {
    case Picture:
        return u"Pictures(*.bmp;*.jpg;*.gif) (*.bmp *.jpg *.gif)"_s;
    case Sound:
        return u"Sound(*.wav) (*.wav)"_s;
    case Data:
        return u"Database(vorel.mdb) (vorel.mdb)"_s;
    case Backup:
        break;
    }
    return u"All files (*)"_s;
}

bool isPictureName(const QString &path)
{
    const QString extension = path.right(3).toUpper();
    return extension == u"GIF" || extension == u"BMP" || extension == u"JPG";
}

std::optional<Transfer> transferFile(const QString &path, const QString &caption, basic::TaskContext &context)
{
    const QString source = basic::realPath(path);
    if (!QFileInfo(source).isFile())
        return Transfer{{}, false, u"There is no file "_s + path};
    const QString folder = allotmentOf(caption).folder;
    const QString named = basic::programFolder() + u'/' + folder;
    if (!folder.isEmpty() && !QFileInfo::exists(basic::realPath(named)))
        QDir().mkdir(named);
    const QString target = basic::realPath(basic::realPath(named) + (folder.isEmpty() ? u""_s : u"/"_s)
                                           + QFileInfo(source).fileName());
    if (QFileInfo::exists(target)) {
        const std::optional<bool> same = isSameContent(source, target, context);
        return same ? std::optional(Transfer{target, !*same, {}}) : std::nullopt;
    }
    QString failure;
    switch (copyWhole(source, target, context, failure)) {
    case Copied::Stopped:
        return std::nullopt;
    case Copied::Failed:
        return Transfer{{}, false, u"Unable to copy "_s + source + u" to "_s + target + u"\r\n"_s + failure};
    case Copied::Whole:
        break;
    }
    return Transfer{target, false, {}};
}

}
