#include "desktop/section_list.h"

#include <algorithm>
#include <QAbstractTableModel>
#include <QBoxLayout>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTableView>

#include "base/cp932.h"
#include "base/text.h"
#include "desktop/own_characters.h"
#include "render/fonts.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr double kPoints = 10.5;
constexpr int kPadding = 12;  // pixels beside a cell's text
constexpr int kRowPadding = 6;
constexpr int kShownRows = 16;

/// The text as it is searched: half width, capitals.
std::string Plain(std::string_view text) {
  return UpperCase(Narrowed(text));
}

/// The keys that come to a list without a choice begin at its first row. (A view that gets the focus makes
/// that row current, and would begin behind it.)
class ChoiceTable : public QTableView {
 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool begins = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (begins && !selectionModel()->hasSelection() && model()->rowCount() > 0)
      selectRow(0);
    else
      QTableView::keyPressEvent(event);
  }
};

}  // namespace

/// The rows of a list that hold the searched text.
class ChoiceModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetList(ChoiceList list) {
    list_ = std::move(list);
    Narrow({});
  }
  void Narrow(std::string_view text) {
    beginResetModel();
    shown_.clear();
    const std::string wanted = Plain(text);
    for (std::size_t i = 0; i < list_.rows.size(); ++i)
      if (wanted.empty() || std::ranges::any_of(list_.rows[i], [&](const std::string& cell) {
            return Plain(cell).find(wanted) != std::string::npos;
          }))
        shown_.push_back(i);
    endResetModel();
  }
  const ChoiceList& List() const { return list_; }
  const std::string& NameAt(int row) const { return list_.names[shown_[static_cast<std::size_t>(row)]]; }
  int RowOf(const std::string& name) const {
    const auto found = std::ranges::find(shown_, name, [&](std::size_t i) { return list_.names[i]; });
    return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(list_.heads.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const auto column = static_cast<std::size_t>(index.column());
    if (role == Qt::DisplayRole)
      return ToQt(list_.rows[shown_[static_cast<std::size_t>(index.row())]][column]);
    if (role == Qt::TextAlignmentRole)
      return QVariant::fromValue(Qt::Alignment(column == 1 ? Qt::AlignLeft : Qt::AlignRight) |
                                 Qt::AlignVCenter);
    return {};
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
      return ToQt(list_.heads[static_cast<std::size_t>(section)]);
    return {};
  }

 private:
  ChoiceList list_;
  std::vector<std::size_t> shown_;
};

SectionList::SectionList(QWidget* parent) : QWidget(parent) {
  search_ = new QLineEdit;
  search_->setObjectName(QStringLiteral("search"));
  KeepOwnCharacters(*search_);
  search_->setPlaceholderText(QStringLiteral("400x200 など"));
  search_->setClearButtonEnabled(true);
  model_ = new ChoiceModel(this);
  table_ = new ChoiceTable;
  table_->setObjectName(QStringLiteral("choices"));
  table_->setFont(FixedFont(kPoints));
  table_->setModel(model_);
  table_->setSelectionBehavior(QTableView::SelectRows);
  table_->setSelectionMode(QTableView::SingleSelection);
  table_->setEditTriggers(QTableView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setDefaultSectionSize(qRound(QFontMetricsF(table_->font()).height()) +
                                                  kRowPadding);
  auto* const row = new QHBoxLayout;
  row->addWidget(new QLabel(QStringLiteral("検索")));
  row->addWidget(search_, 1);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addLayout(row);
  column->addWidget(table_, 1);
  connect(search_, &QLineEdit::textChanged, this, &SectionList::Narrow);
  connect(table_, &QTableView::doubleClicked, this, &SectionList::decided);
  // A row that is but current, because the view got the focus, is nobody's choice.
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (const std::string name = Chosen(); !name.empty()) emit picked(name);
  });
}

void SectionList::ShowChoices(ChoiceList list) {
  const QSignalBlocker quiet(search_);
  search_->clear();
  model_->SetList(std::move(list));
  const QFontMetricsF metrics(table_->font());
  const double half = metrics.horizontalAdvance(QLatin1Char('0'));
  int width = table_->verticalScrollBar()->sizeHint().width() + 2 * table_->frameWidth();
  for (int c = 0; c < model_->columnCount(); ++c) {
    const std::string& head = model_->List().heads[static_cast<std::size_t>(c)];
    const std::size_t columns =
        c == 1 ? std::max(HalfWidth(head), HalfWidth(model_->List().widest)) : HalfWidth(head);
    table_->setColumnWidth(c, qRound(static_cast<double>(columns) * half) + kPadding);
    width += table_->columnWidth(c);
  }
  table_->setMinimumSize(width, table_->verticalHeader()->defaultSectionSize() * kShownRows);
}

void SectionList::GoTo(const std::string& name) {
  const QSignalBlocker quiet(this);
  const int row = model_->RowOf(name);
  table_->setCurrentIndex(row < 0 ? QModelIndex() : model_->index(row, 0));
  if (row >= 0) table_->scrollTo(model_->index(row, 0), QTableView::PositionAtCenter);
}

std::string SectionList::Chosen() const {
  const QModelIndexList rows = table_->selectionModel()->selectedRows();
  return rows.isEmpty() ? std::string() : model_->NameAt(rows.front().row());
}

void SectionList::Narrow(const QString& text) {
  const std::string chosen = Chosen();
  model_->Narrow(FromQt(text));
  if (!chosen.empty()) GoTo(chosen);
}

}  // namespace zorlan
