// The input help.
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>

#include "desktop/desktop_test.h"
#include "desktop/remark.h"
#include "shell/settings.h"

namespace zorlan::test {
namespace {

class RemarkTest : public DesktopTest {
 protected:
  Form* Show(const char* form) {
    OpenInputHelp(Window().Forms(), form);
    return OpenForm("frmREMARK");
  }
  static QPlainTextEdit* Text(Form* help) { return Child<QPlainTextEdit>(help, "text"); }
};

TEST_F(RemarkTest, F1OpensThePageOfTheFormInFront) {
  Choose("mnuFileItem(0)");
  EXPECT_FALSE(Entry("mnuRemark")->isEnabled());
  Choose("mnuDataItem(3)");
  QTest::keyClick(Child<QRadioButton>(OpenForm("InpUNIT"), "input1"), Qt::Key_F1);
  ASSERT_NE(OpenForm("frmREMARK"), nullptr);
  EXPECT_EQ(FromQt(OpenForm("frmREMARK")->windowTitle()), "入力説明 -単位-");
  EXPECT_EQ(FromQt(Text(OpenForm("frmREMARK"))->toPlainText()),
            "[単位]\nＳＩ単位変換係数を省力下場合 : 9.80665");
  QTest::keyClick(Text(OpenForm("frmREMARK")), Qt::Key_Escape);
  EXPECT_EQ(OpenForm("frmREMARK"), nullptr);
  ASSERT_NE(OpenForm("InpUNIT"), nullptr);
  EXPECT_TRUE(QTest::qWaitFor(
      [this] { return Window().Forms().activeSubWindow() == OpenForm("InpUNIT")->parentWidget(); }));
}

TEST_F(RemarkTest, OnFirstUseTheWindowStandsBesideItsForm) {
  Choose("mnuFileItem(0)");
  Choose("mnuDataItem(3)");
  Choose("mnuRemark");
  const QRect form = OpenForm("InpUNIT")->parentWidget()->geometry();
  EXPECT_FALSE(OpenForm("frmREMARK")->parentWidget()->geometry().intersects(form));
}

TEST_F(RemarkTest, AFormWithoutAPageLeavesTheBoxEmpty) {
  Choose("mnuFileItem(0)");
  Choose("mnuDataItem(0)");
  Choose("mnuRemark");
  EXPECT_EQ(FromQt(OpenForm("frmREMARK")->windowTitle()), "入力説明");
  EXPECT_EQ(FromQt(Text(OpenForm("frmREMARK"))->toPlainText()), "");
}

TEST_F(RemarkTest, TheWindowIsAsLargeAsEachPage) {
  InpModel.ModelCode = kPlaneFrame;
  for (const char* const form : {"InpSECT", "InpDISP", "InpNODE"}) {
    Form* const help = Show(form);
    QApplication::processEvents();
    EXPECT_EQ(Text(help)->horizontalScrollBar()->maximum(), 0) << form;
    EXPECT_EQ(Text(help)->verticalScrollBar()->maximum(), 0) << form;
  }
  const int tall = Show("InpSECT")->height();
  EXPECT_LT(Show("InpDISP")->height(), tall);
}

TEST_F(RemarkTest, InASmallFrameTheScrollBarsMoveTheText) {
  Window().resize(500, 300);
  QApplication::processEvents();
  Form* const help = Show("InpSECT");
  EXPECT_GT(Text(help)->horizontalScrollBar()->maximum(), 0);
  EXPECT_GT(Text(help)->verticalScrollBar()->maximum(), 0);
  EXPECT_LE(help->parentWidget()->height(), Window().Forms().viewport()->height());
}

TEST_F(RemarkTest, TheWindowComesUpWhereItWasLeft) {
  Form* help = Show("InpDISP");
  help->parentWidget()->move(321, 123);
  help->CloseForm();
  help = Show("InpALFA");
  EXPECT_EQ(help->parentWidget()->pos(), QPoint(321, 123));
  WindowPlace place;
  EXPECT_TRUE(LoadWindowPlace("frmREMARK", place));
}

}  // namespace
}  // namespace zorlan::test
