// Arrows and values of loads.
#pragma once

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

/// What all loads of a figure are drawn with.
struct LoadPen {
  Plot& plot;
  const Figure& figure;
  LabelField& labels;
  std::vector<LoadNote>& notes;
  LineOption line;
  double arrow;  // length of an arrow, twips: 5% of the drawing area's smaller side

  void Note(Point root, Point end, std::string text) const {
    notes.push_back({{{root, end}}, std::move(text)});
  }
};
LoadPen LoadPenOf(Plot& plot, const Figure& figure, LabelField& labels, std::vector<LoadNote>& notes,
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
