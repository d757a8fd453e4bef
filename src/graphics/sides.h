// Sides: where members and loads lie about a node, and loads beside a member.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "graphics/frame_figure.h"

namespace zorlan {

/// A side of a node, as it is seen. A member has the first two alone, seen along the way from its end I.
enum class Side : std::uint8_t { Left, Right, Above, Below };
inline constexpr std::size_t kSides = 4;

/// Some of the four sides.
class Sides {
 public:
  void Add(Side side) { bits_ = static_cast<std::uint8_t>(bits_ | Bit(side)); }
  bool Has(Side side) const { return (bits_ & Bit(side)) != 0; }

 private:
  static unsigned Bit(Side side) { return 1U << static_cast<unsigned>(side); }

  std::uint8_t bits_ = 0;
};

/// The side to which a direction (y downward) points more than to any other; left or right at 45 degrees.
Side SideOf(Point way);

/// By node index: the sides on which shown members lie. Only members count that run along an axis, or with no
/// more than the slope `most` (at most 1) to one.
std::vector<Sides> MemberSides(const Figure& figure, double most);

}  // namespace zorlan
