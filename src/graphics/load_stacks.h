// How loads lie on each other.
#pragma once

#include <algorithm>
#include <array>
#include <vector>

#include "graphics/sides.h"

namespace zorlan {

/// How far the loads drawn so far reach from nodes or members, by index and by the side on which they lie;
/// twips.
class LoadStacks {
 public:
  explicit LoadStacks(std::size_t items) : heights_(items) {}

  double Height(int item, Side side) const {
    return heights_[static_cast<std::size_t>(item)][static_cast<std::size_t>(side)];
  }
  /// A load is there that reaches so far.
  void Raise(int item, Side side, double height) {
    double& known = heights_[static_cast<std::size_t>(item)][static_cast<std::size_t>(side)];
    known = std::max(known, height);
  }

 private:
  std::vector<std::array<double, kSides>> heights_;
};

}  // namespace zorlan
