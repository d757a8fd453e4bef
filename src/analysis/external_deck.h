// The companion program's input deck, FT999.INP: one load case in fixed columns of five and ten characters.
// The layout is told in docs/file-formats.md; src/companion has its reader.
#pragma once

#include <string>

#include "analysis/external_tables.h"

namespace zorlan {

/// The deck, with CR LF line ends. Throws Fault for a number that is not finite.
std::string ExternalDeckText(const ExternalTables& tables);

}  // namespace zorlan
