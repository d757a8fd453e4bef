// A figure of 2500 nodes with all its numbers on a screen of 1920 x 1080 and on paper.
#include <benchmark/benchmark.h>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "deck_folder.h"
#include "graphics/frame_figure.h"
#include "model/deck.h"
#include "model/model_state.h"
#include "render/figure_painter.h"
#include "render/fonts.h"

namespace zorlan {
namespace {

constexpr int kWidth = 1920, kHeight = 1080;

Figure ReadFrame(int kind) {
  const bench::DeckInHand deck(bench::RegularFrame(49, 49, 1));
  ReadDeck(DeckPath(), /*checkMode=*/false);
  Figure figure;
  figure.model = FigureModelOf(InpModel);
  figure.DiagramType = kind;
  figure.model.StressTable.assign(figure.model.elements.size(), {1, 2, -3, 4, 1, 2.5, -2.5});
  figure.model.DisplacementTable.assign(figure.model.nodes.size(), {0.01, -0.02, 0.001});
  return figure;
}

/// What the window of the figure does for a redraw.
void Redraw(Figure& figure, QImage& image) {
  static FigurePicture picture{Surface{}};
  Surface surface;
  surface.width = kWidth * 15;
  surface.height = kHeight * 15;
  picture.Clear(surface);
  Plot plot(picture);
  DrawFrameFigure(plot, "PICTURE1", figure);
  image.fill(Qt::white);
  PaintPicture(image, picture, ScreenStyle(1));
}

void RedrawOnScreen(benchmark::State& state) {
  Figure figure = ReadFrame(static_cast<int>(state.range(0)));
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  for (auto _ : state) {
    figure.FigureFlags = kRedrawAll;
    Redraw(figure, image);
  }
}
BENCHMARK(RedrawOnScreen)
    ->Unit(benchmark::kMillisecond)
    ->Arg(kModelFigure)
    ->Arg(kDisplacementFigure)
    ->Arg(kAxialFigure)
    ->Arg(kMomentFigure);

/// A quarter of the frame in sight.
void RedrawEnlarged(benchmark::State& state) {
  Figure figure = ReadFrame(kModelFigure);
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  figure.FigureFlags = kRedrawAll;
  Redraw(figure, image);
  ZoomAbout(figure.view, {kWidth * 7.5, kHeight * 7.5}, 2);
  for (auto _ : state) {
    figure.FigureFlags = kDataUnchanged;
    Redraw(figure, image);
  }
}
BENCHMARK(RedrawEnlarged)->Unit(benchmark::kMillisecond);

/// While the figure is moved what was drawn is shown elsewhere.
void MoveTheKeptPicture(benchmark::State& state) {
  Figure figure = ReadFrame(kModelFigure);
  QImage kept(kWidth, kHeight, QImage::Format_RGB32), screen(kWidth, kHeight, QImage::Format_RGB32);
  figure.FigureFlags = kRedrawAll;
  Redraw(figure, kept);
  int step = 0;
  for (auto _ : state) {
    QPainter painter(&screen);
    painter.fillRect(screen.rect(), Qt::white);
    ++step;
    painter.drawImage(QPoint(step % 100, step % 70), kept);
  }
}
BENCHMARK(MoveTheKeptPicture)->Unit(benchmark::kMillisecond);

void EnlargeTheKeptPicture(benchmark::State& state) {
  Figure figure = ReadFrame(kModelFigure);
  QImage kept(kWidth, kHeight, QImage::Format_RGB32), screen(kWidth, kHeight, QImage::Format_RGB32);
  figure.FigureFlags = kRedrawAll;
  Redraw(figure, kept);
  for (auto _ : state) {
    QPainter painter(&screen);
    painter.fillRect(screen.rect(), Qt::white);
    painter.translate(-200, -100);
    painter.scale(1.25, 1.25);
    painter.drawImage(QPointF(), kept);
  }
}
BENCHMARK(EnlargeTheKeptPicture)->Unit(benchmark::kMillisecond);

void WritePdf(benchmark::State& state) {
  Figure figure = ReadFrame(static_cast<int>(state.range(0)));
  Surface page;
  page.page = true;
  page.width = 420 * kTwipsPerMm;
  page.height = 297 * kTwipsPerMm;
  for (auto _ : state) {
    FigurePicture picture(page);
    Plot plot(picture);
    figure.FigureFlags = kRedrawAll;
    DrawFrameFigure(plot, "VSPrinter", figure);
    benchmark::DoNotOptimize(PicturesPdf({&picture, 1}));
  }
}
BENCHMARK(WritePdf)->Unit(benchmark::kMillisecond)->Arg(kModelFigure)->Arg(kMomentFigure);

}  // namespace
}  // namespace zorlan

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  zorlan::InstallFonts();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
