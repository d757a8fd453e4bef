// The splash form: what the program is, while it comes up.
#pragma once

namespace zorlan {

/// Shows the form, modal, for at least two seconds; it takes no input. Comes back early when something else
/// closes it.
void ShowSplash();

}  // namespace zorlan
