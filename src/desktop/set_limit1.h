// `SetLimit1`: which part of the model plane the figures show.
#pragma once

#include <QDialog>

#include "graphics/view.h"

class QLineEdit;
class QRadioButton;

namespace zorlan {

class SetLimit1 : public QDialog {
  Q_OBJECT
 public:
  /// Edits the range; an empty box is no limit. `range` is changed by "ＯＫ" alone.
  SetLimit1(ViewingRange& range, QWidget* parent);

  void accept() override;

 private:
  void Fill(const ViewingRange& range);

  ViewingRange& range_;
  QLineEdit *xLower_, *xUpper_, *yLower_, *yUpper_;
  QRadioButton *bothEnds_, *oneEnd_;
};

}  // namespace zorlan
