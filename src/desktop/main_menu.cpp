#include "desktop/main_menu.h"

#include <QAction>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include "render/qt_text.h"

namespace zorlan {

MainMenu::MainMenu(QMenuBar* bar) : QObject(bar), bar_(bar) {
  std::vector<QMenu*> open;  // the menu that takes the rows of each level, from level 1 on
  for (std::size_t i = 0; i < kMenu.size(); ++i) {
    const MenuRow& row = kMenu[i];
    const auto level = static_cast<std::size_t>(row.level);
    open.resize(level);
    if (row.command == Command::Exit) {
      recent_ = open.back()->addMenu(QStringLiteral("最近使ったモデル(&M)"));
      recent_->setObjectName(QStringLiteral("mnuRecent"));
      open.back()->addSeparator();
    }
    const QString caption = ToQt(row.caption);
    QAction* action = nullptr;
    if (i + 1 < kMenu.size() && kMenu[i + 1].level > row.level) {
      open.push_back(level == 0 ? bar->addMenu(caption) : open.back()->addMenu(caption));
      action = open.back()->menuAction();
      if (level == 0) open.back()->installEventFilter(this);
    } else {
      action = open.back()->addAction(caption);
      connect(action, &QAction::triggered, this, [this, &row] { emit chosen(row.command); });
    }
    action->setObjectName(ToQt(ControlName(row)));
    action->setStatusTip(ToQt(row.hint));
    if (!row.key.empty()) action->setShortcut(QKeySequence(ToQt(row.key)));
    entries_.emplace_back(&row, action);
  }
}

bool MainMenu::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto* const key = static_cast<QKeyEvent*>(event);
  auto* const menu = qobject_cast<QMenu*>(watched);
  const QKeySequence pressed(Qt::ALT | key->key());
  if (menu == nullptr || key->modifiers() != Qt::AltModifier ||
      QKeySequence::mnemonic(menu->title()) != pressed)
    return QObject::eventFilter(watched, event);
  const QList<QAction*> actions = bar_->actions();
  const qsizetype at = actions.indexOf(menu->menuAction());
  for (qsizetype step = 1; step < actions.size(); ++step) {
    QAction* const next = actions[(at + step) % actions.size()];
    if (QKeySequence::mnemonic(next->text()) != pressed) continue;
    bar_->setActiveAction(next);
    return true;
  }
  return QObject::eventFilter(watched, event);
}

void MainMenu::Update(const MenuFacts& facts) {
  for (const auto& [row, action] : entries_) action->setEnabled(IsOn(*row, facts));
}

void MainMenu::ShowRecent(const std::vector<std::string>& decks) {
  recent_->clear();
  recent_->setEnabled(!decks.empty());
  int number = 0;
  for (const std::string& deck : decks) {
    const QString path = ToQt(deck);
    QString shown = path;
    shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
    QAction* const action = recent_->addAction(QStringLiteral("&%1  %2").arg(++number).arg(shown));
    connect(action, &QAction::triggered, this, [this, path] { emit recentChosen(path); });
  }
}

}  // namespace zorlan
