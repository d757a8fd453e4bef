#include "sections/section_properties.h"

#include <array>
#include <utility>

#include "sections/section_shapes.h"
#include "sections/steel_tables.h"
#include "sections/timber_tables.h"

namespace zorlan {
namespace {

enum class Shape { Direct, Rectangle, H, Box, Pipe, Timber, Channel, Angle };
enum class Axis { Strong, Weak };

struct TypeForm {
  Shape shape;
  Axis axis;  // that bending is about
};

constexpr TypeForm kTypes[] = {
    {Shape::Direct, Axis::Strong},     // 0
    {Shape::Rectangle, Axis::Strong},  // 1
    {Shape::H, Axis::Strong},          // 2
    {Shape::Box, Axis::Strong},        // 3
    {Shape::Pipe, Axis::Strong},       // 4
    {Shape::H, Axis::Weak},            // 5
    {Shape::Box, Axis::Weak},          // 6
    {Shape::Timber, Axis::Strong},     // 7
    {Shape::Timber, Axis::Weak},       // 8
    {Shape::Channel, Axis::Strong},    // 9
    {Shape::Channel, Axis::Weak},      // 10
    {Shape::Angle, Axis::Strong},      // 11
    {Shape::Angle, Axis::Weak},        // 12
};

using Fields = std::array<double, 4>;  // P1 to P4

ShapeConstants FromTable(const SteelSection& row) {
  ShapeConstants c;
  c.A = row.A;
  c.Ix = row.Ix;
  c.Iy = row.Iy;
  c.ix = row.ix;
  c.iy = row.iy;
  c.Zx = row.Zx;
  c.Zy = row.Zy;
  return c;
}

/// The steel table's row, or the constants by formula.
ShapeConstants SteelConstants(SteelFamily family, const Fields& P, double scale,
                              ShapeConstants formula(const Fields&)) {
  const SteelRow* row = FindSteelRow(family, P, scale);
  return row == nullptr ? formula(P) : FromTable(SteelSectionIn(scale, family, *row));
}

/// A timber section by its name: the area of its outer dimensions, the rest from its row.
ShapeConstants TimberConstants(std::string_view name, const Fields& P, double scale) {
  const TimberSectionRec* row = FindTimberSection(name);
  if (row == nullptr) return RectangleConstants(P[0], P[1]);
  const double mm2 = scale * scale, mm3 = mm2 * scale,
               mm4 = mm3 * scale;  // in the square, cube... of the unit
  ShapeConstants c;
  c.A = row->thickness * row->width / mm2;
  c.Ix = row->Ix * 1e6 / mm4;
  c.Iy = row->Iy * 1e6 / mm4;
  c.ix = row->ix / scale;
  c.iy = row->iy / scale;
  c.Zx = row->Zx * 1e3 / mm3;
  c.Zy = row->Zy * 1e3 / mm3;
  return c;
}

ShapeConstants ConstantsOf(Shape shape, std::string_view name, const Fields& P, double scale) {
  switch (shape) {
    case Shape::Direct: {
      ShapeConstants c;
      c.A = P[0];
      c.Ix = P[1];
      return c;
    }
    case Shape::Rectangle:
      return RectangleConstants(P[0], P[1]);
    case Shape::Timber:
      return TimberConstants(name, P, scale);
    case Shape::H:  // one that isn't in the table has no fillet, whatever its neighbours there have
      return SteelConstants(SteelFamily::H, P, scale,
                            [](const Fields& p) { return SectionH(p[0], p[1], p[2], p[3], 0); });
    case Shape::Box:
      return SteelConstants(SteelFamily::Box, P, scale,
                            [](const Fields& p) { return BoxConstants(p[0], p[1], p[2]); });
    case Shape::Pipe:
      return SteelConstants(SteelFamily::Pipe, P, scale,
                            [](const Fields& p) { return PipeConstants(p[0], p[1]); });
    case Shape::Channel:
      return SteelConstants(SteelFamily::Channel, P, scale,
                            [](const Fields& p) { return SectionChannel(p[0], p[1], p[2], p[3]); });
    case Shape::Angle:
      return SteelConstants(SteelFamily::Angle, P, scale,
                            [](const Fields& p) -> ShapeConstants { return SectionAngle(p[0], p[1], p[2]); });
  }
  return {};
}

void SwapAxes(ShapeConstants& c) {
  std::swap(c.Ix, c.Iy);
  std::swap(c.Zx, c.Zy);
  std::swap(c.ix, c.iy);
}

/// Puts the strong axis first and answers the shear area about the TYPE's axis.
double OrderAxes(TypeForm type, const Fields& P, ShapeConstants& c) {
  switch (type.shape) {
    case Shape::Direct:
    case Shape::Rectangle:
      return P[3];
    case Shape::H:  // web, or both flanges
      return type.axis == Axis::Strong ? P[2] * (P[0] - 2 * P[3]) : 2 * P[1] * P[3];
    case Shape::Box: {
      double web = 2 * P[2] * (P[0] - 2 * P[3]);
      double flange = 2 * P[3] * (P[1] - 2 * P[2]);
      if (web < flange) {
        std::swap(web, flange);
        SwapAxes(c);
      }
      return type.axis == Axis::Strong ? web : flange;
    }
    case Shape::Pipe:
      return c.A;
    case Shape::Timber:
      if (c.Ix < c.Iy) SwapAxes(c);
      return P[3];
    case Shape::Channel:
    case Shape::Angle:
      if (c.Ix < c.Iy) SwapAxes(c);
      return c.A;
  }
  return 0;
}

double ShearShapeFactor(Shape shape, const Fields& P) {
  if (shape == Shape::Pipe) return 0.5;
  const bool entered = shape == Shape::Rectangle || shape == Shape::Timber;
  return entered && P[2] > 0 ? P[2] : 1.0;
}

}  // namespace

SectionConstants SectionProperties(int type, std::string_view name, double P1, double P2, double P3,
                                   double P4, double scale) {
  if (type < 0 || type >= static_cast<int>(std::size(kTypes))) return {};
  const TypeForm form = kTypes[type];
  const Fields P = {P1, P2, P3, P4};
  ShapeConstants c = ConstantsOf(form.shape, name, P, scale);
  SectionConstants s;
  s.As = OrderAxes(form, P, c);
  s.kappa = ShearShapeFactor(form.shape, P);
  s.A = c.A;
  s.Ix = c.Ix;
  s.Iy = c.Iy;
  s.Zx = c.Zx;
  s.Zy = c.Zy;
  s.ix = c.ix;
  s.iy = c.iy;
  s.I = form.axis == Axis::Strong ? c.Ix : c.Iy;
  return s;
}

}  // namespace zorlan
