// Message boxes and questions.
#pragma once

#include <string_view>

#include "base/host.h"

namespace zorlan {

/// Shows a text in front of the active window until it is read.
void ShowBox(std::string_view text, std::string_view title);

/// Asks. Enter gives the safe answer where something would be removed or overwritten; Esc and the box's own
/// close button always do.
Answer AskBox(std::string_view text, std::string_view title, Buttons buttons);

}  // namespace zorlan
