#include "media/pictures.h"

#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "platform/basic/text.h"
#include "platform/desktop/desktop.h"
#include "session/sectiondesign.h"

#include <QDir>
#include <QFileInfo>
#include <array>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// B and J are listed twice, so that E and H never come up: kept on purpose.
constexpr QStringView defaultLetters = u"ABCDJFGBIJKLMNOPQRSTUVW";

// Of "/old/place/BookPictures/x.jpg" the end from the folder's name on, and of a file that lay beside the program's own
// its name, if its folder does not exist either: where the folder does, the picture was deleted, not moved.
QString endInProgramFolder(const QString &plain)
{
    const QStringList folders = pictureFolders();
    for (const QString &folder : folders) {
        const qsizetype at = plain.lastIndexOf(u'/' + folder + u'/', -1, Qt::CaseInsensitive);
        if (at >= 0)
            return plain.mid(at);
    }
    const qsizetype name = plain.lastIndexOf(u'/');
    return name > 0 && !QFileInfo::exists(plain.left(name)) ? plain.mid(name) : QString();
}

}

QStringList pictureFolders()
{
    QStringList folders;
    for (const SectionDesign &design : sectionDesigns())
        if (design.pictures)
            folders << design.pictures->folder;
    return folders;
}

void MakePictureFolders()
{
    if (basic::programFolder().isEmpty())
        return;
    const QStringList folders = pictureFolders();
    for (const QString &name : folders) {
        const QString path = basic::realPath(basic::programFolder() + u'/' + name);
        if (!QFileInfo::exists(path))
            QDir().mkdir(path);
    }
}

QString pictureFolder(const QString &name)
{
    const QString path = basic::realPath(basic::programFolder() + u'/' + name);
    return !name.isEmpty() && QFileInfo(path).isDir() ? path : basic::programFolder();
}

QString defaultPicture(const QString &section)
{
    const SectionDesign *own = sectionByCode(section);
    if (own && own->pictures && !own->pictures->defaultPicture.isEmpty())
        return own->pictures->defaultPicture;
    const qsizetype pick = static_cast<qsizetype>(24 * basic::Rnd() + 1) - 1;
    const QChar letter = pick < defaultLetters.size() ? defaultLetters[pick] : QChar(u'A');
    return u"\\DefaultPic"_s + letter + u".jpg"_s;
}

QString pictureFile(const QString &path)
{
    if (basic::Trim(path).isEmpty())
        return {};
    if (!basic::Dir(path).isEmpty())
        return basic::realPath(path);
    const QString folder = basic::programFolder();
    QString plain = basic::realPath(path);
    plain.replace(u'\\', u'/');
    if (folder.isEmpty())
        return {};
    const QString moved = endInProgramFolder(plain);
    if (!moved.isEmpty() && !basic::Dir(folder + moved).isEmpty())
        return basic::realPath(folder + moved);
    // The program's own pictures count as lying in the program folder, where a user may replace them.
    const QString name = plain.mid(plain.lastIndexOf(u'/') + 1);
    const bool isOwn = plain.compare(folder + u'/' + name) == 0 && name.startsWith(u"Default"_s, Qt::CaseInsensitive);
    return isOwn ? desktop::findResource(name) : QString();
}

PictureChoice choosePicture(QString &path, const QString &section, bool keepBroken)
{
    const bool wantsDefault = basic::Trim(path).isEmpty() || path.contains(u'*');
    const QString file = wantsDefault ? QString() : pictureFile(path);
    if (file.isEmpty() && !keepBroken)
        path.clear();
    if (!file.isEmpty())
        return {file, basic::Dir(path).isEmpty() && QFileInfo(file).fileName().startsWith(u"Default"_s, Qt::CaseInsensitive)};
    if (!wantsDefault && keepBroken)
        return {path, false};
    return {desktop::findResource(defaultPicture(section)), true};
}

quint32 defaultNoteColour(const QString &picture)
{
    struct Colour {
        QStringView letters;
        quint32 rgb;
    };
    static constexpr std::array colours{Colour{u"BEJ", 0xFFFFFF}, Colour{u"G", 0xFFF4D6}, Colour{u"HIK", 0xF2F7FF},
                                        Colour{u"ACDF", 0x1B2A3A}};
    constexpr quint32 others = 0x10202C;
    const QString name = picture.toUpper();
    if (!name.endsWith(u".JPG"_s) || name.size() < 5)
        return others;
    const QChar last = name[name.size() - 5];
    for (const Colour &entry : colours)
        if (entry.letters.contains(last))
            return entry.rgb;
    return others;
}

}
