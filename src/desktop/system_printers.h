// The printers of the system.
#pragma once

#include "shell/settings.h"

namespace zorlan {

SystemPrinters LookAtPrinters();

}  // namespace zorlan
