#include "desktop/status_fields.h"

#include <algorithm>
#include <QEvent>

#include "desktop/elided_label.h"

namespace zorlan {
namespace {

constexpr int kMargin = 6;  // pixels beside a text
constexpr int kSlack = 6;   // a text may ask for a pixel more once it is shown

}  // namespace

QLabel* StatusFields::Add(const char* name, int rank) {
  auto* const label = new ElidedLabel(this);
  label->setObjectName(QString::fromLatin1(name));
  label->setContentsMargins(kMargin, 0, kMargin, 0);
  fields_.push_back({label, rank});
  return label;
}

void StatusFields::Show(const std::vector<QString>& texts) {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    fields_[i].label->setText(texts[i]);
    fields_[i].label->setVisible(!texts[i].isEmpty());
  }
  updateGeometry();
  LayOut();
}

QSize StatusFields::sizeHint() const {
  QSize size(kSlack, 0);
  for (const Field& field : fields_) {
    if (field.label->isHidden()) continue;
    const QSize wanted = field.label->sizeHint();
    size = {size.width() + wanted.width(), std::max(size.height(), wanted.height())};
  }
  return size;
}

QSize StatusFields::minimumSizeHint() const {
  QSize size;
  for (const Field& field : fields_) {
    if (field.label->isHidden()) continue;
    const QSize least = field.label->minimumSizeHint();
    size = {size.width() + least.width(), std::max(size.height(), least.height())};
  }
  return size;
}

void StatusFields::LayOut() {
  std::vector<Field*> byRank;
  int excess = -width();
  for (Field& field : fields_) {
    field.width = field.label->isHidden() ? 0 : field.label->sizeHint().width();
    excess += field.width;
    byRank.push_back(&field);
  }
  std::ranges::stable_sort(byRank, {}, &Field::rank);
  for (Field* const field : byRank) {
    const int least = field->label->isHidden() ? 0 : field->label->minimumSizeHint().width();
    const int cut = std::clamp(excess, 0, std::max(0, field->width - least));
    field->width -= cut;
    excess -= cut;
  }
  int x = 0;
  for (const Field& field : fields_) {
    field.label->setGeometry(x, 0, field.width, height());
    x += field.width;
  }
}

bool StatusFields::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) {
    updateGeometry();
    LayOut();
  }
  return QWidget::event(event);
}

void StatusFields::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
}

}  // namespace zorlan
