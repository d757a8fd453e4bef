#include "desktop/figure_windows.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

#include "base/host.h"
#include "desktop/figure_view.h"
#include "desktop/form.h"
#include "desktop/main_window.h"
#include "desktop/model.h"
#include "desktop/option_dialog.h"
#include "desktop/preview_pages.h"
#include "desktop/prn_text.h"
#include "desktop/selct_lc.h"
#include "desktop/set_limit1.h"
#include "desktop/show_define.h"
#include "graphics/options.h"
#include "model/model_state.h"
#include "shell/commands.h"
#include "shell/settings.h"

namespace zorlan {
namespace {

/// Model and results share a window; each design has its own.
constexpr const char* kWindows[] = {"Model", "ModelS", "ModelRC"};

const char* WindowOf(int kind) {
  if (kind == kSteelRatioFigure) return kWindows[1];
  return kind == kRcRatioFigure ? kWindows[2] : kWindows[0];
}

template <class Act>
void ForEachFigure(MainWindow& window, Act act) {
  for (const char* const name : kWindows)
    if (auto* const figure = qobject_cast<Model*>(window.Forms().Find(name))) act(*figure);
}

frmPrnText* OpenPreview(MainWindow& window) {
  return qobject_cast<frmPrnText*>(window.Forms().Find("frmPrnText"));
}

void RenewPreview(MainWindow& window) {
  if (frmPrnText* const preview = OpenPreview(window)) preview->Renew();
}

void FollowOptions(MainWindow& window) {
  ForEachFigure(window, [](Model& figure) { figure.FollowOptions(); });
  if (frmPrnText* const preview = OpenPreview(window)) preview->FollowOptions();
}

void ShowDefinition(MainWindow& window, const Pick& pick) {
  FormToShow<InpShowDefine> list(window.Forms(), "InpShowDefine",
                                 [] { return std::make_unique<InpShowDefine>(); });
  if (list.IsNew()) list.Show();
  list->Show(pick);
}

std::unique_ptr<Model> NewFigure(MainWindow& window, const char* name) {
  auto figure = std::make_unique<Model>(name);
  QObject::connect(figure.get(), &Model::optionsAsked, &window,
                   [&window](int kind) { OpenOptions(window, OptionSetOf(kind)); });
  QObject::connect(figure.get(), &Model::rangeAsked, &window, [&window] { OpenRange(window); });
  QObject::connect(figure.get(), &Model::pagesAsked, &window,
                   [&window](int kind, int loadCase) { PrintFigure(window, kind, loadCase); });
  QObject::connect(figure.get(), &Model::definitionAsked, &window,
                   [&window](const Pick& pick) { ShowDefinition(window, pick); });
  return figure;
}

FormToShow<Model> FigureToShow(MainWindow& window, const char* name) {
  return FormToShow<Model>(window.Forms(), name, [&] { return NewFigure(window, name); });
}

}  // namespace

void OpenFigure(MainWindow& window, int kind) {
  FigureToShow(window, WindowOf(kind)).Show()->ShowFigure(kind, Model::Asked::Yes);
}

void OpenModelFigure(MainWindow& window) {
  FigureToShow(window, kWindows[0]).Show()->ShowFigure(kModelFigure, Model::Asked::No);
}

void DrawTyped(MainWindow& window, const std::vector<TypedTable>& typed) {
  TypedRows rows;
  for (const TypedTable& table : typed) rows[table.key] = table.rows;
  FormToShow<Model> figure = FigureToShow(window, kWindows[0]);
  if (figure.IsNew()) figure.Show();
  figure->ShowTyped(rows);
  RenewPreview(window);
}

void MarkInFigure(MainWindow& window, std::string_view key, int number) {
  if (auto* const figure = qobject_cast<Model*>(window.Forms().Find(kWindows[0])))
    figure->MarkNumber(key == "NODE" ? Pick::What::Node : Pick::What::Element, number);
}

void FollowMenu(MainWindow& window, const MenuFacts& facts) {
  ForEachFigure(window, [&](Model& figure) { figure.FollowMenu(facts); });
}

void DropFigureData(MainWindow& window) {
  ForEachFigure(window, [](Model& figure) { figure.DropData(Model::Asked::No); });
  RenewPreview(window);
}

FormToShow<frmPrnText> PreviewToShow(MainWindow& window) {
  return FormToShow<frmPrnText>(window.Forms(), "frmPrnText", [&] {
    auto made = std::make_unique<frmPrnText>(window.Printers());
    QObject::connect(made.get(), &frmPrnText::optionsAsked, &window,
                     [&window](int kind) { OpenOptions(window, OptionSetOf(kind)); });
    return made;
  });
}

void OpenOptions(MainWindow& window, OptionSet set) {
  OptionDialog dialog(set, &window);
  QObject::connect(&dialog, &OptionDialog::rangeAsked, &window, [&window] { OpenRange(window); });
  if (dialog.exec() == QDialog::Accepted) FollowOptions(window);
}

void OpenRange(MainWindow& window) {
  if (SetLimit1(DispOption.range, &window).exec() != QDialog::Accepted) return;
  FollowOptions(window);
  try {
    SaveModelOptions();
  } catch (const std::exception& fault) {
    Tell(fault.what());  // the range holds until the program ends
  }
}

namespace {

void ShowPages(MainWindow& window, Figure figure, std::vector<SelectedFigure> figures, int layout,
               std::optional<View> shown) {
  auto pages = std::make_unique<FigurePreview>(std::move(figure), std::move(figures), layout, shown);
  KeepPrintFlag(kPrintFigures);
  FormToShow<frmPrnText> preview = PreviewToShow(window);
  preview->ShowFigures(std::move(pages));
  preview.Show();
}

/// Hands a choice over to the preview. One that can't be kept is told, and shown all the same.
FigureSelection HandOver(const FigureSelection& choice) {
  try {
    HandOverSelection(choice);
    return HandedSelection().value_or(choice);
  } catch (const std::exception& fault) {
    Tell(fault.what());
    RemoveSelection();  // half of it, or an older one
    return choice;
  }
}

/// What a figure's window shows of it; nothing while that is all of it, which a page shows in its own form.
std::optional<View> PartInSight(Model& figure) {
  if (figure.View().IsFitted()) return std::nullopt;
  return figure.View().TheFigure().view;
}

/// The sheets lie this way from now on. What can't be kept is told, and holds until the program ends.
void KeepOrientation(int orientation) {
  if (PrinterSettings.orientation == orientation) return;
  PrinterSettings.orientation = static_cast<std::int16_t>(orientation);
  try {
    PrinterInfo(/*write=*/true);
  } catch (const std::exception& fault) {
    Tell(fault.what());
  }
}

/// Asks which figures go on pages, hands the choice over and shows them: `shown` of each, or all.
void ChoosePages(MainWindow& window, FigureSelection choice, std::optional<View> shown) {
  Figure figure;
  figure.model = ReadFigureTables();
  const int cases = figure.model.maxLoadCase;
  choice = WithinCases(std::move(choice), cases);
  if (frmSelctLC(choice, cases, &window).exec() != QDialog::Accepted) return;
  const FigureSelection handed = HandOver(choice);
  std::vector<SelectedFigure> figures = SelectedFigures(handed);
  if (std::ranges::any_of(figures, NeedsResults) && !LoadFigureResults(figure.model, AnalysisPath)) {
    Tell(kNoFittingResults);
    RemoveSelection();
    return;
  }
  KeepOrientation(handed.orientation);
  ShowPages(window, std::move(figure), std::move(figures), handed.layout, shown);
}

}  // namespace

void PrintFigures(MainWindow& window) {
  ChoosePages(window, KeptBatch(PrinterSettings.orientation), std::nullopt);
}

void PrintFigure(MainWindow& window, int kind, int loadCase) {
  ForEachFigure(window, [&](Model& figure) {
    if (figure.Kind() != kind) return;
    figure.Renew();
    const std::optional<View> shown = PartInSight(figure);
    if (!HasLoadCase(kind)) return ShowPages(window, figure.View().TheFigure(), {{kind, loadCase}}, 0, shown);
    FigureSelection choice;
    choice.batch = false;
    choice.figureKind = kind;
    choice.cases = {loadCase};
    choice.orientation = PrinterSettings.orientation;
    ChoosePages(window, std::move(choice), shown);
  });
}

}  // namespace zorlan
