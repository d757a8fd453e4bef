#include "desktop/flow_row.h"

#include <algorithm>
#include <QFrame>

namespace zorlan {
namespace {

bool IsSeparator(const QLayoutItem* item) {
  const auto* const frame = qobject_cast<const QFrame*>(item->widget());
  return frame != nullptr && frame->frameShape() == QFrame::VLine;
}

}  // namespace

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
  const auto leaveOut = [&](QLayoutItem* item) {
    if (move) item->setGeometry(QRect(place.topLeft(), QSize(0, item->sizeHint().height())));
  };
  int y = place.y();
  std::vector<QLayoutItem*> line;
  for (auto next = items_.begin(); next != items_.end();) {
    // One line: as many as there is room for, and one at least.
    line.clear();
    for (int width = 0; next != items_.end(); ++next) {
      if ((*next)->isEmpty()) continue;
      if (line.empty() && IsSeparator(*next)) {
        leaveOut(*next);
        continue;
      }
      const int wanted = (*next)->sizeHint().width();
      if (!line.empty() && width + wanted > place.width()) break;
      width += wanted + Gap();
      line.push_back(*next);
    }
    for (; !line.empty() && IsSeparator(line.back()); line.pop_back()) leaveOut(line.back());
    int x = place.x(), height = 0;
    for (const QLayoutItem* const item : line) height = std::max(height, item->sizeHint().height());
    for (QLayoutItem* const item : line) {
      const QSize size = item->sizeHint();
      if (move) item->setGeometry(QRect(QPoint(x, y + (height - size.height()) / 2), size));
      x += size.width() + Gap();
    }
    y += height + (next == items_.end() ? 0 : Gap());
  }
  return y - place.y();
}

}  // namespace zorlan
