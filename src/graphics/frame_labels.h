// The numbers of nodes, members and sections.
#pragma once

#include "graphics/frame_figure.h"
#include "graphics/labels.h"

namespace zorlan {

/// Room for the digits of a number.
struct NumberText {
  explicit NumberText(int number);
  operator std::string_view() const { return {digits, size}; }  // NOLINT(google-explicit-constructor)

  char digits[12];
  std::size_t size;
};

/// Numbers at the shown nodes and at the centres of the shown members, as the options say, where the field
/// has room.
void DrawNumbers(Plot& plot, const Figure& figure, LabelField& labels);

}  // namespace zorlan
