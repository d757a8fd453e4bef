// `InpShowDefine`: the stored data of what was picked in a figure.
#pragma once

#include <optional>
#include <vector>

#include "desktop/form.h"
#include "graphics/picking.h"

class QTableWidget;
class QTabWidget;

namespace zorlan {

class InpShowDefine : public Form {
  Q_OBJECT
 public:
  InpShowDefine();

  /// Shows the page of a node or an element, as InpModel has it.
  void Show(const Pick& pick);
  void Renew() override;

  QSize sizeHint() const override { return {300, 290}; }

 private:
  QTabWidget* pages_;
  QTableWidget *node_, *element_;
  std::optional<int> nodeNumber_, elementNumber_;
};

}  // namespace zorlan
