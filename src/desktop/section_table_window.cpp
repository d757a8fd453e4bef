#include "desktop/section_table_window.h"

#include <algorithm>
#include <exception>
#include <QAction>
#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>

#include "base/host.h"
#include "base/text_file.h"
#include "desktop/cell_box.h"
#include "desktop/dialog_buttons.h"
#include "desktop/main_window.h"
#include "desktop/table_view.h"
#include "forms/typing.h"
#include "output/print_flag.h"
#include "render/qt_text.h"
#include "sections/steel_tables.h"
#include "sections/timber_tables.h"
#include "shell/commands.h"

namespace zorlan {
namespace {

constexpr std::string_view kInsertCopied = "コピーしたセルの行挿入";
constexpr std::string_view kChanged = "データが変更されています";
constexpr std::string_view kDiscard = "破棄されますが、良いですか";
constexpr std::string_view kSave = "保存しますか";
constexpr std::string_view kTemporary = "_$$$", kBackup = "_bak";
constexpr std::string_view kTimberTitle = "木造（トラス） 断面算定用テーブル";

constexpr TableForm SheetForm(std::string_view name, std::string_view caption) {
  TableForm form{};
  form.name = name;
  form.caption = caption;
  return form;
}

/// A window and its sheets.
struct WindowRow {
  TableForm form;  // without a caption of its own the window has the sheet's title
  std::span<const SheetKind> sheets;
};
constexpr SheetKind kSteel[] = {SheetKind::H, SheetKind::Box, SheetKind::Pipe, SheetKind::Channel,
                                SheetKind::Angle};
constexpr SheetKind kTimber[] = {SheetKind::Grades, SheetKind::TimberSections};
constexpr WindowRow kSteelWindow = {SheetForm("frmEditKozaiTable", ""), kSteel};
constexpr WindowRow kTimberWindow = {SheetForm("frmEditMokuzaiTable", kTimberTitle), kTimber};

/// Entries of the grid's own menu; Command::None is "コピーしたセルの行挿入".
constexpr Command kGridEntries[] = {Command::Cut,  Command::Copy,      Command::Paste,
                                    Command::None, Command::InsertRow, Command::DeleteRow};

std::vector<Column> ColumnsOf(const SectionSheet& sheet) {
  std::vector<Column> columns;
  for (const SheetColumn& from : sheet.columns) {
    Column column;
    column.title = from.caption;
    column.unit = from.unit;
    column.width = from.width;
    column.fixedWidth = true;
    column.right = !from.text;
    column.mask = from.text ? kAnyText : kReal;
    columns.push_back(column);
  }
  return columns;
}

/// "Ｈ形鋼 断面性能テーブル" stands on its tab as "Ｈ形鋼", "材種テーブル" as "材種".
QString TabOf(const SectionSheet& sheet) {
  const QString title = ToQt(sheet.title);
  return title.left(title.indexOf(QLatin1Char(' '))).remove(QStringLiteral("テーブル"));
}

}  // namespace

SectionTableWindow::SectionTableWindow(const TableForm& form, std::span<const SheetKind> kinds,
                                       MainWindow& window)
    : Form(std::string(form.name).c_str()), form_(form), window_(window) {
  tabs_ = new QTabBar;
  tabs_->setObjectName(QStringLiteral("tabs"));
  tabs_->setExpanding(false);
  tabs_->setDrawBase(false);
  tabs_->setFocusPolicy(Qt::NoFocus);
  tabs_->setToolTip(QStringLiteral("Ctrl+PageUp / Ctrl+PageDown"));
  for (const SheetKind kind : kinds) {
    Sheet sheet;
    sheet.sheet = SheetOf(kind);
    tabs_->addTab(TabOf(sheet.sheet));
    sheets_.push_back(std::move(sheet));
  }
  pages_ = new QStackedWidget;
  auto* const save = CommandButton("保存", "save", "変更をテーブルのファイルに保存します");
  auto* const insert =
      CommandButton(kInsertCopied, "insertCopied", "コピーしたセルの行数だけ行を挿入して貼り付けます");
  auto* const print = CommandButton("印刷", "print", "表示しているテーブルを印刷します");
  auto* const cancel = CommandButton("キャンセル", "cancel", "変更を破棄して閉じます");
  auto* const row = new QHBoxLayout;
  row->addWidget(tabs_);
  row->addStretch();
  for (QPushButton* const button : {save, insert, print, cancel}) row->addWidget(button);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->setSpacing(4);
  column->addLayout(row);
  column->addWidget(pages_, 1);
  connect(tabs_, &QTabBar::currentChanged, this, &SectionTableWindow::Turn);
  connect(save, &QPushButton::clicked, this, [this] {
    if (Save()) Say(QStringLiteral("保存しました"));
  });
  connect(insert, &QPushButton::clicked, this, [this] { Shown().cells->InsertCopied(); });
  connect(print, &QPushButton::clicked, this, &SectionTableWindow::Print);
  connect(cancel, &QPushButton::clicked, this, &SectionTableWindow::Cancel);
}

SectionTableWindow::~SectionTableWindow() {
  // Before the editors whose cells they show; as children they would go after them.
  for (Sheet& sheet : sheets_) {
    sheet.cells.reset();
    delete sheet.view;
    delete sheet.model;
  }
}

void SectionTableWindow::Read(Sheet& sheet) {
  if (sheet.sheet.steel) LoadSectionTables();  // a supplement is merged into its table first
  const std::string path = SheetPath(sheet.sheet);
  const bool there = FileExists(path);
  sheet.text = ParseSheet(sheet.sheet, there ? ReadBytes(path) : std::string());
  if (!there) sheet.text.notices = "ファイルがありません。保存すると作られます";
  sheet.editor = std::make_unique<TableEditor>(form_, ColumnsOf(sheet.sheet));
  sheet.editor->SetRows(std::move(sheet.text.rows));
  Build(sheet);
}

void SectionTableWindow::Build(Sheet& sheet) {
  sheet.model = new TableModel(*sheet.editor, this);
  sheet.view = new TableView(*sheet.editor, sheet.model);
  sheet.cells = std::make_unique<GridEdit>(*sheet.editor, *sheet.model, *sheet.view,
                                           [this](const QString& text) { Say(text); });
  AddEntries(*sheet.view);
  auto* const notice = new QLabel(ToQt(sheet.text.notices));
  notice->setObjectName(QStringLiteral("notice"));
  notice->setTextFormat(Qt::PlainText);
  notice->setWordWrap(true);
  notice->setVisible(!sheet.text.notices.empty());
  sheet.page = new QWidget;
  auto* const column = new QVBoxLayout(sheet.page);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(notice);
  column->addWidget(sheet.view, 1);
  pages_->addWidget(sheet.page);
  connect(sheet.view, &TableView::stored, this, [this](const CellPlace& place, const QString& text) {
    Shown().editor->SetText(place, FromQt(text));
    Shown().model->ShowChange();
  });
  connect(sheet.view, &TableView::typed, this, [this] { Shown().editor->MarkChanged(); });
  connect(sheet.view, &TableView::refused, this,
          [this] { Say(ToQt(MaskHint(Shown().editor->ColumnAt(View().Current().column).mask))); });
  connect(sheet.view, &TableView::emptied, this, [this] {
    Shown().editor->Clear(1, View().Selected());
    Shown().model->ShowChange();
  });
  connect(sheet.view, &TableView::pageAsked, this, [this](int steps) {
    tabs_->setCurrentIndex(std::clamp(tabs_->currentIndex() + steps, 0, tabs_->count() - 1));
  });
}

void SectionTableWindow::AddEntries(TableView& view) {
  view.setContextMenuPolicy(Qt::ActionsContextMenu);
  for (const Command command : kGridEntries) {
    const bool copied = command == Command::None;
    auto* const entry = new QAction(ToQt(copied ? kInsertCopied : RowOf(command).caption), &view);
    connect(entry, &QAction::triggered, this, [this, command, copied] {
      if (copied)
        Shown().cells->InsertCopied();
      else
        Edit(command);
    });
    view.addAction(entry);
  }
}

TableView& SectionTableWindow::View() {
  return *Shown().view;
}

void SectionTableWindow::ShowSheet(SheetKind kind) {
  const auto wanted = std::ranges::find(sheets_, kind, [](const Sheet& sheet) { return sheet.sheet.kind; });
  if (wanted->editor == nullptr) Read(*wanted);
  if (Shown().view != nullptr) View().CloseBox();
  shown_ = static_cast<std::size_t>(wanted - sheets_.begin());
  pages_->setCurrentWidget(wanted->page);
  const QSignalBlocker quiet(tabs_);
  tabs_->setCurrentIndex(static_cast<int>(shown_));
  setWindowTitle(ToQt(form_.caption.empty() ? std::string_view(wanted->sheet.title) : form_.caption));
  SetFirst(wanted->view);
  wanted->view->setFocus();
  window_.Forms().Fit(this, FormArea::Fitting::Grow);
}

void SectionTableWindow::Turn(int tab) {
  try {
    ShowSheet(sheets_[static_cast<std::size_t>(tab)].sheet.kind);
  } catch (const std::exception& fault) {
    Tell(fault.what());
    const QSignalBlocker quiet(tabs_);
    tabs_->setCurrentIndex(static_cast<int>(shown_));
  }
}

void SectionTableWindow::Walk(const std::optional<CellPlace>& place) {
  Shown().model->ShowChange();
  if (place) View().GoTo(*place);
}

void SectionTableWindow::Edit(Command command) {
  if (CellBox* const box = View().OpenedBox(); box != nullptr) {
    if (command == Command::Paste) return box->PasteText();
    if (command == Command::Cut || command == Command::Copy || command == Command::Undo ||
        command == Command::Redo)
      return Form::Edit(command);
  }
  View().CloseBox();
  if (command == Command::Undo)
    Walk(Shown().editor->Undo());
  else if (command == Command::Redo)
    Walk(Shown().editor->Redo());
  else
    Shown().cells->Do(command);
}

std::vector<SheetRow> SectionTableWindow::RowsOf(const Sheet& sheet) const {
  std::vector<SheetRow> rows;
  for (int row = 1; row <= sheet.editor->Cells().LastRow(1); ++row)
    rows.push_back(sheet.editor->Cells().Row(1, row));
  return rows;
}

bool SectionTableWindow::Changed() const {
  return std::ranges::any_of(
      sheets_, [](const Sheet& sheet) { return sheet.editor != nullptr && sheet.editor->Changed(); });
}

bool SectionTableWindow::Save() {
  View().CloseBox();
  try {
    for (Sheet& sheet : sheets_) {
      if (sheet.editor == nullptr || !sheet.editor->Changed()) continue;
      SheetText text{sheet.text.head, RowsOf(sheet), sheet.text.tail, {}};
      if (const std::optional<SheetFault> fault = FindSheetFault(sheet.sheet, text.rows)) {
        TheHost().message(fault->message, sheet.sheet.title);
        ShowSheet(sheet.sheet.kind);
        sheet.view->GoTo({1, fault->row, fault->column}, /*middle=*/true);
        return false;
      }
      const std::string path = SheetPath(sheet.sheet);
      ReplaceTableFile(path, path + std::string(kTemporary), path + std::string(kBackup),
                       SheetBytes(sheet.sheet, text));
      sheet.editor->MarkSaved();
      if (sheet.sheet.steel)
        ForgetSectionTables();
      else
        ForgetTimberTables();
    }
  } catch (const std::exception& fault) {
    Tell(fault.what());
    return false;
  }
  return true;
}

void SectionTableWindow::Print() {
  View().CloseBox();
  try {
    ReplaceTextFile(PrintFile(kPrintOther), SheetListing(Shown().sheet, RowsOf(Shown())), Flush::No);
    ShowText(kPrintOther, /*preview=*/true);
  } catch (const std::exception& fault) {
    Tell(fault.what());
  }
}

void SectionTableWindow::Cancel() {
  View().CloseBox();
  const std::string question = std::string(kChanged) + "\n" + std::string(kDiscard);
  if (!Changed() || TheHost().question(question, kApplicationTitle, Buttons::YesNo) == Answer::Yes) Unload();
}

bool SectionTableWindow::Commit() {
  View().CloseBox();
  if (!Changed()) return true;
  const std::string question = std::string(kChanged) + "\n" + std::string(kSave);
  switch (TheHost().question(question, kApplicationTitle, Buttons::YesNoCancel)) {
    case Answer::Yes:
      return Save();
    case Answer::No:
      return true;
    default:
      return false;
  }
}

QSize SectionTableWindow::sizeHint() const {
  return Form::sizeHint().expandedTo({640, 480});
}

void OpenSectionTable(MainWindow& window, SheetKind kind) {
  const WindowRow& row = IsSteel(kind) ? kSteelWindow : kTimberWindow;
  FormToShow<SectionTableWindow> form(window.Forms(), std::string(row.form.name), [&] {
    return std::make_unique<SectionTableWindow>(row.form, row.sheets, window);
  });
  form->ShowSheet(kind);
  form.Show();
}

}  // namespace zorlan
