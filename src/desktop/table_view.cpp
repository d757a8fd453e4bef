#include "desktop/table_view.h"

#include <algorithm>
#include <QCoreApplication>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QToolTip>
#include <utility>

#include "desktop/cell_box.h"
#include "desktop/ledger_delegate.h"
#include "forms/typing.h"
#include "render/fonts.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr double kPoints = 10.5;
constexpr int kLinePadding = 3;  // pixels above and below a cell's text
constexpr int kMinColumn = 9;    // half-width characters
constexpr int kNameColumn = 20;
constexpr int kShownRows = 20;

}  // namespace

TableView::TableView(const TableEditor& editor, TableModel* model) : editor_(editor), model_(model) {
  setObjectName(QStringLiteral("grid"));
  setFont(FixedFont(kPoints));
  QPalette light = QGuiApplication::palette();
  light.setColor(QPalette::Highlight, Tint(light, 0.28));
  light.setColor(QPalette::HighlightedText, light.color(QPalette::Text));
  setPalette(light);
  setModel(model);
  setItemDelegate(new LedgerDelegate(this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setWordWrap(false);
  setTextElideMode(Qt::ElideRight);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  setTabKeyNavigation(false);  // Tab is a key of the ledger's own
  setCornerButtonEnabled(false);
  corner_ = new QLabel(QStringLiteral("番号"), this);
  corner_->setAlignment(Qt::AlignCenter);
  corner_->setAttribute(Qt::WA_TransparentForMouseEvents);
  typingBox_ = new CellBox(viewport());
  typingBox_->setObjectName(QStringLiteral("InputBox"));
  editBox_ = new CellBox(viewport());
  editBox_->setObjectName(QStringLiteral("InputEditBox"));
  for (CellBox* const box : {typingBox_, editBox_}) {
    connect(box, &CellBox::typed, this, &TableView::typed);
    connect(box, &CellBox::refused, this, &TableView::refused);
    connect(box, &CellBox::left, this, &TableView::CloseBox);
    connect(box, &CellBox::cancelled, this, &TableView::CancelBox);
    connect(box, &CellBox::movesOn, this, &TableView::MoveOn);
    connect(box, &CellBox::textChanged, this, &TableView::PlaceBox);
  }
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &TableView::PlaceBox);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &TableView::PlaceBox);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, &TableView::PlaceBox);
  FitColumns();
  setCurrentIndex(model->index(0, 0));
}

void TableView::FitColumns() {
  const QFontMetricsF metrics(font());
  const double half = metrics.horizontalAdvance(QLatin1Char('0'));
  QHeaderView* const rows = verticalHeader();
  rows->setSectionResizeMode(QHeaderView::Fixed);  // measuring every row would take a second
  rows->setDefaultSectionSize(qRound(metrics.height()) + 2 * kLinePadding);
  rows->setFixedWidth(qRound(6 * half) + 2 * kCellPadding);
  rows->setHighlightSections(true);
  QHeaderView* const header = horizontalHeader();
  header->setSectionResizeMode(QHeaderView::Interactive);
  header->setHighlightSections(true);
  header->setDefaultAlignment(Qt::AlignCenter);
  for (int c = 0; c < model_->columnCount(); ++c) {
    const Column& column = editor_.ColumnAt(c + 1);
    const int usual = column.IsNumber() ? kMinColumn : kNameColumn;
    const int characters = column.fixedWidth ? column.width : std::max(column.width, usual);
    header->resizeSection(c, qRound(characters * half) + 2 * kCellPadding + 2);
  }
}

QSize TableView::sizeHint() const {
  const int width = verticalHeader()->width() + horizontalHeader()->length() +
                    verticalScrollBar()->sizeHint().width() + 2 * frameWidth() + 2;
  const int height = horizontalHeader()->sizeHint().height() +
                     kShownRows * verticalHeader()->defaultSectionSize() + 2 * frameWidth();
  return {std::max(width, 300), height};
}

CellPlace TableView::Current() const {
  return model_->PlaceOf(currentIndex());
}

CellRange TableView::Selected() const {
  const QItemSelection selection = selectionModel()->selection();
  const CellPlace current = Current();
  if (selection.isEmpty()) return RangeBetween(current, current);
  CellRange range = RangeBetween(model_->PlaceOf(selection.first().topLeft()),
                                 model_->PlaceOf(selection.first().bottomRight()));
  for (const QItemSelectionRange& part : selection) {  // one rectangle, told in pieces
    range.top = std::min(range.top, part.top() + 1);
    range.left = std::min(range.left, part.left() + 1);
    range.bottom = std::max(range.bottom, part.bottom() + 1);
    range.right = std::max(range.right, part.right() + 1);
  }
  // Whole columns are their rows in use.
  if (range.top == 1 && range.bottom == kGridRows)
    range.bottom = std::max(editor_.Cells().LastRow(current.page), 1);
  return range;
}

void TableView::GoTo(const CellPlace& place, bool middle) {
  const QModelIndex index = model_->IndexOf(place);
  setCurrentIndex(index);
  if (middle) scrollTo(index, PositionAtCenter);
}

void TableView::Select(const CellRange& range) {
  const QModelIndex first = model_->IndexOf({model_->Page(), range.top, range.left});
  const QModelIndex last = model_->IndexOf({model_->Page(), range.bottom, range.right});
  selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
  selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
}

void TableView::SelectUsedRows() {
  const int last = std::max(editor_.Cells().LastRow(model_->Page()), 1);
  Select({1, 1, last, model_->columnCount()});
}

CellBox* TableView::OpenBox(bool typing) {
  CloseBox();
  const CellPlace place = Current();
  open_ = typing ? typingBox_ : editBox_;
  openAt_ = place;
  open_->setFont(font());
  open_->SetMask(editor_.ColumnAt(place.column).mask);
  open_->SetTyping(typing);
  open_->setText(typing ? QString() : ToQt(editor_.Text(place)));
  open_->setAlignment(editor_.ColumnAt(place.column).right ? Qt::AlignRight : Qt::AlignLeft);
  scrollTo(currentIndex());
  PlaceBox();
  open_->show();
  open_->setFocus();
  open_->end(false);
  return open_;
}

void TableView::PlaceBox() {
  if (open_ == nullptr) return;
  QRect cell = visualRect(model_->IndexOf(openAt_));
  // A box grows with its text, away from the side that the text stands at.
  const int wanted = open_->fontMetrics().horizontalAdvance(open_->text()) + 4 * kCellPadding;
  const bool right = open_->alignment().testFlag(Qt::AlignRight);
  const int room = right ? cell.right() + 1 : viewport()->width() - cell.left();
  const int grown = std::clamp(wanted, cell.width(), std::max(room, cell.width()));
  if (right)
    cell.setLeft(cell.right() + 1 - grown);
  else
    cell.setWidth(grown);
  open_->setGeometry(cell);
}

void TableView::CloseBox() {
  if (open_ == nullptr) return;
  CellBox* const box = std::exchange(open_, nullptr);
  if (box->hasFocus()) setFocus();  // a focused box that hides would pass the focus on
  box->hide();
  if (box->isModified()) emit stored(openAt_, box->text());  // an opened box alone says nothing
}

void TableView::CancelBox() {
  if (open_ == nullptr) return;
  CellBox* const box = std::exchange(open_, nullptr);
  setFocus();
  box->hide();
}

void TableView::MoveOn(QKeyEvent* event) {
  CloseBox();
  keyPressEvent(event);
}

void TableView::Step(int rows, int columns) {
  CellPlace place = Current();
  place.row += rows;
  place.column += columns;
  const int last = model_->columnCount();
  // Tab runs on in the next row.
  if (place.column > last && place.row < kGridRows) place = {place.page, place.row + 1, 1};
  if (place.column < 1 && place.row > 1) place = {place.page, place.row - 1, last};
  place.row = std::clamp(place.row, 1, kGridRows);
  place.column = std::clamp(place.column, 1, last);
  GoTo(place);
}

CellPlace TableView::EdgeOfData(CellPlace from, int rows, int columns) const {
  const int lastRow = std::max({editor_.Cells().LastRow(from.page), from.row, 1});
  const int lastColumn = model_->columnCount();
  const auto next = [&](const CellPlace& at) {
    return CellPlace{at.page, at.row + rows, at.column + columns};
  };
  const auto inside = [&](const CellPlace& at) {
    return at.row >= 1 && at.row <= lastRow && at.column >= 1 && at.column <= lastColumn;
  };
  const auto filled = [&](const CellPlace& at) { return inside(at) && !editor_.Text(at).empty(); };
  const bool inBlock = filled(from) && filled(next(from));
  CellPlace at = from;
  while (inside(next(at))) {
    at = next(at);
    if (inBlock ? !filled(next(at)) : filled(at)) break;
  }
  return at;
}

std::optional<CellPlace> TableView::TargetOf(const QKeyEvent& event) const {
  const CellPlace at = Current();
  const int lastColumn = model_->columnCount();
  const int page = std::max(1, rowAt(viewport()->height() - 1) - rowAt(0));
  const bool jump = event.modifiers().testFlag(Qt::ControlModifier);
  const auto moved = [&](int rows, int columns) {
    if (jump) return EdgeOfData(at, rows, columns);
    return CellPlace{at.page, std::clamp(at.row + rows, 1, kGridRows),
                     std::clamp(at.column + columns, 1, lastColumn)};
  };
  switch (event.key()) {
    case Qt::Key_Up:
      return moved(-1, 0);
    case Qt::Key_Down:
      return moved(1, 0);
    case Qt::Key_Left:
      return moved(0, -1);
    case Qt::Key_Right:
      return moved(0, 1);
    case Qt::Key_Home:
      return CellPlace{at.page, jump ? 1 : at.row, 1};
    case Qt::Key_End:
      return CellPlace{at.page, jump ? std::max(editor_.Cells().LastRow(at.page), 1) : at.row, lastColumn};
    case Qt::Key_PageUp:
      return CellPlace{at.page, std::max(at.row - page, 1), at.column};
    case Qt::Key_PageDown:
      return CellPlace{at.page, std::min(at.row + page, kGridRows), at.column};
    default:
      return std::nullopt;
  }
}

void TableView::Extend(const CellPlace& place) {
  const CellRange range = Selected();
  const CellPlace current = Current();
  // The selection began at the corner across from the cursor.
  const CellPlace start{place.page, current.row == range.top ? range.bottom : range.top,
                        current.column == range.left ? range.right : range.left};
  const CellRange grown = RangeBetween(start, place);
  selectionModel()->setCurrentIndex(model_->IndexOf(place), QItemSelectionModel::NoUpdate);
  selectionModel()->select(QItemSelection(model_->IndexOf({place.page, grown.top, grown.left}),
                                          model_->IndexOf({place.page, grown.bottom, grown.right})),
                           QItemSelectionModel::ClearAndSelect);
  scrollTo(currentIndex());
}

bool TableView::EditsByKey(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_F2:
      OpenBox(/*typing=*/false);
      return true;
    case Qt::Key_Backspace:
      QCoreApplication::sendEvent(OpenBox(/*typing=*/false), event);
      return true;
    case Qt::Key_Delete:
      emit emptied();
      return true;
    default:
      break;
  }
  const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  if (command || event->text().isEmpty() || !event->text().front().isPrint()) return false;
  if (Takes(event->text()))
    QCoreApplication::sendEvent(OpenBox(/*typing=*/true), event);
  else
    emit refused();
  return true;
}

bool TableView::MovesByKey(const QKeyEvent& event) {
  const bool back = event.modifiers().testFlag(Qt::ShiftModifier);
  const int key = event.key();
  const bool page = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
  if (key == Qt::Key_Return || key == Qt::Key_Enter)
    Step(back ? -1 : 1, 0);
  else if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
    Step(0, back || key == Qt::Key_Backtab ? -1 : 1);
  else if (page && event.modifiers().testFlag(Qt::ControlModifier))
    emit pageAsked(key == Qt::Key_PageUp ? -1 : 1);
  else if (const std::optional<CellPlace> target = TargetOf(event); target && back)
    Extend(*target);
  else if (target)
    GoTo(*target);
  else
    return false;
  return true;
}

void TableView::keyPressEvent(QKeyEvent* event) {
  if (MovesByKey(*event) || EditsByKey(event)) return;
  if (event->matches(QKeySequence::SelectAll))
    SelectUsedRows();
  else if (event->key() == Qt::Key_Escape)
    event->ignore();  // the form's
  else
    QTableView::keyPressEvent(event);
}

bool TableView::Takes(const QString& text) const {
  return !FilterTyped(editor_.ColumnAt(Current().column).mask, FromQt(text)).text.empty();
}

void TableView::inputMethodEvent(QInputMethodEvent* event) {
  if (!event->preeditString().isEmpty() || Takes(event->commitString()))
    QCoreApplication::sendEvent(OpenBox(/*typing=*/true), event);
  else if (!event->commitString().isEmpty())
    emit refused();
}

void TableView::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  if (currentIndex().isValid()) OpenBox(/*typing=*/false);
}

void TableView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  CloseBox();  // moving the cell closes the box first
  QTableView::currentChanged(current, previous);
  viewport()->update();  // the tint goes from row to row
  if (current.isValid()) emit movedTo(Current());
}

void TableView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  emit movedTo(Current());
}

void TableView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  corner_->setGeometry(frameWidth(), frameWidth(), verticalHeader()->width(), horizontalHeader()->height());
  PlaceBox();
}

bool TableView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* const help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString text = index.data(Qt::DisplayRole).toString();
    const bool cut = fontMetrics().horizontalAdvance(text) > visualRect(index).width() - 2 * kCellPadding;
    if (index.isValid() && cut) {
      QToolTip::showText(help->globalPos(), text, viewport());
      return true;
    }
  }
  return QTableView::viewportEvent(event);
}

bool TableView::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto* const key = static_cast<QKeyEvent*>(event);
    const bool tab = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
    if (tab && !key->modifiers().testFlag(Qt::ControlModifier)) {
      keyPressEvent(key);
      return true;
    }
  }
  return QTableView::event(event);
}

}  // namespace zorlan
