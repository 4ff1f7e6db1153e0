#pragma once

#include <QString>
#include <functional>

namespace vorel {

// The one place that says that this version does not have a screen yet.
void showLater(const QString &name);

// Asks for the administration password and puts the answer into gAdminOk. Until a screen takes its place: no password
// is set on a new installation, and then every text passes.
std::function<void()> &adminPassword();

// Tells a user whose list of contacts is empty how to bring an older list over.
void showMissingContacts();

}
