#include "desktop/set_limit1.h"

#include <cmath>
#include <optional>
#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "base/host.h"
#include "base/number.h"
#include "base/number_format.h"
#include "desktop/dialog_buttons.h"
#include "desktop/number_box.h"
#include "forms/table_form.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

/// A limit as the boxes show it: six digits before and behind the point.
QString LimitText(double limit) {
  constexpr NumberPattern kLimit = "######.######";
  if (std::abs(limit) >= kExtentStart) return {};
  std::string text = FormatNumber(limit, kLimit);
  if (text.ends_with('.')) text.pop_back();
  return text.empty() || text == "-" ? QStringLiteral("0") : ToQt(text);
}

/// The limit in a box, `none` of an empty one; nothing while it holds but a part of a number, or one without
/// end.
std::optional<double> LimitOf(const QLineEdit& box, double none) {
  const std::string text = FromQt(box.text().trimmed());
  if (text.empty()) return none;
  const double limit = ReadReal(text);
  return IsNumberText(text) && std::isfinite(limit) ? std::optional(limit) : std::nullopt;
}

QLineEdit* Box(const char* name) {
  auto* const box = new NumberBox(kReal);
  box->setObjectName(QString::fromLatin1(name));
  box->setAlignment(Qt::AlignRight);
  box->setPlaceholderText(QStringLiteral("制限なし"));
  box->setMinimumWidth(120);
  return box;
}

}  // namespace

SetLimit1::SetLimit1(ViewingRange& range, QWidget* parent) : QDialog(parent), range_(range) {
  setObjectName(QStringLiteral("SetLimit1"));
  setWindowTitle(QStringLiteral("表示範囲設定"));
  limits_ = {{{&ViewingRange::xLower, Box("xLower"), {}},
              {&ViewingRange::xUpper, Box("xUpper"), {}},
              {&ViewingRange::yLower, Box("yLower"), {}},
              {&ViewingRange::yUpper, Box("yUpper"), {}}}};
  bothEnds_ = new QRadioButton(QStringLiteral("線分が全て範囲内の時表示"));
  bothEnds_->setObjectName(QStringLiteral("bothEnds"));
  oneEnd_ = new QRadioButton(QStringLiteral("線分の片側節点が範囲内の時表示"));
  oneEnd_->setObjectName(QStringLiteral("oneEnd"));

  auto* const grid = new QGridLayout;
  grid->addWidget(new QLabel(QStringLiteral("下限(m)")), 0, 1);
  grid->addWidget(new QLabel(QStringLiteral("上限(m)")), 0, 3);
  const auto addRow = [grid](int row, const QString& caption, QLineEdit* lower, QLineEdit* upper) {
    grid->addWidget(new QLabel(caption), row, 0);
    grid->addWidget(lower, row, 1);
    grid->addWidget(new QLabel(QStringLiteral("～")), row, 2);
    grid->addWidget(upper, row, 3);
  };
  addRow(1, QStringLiteral("Ｘ座標"), limits_[0].box, limits_[1].box);
  addRow(2, QStringLiteral("Ｙ座標"), limits_[2].box, limits_[3].box);
  auto* const buttons = OkCancelButtons();
  auto* const none = buttons->addButton(QStringLiteral("制限なし"), QDialogButtonBox::ResetRole);
  none->setObjectName(QStringLiteral("none"));
  none->setToolTip(QStringLiteral("全ての節点を表示します"));
  connect(none, &QPushButton::clicked, this, [this] { Fill(ViewingRange()); });
  connect(buttons, &QDialogButtonBox::accepted, this, &SetLimit1::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &SetLimit1::reject);
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addLayout(grid);
  column->addSpacing(6);
  column->addWidget(bothEnds_);
  column->addWidget(oneEnd_);
  column->addSpacing(8);
  column->addWidget(buttons);
  Fill(range);
}

void SetLimit1::Fill(const ViewingRange& range) {
  for (Limit& limit : limits_) {
    limit.box->setText(LimitText(range.*limit.of));
    limit.shown.Set(range.*limit.of, limit.box->text());
  }
  (range.mode == RangeMode::OneEnd ? oneEnd_ : bothEnds_)->setChecked(true);
}

void SetLimit1::accept() {
  ViewingRange range;
  for (const Limit& limit : limits_) {
    std::optional<double> taken = limit.shown.Untouched(limit.box->text());
    if (!taken) taken = LimitOf(*limit.box, range.*limit.of);
    if (!taken) {
      Tell("「" + FromQt(limit.box->text()) + "」 は数値ではありません");
      limit.box->setFocus();
      limit.box->selectAll();
      return;
    }
    range.*limit.of = *taken;
  }
  range.mode = oneEnd_->isChecked() ? RangeMode::OneEnd : RangeMode::BothEnds;
  const bool crossed = range.xLower > range.xUpper || range.yLower > range.yUpper;
  if (crossed) {
    Tell("表示範囲の下限が上限を超えています");
    limits_[range.xLower > range.xUpper ? 0 : 2].box->setFocus();
    return;
  }
  range_ = range;
  QDialog::accept();
}

}  // namespace zorlan
