// The rows of a display option set as a table of widgets.
#pragma once

#include <QWidget>
#include <span>
#include <string>
#include <vector>

#include "graphics/option_rows.h"

class QGridLayout;
class QLabel;

namespace zorlan {

class OptionTable : public QWidget {
 public:
  explicit OptionTable(std::span<const OptionRow> forms);

  /// A row a form; the fields are shown, and answered, in the form in which they are written.
  void SetRows(std::span<const std::string> rows);
  /// The rows as the widgets say; fields that aren't offered are as they were set.
  std::vector<std::string> Rows() const;

 private:
  struct Field {
    std::size_t row = 0;
    int number = 0;  // of the field, from 1
    OptionPart part = OptionPart::Name;
    QWidget* widget = nullptr;
  };
  void AddRow(QGridLayout& grid, int line, std::size_t row, std::span<const OptionPart> columns);

  std::span<const OptionRow> forms_;
  std::vector<std::string> rows_;
  std::vector<Field> fields_;
  std::vector<QLabel*> names_;  // of the rows
};

/// A button of a colour of its own, for values outside of the rows.
QWidget* MakeColourButton(const char* name);
void SetButtonColour(QWidget& button, Rgb colour);
Rgb ButtonColour(const QWidget& button);

}  // namespace zorlan
