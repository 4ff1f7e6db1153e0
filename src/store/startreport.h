#pragma once

#include "store/rebuild.h"

#include <vector>

// What the user learns about the data files after a start or a repair, in one box.
namespace vorel::store {

struct Failure {
    QString path;
    int number = 0;                 // the engine's
    QString text;                   // the engine's
    QString outcome;                // "The files were left as they were."
};

// One text of all: what was damaged, how many rows came back and where the original lies; what failed, grouped by trouble,
// with what to do about it. Empty if there is nothing to say.
QString startReport(const std::vector<Mending> &mendings, const std::vector<Failure> &failures);

}
