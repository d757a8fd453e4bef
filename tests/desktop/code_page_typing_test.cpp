// Characters that a Linux input method or another program has for those of the files' code page.
#include <QClipboard>
#include <QDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextBlock>

#include "desktop/desktop_test.h"
#include "desktop/section_table_window.h"
#include "desktop/table_view.h"
#include "shell/commands.h"

namespace zorlan::test {
namespace {

constexpr const char *kForeign = "２〜３階 −¢£¬‖—", *kOwn = "２～３階 －￠￡￢∥―";

class CodePageTypingTest : public DesktopTest {
 protected:
  static void Compose(QWidget* widget, const char* text) {
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(widget, &event);
  }
  static void Paste(QWidget* widget, const char* text) {
    QApplication::clipboard()->setText(QString::fromUtf8(text));
    QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
  }
  static std::string TextIn(const QLineEdit* box) { return FromQt(box->text()); }
};

TEST_F(CodePageTypingTest, ATitleTakesThemAsItsOwn) {
  OpenSample(QStringLiteral("連続梁"));
  for (const bool pasted : {false, true}) {
    Choose("mnuDataItem(0)");
    auto* const title = Child<QLineEdit>(OpenForm("InpTITL"), "title");
    title->selectAll();
    pasted ? Paste(title, kForeign) : Compose(title, kForeign);
    EXPECT_EQ(TextIn(title), kOwn);
    EXPECT_TRUE(OpenForm("InpTITL")->CloseForm());
    EXPECT_EQ(ReadTextFile(WorkPath + "TITL"), kOwn + std::string("\r\n"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_F(CodePageTypingTest, TheCursorStaysWhereItWas) {
  OpenSample(QStringLiteral("連続梁"));
  Choose("mnuDataItem(0)");
  auto* const title = Child<QLineEdit>(OpenForm("InpTITL"), "title");
  title->setText(QStringLiteral("三階"));
  title->setCursorPosition(1);
  Compose(title, "〜四");
  EXPECT_EQ(TextIn(title), "三～四階");
  EXPECT_EQ(title->cursorPosition(), 3);
}

TEST_F(CodePageTypingTest, ACellTakesThemTypedAndPasted) {
  Choose("Kijyun_Table");
  auto* const form = dynamic_cast<SectionTableWindow*>(OpenForm("frmEditMokuzaiTable"));
  ASSERT_NE(form, nullptr);
  const auto cell = [form](int row) {
    const auto* const model = form->View().model();
    return FromQt(model->data(model->index(row - 1, 0), Qt::DisplayRole).toString());
  };
  form->View().GoTo({1, 1, 1});
  Compose(&form->View(), kForeign);
  QTest::keyClick(form->window()->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(cell(1), kOwn);
  form->View().GoTo({1, 2, 1});
  QApplication::clipboard()->setText(QString::fromUtf8(kForeign));
  form->Edit(Command::Paste);
  EXPECT_EQ(cell(2), kOwn);
  form->Unload();
}

TEST_F(CodePageTypingTest, NamesTakeThemToo) {
  for (const char* const box : {"project", "model"}) {
    Script().Expect(QStringLiteral("frmProject"), [box](QWidget& dialog) {
      auto* const name = Child<QLineEdit>(&dialog, box);
      name->clear();
      Compose(name, "梁〜柱");
      EXPECT_EQ(TextIn(name), "梁～柱");
      static_cast<QDialog&>(dialog).reject();
    });
    Choose("mnuFileItem(1)");
  }
}

TEST_F(CodePageTypingTest, TheSubtitleOfAConversionTakesThemToo) {
  Script().Expect(QStringLiteral("ToZOR2"), [](QWidget& dialog) {
    auto* const subtitle = Child<QLineEdit>(&dialog, "subtitle");
    Compose(subtitle, "梁〜柱");
    EXPECT_EQ(TextIn(subtitle), "梁～柱");
    static_cast<QDialog&>(dialog).reject();
  });
  Choose("mnuFileItem(7)");
}

TEST_F(CodePageTypingTest, ASearchFindsThemInAListing) {
  ReplaceTextFile(Documents() + "text", "一\r\n二～三\r\n");
  ShowText(kPrintListing, /*preview=*/false, Documents() + "text");
  Form* const reader = OpenForm("frmKakuninText");
  Compose(Child<QLineEdit>(reader, "search"), "二〜");
  QTest::keyClick(Child<QLineEdit>(reader, "search"), Qt::Key_Return);
  EXPECT_EQ(Child<QPlainTextEdit>(reader, "text")->textCursor().blockNumber(), 1);
}

}  // namespace
}  // namespace zorlan::test
