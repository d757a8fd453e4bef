#include "desktop/result_options.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>

#include "desktop/option_table.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

/// The diagrams in the order of the rows here, and where height and digits are kept. Displacements have no
/// labels.
struct DiagramRow {
  const char* caption;
  const char* name;
  float AnalysisOptions::*height;
  std::string AnalysisOptions::*decimals;  // null: none of its own
};
constexpr std::array kDiagrams = {
    DiagramRow{"変位", "Displacement", &AnalysisOptions::HeightDisplacement, nullptr},
    DiagramRow{"軸力", "Normal", &AnalysisOptions::HeightNormal, &AnalysisOptions::DecimalsNormal},
    DiagramRow{"せん断力", "Shear", &AnalysisOptions::HeightShear, &AnalysisOptions::DecimalsShear},
    DiagramRow{"ﾓｰﾒﾝﾄ", "Moment", &AnalysisOptions::HeightMoment, &AnalysisOptions::DecimalsMoment},
};

}  // namespace

ResultOptions::ResultOptions() {
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(4);
  grid->addWidget(new QLabel(QStringLiteral("図の最大の高さ(cm)")), 0, 1);
  grid->addWidget(new QLabel(QStringLiteral("小数点以下の桁数")), 0, 2);
  std::size_t digits = 0;
  for (std::size_t r = 0; r < kDiagrams.size(); ++r) {
    const int line = static_cast<int>(r) + 1;
    grid->addWidget(new QLabel(QString::fromUtf8(kDiagrams[r].caption)), line, 0);
    auto* const height = heights_[r] = new QDoubleSpinBox;
    height->setObjectName(QStringLiteral("height") + QLatin1String(kDiagrams[r].name));
    height->setRange(0, double{kLargestDiagramHeight});
    height->setSingleStep(0.1);
    height->setDecimals(2);
    grid->addWidget(height, line, 1);
    if (kDiagrams[r].decimals == nullptr) continue;
    auto* const decimals = decimals_[digits++] = new QComboBox;
    decimals->setObjectName(QStringLiteral("decimals") + QLatin1String(kDiagrams[r].name));
    for (int d = 0; d <= kMostDiagramDecimals; ++d) decimals->addItem(QString::number(d));
    grid->addWidget(decimals, line, 2);
  }
  tension_ = MakeColourButton("tension");
  compression_ = MakeColourButton("compression");
  grid->addWidget(new QLabel(QStringLiteral("軸力図の色　引張")), 1, 3);
  grid->addWidget(tension_, 1, 4);
  grid->addWidget(new QLabel(QStringLiteral("軸力図の色　圧縮")), 2, 3);
  grid->addWidget(compression_, 2, 4);
  allCases_ = new QCheckBox(QStringLiteral("全ての荷重ケースを同じ縮尺にする"));
  allCases_->setObjectName(QStringLiteral("allCases"));
  grid->addWidget(allCases_, 4, 3, 1, 2);
  grid->setColumnStretch(5, 1);
}

void ResultOptions::Fill(const AnalysisOptions& options) {
  std::size_t digits = 0;
  for (std::size_t r = 0; r < kDiagrams.size(); ++r) {
    heights_[r]->setValue(static_cast<double>(options.*kDiagrams[r].height));
    shownHeights_[r].Set(options.*kDiagrams[r].height, heights_[r]->value());
    if (kDiagrams[r].decimals == nullptr) continue;
    QComboBox* const box = decimals_[digits++];
    box->setCurrentIndex(std::max(0, box->findText(ToQt(options.*kDiagrams[r].decimals))));
  }
  SetButtonColour(*tension_, options.tension);
  SetButtonColour(*compression_, options.compression);
  allCases_->setChecked(options.ScaleOverAllCases);
}

AnalysisOptions ResultOptions::Taken(AnalysisOptions options) const {
  std::size_t digits = 0;
  for (std::size_t r = 0; r < kDiagrams.size(); ++r) {
    const double height = heights_[r]->value();
    options.*kDiagrams[r].height = shownHeights_[r].Untouched(height).value_or(static_cast<float>(height));
    if (kDiagrams[r].decimals != nullptr)
      options.*kDiagrams[r].decimals = FromQt(decimals_[digits++]->currentText());
  }
  options.tension = ButtonColour(*tension_);
  options.compression = ButtonColour(*compression_);
  options.ScaleOverAllCases = allCases_->isChecked();
  return options;
}

}  // namespace zorlan
