#include "desktop/flow_row.h"

#include <algorithm>

namespace zorlan {

FlowRow::~FlowRow() {
  for (QLayoutItem* const item : items_) delete item;
}

QLayoutItem* FlowRow::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* FlowRow::takeAt(int index) {
  QLayoutItem* const item = itemAt(index);
  if (item != nullptr) items_.erase(items_.begin() + index);
  return item;
}

int FlowRow::Gap() const {
  return std::max(spacing(), 4);
}

int FlowRow::heightForWidth(int width) const {
  return LayOut(QRect(0, 0, width, 0), /*move=*/false);
}

QSize FlowRow::sizeHint() const {
  int width = 0, height = 0;
  for (const QLayoutItem* const item : items_) {
    if (item->isEmpty()) continue;
    width += item->sizeHint().width() + (width > 0 ? Gap() : 0);
    height = std::max(height, item->sizeHint().height());
  }
  return {width, height};
}

QSize FlowRow::minimumSize() const {
  QSize least;
  for (const QLayoutItem* const item : items_)
    if (!item->isEmpty()) least = least.expandedTo(item->sizeHint());
  return least;
}

void FlowRow::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  LayOut(place, /*move=*/true);
}

int FlowRow::LayOut(const QRect& place, bool move) const {
  int y = place.y();
  for (auto first = items_.begin(); first != items_.end();) {
    // One line: as many as there is room for, and one at least.
    int width = 0, height = 0;
    auto end = first;
    for (; end != items_.end(); ++end) {
      if ((*end)->isEmpty()) continue;
      const QSize size = (*end)->sizeHint();
      if (width > 0 && width + size.width() > place.width()) break;
      width += size.width() + Gap();
      height = std::max(height, size.height());
    }
    int x = place.x();
    for (; first != end; ++first) {
      if ((*first)->isEmpty()) continue;
      const QSize size = (*first)->sizeHint();
      if (move) (*first)->setGeometry(QRect(QPoint(x, y + (height - size.height()) / 2), size));
      x += size.width() + Gap();
    }
    y += height + (end == items_.end() ? 0 : Gap());
  }
  return y - place.y();
}

}  // namespace zorlan
