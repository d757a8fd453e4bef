// A main window on a documents folder of the test's own, driven by keys and clicks.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <QAction>
#include <QApplication>
#include <QTest>
#include <string>

#include "base/text_file.h"
#include "desktop/form.h"
#include "desktop/main_window.h"
#include "desktop/modal_script.h"
#include "model/model_state.h"
#include "render/qt_text.h"
#include "shell/windows.h"
#include "temporary_folder.h"

namespace zorlan::test {

/// Brings the table of windows in force back at its end, however the test ends.
class WindowsKept {
 public:
  WindowsKept() = default;
  ~WindowsKept() { InstallWindows(windows_); }
  WindowsKept(const WindowsKept&) = delete;
  WindowsKept& operator=(const WindowsKept&) = delete;

 private:
  ShellWindows windows_ = TheWindows();
};

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    ProjectName.clear();  // as in a program that has just begun
    ModelFile.clear();
    Start();
  }

  /// The program comes up, as if anew after Stop.
  void Start() {
    StartUp start;
    start.documents = folder_.Path();
    start.install = ZORLAN_SOURCE_DIR "/data/";
    window_ = std::make_unique<MainWindow>();
    ASSERT_EQ(window_->Load(start), Started::Ready);
    window_->resize(1200, 800);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  /// It goes away without the exit command, as if killed.
  void Stop() { window_.reset(); }

  MainWindow& Window() { return *window_; }
  ModalScript& Script() { return script_; }
  const std::string& Documents() const { return folder_.Path(); }
  std::string Sample(const std::string& file) const { return DefaultDataPath + "例題－１.zor/" + file; }

  /// The menu entry of a control, such as "mnuFileItem(1)".
  QAction* Entry(const char* control) {
    QAction* const action = window_->findChild<QAction*>(QString::fromUtf8(control));
    EXPECT_NE(action, nullptr) << control;
    return action;
  }
  /// Chooses it, as a click does.
  void Choose(const char* control) {
    ASSERT_TRUE(Entry(control)->isEnabled()) << control;
    Entry(control)->trigger();
  }

  /// A child of a window by its object name.
  template <class Widget>
  static Widget* Child(const QWidget* parent, const char* name) {
    auto* const child = parent->findChild<Widget*>(QString::fromUtf8(name));
    EXPECT_NE(child, nullptr) << name;
    return child;
  }
  Form* OpenForm(const char* name) { return window_->Forms().Find(name); }
  std::string Caption() const { return FromQt(window_->windowTitle()); }

  static void Type(QWidget* widget, const QString& text) {
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget, text);
  }
  static void Click(const QWidget& parent, const char* name) {
    QTest::mouseClick(Child<QWidget>(&parent, name), Qt::LeftButton);
  }

  /// The act that gives a file dialog a path and accepts it.
  static ModalScript::Act ChooseFile(const std::string& path);

  /// Opens a model of the sample project through the project dialog.
  void OpenSample(const QString& model);

 private:
  TemporaryFolder folder_;
  ModalScript script_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace zorlan::test
