// The input help as data: a page of text for each table form, which is the short statement of the rules of
// input as well. A page follows the structural model and the input units.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/table_form.h"

namespace zorlan {

/// What the help window shows for a form.
struct InputHelp {
  std::string caption;
  std::vector<std::string> lines;  // none for a form without a page
  int width = 0;                   // of the widest line the window is measured by, in half-width characters
};

/// The page of a form, such as "InpNODE".
InputHelp InputHelpOf(std::string_view form, const FormSetting& setting);

/// What the page of a form says of one of its columns (from 1), lines between LF: the values of a code
/// column, the sign of a load. Empty where the page says nothing of it.
std::string ColumnHelp(std::string_view form, int column, const FormSetting& setting);

}  // namespace zorlan
