// A figure in memory: the operations that one drawing put on its surface, kept so that they can be painted
// again and again, on the screen, on a page, into a file, and always alike.
#pragma once

#include <map>
#include <QLineF>
#include <QPointF>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "graphics/plot_target.h"

namespace zorlan {

/// All lengths are in twips of the surface, y downward.
class FigurePicture final : public PlotTarget {
 public:
  explicit FigurePicture(const Surface& surface) : surface_(surface) {}

  struct Lines {  // of one pen
    Pen pen;
    std::vector<QLineF> lines;
  };
  struct Disc {
    QPointF centre;
    double radius = 0;
    bool filled = false;
  };
  struct Discs {  // of one pen
    Pen pen;
    std::vector<Disc> discs;
  };
  struct PlacedText {
    QPointF origin;
    std::string text;
  };
  struct Texts {  // of one height, angle and colour
    double height = 0, angle = 0;
    Rgb colour = kBlack;
    std::vector<PlacedText> texts;
  };
  struct Tint {
    Rgb colour = kBlack;
    std::size_t begin = 0, end = 0;  // of its corners
  };

  // In the order of their first use. They are painted tints first, then lines, circles, texts.
  const std::vector<Tint>& TheTints() const { return tints_; }
  std::span<const QPointF> CornersOf(const Tint& tint) const {
    return std::span(corners_).subspan(tint.begin, tint.end - tint.begin);
  }
  const std::vector<Lines>& TheLines() const { return lines_; }
  const std::vector<Discs>& TheDiscs() const { return discs_; }
  const std::vector<Texts>& TheTexts() const { return texts_; }

  Surface TheSurface() const override { return surface_; }
  void Line(Point from, Point to, const Pen& pen) override;
  void Circle(Point centre, double radius, const Pen& pen, bool filled) override;
  void Text(Point origin, std::string_view text, double height, double angle, Rgb colour) override;
  void Shade(std::span<const Point> polygon, Rgb colour) override;

 private:
  Surface surface_;
  std::vector<Tint> tints_;
  std::vector<QPointF> corners_;  // of all tints
  std::vector<Lines> lines_;
  std::vector<Discs> discs_;
  std::vector<Texts> texts_;
  std::map<std::tuple<double, double, Rgb>, std::size_t> groupOfText_;  // by height, angle, colour
  std::size_t lastText_ = 0;
};

}  // namespace zorlan
