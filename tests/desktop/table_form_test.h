// A main window with a model of the test's own, and a table form driven by keys.
#pragma once

#include <QClipboard>
#include <QStatusBar>
#include <QTableView>

#include "desktop/cell_box.h"
#include "desktop/desktop_test.h"
#include "desktop/table_window.h"
#include "support/model_folder.h"

namespace zorlan::test {

class TableFormTest : public DesktopTest {
 protected:
  /// Opens a model of this control row and these tables, deck lines with LF.
  void OpenModel(const std::string& control, const std::string& tables = {},
                 const std::string& units = "0,0") {
    MakeFolder(DefaultDataPath + "test.zor");
    ReplaceBytes(DefaultDataPath + "test.zor/m.inp",
                 Cp932FromUtf8(CrLf("@CONT\n" + control + "\n\n@UNIT\n" + units + "\n\n" + tables)).bytes);
    Window().OpenDeck(ToQt(DefaultDataPath + "test.zor/m.inp"));
  }
  /// Opens a table form by its menu entry.
  TableWindow* OpenTable(const char* control, const char* name) {
    Choose(control);
    auto* const form = qobject_cast<TableWindow*>(OpenForm(name));
    EXPECT_NE(form, nullptr) << name;
    form_ = form;
    return form;
  }
  TableWindow* OpenNodes() { return OpenTable("mnuDataItem(4)", "InpNODE"); }
  TableWindow& Table() { return *form_; }

  /// The widget with the focus. What lay behind a box comes to the front, as a window manager does it.
  QWidget* Focus() {
    if (QApplication::activeWindow() == nullptr) {
      Window().activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    }
    EXPECT_NE(QApplication::focusWidget(), nullptr);
    return QApplication::focusWidget();
  }
  /// Presses a key where the focus is.
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(Focus(), static_cast<Qt::Key>(key), modifiers);
  }
  /// Types where the focus is, key by key: the first opens the box.
  void Write(const QString& keys) {
    for (const QChar key : keys) QTest::keyClicks(Focus(), QString(key));
  }
  void Write(const char* keys) { Write(QString::fromUtf8(keys)); }
  /// Types a row from the current cell on: cells separated by blanks, "_" for a blank one; ends with Enter
  /// and Home, in the next row.
  void TypeRow(const char* cells) {
    for (const QString& cell : QString::fromUtf8(cells).split(QLatin1Char(' '))) {
      if (cell != QLatin1String("_")) Write(cell);
      Press(Qt::Key_Tab);
    }
    Press(Qt::Key_Backtab);
    Press(Qt::Key_Return);
    Press(Qt::Key_Home);
  }
  std::string Cell(int row, int column, int page = 1) { return Table().Editor().Text({page, row, column}); }
  CellPlace At() { return Table().View().Current(); }
  static void SetClipboard(const char* text) { QApplication::clipboard()->setText(QString::fromUtf8(text)); }
  static std::string Clipboard() { return FromQt(QApplication::clipboard()->text()); }
  static std::string TableFile(const std::string& key) {
    return FileExists(WorkPath + key) ? ReadTextFile(WorkPath + key) : "(none)";
  }
  std::string Status() { return FromQt(Window().statusBar()->currentMessage()); }

 private:
  TableWindow* form_ = nullptr;
};

}  // namespace zorlan::test
