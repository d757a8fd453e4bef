#include "sections/steel_families.h"

namespace zorlan {
namespace {

using S = SteelSection;
using enum SteelUnit;

constexpr SteelColumn kH[] = {
    {"Ｈ", Millimetre, nullptr},  {"Ｂ", Millimetre, nullptr},    {"tw", Millimetre, nullptr},
    {"tf", Millimetre, nullptr},  {"r", Millimetre, &S::r, true}, {"断面積", Centimetre2, &S::A},
    {"Ｉx", Centimetre4, &S::Ix}, {"Ｉy", Centimetre4, &S::Iy},   {"ｉx", Centimetre, &S::ix},
    {"ｉy", Centimetre, &S::iy},  {"Ｚx", Centimetre3, &S::Zx},   {"Ｚy", Centimetre3, &S::Zy},
};

constexpr SteelColumn kBox[] = {
    {"Ａ", Millimetre, nullptr},    {"Ｂ", Millimetre, nullptr},  {"t", Millimetre, nullptr},
    {"断面積", Centimetre2, &S::A}, {"Ｉx", Centimetre4, &S::Ix}, {"Ｉy", Centimetre4, &S::Iy},
    {"ｉx", Centimetre, &S::ix},    {"ｉy", Centimetre, &S::iy},  {"Ｚx", Centimetre3, &S::Zx},
    {"Ｚy", Centimetre3, &S::Zy},
};

constexpr SteelColumn kPipe[] = {
    {"Ｄ", Millimetre, nullptr},  {"t", Millimetre, nullptr},  {"断面積", Centimetre2, &S::A},
    {"Ｉx", Centimetre4, &S::Ix}, {"ｉx", Centimetre, &S::ix}, {"Ｚx", Centimetre3, &S::Zx},
};

constexpr SteelColumn kChannel[] = {
    {"Ｈ", Millimetre, nullptr},    {"Ｂ", Millimetre, nullptr},  {"t1", Millimetre, nullptr},
    {"t2", Millimetre, nullptr},    {"r1", Millimetre, &S::r},    {"r2", Millimetre, &S::r2},
    {"断面積", Centimetre2, &S::A}, {"Ｉx", Centimetre4, &S::Ix}, {"Ｉy", Centimetre4, &S::Iy},
    {"ｉx", Centimetre, &S::ix},    {"ｉy", Centimetre, &S::iy},  {"Ｚx", Centimetre3, &S::Zx},
    {"Ｚy", Centimetre3, &S::Zy},   {"Ｃy", Centimetre, &S::Cy},
};

constexpr SteelColumn kAngle[] = {
    {"Ａ", Millimetre, nullptr},      {"Ｂ", Millimetre, nullptr},     {"t", Millimetre, nullptr},
    {"r1", Millimetre, &S::r},        {"r2", Millimetre, &S::r2},      {"断面積", Centimetre2, &S::A},
    {"Ｉx", Centimetre4, &S::Ix},     {"Ｉy", Centimetre4, &S::Iy},    {"ｉx", Centimetre, &S::ix},
    {"ｉy", Centimetre, &S::iy},      {"Ｚx", Centimetre3, &S::Zx},    {"Ｚy", Centimetre3, &S::Zy},
    {"Ｃx", Centimetre, &S::Cx},      {"Ｃy", Centimetre, &S::Cy},     {"最大Ｉu", Centimetre4, &S::Iu},
    {"最小Ｉv", Centimetre4, &S::Iv}, {"最大ｉu", Centimetre, &S::iu}, {"最小ｉv", Centimetre, &S::iv},
    {"tanα", None, &S::tanAlpha},
};

constexpr std::array<SteelFamilyForm, kSteelFamilies> kForms = {{
    {"H", "Ｈ形鋼 断面性能テーブル", 4, kH},
    {"BOX", "□形鋼管 断面性能テーブル", 3, kBox},
    {"PIPE", "○形鋼管 断面性能テーブル", 2, kPipe},
    {"MIZO", "溝形鋼 断面性能テーブル", 4, kChannel},
    {"YAMA", "山形鋼 断面性能テーブル", 4, kAngle},  // r1 belongs to the name
}};

}  // namespace

std::string_view UnitCaption(SteelUnit unit) {
  switch (unit) {
    case Millimetre:
      return "(mm)";
    case Centimetre2:
      return "(cm2)";
    case Centimetre4:
      return "(cm4)";
    case Centimetre:
      return "(cm)";
    case Centimetre3:
      return "(cm3)";
    case None:
      break;
  }
  return "(-)";
}

const SteelFamilyForm& FormOf(SteelFamily family) {
  return kForms[static_cast<std::size_t>(family)];
}

std::optional<SteelFamily> FamilyOf(std::string_view word) {
  for (const std::string_view tried : {word, word.substr(word.starts_with('Y') ? 1 : 0)})
    for (std::size_t i = 0; i < kForms.size(); ++i)
      if (kForms[i].word == tried) return static_cast<SteelFamily>(i);
  return std::nullopt;
}

}  // namespace zorlan
