#include "output/batch_print.h"

#include <algorithm>

#include "base/delimited.h"
#include "base/fault.h"
#include "base/number.h"
#include "base/settings_file.h"
#include "base/text.h"
#include "base/text_file.h"
#include "graphics/figure_kinds.h"
#include "graphics/view.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

constexpr std::string_view kHandedFile = "SelctLC.Txt", kKeptFile = "AllPrnSet.txt";
constexpr int kBatchMark = -1, kChecked = -1;

std::string PathOf(std::string_view file) {
  return AppPath + std::string(file);
}

/// A line of quoted values.
void AppendLine(std::string& text, const std::vector<int>& values) {
  for (std::size_t k = 0; k < values.size(); ++k)
    text.append(k == 0 ? "" : ",").append(Quoted(std::to_string(values[k])));
  text.append(kLineEnd);
}

/// Whole numbers in sequence; nothing behind the last, and for what is no number.
class Numbers {
 public:
  explicit Numbers(std::string_view text) : items_(DelimitedItems(text)) {}
  bool AtEnd() const { return next_ >= items_.size(); }
  std::optional<int> Take() {
    if (AtEnd()) return std::nullopt;
    const std::string& item = items_[next_++];
    return ReadFinite(item) ? ReadInt16(item) : std::nullopt;
  }

 private:
  std::vector<std::string> items_;
  std::size_t next_ = 0;
};

/// A number within limits, or what it was.
void TakeWithin(Numbers& numbers, int lowest, int highest, int& value) {
  const std::optional<int> read = numbers.Take();
  if (read && *read >= lowest && *read <= highest) value = *read;
}

void TakeCase(Numbers& numbers, std::vector<int>& cases) {
  const std::optional<int> read = numbers.Take();
  if (read && *read >= 1 && *read <= kMaxLoadCases &&
      std::find(cases.begin(), cases.end(), *read) == cases.end())
    cases.push_back(*read);
}

void TakeTypes(Numbers& numbers, FigureSelection& selection) {
  for (std::size_t k = 0; k < kBatchTypes.size() && !numbers.AtEnd(); ++k) {
    const std::optional<int> number = numbers.Take(), checked = numbers.Take(), count = numbers.Take();
    if (!number || *number < 1 || *number > static_cast<int>(kBatchTypes.size()) || !count) return;
    BatchType& type = selection.types[static_cast<std::size_t>(*number) - 1];
    type.checked = checked == kChecked;
    for (int n = 0; n < *count && !numbers.AtEnd(); ++n) TakeCase(numbers, type.cases);
  }
}

}  // namespace

std::optional<std::string_view> SelectionFault(const FigureSelection& selection) {
  if (!selection.batch) {
    if (HasLoadCase(selection.figureKind) && selection.cases.empty()) return kNoCase;
    return std::nullopt;
  }
  const bool any = std::any_of(selection.types.begin(), selection.types.end(),
                               [](const BatchType& type) { return type.checked && !type.cases.empty(); });
  if (any) return std::nullopt;
  return kNoTypeAndCase;
}

FigureSelection WithinCases(FigureSelection selection, int maxLoadCase) {
  const auto beyond = [&](int loadCase) { return loadCase > maxLoadCase; };
  std::erase_if(selection.cases, beyond);
  for (BatchType& type : selection.types) std::erase_if(type.cases, beyond);
  return selection;
}

std::string SelectionText(const FigureSelection& selection) {
  std::string text;
  AppendLine(text, {selection.batch ? kBatchMark : selection.figureKind});
  AppendLine(text, {selection.layout});
  AppendLine(text, {selection.orientation});
  if (!selection.batch) {
    AppendLine(text, selection.cases);
    return text;
  }
  int number = 0;
  for (const BatchType& type : selection.types) {
    std::vector<int> values = {++number, type.checked ? kChecked : 0, static_cast<int>(type.cases.size())};
    values.insert(values.end(), type.cases.begin(), type.cases.end());
    AppendLine(text, values);
  }
  return text;
}

FigureSelection ParseSelection(std::string_view text, const FigureSelection& blank) {
  FigureSelection selection = blank;
  Numbers numbers(text);
  int first = kBatchMark;
  TakeWithin(numbers, kBatchMark, kRcRatioFigure, first);
  TakeWithin(numbers, 0, kLayouts - 1, selection.layout);
  TakeWithin(numbers, kPortrait, kLandscape, selection.orientation);
  selection.batch = first == kBatchMark;
  if (selection.batch) {
    TakeTypes(numbers, selection);
  } else {
    selection.figureKind = first;
    while (!numbers.AtEnd()) TakeCase(numbers, selection.cases);
  }
  return selection;
}

void HandOverSelection(const FigureSelection& selection) {
  ReplaceTextFile(PathOf(kHandedFile), SelectionText(selection), Flush::No);
  if (selection.batch) CopyFileOver(PathOf(kHandedFile), PathOf(kKeptFile));
}

std::optional<FigureSelection> HandedSelection() {
  const std::optional<std::string> text = ReadSettingsFile(PathOf(kHandedFile));
  if (!text) return std::nullopt;
  return ParseSelection(*text);
}

void RemoveSelection() {
  try {
    RemoveFile(PathOf(kHandedFile));
  } catch (const Fault&) {
    // The next choice replaces it.
  }
}

FigureSelection KeptBatch(int orientation) {
  FigureSelection blank;
  blank.orientation = orientation;
  const FigureSelection selection = ParseSelection(ReadSettingsFile(PathOf(kKeptFile)).value_or(""), blank);
  return selection.batch ? selection : blank;
}

std::vector<SelectedFigure> SelectedFigures(const FigureSelection& selection) {
  std::vector<SelectedFigure> figures;
  if (selection.batch) {
    for (std::size_t k = 0; k < selection.types.size(); ++k)
      for (const int loadCase : selection.types[k].cases)
        if (selection.types[k].checked) figures.push_back({static_cast<int>(k) + 1, loadCase});
  } else if (HasLoadCase(selection.figureKind)) {
    for (const int loadCase : selection.cases) figures.push_back({selection.figureKind, loadCase});
  } else {
    figures.push_back({selection.figureKind, 1});
  }
  return figures;
}

}  // namespace zorlan
