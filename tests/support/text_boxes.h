// Texts of a drawing list as boxes: which of them cover each other.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "graphics/drawing_list.h"

namespace zorlan::test {

/// The corners of a text's box, turned about its left upper one.
inline std::array<std::array<double, 2>, 4> CornersOf(const DrawOperation& text) {
  const double a = text.angle * std::numbers::pi / 180, c = std::cos(a), s = std::sin(a);
  const auto corner = [&](double along, double down) {
    return std::array{text.x + along * c + down * s, text.y - along * s + down * c};
  };
  return {corner(0, 0), corner(text.width, 0), corner(text.width, text.height), corner(0, text.height)};
}

/// Whether two texts lie on each other by more than a twip: no line along a side of either parts them.
inline bool Cover(const DrawOperation& a, const DrawOperation& b) {
  const auto first = CornersOf(a), second = CornersOf(b);
  for (const auto& box : {first, second})
    for (std::size_t side = 0; side < 2; ++side) {
      const double x = box[side][1] - box[side + 1][1], y = box[side + 1][0] - box[side][0];
      const double length = std::hypot(x, y);
      const auto reach = [&](const auto& corners) {
        std::array<double, 2> range = {INFINITY, -INFINITY};
        for (const auto& corner : corners) {
          const double at = (corner[0] * x + corner[1] * y) / length;
          range = {std::min(range[0], at), std::max(range[1], at)};
        }
        return range;
      };
      const auto u = reach(first), v = reach(second);
      if (u[1] <= v[0] + 1 || v[1] <= u[0] + 1) return false;
    }
  return true;
}

/// "54.70 on -63.82" for each two texts of a list that cover each other.
inline std::vector<std::string> CoveringTexts(const std::vector<DrawOperation>& list) {
  std::vector<const DrawOperation*> texts;
  for (const DrawOperation& operation : list)
    if (operation.kind == DrawOperation::Kind::Text || operation.kind == DrawOperation::Kind::TextRotated)
      texts.push_back(&operation);
  std::vector<std::string> covering;
  for (std::size_t b = 0; b < texts.size(); ++b)
    for (std::size_t a = 0; a < b; ++a)
      if (Cover(*texts[a], *texts[b])) covering.push_back(texts[b]->text + " on " + texts[a]->text);
  return covering;
}

}  // namespace zorlan::test
