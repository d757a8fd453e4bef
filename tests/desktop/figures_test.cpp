// The windows of figures, as a person uses them.
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTableWidget>
#include <QTabWidget>
#include <QToolBar>
#include <QWheelEvent>

#include "desktop/desktop_test.h"
#include "desktop/figure_view.h"
#include "desktop/model.h"
#include "desktop/page_view.h"
#include "graphics/options.h"
#include "shell/settings.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr double kPixel = 15;  // twips

class FiguresTest : public DesktopTest {
 protected:
  void SetUp() override { OpenSample(QStringLiteral("鉄骨ラーメン")); }

  void Analyse() { Choose("mnuAnalysisStatic(0)"); }
  Model* Window(const char* name = "Model") { return qobject_cast<Model*>(OpenForm(name)); }
  FigureView& View() { return Window()->View(); }
  const Figure& Shown() { return View().TheFigure(); }
  QAction* Tool(const char* name) { return Window()->findChild<QAction*>(QString::fromLatin1(name)); }

  /// Where a node (index from 0) lies in the view, in pixels.
  QPoint PlaceOf(std::size_t node) {
    const Point p = Shown().view.ToFigure(Shown().place[node]);
    return QPointF(p.x / kPixel, p.y / kPixel).toPoint();
  }
  QPoint MiddleOf(std::size_t a, std::size_t b) { return (PlaceOf(a) + PlaceOf(b)) / 2; }
  void ClickAt(const QPoint& place) { QTest::mouseClick(&View(), Qt::LeftButton, {}, place); }
  void Wheel(const QPoint& place, int notches) {
    QWheelEvent event(place, View().mapToGlobal(place), {}, QPoint(0, notches * 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&View(), &event);
  }
  void Key(Qt::Key key) { QTest::keyClick(&View(), key); }
  bool PanelIsShown() { return Child<QWidget>(&View(), "pickPanel")->isVisible(); }
  QString Panel() { return Child<QLabel>(&View(), "pickHeading")->text(); }
  QString Facts() { return Child<QLabel>(&View(), "pickFacts")->text(); }
};

TEST_F(FiguresTest, OpeningAModelShowsItsFigure) {
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(FromQt(Window()->windowTitle()), "入力データモデル図");
  EXPECT_EQ(Shown().model.nodes.size(), 9u);
}

TEST_F(FiguresTest, EveryFigureOpensFromTheMenu) {
  Analyse();
  struct Entry {
    const char* control;
    int kind;
    const char* caption;
  };
  for (const Entry& entry : {Entry{"mnuViewModel", kLoadCheck, "荷重チェック図"},
                             Entry{"mnuViewDiagramDisplacement", kDisplacementFigure, "変位図"},
                             Entry{"mnuViewDiagramNormal", kAxialFigure, "軸力図"},
                             Entry{"mnuViewDiagramShear", kShearFigure, "せん断力図"},
                             Entry{"mnuViewDiagramMoment", kMomentFigure, "ﾓｰﾒﾝﾄ図"},
                             Entry{"mnuModel", kModelFigure, "入力データモデル図"}}) {
    Choose(entry.control);
    EXPECT_EQ(Window()->Kind(), entry.kind) << entry.control;
    EXPECT_EQ(FromQt(Window()->windowTitle()), entry.caption);
  }
  EXPECT_FALSE(Shown().model.StressTable.empty());
}

TEST_F(FiguresTest, ResultFiguresAreOffWithoutResults) {
  for (const char* const control :
       {"mnuViewModel", "mnuViewDiagramMoment", "mnuViewPrnAll", "mnuDesignModelItem(0)"})
    EXPECT_FALSE(Entry(control)->isEnabled()) << control;
  EXPECT_TRUE(Entry("mnuModel")->isEnabled());
}

TEST_F(FiguresTest, TheBarChangesTheFigure) {
  Analyse();
  Tool("figure-moment")->trigger();
  EXPECT_EQ(Window()->Kind(), kMomentFigure);
  Tool("figure-shear")->trigger();
  EXPECT_EQ(Window()->Kind(), kAxialFigure);
  Tool("figure-shear")->trigger();
  EXPECT_EQ(Window()->Kind(), kShearFigure);
  Tool("figure-displacement")->trigger();
  EXPECT_EQ(Window()->Kind(), kDisplacementFigure);
  Tool("figure-loads")->trigger();
  EXPECT_EQ(Window()->Kind(), kLoadCheck);
  Tool("figure-model")->trigger();
  EXPECT_EQ(Window()->Kind(), kModelFigure);
  EXPECT_TRUE(Tool("figure-model")->isChecked());
  EXPECT_FALSE(Tool("figure-loads")->isChecked());
}

TEST_F(FiguresTest, EveryButtonOfTheBarHasAnIconATextAndATip) {
  for (const QAction* const action : Child<QToolBar>(Window(), "")->actions()) {
    if (action->isSeparator() || action->text().isEmpty()) continue;
    EXPECT_FALSE(action->icon().isNull()) << FromQt(action->text());
    EXPECT_FALSE(action->toolTip().isEmpty());
    EXPECT_FALSE(action->statusTip().isEmpty());
  }
}

TEST_F(FiguresTest, TheWheelEnlargesAboutThePointer) {
  const QPoint node = PlaceOf(4);
  const double scale = Shown().view.Vvkei;
  Wheel(node, 2);
  EXPECT_NEAR(Shown().view.Vvkei, scale / (1.25 * 1.25), scale * 1e-9);
  EXPECT_LE((PlaceOf(4) - node).manhattanLength(), 1);
  Wheel(node, -2);
  EXPECT_NEAR(Shown().view.Vvkei, scale, scale * 1e-9);
}

TEST_F(FiguresTest, KeysEnlargeMoveAndShowAll) {
  const double scale = Shown().view.Vvkei, left = Shown().view.Vxmin, top = Shown().view.Vymax;
  Key(Qt::Key_Plus);
  EXPECT_LT(Shown().view.Vvkei, scale);
  Key(Qt::Key_Minus);
  EXPECT_NEAR(Shown().view.Vvkei, scale, scale * 1e-9);
  Key(Qt::Key_Right);  // looks further to the right
  EXPECT_GT(Shown().view.Vxmin, left);
  Key(Qt::Key_Up);
  EXPECT_GT(Shown().view.Vymax, top);
  Key(Qt::Key_Home);
  EXPECT_NEAR(Shown().view.Vxmin, left, 1e-9);
  EXPECT_NEAR(Shown().view.Vymax, top, 1e-9);
}

TEST_F(FiguresTest, TheMiddleButtonDragsTheFigure) {
  const QPoint before = PlaceOf(0);
  QTest::mousePress(&View(), Qt::MiddleButton, {}, QPoint(100, 100));
  QMouseEvent move(QEvent::MouseMove, QPointF(130, 90), View().mapToGlobal(QPointF(130, 90)), Qt::NoButton,
                   Qt::MiddleButton, Qt::NoModifier);
  QApplication::sendEvent(&View(), &move);
  QTest::mouseRelease(&View(), Qt::MiddleButton, {}, QPoint(130, 90));
  EXPECT_EQ(PlaceOf(0) - before, QPoint(30, -10));
}

TEST_F(FiguresTest, ADrawnFrameIsEnlarged) {
  const double scale = Shown().view.Vvkei;
  const QPoint from = PlaceOf(3) - QPoint(40, 40), to = PlaceOf(4) + QPoint(40, 40);
  QTest::mousePress(&View(), Qt::LeftButton, {}, from);
  QMouseEvent move(QEvent::MouseMove, to, View().mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(&View(), &move);
  QTest::mouseRelease(&View(), Qt::LeftButton, {}, to);
  EXPECT_LT(Shown().view.Vvkei, scale);
  EXPECT_TRUE(View().rect().contains(PlaceOf(3)));
  EXPECT_TRUE(View().rect().contains(PlaceOf(4)));
}

TEST_F(FiguresTest, AClickPicksANodeOrAMemberAndEscLeavesIt) {
  ClickAt(PlaceOf(4));
  EXPECT_TRUE(PanelIsShown());
  EXPECT_EQ(Panel(), QStringLiteral("〔5〕節点情報"));
  EXPECT_THAT(FromQt(Facts()), HasSubstr("座標Ｘ"));
  ClickAt(MiddleOf(3, 4));
  EXPECT_EQ(Panel(), QStringLiteral("〔7〕要素情報"));
  EXPECT_THAT(FromQt(Facts()), HasSubstr("要素の長さ"));
  Key(Qt::Key_Escape);
  EXPECT_FALSE(PanelIsShown());
  EXPECT_NE(OpenForm("Model"), nullptr);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return OpenForm("Model") == nullptr; }));
}

TEST_F(FiguresTest, ThePanelNeverCoversThePick) {
  for (std::size_t node = 0; node < Shown().model.nodes.size(); ++node) {
    ClickAt(PlaceOf(node));
    ASSERT_TRUE(PanelIsShown());
    EXPECT_FALSE(Child<QWidget>(&View(), "pickPanel")->geometry().contains(PlaceOf(node))) << node;
  }
}

TEST_F(FiguresTest, ADoubleClickBesideTheFrameShowsAll) {
  const double scale = Shown().view.Vvkei;
  Key(Qt::Key_Plus);
  QTest::mouseDClick(&View(), Qt::LeftButton, {}, QPoint(3, View().height() - 3));
  EXPECT_NEAR(Shown().view.Vvkei, scale, scale * 1e-9);
}

TEST_F(FiguresTest, PageKeysAndTheListChangeTheLoadCase) {
  Analyse();
  Choose("mnuViewDiagramMoment");
  auto* const list = Child<QComboBox>(Window(), "loadCase");
  EXPECT_EQ(list->count(), Shown().model.maxLoadCase);
  Key(Qt::Key_PageDown);
  EXPECT_EQ(Shown().loadCase, 2);
  EXPECT_EQ(list->currentText(), QStringLiteral("2"));
  Key(Qt::Key_PageUp);
  Key(Qt::Key_PageUp);
  EXPECT_EQ(Shown().loadCase, 1);
  list->setCurrentIndex(1);
  emit list->activated(1);
  EXPECT_EQ(Shown().loadCase, 2);
}

TEST_F(FiguresTest, AMissingResultFileIsToldAndTheFrameStays) {
  Analyse();
  RemoveFile(AnalysisPath + "FT031");
  Script().ExpectBox(QStringLiteral("解析結果がありません"), QStringLiteral("OK"));
  Choose("mnuViewDiagramMoment");
  EXPECT_EQ(Shown().model.nodes.size(), 9u);
  EXPECT_TRUE(Shown().model.StressTable.empty());
}

TEST_F(FiguresTest, TheDefinitionShowsTheStoredData) {
  Tool("figure-define")->trigger();
  ClickAt(PlaceOf(4));
  Form* const definition = OpenForm("InpShowDefine");
  ASSERT_NE(definition, nullptr);
  const auto* const node = Child<QTableWidget>(definition, "node");
  EXPECT_EQ(node->item(0, 0)->text(), QStringLiteral("節点番号"));
  EXPECT_EQ(node->item(0, 1)->text(), QStringLiteral("5"));
  EXPECT_EQ(node->item(4, 0)->text(), QStringLiteral("傾斜ローラ角度"));
  ClickAt(MiddleOf(3, 4));
  const auto* const element = Child<QTableWidget>(definition, "element");
  EXPECT_EQ(element->item(0, 1)->text(), QStringLiteral("7"));
  EXPECT_EQ(element->item(1, 0)->text(), QStringLiteral("節点I"));
  EXPECT_EQ(definition->findChild<QTabWidget*>()->currentIndex(), 1);
}

}  // namespace
}  // namespace zorlan::test
