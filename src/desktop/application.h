// What every program with the desktop's windows does before the first of them.
#pragma once

class QApplication;

namespace zorlan {

/// Faces, drawings, the toolkit's own words in Japanese, and the host's table. Tells the user when the fixed
/// face is missing.
void SetUpApplication(QApplication& application);

}  // namespace zorlan
