// What the analysis set holds beside its rows: heights and digits of the diagrams, colours, the scale.
#pragma once

#include <array>
#include <QWidget>

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
  AnalysisOptions filled_;
  std::array<QDoubleSpinBox*, 4> heights_{};  // displacement, axial force, shear, moment
  std::array<double, 4> shown_{};             // what they showed of those filled in
  std::array<QComboBox*, 3> decimals_{};      // axial force, shear, moment
  QWidget *tension_, *compression_;
  QCheckBox* allCases_;
};

}  // namespace zorlan
