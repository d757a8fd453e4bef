// How the printer settings put a listing on pages.
#pragma once

#include "output/text_pages.h"
#include "shell/settings.h"

namespace zorlan {

/// Sheets on their side take two columns of small print; so do reduced ones, which lie on their side too. An
/// unknown paper counts as A4.
PageSetup PageSetupOf(const PrinterRec& printer);

}  // namespace zorlan
