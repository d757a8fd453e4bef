// The input menu: a narrow child window with one button a table.
#pragma once

#include <utility>
#include <vector>

#include "desktop/form.h"
#include "shell/menu.h"

class QPushButton;

namespace zorlan {

class MainWindow;

class frmInputMenu : public Form {
  Q_OBJECT
 public:
  explicit frmInputMenu(MainWindow& window);

  /// The buttons follow the state of the menus.
  void Update(const MenuFacts& facts);

  bool KeepsItsSize() const override { return true; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;  // up and down walk the buttons; it stays open on Esc

 private:
  void OpenTable(Command command);

  MainWindow& window_;
  std::vector<std::pair<const InputButton*, QPushButton*>> buttons_;
};

}  // namespace zorlan
