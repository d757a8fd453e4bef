#include "shell/figure_deck.h"

#include <algorithm>
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
#include "shell/model_status.h"

namespace zorlan {
namespace {

struct KindWord {
  std::string_view word;
  int kind;
};
constexpr std::array kKindWords = {
    KindWord{"model", kModelFigure},
    KindWord{"load", kLoadCheck},
    KindWord{"displacement", kDisplacementFigure},
    KindWord{"axial", kAxialFigure},
    KindWord{"shear", kShearFigure},
    KindWord{"moment", kMomentFigure},
    KindWord{"steel", kSteelRatioFigure},
    KindWord{"rc", kRcRatioFigure},
};

void LoadResults(FigureModel& model, const SelectedFigure& choice) {
  const FigureSource source = SourceOf(choice.kind);
  const auto load = [&](auto read, std::string_view complaint) {
    try {
      read();
    } catch (const Fault& fault) {
      throw Fault(DeckPath() + " ： " + std::string(complaint) + "（" + fault.what() + "）");
    }
  };
  if (source == FigureSource::Analysis)
    load([&] { ReadFigureResults(model, ResultFolder()); }, kNoFittingResults);
  if (source == FigureSource::Design)
    load([&] { ReadFigureRatios(model, choice.kind, ResultFolder()); }, "断面算定の結果がありません");
  if (source != FigureSource::Tables) TellResultRemark(RatioFileOf(choice.kind));
}

/// Does a part of the work that tells the user when there can be no figure.
template <class Act>
void RefuseWhenTold(Act act) {
  const MessageWatch watch(MessageWatch::Messages::Shown);
  act();
  if (watch.Told()) throw Fault(DeckPath() + " ： 図を出力できませんでした");
}

/// The figure of the model in hand, ready to be drawn.
Figure FigureOfDeck(const SelectedFigure& choice) {
  ReadDeck(DeckPath(), /*checkMode=*/false);  // which knows the line of a number that can't be meant
  Figure figure;
  RefuseWhenTold([&] { figure.model = ReadFigureDeck(ReadTextFile(DeckPath())); });
  if (figure.model.nodes.empty()) throw Fault(DeckPath() + " ： 節点データがありません");
  const int cases = std::max(0, figure.model.maxLoadCase);
  if (HasLoadCase(choice.kind) && (choice.loadCase < 1 || choice.loadCase > cases))
    throw Fault(DeckPath() + " ： 荷重ケース " + std::to_string(choice.loadCase) +
                " はありません（荷重ケース数 " + std::to_string(cases) + "）");
  LoadResults(figure.model, choice);
  LoadDisplayOptions();
  ChooseFigure(figure, choice);
  if (figure.range != ViewingRange())
    Tell("表示範囲（" + AppPath + "MODELEST.PRM）の外にある節点と要素は、図に描かれません");
  return figure;
}

std::vector<DrawOperation> RecordFigureOfDeck(const SelectedFigure& choice) {
  Figure figure = FigureOfDeck(choice);
  std::vector<DrawOperation> list;
  RefuseWhenTold([&] { list = RecordSheet(SheetOfFigure(choice), 0, figure); });
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

FigureSheets SheetOfFigure(const SelectedFigure& choice) {
  PrinterRec printer = StoredPrinterInfo();
  printer.pageNumbers = kNoPageNumbers;
  return SheetsOf(printer, {choice}, /*layout=*/0);
}

void DrawFigureOfDeck(PlotTarget& surface, const SelectedFigure& choice) {
  Figure figure = FigureOfDeck(choice);
  RefuseWhenTold([&] { DrawSheet(surface, SheetOfFigure(choice), 0, figure); });
}

void WriteFigureList(const SelectedFigure& choice, const std::string& path) {
  WriteDrawingList(path, RecordFigureOfDeck(choice));
}

void WriteFigureDxf(const SelectedFigure& choice, const std::string& path) {
  WriteDxfText(path, DxfOfList(DrawingListText(RecordFigureOfDeck(choice))));
}

}  // namespace zorlan
