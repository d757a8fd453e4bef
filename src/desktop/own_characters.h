// Text boxes whose text goes into the files.
#pragma once

class QLineEdit;

namespace zorlan {

/// From now on what comes into the box, typed or pasted, has the characters of the files' code page
/// (WithOwnCharacters).
void KeepOwnCharacters(QLineEdit& box);

}  // namespace zorlan
