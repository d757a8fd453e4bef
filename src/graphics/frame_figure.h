// The frame figure: nodes, members, supports, loads and labels, and the frame that the result diagrams stand
// on.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "graphics/figure_kinds.h"
#include "graphics/figure_model.h"
#include "graphics/figure_options.h"
#include "graphics/plot.h"
#include "graphics/view.h"

namespace zorlan {

/// A figure and its view, as its form keeps them from one redraw to the next.
struct Figure {
  FigureModel model;
  FigureOptions options;
  ViewingRange range;
  View view;
  int FigureFlags = kReadTables | kFitWindow;
  int DiagramType = kModelFigure;
  int loadCase = 1;

  // What PrepareFigure makes of them:
  std::vector<std::int16_t> NodeShown;  // by node number: -1 in the viewing range, 0 not
  Projection projection;
  bool oblique = false;      // a plane grid's diagram: points go through the projection
  std::vector<Point> place;  // of node index: model units of the figure's plane (projected when oblique)
  std::vector<std::uint8_t> shown;       // of element index: both nodes are there and it is in the range
  double cellWidth = 0, cellHeight = 0;  // of the drawing area, twips

  /// A point of the model in the figure's plane; z is the grid's vertical, 0 in frames.
  Point PlaneOf(double x, double y, double z = 0) const {
    return oblique ? projection.ProjectPoint(x, y, z) : Point{x, y};
  }
  /// The same in twips.
  Point FigureOf(double x, double y, double z = 0) const { return view.ToFigure(PlaneOf(x, y, z)); }

  struct Ends {
    Point i, j;
  };
  /// The ends of a member, whose nodes must be there, in twips.
  Ends EndsOf(const FigureElement& element) const {
    return {view.ToFigure(place[static_cast<std::size_t>(element.rowI)]),
            view.ToFigure(place[static_cast<std::size_t>(element.rowJ)])};
  }
};

/// Radius of a node's circle, and height of a support's triangle, in twips: both follow the node's size.
double NodeRadius(const FigureOptions& options);
double SupportSize(const FigureOptions& options);

/// Whether the node of this number is shown.
bool IsNodeShown(const Figure& figure, int number);

/// The view of a figure before anything is drawn: shown nodes, extent, projection, and the window, fitted
/// when FigureFlags has kFitWindow. Sets the offsets of the cell. `control` is the surface's name: one that
/// holds "PICTURE" takes no page margins.
void PrepareFigure(Plot& plot, std::string_view control, Figure& figure, int kind, int layout, int cell);

/// Draws a figure on the plot's surface. `control` names the surface; `kind` left out is the figure's
/// DiagramType, `layout` (0 to 5) and `cell` are those of a page. The tables are read first when FigureFlags
/// has kReadTables and not kDataUnchanged. A fault is reported and the figure stays as far as it was drawn.
void DrawFrameFigure(Plot& plot, std::string_view control, Figure& figure, std::optional<int> kind = {},
                     int layout = 0, int cell = 0);

}  // namespace zorlan
