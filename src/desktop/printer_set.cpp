#include "desktop/printer_set.h"

#include <exception>
#include <initializer_list>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>

#include "base/host.h"
#include "desktop/dialog_buttons.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr const char* kPapers[] = {"A4", "A3", "B4", "A1"};
constexpr int kLastPageNumber = 32767;

struct Choice {
  const char* caption;
  std::int16_t value;
};

/// A row of radio buttons.
QButtonGroup* AddChoices(QFormLayout& rows, const char* title, std::initializer_list<Choice> choices,
                         std::int16_t current, QObject* owner) {
  auto* const group = new QButtonGroup(owner);
  auto* const row = new QHBoxLayout;
  for (const Choice& choice : choices) {
    auto* const button = new QRadioButton(QString::fromUtf8(choice.caption));
    button->setObjectName(QString::fromUtf8(choice.caption));
    group->addButton(button, choice.value);
    row->addWidget(button);
  }
  row->addStretch();
  QAbstractButton* const checked = group->button(current);
  (checked != nullptr ? checked : group->button(choices.begin()->value))->setChecked(true);
  rows.addRow(QString::fromUtf8(title), row);
  return group;
}

/// Makes a text the current item, as one of its own if the list lacks it.
void Choose(QComboBox& box, const QString& text) {
  if (!text.isEmpty() && box.findText(text) < 0) box.addItem(text);
  box.setCurrentIndex(box.findText(text));
}

}  // namespace

frmPrinterSet::frmPrinterSet(const SystemPrinters& printers, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmPrinterSet"));
  setWindowTitle(QStringLiteral("プリンタの設定"));
  rows_ = new QFormLayout;
  printer_ = new QComboBox;
  printer_->setObjectName(QStringLiteral("printer"));
  for (const std::string& name : printers.installed) printer_->addItem(ToQt(name));
  Choose(*printer_, ToQt(PrinterSettings.name));
  if (printer_->count() == 0) {
    printer_->setPlaceholderText(QStringLiteral("プリンタがありません"));
    printer_->setEnabled(false);
  }
  printer_->setMinimumWidth(260);
  rows_->addRow(QStringLiteral("プリンタ名"), printer_);
  paper_ = new QComboBox;
  paper_->setObjectName(QStringLiteral("paper"));
  for (const char* const paper : kPapers) paper_->addItem(QString::fromLatin1(paper));
  Choose(*paper_, ToQt(PrinterSettings.paper));
  rows_->addRow(QStringLiteral("用紙"), paper_);
  orientation_ = AddChoices(*rows_, "印刷の向き", {{"縦", kPortrait}, {"横", kLandscape}},
                            PrinterSettings.orientation, this);
  colour_ = AddChoices(*rows_, "色", {{"カラー", kColour}, {"モノクロ", kMonochrome}},
                       PrinterSettings.colourMode, this);
  duplex_ = new QComboBox;
  duplex_->setObjectName(QStringLiteral("duplex"));
  duplex_->addItem(QStringLiteral("片面"), kOneSide);
  duplex_->addItem(QStringLiteral("両面（長辺とじ）"), kLongEdge);
  duplex_->addItem(QStringLiteral("両面（短辺とじ）"), kShortEdge);
  duplex_->setCurrentIndex(std::max(0, duplex_->findData(PrinterSettings.duplex)));
  rows_->addRow(QStringLiteral("両面印刷"), duplex_);

  auto* const buttons = OkCancelButtons();
  connect(buttons, &QDialogButtonBox::accepted, this, &frmPrinterSet::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &frmPrinterSet::reject);
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addLayout(rows_);
  column->addSpacing(8);
  column->addWidget(buttons);
}

PrinterRec frmPrinterSet::Values() const {
  PrinterRec values = PrinterSettings;
  if (printer_->isEnabled()) values.name = FromQt(printer_->currentText());
  values.paper = FromQt(paper_->currentText());
  values.orientation = static_cast<std::int16_t>(orientation_->checkedId());
  values.colourMode = static_cast<std::int16_t>(colour_->checkedId());
  values.duplex = static_cast<std::int16_t>(duplex_->currentData().toInt());
  return values;
}

void frmPrinterSet::accept() {
  PrinterSettings = Values();
  try {
    PrinterInfo(/*write=*/true);
  } catch (const std::exception& fault) {
    Tell(fault.what());  // the settings hold until the program ends
  }
  QDialog::accept();
}

frmPrinterSet2::frmPrinterSet2(const SystemPrinters& printers, QWidget* parent)
    : frmPrinterSet(printers, parent) {
  setObjectName(QStringLiteral("frmPrinterSet2"));
  pageNumbers_ = new QCheckBox(QStringLiteral("印刷する"));
  pageNumbers_->setObjectName(QStringLiteral("pageNumbers"));
  pageNumbers_->setChecked(PrinterSettings.pageNumbers != kNoPageNumbers);
  firstPage_ = new QSpinBox;
  firstPage_->setObjectName(QStringLiteral("firstPage"));
  firstPage_->setRange(0, kLastPageNumber);
  firstPage_->setValue(PrinterSettings.firstPage);
  firstPage_->setEnabled(pageNumbers_->isChecked());
  connect(pageNumbers_, &QCheckBox::toggled, firstPage_, &QWidget::setEnabled);
  auto* const numbers = new QHBoxLayout;
  numbers->addWidget(pageNumbers_);
  numbers->addSpacing(16);
  numbers->addWidget(new QLabel(QStringLiteral("開始頁番号")));
  numbers->addWidget(firstPage_);
  numbers->addStretch();
  rows_->addRow(QStringLiteral("ページ印刷"), numbers);
  reduction_ = AddChoices(*rows_, "縮小印刷", {{"100%", kFullSize}, {"50%", kHalfSize}},
                          PrinterSettings.reduction, this);
}

PrinterRec frmPrinterSet2::Values() const {
  PrinterRec values = frmPrinterSet::Values();
  values.pageNumbers = pageNumbers_->isChecked() ? kPageNumbers : kNoPageNumbers;
  values.firstPage = static_cast<std::int16_t>(firstPage_->value());
  values.reduction = static_cast<std::int16_t>(reduction_->checkedId());
  return values;
}

}  // namespace zorlan
