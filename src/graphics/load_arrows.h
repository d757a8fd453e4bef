// Arrows and values of loads.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "graphics/frame_figure.h"
#include "graphics/labels.h"

namespace zorlan {

struct LoadStroke {
  Point root, end;
};
/// A load's text, and the strokes that it may stand at, best first. Texts are written when all loads are
/// drawn, so that none lies under a later one.
struct LoadNote {
  std::vector<LoadStroke> strokes;
  std::string text;
};

/// Bits for the sides of a node.
enum Side : unsigned { kRight = 1, kLeft = 2, kAbove = 4, kBelow = 8 };

/// The side to which a direction (y downward) points more than to any other.
Side SideOf(Point way);

/// What the loads drawn so far leave for others.
struct DrawnLoads {
  explicit DrawnLoads(std::size_t nodes) : reach(nodes) {}

  void Reach(int node, Side side, double height);
  double ReachAt(int node, Side side) const;

  std::vector<LoadNote> notes;
  std::vector<std::array<double, 4>> reach;  // by node index: how far element loads lie on it, twips
};

/// What all loads of a figure are drawn with.
struct LoadPen {
  Plot& plot;
  const Figure& figure;
  LabelField& labels;
  DrawnLoads& drawn;
  LineOption line;
  double arrow;  // length of an arrow, twips: 5% of the drawing area's smaller side

  void Note(Point root, Point end, std::string text) const {
    drawn.notes.push_back({{{root, end}}, std::move(text)});
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
/// further out.
void WriteNotes(Plot& plot, const Figure& figure, LabelField& labels, const std::vector<LoadNote>& notes);

/// A load's number: "######0.0#####".
std::string LoadText(double value);

}  // namespace zorlan
