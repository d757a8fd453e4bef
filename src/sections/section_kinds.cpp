#include "sections/section_kinds.h"

namespace zorlan {
namespace {

using enum SectionSource;
using enum SteelFamily;

constexpr SteelFamily kNoFamily = H;  // of kinds that aren't steel

constexpr std::array<SectionKind, kSectionKinds> kKinds = {{
    {"<<2119.1>>", "直接入力", Direct, kNoFamily, {"A(cm2)", "I(cm4)", "-", "As(cm2)"}},
    {"<<2119.2>>", "ＢｘＤ", Rectangle, kNoFamily, {"B(cm)", "D(cm)", "形状係数", "As(cm2)"}},
    {"<<2119.3>>", "Ｈ形鋼 強軸", Steel, H, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"<<2119.4>>", "□形鋼 強軸", Steel, Box, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"<<2119.5>>", "○形鋼", Steel, Pipe, {"D(mm)", "t(mm)", "-", "-"}},
    {"<<2119.6>>", "Ｈ形鋼 弱軸", Steel, H, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"<<2119.7>>", "□形鋼 弱軸", Steel, Box, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"<<2119.8>>", "木材 強軸", Timber, kNoFamily, {"B(mm)", "D(mm)", "形状係数", "As(mm2)"}},
    {"<<2119.9>>", "木材 弱軸", Timber, kNoFamily, {"B(mm)", "D(mm)", "形状係数", "As(mm2)"}},
    {"<<2119.10>>", "溝形鋼 強軸", Steel, Channel, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"<<2119.11>>", "溝形鋼 弱軸", Steel, Channel, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"<<2119.12>>", "山形鋼 強軸", Steel, Angle, {"A(mm)", "B(mm)", "t(mm)", "r1(mm)"}},
    {"<<2119.13>>", "山形鋼 弱軸", Steel, Angle, {"A(mm)", "B(mm)", "t(mm)", "r1(mm)"}},
}};

}  // namespace

std::size_t SectionKind::Sizes() const {
  if (source == Steel) return FormOf(family).keyColumns;
  return source == Timber ? 2 : 0;
}

const SectionKind& SectionKindOf(int type) {
  return kKinds[static_cast<std::size_t>(type)];
}

}  // namespace zorlan
