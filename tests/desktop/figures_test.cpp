// The windows of figures, as a person uses them.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>

#include "desktop/desktop_test.h"
#include "desktop/figure_view.h"
#include "desktop/model.h"
#include "desktop/page_view.h"
#include "desktop/preview_pages.h"
#include "desktop/table_view.h"
#include "desktop/table_window.h"
#include "graphics/options.h"
#include "shell/settings.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

using testing::AllOf;
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
  /// The window's content gets this size.
  void Resize(const QSize& size) {
    QWidget* const frame = Window()->parentWidget();
    frame->resize(frame->size() + size - Window()->size());
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    ASSERT_EQ(Window()->size(), size);
  }
  QWidget* Bar() { return Window()->findChild<QToolButton*>()->parentWidget(); }
  bool PanelIsShown() { return Child<QWidget>(&View(), "pickPanel")->isVisible(); }
  QString Panel() { return Child<QLabel>(&View(), "pickHeading")->text(); }
  QString Facts() { return Child<QLabel>(&View(), "pickFacts")->text(); }
};

TEST_F(FiguresTest, OpeningAModelShowsItsFigure) {
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(FromQt(Window()->windowTitle()), "入力データモデル図");
  EXPECT_EQ(Shown().model.nodes.size(), 9u);
}

TEST_F(FiguresTest, InASmallWindowTheBarIsWholeAndTheFigureHasTheRest) {
  Resize({240, 155});
  ASSERT_GT(Bar()->heightForWidth(240), 155 / 2) << "or there is room for both anyway";
  EXPECT_EQ(Bar()->height(), Bar()->heightForWidth(Bar()->width()));
  EXPECT_EQ(View().y(), Bar()->height());
  EXPECT_GT(View().height(), 0);
}

TEST_F(FiguresTest, ASeparatorOfTheBarStandsBetweenTwoToolsOfItsLine) {
  int shown = 0, leftOut = 0;
  for (int width = 200; width <= 460; width += 10) {
    Resize({width, 300});
    for (const QFrame* const line : Bar()->findChildren<QFrame*>()) {
      if (line->frameShape() != QFrame::VLine) continue;
      if (line->width() == 0) {
        ++leftOut;
        continue;
      }
      ++shown;
      bool before = false, behind = false;
      for (const QToolButton* const tool : Bar()->findChildren<QToolButton*>()) {
        if (!tool->isVisible() || tool->y() > line->geometry().bottom() ||
            tool->geometry().bottom() < line->y())
          continue;
        (tool->x() < line->x() ? before : behind) = true;
      }
      EXPECT_TRUE(before && behind) << width << ": " << line->x() << ", " << line->y();
    }
  }
  EXPECT_GT(shown, 0);
  EXPECT_GT(leftOut, 0);
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
  for (const QToolButton* const button : Window()->findChildren<QToolButton*>()) {
    const QAction* const action = button->defaultAction();
    ASSERT_NE(action, nullptr);
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

TEST_F(FiguresTest, ADesignFigureInWhichNoMemberHasARatioSaysSo) {
  Analyse();
  const QString missing = QStringLiteral("断面算定の結果がありません");
  const auto note = [this] { return Child<QLabel>(Window("ModelS"), "note")->text(); };
  Choose("mnuDesignModelItem(0)");
  EXPECT_EQ(note(), missing);
  for (const char* const text : {"", "\x81\xFF\x02", "-1\r\n-1\r\n-1\r\n"}) {
    ReplaceBytes(AnalysisPath + "SIG_S", text);
    Choose("mnuDesignModelItem(0)");
    EXPECT_EQ(note(), missing);
  }
  DispOption.range.yUpper = 1;  // this is told behind what is graver
  Window("ModelS")->FollowOptions();
  EXPECT_EQ(note(), missing + QStringLiteral("　表示範囲を限っています"));
  DispOption.range = {};
  ReplaceBytes(AnalysisPath + "SIG_S", "0.5\r\n");
  Choose("mnuDesignModelItem(0)");
  EXPECT_EQ(note(), QString());
}

TEST_F(FiguresTest, ADesignFigureOfTheModelBeforeItWasChangedSaysSo) {
  Analyse();
  ReplaceBytes(AnalysisPath + "SIG_S", "0.5\r\n");
  const auto deck = std::filesystem::last_write_time(NativePath(DeckPath()));
  std::filesystem::last_write_time(NativePath(AnalysisPath + "SIG_S"), deck - std::chrono::seconds(1));
  Choose("mnuDesignModelItem(0)");
  EXPECT_EQ(Child<QLabel>(Window("ModelS"), "note")->text(),
            QStringLiteral("断面算定の結果は変更前のものです"));
  Choose("mnuViewDiagramMoment");
  EXPECT_EQ(Child<QLabel>(Window("Model"), "note")->text(), QString());
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

TEST_F(FiguresTest, APickGoesIntoTheTableInFront) {
  Choose("mnuDataItem(4)");
  Tool("figure-pick")->trigger();
  ClickAt(PlaceOf(4));
  EXPECT_THAT(FromQt(Child<QLabel>(Window(), "note")->text()), testing::IsEmpty());
  OpenForm("InpNODE")->CloseForm();
  ASSERT_TRUE(QTest::qWaitFor([&] { return OpenForm("InpNODE") == nullptr; }));
  ClickAt(PlaceOf(4));
  EXPECT_EQ(Child<QLabel>(Window(), "note")->text(), QStringLiteral("節点を入れる表が開いていません"));
}

TEST_F(FiguresTest, APickedMemberGoesIntoTheLoadsInFront) {
  Choose("mnuLoad(1)");
  auto* const loads = qobject_cast<TableWindow*>(OpenForm("InpELOD"));
  ASSERT_NE(loads, nullptr);
  const CellPlace at = loads->View().Current();
  Tool("figure-pick")->trigger();
  ClickAt(MiddleOf(3, 4));  // element 7
  EXPECT_EQ(loads->View().Current().row, at.row + 1);
  EXPECT_EQ(loads->Editor().Text({at.page, at.row, 1}), "7");
  EXPECT_THAT(FromQt(Child<QLabel>(Window(), "note")->text()), testing::IsEmpty());
}

TEST_F(FiguresTest, EnterLeadsFromAPickToItsRow) {
  ClickAt(MiddleOf(3, 4));
  Key(Qt::Key_Return);
  EXPECT_NE(OpenForm("InpELEM"), nullptr);
}

TEST_F(FiguresTest, TypedRowsAreShownAndAnotherCommandKeepsThem) {
  TheWindows().drawTyped(
      {{"NODE", {{"", {"1", "0", "0", "1", "1", "1"}}, {"", {"2", "3", "0", "0", "0", "0"}}}},
       {"ELEM", {{"", {"1", "1", "2", "0", "0", "1", "0"}}}}});
  EXPECT_EQ(Shown().model.nodes.size(), 2u);
  EXPECT_EQ(Child<QLabel>(Window(), "note")->text(), QStringLiteral("入力中の表を表示しています"));
  Choose("mnuWindowItem(0)");
  EXPECT_EQ(Shown().model.nodes.size(), 2u);
  Tool("figure-redraw")->trigger();
  EXPECT_EQ(Shown().model.nodes.size(), 9u);
}

TEST_F(FiguresTest, HalfATypedTableIsNotedWithoutABox) {
  TheWindows().drawTyped({{"ELEM", {{"", {"1", "1", "99", "0", "0", "1", "0"}}}}});
  EXPECT_EQ(Child<QLabel>(Window(), "note")->text(), QStringLiteral("要素データに異常が有ります"));
}

TEST_F(FiguresTest, ACommittedTableIsShown) {
  std::string nodes = ReadTextFile(WorkPath + "NODE");
  ReplaceTextFile(WorkPath + "NODE", nodes + "100,20,0,1,1,1\r\n");
  Choose("mnuWindowItem(0)");  // whatever command comes next
  EXPECT_EQ(Shown().model.nodes.size(), 10u);
}

TEST_F(FiguresTest, OptionsAreTakenByOkAlone) {
  const auto colour = [] { return OptionField(DispOption.rows[3], 4); };
  const auto change = [](const char* button) {
    return [button](QWidget& dialog) {
      Child<QComboBox>(&dialog, "row4field2")->setCurrentText(QStringLiteral("3dot"));
      Child<QComboBox>(&dialog, "row1field4")->setCurrentText(QStringLiteral("OFF"));
      Click(dialog, button);
    };
  };
  EXPECT_EQ(colour(), "&H0000FF");
  Script().Expect(QStringLiteral("frmModelOption"), change("cancel"));
  Tool("figure-options")->trigger();
  EXPECT_EQ(DispOption, DefaultModelOptions());
  EXPECT_FALSE(FileExists(AppPath + "MODELEST.PRM"));
  Script().Expect(QStringLiteral("frmModelOption"), change("ok"));
  Tool("figure-options")->trigger();
  EXPECT_EQ(DispOption.rows[3], "要素,3dot,実線,&H0000FF,ON");
  EXPECT_EQ(DispOption.rows[0], "節点番号,ＭＳ ゴシック(8pt),&H000000,OFF");
  EXPECT_FALSE(Shown().options.nodeNumber.visible);
  EXPECT_TRUE(FileExists(AppPath + "MODELEST.PRM"));
}

TEST_F(FiguresTest, OptionsAreWrittenInTheirOwnFormHoweverTheFileHadThem) {
  DispOption.rows[0] = "節点番号,ＭＳ ゴシック(8pt),&hff,ON";
  DispOption.rows[3] = "要素,03,実線,&HFF,ON";
  DispOption.rows[4] = "節点荷重, 12dot ,実線,&H0000ff,ON";
  Script().Expect(QStringLiteral("frmModelOption"), [](QWidget& dialog) {
    EXPECT_EQ(Child<QComboBox>(&dialog, "row4field2")->currentText(), QStringLiteral("3dot"));
    Click(dialog, "ok");
  });
  Tool("figure-options")->trigger();
  EXPECT_EQ(DispOption.rows[0], "節点番号,ＭＳ ゴシック(8pt),&H0000FF,ON");
  EXPECT_EQ(DispOption.rows[3], "要素,3dot,実線,&H0000FF,ON");
  EXPECT_EQ(DispOption.rows[4], "節点荷重,12dot,実線,&H0000FF,ON");
}

TEST_F(FiguresTest, ResetAsksAndCancelBehindItChangesNothing) {
  Script().Expect(QStringLiteral("frmModelOption"), [](QWidget& dialog) {
    Child<QComboBox>(&dialog, "row1field4")->setCurrentText(QStringLiteral("OFF"));
    Click(dialog, "ok");
  });
  Tool("figure-options")->trigger();
  Script().Expect(QStringLiteral("frmModelOption"), [this](QWidget& dialog) {
    Script().ExpectBox(QStringLiteral("設定を初期化してよろしいですか？"), QStringLiteral("はい"));
    auto* const reset = Child<QPushButton>(&dialog, "reset");
    QTimer::singleShot(0, reset, [reset] { reset->click(); });
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return Child<QComboBox>(&dialog, "row1field4")->currentText() == QStringLiteral("ON"); }));
    Click(dialog, "cancel");
  });
  Tool("figure-options")->trigger();
  EXPECT_EQ(OptionField(DispOption.rows[0], 4), "OFF");
}

TEST_F(FiguresTest, EachFigureHasTheOptionsThatSuitIt) {
  Analyse();
  Script().Expect(QStringLiteral("frmAnalysisOption"), [](QWidget& dialog) {
    Child<QDoubleSpinBox>(&dialog, "heightMoment")->setValue(2.5);
    Child<QComboBox>(&dialog, "decimalsMoment")->setCurrentText(QStringLiteral("1"));
    Child<QCheckBox>(&dialog, "allCases")->setChecked(false);
    Click(dialog, "ok");
  });
  Choose("mnuViewDiagramMoment");
  Tool("figure-options")->trigger();
  EXPECT_EQ(Shown().options.HeightMoment, 2.5f);
  EXPECT_EQ(Shown().options.DecimalsMoment, 1);
  EXPECT_FALSE(Shown().options.ScaleOverAllCases);
  Script().Expect(QStringLiteral("frmDesignOption"), [](QWidget& dialog) { Click(dialog, "cancel"); });
  Choose("mnuDesignModelItem(0)");
  Window("ModelS")->Use(zorlan::Tool::Options);
  Script().Expect(QStringLiteral("frmModelOption"), [](QWidget& dialog) { Click(dialog, "cancel"); });
  Choose("minViewOption(0)");
  Script().Expect(QStringLiteral("frmAnalysisOption"), [](QWidget& dialog) { Click(dialog, "cancel"); });
  Choose("minViewOption(1)");
}

TEST_F(FiguresTest, HeightsThatNobodyTouchesStayAsTheyAre) {
  Analyse();
  DispOptionAna.HeightMoment = 0.053F;  // finer than the box shows
  DispOptionAna.HeightShear = 250;
  DispOptionAna.HeightNormal = 0;
  AnalysisOptions expected = DispOptionAna;
  Choose("mnuViewDiagramMoment");
  Script().Expect(QStringLiteral("frmAnalysisOption"), [](QWidget& dialog) { Click(dialog, "ok"); });
  Tool("figure-options")->trigger();
  EXPECT_EQ(DispOptionAna, expected);
  Script().Expect(QStringLiteral("frmAnalysisOption"), [](QWidget& dialog) {
    EXPECT_EQ(Child<QDoubleSpinBox>(&dialog, "heightShear")->value(), 250);
    Child<QDoubleSpinBox>(&dialog, "heightShear")->setValue(2.5);
    Click(dialog, "ok");
  });
  Tool("figure-options")->trigger();
  expected.HeightShear = 2.5F;
  EXPECT_EQ(DispOptionAna, expected);
}

TEST_F(FiguresTest, AClassOfRatiosIsNamedByTheBoundsInForce) {
  Analyse();
  DispOptionDesgn.rows[4] = "1.2,,1dot,実線,&H0000FF,ON";
  DispOptionDesgn.rows[5] = "0.8,1.2,1dot,実線,&H00FFFF,ON";
  Choose("mnuDesignModelItem(0)");
  Script().Expect(QStringLiteral("frmDesignOption"), [this](QWidget& dialog) {
    const auto name = [&](const char* label) { return FromQt(Child<QLabel>(&dialog, label)->text()); };
    EXPECT_EQ(name("row1name"), "節点番号");
    EXPECT_EQ(name("row5name"), "検定比 1.2 以上");
    EXPECT_EQ(name("row6name"), "検定比 0.8 以上 1.2 未満");
    Script().ExpectBox(QStringLiteral("設定を初期化してよろしいですか？"), QStringLiteral("はい"));
    auto* const reset = Child<QPushButton>(&dialog, "reset");
    QTimer::singleShot(0, reset, [reset] { reset->click(); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return name("row5name") == "検定比 1.0 以上"; }));
    EXPECT_EQ(name("row6name"), "検定比 0.9 以上 1.0 未満");
    Click(dialog, "cancel");
  });
  Window("ModelS")->Use(zorlan::Tool::Options);
}

TEST_F(FiguresTest, TheSizeOfATextIsAskedForAndItsFaceStays) {
  DispOption.rows[0] = "節点番号,ＭＳ 明朝(10.25pt),&H000000,ON";
  const auto set = [this](std::optional<double> size) {
    Script().Expect(QStringLiteral("frmModelOption"), [this, size](QWidget& dialog) {
      Script().Expect(QStringLiteral("fontSize"), [size](QWidget& question) {
        if (size) Child<QDoubleSpinBox>(&question, "points")->setValue(*size);
        Click(question, "ok");
      });
      auto* const font = Child<QPushButton>(&dialog, "row1field2");
      QTimer::singleShot(0, font, [font] { font->click(); });
      ASSERT_TRUE(
          QTest::qWaitFor([&] { return Script().Done() && QApplication::activeModalWidget() == &dialog; }));
      Click(dialog, "ok");
    });
    Tool("figure-options")->trigger();
  };
  set(std::nullopt);
  EXPECT_EQ(DispOption.rows[0], "節点番号,ＭＳ 明朝(10.25pt),&H000000,ON");
  set(12.5);
  EXPECT_EQ(DispOption.rows[0], "節点番号,ＭＳ 明朝(12.5pt),&H000000,ON");
}

TEST_F(FiguresTest, TheViewingRangeHidesWhatLiesOutside) {
  Script().Expect(QStringLiteral("SetLimit1"), [](QWidget& dialog) {
    Type(Child<QLineEdit>(&dialog, "yUpper"), QStringLiteral("1"));
    Click(dialog, "ok");
  });
  Tool("figure-range")->trigger();
  EXPECT_EQ(DispOption.range.yUpper, 1);
  DispOption.range = {};
  LoadModelOptions();
  EXPECT_EQ(DispOption.range.yUpper, 1) << "not kept for the next start";
  EXPECT_EQ(std::count(Shown().shown.begin(), Shown().shown.end(), 1), 0);  // the feet of the columns alone
  EXPECT_EQ(Child<QLabel>(Window(), "note")->text(), QStringLiteral("表示範囲を限っています"));
  Script().Expect(QStringLiteral("SetLimit1"), [](QWidget& dialog) {
    EXPECT_EQ(Child<QLineEdit>(&dialog, "yUpper")->text(), QStringLiteral("1"));
    Child<QRadioButton>(&dialog, "oneEnd")->setChecked(true);
    Click(dialog, "ok");
  });
  Tool("figure-range")->trigger();
  EXPECT_EQ(std::count(Shown().shown.begin(), Shown().shown.end(), 1), 3);  // and now the columns on them
  Script().Expect(QStringLiteral("SetLimit1"), [](QWidget& dialog) {
    Click(dialog, "none");
    Click(dialog, "ok");
  });
  Tool("figure-range")->trigger();
  EXPECT_EQ(DispOption.range, ViewingRange());
}

TEST_F(FiguresTest, ALowerLimitAboveTheUpperIsRefused) {
  Script().Expect(QStringLiteral("SetLimit1"), [this](QWidget& dialog) {
    Type(Child<QLineEdit>(&dialog, "xLower"), QStringLiteral("5"));
    Type(Child<QLineEdit>(&dialog, "xUpper"), QStringLiteral("1"));
    Script().ExpectBox(QStringLiteral("下限が上限"), QStringLiteral("OK"));
    auto* const ok = Child<QPushButton>(&dialog, "ok");
    QTimer::singleShot(0, ok, [ok] { ok->click(); });
    ASSERT_TRUE(QTest::qWaitFor([this] { return Script().Done(); }));
    EXPECT_TRUE(dialog.isVisible());
    Click(dialog, "cancel");
  });
  Tool("figure-range")->trigger();
  EXPECT_EQ(DispOption.range, ViewingRange());
}

TEST_F(FiguresTest, ALimitThatIsNoNumberIsRefusedAtItsBox) {
  for (const char* const typed : {"-", ".", "-.", "1e", "1e999"}) {
    Script().Expect(QStringLiteral("SetLimit1"), [this, typed](QWidget& dialog) {
      auto* const box = Child<QLineEdit>(&dialog, "yLower");
      Type(box, QString::fromLatin1(typed));
      EXPECT_EQ(FromQt(box->text()), typed);
      Script().ExpectBox(QStringLiteral("「%1」 は数値ではありません").arg(QLatin1String(typed)),
                         QStringLiteral("OK"));
      auto* const ok = Child<QPushButton>(&dialog, "ok");
      QTimer::singleShot(0, ok, [ok] { ok->click(); });
      ASSERT_TRUE(QTest::qWaitFor([this] { return Script().Done(); })) << typed;
      EXPECT_TRUE(QTest::qWaitFor([box] { return box->selectedText() == box->text(); })) << typed;
      EXPECT_TRUE(dialog.isVisible()) << typed;
      EXPECT_EQ(dialog.focusWidget(), box) << typed;
      Click(dialog, "cancel");
    });
    Tool("figure-range")->trigger();
    EXPECT_EQ(DispOption.range, ViewingRange()) << typed;
  }
}

TEST_F(FiguresTest, LimitsAreNumbersInAnyOfTheirForms) {
  struct LimitCase {
    const char* typed;
    double limit;
  };
  for (const LimitCase& c : {LimitCase{"-.5", -0.5}, {"+3.", 3}, {"2e1", 20}, {" 7 ", 7}}) {
    Script().Expect(QStringLiteral("SetLimit1"), [&c](QWidget& dialog) {
      Type(Child<QLineEdit>(&dialog, "yUpper"), QString::fromLatin1(c.typed));
      Click(dialog, "ok");
    });
    Tool("figure-range")->trigger();
    EXPECT_EQ(DispOption.range.yUpper, c.limit) << c.typed;
  }
}

TEST_F(FiguresTest, LimitsThatNobodyTouchesKeepTheirLastDigit) {
  const ViewingRange fine{.xLower = -7.0 / 3, .xUpper = 2.33333333, .yUpper = 1e-9};
  DispOption.range = fine;
  const auto ok = [](QWidget& dialog) { Click(dialog, "ok"); };
  Script().Expect(QStringLiteral("SetLimit1"), ok);
  Tool("figure-range")->trigger();
  EXPECT_EQ(DispOption.range, fine);
  Script().Expect(QStringLiteral("SetLimit1"), [](QWidget& dialog) {
    Type(Child<QLineEdit>(&dialog, "xLower"), QStringLiteral("-2.5"));
    Child<QLineEdit>(&dialog, "yUpper")->clear();
    Click(dialog, "ok");
  });
  Tool("figure-range")->trigger();
  EXPECT_EQ(DispOption.range, (ViewingRange{.xLower = -2.5, .xUpper = 2.33333333}));
}

/// The choice of figures for pages.
class FigurePagesTest : public FiguresTest {
 protected:
  void SetUp() override {
    FiguresTest::SetUp();
    Analyse();
  }
  /// Fills in the choice of "一括印刷" and presses a button.
  void Choice(std::function<void(QWidget&)> fill, const char* button = "ok") {
    Script().Expect(QStringLiteral("frmSelctLC"), [fill, button](QWidget& dialog) {
      fill(dialog);
      Click(dialog, button);
    });
    Choose("mnuViewPrnAll");
  }
  static void Select(QWidget& dialog, const char* list, int count) {
    for (int row = 0; row < count; ++row) Child<QListWidget>(&dialog, list)->item(row)->setSelected(true);
  }
  int Pages() { return Child<QSpinBox>(OpenForm("frmPrnText"), "page")->maximum(); }
};

TEST_F(FigurePagesTest, FiveFiguresInFourCellsGiveTwoPages) {
  Choice([](QWidget& dialog) {
    Select(dialog, "cases5", 3);
    Select(dialog, "cases2", 2);
    Click(dialog, "layout5");
    Click(dialog, "横");
  });
  ASSERT_NE(OpenForm("frmPrnText"), nullptr);
  EXPECT_EQ(Pages(), 2);
  EXPECT_EQ(PrinterSettings.orientation, kLandscape);
  EXPECT_TRUE(FileExists(AppPath + "SelctLC.Txt"));
  const std::string pdf = Documents() + "図.pdf";
  Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(pdf));
  Click(*OpenForm("frmPrnText"), "pdf");
  EXPECT_THAT(ReadBytes(pdf), AllOf(StartsWith("%PDF"), HasSubstr("/Count 2")));
  OpenForm("frmPrnText")->CloseForm();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !FileExists(AppPath + "SelctLC.Txt"); }));
  EXPECT_TRUE(FileExists(AppPath + "AllPrnSet.txt"));
}

/// Whether a picture has anything but white in a rectangle, in shares of its sides.
bool HasInk(const QImage& image, const QRectF& where) {
  const QRect part = QRectF(where.x() * image.width(), where.y() * image.height(),
                            where.width() * image.width(), where.height() * image.height())
                         .toRect();
  for (int y = part.top(); y <= part.bottom(); ++y)
    for (int x = part.left(); x <= part.right(); ++x)
      if (image.pixel(x, y) != qRgb(255, 255, 255)) return true;
  return false;
}

TEST_F(FigurePagesTest, APageHasItsNumberBelowAndIsCopiedAsAPicture) {
  Choice([](QWidget& dialog) { Click(dialog, "all2"); });
  EXPECT_EQ(PrinterSettings.pageNumbers, kPageNumbers);
  Click(*OpenForm("frmPrnText"), "copy");
  const QImage page = QApplication::clipboard()->image();
  EXPECT_EQ(page.size(), QSize(1654, 2339));                  // A4 with 200 dots an inch
  EXPECT_TRUE(HasInk(page, QRectF(0.1, 0.03, 0.5, 0.05)));    // the title
  EXPECT_TRUE(HasInk(page, QRectF(0.45, 0.945, 0.1, 0.03)));  // "Page-1"
  EXPECT_FALSE(HasInk(page, QRectF(0, 0.98, 1, 0.02)));
}

TEST_F(FigurePagesTest, ThePreviewShowsThePageToItsLowerEdge) {
  Choice([](QWidget& dialog) { Click(dialog, "all2"); });
  Child<QComboBox>(OpenForm("frmPrnText"), "zoom")->setCurrentText(QStringLiteral("全体表示"));
  auto* const view = Child<PageView>(OpenForm("frmPrnText"), "pages");
  const QImage shown = view->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  // The sheet's rows: from the first white pixel of the middle column to the last.
  const int middle = shown.width() / 2;
  int top = shown.height(), bottom = 0;
  for (int y = 0; y < shown.height(); ++y)
    if (shown.pixel(middle, y) == qRgb(255, 255, 255)) top = std::min(top, y), bottom = y;
  ASSERT_GT(bottom - top, 200);
  const int number = top + static_cast<int>((bottom - top) * 0.945);
  EXPECT_TRUE(HasInk(shown.copy(middle - 20, number, 40, (bottom - top) / 33), QRectF(0, 0, 1, 1)));
}

// A sheet on half as many pixels of a fine screen has the same dots.
TEST_F(FigurePagesTest, AFineScreenShowsTheSamePage) {
  Choose("mnuViewDiagramMoment");
  FigurePreview pages(Shown(), {{kMomentFigure, 1}, {kLoadCheck, 1}}, 1, std::nullopt);
  const auto painted = [&](double dotsPerPixel) {
    QImage image(600, 850, QImage::Format_RGB32);
    image.setDevicePixelRatio(dotsPerPixel);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(600 / dotsPerPixel / pages.Sheet().width(), 600 / dotsPerPixel / pages.Sheet().width());
    pages.Paint(painter, 0);
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
  };
  const QImage coarse = painted(1);
  EXPECT_TRUE(HasInk(coarse, QRectF(0, 0, 0.5, 1)));
  EXPECT_EQ(painted(2), coarse);
}

TEST_F(FigurePagesTest, TheLastChoiceIsOfferedAgain) {
  Choice([](QWidget& dialog) {
    EXPECT_FALSE(Child<QCheckBox>(&dialog, "type5")->isChecked());
    Click(dialog, "all5");
    EXPECT_TRUE(Child<QCheckBox>(&dialog, "type5")->isChecked());
    Click(dialog, "layout3");
  });
  Choice(
      [](QWidget& dialog) {
        EXPECT_TRUE(Child<QCheckBox>(&dialog, "type5")->isChecked());
        EXPECT_EQ(Child<QListWidget>(&dialog, "cases5")->selectedItems().size(), 5);
        EXPECT_TRUE(Child<QToolButton>(&dialog, "layout3")->isChecked());
      },
      "cancel");
}

TEST_F(FigurePagesTest, AnotherChoiceIntoTheOpenPreviewIsHandedOverToo) {
  const auto moments = [](QWidget& dialog) { Select(dialog, "cases5", 1); };
  Choice(moments);
  Choice([](QWidget& dialog) { Select(dialog, "cases2", 2); });
  EXPECT_EQ(Pages(), 3);  // the moments of the batch kept, and these
  EXPECT_TRUE(FileExists(AppPath + "SelctLC.Txt"));
}

TEST_F(FigurePagesTest, AChoiceWithoutCasesIsRefused) {
  Script().Expect(QStringLiteral("frmSelctLC"), [this](QWidget& dialog) {
    Script().ExpectBox(QStringLiteral("プレビューする図面タイプの荷重ケースを選択してください！！！"),
                       QStringLiteral("OK"));
    auto* const ok = Child<QPushButton>(&dialog, "ok");
    QTimer::singleShot(0, ok, [ok] { ok->click(); });
    ASSERT_TRUE(QTest::qWaitFor([this] { return Script().Done(); }));
    Click(dialog, "cancel");
  });
  Choose("mnuViewPrnAll");
  EXPECT_EQ(OpenForm("frmPrnText"), nullptr);
}

TEST_F(FigurePagesTest, AFigureIsPrintedFromItsWindow) {
  Choose("mnuViewDiagramShear");
  Key(Qt::Key_PageDown);
  Script().Expect(QStringLiteral("frmSelctLC"), [](QWidget& dialog) {
    const QList<QListWidgetItem*> chosen = Child<QListWidget>(&dialog, "cases4")->selectedItems();
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen.front()->text(), QStringLiteral("2"));
    EXPECT_EQ(dialog.findChild<QListWidget*>(QStringLiteral("cases5")), nullptr);
    Click(dialog, "ok");
  });
  Tool("figure-print")->trigger();
  EXPECT_EQ(Pages(), 1);
}

// Enlarged six times by 1.25 about its middle, the frame shows the moments over its middle column and none at
// the feet, on paper too; all of it again once all is in sight.
TEST_F(FigurePagesTest, APageShowsWhatTheWindowShows) {
  Choose("mnuViewDiagramMoment");
  for (int times = 0; times < 6; ++times) Key(Qt::Key_Plus);
  const std::string dxf = Documents() + "図.dxf";
  const auto printed = [&] {
    Script().Expect(QStringLiteral("frmSelctLC"), [](QWidget& dialog) { Click(dialog, "ok"); });
    Tool("figure-print")->trigger();
    Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(dxf));
    Click(*OpenForm("frmPrnText"), "dxf");
    OpenForm("frmPrnText")->CloseForm();
    return ReadTextFile(dxf);
  };
  EXPECT_THAT(printed(), AllOf(HasSubstr("81.51"), testing::Not(HasSubstr("8.25"))));
  View().ShowAll();
  RemoveFile(dxf);
  EXPECT_THAT(printed(), AllOf(HasSubstr("81.51"), HasSubstr("8.25")));
}

TEST_F(FigurePagesTest, TheModelFigureGoesToItsPageAtOnce) {
  Tool("figure-print")->trigger();
  EXPECT_EQ(Pages(), 1);
}

TEST_F(FigurePagesTest, APageIsWrittenAsDxf) {
  Choice([](QWidget& dialog) { Click(dialog, "all5"); });
  Child<QSpinBox>(OpenForm("frmPrnText"), "page")->setValue(2);
  const std::string dxf = Documents() + "図.dxf";
  Script().Expect(QStringLiteral("QFileDialog"), [&](QWidget& dialog) {
    EXPECT_EQ(Child<QLineEdit>(&dialog, "fileNameEdit")->text(), QStringLiteral("Page-2.dxf"));
    ChooseFile(dxf)(dialog);
  });
  Click(*OpenForm("frmPrnText"), "dxf");
  EXPECT_THAT(ReadTextFile(dxf), AllOf(HasSubstr("AC1009"), HasSubstr("荷重ｹｰｽ=2"), HasSubstr("MOMENT")));
  EXPECT_TRUE(FileExists(WorkPath + "Page-2.tmp"));
}

TEST_F(FigurePagesTest, ADxfFileThatCantBeWrittenIsToldByItsPage) {
  Choice([](QWidget& dialog) { Click(dialog, "all5"); });
  MakeFolder(WorkPath + "Page-1.tmp");  // in the way of the drawing list
  Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(Documents() + "図.dxf"));
  Script().ExpectBox(QStringLiteral("ページNo=1のDXFファイルは、作成できませんでした"), QStringLiteral("OK"));
  Click(*OpenForm("frmPrnText"), "dxf");
  EXPECT_FALSE(FileExists(Documents() + "図.dxf"));
}

TEST_F(FigurePagesTest, TheOptionsOfThePreviewAreThoseOfThePageInSight) {
  Choice([](QWidget& dialog) {
    Click(dialog, "all1");
    Click(dialog, "all5");
  });
  EXPECT_EQ(Pages(), 10);
  Script().Expect(QStringLiteral("frmModelOption"), [](QWidget& dialog) { Click(dialog, "cancel"); });
  Click(*OpenForm("frmPrnText"), "options");
  Child<QSpinBox>(OpenForm("frmPrnText"), "page")->setValue(10);
  Script().Expect(QStringLiteral("frmAnalysisOption"), [](QWidget& dialog) { Click(dialog, "cancel"); });
  Click(*OpenForm("frmPrnText"), "options");
}

TEST_F(FigurePagesTest, AListingHasNoButtonsForFigures) {
  Choose("mnuAnalysisStatic(2)");
  EXPECT_FALSE(Child<QPushButton>(OpenForm("frmPrnText"), "dxf")->isEnabled());
  EXPECT_FALSE(Child<QPushButton>(OpenForm("frmPrnText"), "options")->isEnabled());
}

}  // namespace
}  // namespace zorlan::test
