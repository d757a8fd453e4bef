// The view: which part of the model plane (m, y upward) lies where in the figure (twips, y downward). Values
// in, values out.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "graphics/plot_target.h"

namespace zorlan {

/// What every extent starts from, either sign.
inline constexpr double kExtentStart = 3.4028230607370965E+38;

/// Bits of FigureFlags.
enum FigureFlag : int {
  kReadTables = 1,                           // read the model's tables
  kFitWindow = 4,                            // fit the window to the extent
  kDataUnchanged = 8,                        // nothing is read
  kRedrawAll = kFitWindow | kDataUnchanged,  // what "全" sets
};

/// When a member is shown: "線分が全て範囲内の時表示", "線分の片側節点が範囲内の時表示".
enum class RangeMode : std::uint8_t { BothEnds, OneEnd };

/// The limits of what is shown, in model units; a node on a limit is inside.
struct ViewingRange {
  double xLower = -kExtentStart, xUpper = kExtentStart;
  double yLower = -kExtentStart, yUpper = kExtentStart;
  RangeMode mode = RangeMode::BothEnds;

  /// False for what is no number.
  bool Holds(double x, double y) const { return x >= xLower && x <= xUpper && y >= yLower && y <= yUpper; }
  bool operator==(const ViewingRange&) const = default;
};

/// The view of a figure, all in model units.
struct View {
  double tVxmin = -0.1, tVxmax = 0.1, tVymin = -0.1, tVymax = 0.1;  // extent of the shown nodes
  double Vxmin = -50, Vxmax = 50, Vymin = -50, Vymax = 50;          // window mapped to the drawing area
  double Vvkei = 1;                                                 // model units per twip

  double WorldToFigureX(double x) const { return (x - Vxmin) / Vvkei; }
  double WorldToFigureY(double y) const { return (Vymax - y) / Vvkei; }
  Point ToFigure(Point p) const { return {WorldToFigureX(p.x), WorldToFigureY(p.y)}; }
  /// The other way: from a place in the figure (twips, without offsets) to the model plane.
  Point ToWorld(Point p) const { return {Vxmin + p.x * Vvkei, Vymax - p.y * Vvkei}; }
};

/// Extent of points: those that are no numbers don't count. A side without breadth becomes 0.1 to either side
/// of its coordinate, and -0.1 to 0.1 without points: a beam off the axis lies in its own window.
void SetExtent(View& view, std::span<const Point> shown);

/// A cell of a page: its size and where it lies, from the margins' inner corner.
struct Cell {
  double width = 0, height = 0, x = 0, y = 0;
};
inline constexpr int kLayouts = 6;
/// How many cells a layout (0 to 5) has: 1, 2, 2, 3, 3, 4; any other has one.
int CellCount(int layout);
/// Cell `cell` (0 first) of a layout on a drawing area W by H; one that the layout doesn't have lies at the
/// corner.
Cell CellOf(int layout, int cell, double W, double H);

/// Fits the window to the extent, for a drawing area in twips: a margin of 0.3 in all, and at least a third
/// of the other side for a slender frame. An area without size leaves a scale of 1.
void FitWindow(View& view, double width, double height);
/// The window as it is shown about its middle on a drawing area of another size.
void KeepCentre(View& view, double width, double height);
/// The window as a whole on a drawing area of another size and form, about its middle.
void KeepWindow(View& view, double width, double height);

/// Enlarges by `factor` (below 1: makes smaller) with the place `at` of the figure (twips) kept where it is.
void ZoomAbout(View& view, Point at, double factor);
/// Moves what is shown by so many twips to the right and downward.
void MoveBy(View& view, double dx, double dy);
/// Shows the rectangle between two places of the figure as large as the drawing area takes it.
void ZoomToRectangle(View& view, Point a, Point b, double width, double height);

/// The three-axis view of a plane grid: two turns about the centre of the extents, and the figure's x and y
/// of what comes out.
class Projection {
 public:
  Projection() = default;
  /// Centre of the extents (m); `turn` about the vertical axis and `tilt` of the plane towards the eye,
  /// degrees.
  Projection(double xCentre, double yCentre, double zCentre, double turn, double tilt);

  /// Figure x and y of a point in space, in model units.
  Point ProjectPoint(double x, double y, double z) const {
    return {m_[0][0] * x + m_[0][1] * y + m_[0][2] * z + m_[0][3],
            m_[1][0] * x + m_[1][1] * y + m_[1][2] * z + m_[1][3]};
  }

 private:
  double m_[3][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};
};

}  // namespace zorlan
