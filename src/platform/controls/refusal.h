#pragma once

#include "platform/dao/dao.h"

// The words for a value that the engine does not take into a field.
namespace vorel::controls {

// What happened to which field, in the user's words; what has no words of its own keeps the engine's behind the name.
QString refusalText(const QString &caption, const QString &typed, const dao::RecordsetField &field, const dao::Value &value,
                    const basic::Error &error);

}
