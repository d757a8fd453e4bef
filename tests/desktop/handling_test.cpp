// What a day's work needs of all windows: places, sizes, keys and words.
#include <QAbstractProxyModel>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QStatusBar>
#include <QToolButton>
#include <set>

#include "desktop/boxes.h"
#include "desktop/elided_label.h"
#include "desktop/figure_view.h"
#include "desktop/flow_row.h"
#include "desktop/kozai_sentaku.h"
#include "desktop/model.h"
#include "desktop/scroll_content.h"
#include "desktop/table_form_test.h"
#include "sections/steel_tables.h"
#include "shell/commands.h"
#include "shell/project_copies.h"
#include "shell/settings.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class HandlingTest : public TableFormTest {
 protected:
  QRect FrameOf(const char* form) { return OpenForm(form)->parentWidget()->geometry(); }
  QMdiSubWindow* Frame(const char* form) {
    return qobject_cast<QMdiSubWindow*>(OpenForm(form)->parentWidget());
  }
  Model* Figure() { return qobject_cast<Model*>(OpenForm("Model")); }
  std::string Picked() {
    const auto* const panel = Child<QWidget>(&Figure()->View(), "pickPanel");
    return panel->isVisible() ? FromQt(Child<QLabel>(panel, "pickHeading")->text()) : "";
  }
  /// Walks through every dialog of the program.
  void WalkDialogs(const ModalScript::Act& look);
};

void HandlingTest::WalkDialogs(const ModalScript::Act& look) {
  const auto visit = [&](const char* dialog, const char* entry) {
    Script().Expect(QString::fromUtf8(dialog), look);
    Choose(entry);
  };
  visit("frmProject", "mnuFileItem(1)");
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  visit("frmProject", "mnuFileItem(3)");
  visit("frmProject", "mnuFileItem(4)");
  visit("frmFolder", "mnuProjectItem(0)");
  visit("ToZOR2", "mnuFileItem(7)");
  visit("frmPrinterSet", "mnuFileItem(8)");
  visit("frmModelOption", "minViewOption(0)");
  visit("frmAnalysisOption", "minViewOption(1)");
  Script().Expect(QStringLiteral("frmKozaiSentaku"), look);
  ChooseSteelSection("BOX", "", &Window());
  visit("frmSelctLC", "mnuViewPrnAll");
  visit("frmCsvFile", "mnuAnalysisStatic(3)");
  Script().Expect(QStringLiteral("SetLimit1"), look);
  Figure()->Use(Tool::Range);
  Choose("mnuDesignModelItem(0)");
  Script().Expect(QStringLiteral("frmDesignOption"), look);
  qobject_cast<Model*>(OpenForm("ModelS"))->Use(Tool::Options);
  ShowText(kPrintListing, /*preview=*/true);
  Script().Expect(QStringLiteral("frmPrinterSet2"), look);
  Click(*OpenForm("frmPrnText"), "setUp");
  NameDialog name;
  Script().Expect(QStringLiteral("frmName"), look);
  TheWindows().nameDialog(name);
  Script().Expect(QStringLiteral("AddNum"), look);
  TheWindows().addNum("Add");
  std::vector<std::string> cells = {"1", "0"};
  Script().Expect(QStringLiteral("frmDanmenInput"), look);
  TheWindows().sectionEntry(cells);
}

TEST_F(HandlingTest, EnterMeansTheButtonAtTheBottomOfEveryDialog) {
  std::set<std::string> seen;
  WalkDialogs([&](QWidget& window) {
    auto& dialog = static_cast<QDialog&>(window);
    const std::string name = FromQt(dialog.objectName());
    seen.insert(name);
    const QPushButton* enter = nullptr;
    for (const QPushButton* const button : dialog.findChildren<QPushButton*>()) {
      if (button->isDefault()) enter = button;
      const bool among = qobject_cast<const QDialogButtonBox*>(button->parentWidget()) == nullptr;
      EXPECT_FALSE(among && button->autoDefault()) << name << ": " << FromQt(button->text());
    }
    if (enter == nullptr)
      ADD_FAILURE() << name << " has no button for Enter";
    else
      EXPECT_EQ(FromQt(enter->objectName()), name == "ToZOR2" ? "convert" : "ok") << name;
    dialog.reject();
  });
  EXPECT_EQ(seen.size(), 15u);
}

TEST_F(HandlingTest, NoDialogIsLargerThanASmallScreenAndItsButtonsStayInSight) {
  constexpr QSize kSmall(632, 320);  // 1280 x 720 at 200 %, without the window's frame
  WalkDialogs([&](QWidget& window) {
    auto& dialog = static_cast<QDialog&>(window);
    const std::string name = FromQt(dialog.objectName());
    ScrollWhereTooLarge(dialog, kSmall);
    dialog.resize(kSmall);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    EXPECT_LE(dialog.width(), kSmall.width()) << name;
    EXPECT_LE(dialog.height(), kSmall.height()) << name;
    for (const QPushButton* const button :
         dialog.findChild<QDialogButtonBox*>()->findChildren<QPushButton*>()) {
      const QRect place(button->mapTo(&dialog, QPoint(0, 0)), button->size());
      EXPECT_TRUE(dialog.rect().contains(place)) << name << ": " << FromQt(button->text());
    }
    // What Tab comes to is in sight.
    for (int i = 0; i < 60; ++i) {
      QWidget* const at = dialog.focusWidget();
      ASSERT_NE(at, nullptr) << name;
      QRect seen(at->mapTo(&dialog, QPoint(0, 0)), at->size());
      EXPECT_TRUE(dialog.rect().intersects(seen)) << name << ": " << FromQt(at->objectName());
      QTest::keyClick(at, Qt::Key_Tab);
    }
    dialog.reject();
  });
}

TEST_F(HandlingTest, TheSectionDialogKeepsItsSizeFromKindToKind) {
  Script().Expect(QStringLiteral("frmDanmenInput"), [](QWidget& dialog) {
    const QSize size = dialog.size();
    auto* const kinds = Child<QListWidget>(&dialog, "kinds");
    for (int row = 1; row < kinds->count(); ++row) {
      QTest::keyClick(kinds, Qt::Key_Down);
      QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
      EXPECT_EQ(dialog.size(), size) << row;
      EXPECT_LE(dialog.minimumSizeHint().height(), size.height()) << row;
    }
    Click(dialog, "cancel");
  });
  std::vector<std::string> cells = {"1", "0"};
  TheWindows().sectionEntry(cells);
}

TEST_F(HandlingTest, EveryWindowCanBeSeenInACascade) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  for (const char* const entry : {"mnuDataItem(4)", "mnuDataItem(5)", "mnuDataItem(6)"}) Choose(entry);
  Choose("mnuWindowItem(1)");
  Choose("mnuWindowItem(0)");
  const char* const names[] = {"InpNODE", "InpELEM", "InpSECT", "Model"};
  std::set<std::pair<int, int>> corners;
  for (const char* const name : names) {
    corners.insert({FrameOf(name).x(), FrameOf(name).y()});
    EXPECT_GE(FrameOf(name).height(), 240) << name;
    EXPECT_TRUE(Window().Forms().viewport()->rect().contains(FrameOf(name))) << name;
  }
  EXPECT_EQ(corners.size(), 4u);
}

TEST_F(HandlingTest, AFormThatWasLeftBeyondAnEdgeComesUpWhole) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  OpenNodes();
  const QSize size = FrameOf("InpNODE").size();
  Frame("InpNODE")->move(Window().Forms().viewport()->width() - 40, 500);
  OpenForm("InpNODE")->CloseForm();
  ASSERT_TRUE(QTest::qWaitFor([&] { return OpenForm("InpNODE") == nullptr; }));
  OpenNodes();
  EXPECT_EQ(FrameOf("InpNODE").size(), size);
  EXPECT_TRUE(Window().Forms().viewport()->rect().contains(FrameOf("InpNODE")));
}

TEST_F(HandlingTest, TheTableAndItsFigureStandSideBySideAndTheTableKeepsTheKeys) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  OpenNodes();
  Press(Qt::Key_Down);
  Press(Qt::Key_R, Qt::ControlModifier);
  EXPECT_TRUE(FrameOf("Model").intersected(FrameOf("InpNODE")).isEmpty());
  EXPECT_TRUE(Table().View().hasFocus());
  EXPECT_EQ(Window().Forms().activeSubWindow(), Frame("InpNODE"));
  EXPECT_EQ(Picked(), "〔2〕節点情報");
  Figure()->CloseForm();
  ASSERT_TRUE(QTest::qWaitFor([&] { return OpenForm("Model") == nullptr; }));
  Press(Qt::Key_Down);
  Press(Qt::Key_R, Qt::ControlModifier);
  ASSERT_NE(Figure(), nullptr);
  EXPECT_TRUE(FrameOf("Model").intersected(FrameOf("InpNODE")).isEmpty());
  EXPECT_TRUE(Table().View().hasFocus());
  EXPECT_EQ(Picked(), "〔3〕節点情報");
}

TEST_F(HandlingTest, WithoutRoomForBothTheTableStaysAndSaysWhereTheFigureIs) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Window().resize(640, 360);
  OpenNodes();
  Press(Qt::Key_R, Qt::ControlModifier);
  EXPECT_TRUE(Table().View().hasFocus());
  EXPECT_EQ(Status(), "モデル図は、この表の後ろにあります (Ctrl+Tab)");
  EXPECT_EQ(Picked(), "〔1〕節点情報");
}

TEST_F(HandlingTest, AWideTableMakesRoomForTheFigureBelowIt) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  OpenTable("mnuDataItem(6)", "InpSECT");
  Press(Qt::Key_R, Qt::ControlModifier);
  EXPECT_TRUE(FrameOf("Model").intersected(FrameOf("InpSECT")).isEmpty());
  EXPECT_GE(FrameOf("Model").height(), 240);
  EXPECT_THAT(Picked(), IsEmpty());  // a section is no thing of the figure
}

TEST_F(HandlingTest, ARowOfLoadsShowsItsMember) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  OpenTable("mnuLoad(1)", "InpELOD");
  const std::string member = Cell(1, 1);
  ASSERT_THAT(member, Not(IsEmpty()));
  Press(Qt::Key_R, Qt::ControlModifier);
  EXPECT_EQ(Picked(), "〔" + member + "〕要素情報");
}

TEST_F(HandlingTest, KeysWalkThroughNodesAndMembersAndEnterLeadsToTheRow) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  QWidget* const view = &Figure()->View();
  QTest::keyClick(view, Qt::Key_N);
  EXPECT_EQ(Picked(), "〔1〕節点情報");
  QTest::keyClick(view, Qt::Key_N);
  EXPECT_EQ(Picked(), "〔2〕節点情報");
  QTest::keyClick(view, Qt::Key_N, Qt::ShiftModifier);
  QTest::keyClick(view, Qt::Key_N, Qt::ShiftModifier);
  EXPECT_EQ(Picked(), "〔9〕節点情報");
  QTest::keyClick(view, Qt::Key_M);
  QTest::keyClick(view, Qt::Key_M);
  EXPECT_EQ(Picked(), "〔2〕要素情報");
  QTest::keyClick(view, Qt::Key_Return);
  ASSERT_NE(OpenForm("InpELEM"), nullptr);
  EXPECT_EQ(qobject_cast<TableWindow*>(OpenForm("InpELEM"))->View().Current().row, 2);
}

TEST_F(HandlingTest, APickOutOfSightComesIntoSight) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  FigureView& view = Figure()->View();
  for (int i = 0; i < 10; ++i) QTest::keyClick(&view, Qt::Key_Plus);
  for (int node = 1; node <= 9; ++node) {
    QTest::keyClick(&view, Qt::Key_N);
    ASSERT_TRUE(view.MarkedPlace().has_value());
    EXPECT_TRUE(view.rect().contains(view.MarkedPlace()->toPoint())) << node;
  }
}

TEST_F(HandlingTest, WithTheInputToolOnEnterPutsThePickIntoTheTable) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  OpenTable("mnuLoad(1)", "InpELOD");
  const int row = At().row;
  Figure()->findChild<QAction*>(QStringLiteral("figure-pick"))->trigger();
  QTest::keyClick(&Figure()->View(), Qt::Key_M, Qt::ShiftModifier);
  const std::string before = Cell(row, 1);
  EXPECT_EQ(Cell(row, 1), before);  // walking alone enters nothing
  QTest::keyClick(&Figure()->View(), Qt::Key_Return);
  EXPECT_EQ(At().row, row + 1);
  EXPECT_EQ("〔" + Cell(row, 1) + "〕要素情報", Picked());
}

TEST_F(HandlingTest, ResultToolsAreOffUntilThereAreResults) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  const auto tool = [&](const char* name) {
    return Figure()->findChild<QAction*>(QString::fromLatin1(name));
  };
  const char* const names[] = {"figure-loads", "figure-displacement", "figure-shear", "figure-moment"};
  for (const char* const name : names) {
    EXPECT_FALSE(tool(name)->isEnabled()) << name;
    EXPECT_THAT(FromQt(tool(name)->toolTip()), HasSubstr("静解析")) << name;
  }
  Choose("mnuAnalysisStatic(0)");
  for (const char* const name : names) {
    EXPECT_TRUE(tool(name)->isEnabled()) << name;
    EXPECT_THAT(FromQt(tool(name)->toolTip()), Not(HasSubstr("静解析"))) << name;
  }
}

TEST_F(HandlingTest, AToolThatTabComesToIsExplained) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Figure()->View().setFocus();
  Press(Qt::Key_Tab);
  ASSERT_NE(qobject_cast<QToolButton*>(Focus()), nullptr);
  EXPECT_EQ(Status(), "図を描き直します");
  Press(Qt::Key_Tab);
  EXPECT_THAT(Status(), HasSubstr("拡大します"));
}

TEST_F(HandlingTest, TheCurrentCellOfATableBehindIsGrey) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  OpenNodes();
  const auto frameColour = [](TableView& view) {
    const QRect cell = view.visualRect(view.currentIndex());
    return view.viewport()->grab().toImage().pixelColor(cell.left() + 6, cell.top() + 1);
  };
  ASSERT_EQ(Focus(), &Table().View());
  const QColor active = frameColour(Table().View());
  EXPECT_GT(active.hslSaturation(), 60);
  TableView& behind = Table().View();
  OpenTable("mnuDataItem(5)", "InpELEM");
  EXPECT_LT(frameColour(behind).hslSaturation(), 30);
  EXPECT_EQ(frameColour(Table().View()), active);
}

TEST_F(HandlingTest, TheBarOfThePreviewGoesOnInASecondLine) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  ShowText(kPrintListing, /*preview=*/true);
  Form* const preview = OpenForm("frmPrnText");
  for (const int width : {1100, 760, 480}) {
    preview->parentWidget()->resize(width, 500);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    const QList<QPushButton*> buttons = preview->findChildren<QPushButton*>();
    for (const QPushButton* const button : buttons) {
      EXPECT_GE(button->width(), button->sizeHint().width()) << width;
      EXPECT_TRUE(preview->rect().contains(button->geometry())) << width << FromQt(button->text());
      for (const QPushButton* const other : buttons)
        EXPECT_FALSE(other != button && button->geometry().intersects(other->geometry())) << width;
    }
  }
}

TEST_F(HandlingTest, AWrittenFileIsToldInTheStatusBar) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  ShowText(kPrintListing, /*preview=*/true);
  Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(Documents() + "表.pdf"));
  Click(*OpenForm("frmPrnText"), "pdf");
  EXPECT_EQ(Status(), "表.pdf に書き出しました");
}

TEST_F(HandlingTest, FilesAreListedInJapanese) {
  MakeFolder(Documents() + "folder");
  QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  ShowText(kPrintListing, /*preview=*/true);
  Script().Expect(QStringLiteral("QFileDialog"), [](QWidget& window) {
    auto& dialog = static_cast<QFileDialog&>(window);
    const QAbstractItemModel* const files = dialog.proxyModel();
    ASSERT_NE(files, nullptr);
    const auto* const source = qobject_cast<const QFileSystemModel*>(dialog.proxyModel()->sourceModel());
    ASSERT_NE(source, nullptr);
    const QModelIndex root = dialog.proxyModel()->mapFromSource(source->index(dialog.directory().path()));
    ASSERT_TRUE(QTest::qWaitFor([&] { return files->rowCount(root) > 0; }));
    QString folderType;
    for (int row = 0; row < files->rowCount(root); ++row) {
      const QString date = files->index(row, 3, root).data().toString();
      EXPECT_TRUE(date.contains(QLatin1Char('/'))) << FromQt(date);
      EXPECT_FALSE(date.contains(QLatin1String("M"))) << FromQt(date);  // AM, PM
      const QModelIndex index = files->index(row, 2, root);
      if (source->isDir(dialog.proxyModel()->mapToSource(index))) folderType = index.data().toString();
    }
    EXPECT_EQ(folderType, QStringLiteral("フォルダ"));
    dialog.reject();
  });
  Click(*OpenForm("frmPrnText"), "pdf");
}

TEST_F(HandlingTest, ABoxShowsByItsSignWhatKindOfMessageItIs) {
  struct Row {
    const char *text, *title;
    QMessageBox::Icon icon;
  };
  for (const Row& row :
       {Row{"エラーはありませんでした。", "エラーチェック", QMessageBox::Information},
        Row{"CSVファイルを作成しました", "ＺＯＲＬＡＮ For Windows", QMessageBox::Information},
        Row{"節点番号は省略できません！！！", "節点", QMessageBox::Warning},
        Row{"ファイルを書き込めませんでした", "ＺＯＲＬＡＮ For Windows", QMessageBox::Warning},
        Row{"関数名： X", "エラーが発生しました", QMessageBox::Critical}}) {
    Script().Expect(QString::fromUtf8(row.text), [&](QWidget& box) {
      EXPECT_EQ(static_cast<QMessageBox&>(box).icon(), row.icon) << row.text;
      static_cast<QDialog&>(box).accept();
    });
    ShowBox(row.text, row.title);
  }
}

TEST_F(HandlingTest, StatusFieldsGiveWayToTheExplanation) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  OpenNodes();
  Window().resize(640, 360);
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  EXPECT_EQ(Window().width(), 640);
  auto* const model = Child<QLabel>(&Window(), "statusModel");
  EXPECT_EQ(FromQt(model->text()), "鉄骨ラーメン");
  EXPECT_GE(model->mapTo(Window().statusBar(), QPoint(0, 0)).x(), 640 / 3);
  for (const QLabel* const label : model->parentWidget()->findChildren<QLabel*>()) {
    if (!label->isVisible()) continue;
    const QPoint end = label->mapTo(&Window(), label->rect().bottomRight());
    EXPECT_TRUE(Window().rect().contains(end)) << FromQt(label->text());
  }
}

TEST_F(HandlingTest, TheInputMenuScrollsInASmallWindowAndIsWholeAgainInALargeOne) {
  Window().resize(640, 360);
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  EXPECT_TRUE(Window().Forms().viewport()->rect().contains(FrameOf("frmInputMenu")));
  Window().Forms().BringToFront(OpenForm("frmInputMenu"));
  const auto* const last = Child<QPushButton>(OpenForm("frmInputMenu"), "同一変形");
  for (int i = 0; i < 20 && !last->hasFocus(); ++i) Press(Qt::Key_Down);
  ASSERT_TRUE(last->hasFocus());
  const QPoint end = last->mapTo(OpenForm("frmInputMenu"), last->rect().bottomRight());
  EXPECT_TRUE(OpenForm("frmInputMenu")->rect().contains(end));
  Window().resize(1200, 800);
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  for (const QPushButton* const button : OpenForm("frmInputMenu")->findChildren<QPushButton*>())
    EXPECT_FALSE(button->visibleRegion().isEmpty()) << FromQt(button->text());
}

}  // namespace
}  // namespace zorlan::test
