// Pages of figures while the model goes on: what they follow, how they are written and printed.
#include <functional>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include "base/text.h"
#include "desktop/desktop_test.h"
#include "desktop/figure_view.h"
#include "desktop/model.h"
#include "desktop/preview_pages.h"
#include "desktop/print_job.h"
#include "graphics/options.h"
#include "shell/commands.h"
#include "shell/settings.h"

namespace zorlan::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class FigurePreviewTest : public DesktopTest {
 protected:
  void SetUp() override {
    OpenSample(QStringLiteral("鉄骨ラーメン"));
    Choose("mnuAnalysisStatic(0)");
  }

  Form* Preview() { return OpenForm("frmPrnText"); }
  int Pages() { return Child<QSpinBox>(Preview(), "page")->maximum(); }
  std::string Note() { return FromQt(Child<QLabel>(Preview(), "note")->text()); }
  bool IsOn(const char* button) { return Child<QPushButton>(Preview(), button)->isEnabled(); }

  /// "一括印刷" of all cases of these figure types.
  void Open(const std::vector<int>& types, const std::function<void(QWidget&)>& fill = {}) {
    Script().Expect(QStringLiteral("frmSelctLC"), [types, fill](QWidget& dialog) {
      for (const int type : types) Click(dialog, ("all" + std::to_string(type)).c_str());
      if (fill) fill(dialog);
      Click(dialog, "ok");
    });
    Choose("mnuViewPrnAll");
  }
  /// Some command without effect: open windows look at their files behind it.
  void AnyCommand() { Choose("mnuWindowItem(0)"); }

  /// The drawing list of the page in sight, a line an operation.
  std::vector<std::string> List() {
    Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(Documents() + "list.dxf"));
    Click(*Preview(), "dxf");
    RemoveFile(Documents() + "list.dxf");
    const std::string text = ReadTextFile(WorkPath + "Page-1.tmp");
    std::vector<std::string> lines;
    std::string_view rest = text;
    while (const std::optional<std::string_view> line = TakeLine(rest)) lines.emplace_back(*line);
    return lines;
  }
  /// Node 100 at x, on its own.
  static void AddNode(const char* x) {
    ReplaceTextFile(WorkPath + "NODE", ReadTextFile(WorkPath + "NODE") + "100," + x + ",0,1,1,1\r\n");
  }
};

TEST_F(FigurePreviewTest, ACommittedTableIsOnItsPages) {
  Open({1});
  EXPECT_THAT(List(), Not(Contains(HasSubstr(", 100, "))));
  AddNode("20");
  EXPECT_THAT(List(), Contains(HasSubstr("TEXT, MODEL_TXT")));
  EXPECT_THAT(List(), Contains(HasSubstr(", 100, ")));
}

TEST_F(FigurePreviewTest, WithoutFittingResultsItIsEmptyAndSaysSo) {
  Open({1, 5});
  EXPECT_EQ(Pages(), 10);
  EXPECT_THAT(Note(), IsEmpty());
  AddNode("20");  // now there are too few displacements
  AnyCommand();
  EXPECT_EQ(Pages(), 0);
  EXPECT_EQ(Note(), "入力データに合う解析結果がありません。静解析を行ってください");
  EXPECT_TRUE(Child<QLabel>(Preview(), "note")->isVisible());
  for (const char* const button : {"print", "pdf", "dxf", "options", "copy"})
    EXPECT_FALSE(IsOn(button)) << button;
}

TEST_F(FigurePreviewTest, AnAnalysisBringsItsPagesBack) {
  Open({5});
  RemoveFile(AnalysisPath + "FT031");
  AnyCommand();
  EXPECT_EQ(Pages(), 0);
  Choose("mnuAnalysisStatic(0)");
  EXPECT_EQ(Pages(), 5);
  EXPECT_THAT(Note(), IsEmpty());
  EXPECT_TRUE(IsOn("dxf"));
}

TEST_F(FigurePreviewTest, NothingOldIsWrittenOrCopied) {
  Open({5});
  for (const char* const button : {"pdf", "dxf", "copy", "print"}) {
    RemoveFile(AnalysisPath + "FT031");
    Click(*Preview(), button);  // no dialog comes
    EXPECT_EQ(Pages(), 0) << button;
    Choose("mnuAnalysisStatic(0)");
    EXPECT_EQ(Pages(), 5);
  }
}

TEST_F(FigurePreviewTest, TheCasesThatAreGoneAreLeftOut) {
  Open({1});
  EXPECT_EQ(Pages(), 5);
  std::string control = ReadTextFile(WorkPath + "CONT");
  const std::size_t comma = control.find(',');
  control.replace(comma, control.find(',', comma + 1) - comma, ",2");
  ReplaceTextFile(WorkPath + "CONT", control);
  AnyCommand();
  EXPECT_EQ(Pages(), 2);
}

TEST_F(FigurePreviewTest, APartOfTheModelStaysTheSamePart) {
  auto* const figure = qobject_cast<Model*>(OpenForm("Model"));
  ASSERT_NE(figure, nullptr);
  QTest::keyClick(&figure->View(), Qt::Key_Plus);
  figure->Use(Tool::Print);
  const std::vector<std::string> before = List();
  AddNode("0.5");
  const std::vector<std::string> after = List();
  EXPECT_THAT(after, Contains(HasSubstr(", 100, ")));
  EXPECT_THAT(before, Contains(StartsWith("LINE, MODEL, ")));
  for (const std::string& line : before)
    if (line.starts_with("LINE, MODEL, ")) {
      EXPECT_THAT(after, Contains(line));
    }
}

TEST_F(FigurePreviewTest, AModelSavedUnderAnotherNameHasThatNameOnItsPages) {
  Open({1});
  const std::string before = ModelFile;
  ModelFile = "別名.inp";
  AnyCommand();
  EXPECT_THAT(List(), Contains(HasSubstr("(別名)")));
  ModelFile = before;
}

TEST_F(FigurePreviewTest, AModelWithoutNodesIsSaid) {
  Open({1});
  ReplaceTextFile(WorkPath + "NODE", "");
  AnyCommand();
  EXPECT_EQ(Pages(), 0);
  EXPECT_EQ(Note(), "表示するモデルがありません");
}

TEST_F(FigurePreviewTest, AChoiceThatCannotBeKeptIsToldAndShown) {
  MakeFolder(AppPath + "AllPrnSet.txt");
  Script().Expect(QStringLiteral("frmSelctLC"), [](QWidget& dialog) {
    Click(dialog, "all1");
    Click(dialog, "横");
    Click(dialog, "ok");
  });
  Script().ExpectBox(QStringLiteral("AllPrnSet.txt"), QStringLiteral("OK"));
  Choose("mnuViewPrnAll");
  ASSERT_NE(Preview(), nullptr);
  EXPECT_EQ(Pages(), 5);
  EXPECT_EQ(PrinterSettings.orientation, kLandscape);
  EXPECT_FALSE(FileExists(AppPath + "SelctLC.Txt"));
}

TEST_F(FigurePreviewTest, TheFirstBatchIsOnSheetsOfThePrinter) {
  PrinterSettings.orientation = kLandscape;
  Open({1}, [](QWidget& dialog) { EXPECT_TRUE(Child<QRadioButton>(&dialog, "横")->isChecked()); });
  EXPECT_EQ(PrinterSettings.orientation, kLandscape);
}

TEST_F(FigurePreviewTest, ABatchOfLoadChecksNeedsNoFittingResults) {
  AddNode("20");  // now there are too few displacements
  Open({1});
  ASSERT_NE(Preview(), nullptr);
  EXPECT_EQ(Pages(), 5);
}

TEST_F(FigurePreviewTest, ABatchWithoutFittingResultsIsToldAndItsChoiceKept) {
  AddNode("20");
  Script().Expect(QStringLiteral("frmSelctLC"), [](QWidget& dialog) {
    Click(dialog, "all1");
    Click(dialog, "all5");
    Click(dialog, "ok");
  });
  Script().ExpectBox(QStringLiteral("入力データに合う解析結果がありません"), QStringLiteral("OK"));
  Choose("mnuViewPrnAll");
  EXPECT_EQ(Preview(), nullptr);
  EXPECT_FALSE(FileExists(AppPath + "SelctLC.Txt"));
  Script().Expect(QStringLiteral("frmSelctLC"), [](QWidget& dialog) {
    EXPECT_EQ(Child<QListWidget>(&dialog, "cases5")->selectedItems().size(), 5);
    static_cast<QDialog&>(dialog).reject();
  });
  Choose("mnuViewPrnAll");
}

TEST_F(FigurePreviewTest, TheDirectionOfABatchIsThatOfThePrinterFromThenOn) {
  ASSERT_EQ(StoredPrinterInfo().orientation, kPortrait);
  Open({1}, [](QWidget& dialog) { Click(dialog, "横"); });
  EXPECT_EQ(StoredPrinterInfo().orientation, kLandscape);
}

TEST_F(FigurePreviewTest, ADirectionThatCannotBeKeptIsToldAndHolds) {
  RemoveFile(AppPath + "PrinterInf.Ini");
  MakeFolder(AppPath + "PrinterInf.Ini");
  Script().Expect(QStringLiteral("frmSelctLC"), [](QWidget& dialog) {
    Click(dialog, "all1");
    Click(dialog, "横");
    Click(dialog, "ok");
  });
  Script().ExpectBox(QStringLiteral("PrinterInf.Ini"), QStringLiteral("OK"));
  Choose("mnuViewPrnAll");
  EXPECT_EQ(Pages(), 5);
  EXPECT_EQ(PrinterSettings.orientation, kLandscape);
}

int KeptPrintFlag() {
  return std::stoi(GetPrivateSetting("ZOR", "PrnText", "PrintFlag", "0"));
}

TEST_F(FigurePreviewTest, AChoiceOfFiguresIsNoListing) {
  ShowText(kPrintListing, /*preview=*/true);
  ASSERT_EQ(KeptPrintFlag(), kPrintListing);
  Open({1});
  EXPECT_EQ(KeptPrintFlag(), -1);
  ShowText(kPrintListing, /*preview=*/true);
  auto* const figure = qobject_cast<Model*>(OpenForm("Model"));
  ASSERT_NE(figure, nullptr);
  figure->Use(Tool::Print);  // a figure alone
  EXPECT_EQ(KeptPrintFlag(), -1);
}

// Files

TEST_F(FigurePreviewTest, ADxfFileIsCalledByTheNumberOfItsSheet) {
  PrinterSettings.firstPage = 7;
  Open({1});
  Child<QSpinBox>(Preview(), "page")->setValue(2);
  QString proposed;
  Script().Expect(QStringLiteral("QFileDialog"), [&](QWidget& dialog) {
    proposed = Child<QLineEdit>(&dialog, "fileNameEdit")->text();
    ChooseFile(Documents() + "図.dxf")(dialog);
  });
  Click(*Preview(), "dxf");
  EXPECT_THAT(FromQt(proposed), HasSubstr("Page-8"));
  EXPECT_TRUE(FileExists(WorkPath + "Page-8.dxf"));
  EXPECT_THAT(ReadTextFile(WorkPath + "Page-8.tmp"), HasSubstr("Page-8"));  // as the sheet says
}

TEST_F(FigurePreviewTest, ANameThatGetsItsEndingReplacesNothingUnasked) {
  Open({1});
  for (const char* const button : {"dxf", "pdf"}) {
    const std::string name = Documents() + "図", path = name + "." + button;
    ReplaceBytes(path, "older");
    Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(name));
    Script().ExpectBox(QStringLiteral("'図.%1' に上書きしてよろしいですか？").arg(QLatin1String(button)),
                       QStringLiteral("いいえ"));
    Script().Expect(QStringLiteral("QFileDialog"), [](QWidget& dialog) {  // once more
      static_cast<QDialog&>(dialog).reject();
    });
    Click(*Preview(), button);
    EXPECT_EQ(ReadBytes(path), "older");
    Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(name));
    Script().ExpectBox(QStringLiteral("に上書きしてよろしいですか？"), QStringLiteral("はい"));
    Click(*Preview(), button);
    EXPECT_GT(ReadBytes(path).size(), 100U) << button;
  }
}

TEST_F(FigurePreviewTest, AmongAllFilesANameKeepsTheEndingThatItHas) {
  Open({1});
  const auto choose = [this](const char* name, bool all) {
    Script().Expect(QStringLiteral("QFileDialog"), [this, name, all](QWidget& dialog) {
      auto& files = static_cast<QFileDialog&>(dialog);
      if (all) files.selectNameFilter(files.nameFilters().back());
      ChooseFile(Documents() + name)(dialog);
    });
    Click(*Preview(), "dxf");
  };
  choose("a.txt", true);
  EXPECT_TRUE(FileExists(Documents() + "a.txt"));
  choose("b", true);
  EXPECT_TRUE(FileExists(Documents() + "b.dxf"));
  choose("c.1", false);
  EXPECT_TRUE(FileExists(Documents() + "c.1.dxf"));
}

// Paper

/// Three pages; the box over the print is cancelled while the first one is painted.
class CancelledPages final : public PreviewPages {
 public:
  explicit CancelledPages(QWidget& window) : window_(window) {}
  QString Caption() const override { return {}; }
  void LayOut() override {}
  int Count() const override { return 3; }
  QSize Sheet() const override { return {2100, 2970}; }
  void Paint(QPainter&, int page) override {
    painted.push_back(page);
    if (page != 0) return;
    auto* const box = window_.findChild<QProgressDialog*>(QStringLiteral("printBox"));
    ASSERT_NE(box, nullptr);
    box->findChild<QPushButton*>()->click();
  }
  std::string Pdf(const std::function<void(double)>&) override { return {}; }
  QString FileName() const override { return {}; }
  QString Text(int) const override { return {}; }

  std::vector<int> painted;

 private:
  QWidget& window_;
};

TEST_F(FigurePreviewTest, CancellingAPrintAsks) {
  for (const bool broken : {false, true}) {
    CancelledPages pages(Window());
    QPrinter printer;
    printer.setOutputFileName(ToQt(Documents() + "print.pdf"));
    Script().ExpectBox(QStringLiteral("印刷処理を中止しますか？"),
                       broken ? QStringLiteral("はい") : QStringLiteral("いいえ"));
    PrintPages(printer, pages, &Window());
    EXPECT_EQ(pages.painted, broken ? std::vector{0} : (std::vector{0, 1, 2}));
    EXPECT_TRUE(Script().Done());
  }
}

}  // namespace
}  // namespace zorlan::test
