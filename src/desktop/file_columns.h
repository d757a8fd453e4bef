// The list of files in the toolkit's file dialog, in Japanese whatever the system's locale.
#pragma once

class QFileDialog;
class QObject;

namespace zorlan {

/// Dates and sizes of the list. The dialog isn't the desktop's own one.
void ShowJapaneseColumns(QFileDialog& dialog);

/// Installs the words that the toolkit's own translation lacks.
void InstallMissingWords(QObject* owner);

}  // namespace zorlan
