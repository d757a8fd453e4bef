#include "shell/figure_deck.h"

#include <array>
#include <utility>
#include <vector>

#include "base/fault.h"
#include "base/host.h"
#include "base/text_file.h"
#include "graphics/drawing_list.h"
#include "graphics/dxf.h"
#include "graphics/ratio_files.h"
#include "model/deck.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

/// What a kind of figure takes from the result folder.
enum class Source { Deck, Forces, Ratios };

struct KindWord {
  std::string_view word;
  int kind;
  Source source;
};
constexpr std::array kKindWords = {
    KindWord{"model", kModelFigure, Source::Deck},
    KindWord{"load", kLoadCheck, Source::Deck},
    KindWord{"displacement", kDisplacementFigure, Source::Forces},
    KindWord{"axial", kAxialFigure, Source::Forces},
    KindWord{"shear", kShearFigure, Source::Forces},
    KindWord{"moment", kMomentFigure, Source::Forces},
    KindWord{"steel", kSteelRatioFigure, Source::Ratios},
    KindWord{"rc", kRcRatioFigure, Source::Ratios},
};

Source SourceOf(int kind) {
  for (const KindWord& known : kKindWords)
    if (known.kind == kind) return known.source;
  return Source::Deck;
}

void LoadResults(FigureModel& model, const SelectedFigure& choice) {
  const Source source = SourceOf(choice.kind);
  if (source == Source::Forces && !LoadFigureResults(model, ResultFolder()))
    throw Fault(DeckPath() + " ： このモデルの解析結果がありません（" + ResultFolder() + "）");
  if (source != Source::Ratios) return;
  if (!LoadFigureRatios(model, choice.kind, ResultFolder()))
    throw Fault(DeckPath() + " ： 断面算定の結果がありません（" + ResultFolder() +
                (choice.kind == kSteelRatioFigure ? "SIG_S" : "SIG_RC") + "）");
}

std::optional<std::vector<DrawOperation>> RecordFigureOfDeck(const SelectedFigure& choice) {
  Figure figure = FigureOfDeck(choice);
  const MessageWatch watch(MessageWatch::Messages::Shown);
  std::vector<DrawOperation> list = RecordSheet(SheetOfFigure(choice), 0, figure);
  if (watch.Told()) return std::nullopt;
  return list;
}

}  // namespace

std::optional<int> FigureKindOf(std::string_view word) {
  for (const KindWord& known : kKindWords)
    if (known.word == word) return known.kind;
  return std::nullopt;
}

std::string FigureKindWords() {
  std::string words;
  for (const KindWord& known : kKindWords) words.append(words.empty() ? "" : " ").append(known.word);
  return words;
}

Figure FigureOfDeck(const SelectedFigure& choice) {
  ReadDeck(DeckPath(), /*checkMode=*/false);
  Figure figure;
  figure.model = FigureModelOf(InpModel);
  figure.model.name = ModelBaseName();
  if (figure.model.nodes.empty()) throw Fault(DeckPath() + " ： 節点データがありません");
  const int cases = figure.model.maxLoadCase;
  if (HasLoadCase(choice.kind) && (choice.loadCase < 1 || choice.loadCase > cases))
    throw Fault(DeckPath() + " ： 荷重ケース " + std::to_string(choice.loadCase) + " はありません（１～" +
                std::to_string(cases) + "）");
  LoadResults(figure.model, choice);
  LoadDisplayOptions();
  ChooseFigure(figure, choice);
  if (figure.range != ViewingRange())
    Tell("表示範囲（" + AppPath + "MODELEST.PRM）の外にある節点と要素は、図に描かれません");
  return figure;
}

FigureSheets SheetOfFigure(const SelectedFigure& choice) {
  PrinterRec printer = StoredPrinterInfo();
  printer.pageNumbers = kNoPageNumbers;
  return SheetsOf(printer, {choice}, /*layout=*/0);
}

bool DrawFigureOfDeck(PlotTarget& surface, const SelectedFigure& choice) {
  Figure figure = FigureOfDeck(choice);
  const MessageWatch watch(MessageWatch::Messages::Shown);
  DrawSheet(surface, SheetOfFigure(choice), 0, figure);
  return !watch.Told();
}

bool WriteFigureList(const SelectedFigure& choice, const std::string& path) {
  const std::optional<std::vector<DrawOperation>> list = RecordFigureOfDeck(choice);
  if (list) WriteDrawingList(path, *list);
  return list.has_value();
}

bool WriteFigureDxf(const SelectedFigure& choice, const std::string& path) {
  const std::optional<std::vector<DrawOperation>> list = RecordFigureOfDeck(choice);
  if (list) WriteDxfText(path, DxfOfList(DrawingListText(*list)));
  return list.has_value();
}

}  // namespace zorlan
