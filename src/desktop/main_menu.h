// The menu bar, made from the shell's rows.
#pragma once

#include <QObject>
#include <string>
#include <utility>
#include <vector>

#include "shell/menu.h"

class QAction;
class QMenu;
class QMenuBar;

namespace zorlan {

class MainMenu : public QObject {
  Q_OBJECT
 public:
  /// Fills the bar; every entry bears its control's name.
  explicit MainMenu(QMenuBar* bar);

  /// Turns the entries on and off.
  void Update(const MenuFacts& facts);
  /// The list of models opened last, full paths of decks.
  void ShowRecent(const std::vector<std::string>& decks);

 protected:
  /// The mnemonic of an open menu, pressed again, goes on to the next one that has it.
  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  void chosen(zorlan::Command command);
  void recentChosen(const QString& deck);

 private:
  QMenuBar* bar_;
  QMenu* recent_ = nullptr;
  std::vector<std::pair<const MenuRow*, QAction*>> entries_;
};

}  // namespace zorlan
