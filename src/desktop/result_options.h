// What the analysis set holds beside its rows: heights and digits of the diagrams, colours, the scale.
#pragma once

#include <array>
#include <QWidget>

#include "desktop/shown_value.h"
#include "graphics/options.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;

namespace zorlan {

class ResultOptions : public QWidget {
 public:
  ResultOptions();

  void Fill(const AnalysisOptions& options);
  /// The options with what the widgets say.
  AnalysisOptions Taken(AnalysisOptions options) const;

 private:
  std::array<QDoubleSpinBox*, 4> heights_{};  // displacement, axial force, shear, moment
  std::array<ShownValue<float, double>, 4> shownHeights_;
  std::array<QComboBox*, 3> decimals_{};  // axial force, shear, moment
  QWidget *tension_, *compression_;
  QCheckBox* allCases_;
};

}  // namespace zorlan
