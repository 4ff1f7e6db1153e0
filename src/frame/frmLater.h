#pragma once

#include <QString>

namespace vorel {

// The one place that tells of a screen which this version does not have yet.
void ShowLater(const QString &name);

}
