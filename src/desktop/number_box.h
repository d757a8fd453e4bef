// A text box that takes what a mask lists: keys, pastes and what an input method brings are filtered alike,
// and full-width digits become half-width ones.
#pragma once

#include <QLineEdit>
#include <string_view>

namespace zorlan {

class NumberBox : public QLineEdit {
  Q_OBJECT
 public:
  /// The mask outlives the box.
  explicit NumberBox(std::string_view mask, QWidget* parent = nullptr);
};

}  // namespace zorlan
