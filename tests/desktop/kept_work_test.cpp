// What was entered is kept, and what is shown is told for what it is: decks that would be lost, results of a
// model that has changed since, an exit in the middle of the work.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/figure_view.h"
#include "desktop/model.h"
#include "desktop/table_form_test.h"
#include "shell/projects.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;

// One column and one beam, fixed at the foot.
constexpr const char* kPortal =
    "@NODE\n1,0,0,1,1,1\n2,0,4,0,0,0\n3,6,4,0,0,0\n@ELEM\n1,1,2,0,0,1\n2,2,3,0,0,1\n"
    "@SECT\n1,1,30,60,0,0,1,210,90\n@PLOD\n1,3,0,-1,0\n";

class KeptWorkTest : public TableFormTest {
 protected:
  static std::string Deck() { return DefaultDataPath + "test.zor/m.inp"; }
  static QString Text(const char* text) { return QString::fromUtf8(text); }
  void OpenPortal() { OpenModel("1,1,0,0", kPortal); }
  /// Writes bytes as a deck and opens it; a box says what it is not.
  void OpenForeign(const std::string& bytes, const char* box) {
    MakeFolder(DefaultDataPath + "test.zor");
    ReplaceBytes(Deck(), bytes);
    Script().ExpectBox(Text(box), QStringLiteral("OK"));
    Window().OpenDeck(ToQt(Deck()));
    EXPECT_TRUE(Script().Done()) << box;
  }
  /// The X of node 2 is typed and committed by Esc.
  void MoveNode(const char* x) {
    OpenNodes();
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    Write(x);
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    EXPECT_EQ(OpenForm("InpNODE"), nullptr);
  }
  void SaveAs(const char* name) {
    Script().Expect(QStringLiteral("frmProject"), [name](QWidget& dialog) {
      Child<QLineEdit>(&dialog, "model")->setText(QString::fromUtf8(name));
      Click(dialog, "ok");
    });
    Choose("mnuFileItem(3)");
  }
  std::string Saved() { return FromQt(Child<QLabel>(&Window(), "statusSaved")->text()); }
  std::string ResultsShown() { return FromQt(Child<QLabel>(&Window(), "statusResults")->text()); }
  Model* Shown() { return qobject_cast<Model*>(OpenForm("Model")); }
  std::string Note() { return FromQt(Child<QLabel>(Shown(), "note")->text()); }
};

TEST_F(KeptWorkTest, AnEmptiedWorkFolderCostsNoDeck) {
  OpenPortal();
  const std::string before = ReadBytes(Deck());
  RemoveFilesIn(WorkPath);
  for (const int key : {Qt::Key_F5, Qt::Key_F9}) {
    Script().ExpectBox(Text("節点データ"), QStringLiteral("OK"));
    Press(key);
    EXPECT_TRUE(Script().Done());
  }
  EXPECT_TRUE(ReadBytes(Deck()) == before);
  ModelChanged = true;
  Script().ExpectBox(Text("入力中のモデルを保存してよろしいですか？"), Text("はい"));
  Script().ExpectBox(Text("節点データ"), QStringLiteral("OK"));
  Choose("mnuFileItem(10)");
  EXPECT_TRUE(Window().isVisible());
  EXPECT_TRUE(ReadBytes(Deck()) == before);
  EXPECT_EQ(Saved(), "未保存");
}

TEST_F(KeptWorkTest, AFileThatIsNoDeckIsToldAndKept) {
  const std::string bytes("\x93\x1F\x8B\0\xFE@@\r\n\x07\x81", 11);
  OpenForeign(bytes, "モデルの表（@CONT、@NODE など）がありません");
  Script().ExpectBox(Text("保存する表がありません"), QStringLiteral("OK"));
  Press(Qt::Key_F5);
  EXPECT_TRUE(Script().Done());
  Choose("mnuDataItem(2)");  // control data are entered nevertheless
  for (const char* const box : {"model", "loadCases", "list", "rollers"})
    Child<QComboBox>(OpenForm("InpCONT"), box)->setCurrentIndex(0);
  Script().ExpectBox(Text("別の名前で保存してください"), QStringLiteral("OK"));
  Press(Qt::Key_F5);
  EXPECT_TRUE(Script().Done());
  EXPECT_TRUE(ReadBytes(Deck()) == bytes);
}

TEST_F(KeptWorkTest, ADeckInUtf16IsToldAsSuch) {
  OpenForeign(std::string("\xFF\xFE@\0C\0O\0N\0T\0\r\0\n\0", 16), "ＵＴＦ－１６");
  EXPECT_THAT(FromQt(Script().Seen().last()), HasSubstr("シフトＪＩＳ"));
}

TEST_F(KeptWorkTest, SavingUnderANewNameMakesOldResultsNoNewer) {
  OpenPortal();
  Press(Qt::Key_F5);
  EXPECT_EQ(ResultsShown(), "解析結果あり");
  SaveAs("same");
  EXPECT_EQ(ResultsShown(), "解析結果あり") << "nothing was changed";
  MoveNode("0.5");
  EXPECT_EQ(ResultsShown(), "解析結果は変更前のものです");
  SaveAs("moved");
  EXPECT_TRUE(FileExists(DefaultDataPath + "test.zor/moved.ANA/FT031"));
  EXPECT_EQ(ResultsShown(), "解析結果は変更前のものです");
  Window().OpenDeck(ToQt(DefaultDataPath + "test.zor/moved.inp"));
  EXPECT_EQ(ResultsShown(), "解析結果は変更前のものです");
  Press(Qt::Key_F5);
  EXPECT_EQ(ResultsShown(), "解析結果あり");
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(ResultsShown(), "解析結果あり") << "a save that changes nothing leaves them current";
}

TEST_F(KeptWorkTest, ResultsWhoseStoredFilesAreGoneAreOldAfterAChange) {
  OpenPortal();
  Press(Qt::Key_F5);
  RemoveFilesIn(DefaultDataPath + "test.zor/m.ANA");
  std::filesystem::remove(DefaultDataPath + "test.zor/m.ANA");
  MoveNode("0.5");
  SaveAs("moved");
  EXPECT_EQ(ResultsShown(), "解析結果は変更前のものです");
}

TEST_F(KeptWorkTest, AnExitWithARefusedTableAsksFirst) {
  OpenPortal();
  OpenNodes();
  for (int column = 1; column < 4; ++column) Press(Qt::Key_Right);
  Write("7");
  Script().ExpectBox(Text("のみ入力可能です！！！"), QStringLiteral("OK"));
  Script().Expect(Text("破棄して終了"), [](QWidget& box) {
    QTest::keyClick(&box, Qt::Key_Return);  // the safe answer is the default
  });
  Choose("mnuFileItem(10)");
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(Cell(1, 4), "7");
  Script().ExpectBox(Text("のみ入力可能です！！！"), QStringLiteral("OK"));
  Script().ExpectBox(Text("破棄して終了"), Text("はい"));
  Choose("mnuFileItem(10)");
  EXPECT_FALSE(Window().isVisible());
  EXPECT_THAT(ReadTextFile(Deck()), HasSubstr("1,0,0,1,1,1"));
}

TEST_F(KeptWorkTest, AnExitWhoseSaveDialogIsCancelledAsksToo) {
  Choose("mnuFileItem(0)");
  Choose("mnuDataItem(0)");
  Write("A");
  Script().ExpectBox(Text("入力中のモデルを保存してよろしいですか？"), Text("はい"));
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) { Click(dialog, "cancel"); });
  Script().ExpectBox(Text("破棄して終了"), Text("いいえ"));
  Choose("mnuFileItem(10)");
  EXPECT_TRUE(Script().Done());
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(TableFile("TITL"), "A\r\n");
}

TEST_F(KeptWorkTest, ATableThatCannotBeWrittenHoldsTheProgramUntilTheUserGivesItUp) {
  OpenPortal();
  OpenNodes();
  Write("5");
  const std::string folder = WorkPath.substr(0, WorkPath.size() - 1);
  std::filesystem::rename(folder, folder + "-away");
  Script().ExpectBox(QStringLiteral("NODE"), QStringLiteral("OK"));
  Script().ExpectBox(Text("破棄して終了"), Text("いいえ"));
  Choose("mnuFileItem(10)");
  EXPECT_TRUE(Window().isVisible());
  std::filesystem::rename(folder + "-away", folder);
  EXPECT_TRUE(Table().CloseForm());
  EXPECT_THAT(TableFile("NODE"), HasSubstr("5,0,0,1,1,1"));
}

TEST_F(KeptWorkTest, ATypedCellIsUnsavedAndMakesTheResultsOld) {
  OpenPortal();
  Press(Qt::Key_F5);
  OpenNodes();
  EXPECT_EQ(Saved() + ResultsShown(), "保存済み解析結果あり");
  Write("8");  // the box is open
  EXPECT_EQ(Saved() + ResultsShown(), "未保存解析結果は変更前のものです");
  Press(Qt::Key_Return);
  EXPECT_EQ(Saved(), "未保存");
  Press(Qt::Key_Z, Qt::ControlModifier);
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Saved(), "保存済み");
}

TEST_F(KeptWorkTest, EditsWithoutTypingAreUnsavedToo) {
  OpenPortal();
  OpenNodes();
  Press(Qt::Key_Delete);
  EXPECT_EQ(Saved(), "未保存");
}

TEST_F(KeptWorkTest, AnOneRowFormThatWasChangedIsUnsaved) {
  OpenPortal();
  Choose("mnuDataItem(0)");
  EXPECT_EQ(Saved(), "保存済み");
  Write("A");
  EXPECT_EQ(Saved(), "未保存");
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Saved(), "保存済み");
}

TEST_F(KeptWorkTest, AFigureOfOldResultsSaysSo) {
  OpenPortal();
  Press(Qt::Key_F5);
  Choose("mnuViewDiagramMoment");
  EXPECT_EQ(Note(), "");
  OpenNodes();
  Write("8");
  EXPECT_EQ(Note(), "解析結果は変更前のものです") << "at the first key";
  Press(Qt::Key_Escape);  // the box
  Press(Qt::Key_Escape);
  MoveNode("0.5");
  Choose("mnuViewDiagramMoment");
  EXPECT_EQ(Note(), "解析結果は変更前のものです");
  EXPECT_EQ(Shown()->View().TheFigure().model.nodes.at(1).x, 0.5);
  Press(Qt::Key_F5);
  EXPECT_EQ(Note(), "");
}

TEST_F(KeptWorkTest, ACommittedTableIsNoTypedOne) {
  OpenPortal();
  OpenNodes();
  Press(Qt::Key_Right);
  Write("1");
  Press(Qt::Key_Return);
  Press(Qt::Key_R, Qt::ControlModifier);
  EXPECT_EQ(Note(), "入力中の表を表示しています");
  Table().CloseForm();
  EXPECT_EQ(Note(), "");
  EXPECT_EQ(Shown()->View().TheFigure().model.nodes.at(0).x, 1);
  MoveNode("0.5");
  EXPECT_EQ(Note(), "");
}

TEST_F(KeptWorkTest, ElementsAreShownWithNodesThatAreStillTyped) {
  OpenPortal();
  TableWindow* const nodes = OpenNodes();
  Press(Qt::Key_End, Qt::ControlModifier);
  Press(Qt::Key_Return);
  Press(Qt::Key_Home);
  TypeRow("4 6 0 1 1 1");
  OpenTable("mnuDataItem(5)", "InpELEM");
  Press(Qt::Key_End, Qt::ControlModifier);
  Press(Qt::Key_Return);
  Press(Qt::Key_Home);
  TypeRow("3 3 4 0 0 1");
  Table().CloseForm();
  EXPECT_EQ(Shown()->View().TheFigure().model.nodes.size(), 4U);
  EXPECT_EQ(Note(), "入力中の表を表示しています");
  nodes->CloseForm();
  EXPECT_EQ(Note(), "");
}

TEST_F(KeptWorkTest, ARefusedRowIsInSightBeforeItsBoxSpeaksOfIt) {
  std::string tables = "@NODE\n";
  for (int n = 1; n <= 200; ++n) tables += std::to_string(n) + "," + std::to_string(n) + ",0,0,0,0\n";
  OpenModel("1,1,0,0", tables);
  OpenNodes();
  Press(Qt::Key_End, Qt::ControlModifier);
  const int last = At().row;
  Write("9");
  Press(Qt::Key_Return);
  Press(Qt::Key_Home, Qt::ControlModifier);
  CellPlace atBox;
  bool visible = false;
  Script().Expect(Text("のみ入力可能です！！！"), [&](QWidget& box) {
    atBox = At();
    visible = Table().View().rect().contains(
        Table().View().visualRect(Table().View().model()->index(last - 1, 0)).center());
    box.close();
  });
  Table().CloseForm();
  EXPECT_EQ(atBox.row, last);
  EXPECT_TRUE(visible);
}

TEST_F(KeptWorkTest, TheProjectDialogPutsTheFocusOnTheBoxAtFault) {
  Script().Expect(QStringLiteral("frmProject"), [this](QWidget& dialog) {
    Child<QLineEdit>(&dialog, "project")->setText(QStringLiteral("例題－１"));
    Child<QLineEdit>(&dialog, "model")->clear();
    Script().ExpectBox(Text("モデル名は省略できません！！！"), QStringLiteral("OK"));
    Click(dialog, "ok");
    EXPECT_EQ(dialog.focusWidget(), Child<QLineEdit>(&dialog, "model"));
    Child<QLineEdit>(&dialog, "project")->clear();
    Script().ExpectBox(Text("プロジェクト名は省略できません！！！"), QStringLiteral("OK"));
    Click(dialog, "ok");
    EXPECT_EQ(dialog.focusWidget(), Child<QLineEdit>(&dialog, "project"));
    Click(dialog, "cancel");
  });
  Choose("mnuFileItem(1)");
}

TEST_F(KeptWorkTest, ANewModelIsSavedFromItsProjectsNameOn) {
  Choose("mnuFileItem(0)");
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    EXPECT_EQ(dialog.focusWidget(), Child<QLineEdit>(&dialog, "project"));
    Click(dialog, "cancel");
  });
  Choose("mnuFileItem(3)");
}

}  // namespace
}  // namespace zorlan::test
