#include "desktop/pick_panel.h"

#include <algorithm>
#include <array>
#include <QBoxLayout>
#include <QLabel>

#include "base/cp932.h"
#include "base/text.h"
#include "desktop/figure_view.h"
#include "render/fonts.h"
#include "render/qt_text.h"
#include "shell/figure_pick.h"

namespace zorlan {
namespace {

constexpr double kPoints = 9;
constexpr int kGap = 8;        // pixels to the figure's edge
constexpr double kClear = 24;  // pixels around the picked place

/// Captions on the left, values flush right.
QString FactLines(const std::vector<PickFact>& facts) {
  std::size_t captions = 0, values = 0;
  for (const PickFact& fact : facts) {
    captions = std::max(captions, HalfWidth(fact.caption));
    values = std::max(values, HalfWidth(fact.value));
  }
  QString lines;
  for (const PickFact& fact : facts) {
    if (!lines.isEmpty()) lines += QLatin1Char('\n');
    lines += ToQt(PadRight(fact.caption, captions + 2) + PadLeft(fact.value, values));
  }
  return lines;
}

}  // namespace

PickPanel::PickPanel(FigureView& view) : QFrame(&view), view_(view) {
  setObjectName(QStringLiteral("pickPanel"));
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  heading_ = new QLabel;
  heading_->setObjectName(QStringLiteral("pickHeading"));
  facts_ = new QLabel;
  facts_->setObjectName(QStringLiteral("pickFacts"));
  facts_->setTextFormat(Qt::PlainText);
  facts_->setFont(FixedFont(kPoints));
  for (QLabel* const label : {heading_, facts_}) label->setForegroundRole(QPalette::ToolTipText);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(10, 6, 10, 8);
  column->setSpacing(4);
  column->addWidget(heading_);
  column->addWidget(facts_);
  hide();
  QObject::connect(&view, &FigureView::moved, this, [this] { Place(); });
}

void PickPanel::Show(const std::optional<Pick>& pick) {
  setVisible(pick.has_value());
  if (!pick) return;
  heading_->setText(ToQt(PickHeading(*pick)));
  facts_->setText(FactLines(PickFacts(view_.TheFigure(), *pick)));
  adjustSize();
  Place();
}

void PickPanel::Place() {
  const std::optional<QPointF> picked = view_.MarkedPlace();
  if (!picked || isHidden()) return;
  const int right = std::max(kGap, view_.width() - width() - kGap);
  const int bottom = std::max(kGap, view_.height() - height() - kGap);
  const QRectF clear(*picked - QPointF(kClear, kClear), QSizeF(2 * kClear, 2 * kClear));
  const std::array<QPoint, 3> corners = {QPoint(kGap, bottom), QPoint(right, bottom), QPoint(right, kGap)};
  for (const QPoint& corner : corners) {
    move(corner);
    if (!QRectF(geometry()).intersects(clear)) return;
  }
}

}  // namespace zorlan
