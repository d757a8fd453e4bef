// A figure of 5000 elements with all numbers into operations: the model, the same zoomed in, its loads, its
// diagrams.
#include <benchmark/benchmark.h>

#include <string>

#include "deck_folder.h"
#include "graphics/frame_figure.h"
#include "model/deck.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

/// A surface that counts what it receives.
class NullTarget : public PlotTarget {
 public:
  Surface TheSurface() const override { return {.width = 15 * 1000, .height = 15 * 700}; }
  void Line(Point, Point, const Pen&) override { ++operations; }
  void Circle(Point, double, const Pen&, bool) override { ++operations; }
  void Text(Point, std::string_view, double, double, Rgb) override { ++operations; }
  void Shade(std::span<const Point>, Rgb) override { ++operations; }
  double operations = 0;
};

FigureModel LargeModel(const bench::Frame& frame) {
  const bench::DeckInHand deck(frame);
  ReadDeck(DeckPath(), /*checkMode=*/false);
  return FigureModelOf(InpModel);
}

/// A frame whose members are divided, with all numbers and their marks.
Figure LargeFigure() {
  Figure figure;
  figure.model = LargeModel(bench::LargeFrame(1));
  figure.FigureFlags = kRedrawAll;
  figure.options.elementNumber.mark = figure.options.sectionNumber.mark = true;
  return figure;
}

void Draw(benchmark::State& state, Figure& figure, int kind) {
  NullTarget target;
  for (auto _ : state) {
    Plot plot(target);
    DrawFrameFigure(plot, "", figure, kind);
  }
  state.counters["operations"] = target.operations / static_cast<double>(state.iterations());
}

void ModelFigureWithAllNumbers(benchmark::State& state) {
  Figure figure = LargeFigure();
  Draw(state, figure, kModelFigure);
}
BENCHMARK(ModelFigureWithAllNumbers)->Unit(benchmark::kMillisecond);

void ModelFigureZoomedIn(benchmark::State& state) {
  Figure figure = LargeFigure();
  NullTarget target;
  Plot plot(target);
  DrawFrameFigure(plot, "", figure, kModelFigure);
  ZoomAbout(figure.view, {7500, 5250}, 8);
  figure.FigureFlags = kDataUnchanged;
  Draw(state, figure, kModelFigure);
}
BENCHMARK(ModelFigureZoomedIn)->Unit(benchmark::kMillisecond);

void LoadCheckWithAllNumbers(benchmark::State& state) {
  Figure figure = LargeFigure();
  Draw(state, figure, kLoadCheck);
}
BENCHMARK(LoadCheckWithAllNumbers)->Unit(benchmark::kMillisecond);

/// The large figure with member forces of 20 cases.
Figure FigureWithForces() {
  Figure figure = LargeFigure();
  FigureModel& model = figure.model;
  model.maxLoadCase = 20;
  const std::size_t elements = model.elements.size();
  for (std::size_t k = 0; k < elements * 20; ++k) {
    const double v = 1 + static_cast<double>(k % 97) / 10;
    model.StressTable.push_back({-v, v, v / 2, -v, v, v, v});
  }
  model.DisplacementTable.assign(model.nodes.size() * 20, {0.01, -0.02, 0});
  return figure;
}

void DiagramOfAllMembers(benchmark::State& state) {
  Figure figure = FigureWithForces();
  Draw(state, figure, static_cast<int>(state.range(0)));
}
BENCHMARK(DiagramOfAllMembers)
    ->ArgName("kind")
    ->DenseRange(kDisplacementFigure, kMomentFigure)
    ->Unit(benchmark::kMillisecond);

void MomentDiagramZoomedIn(benchmark::State& state) {
  Figure figure = FigureWithForces();
  NullTarget target;
  Plot plot(target);
  DrawFrameFigure(plot, "", figure, kMomentFigure);
  ZoomAbout(figure.view, {7500, 5250}, 8);
  figure.FigureFlags = kDataUnchanged;
  Draw(state, figure, kMomentFigure);
}
BENCHMARK(MomentDiagramZoomedIn)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zorlan

BENCHMARK_MAIN();
