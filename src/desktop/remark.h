// `frmREMARK`: the input help of the table form in front.
#pragma once

#include "desktop/form.h"
#include "forms/help_pages.h"

class QPlainTextEdit;

namespace zorlan {

class frmREMARK : public Form {
  Q_OBJECT
 public:
  frmREMARK();

  void ShowPage(const InputHelp& help);

  /// As large as the page's text.
  QSize sizeHint() const override;

 private:
  QPlainTextEdit* text_;
  int columns_ = 0;
};

/// Opens the help on the page of a form, or turns the open one to it.
void OpenInputHelp(FormArea& forms, const std::string& form);

}  // namespace zorlan
