#pragma once

#include <QString>

// Addresses that a record holds as text.
namespace vorel::records {

// What the desktop is asked to open: a page with its scheme ("www.example.org" gets it), or "mailto:". "" for a text that is neither:
// a path of this machine must not be started as a program because a record says so.
QString addressToOpen(const QString &text);
// A beep for an empty text, a message for one that is no address or that nothing on this desktop opens.
void openAddress(const QString &text);

}
