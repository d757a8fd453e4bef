// `AddNum`: the small dialog that asks for a number, to be added to the selected cells or put into them.
#pragma once

#include <QDialog>
#include <string>
#include <string_view>

namespace zorlan {

class NumberBox;

class AddNum : public QDialog {
  Q_OBJECT
 public:
  /// `mode` is "Add", or empty for putting the number in.
  AddNum(std::string_view mode, QWidget* parent);

  /// What the dialog answers: the number's text, or "Abote" once it was cancelled.
  std::string Answer() const;

 private:
  NumberBox* number_;
};

/// Shows the dialog and answers for it.
std::string AskNumber(std::string_view mode, QWidget* parent);

}  // namespace zorlan
