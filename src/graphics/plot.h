// The plot primitives: everything that a figure draws goes through them, to the surface and, while a
// recording is open, to the drawing list. Positions are in twips of the figure, y downward; a primitive adds
// the offsets of the cell. What lies outside the clip rectangle is left out, lines are cut at it, and what is
// no number is not drawn. In a cell of a page a circle or a text is the cell's when its middle lies in it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "graphics/drawing_list.h"
#include "graphics/plot_target.h"

namespace zorlan {

struct Rectangle {
  double left = 0, top = 0, right = 0, bottom = 0;

  bool Meets(const Rectangle& other) const {
    return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
  }
  /// Whether a point or a whole rectangle lies inside or on the edge; false for what is no number.
  bool Holds(Point p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
  bool Holds(const Rectangle& other) const {
    return other.left >= left && other.right <= right && other.top >= top && other.bottom <= bottom;
  }
};

/// The rectangle of this size at a corner; without breadth where a side is below 0 or no number.
Rectangle AreaOf(double x, double y, double width, double height);

/// Names of the layers that `DrawLayer` takes.
namespace layer {
inline constexpr std::string_view kTitle = "TITLE", kModel = "MODEL", kLoad = "KAJYU", kDisplacement = "DISP",
                                  kForce = "FORCE", kShear = "SHEAR", kMoment = "MOMENT";
}

/// The state of drawing: the surface, where the figure lies on it, pen and font in force, and the recording.
/// One figure ends before the next one starts.
struct Plot {
  explicit Plot(PlotTarget& surface);

  /// Takes over what the surface is now: no offsets, nothing cut but at its edges.
  void Begin();

  /// Keeps what is drawn to a cell of the page, from `x`, `y` on, among whose neighbours nothing shall reach.
  void BeginCell(double x, double y, double cellWidth, double cellHeight);

  PlotTarget* target;
  Surface surface;             // of the target, as it was when the figure began
  bool DrawToPrinter = false;  // the target is a page, not the screen
  double OffsetX = 0, OffsetY = 0;
  std::string_view DrawLayer = layer::kModel;
  bool RecordDrawing = false;
  std::vector<DrawOperation> drawingList;  // in order, while RecordDrawing is set

  Rectangle clip;          // on the surface, offsets included: lines are cut here
  bool clipsCell = false;  // it is a cell of several on the page
  LineStyle style = LineStyle::Solid;
  double width = 1;                        // dots
  double fontHeight = 8 * kTwipsPerPoint;  // twips
};

/// Style and width (dots) of the lines and circles to come.
void PlotSetPen(Plot& plot, LineStyle style, double width);
/// Height of the texts to come, in twips.
void PlotSetFont(Plot& plot, double height);

void PlotLine(Plot& plot, double x1, double y1, double x2, double y2, Rgb colour);

/// PlotLine; but on a page a line of a broken style is made of four drawn segments, whose lengths tell the
/// style, as surfaces and drawing list know no other.
void PlotDashedLine(Plot& plot, double x1, double y1, double x2, double y2, Rgb colour);

void PlotCircle(Plot& plot, double x, double y, double radius, Rgb colour, bool filled = false);

/// An upright text with its left upper corner at the point. An empty one is not drawn.
void PlotText(Plot& plot, double x, double y, std::string_view text, Rgb colour);

/// Which place of a text lies on its point: 0, 1, 2 left, centre, right, plus 0, 3, 6 for bottom, centre,
/// top.
enum Anchor {
  kLeftBottom,
  kCentreBottom,
  kRightBottom,
  kLeftCentre,
  kCentre,
  kRightCentre,
  kLeftTop,
  kCentreTop,
  kRightTop,
};

/// A text turned by `angle` degrees counter-clockwise about its anchor.
void PlotTextRotated(Plot& plot, double x, double y, std::string_view text, double angle, Rgb colour,
                     int anchor = kLeftTop);

/// A light tint of a polygon, for the surface alone.
void PlotShade(Plot& plot, std::span<const Point> polygon, Rgb colour);

/// Cuts a segment at a rectangle; false when nothing of it is inside or a coordinate is no number.
bool Clipping(const Rectangle& area, Point& from, Point& to);

}  // namespace zorlan
