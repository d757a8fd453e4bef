// The panel of what was picked in a figure.
#pragma once

#include <optional>
#include <QFrame>

#include "graphics/picking.h"

class QLabel;

namespace zorlan {

class FigureView;

/// Stands in the corner of a figure that leaves the picked thing in sight.
class PickPanel : public QFrame {
 public:
  explicit PickPanel(FigureView& view);

  /// Shows what is known of a pick; nothing picked hides the panel.
  void Show(const std::optional<Pick>& pick);

 private:
  void Place();

  FigureView& view_;
  QLabel *heading_, *facts_;
};

}  // namespace zorlan
