#include "desktop/input_menu.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>

#include "desktop/main_window.h"
#include "render/qt_text.h"
#include "shell/commands.h"

namespace zorlan {
namespace {

constexpr Command kLoadTables[] = {Command::NodalLoad, Command::ElementLoad, Command::CmqLoad,
                                   Command::TemperatureLoad};

}  // namespace

frmInputMenu::frmInputMenu(MainWindow& window) : Form("frmInputMenu"), window_(window) {
  setWindowTitle(QStringLiteral("入力メニュー"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->setSpacing(2);
  for (const InputButton& button : kInputButtons) {
    auto* const push = new QPushButton(ToQt(button.caption));
    push->setObjectName(ToQt(button.caption));
    push->setAutoDefault(true);
    column->addWidget(push);
    buttons_.emplace_back(&button, push);
    if (button.command != Command::None) {
      connect(push, &QPushButton::clicked, this, [this, &button] { OpenTable(button.command); });
      continue;
    }
    auto* const loads = new QMenu(push);
    for (const Command command : kLoadTables)
      loads->addAction(ToQt(RowOf(command).caption), this, [this, command] { OpenTable(command); });
    push->setMenu(loads);
  }
  SetFirst(buttons_.front().second);
  column->setSizeConstraint(QLayout::SetFixedSize);
  Update(CurrentMenuFacts(/*tableFormInFront=*/false));
}

void frmInputMenu::Update(const MenuFacts& facts) {
  for (const auto& [button, push] : buttons_) push->setEnabled(IsOn(*button, facts));
}

void frmInputMenu::OpenTable(Command command) {
  if (command == Command::ForcedDisplacement && !MayEnterForcedDisplacements()) return;
  window_.Run(command);
}

void frmInputMenu::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)
    focusNextPrevChild(event->key() == Qt::Key_Down);
  else if (event->key() != Qt::Key_Escape)
    Form::keyPressEvent(event);
}

}  // namespace zorlan
