// The main window: menus, the area of the child windows, the status bar.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <string>

#include "shell/menu.h"
#include "shell/start_up.h"

namespace zorlan {

class FormArea;
class MainMenu;
class StatusFields;

class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  MainWindow();
  ~MainWindow() override;

  /// The main form's load: the program's tree, its settings, the defaults. Anything but Ready: the program
  /// can't run.
  Started Load(const StartUp& start);

  /// Opens a deck as a double click on it does.
  void OpenDeck(const QString& path);

  /// Another start of the program asked for this one, with a deck or without.
  void ComeToFront(const QString& deck);

  /// What a menu entry does.
  void Run(Command command);

  /// Caption, menus and status bar follow the state.
  void Refresh();

  FormArea& Forms() { return *forms_; }
  const std::string& Install() const { return start_.install; }
  const SystemPrinters& Printers() const { return start_.printers; }

  /// Lets the window close: by the exit command alone.
  void Leave();

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildStatusBar();
  /// The status bar says of what has come to be used by a key what it says under the mouse.
  void ExplainFocus(const QWidget* now);
  void ShowStatus();
  void RestorePlace();
  void KeepPlace();
  /// A command, behind the handler of what nobody expected.
  template <class Body>
  void Guarded(std::string_view routine, Body body);

  StartUp start_;
  FormArea* forms_ = nullptr;
  MainMenu* menu_ = nullptr;
  StatusFields* fields_ = nullptr;
  QPointer<const QWidget> explained_;  // had the focus last
  QString explanation_;                // and what was said of it
  QString hovered_;                    // what was said last of what is under the mouse
  bool loaded_ = false;                // the program's tree is held
  bool closing_ = false;               // the closing flag: without it a close request is refused
};

}  // namespace zorlan
