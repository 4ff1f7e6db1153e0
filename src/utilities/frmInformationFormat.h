#pragma once

#include "platform/controls/richtextbox.h"

class QMenu;

namespace vorel {

// The format menu (mnuFormat) of the text screen, for this box; the box owns it. Record screens show it for theirs.
QMenu *formatMenu(controls::RichTextBox *box);
// A right click or the menu key in the box shows the menu.
void useFormatMenu(controls::RichTextBox *box);

}
