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
  const auto load = [&](auto read, std::string_view complaint) {
    try {
      read();
    } catch (const Fault& fault) {
      throw Fault(DeckPath() + " ： " + std::string(complaint) + "（" + fault.what() + "）");
    }
  };
  if (source == Source::Forces) load([&] { ReadFigureResults(model, ResultFolder()); }, kNoFittingResults);
  if (source == Source::Ratios)
    load([&] { ReadFigureRatios(model, choice.kind, ResultFolder()); }, "断面算定の結果がありません");
  if (source != Source::Deck) TellOfStaleResults(RatioFileOf(choice.kind));
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
