// Places and sizes of the modal dialogs.
#pragma once

#include <QSize>

class QDialog;

namespace zorlan {

/// Gives a dialog the size that it was left with, or this one for its first time; it stands in the middle of
/// the main window, as large as its screen allows.
void RestoreDialog(QDialog& dialog, const char* name, const QSize& firstSize);
/// Keeps its size.
void KeepDialog(const QDialog& dialog, const char* name);

}  // namespace zorlan
