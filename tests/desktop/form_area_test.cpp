// The area of the child windows: their places, who owns them, how they go.
#include <filesystem>
#include <QLineEdit>
#include <QMdiSubWindow>

#include "base/fault.h"
#include "desktop/desktop_test.h"
#include "desktop/table_window.h"
#include "shell/commands.h"
#include "shell/settings.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;

class FormAreaTest : public DesktopTest {
 protected:
  static QMdiSubWindow* FrameOf(Form* form) { return qobject_cast<QMdiSubWindow*>(form->parentWidget()); }
  TableWindow* OpenNodes() { return OpenTableWindow(Window(), "InpNODE"); }
  static void CloseOf(Form* form) {
    form->CloseForm();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
};

TEST_F(FormAreaTest, AFormLeftMaximizedComesBackMaximizedAndKeepsItsNormalSize) {
  OpenSample(QStringLiteral("連続梁"));
  Form* form = OpenNodes();
  const QRect first = FrameOf(form)->geometry();
  FrameOf(form)->showMaximized();
  CloseOf(form);
  form = OpenNodes();
  EXPECT_TRUE(FrameOf(form)->isMaximized());
  FrameOf(form)->showNormal();
  EXPECT_EQ(FrameOf(form)->geometry(), first);
}

TEST_F(FormAreaTest, ASizeChangedBeforeMaximizingIsKept) {
  OpenSample(QStringLiteral("連続梁"));
  Form* form = OpenNodes();
  const QRect wanted(40, 30, 500, 420);
  FrameOf(form)->setGeometry(wanted);
  FrameOf(form)->showMaximized();
  CloseOf(form);
  WindowPlace place;
  ASSERT_TRUE(LoadWindowPlace("InpNODE", place));
  EXPECT_EQ(place, (WindowPlace{40, 30, 500, 420, true}));
  form = OpenNodes();  // maximized from the start
  CloseOf(form);
  ASSERT_TRUE(LoadWindowPlace("InpNODE", place));
  EXPECT_EQ(place, (WindowPlace{40, 30, 500, 420, true}));
}

TEST_F(FormAreaTest, AFormThatTheProgramPutElsewhereIsKeptAsTheUserHadIt) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  TableWindow* form = OpenNodes();
  const QRect wanted(300, 20, 620, 600);
  FrameOf(form)->setGeometry(wanted);
  form->ShowInFigure();
  ASSERT_NE(FrameOf(form)->geometry(), wanted) << "the figure needs room";
  CloseOf(form);
  WindowPlace place;
  ASSERT_TRUE(LoadWindowPlace("InpNODE", place));
  EXPECT_EQ(place, (WindowPlace{300, 20, 620, 600, false}));
  Window().resize(500, 400);
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  form = OpenNodes();
  ASSERT_LT(FrameOf(form)->width(), 620);
  CloseOf(form);
  ASSERT_TRUE(LoadWindowPlace("InpNODE", place));
  EXPECT_EQ(place, (WindowPlace{300, 20, 620, 600, false}))
      << "nor does a small window make it small for good";
}

TEST_F(FormAreaTest, AFormThatIsMaximizedBecauseTheOneBeforeWasIsNotKeptSo) {
  OpenSample(QStringLiteral("連続梁"));
  FrameOf(OpenNodes())->showMaximized();
  Choose("mnuDataItem(5)");
  Form* const carried = OpenForm("InpELEM");
  ASSERT_TRUE(FrameOf(carried)->isMaximized());
  CloseOf(carried);
  WindowPlace place;
  ASSERT_TRUE(LoadWindowPlace("InpELEM", place));
  EXPECT_FALSE(place.maximized);
}

TEST_F(FormAreaTest, TheBarOfAFormThatKeepsItsSizeHasRoomForItsTitleAlone) {
  OpenSample(QStringLiteral("連続梁"));
  const Qt::WindowFlags menu = FrameOf(OpenForm("frmInputMenu"))->windowFlags();
  EXPECT_TRUE(menu.testFlag(Qt::WindowTitleHint));
  EXPECT_FALSE(menu.testFlag(Qt::WindowSystemMenuHint)) << "with it come the icon and the buttons";
  EXPECT_FALSE(menu.testFlag(Qt::WindowMaximizeButtonHint));
  const Qt::WindowFlags nodes = FrameOf(OpenNodes())->windowFlags();
  for (const Qt::WindowType button : {Qt::WindowSystemMenuHint, Qt::WindowMinimizeButtonHint,
                                      Qt::WindowMaximizeButtonHint, Qt::WindowCloseButtonHint})
    EXPECT_TRUE(nodes.testFlag(button)) << button;
}

TEST_F(FormAreaTest, AFormThatKeepsItsSizeIsNotMaximizedBecauseTheOneBeforeWas) {
  OpenSample(QStringLiteral("連続梁"));
  const QMdiSubWindow* const menu = FrameOf(OpenForm("frmInputMenu"));
  const QRect place = menu->geometry();
  FrameOf(OpenForm("Model"))->showMaximized();
  TableWindow* const nodes = OpenNodes();
  ASSERT_TRUE(FrameOf(nodes)->isMaximized());
  CloseOf(nodes);
  CloseOf(OpenForm("Model"));
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  ASSERT_EQ(Window().Forms().activeSubWindow(), menu);
  EXPECT_FALSE(menu->isMaximized());
  EXPECT_EQ(menu->geometry(), place);
}

TEST_F(FormAreaTest, AFormOfOneRowIsNeverSmallerThanItsContent) {
  OpenSample(QStringLiteral("連続梁"));
  SaveWindowPlace("InpCONT", {10, 10, 120, 60, false});
  Choose("mnuDataItem(2)");
  const QMdiSubWindow* const frame = FrameOf(OpenForm("InpCONT"));
  EXPECT_EQ(frame->size(), frame->size().expandedTo(frame->sizeHint()));
}

/// Counts those that live.
class CountedForm : public Form {
 public:
  CountedForm() : Form("CountedForm") { ++living; }
  ~CountedForm() override { --living; }
  static inline int living = 0;
};

TEST_F(FormAreaTest, AFormThatFailsBeforeItIsShownIsGone) {
  const auto fail = [this] {
    FormToShow<CountedForm> form(Window().Forms(), "CountedForm",
                                 [] { return std::make_unique<CountedForm>(); });
    EXPECT_EQ(CountedForm::living, 1);
    throw Fault("nothing to show");
  };
  EXPECT_THROW(fail(), Fault);
  EXPECT_EQ(CountedForm::living, 0);
}

TEST_F(FormAreaTest, AFormThatIsShownBelongsToTheAreaAndIsFoundAgain) {
  const auto open = [this] {
    FormToShow<CountedForm> form(Window().Forms(), "CountedForm",
                                 [] { return std::make_unique<CountedForm>(); });
    return form.Show();
  };
  CountedForm* const form = open();
  EXPECT_EQ(CountedForm::living, 1);
  EXPECT_EQ(open(), form);
  EXPECT_EQ(CountedForm::living, 1);
  CloseOf(form);
  EXPECT_EQ(CountedForm::living, 0);
}

TEST_F(FormAreaTest, ATableGoesWithABoxOpenInIt) {
  OpenSample(QStringLiteral("連続梁"));
  QPointer<TableWindow> form = OpenNodes();
  QTest::keyClick(&form->View(), Qt::Key_F2);
  ASSERT_NE(form->View().OpenedBox(), nullptr);
  delete form;  // the grid goes before the rows that it shows
  EXPECT_EQ(OpenForm("InpNODE"), nullptr);
  Choose("H_Table");
  QPointer<Form> sheet = OpenForm("frmEditKozaiTable");
  ASSERT_NE(sheet, nullptr);
  delete sheet;
}

}  // namespace
}  // namespace zorlan::test
