#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// Where pictures lie, and which default is shown where a record has none.
namespace vorel {

// The folders of the records' pictures, beside the program's files: "AssetPictures", ...
QStringList pictureFolders();
// Makes those that are missing. A folder that cannot be made is left out: choosers then start in the program folder.
void MakePictureFolders();
// The folder's path, or the program folder's if there is no such folder.
QString pictureFolder(const QString &name);

// The name in the program folder ("\DefaultPicA.jpg") of the picture for a record that has none; a fresh pick each time.
// section: the record's section code, whose design may name a picture of its own; "" = any other.
QString defaultPicture(const QString &section);

// The file of a stored path, as it can be opened; "" if there is none. A path into another place of the program folder, as
// files from before a move hold it, is found by its end in this one.
QString pictureFile(const QString &path);

struct PictureChoice {
    QString file;               // what to show, as it can be opened; "" if even the default is missing
    bool isDefault = false;
};
// What a screen shows for a path. keepBroken: a path whose file no longer exists is kept; else it is emptied. Otherwise the path is
// never changed: a default never gets into it, so no record ever keeps one.
PictureChoice choosePicture(QString &path, const QString &section, bool keepBroken);

// The colour of the note that a default is on show, on that picture, by the last letter of its name; 0xRRGGBB.
quint32 defaultNoteColour(const QString &picture);

}
