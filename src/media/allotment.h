#pragma once

#include "platform/basic/task.h"
#include "session/sectiondesign.h"

#include <QString>
#include <optional>

// What the one chooser is for, by the caption that its caller gave it.
namespace vorel {

struct Allotment {
    QString caption;
    QString folder;                 // of its choosers and transfers, in the program folder; "" = none of its own
    PathKind kind;
};

// From the design of the section that has such a chooser. Unknown captions are pictures without a folder.
Allotment allotmentOf(const QString &caption);
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
