#pragma once

#include "session/later.h"

#include <functional>

namespace vorel {

// Asks for the administration password and puts the answer into gAdminOk. Until a screen takes its place: no password
// is set on a new installation, and then every text passes.
std::function<void()> &adminPassword();

// Tells a user whose list of contacts is empty how to bring an older list over.
void showMissingContacts();

}
