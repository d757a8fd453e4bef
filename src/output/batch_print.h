// Which figures go to the preview: the batch print of several figure types and cases, or the figure in hand
// with several cases. The choice travels in SelctLC.Txt, and that of a batch is kept in AllPrnSet.txt, both
// in the program's folder (AppPath): comma-separated quoted values,
//
//   "-1"                 a batch; or the type of the figure in hand
//   layout               0 to 5
//   orientation          1 portrait, 2 landscape
//   of a batch for every figure type: its number 1 to 5, -1 or 0, the count of cases, the cases
//   of a single figure: the cases
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// How a sheet lies, as the settings files have it.
inline constexpr std::int16_t kPortrait = 1, kLandscape = 2;

/// The figure types of a batch in their order; the number of a type, from 1, is its FigureKind.
inline constexpr std::array<std::string_view, 5> kBatchTypes = {"荷重チェック図", "変位図", "軸力図",
                                                                "せん断力図", "モーメント図"};

// What the window says.
inline constexpr std::string_view kBatchCaption = "一括印刷";
inline constexpr std::string_view kBatchCaseList = "荷重ケース", kBatchSelectAll = "全選択",
                                  kBatchClearAll = "全解除";
inline constexpr std::string_view kCannotPrintTitle = "印刷不可";
inline constexpr std::string_view kNoTypeAndCase =
                                      "プレビューする図面タイプの荷重ケースを選択してください！！！",
                                  kNoCase = "プレビューする荷重ケースを選択してください！！！";

/// A figure type's part in a batch.
struct BatchType {
  bool checked = false;
  std::vector<int> cases;  // load cases, from 1
  bool operator==(const BatchType&) const = default;
};

struct FigureSelection {
  bool batch = true;
  int layout = 0;
  int orientation = kPortrait;
  std::array<BatchType, kBatchTypes.size()> types;  // of a batch

  int figureKind = 0;      // of a single figure: its FigureKind
  std::vector<int> cases;  // its cases
  bool operator==(const FigureSelection&) const = default;
};

/// Why a choice can't be shown, for a box titled kCannotPrintTitle; nothing when it can: some case of a
/// checked type, or of a single figure some case where its kind has cases.
std::optional<std::string_view> SelectionFault(const FigureSelection& selection);

/// The choice without the load cases that the model doesn't have.
FigureSelection WithinCases(FigureSelection selection, int maxLoadCase);

std::string SelectionText(const FigureSelection& selection);
/// Total: what is missing, cut off or no number of its kind is as in `blank`, and cases are left out.
FigureSelection ParseSelection(std::string_view text, const FigureSelection& blank = {});

/// Hands a choice over to the preview; that of a batch is kept for the next time. Throws FileFault.
void HandOverSelection(const FigureSelection& selection);
/// The choice handed over; nothing without one that can be read.
std::optional<FigureSelection> HandedSelection();
/// Removes it: when the preview closes.
void RemoveSelection();
/// The batch kept; without one that can be read all types are off, on sheets of this orientation.
FigureSelection KeptBatch(int orientation);

/// A figure of a choice.
struct SelectedFigure {
  int kind = 0;      // FigureKind
  int loadCase = 1;  // 1 where the kind has no cases
  bool operator==(const SelectedFigure&) const = default;
};

/// The figures of a choice in their order; they fill the cells of the pages one after another.
std::vector<SelectedFigure> SelectedFigures(const FigureSelection& selection);

}  // namespace zorlan
