// Arrows and values of loads.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "graphics/frame_figure.h"
#include "graphics/labels.h"
#include "graphics/load_stacks.h"

namespace zorlan {

// Of an arrow's length:
inline constexpr double kSideOffset = 0.4;  // to the side, and the radius of a turn
inline constexpr double kTurnStep = 0.2;    // from a turn to the next one around it

struct LoadStroke {
  Point root, end;
};
/// A load's text, and the strokes that it may stand at, best first. Texts are written when all loads are
/// drawn, so that none lies under a later one.
struct LoadNote {
  std::vector<LoadStroke> strokes;
  std::string text;
};

/// What the loads drawn so far leave for others.
struct DrawnLoads {
  explicit DrawnLoads(std::size_t nodes) : onNodes(nodes) {}

  std::vector<LoadNote> notes;
  LoadStacks onNodes;  // by node index: how far element loads lie on it
};

/// What all loads of a figure are drawn with.
struct LoadPen {
  Plot& plot;
  const Figure& figure;
  LabelField& labels;
  DrawnLoads& drawn;
  LineOption line;
  double arrow;       // length of an arrow, twips: 5% of the drawing area's smaller side
  double numberRoom;  // that a load's number needs between its load and the next one on it, twips

  void Note(std::vector<LoadStroke> strokes, std::string text) const {
    drawn.notes.push_back({std::move(strokes), std::move(text)});
  }
};
LoadPen LoadPenOf(Plot& plot, const Figure& figure, LabelField& labels, DrawnLoads& drawn,
                  const LineOption& line);

/// An arrow with its tip at the point; `along` is the unit vector in which it points (figure, y downward).
void DrawArrow(const LoadPen& pen, Point tip, Point along, double length, int heads = 1);

/// An arc of three quarters about the point with a head at its end, counter-clockwise or clockwise as it is
/// seen.
void DrawTurn(const LoadPen& pen, Point centre, double radius, bool counterClockwise);

/// Writes each text at the first of its strokes that has room beyond its end, or on a side of it; else
/// further out, or before its root.
void WriteNotes(Plot& plot, const Figure& figure, LabelField& labels, const std::vector<LoadNote>& notes);

/// A load's number: "######0.0#####".
std::string LoadText(double value);

/// Calls `draw` for the loads of the figure's case on shown items: `items` has their indexes, by load.
template <class Load, class Shown, class Draw>
void ForShownLoads(const Figure& figure, const std::vector<Load>& loads, const std::vector<int>& items,
                   Shown shown, Draw draw) {
  for (std::size_t n = 0; n < loads.size() && n < items.size(); ++n)
    if (loads[n].loadCase == figure.loadCase && items[n] >= 0 && shown(items[n])) draw(items[n], loads[n]);
}

}  // namespace zorlan
