// The program's own drawings.
#pragma once

#include <QIcon>

namespace zorlan {

QIcon ProgramIcon();
QIcon DriveIcon();
QIcon FolderIcon();  // "Close", and "Open" while its node is open
QIcon ProjectIcon();
QIcon LeafIcon();  // "Leaf1", and "Leaf2" while it is chosen

}  // namespace zorlan
