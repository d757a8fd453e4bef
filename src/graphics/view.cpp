#include "graphics/view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace zorlan {
namespace {

/// One side of the extent: from what was collected, or without breadth 0.1 to either side of the one
/// coordinate there is (of 0 if there is none), so that a beam off the axis lies in its own window.
void SetSide(double& lower, double& upper) {
  constexpr double kHalf = 0.1;
  if (lower < upper) return;
  const double middle = lower == upper ? lower : 0;
  lower = middle - kHalf;
  upper = middle + kHalf;
}

/// The window about its centre, as large as the drawing area shows at the scale.
void SetWindow(View& view, double cx, double cy, double width, double height) {
  const double w = view.Vvkei * width, h = view.Vvkei * height;
  view.Vxmin = cx - w / 2;
  view.Vxmax = cx + w / 2;
  view.Vymin = cy - h / 2;
  view.Vymax = cy + h / 2;
}

/// The smallest scale that shows w by h on the area; 1 where that makes no sense.
double ScaleFor(double w, double h, double width, double height) {
  const double scale = std::max(w / width, h / height);
  return width > 0 && height > 0 && scale > 0 && std::isfinite(scale) ? scale : 1;
}

}  // namespace

void SetExtent(View& view, std::span<const Point> shown) {
  view.tVxmin = view.tVymin = kExtentStart;
  view.tVxmax = view.tVymax = -kExtentStart;
  for (const Point& p : shown) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) continue;
    view.tVxmin = std::min(view.tVxmin, p.x);
    view.tVxmax = std::max(view.tVxmax, p.x);
    view.tVymin = std::min(view.tVymin, p.y);
    view.tVymax = std::max(view.tVymax, p.y);
  }
  SetSide(view.tVxmin, view.tVxmax);
  SetSide(view.tVymin, view.tVymax);
}

int CellCount(int layout) {
  constexpr std::array kCells = {1, 2, 2, 3, 3, 4};
  return layout >= 0 && layout < kLayouts ? kCells[static_cast<std::size_t>(layout)] : 1;
}

Cell CellOf(int layout, int cell, double W, double H) {
  // How many cells stand side by side, and one above the other; they are counted line by line.
  struct Division {
    int across, down;
  };
  constexpr std::array<Division, kLayouts> kDivisions = {{{1, 1}, {2, 1}, {1, 2}, {3, 1}, {1, 3}, {2, 2}}};
  const Division division =
      kDivisions[static_cast<std::size_t>(layout >= 0 && layout < kLayouts ? layout : 0)];
  Cell place = {W / division.across, H / division.down, 0, 0};
  if (cell <= 0 || cell >= CellCount(layout)) return place;
  place.x = cell % division.across * W / division.across;
  place.y = cell / division.across * H / division.down;
  return place;
}

void FitWindow(View& view, double width, double height) {
  view.Vxmin = view.tVxmin;
  view.Vxmax = view.tVxmax;
  view.Vymin = view.tVymin;
  view.Vymax = view.tVymax;
  const double cx = (view.Vxmin + view.Vxmax) / 2, cy = (view.Vymin + view.Vymax) / 2;
  double w = 1.3 * (view.Vxmax - view.Vxmin), h = 1.3 * (view.Vymax - view.Vymin);
  if (w == 0 && h == 0) w = h = 100;
  if (w <= h / 10) w = h / 3;
  if (h <= w / 10) h = w / 3;
  view.Vvkei = ScaleFor(w, h, width, height);
  SetWindow(view, cx, cy, width, height);
}

void KeepCentre(View& view, double width, double height) {
  SetWindow(view, (view.Vxmin + view.Vxmax) / 2, (view.Vymin + view.Vymax) / 2, width, height);
}

void KeepWindow(View& view, double width, double height) {
  view.Vvkei = ScaleFor(view.Vxmax - view.Vxmin, view.Vymax - view.Vymin, width, height);
  KeepCentre(view, width, height);
}

void ZoomAbout(View& view, Point at, double factor) {
  const double scale = view.Vvkei / factor;
  // Beyond this the coordinates have no digits left, or the model is less than a dot.
  constexpr double kFinest = 1e-9, kCoarsest = 1e9;
  if (!(scale > kFinest && scale < kCoarsest)) return;
  const Point fixed = view.ToWorld(at);
  const double width = (view.Vxmax - view.Vxmin) / view.Vvkei,
               height = (view.Vymax - view.Vymin) / view.Vvkei;
  view.Vvkei = scale;
  view.Vxmin = fixed.x - at.x * scale;
  view.Vymax = fixed.y + at.y * scale;
  view.Vxmax = view.Vxmin + width * scale;
  view.Vymin = view.Vymax - height * scale;
}

void MoveBy(View& view, double dx, double dy) {
  view.Vxmin -= dx * view.Vvkei;
  view.Vxmax -= dx * view.Vvkei;
  view.Vymin += dy * view.Vvkei;
  view.Vymax += dy * view.Vvkei;
}

void ZoomToRectangle(View& view, Point a, Point b, double width, double height) {
  const Point p = view.ToWorld(a), q = view.ToWorld(b);
  const double w = std::abs(q.x - p.x), h = std::abs(q.y - p.y);
  if (!(w > 0 || h > 0) || !(width > 0) || !(height > 0)) return;
  view.Vvkei = ScaleFor(w, h, width, height);
  SetWindow(view, (p.x + q.x) / 2, (p.y + q.y) / 2, width, height);
}

Projection::Projection(double xCentre, double yCentre, double zCentre, double turn, double tilt) {
  const double a = turn * std::numbers::pi / 180, e = tilt * std::numbers::pi / 180;
  const double ca = std::cos(a), sa = std::sin(a), se = std::sin(e), ce = std::cos(e);
  const double centre[3] = {xCentre, yCentre, zCentre};
  // The turn about the vertical axis, then the plane is laid back from the eye: seen from straight above (90)
  // it lies in the figure as it is, seen from its own height (0) only the vertical is left.
  const double turned[3][3] = {{ca, -sa, 0}, {se * sa, se * ca, ce}, {-ce * sa, -ce * ca, se}};
  for (int r = 0; r < 3; ++r) {
    m_[r][3] = centre[r];
    for (int c = 0; c < 3; ++c) {
      m_[r][c] = turned[r][c];
      m_[r][3] -= turned[r][c] * centre[c];
    }
  }
}

}  // namespace zorlan
