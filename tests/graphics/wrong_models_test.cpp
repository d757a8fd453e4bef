// Whatever stands in the tables, a figure of it ends, and its surface receives nothing that it can't draw.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "figures.h"
#include "graphics/picking.h"

namespace zorlan {
namespace {

using test::Recorder;

/// A surface that refuses what no painter could take.
class Strict : public Recorder {
 public:
  using Recorder::Recorder;
  void Line(Point from, Point to, const Pen&) override {
    for (const Point p : {from, to})
      Expect(
          p.x >= 0 && p.x <= std::max(surface.width, 0.0) && p.y >= 0 && p.y <= std::max(surface.height, 0.0),
          "line", p);
    ++operations;
  }
  void Circle(Point centre, double radius, const Pen&, bool) override {
    Expect(Near(centre) && radius >= 0 && radius < 1e6, "circle", centre);
    ++operations;
  }
  void Text(Point origin, std::string_view text, double height, double angle, Rgb) override {
    Expect(Near(origin) && !text.empty() && height > 0 && std::isfinite(angle), "text", origin);
    ++operations;
  }
  int operations = 0;

 private:
  static bool Near(Point p) { return std::abs(p.x) < 1e6 && std::abs(p.y) < 1e6; }
  static void Expect(bool good, const char* what, Point at) {
    EXPECT_TRUE(good) << what << " at " << at.x << ", " << at.y;
  }
};

void DrawEverything(Figure& figure) {
  constexpr double kSizes[][2] = {{13000, 10000}, {0, 0}, {15, 15}, {-5, 100}};
  for (const auto& [width, height] : kSizes)
    for (const bool page : {false, true})
      for (int kind = -1; kind <= kRcRatioFigure + 1; ++kind) {
        Strict surface(width, height);
        surface.surface.page = page;
        Plot plot(surface);
        plot.RecordDrawing = true;
        DrawFrameFigure(plot, "", figure, kind, page ? 5 : 0, page ? 2 : 0);
        PickAt(figure, {100, 100});
      }
}

double Wild(std::mt19937& random) {
  constexpr double kWild[] = {0,
                              0,
                              1,
                              -1,
                              3.5,
                              1e-300,
                              1e9,
                              -1e30,
                              1e300,
                              -1.7e308,
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()};
  return kWild[std::uniform_int_distribution<std::size_t>(0, std::size(kWild) - 1)(random)];
}

TEST(WrongModels, WildNumbersNeverReachTheSurface) {
  test::Messages messages;
  for (unsigned seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto number = [&](int low, int high) {
      return static_cast<std::int16_t>(std::uniform_int_distribution(low, high)(random));
    };
    test::ModelBuilder b(static_cast<ModelKind>(number(0, 4)));
    for (int n = 1; n <= 8; ++n) {
      b.Node(Wild(random), Wild(random), {number(-1, 5), number(-1, 5), number(-1, 5)});
      b.model.Node[n].rollerAngle = Wild(random);
      if (n > 5) b.model.Node[n].number = number(-32768, 32767);
    }
    for (int e = 1; e <= 10; ++e) {
      b.Element(number(1, 8), number(1, 8), number(-9, 9), number(-1, 2), number(-1, 2));
      if (e > 7) b.model.Elem[e].I = number(-32768, 32767);
      b.ElementLoad(number(-2, 12), Wild(random), number(-32768, 32767), Wild(random), number(-3, 5));
      b.ElementLoad(e, Wild(random), number(-1, 20), Wild(random), number(0, 3));
      b.NodalLoad(number(-2, 12), Wild(random), Wild(random), Wild(random));
      b.CmqLoad(e, Wild(random), Wild(random), Wild(random), Wild(random), Wild(random), number(-1, 2));
      b.TemperatureLoad(e, 1, Wild(random), Wild(random), 1, 1);
    }
    Figure figure = test::FigureOf(b.model);
    figure.range.xUpper = figure.range.yUpper = std::numeric_limits<double>::infinity();
    figure.range.xLower = figure.range.yLower = -std::numeric_limits<double>::infinity();
    figure.range.mode = RangeMode::OneEnd;
    figure.options.viewTurn = Wild(random);
    figure.options.node.width = Wild(random);
    DrawEverything(figure);
    figure.FigureFlags = kDataUnchanged;
    figure.view.Vvkei = Wild(random);
    figure.view.Vxmin = Wild(random);
    DrawEverything(figure);
  }
}

TEST(WrongModels, MoreNodesThanAModelMayHave) {
  test::Messages messages;
  Figure figure;
  for (int n = 0; n < 20000; ++n) {
    figure.model.nodes.push_back(
        {.number = static_cast<std::int16_t>(n + 1), .x = n % 200 * 1.0, .y = n / 200 * 1.0});
    if (n > 0)
      figure.model.elements.push_back({.number = static_cast<std::int16_t>(n), .rowI = n - 1, .rowJ = n});
  }
  for (FigureElement& element : figure.model.elements) {
    element.I = figure.model.nodes[static_cast<std::size_t>(element.rowI)].number;
    element.J = figure.model.nodes[static_cast<std::size_t>(element.rowJ)].number;
  }
  figure.FigureFlags = kRedrawAll;
  Strict surface(13000, 10000);
  Plot plot(surface);
  DrawFrameFigure(plot, "", figure, kModelFigure);
  EXPECT_GT(surface.operations, 3 * 19999);
}

TEST(WrongModels, AFarZoomStaysDrawable) {
  test::ModelBuilder b;
  b.Node(0, 0, {1, 1, 1});
  b.Node(10, 0, {2, 2, 2});
  b.Element(1, 2);
  b.ElementLoad(1, -2, 0);
  Figure figure = test::FigureOf(b.model);
  Strict surface(13000, 10000);
  Plot plot(surface);
  DrawFrameFigure(plot, "", figure, kLoadCheck);
  figure.FigureFlags = kDataUnchanged;
  for (int k = 0; k < 40; ++k) {
    ZoomAbout(figure.view, {6500, 5000}, 3);
    DrawFrameFigure(plot, "", figure, kLoadCheck);
  }
  for (int k = 0; k < 80; ++k) {
    ZoomAbout(figure.view, {6500, 5000}, 0.3);
    DrawFrameFigure(plot, "", figure, kLoadCheck);
  }
  EXPECT_GT(surface.operations, 0);
}

}  // namespace
}  // namespace zorlan
