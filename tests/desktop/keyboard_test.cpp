// A session with the keys alone.
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "desktop/desktop_test.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// Presses a key where the focus is, as a person does.
void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  if (QApplication::activeWindow() == nullptr) {
    // The window manager's part, which the platform of the tests doesn't play: what lay behind comes to the
    // front.
    QWidget* front = QApplication::activeModalWidget();
    for (QWidget* const window : QApplication::topLevelWidgets())
      if (front == nullptr && window->isVisible()) front = window;
    ASSERT_NE(front, nullptr);
    front->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(front));
  }
  QWidget* target = QApplication::activePopupWidget();
  if (target == nullptr) target = QApplication::focusWidget();
  if (target == nullptr) target = QApplication::activeWindow();
  ASSERT_NE(target, nullptr);
  QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
}

void TabTo(const char* name) {
  for (int i = 0; i < 40; ++i) {
    const QWidget* const at = QApplication::focusWidget();
    if (at != nullptr && at->objectName() == QLatin1String(name)) return;
    Press(Qt::Key_Tab);
  }
  ADD_FAILURE() << "Tab never comes to " << name;
}

class KeyboardTest : public DesktopTest {
 protected:
  KeyboardTest() {
    // Names that can be typed without an input method.
    MakeFolder(DefaultDataPath + "test.zor");
    CopyFileOver(Sample("鉄骨ラーメン.inp"), DefaultDataPath + "test.zor/frame.inp");
  }
};

TEST_F(KeyboardTest, AWholeSessionIsDoneByKeysAlone) {
  Script().Expect(QStringLiteral("frmProject"), [](QWidget&) {
    // The tree stands at the data folder; below it are the two projects.
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
  });
  Press(Qt::Key_F, Qt::AltModifier);
  Press(Qt::Key_O);
  ASSERT_THAT(Caption(), HasSubstr("frame.inp"));

  Press(Qt::Key_F5);
  ASSERT_NE(OpenForm("frmKakuninText"), nullptr);
  Press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_GT(Child<QPlainTextEdit>(OpenForm("frmKakuninText"), "text")->textCursor().blockNumber(), 50);
  Press(Qt::Key_Escape);
  QApplication::processEvents();
  EXPECT_EQ(OpenForm("frmKakuninText"), nullptr);

  Press(Qt::Key_A, Qt::AltModifier);
  Press(Qt::Key_P);
  ASSERT_NE(OpenForm("frmPrnText"), nullptr);
  const std::string pdf = Documents() + "listing.pdf";
  Script().Expect(QStringLiteral("QFileDialog"), [pdf](QWidget&) {
    Press(Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), ToQt(pdf));
    Press(Qt::Key_Return);
  });
  TabTo("pdf");
  Press(Qt::Key_Space);
  EXPECT_THAT(ReadBytes(pdf), StartsWith("%PDF"));

  Script().Expect(QStringLiteral("frmProject"), [](QWidget&) {
    Press(Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("copy"));
    Press(Qt::Key_Return);
  });
  Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(FileExists(DefaultDataPath + "test.zor/copy.inp"));

  Script().Expect(QStringLiteral("frmProject"), [](QWidget&) { Press(Qt::Key_Return); });
  Script().Expect(QStringLiteral("を削除して"), [](QWidget&) { Press(Qt::Key_Y, Qt::AltModifier); });
  Press(Qt::Key_F, Qt::AltModifier);
  Press(Qt::Key_D);
  EXPECT_FALSE(FileExists(DefaultDataPath + "test.zor/copy.inp"));

  Press(Qt::Key_F, Qt::AltModifier);
  Press(Qt::Key_X);
  EXPECT_FALSE(Window().isVisible());
}

TEST_F(KeyboardTest, EnterOnADeletingQuestionDeletesNothing) {
  Window().OpenDeck(ToQt(DefaultDataPath + "test.zor/frame.inp"));
  Script().Expect(QStringLiteral("frmProject"), [](QWidget&) { Press(Qt::Key_Return); });
  Script().Expect(QStringLiteral("を削除して"), [](QWidget&) { Press(Qt::Key_Return); });
  Script().Expect(QStringLiteral("frmProject"), [](QWidget&) { Press(Qt::Key_Escape); });
  Choose("mnuFileItem(4)");
  EXPECT_TRUE(FileExists(DefaultDataPath + "test.zor/frame.inp"));
}

}  // namespace
}  // namespace zorlan::test
