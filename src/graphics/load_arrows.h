// Arrows and values of loads.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "graphics/frame_figure.h"
#include "graphics/labels.h"

namespace zorlan {

/// What all loads of a figure are drawn with.
struct LoadPen {
  Plot& plot;
  const Figure& figure;
  LabelField& labels;
  LineOption line;
  double arrow;  // length of an arrow, twips: 5% of the drawing area's smaller side
};
LoadPen LoadPenOf(Plot& plot, const Figure& figure, LabelField& labels, const LineOption& line);

/// An arrow with its tip at the point; `along` is the unit vector in which it points (figure, y downward).
void DrawArrow(const LoadPen& pen, Point tip, Point along, double length, int heads = 1);

/// An arc of three quarters about the point with a head at its end, counter-clockwise or clockwise as it is
/// seen.
void DrawTurn(const LoadPen& pen, Point centre, double radius, bool counterClockwise);

struct LoadStroke {
  Point root, end;
};
/// The text at the first of these strokes that has room beyond its end, or on a side of it; else further out.
void WriteAtStrokes(const LoadPen& pen, std::span<const LoadStroke> strokes, std::string_view text);
void WriteAtStroke(const LoadPen& pen, Point root, Point end, std::string_view text);

/// A load's number: "######0.0#####".
std::string LoadText(double value);

}  // namespace zorlan
