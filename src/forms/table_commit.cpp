// The row check and the commit of a table form.
#include <cmath>

#include "base/cp932.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "forms/table_editor.h"
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

std::optional<RowFault> TableEditor::NearestFault(const CellPlace& place) const {
  const auto onPage = [&](int page, int from) -> std::optional<RowFault> {
    const int last = LastKeyRow(page);
    for (int away = 0; away <= kGridRows; ++away)
      for (const int row : {from + away, from - away})
        if (row >= 1 && row <= last)
          if (const std::optional<RowFault> fault = FaultOf(page, row)) return fault;
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

bool TableEditor::AgreesToLoss(std::optional<CellPlace>& fault, const ShowPlace& show) const {
  const auto agrees = [](const std::string& text) {
    return TheHost().question(text + "\n良いですか？", kApplicationTitle, Buttons::YesNo) == Answer::Yes;
  };
  if (const std::string unshown = UnshownText(); !unshown.empty())
    if (!agrees(std::string(form_->caption) + "に" + unshown + "。保存すると失われます")) return false;
  if (const std::optional<CellPlace> keyless = KeylessRow()) {
    show(*keyless);
    const std::string page = PageTitle(form_->pages, keyless->page);
    const std::string where = (page.empty() ? page : page + " の ") + std::to_string(keyless->row) + "行目";
    if (!agrees(where + "は" + ColumnAt(1).title + "がないため、保存されません")) {
      fault = keyless;
      return false;
    }
  }
  return true;
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
