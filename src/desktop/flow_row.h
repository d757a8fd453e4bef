// A row of widgets that goes on in the next line where it is longer than its window is wide. A separator that
// would begin or end a line is left out.
#pragma once

#include <QLayout>
#include <vector>

namespace zorlan {

class FlowRow : public QLayout {
 public:
  using QLayout::QLayout;
  ~FlowRow() override;

  void addItem(QLayoutItem* item) override { items_.push_back(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  /// All in one line.
  QSize sizeHint() const override;
  /// As wide as the widest.
  QSize minimumSize() const override;
  void setGeometry(const QRect& place) override;

 private:
  /// Lays the items out in a place of this width, and moves them there if told so; the height.
  int LayOut(const QRect& place, bool move) const;
  int Gap() const;

  std::vector<QLayoutItem*> items_;
};

}  // namespace zorlan
