// The fields at the right of the status bar.
#pragma once

#include <QWidget>
#include <vector>

class QLabel;

namespace zorlan {

/// Texts in a row. Where there is less room than they ask for, those of the least rank are cut first, and the
/// others only when these have shrunk to a few characters.
class StatusFields : public QWidget {
 public:
  using QWidget::QWidget;

  QLabel* Add(const char* name, int rank);
  /// Shows the texts, in the order of the labels; an empty one takes no room.
  void Show(const std::vector<QString>& texts);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;  // a label that asks for another size
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Field {
    QLabel* label;
    int rank;
    int width = 0;
  };
  void LayOut();

  std::vector<Field> fields_;
};

}  // namespace zorlan
