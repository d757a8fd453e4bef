// The row check and the commit of a table form.
#include <cmath>

#include "base/cp932.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "forms/table_editor.h"
#include "model/deck_fields.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

constexpr double kMaxKey = 99999;

/// What would not come back from the table's file as it was typed; empty if the cell is sound.
std::string CellFault(const Column& column, std::string_view text) {
  if (text.find_first_of(",%") != std::string_view::npos) return "「,」と「%」は入力できません";
  if (text.empty()) return {};
  if (column.IsNumber()) {
    if (!IsNumberText(text) || !std::isfinite(ReadReal(text))) return column.title + "が数値ではありません";
    const double value = ReadReal(text);
    if (column.mask == kDigits && value != std::floor(value))
      return column.title + "は整数で入力してください";
  }
  if (text.find("          ") != std::string_view::npos) return "空白を１０文字以上続けて入力できません";
  if (const std::string lost = Cp932FromUtf8(text).lost; !lost.empty())
    return "文字 「" + lost + "」 はシフトＪＩＳで表せないため、保存できません";
  return {};
}

bool AgreesTo(const std::string& loss) {
  return TheHost().question(loss + "\n良いですか？", kApplicationTitle, Buttons::YesNo) == Answer::Yes;
}

}  // namespace

std::string_view TableEditor::KeyFault(const RowView& row) const {
  if (form_->keyBlank.empty()) return {};
  if (row.Blank(1)) return form_->keyBlank;
  return row.Real(1) < 1 || row.Real(1) > kMaxKey ? form_->keyRange : std::string_view();
}

std::string TableEditor::TextFault(int column, std::string_view text) const {
  std::string fault = CellFault(ColumnAt(column), text);
  return fault.empty() || foreign_.contains({column, std::string(text)}) ? std::string() : fault;
}

std::optional<RowFault> TableEditor::FaultOf(int page, int row) const {
  if (IsBlank(page, row)) return std::nullopt;
  const RowView view = View(page, row);
  const auto fault = [&](int column, std::string_view message) {
    return RowFault{{page, row, column}, std::string(message)};
  };
  if (const std::string_view message = KeyFault(view); !message.empty()) return fault(1, message);
  for (int column = 1; column <= grid_.Columns(); ++column) {
    for (const RowCheck& check : form_->checks)
      if (check.Tested() == column && Applies(check.when, setting_) && !check.passes(view))
        return fault(check.column, check.message);
    if (const std::string message = TextFault(column, view.Text(column)); !message.empty())
      return fault(column, message);
  }
  return std::nullopt;
}

std::optional<RowFault> TableEditor::ShortRow(int page, int row) const {
  const DeckSection* const section = FindDeckSection(TableKey(*form_));
  if (section == nullptr) return std::nullopt;
  const int wanted = section->minFields - (form_->pages == Pages::None ? 0 : 1);
  const RowView view = View(page, row);
  int used = grid_.Columns();
  while (used > 0 && view.Blank(used)) --used;
  if (used == 0 || used >= wanted) return std::nullopt;
  return RowFault{{page, row, used + 1}, "項目が足りないため、解析では読み飛ばされます"};
}

std::optional<RowFault> TableEditor::NearestFault(const CellPlace& place) const {
  const auto onPage = [&](int page, int from) -> std::optional<RowFault> {
    const int last = LastKeyRow(page);
    for (int away = 0; away <= kGridRows; ++away)
      for (const int row : {from + away, from - away})
        if (row >= 1 && row <= last)
          for (const std::optional<RowFault>& fault : {FaultOf(page, row), ShortRow(page, row)})
            if (fault) return fault;
    return std::nullopt;
  };
  if (const std::optional<RowFault> fault = onPage(place.page, place.row)) return fault;
  for (int page = 1; page <= PageCount(); ++page)
    if (const std::optional<RowFault> fault = onPage(page, 1)) return fault;
  return std::nullopt;
}

std::optional<RowFault> TableEditor::CheckPage(int page, Step& fixes, const ShowPlace& show) {
  const int last = LastKeyRow(page);
  for (int row = 1; row <= last; ++row) {
    if (const std::optional<RowFault> fault = FaultOf(page, row)) return fault;
    const RowView view = View(page, row);
    if (IsBlank(page, row)) continue;
    for (const RowFix& fix : form_->fixes)
      if (fix.applies(view)) Put(fixes, {page, row, fix.column}, std::string(fix.text));
    for (const RowQuestion& question : form_->questions) {
      if (!question.asks(View(page, row))) continue;
      const CellPlace place = {page, row, question.column};
      show(place);
      if (TheHost().question(question.text(View(page, row)), kApplicationTitle, Buttons::YesNo) !=
          Answer::Yes)
        return RowFault{place, {}};
    }
  }
  return std::nullopt;
}

std::optional<CellPlace> TableEditor::KeylessRow() const {
  for (int page = 1; page <= PageCount(); ++page)
    for (int row = LastKeyRow(page) + 1; row <= grid_.LastRow(page); ++row)
      if (!IsBlank(page, row)) return CellPlace{page, row, 1};
  return std::nullopt;
}

std::string TableEditor::RowName(const CellPlace& place) const {
  const std::string page = PageTitle(form_->pages, place.page);
  return (page.empty() ? page : page + " の ") + std::to_string(place.row) + "行目";
}

bool TableEditor::AgreesToShortRows(std::optional<CellPlace>& fault, const ShowPlace& show) const {
  std::optional<RowFault> first;
  int others = -1;
  for (int page = 1; page <= PageCount(); ++page)
    for (int row = 1; row <= LastKeyRow(page); ++row)
      if (const std::optional<RowFault> found = ShortRow(page, row)) {
        if (!first) first = found;
        ++others;
      }
  if (!first) return true;
  show(first->place);
  const std::string more = others > 0 ? "（ほか " + std::to_string(others) + " 行）" : std::string();
  if (AgreesTo(RowName(first->place) + more + "は" + first->message)) return true;
  fault = first->place;
  return false;
}

bool TableEditor::AgreesToLoss(std::optional<CellPlace>& fault, const ShowPlace& show) const {
  if (const std::string unshown = UnshownText(); !unshown.empty())
    if (!AgreesTo(std::string(form_->caption) + "に" + unshown + "。保存すると失われます")) return false;
  if (const std::optional<CellPlace> keyless = KeylessRow()) {
    show(*keyless);
    if (!AgreesTo(RowName(*keyless) + "は" + ColumnAt(1).title + "がないため、保存されません")) {
      fault = keyless;
      return false;
    }
  }
  return AgreesToShortRows(fault, show);
}

CommitEnd TableEditor::Commit(std::optional<CellPlace>& fault, const ShowPlace& show) {
  fault.reset();
  if (!changed_) return CommitEnd::Nothing;
  Step fixes;
  std::optional<RowFault> failed;
  for (int page = 1; page <= PageCount() && !failed; ++page) failed = CheckPage(page, fixes, show);
  Finish(std::move(fixes));
  if (failed) {
    show(failed->place);
    if (!failed->message.empty()) TheHost().message(failed->message + "！！！", form_->caption);
    fault = failed->place;
    return CommitEnd::Refused;
  }
  if (!AgreesToLoss(fault, show)) return CommitEnd::Refused;
  TableRows = Rows();
  TableRowCount = static_cast<int>(TableRows.size());
  TableIO(/*write=*/true, TableKey(*form_));
  ModelChanged = true;
  changed_ = false;
  unshown_ = {};
  return CommitEnd::Written;
}

void TableEditor::RunRedrawStep() const {
  if (form_->dropsListing && !ModelFile.empty()) RemoveFile(ListingPath());
}

}  // namespace zorlan
