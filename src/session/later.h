#pragma once

#include <QString>

namespace vorel {

// The one place that says what this version does not have yet.
void showLater(const QString &name);

}
