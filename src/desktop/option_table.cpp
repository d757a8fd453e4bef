#include "desktop/option_table.h"

#include <algorithm>
#include <array>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>

#include "desktop/dialog_buttons.h"
#include "desktop/shown_value.h"
#include "render/qt_colour.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

/// Columns of the table, in the order of the fields.
constexpr std::array kColumns = {OptionPart::Font,   OptionPart::Width,   OptionPart::Style,
                                 OptionPart::Colour, OptionPart::Visible, OptionPart::Mark};

constexpr auto kValue = "value";  // the property that holds a button's field

void ShowColour(QPushButton& button, const QString& field) {
  button.setProperty(kValue, field);
  const std::optional<Rgb> colour = OptionColour(FromQt(field));
  QPixmap swatch(button.iconSize());
  swatch.fill(QtColour(colour.value_or(kBlack)));
  QPainter painter(&swatch);
  painter.setPen(Qt::gray);
  painter.drawRect(swatch.rect().adjusted(0, 0, -1, -1));
  painter.end();
  button.setIcon(QIcon(swatch));
  button.setAccessibleName(field);
}

void AskColour(QPushButton& button) {
  const Rgb old = OptionColour(FromQt(button.property(kValue).toString())).value_or(kBlack);
  const QColor chosen = QColorDialog::getColor(QtColour(old), button.window(), QStringLiteral("色の設定"));
  if (!chosen.isValid()) return;
  ShowColour(button, ToQt(OptionColourText(ColourOf(chosen.red(), chosen.green(), chosen.blue()))));
}

QPushButton* NewColourButton() {
  auto* const button = new QPushButton;
  button->setIconSize(QSize(36, 14));
  button->setToolTip(QStringLiteral("色を選びます"));
  QObject::connect(button, &QPushButton::clicked, button, [button] { AskColour(*button); });
  return button;
}

void ShowFont(QPushButton& button, const QString& field) {
  button.setProperty(kValue, field);
  button.setText(field);
}

/// Asks for the size alone: figures are written in the one face whose columns and boxes fit.
void AskFont(QPushButton& button) {
  const std::optional<OptionFont> old = OptionFontOf(FromQt(button.property(kValue).toString()));
  if (!old) return;
  QDialog dialog(button.window());
  dialog.setObjectName(QStringLiteral("fontSize"));
  dialog.setWindowTitle(QStringLiteral("文字の設定"));
  auto* const size = new QDoubleSpinBox;
  size->setObjectName(QStringLiteral("points"));
  size->setDecimals(1);
  size->setRange(kSmallestOptionFont, kLargestOptionFont);
  size->setSingleStep(0.5);
  size->setValue(old->points);
  size->selectAll();
  ShownValue<double, double> shown;
  shown.Set(old->points, size->value());
  auto* const buttons = OkCancelButtons();
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  auto* const form = new QFormLayout(&dialog);
  form->addRow(ToQt(old->face) + QStringLiteral("の大きさ (pt)"), size);
  form->addRow(buttons);
  if (dialog.exec() != QDialog::Accepted || shown.Untouched(size->value())) return;
  ShowFont(button, ToQt(OptionFontText(old->face, size->value())));
}

QWidget* WidgetOf(OptionPart part, const OptionRow& form) {
  switch (part) {
    case OptionPart::Font: {
      auto* const button = new QPushButton;
      button->setToolTip(QStringLiteral("文字の大きさを選びます"));
      QObject::connect(button, &QPushButton::clicked, button, [button] { AskFont(*button); });
      return button;
    }
    case OptionPart::Colour:
      return NewColourButton();
    case OptionPart::Mark:
      return new QCheckBox(ToQt(form.markCaption));
    default: {
      auto* const box = new QComboBox;
      for (const std::string_view choice : OptionChoices(part)) box->addItem(ToQt(choice));
      return box;
    }
  }
}

void ShowField(QWidget& widget, OptionPart part, const std::string& field) {
  switch (part) {
    case OptionPart::Font:
      return ShowFont(static_cast<QPushButton&>(widget), ToQt(field));
    case OptionPart::Colour:
      return ShowColour(static_cast<QPushButton&>(widget), ToQt(field));
    case OptionPart::Mark:
      return static_cast<QCheckBox&>(widget).setChecked(field == "1");
    default: {
      auto& box = static_cast<QComboBox&>(widget);
      if (box.findText(ToQt(field)) < 0 && !field.empty()) box.addItem(ToQt(field));
      return box.setCurrentIndex(box.findText(ToQt(field)));
    }
  }
}

std::string FieldOf(const QWidget& widget, OptionPart part) {
  switch (part) {
    case OptionPart::Font:
    case OptionPart::Colour:
      return FromQt(widget.property(kValue).toString());
    case OptionPart::Mark:
      return static_cast<const QCheckBox&>(widget).isChecked() ? "1" : "0";
    default:
      return FromQt(static_cast<const QComboBox&>(widget).currentText());
  }
}

/// What stands in front of a row: its name, or the bounds of a ratio class as they count.
QString NameOf(const OptionRow& form, std::string_view row) {
  if (form.parts.front() != OptionPart::Lower) return ToQt(OptionField(row, 1));
  const std::string upper = OptionField(row, 2);
  return ToQt("検定比 " + OptionField(row, 1) + " 以上" + (upper.empty() ? "" : " " + upper + " 未満"));
}

}  // namespace

OptionTable::OptionTable(std::span<const OptionRow> forms) : forms_(forms) {
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(4);
  for (std::size_t c = 0; c < kColumns.size(); ++c) {
    if (kColumns[c] == OptionPart::Mark) continue;  // its captions stand beside it
    auto* const heading = new QLabel(ToQt(OptionHeading(kColumns[c])));
    grid->addWidget(heading, 0, static_cast<int>(c) + 1);
  }
  for (std::size_t r = 0; r < forms_.size(); ++r) AddRow(*grid, static_cast<int>(r) + 1, r, kColumns);
  grid->setColumnStretch(static_cast<int>(kColumns.size()) + 1, 1);
}

void OptionTable::AddRow(QGridLayout& grid, int line, std::size_t row, std::span<const OptionPart> columns) {
  const OptionRow& form = forms_[row];
  names_.push_back(new QLabel);
  names_.back()->setObjectName(QStringLiteral("row%1name").arg(row + 1));
  grid.addWidget(names_.back(), line, 0);
  for (std::size_t n = 0; n < form.parts.size(); ++n) {
    const auto column = std::ranges::find(columns, form.parts[n]);
    const int number = static_cast<int>(n) + 1;
    if (column == columns.end() || !IsOffered(form, number)) continue;
    QWidget* const widget = WidgetOf(form.parts[n], form);
    widget->setObjectName(QStringLiteral("row%1field%2").arg(row + 1).arg(number));
    grid.addWidget(widget, line, static_cast<int>(column - columns.begin()) + 1);
    fields_.push_back({row, number, form.parts[n], widget});
  }
}

void OptionTable::SetRows(std::span<const std::string> rows) {
  rows_.clear();
  for (std::size_t row = 0; row < names_.size(); ++row) {
    rows_.push_back(WrittenOptionRow(forms_[row], rows[row]));
    names_[row]->setText(NameOf(forms_[row], rows_[row]));
  }
  for (const Field& field : fields_)
    ShowField(*field.widget, field.part, OptionField(rows_[field.row], field.number));
}

std::vector<std::string> OptionTable::Rows() const {
  std::vector<std::string> rows = rows_;
  for (const Field& field : fields_) {
    std::vector<std::string> cells = OptionFields(rows[field.row]);
    cells[static_cast<std::size_t>(field.number) - 1] = FieldOf(*field.widget, field.part);
    rows[field.row] = JoinOptionFields(cells);
  }
  return rows;
}

QWidget* MakeColourButton(const char* name) {
  QPushButton* const button = NewColourButton();
  button->setObjectName(QString::fromLatin1(name));
  return button;
}

void SetButtonColour(QWidget& button, Rgb colour) {
  ShowColour(static_cast<QPushButton&>(button), ToQt(OptionColourText(colour)));
}

Rgb ButtonColour(const QWidget& button) {
  return OptionColour(FromQt(button.property(kValue).toString())).value_or(kBlack);
}

}  // namespace zorlan
