#pragma once

#include <QStringList>

namespace vorel {

// Closes each screen of these names that is open; one that does not let itself be closed stays.
void unloadScreens(const QStringList &names);

}
