// The thirteen kinds of section as data: how each is named where sections are entered, and what its four
// fields hold. A kind's place in the list is its TYPE.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "sections/steel_families.h"

namespace zorlan {

enum class SectionSource { Direct, Rectangle, Steel, Timber };

struct SectionKind {
  std::string_view entry;  // of the section entry's list
  std::string_view shape;  // short, for the input help
  SectionSource source;
  SteelFamily family;                      // of Steel
  std::array<std::string_view, 4> fields;  // what P1 to P4 are, with their unit; "-": not used

  /// How many of the fields are the sizes in a section name: "H-400x200x8x13" has four.
  std::size_t Sizes() const;
};

inline constexpr int kSectionKinds = 13;

/// The kind of a TYPE, 0 to 12.
const SectionKind& SectionKindOf(int type);

}  // namespace zorlan
