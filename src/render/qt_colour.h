// Colours of figures and options for the toolkit.
#pragma once

#include <QColor>

#include "graphics/plot_target.h"

namespace zorlan {

/// Red stands in the lowest byte of ours.
inline QColor QtColour(Rgb colour) {
  return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

}  // namespace zorlan
