#pragma once

#include "platform/printer/printer.h"

namespace vorel::printer {

// A printer of the desktop by its name, the default one for ""; nullptr if none exists.
std::shared_ptr<Hardware> desktopPrinter(const QString &name);
QStringList desktopPrinterNames();

}
