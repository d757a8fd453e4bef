#include "desktop/selct_lc.h"

#include <algorithm>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "base/host.h"
#include "desktop/dialog_buttons.h"
#include "graphics/view.h"
#include "render/qt_text.h"
#include "shell/settings.h"

namespace zorlan {
namespace {

constexpr const char* kLayoutHints[] = {"１ページに１つ", "左右に２つ", "上下に２つ",
                                        "左右に３つ",     "上下に３つ", "左右と上下に４つ"};
constexpr QSize kSketch(30, 30);

/// A sketch of the cells of a layout on a sheet.
QIcon LayoutIcon(int layout, double ratio) {
  QPixmap sketch(kSketch * ratio);
  sketch.setDevicePixelRatio(ratio);
  sketch.fill(Qt::transparent);
  QPainter painter(&sketch);
  painter.setPen(QColor(0x5b, 0x67, 0x73));
  painter.setBrush(Qt::white);
  const QRectF sheet(3.5, 3.5, kSketch.width() - 8, kSketch.height() - 8);
  for (int cell = 0; cell < CellCount(layout); ++cell) {
    const Cell place = CellOf(layout, cell, sheet.width(), sheet.height());
    painter.drawRect(QRectF(sheet.left() + place.x, sheet.top() + place.y, place.width, place.height));
  }
  return QIcon(sketch);
}

}  // namespace

frmSelctLC::frmSelctLC(FigureSelection& choice, int cases, QWidget* parent)
    : QDialog(parent), choice_(choice) {
  setObjectName(QStringLiteral("frmSelctLC"));
  setWindowTitle(choice.batch ? ToQt(kBatchCaption) : QStringLiteral("図の印刷"));
  auto* const types = new QHBoxLayout;
  for (int kind = 1; kind <= static_cast<int>(kBatchTypes.size()); ++kind)
    if (choice.batch || choice.figureKind == kind) types->addWidget(MakeType(kind, cases));
  auto* const buttons = OkCancelButtons();
  connect(buttons, &QDialogButtonBox::accepted, this, &frmSelctLC::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &frmSelctLC::reject);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(types, 1);
  column->addWidget(MakePageChoices());
  column->addSpacing(4);
  column->addWidget(buttons);
}

QWidget* frmSelctLC::MakeType(int kind, int cases) {
  const auto place = static_cast<std::size_t>(kind - 1);
  const QString name = ToQt(kBatchTypes[place]);
  const std::vector<int>& selected = choice_.batch ? choice_.types[place].cases : choice_.cases;
  auto* const box = new QWidget;
  auto* const column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  TypeWidgets& widgets = types_[place];
  if (choice_.batch) {
    widgets.chosen = new QCheckBox(name);
    widgets.chosen->setObjectName(QStringLiteral("type%1").arg(kind));
    widgets.chosen->setChecked(choice_.types[place].checked);
    column->addWidget(widgets.chosen);
  } else {
    column->addWidget(new QLabel(name));
  }
  column->addWidget(new QLabel(ToQt(kBatchCaseList)));
  widgets.cases = new QListWidget;
  widgets.cases->setObjectName(QStringLiteral("cases%1").arg(kind));
  widgets.cases->setSelectionMode(QAbstractItemView::MultiSelection);
  widgets.cases->setMinimumSize(96, 150);
  for (int c = 1; c <= cases; ++c) {
    auto* const item = new QListWidgetItem(QString::number(c), widgets.cases);
    item->setSelected(std::ranges::find(selected, c) != selected.end());
  }
  column->addWidget(widgets.cases, 1);
  auto* const all = new QPushButton(ToQt(kBatchSelectAll));
  all->setObjectName(QStringLiteral("all%1").arg(kind));
  auto* const none = new QPushButton(ToQt(kBatchClearAll));
  none->setObjectName(QStringLiteral("none%1").arg(kind));
  for (QPushButton* const button : {all, none}) {
    button->setAutoDefault(false);
    column->addWidget(button);
  }
  connect(all, &QPushButton::clicked, widgets.cases, &QListWidget::selectAll);
  connect(none, &QPushButton::clicked, widgets.cases, &QListWidget::clearSelection);
  if (widgets.chosen != nullptr) {
    // Who chooses cases wants their figure.
    connect(widgets.cases, &QListWidget::itemSelectionChanged, widgets.chosen,
            [widgets] { widgets.chosen->setChecked(!widgets.cases->selectedItems().isEmpty()); });
  }
  return box;
}

QWidget* frmSelctLC::MakePageChoices() {
  auto* const box = new QWidget;
  auto* const row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(new QLabel(QStringLiteral("配置")));
  layouts_ = new QButtonGroup(this);
  for (int layout = 0; layout < kLayouts; ++layout) {
    auto* const button = new QToolButton;
    button->setObjectName(QStringLiteral("layout%1").arg(layout));
    button->setToolTip(QString::fromUtf8(kLayoutHints[layout]));
    button->setIcon(LayoutIcon(layout, devicePixelRatioF()));
    button->setIconSize(kSketch);
    button->setCheckable(true);
    layouts_->addButton(button, layout);
    row->addWidget(button);
  }
  QAbstractButton* const chosen = layouts_->button(choice_.layout);
  (chosen != nullptr ? chosen : layouts_->button(0))->setChecked(true);
  row->addSpacing(16);
  row->addWidget(new QLabel(QStringLiteral("印刷の向き")));
  orientation_ = new QButtonGroup(this);
  const auto addOrientation = [&](const char* caption, int value) {
    auto* const button = new QRadioButton(QString::fromUtf8(caption));
    button->setObjectName(QString::fromUtf8(caption));
    orientation_->addButton(button, value);
    button->setChecked(choice_.orientation == value);
    row->addWidget(button);
  };
  addOrientation("縦", kPortrait);
  addOrientation("横", kLandscape);
  if (orientation_->checkedId() < 0) orientation_->button(kPortrait)->setChecked(true);
  row->addStretch();
  return box;
}

FigureSelection frmSelctLC::Taken() const {
  FigureSelection choice = choice_;
  choice.layout = layouts_->checkedId();
  choice.orientation = orientation_->checkedId();
  for (std::size_t k = 0; k < types_.size(); ++k) {
    const TypeWidgets& widgets = types_[k];
    if (widgets.cases == nullptr) continue;
    std::vector<int> cases;
    for (int row = 0; row < widgets.cases->count(); ++row)
      if (widgets.cases->item(row)->isSelected()) cases.push_back(row + 1);
    if (choice.batch)
      choice.types[k] = {widgets.chosen->isChecked(), cases};
    else
      choice.cases = cases;
  }
  return choice;
}

void frmSelctLC::accept() {
  const FigureSelection choice = Taken();
  if (const std::optional<std::string_view> fault = SelectionFault(choice)) {
    TheHost().message(*fault, kCannotPrintTitle);
    return;
  }
  choice_ = choice;
  QDialog::accept();
}

}  // namespace zorlan
