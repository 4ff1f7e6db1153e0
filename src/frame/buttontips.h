#pragma once

#include "session/sectiondesign.h"

// What the pane at the right shows while the pointer rests on a tool of the main screen.
namespace vorel {

ButtonTip toolTip(const QString &buttonName);           // of cmdEmail and the like; empty for a button without one

}
