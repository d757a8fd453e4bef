#include "desktop/dialog_place.h"

#include <QDialog>
#include <QScreen>

#include "shell/settings.h"

namespace zorlan {

void RestoreDialog(QDialog& dialog, const char* name, const QSize& firstSize) {
  WindowPlace place;
  const bool kept = LoadWindowPlace(name, place);
  const QSize size = kept ? QSize(place.width, place.height) : firstSize;
  dialog.resize(size.boundedTo(dialog.screen()->availableSize()));
}

void KeepDialog(const QDialog& dialog, const char* name) {
  const QRect area = dialog.geometry();
  WindowPlace place;
  if (LoadWindowPlace(name, place) && QSize(place.width, place.height) == area.size()) return;
  SaveWindowPlace(name, {area.x(), area.y(), area.width(), area.height(), false});
}

}  // namespace zorlan
