// `SetLimit1`: which part of the model plane the figures show.
#pragma once

#include <array>
#include <QDialog>
#include <QString>

#include "desktop/shown_value.h"
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
  /// A limit of the range and its box.
  struct Limit {
    double ViewingRange::*of = nullptr;
    QLineEdit* box = nullptr;
    ShownValue<double, QString> shown;
  };
  void Fill(const ViewingRange& range);

  ViewingRange& range_;
  std::array<Limit, 4> limits_;  // x lower, upper, y lower, upper
  QRadioButton *bothEnds_, *oneEnd_;
};

}  // namespace zorlan
