// The drawing list read back. A reader splits a line at the commas and trims.
#pragma once

#include <optional>
#include <string_view>

#include "graphics/drawing_list.h"

namespace zorlan {

/// The operation of a line of a drawing list; nothing for a line with no keyword of it ("LINE", "CIRCLE",
/// "TEXT", "TEXTR", in any case). A text with commas of its own is kept whole: what stands behind it is
/// counted from the line's end. Throws Fault for a keyword with too few or too many fields, without a layer,
/// or with a field that should be a finite number and isn't.
std::optional<DrawOperation> ReadOperation(std::string_view line);

}  // namespace zorlan
