#include "media/pictures.h"

#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "platform/basic/text.h"
#include "platform/desktop/desktop.h"

#include <QDir>
#include <QFileInfo>
#include <array>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct SectionPicture {
    QStringView section, picture;
};
constexpr std::array sectionPictures{
    SectionPicture{u"K", u"\\DefaultPicE.jpg"},
    SectionPicture{u"Q", u"\\DefaultPicS.jpg"},
    SectionPicture{u"Z", u"\\garden.jpg"},
    SectionPicture{u"R", u"\\recipes.jpg"},
};

// B and J stand twice, so that E and H never come up. Kept so.
constexpr QStringView defaultLetters = u"ABCDJFGBIJKLMNOPQRSTUVW";

struct ScreenSection {
    QStringView screen, section;
};
// Those that tell that a default is on show.
constexpr std::array recordScreens{
    ScreenSection{u"FRMGARDEN", u"Z"},    ScreenSection{u"FRMVEHICLE", u"MV"},  ScreenSection{u"FRMRECIPES", u"R"},
    ScreenSection{u"FRMCONTACTS", u"P"},  ScreenSection{u"FRMINVENTORY", u"I"}, ScreenSection{u"FRMMOVIES", u"V"},
    ScreenSection{u"FRMMUSIC", u"U"},     ScreenSection{u"FRMPROFILE", u"L"},   ScreenSection{u"FRMHEALTH", u"O"},
    ScreenSection{u"FRMSPORT", u"Q"},     ScreenSection{u"FRMBOOKS", u"K"},
};

const ScreenSection *recordScreen(const QString &screen)
{
    const QString wanted = screen.toUpper();
    for (const ScreenSection &one : recordScreens)
        if (one.screen == wanted)
            return &one;
    return nullptr;
}

// Of "/old/place/BookPictures/x.jpg" the end from the folder's name on, and of a file that lay beside the program's own
// its name, if its folder has gone too: where the folder is still there, the picture was deleted, not moved.
QString endInProgramFolder(const QString &plain)
{
    for (const QString &folder : pictureFolders()) {
        const qsizetype at = plain.lastIndexOf(u'/' + folder + u'/', -1, Qt::CaseInsensitive);
        if (at >= 0)
            return plain.mid(at);
    }
    const qsizetype name = plain.lastIndexOf(u'/');
    return name > 0 && !QFileInfo::exists(plain.left(name)) ? plain.mid(name) : QString();
}

}

const QStringList &pictureFolders()
{
    static const QStringList folders{u"AssetPictures"_s,   u"VehiclePictures"_s, u"ContactPictures"_s, u"BookPictures"_s,
                                     u"GardenPictures"_s,  u"MoviePictures"_s,   u"MusicPictures"_s,   u"EventPictures"_s,
                                     u"RecipePictures"_s,  u"ProfilePictures"_s, u"SportsPictures"_s,  u"HealthPictures"_s,
                                     u"CalendarPictures"_s};
    return folders;
}

void MakePictureFolders()
{
    if (basic::programFolder().isEmpty())
        return;
    for (const QString &name : pictureFolders()) {
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
    for (const SectionPicture &own : sectionPictures)
        if (own.section == section)
            return own.picture.toString();
    const qsizetype pick = static_cast<qsizetype>(24 * basic::Rnd() + 1) - 1;
    const QChar letter = pick < defaultLetters.size() ? defaultLetters[pick] : QChar(u'A');
    return u"\\DefaultPic"_s + letter + u".jpg"_s;
}

QString sectionOfScreen(const QString &screen)
{
    const ScreenSection *known = recordScreen(screen);
    return known ? known->section.toString() : QString();
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

bool hasDefaultNote(const QString &screen)
{
    return recordScreen(screen) != nullptr;
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
    for (const Colour &one : colours)
        if (one.letters.contains(last))
            return one.rgb;
    return others;
}

}
