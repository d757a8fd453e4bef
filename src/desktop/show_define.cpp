#include "desktop/show_define.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QTableWidget>
#include <QTabWidget>

#include "model/model_state.h"
#include "render/fonts.h"
#include "render/qt_text.h"
#include "shell/figure_pick.h"

namespace zorlan {
namespace {

constexpr double kPoints = 10;
constexpr int kRowRoom = 8;  // pixels

QTableWidget* List(const char* name) {
  auto* const list = new QTableWidget(0, 2);
  list->setObjectName(QString::fromLatin1(name));
  list->setHorizontalHeaderLabels({QStringLiteral("項目"), QStringLiteral("値")});
  list->verticalHeader()->hide();
  list->horizontalHeader()->setStretchLastSection(true);
  list->horizontalHeader()->setHighlightSections(false);
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list->setSelectionBehavior(QAbstractItemView::SelectRows);
  list->setFont(FixedFont(kPoints));
  list->verticalHeader()->setDefaultSectionSize(list->fontMetrics().height() + kRowRoom);
  return list;
}

void Fill(QTableWidget& list, const std::vector<PickFact>& facts) {
  list.setRowCount(static_cast<int>(facts.size()));
  for (int row = 0; row < list.rowCount(); ++row) {
    const PickFact& fact = facts[static_cast<std::size_t>(row)];
    list.setItem(row, 0, new QTableWidgetItem(ToQt(fact.caption)));
    auto* const value = new QTableWidgetItem(ToQt(fact.value));
    value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    list.setItem(row, 1, value);
  }
  list.resizeColumnToContents(0);
}

}  // namespace

InpShowDefine::InpShowDefine() : Form("InpShowDefine") {
  setWindowTitle(QStringLiteral("定義"));
  node_ = List("node");
  element_ = List("element");
  pages_ = new QTabWidget;
  pages_->addTab(node_, QStringLiteral("節点情報"));
  pages_->addTab(element_, QStringLiteral("要素情報"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->addWidget(pages_);
  SetFirst(pages_);
}

void InpShowDefine::Show(const Pick& pick) {
  const bool isNode = pick.what == Pick::What::Node;
  (isNode ? nodeNumber_ : elementNumber_) = pick.number;
  pages_->setCurrentWidget(isNode ? node_ : element_);
  Renew();
}

void InpShowDefine::Renew() {
  RefreshInpModel();
  if (nodeNumber_) Fill(*node_, NodeDefinition(InpModel, *nodeNumber_));
  if (elementNumber_) Fill(*element_, ElementDefinition(InpModel, *elementNumber_));
}

}  // namespace zorlan
