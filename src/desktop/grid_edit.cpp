#include "desktop/grid_edit.h"

#include <QClipboard>
#include <QGuiApplication>

#include "base/number.h"
#include "desktop/table_view.h"
#include "forms/small_forms.h"
#include "forms/table_editor.h"
#include "render/qt_text.h"
#include "shell/windows.h"

namespace zorlan {

bool GridEdit::Do(Command command) {
  view_.CloseBox();
  const int page = model_.Page();
  const CellPlace current = view_.Current();
  const CellRange range = view_.Selected();
  switch (command) {
    case Command::Copy:
      Copy();
      return true;
    case Command::Cut:
      Copy();
      editor_.Clear(page, range);
      break;
    case Command::Paste:
      Paste(/*insert=*/false);
      return true;
    case Command::InsertRow:
      editor_.InsertRow(page, current.row);
      break;
    case Command::DeleteRow:
      editor_.DeleteRows(page, range.top, range.bottom);
      view_.GoTo({page, range.top, current.column});
      break;
    case Command::Add:
    case Command::Assign:
      AskNumber(command == Command::Add);
      break;
    default:
      return false;
  }
  model_.ShowChange();
  return true;
}

void GridEdit::Copy() {
  QGuiApplication::clipboard()->setText(ToQt(editor_.CopyText(model_.Page(), view_.Selected())));
}

void GridEdit::Paste(bool insert) {
  view_.CloseBox();
  const CellRange range = view_.Selected();
  const std::string text = FromQt(QGuiApplication::clipboard()->text());
  if (text.empty()) return;
  const CellPlace place{model_.Page(), range.top, range.left};
  const Pasted pasted = insert ? editor_.InsertCopied(place, text) : editor_.Paste(place, text);
  model_.ShowChange();
  view_.Select(pasted.range);
  if (pasted.lost > 0)
    hint_(QStringLiteral("表の外になる %1 個のデータは貼り付けられませんでした").arg(pasted.lost));
}

void GridEdit::AskNumber(bool add) {
  const std::string answer = TheWindows().addNum(add ? kAddMode : std::string_view());
  if (answer == kCancelled) return;
  if (add)
    editor_.Add(model_.Page(), view_.Selected(), ReadReal(answer));
  else
    editor_.Assign(model_.Page(), view_.Selected(), answer);
}

}  // namespace zorlan
