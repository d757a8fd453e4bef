// What the shell asks of the windows around it, as the main window gives it.
#pragma once

namespace zorlan {

class MainWindow;

/// Installs the table of shell/windows.h. The window lives until another table is installed.
void InstallMainWindow(MainWindow& window);

}  // namespace zorlan
