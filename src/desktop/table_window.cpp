#include "desktop/table_window.h"

#include <algorithm>
#include <exception>
#include <QAction>
#include <QBoxLayout>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>

#include "base/host.h"
#include "base/number.h"
#include "desktop/cell_box.h"
#include "desktop/dialog_buttons.h"
#include "desktop/main_window.h"
#include "forms/typing.h"
#include "render/qt_text.h"
#include "shell/projects.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

/// The entries of the grid's context menu.
constexpr Command kGridEntries[] = {Command::Cut,       Command::Copy, Command::Paste, Command::InsertRow,
                                    Command::DeleteRow, Command::Add,  Command::Assign};

TableWindow* OpenWindowOf(MainWindow& window, std::string_view name) {
  return qobject_cast<TableWindow*>(window.Forms().Find(std::string(name)));
}

}  // namespace

TableWindow::TableWindow(const TableForm& form, MainWindow& window)
    : Form(std::string(form.name).c_str()), window_(window), editor_(form, CurrentFormSetting()) {
  editor_.Load();
  setWindowTitle(ToQt(form.caption));
  Build();
  Connect();
  ShowTabs();
}

TableWindow::~TableWindow() {
  window_.statusBar()->clearMessage();  // it explains a cell of this form
  // Before the editor whose cells they show; as children they would go after it.
  cells_.reset();
  delete view_;
  delete model_;
}

QLayout* TableWindow::ButtonRow() {
  auto* const row = new QHBoxLayout;
  auto* const redraw = CommandButton(
      "再描画", "redraw", "入力中のデータと、カーソル行の節点や要素を、モデル図に表示します (Ctrl+R)");
  connect(redraw, &QPushButton::clicked, this, &TableWindow::ShowInFigure);
  row->addWidget(redraw);
  if (editor_.Form().name == "InpSECT") {
    auto* const section =
        CommandButton("断面性能入力", "sectionEntry", "カーソル行の断面を表から選びます (F4)");
    connect(section, &QPushButton::clicked, this, &TableWindow::EnterSection);
    row->addWidget(section);
  }
  if (editor_.Form().pages == Pages::Groups) {
    groups_ = new QSpinBox;
    groups_->setObjectName(QStringLiteral("groups"));
    groups_->setRange(1, kMaxGroups);
    groups_->setKeyboardTracking(false);
    groups_->setToolTip(QStringLiteral("同一変形グループの数を入力します (Ctrl+G)"));
    row->addSpacing(12);
    row->addWidget(new QLabel(QStringLiteral("グループ数")));
    row->addWidget(groups_);
  }
  row->addStretch();
  return row;
}

void TableWindow::Build() {
  model_ = new TableModel(editor_, this);
  view_ = new TableView(editor_, model_);
  cells_ = std::make_unique<GridEdit>(editor_, *model_, *view_, [this](const QString& text) { Say(text); });
  view_->setContextMenuPolicy(Qt::ActionsContextMenu);
  for (const Command command : kGridEntries) {
    auto* const entry = new QAction(ToQt(RowOf(command).caption), view_);
    connect(entry, &QAction::triggered, this, [this, command] { Edit(command); });
    view_->addAction(entry);
  }
  notice_ = new QLabel(ToQt(editor_.UnshownText()));
  notice_->setObjectName(QStringLiteral("notice"));
  notice_->setWordWrap(true);
  notice_->setVisible(!notice_->text().isEmpty());
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->setSpacing(4);
  column->addLayout(ButtonRow());
  column->addWidget(notice_);
  if (editor_.Form().pages != Pages::None) {
    tabs_ = new QTabBar;
    tabs_->setObjectName(QStringLiteral("tabs"));
    tabs_->setExpanding(false);
    tabs_->setDrawBase(false);
    tabs_->setFocusPolicy(Qt::NoFocus);
    tabs_->setToolTip(QStringLiteral("Ctrl+PageUp / Ctrl+PageDown"));
    column->addWidget(tabs_);
  }
  column->addWidget(view_, 1);
  SetFirst(view_);
}

void TableWindow::Connect() {
  connect(view_, &TableView::stored, this, &TableWindow::Store);
  connect(view_, &TableView::typed, this, [this] {
    editor_.MarkChanged();
    NoteEdit();
  });
  connect(model_, &TableModel::dataChanged, this, &TableWindow::NoteEdit);
  connect(view_, &TableView::refused, this,
          [this] { Say(ToQt(MaskHint(editor_.ColumnAt(view_->Current().column).mask))); });
  connect(view_, &TableView::movedTo, this, &TableWindow::Explain);
  connect(view_, &TableView::emptied, this, [this] {
    editor_.Clear(model_->Page(), view_->Selected());
    ShowAll();
  });
  connect(view_, &TableView::pageAsked, this, [this](int steps) {
    const int page = model_->Page() + steps;
    if (page >= 1 && page <= editor_.PageCount()) ShowPage(page);
  });
  if (tabs_ != nullptr)
    connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) { ShowPage(tab + 1); });
  if (groups_ != nullptr) connect(groups_, &QSpinBox::valueChanged, this, &TableWindow::SetGroups);
  const auto key = [this](const QKeySequence& keys, auto action) {
    auto* const shortcut = new QShortcut(keys, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, action);
  };
  key(Qt::CTRL | Qt::Key_R, &TableWindow::ShowInFigure);
  if (editor_.Form().name == "InpSECT") key(Qt::Key_F4, &TableWindow::EnterSection);
  if (groups_ != nullptr)
    key(Qt::CTRL | Qt::Key_G, [this] {
      groups_->setFocus();
      groups_->selectAll();
    });
}

void TableWindow::ShowTabs() {
  const int pages = editor_.PageCount();
  places_.resize(static_cast<std::size_t>(pages));
  if (tabs_ == nullptr) return;
  const QSignalBlocker quiet(tabs_);
  const bool shown = tabs_->isVisible();
  tabs_->hide();  // a visible bar would lay itself out for every tab
  while (tabs_->count() > pages) tabs_->removeTab(tabs_->count() - 1);
  while (tabs_->count() < pages) tabs_->addTab(ToQt(PageTitle(editor_.Form().pages, tabs_->count() + 1)));
  tabs_->setCurrentIndex(std::min(model_->Page(), pages) - 1);
  tabs_->setVisible(shown || !isVisible());
  if (groups_ == nullptr) return;
  const QSignalBlocker still(groups_);
  groups_->setValue(pages);
}

void TableWindow::ShowPage(int page) {
  view_->CloseBox();
  const auto old = static_cast<std::size_t>(model_->Page() - 1);
  if (old < places_.size()) places_[old] = view_->Current();
  model_->ShowPage(page);
  if (tabs_ != nullptr) {
    const QSignalBlocker quiet(tabs_);
    tabs_->setCurrentIndex(page - 1);
  }
  const CellPlace place = places_[static_cast<std::size_t>(page - 1)];
  view_->GoTo({page, place.row, place.column});
}

void TableWindow::ShowAll() {
  if (editor_.PageCount() != static_cast<int>(places_.size())) {
    ShowTabs();
    if (model_->Page() > editor_.PageCount()) ShowPage(editor_.PageCount());
  }
  model_->ShowChange();
}

void TableWindow::GoTo(const CellPlace& place, bool middle) {
  if (place.page != model_->Page()) ShowPage(place.page);
  view_->GoTo(place, middle);
}

void TableWindow::Walk(std::optional<CellPlace> place) {
  ShowAll();
  if (!place) return;
  place->page = std::min(place->page, editor_.PageCount());
  place->column = std::min(place->column, model_->columnCount());
  GoTo(*place, /*middle=*/false);
}

void TableWindow::Store(const CellPlace& place, const QString& text) {
  editor_.SetText(place, FromQt(text));
  model_->ShowChange();
}

void TableWindow::Explain(const CellPlace& place) {
  const std::string tip =
      TipLine(CellTip(editor_.Form(), editor_.Setting(), place.column, editor_.View(place.page, place.row)));
  // A number that needs no words: what may be typed there.
  window_.statusBar()->showMessage(
      ToQt(tip.empty() ? MaskHint(editor_.ColumnAt(place.column).mask) : std::string_view(tip)));
}

void TableWindow::Edit(Command command) {
  if (CellBox* const box = view_->OpenedBox(); box != nullptr && command == Command::Paste)
    return box->PasteText();
  const bool text = qobject_cast<QLineEdit*>(focusWidget()) != nullptr;
  if (text && (command == Command::Cut || command == Command::Copy || command == Command::Paste ||
               command == Command::Undo || command == Command::Redo))
    return Form::Edit(command);
  view_->CloseBox();
  switch (command) {
    case Command::Undo:
      return Walk(editor_.Undo());
    case Command::Redo:
      return Walk(editor_.Redo());
    case Command::FindFault:
      return FindFault();
    default:
      cells_->Do(command);
  }
}

void TableWindow::EnterSection() {
  view_->CloseBox();
  const int row = view_->Current().row;
  GridRow cells = editor_.Cells().Row(model_->Page(), row);
  cells.resize(editor_.Columns().size());
  if (!TheWindows().sectionEntry(cells)) return;
  editor_.SetRow(model_->Page(), row, cells);
  ShowAll();
}

void TableWindow::SetGroups(int count) {
  view_->CloseBox();
  editor_.SetPageCount(count);
  ShowAll();
}

void TableWindow::FindFault() {
  const std::optional<RowFault> fault = editor_.NearestFault(view_->Current());
  if (!fault) return Say(QStringLiteral("誤りのある行はありません"));
  GoTo(fault->place, /*middle=*/true);
  Say(ToQt(fault->message));
}

void TableWindow::RunRedrawStep() {
  try {
    editor_.RunRedrawStep();
  } catch (const std::exception& fault) {
    Tell(fault.what());
  }
  if (editor_.Form().dropsListing) LookAtListing();
}

void TableWindow::Redraw() {
  view_->CloseBox();
  RunRedrawStep();
  std::vector<TypedTable> tables = {{TableKey(editor_.Form()), editor_.Rows()}};
  if (editor_.Form().name == "InpELEM")
    if (TableWindow* const nodes = OpenWindowOf(window_, "InpNODE"))
      tables.push_back({"NODE", nodes->editor_.Rows()});
  TheWindows().drawTyped(tables);
  TheWindows().refresh();
}

void TableWindow::ShowInFigure() {
  Redraw();
  Form* const figure = window_.Forms().Find("Model");
  if (figure == nullptr) return;
  const bool beside = window_.Forms().ShowBeside(figure, this);
  const CellPlace at = view_->Current();
  const int number = ReadInt16(editor_.View(at.page, at.row).Text(1)).value_or(0);
  const std::string_view key = editor_.Form().keyBlank;  // the word for what the rows are of
  for (const std::string_view table : {"NODE", "ELEM"})
    if (key == FindTableForm("Inp" + std::string(table))->keyBlank) TheWindows().markInFigure(table, number);
  if (!beside) Say(QStringLiteral("モデル図は、この表の後ろにあります (Ctrl+Tab)"));
}

void TableWindow::RedrawCommitted() {
  RunRedrawStep();
  std::vector<TypedTable> tables;
  if (editor_.Form().name == "InpELEM")  // its ends may be nodes that are only typed yet
    if (TableWindow* const nodes = OpenWindowOf(window_, "InpNODE"); nodes != nullptr && nodes->IsChanged())
      tables.push_back({"NODE", nodes->editor_.Rows()});
  TheWindows().refresh();
  try {
    TheWindows().drawTyped(tables);
  } catch (const std::exception& fault) {
    Tell(fault.what());  // the table stands; a figure that can't be drawn doesn't hold the form
  }
}

bool TableWindow::Commit() {
  view_->CloseBox();
  std::optional<CellPlace> place;
  try {
    const CommitEnd end =
        editor_.Commit(place, [this](const CellPlace& fault) { GoTo(fault, /*middle=*/true); });
    if (end == CommitEnd::Written) RedrawCommitted();
    if (end != CommitEnd::Refused) return true;
  } catch (const std::exception& fault) {
    Tell(fault.what());
    return false;
  }
  model_->ShowChange();
  if (place) GoTo(*place, /*middle=*/true);
  view_->setFocus();
  return false;
}

void TableWindow::Follow() {
  view_->CloseBox();
  std::string fault;
  try {
    editor_.Follow(CurrentFormSetting());
  } catch (const std::exception& unread) {
    fault = unread.what();
  }
  const CellPlace place = view_->Current();
  model_->ShowHeader();
  view_->FitColumns();
  ShowAll();
  notice_->setText(ToQt(editor_.UnshownText()));
  notice_->setVisible(!notice_->text().isEmpty());
  Walk(place);
  if (!fault.empty()) Tell(fault);  // once the grid has its columns: the box lets it be painted
}

bool TableWindow::GoToNumber(int page, int number) {
  view_->CloseBox();
  for (int p = 1; p <= editor_.PageCount(); ++p)
    for (int row = 1; (page == 0 || page == p) && row <= editor_.LastKeyRow(p); ++row)
      if (!editor_.View(p, row).Blank(1) && editor_.View(p, row).Real(1) == number) {
        GoTo({p, row, 1}, /*middle=*/true);
        return true;
      }
  return false;
}

bool TableWindow::TakeNodes(const std::vector<int>& nodes) {
  view_->CloseBox();
  if (editor_.Form().name == "InpELEM") {
    const CellPlace place = editor_.TakeNodes(view_->Current(), nodes);
    ShowAll();
    GoTo(place, /*middle=*/false);
    return true;
  }
  return editor_.Form().name == "InpNODE" && !nodes.empty() && GoToNumber(0, nodes.back());
}

bool TableWindow::TakeElement(int number) {
  view_->CloseBox();
  if (editor_.Form().name == "InpELEM") return GoToNumber(0, number);
  if (editor_.Form().keyBlank != FindTableForm("InpELEM")->keyBlank) return false;  // no table of members
  const CellPlace at = view_->Current();
  editor_.SetText({at.page, at.row, 1}, std::to_string(number));
  ShowAll();
  GoTo({at.page, std::min(at.row + 1, kGridRows), 1}, /*middle=*/false);
  return true;
}

QSize TableWindow::sizeHint() const {
  return Form::sizeHint().expandedTo({320, 320});
}

TableWindow* OpenTableWindow(MainWindow& window, std::string_view name) {
  return FormToShow<TableWindow>(window.Forms(), std::string(name),
                                 [&] { return std::make_unique<TableWindow>(*FindTableForm(name), window); })
      .Show();
}

void FollowControl(MainWindow& window) {
  for (const std::string& name : window.Forms().Names())
    if (TableWindow* const form = OpenWindowOf(window, name)) form->Follow();
}

TableWindow* TableInFront(MainWindow& window) {
  const QList<QMdiSubWindow*> frames = window.Forms().subWindowList(QMdiArea::StackingOrder);
  for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame)
    if (auto* const form = qobject_cast<TableWindow*>((*frame)->widget())) return form;
  return nullptr;
}

bool TakePickedNodes(MainWindow& window, const std::vector<int>& nodes) {
  TableWindow* const form = TableInFront(window);
  return form != nullptr && form->TakeNodes(nodes);
}

bool TakePickedElement(MainWindow& window, int element) {
  TableWindow* const form = TableInFront(window);
  return form != nullptr && form->TakeElement(element);
}

bool ShowTableRow(MainWindow& window, std::string_view key, int page, int number) {
  const TableForm* const form = FindTableForm("Inp" + std::string(key));
  return form != nullptr && OpenTableWindow(window, form->name)->GoToNumber(page, number);
}

}  // namespace zorlan
