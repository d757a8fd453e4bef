#include "sections/section_kinds.h"

namespace zorlan {
namespace {

using enum SectionSource;
using enum SteelFamily;

constexpr SteelFamily kNoFamily = H;  // of kinds that aren't steel

constexpr std::array<SectionKind, kSectionKinds> kKinds = {{
    {"直接入力", "直接入力", Direct, kNoFamily, {"A(cm2)", "I(cm4)", "-", "As(cm2)"}},
    {"ＢｘＤ入力", "ＢｘＤ", Rectangle, kNoFamily, {"B(cm)", "D(cm)", "形状係数", "As(cm2)"}},
    {"Ｈ形鋼（強軸）入力", "Ｈ形鋼 強軸", Steel, H, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"□形鋼（強軸）入力", "□形鋼 強軸", Steel, Box, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"○形鋼　　　　入力", "○形鋼", Steel, Pipe, {"D(mm)", "t(mm)", "-", "-"}},
    {"Ｈ形鋼（弱軸）入力", "Ｈ形鋼 弱軸", Steel, H, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"□形鋼（弱軸）入力", "□形鋼 弱軸", Steel, Box, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"木材　（強軸）入力", "木材 強軸", Timber, kNoFamily, {"B(mm)", "D(mm)", "形状係数", "As(mm2)"}},
    {"木材　（弱軸）入力", "木材 弱軸", Timber, kNoFamily, {"B(mm)", "D(mm)", "形状係数", "As(mm2)"}},
    {"溝形鋼（強軸）入力", "溝形鋼 強軸", Steel, Channel, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"溝形鋼（弱軸）入力", "溝形鋼 弱軸", Steel, Channel, {"H(mm)", "B(mm)", "tw(mm)", "tf(mm)"}},
    {"山形鋼（強軸）入力", "山形鋼 強軸", Steel, Angle, {"A(mm)", "B(mm)", "t(mm)", "r1(mm)"}},
    {"山形鋼（弱軸）入力", "山形鋼 弱軸", Steel, Angle, {"A(mm)", "B(mm)", "t(mm)", "r1(mm)"}},
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
