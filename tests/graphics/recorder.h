// A surface that keeps what it receives, as lines of text.
#pragma once

#include <string>
#include <vector>

#include "base/number.h"
#include "graphics/plot.h"

namespace zorlan::test {

class Recorder : public PlotTarget {
 public:
  explicit Recorder(double width = 13000, double height = 10000) {
    surface.width = width;
    surface.height = height;
  }

  Surface TheSurface() const override { return surface; }
  void Line(Point from, Point to, const Pen& pen) override {
    Keep("line", {from.x, from.y, to.x, to.y, static_cast<double>(pen.colour)});
    pens.push_back(pen);
  }
  void Circle(Point centre, double radius, const Pen& pen, bool filled) override {
    Keep(filled ? "disc" : "circle", {centre.x, centre.y, radius, static_cast<double>(pen.colour)});
    pens.push_back(pen);
  }
  void Text(Point origin, std::string_view text, double height, double angle, Rgb colour) override {
    Keep("text " + std::string(text), {origin.x, origin.y, height, angle, static_cast<double>(colour)});
  }
  void Shade(std::span<const Point> polygon, Rgb colour) override {
    Keep("shade", {static_cast<double>(polygon.size()), static_cast<double>(colour)});
  }

  Surface surface;
  std::vector<std::string> lines;
  std::vector<Pen> pens;  // of lines and circles

 private:
  void Keep(std::string line, std::initializer_list<double> numbers) {
    for (const double number : numbers) {
      line += ' ';
      AppendReal(line, number);
    }
    lines.push_back(std::move(line));
  }
};

/// A page of the same size as the screen above.
inline Recorder PageRecorder(double width = 13000, double height = 10000) {
  Recorder recorder(width, height);
  recorder.surface.page = true;
  return recorder;
}

/// The lines of the drawing list.
inline std::vector<std::string> ListLines(const Plot& plot) {
  std::vector<std::string> lines;
  for (const DrawOperation& operation : plot.drawingList) lines.push_back(OperationLine(operation));
  return lines;
}

}  // namespace zorlan::test
