#pragma once

#include <QString>
#include <QStringList>

// What the one chooser is for, by the caption that its caller gave it.
namespace vorel {

enum class PathKind { Picture, Sound, Data, Backup };

struct Allotment {
    QStringView caption;            // ends with a blank where a slot's number follows: "Contact Other Picture "
    QStringView folder;             // of its choosers and transfers, in the program folder; "" = none of its own
    PathKind kind;
    QStringView screen;             // on which the path is set
    QStringView control;            // "" = whichever label of the record's file the screen has
    int slotCount = 0;               // how many numbers may follow the caption
};

// Unknown captions are pictures without a folder or a target.
const Allotment &allotmentOf(const QString &caption);
// The controls that may take the path, the likeliest first. A slot's control is a member of an array: "imgOther(2)".
QStringList targetControls(const QString &caption);
// The chooser's filter, in the form of FileQuestion.
QString filterOf(PathKind kind);
// Whether the chooser shows the file: by the last three characters of its name, compared in capitals.
bool isPictureName(const QString &path);

struct Transfer {
    QString path;                   // the copy's, or "" if there is none
    QString failure;                // "" = none
};
// Copies a file under its own name into the caption's folder. A file of that name there is never overwritten; it is what
// the path then means. The copy is whole or not there at all.
Transfer transferFile(const QString &path, const QString &caption);

}
