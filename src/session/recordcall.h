#pragma once

#include "platform/basic/value.h"

#include <QString>
#include <optional>

namespace vorel {

// What opens a record screen, and what it leaves behind. Each screen has its own, so that one that opens over another
// changes nothing for the one below.
struct RecordCall {
    QString section;            // code
    qint32 id = 0;              // 0: a new row
    std::optional<basic::DateTime> day{};   // of a new row that is for a day of its own
};

struct RecordOutcome {
    qint32 lastId = 0;          // the row that was current last, 0 = none
};

}
