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
  const auto load = [&](auto read, const char* complaint) {
    try {
      read();
    } catch (const Fault& fault) {
      throw Fault(DeckPath() + " ： " + complaint + "（" + fault.what() + "）");
    }
  };
  if (source == Source::Forces)
    load([&] { ReadFigureResults(model, ResultFolder()); },
         "入力データに合う解析結果がありません。静解析を行ってください");
  if (source == Source::Ratios)
    load([&] { ReadFigureRatios(model, choice.kind, ResultFolder()); }, "断面算定の結果がありません");
}

/// The figure of the model in hand, ready to be drawn. The user is told of a table at fault.
Figure FigureOfDeck(const SelectedFigure& choice) {
  ReadDeck(DeckPath(), /*checkMode=*/false);  // which knows the line of a number that can't be meant
  Figure figure;
  figure.model = ReadFigureDeck(ReadTextFile(DeckPath()));
  if (figure.model.nodes.empty()) throw Fault(DeckPath() + " ： 節点データがありません");
  const int cases = std::max(0, figure.model.maxLoadCase);
  if (HasLoadCase(choice.kind) && (choice.loadCase < 1 || choice.loadCase > cases))
    throw Fault(DeckPath() + " ： 荷重ケース " + std::to_string(choice.loadCase) +
                " はありません（荷重ケース数 " + std::to_string(cases) + "）");
  LoadResults(figure.model, choice);
  ChooseFigure(figure, choice);
  return figure;
}

/// Notes whether the user is told something while it lives.
class MessageWatch {
 public:
  MessageWatch() : host_(TheHost()) {
    Host watched = host_;
    watched.message = [this](std::string_view text, std::string_view title) {
      told_ = true;
      host_.message(text, title);
    };
    InstallHost(std::move(watched));
  }
  ~MessageWatch() { InstallHost(std::move(host_)); }
  MessageWatch(const MessageWatch&) = delete;
  MessageWatch& operator=(const MessageWatch&) = delete;
  bool Told() const { return told_; }

 private:
  Host host_;
  bool told_ = false;
};

/// Makes the figure and draws it. False when the user was told that it is none.
template <class Draw>
bool MakeFigure(const SelectedFigure& choice, Draw draw) {
  LoadDisplayOptions();  // what is said of them doesn't make it none
  const MessageWatch watch;
  Figure figure = FigureOfDeck(choice);
  if (!watch.Told()) draw(figure);
  if (!watch.Told()) return true;
  Tell(DeckPath() + " ： 図を出力できませんでした");
  return false;
}

std::optional<std::vector<DrawOperation>> RecordFigureOfDeck(const SelectedFigure& choice) {
  std::vector<DrawOperation> list;
  const bool made =
      MakeFigure(choice, [&](Figure& figure) { list = RecordSheet(SheetOfFigure(choice), 0, figure); });
  if (!made) return std::nullopt;
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

bool DrawFigureOfDeck(PlotTarget& surface, const SelectedFigure& choice) {
  return MakeFigure(choice, [&](Figure& figure) { DrawSheet(surface, SheetOfFigure(choice), 0, figure); });
}

bool WriteFigureList(const SelectedFigure& choice, const std::string& path) {
  const std::optional<std::vector<DrawOperation>> list = RecordFigureOfDeck(choice);
  if (list) WriteDrawingList(path, *list);
  return list.has_value();
}

bool WriteFigureDxf(const SelectedFigure& choice, const std::string& path) {
  const std::optional<std::vector<DrawOperation>> list = RecordFigureOfDeck(choice);
  if (list) ReplaceTextFile(path, DxfOfList(DrawingListText(*list)), Flush::No);
  return list.has_value();
}

}  // namespace zorlan
