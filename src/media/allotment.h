#pragma once

#include "platform/basic/task.h"
#include "session/sectiondesign.h"

#include <QString>
#include <optional>

// What the one chooser is for, by the caption that its caller gave it.
namespace vorel {

struct Allotment {
    QStringView caption;            // ends with a blank where a slot's number follows: "Contact Other Picture "
    QStringView folder;             // of its choosers and transfers, in the program folder; "" = none of its own
    PathKind kind;
    int slotCount = 0;               // how many numbers may follow the caption
};

// Unknown captions are pictures without a folder.
const Allotment &allotmentOf(const QString &caption);
// The chooser's filter, in the form of FileQuestion.
QString filterOf(PathKind kind);
// Whether the chooser shows the file: by the last three characters of its name, compared in capitals.
bool isPictureName(const QString &path);

struct Transfer {
    QString path;                   // the copy's, or "" if there is none
    bool isTaken = false;           // another file of the name was there: the path is that one's, and nothing was copied
    QString failure;                // "" = none
};
// Copies a file under its own name into the caption's folder. A file of that name there is never overwritten. The copy is
// whole or not there at all; nothing if the work was stopped. Any thread.
std::optional<Transfer> transferFile(const QString &path, const QString &caption, basic::TaskContext &context);

}
