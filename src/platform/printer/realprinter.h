#pragma once

#include "platform/printer/printer.h"

namespace vorel::printer {

// The desktop's default printer; nullptr where there is none.
std::shared_ptr<Hardware> defaultHardware();
// A printer by its name; nullptr where there is none of that name.
std::shared_ptr<Hardware> hardwareNamed(const QString &name);

}
