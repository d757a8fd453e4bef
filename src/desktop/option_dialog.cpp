#include "desktop/option_dialog.h"

#include <algorithm>
#include <exception>
#include <QBoxLayout>
#include <QFrame>
#include <QPushButton>

#include "base/host.h"
#include "desktop/dialog_buttons.h"
#include "desktop/option_table.h"
#include "desktop/result_options.h"
#include "graphics/frame_figure.h"
#include "graphics/options.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

struct SetWords {
  const char* name;
  const char* caption;
  std::span<const OptionRow> forms;
};

SetWords WordsOf(OptionSet set) {
  switch (set) {
    case OptionSet::Model:
      return {"frmModelOption", "基本表示属性設定", kModelRows};
    case OptionSet::Analysis:
      return {"frmAnalysisOption", "解析結果表示属性設定", kAnalysisRows};
    case OptionSet::Design:
      return {"frmDesignOption", "断面算定表示属性設定", kDesignRows};
  }
  return {};
}

template <class Rows>
void TakeRows(Rows& rows, const std::vector<std::string>& taken) {
  std::copy_n(taken.begin(), std::min(taken.size(), rows.size()), rows.begin());
}

}  // namespace

OptionSet OptionSetOf(int kind) {
  switch (SourceOf(kind)) {
    case FigureSource::Design:
      return OptionSet::Design;
    case FigureSource::Analysis:
      return OptionSet::Analysis;
    default:
      return OptionSet::Model;
  }
}

OptionDialog::OptionDialog(OptionSet set, QWidget* parent) : QDialog(parent), set_(set) {
  const SetWords words = WordsOf(set);
  setObjectName(QString::fromLatin1(words.name));
  setWindowTitle(QString::fromUtf8(words.caption));
  table_ = new OptionTable(words.forms);
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addWidget(table_);
  if (set == OptionSet::Analysis) {
    results_ = new ResultOptions;
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    column->addWidget(line);
    column->addWidget(results_);
  }
  auto* const buttons = OkCancelButtons();
  auto* const reset = buttons->addButton(QStringLiteral("初期化"), QDialogButtonBox::ResetRole);
  reset->setObjectName(QStringLiteral("reset"));
  connect(reset, &QPushButton::clicked, this, &OptionDialog::Reset);
  auto* const range = buttons->addButton(QStringLiteral("表示範囲設定"), QDialogButtonBox::ResetRole);
  range->setObjectName(QStringLiteral("range"));
  connect(range, &QPushButton::clicked, this, &OptionDialog::rangeAsked);
  connect(buttons, &QDialogButtonBox::accepted, this, &OptionDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &OptionDialog::reject);
  column->addSpacing(8);
  column->addWidget(buttons);
  Fill(Source::InForce);
}

void OptionDialog::Fill(Source source) {
  const bool defaults = source == Source::Defaults;
  switch (set_) {
    case OptionSet::Model:
      return table_->SetRows((defaults ? DefaultModelOptions() : DispOption).rows);
    case OptionSet::Design:
      return table_->SetRows((defaults ? DefaultDesignOptions() : DispOptionDesgn).rows);
    case OptionSet::Analysis: {
      const AnalysisOptions options = defaults ? DefaultAnalysisOptions() : DispOptionAna;
      table_->SetRows(options.rows);
      results_->Fill(options);
    }
  }
}

void OptionDialog::Reset() {
  if (TheHost().question(kResetQuestion, kApplicationTitle, Buttons::YesNo) == Answer::Yes)
    Fill(Source::Defaults);
}

void OptionDialog::Store() {
  switch (set_) {
    case OptionSet::Model:
      TakeRows(DispOption.rows, table_->Rows());
      return SaveModelOptions();
    case OptionSet::Design:
      TakeRows(DispOptionDesgn.rows, table_->Rows());
      return SaveDesignOptions();
    case OptionSet::Analysis:
      DispOptionAna = results_->Taken(DispOptionAna);
      TakeRows(DispOptionAna.rows, table_->Rows());
      return SaveAnalysisOptions();
  }
}

void OptionDialog::accept() {
  try {
    Store();
  } catch (const std::exception& fault) {
    Tell(fault.what());  // the settings hold until the program ends
  }
  QDialog::accept();
}

}  // namespace zorlan
