#include "media/allotment.h"

#include "media/pictures.h"
#include "platform/basic/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <array>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

using enum PathKind;

constexpr std::array allotments{
    Allotment{u"Data Path", u"", Data, u"frmSetup", u"txtDataPath"},
    Allotment{u"Sound Path", u"", Sound, u"frmSetup", u"txtSoundFile"},
    Allotment{u"Backup File", u"", Backup, u"frmBackup", u"txtFilename"},
    Allotment{u"Backup Software", u"", Backup, u"frmBackup", u"cboSoftware"},
    Allotment{u"Setup Picture", u"", Picture, u"frmSetup", u"lblPictureFile"},
    Allotment{u"Book Picture", u"BookPictures", Picture, u"frmBooks", u""},
    Allotment{u"Movie Picture", u"MoviePictures", Picture, u"frmMovies", u""},
    Allotment{u"Movie Sound", u"MoviePictures", Sound, u"frmMovies", u"lblSoundFile"},
    Allotment{u"Music Picture", u"MusicPictures", Picture, u"frmMusic", u""},
    Allotment{u"Music Sound", u"MusicPictures", Sound, u"frmMusic", u"lblSoundFile"},
    Allotment{u"Contact Picture", u"ContactPictures", Picture, u"frmContacts", u""},
    Allotment{u"Contact Other Picture ", u"ContactPictures", Picture, u"frmContacts", u"imgOther", 6},
    Allotment{u"Garden Picture", u"GardenPictures", Picture, u"frmGarden", u""},
    Allotment{u"Garden Other Picture ", u"GardenPictures", Picture, u"frmGarden", u"imgOther", 6},
    Allotment{u"Asset Picture", u"AssetPictures", Picture, u"frmInventory", u""},
    Allotment{u"Recipe Picture", u"RecipePictures", Picture, u"frmRecipes", u""},
    Allotment{u"Calendar Picture", u"CalendarPictures", Picture, u"frmCalendar", u"lblPictureFile"},
    Allotment{u"Cal Pic", u"CalendarPictures", Picture, u"frmCalendar", u"lblPictureFile"},
    Allotment{u"CalcPic", u"CalendarPictures", Picture, u"frmCalculator", u"lblPictureFile"},
    Allotment{u"Profile Picture", u"ProfilePictures", Picture, u"frmProfile", u""},
    Allotment{u"Profile Other Picture ", u"ProfilePictures", Picture, u"frmProfile", u"imgOther", 6},
    Allotment{u"Motor Vehicle Picture", u"VehiclePictures", Picture, u"frmVehicle", u""},
    Allotment{u"Vehicle Other Picture ", u"VehiclePictures", Picture, u"frmVehicle", u"imgOther", 6},
    Allotment{u"Event Picture", u"EventPictures", Picture, u"frmRecord", u""},
    Allotment{u"Health Picture", u"HealthPictures", Picture, u"frmHealth", u""},
    Allotment{u"Health Picture ", u"HealthPictures", Picture, u"frmHealth", u"imgOther", 10},
    Allotment{u"Sport Picture", u"SportsPictures", Picture, u"frmSport", u""},
    Allotment{u"Sport Picture ", u"SportsPictures", Picture, u"frmSport", u"imgOther", 10},
};

// The slot's number behind the caption, -1 if the caption is not this one's.
int slotIn(const Allotment &one, const QString &caption)
{
    if (!caption.startsWith(one.caption))
        return -1;
    bool isNumber = false;
    const int slot = QStringView(caption).mid(one.caption.size()).toInt(&isNumber);
    return isNumber && slot >= 0 && slot < one.slotCount ? slot : -1;
}

// A copy under a name of its own, so that nobody ever meets half a file under the right one.
QString copyWhole(const QString &from, const QString &to)
{
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        return source.errorString();
    QTemporaryFile scratch(QFileInfo(to).path() + u"/.transfer-XXXXXX"_s);
    if (!scratch.open())
        return scratch.errorString();
    constexpr qint64 piece = 1 << 20;
    while (!source.atEnd()) {
        const QByteArray bytes = source.read(piece);
        if (bytes.isEmpty() && source.error() != QFile::NoError)
            return source.errorString();
        if (scratch.write(bytes) != bytes.size())
            return scratch.errorString();
    }
    if (!scratch.flush())
        return scratch.errorString();
    scratch.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    // Refused if a file of the name has come meanwhile.
    if (!scratch.rename(to))
        return QFileInfo::exists(to) ? QString() : scratch.errorString();
    scratch.setAutoRemove(false);
    return {};
}

}

const Allotment &allotmentOf(const QString &caption)
{
    static constexpr Allotment unknown{u"", u"", Picture, u"", u""};
    for (const Allotment &one : allotments)
        if (one.slotCount == 0 ? one.caption == caption : slotIn(one, caption) >= 0)
            return one;
    return unknown;
}

QStringList targetControls(const QString &caption)
{
    const Allotment &one = allotmentOf(caption);
    if (one.screen.isEmpty())
        return {};
    if (one.slotCount > 0)
        return {one.control.toString() + u'(' + QString::number(slotIn(one, caption)) + u')'};
    if (!one.control.isEmpty())
        return {one.control.toString()};
    return {u"lblFilename"_s, u"lblPictureFile"_s};
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

Transfer transferFile(const QString &path, const QString &caption)
{
    const QString source = basic::realPath(path);
    if (!QFileInfo(source).isFile())
        return {{}, u"There is no file "_s + path};
    const QString folder = allotmentOf(caption).folder.toString();
    const QString named = basic::programFolder() + u'/' + folder;
    if (!folder.isEmpty() && !QFileInfo::exists(basic::realPath(named)))
        QDir().mkdir(named);
    const QString target = basic::realPath(named) + (folder.isEmpty() ? u""_s : u"/"_s) + QFileInfo(source).fileName();
    if (QFileInfo::exists(target))
        return {target, {}};
    const QString failure = copyWhole(source, target);
    if (!failure.isEmpty())
        return {{}, u"Unable to copy "_s + source + u" to "_s + target + u"\r\n"_s + failure};
    return {target, {}};
}

}
