// A line of text that may be given less room than it asks for: its end is left out then, and its tool tip has
// all of it.
#pragma once

#include <QLabel>

namespace zorlan {

class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool IsCut() const;
};

}  // namespace zorlan
