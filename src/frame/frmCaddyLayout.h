#pragma once

#include "frame/frmCaddyControls.h"

namespace vorel {

QString periodKeyName(const QString &key);          // "LAST WEEK" as "Last Week"

// The icons of everything but the rail; called again after a change of the palette.
void applyCaddyIcons(CaddyControls &c);
void showEditIcon(CaddyControls &c);        // of the general grid, by the section on show
// Three text sizes serve the whole screen: small print, body, headings.
QFont headingFont(const QFont &body);

}
