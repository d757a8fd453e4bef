// Figures for tests: a model put together by hand, drawn, and what came of it.
#pragma once

#include <string>
#include <vector>

#include "base/host.h"
#include "graphics/frame_figure.h"
#include "recorder.h"
#include "support/model_builder.h"

namespace zorlan::test {

/// The figure of a model, case 1, everything fitted.
inline Figure FigureOf(const ModelRec& model) {
  Figure figure;
  figure.model = FigureModelOf(model);
  figure.FigureFlags = kFitWindow | kDataUnchanged;
  return figure;
}

/// A model's figure without numbers and title: what is left are the layers in question.
inline std::vector<std::string> Lines(Figure figure, int kind, Recorder surface = Recorder(),
                                      std::string_view without = "TITLE") {
  Plot plot(surface);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kind);
  std::vector<std::string> lines;
  for (const std::string& line : ListLines(plot))
    if (line.find(without) == std::string::npos) lines.push_back(line);
  return lines;
}

/// The lines of one layer, its texts included.
inline std::vector<std::string> LayerLines(Figure figure, int kind, std::string_view layer,
                                           Recorder surface = Recorder()) {
  Plot plot(surface);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kind);
  std::vector<std::string> lines;
  for (const DrawOperation& operation : plot.drawingList)
    if (operation.layer == layer || operation.layer == std::string(layer) + "_TXT")
      lines.push_back(OperationLine(operation));
  return lines;
}

/// An arrow as it was drawn: a shaft, and two barbs that start at its tip.
struct Arrow {
  Point tail, tip;
};

/// The arrows of a figure's loads.
inline std::vector<Arrow> ArrowsOf(Figure figure) {
  Recorder surface;
  Plot plot(surface);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kLoadCheck);
  std::vector<Arrow> arrows;
  const auto& list = plot.drawingList;
  for (std::size_t k = 0; k + 2 < list.size(); ++k) {
    const auto barb = [&](const DrawOperation& o) {
      return o.kind == DrawOperation::Kind::Line && o.x == list[k].x2 && o.y == list[k].y2;
    };
    if (list[k].layer == layer::kLoad && barb(list[k + 1]) && barb(list[k + 2]))
      arrows.push_back({{list[k].x, list[k].y}, {list[k].x2, list[k].y2}});
  }
  return arrows;
}

/// Keeps the messages of a scope.
class Messages {
 public:
  Messages() {
    Host host;
    host.message = [this](std::string_view text, std::string_view title) {
      texts.push_back(std::string(title) + ": " + std::string(text));
    };
    InstallHost(host);
  }
  ~Messages() { InstallHost({}); }
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  std::vector<std::string> texts;
};

}  // namespace zorlan::test
