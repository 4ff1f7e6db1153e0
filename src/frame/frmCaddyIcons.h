#pragma once

#include <QIcon>

namespace vorel {

// Chooses the icon set that reads well on the present palette; called at the start and whenever the palette changes.
void applyIconTheme();
// The desktop's icon of that name, else the program's own drawing.
QIcon caddyIcon(const QString &name);

}
