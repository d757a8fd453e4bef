#include "shell/menu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "model/model_rec.h"
#include "model/model_state.h"
#include "shell/projects.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;

/// Caption and control of every row, set in by its level.
constexpr const char* kTree[] = {
    "ﾌｧｲﾙ(&F) | mnuFile",
    "..新規作成(&N)... | mnuFileItem",
    "..ﾓﾃﾞﾙを開く(&O)... | mnuFileItem",
    "..ﾓﾃﾞﾙの上書き保存(&S) | mnuFileItem",
    "..ﾓﾃﾞﾙの名前を付けて保存(&A)... | mnuFileItem",
    "..ﾓﾃﾞﾙを削除(&D) | mnuFileItem",
    "..プロジェクトの複写（&C） | mnuFileItem",
    "....バックアップ(&B) | mnuProjectItem",
    "....リストア(&R) | mnuProjectItem",
    "..プロジェクトの削除(&E) | mnuFileItem",
    "..データ変換（Ver1→Ver5）(&W)... | mnuFileItem",
    "..ﾌﾟﾘﾝﾀの設定(&U) | mnuFileItem",
    "..入力ﾓﾃﾞﾙの印刷(&P) | mnuFileItem",
    "..ZORLAN for Windowsの終了(&X) | mnuFileItem",
    "編集(&E) | mnuEdit",
    "..元に戻す(&U) | mnuUndo",
    "..やり直し(&R) | mnuRedo",
    "..切り取り(&T) | mnuEditItem",
    "..ｺﾋﾟｰ(&C) | mnuEditItem",
    "..貼り付け(&P) | mnuEditItem",
    "..行挿入(&I) | mnuEditItem",
    "..行削除(&D) | mnuEditItem",
    "..一括代入 | mnuEditItem",
    "..加算 | mnuEditItem",
    "..誤りのある行へ(&G) | mnuFindFault",
    "ﾃﾞｰﾀ(&D) | mnuData",
    "..タイトル | mnuDataItem",
    "..サブタイトル | mnuDataItem",
    "..コントロール | mnuDataItem",
    "..単位 | mnuDataItem",
    "..節点(&N) | mnuDataItem",
    "..要素(&L) | mnuDataItem",
    "..断面(&S) | mnuDataItem",
    "..荷重(&O)... | mnuDataItem",
    "....節点荷重 | mnuLoad",
    "....要素荷重 | mnuLoad",
    "....CMQ荷重 | mnuLoad",
    "....温度荷重 | mnuLoad",
    "..支点ばね(&P) | mnuDataItem",
    "..強制変位(&K) | mnuDataItem",
    "..剛域(&R) | mnuDataItem",
    "..フレーム倍率(&Y) | mnuDataItem",
    "..同一変形(&I) | mnuDataItem",
    "..ﾃﾞｰﾀﾁｪｯｸ | mnuTestNodeCheck",
    "..モデル図表示 | mnuModel",
    "..入力説明文表示 | mnuRemark",
    "解析(&A) | mnuAnalysis",
    "..静解析(&S)... | mnuAnalysisStatic",
    "..解析結果のリスト確認(&C) | mnuAnalysisStatic",
    "..解析結果のリスト印刷(&P) | mnuAnalysisStatic",
    "..解析結果のＣＳＶ出力(&O) | mnuAnalysisStatic",
    "断面算定(&A) | mnuDesign",
    ".. Ｓ 断面算定(&S)... | mnuDesignS",
    "..ＲＣ断面算定(&R)... | mnuDesignRC",
    "..断面算定結果の印刷(&P)... | mnuDesignPrn",
    "....Ｓ断面算定結果の印刷 | mnuDesignPrnItem",
    "....ＲＣ断面算定結果の印刷 | mnuDesignPrnItem",
    "..モデル図表示 | mnuDesignModel",
    "....Ｓ断面算定用モデル図 | mnuDesignModelItem",
    "....ＲＣ断面算定用モデル図 | mnuDesignModelItem",
    "..木造（トラス部材）断面算定 | mnuDesignWood",
    "荷重・応力図表示(&V) | mnuView",
    "..荷重チェック図(&M) | mnuViewModel",
    "..変位図 | mnuViewDiagramDisplacement",
    "..軸力図 | mnuViewDiagramNormal",
    "..せん断力図 | mnuViewDiagramShear",
    "..ﾓｰﾒﾝﾄ図 | mnuViewDiagramMoment",
    "..一括表示出力 | mnuViewPrnAll",
    "..基本表示属性設定 | minViewOption",
    "..解析結果表示属性設定 | minViewOption",
    "鋼材ﾃｰﾌﾞﾙ(&K) | mnuSteelTable",
    "..Ｈ形鋼(&H) | H_Table",
    "..□形鋼管(&B) | BOX_Table",
    "..○形鋼管(&P) | PIPE_Table",
    "..溝形鋼(&M) | MIZO_TABLE",
    "..山形鋼(&Y) | YAMA_TABLE",
    "木材ﾃｰﾌﾞﾙ(&M) | mnuTimberTable",
    "..材種(&Z) | Kijyun_Table",
    "..断面(&D) | Danmen_Table",
    "ｳｨﾝﾄﾞｳ(&W) | mnuWindow",
    "..重ねて表示(&C) | mnuWindowItem",
    "..上下にならべて表示(&H) | mnuWindowItem",
    "..左右にならべて表示(&V) | mnuWindowItem",
    "ﾍﾙﾌﾟ(&H) | mnuHelp",
    "..操作マニュアル(&S) | mnuHelpItem",
    "..バージョン情報(&A) | mnuHelpItem",
};

TEST(Menu, HasEveryEntryInItsPlace) {
  std::vector<std::string> rows;
  for (const MenuRow& row : kMenu)
    rows.push_back(std::string(static_cast<std::size_t>(row.level) * 2, '.') + std::string(row.caption) +
                   " | " + std::string(row.control));
  EXPECT_EQ(rows, std::vector<std::string>(std::begin(kTree), std::end(kTree)));
}

TEST(Menu, EntriesOfAnArrayAreCountedFromZero) {
  std::map<std::string_view, int> next;
  for (const MenuRow& row : kMenu) {
    if (row.index >= 0) {
      EXPECT_EQ(row.index, next[row.control]++) << row.caption;
    }
  }
  EXPECT_EQ(next.at("mnuFileItem"), 11);
  EXPECT_EQ(next.at("mnuDataItem"), 13);
}

TEST(Menu, ControlsHaveNamesOfTheirOwn) {
  std::set<std::string> names;
  for (const MenuRow& row : kMenu) EXPECT_TRUE(names.insert(ControlName(row)).second) << ControlName(row);
  EXPECT_EQ(ControlName(RowOf(Command::New)), "mnuFileItem(0)");
  EXPECT_EQ(ControlName(RowOf(Command::Check)), "mnuTestNodeCheck");
}

TEST(Menu, EveryCommandStandsOnceAndIsExplained) {
  std::set<Command> commands;
  for (const MenuRow& row : kMenu) {
    if (row.command == Command::None) continue;
    EXPECT_TRUE(commands.insert(row.command).second) << row.caption;
    EXPECT_FALSE(row.hint.empty()) << row.caption;
  }
  EXPECT_EQ(commands.size(), static_cast<std::size_t>(Command::Version)) << "None aside";
}

TEST(Menu, KeysAreGivenOnce) {
  std::set<std::string_view> keys;
  for (const MenuRow& row : kMenu) {
    if (!row.key.empty()) {
      EXPECT_TRUE(keys.insert(row.key).second) << row.key;
    }
  }
}

TEST(Menu, MnemonicsOfOneMenuDiffer) {
  // The bar itself has "A" twice, as the two menus are called.
  std::map<std::string, std::set<std::string>> taken;
  std::vector<std::string> path;
  for (const MenuRow& row : kMenu) {
    path.resize(static_cast<std::size_t>(row.level));
    std::string above;
    for (const std::string& part : path) above += part + "/";
    path.emplace_back(row.caption);
    const std::size_t mark = row.caption.find('&');
    if (row.level == 0 || mark == std::string_view::npos) continue;
    EXPECT_TRUE(taken[above].insert(std::string(row.caption.substr(mark, 2))).second) << row.caption;
  }
}

/// The first captions of the entries that are on, by command.
std::set<Command> EntriesOn(const MenuFacts& facts) {
  std::set<Command> on;
  for (const MenuRow& row : kMenu)
    if (row.command != Command::None && IsOn(row, facts)) on.insert(row.command);
  return on;
}

const std::set<Command> kAlways = {
    Command::New,       Command::Open,           Command::Delete,       Command::BackUp,
    Command::Restore,   Command::DeleteProject,  Command::Convert,      Command::PrinterSetUp,
    Command::Exit,      Command::TableH,         Command::TableBox,     Command::TablePipe,
    Command::TableMizo, Command::TableYama,      Command::TimberGrades, Command::TimberSections,
    Command::Cascade,   Command::TileHorizontal, Command::TileVertical, Command::Manual,
    Command::Version};
const std::set<Command> kWithModel = {
    Command::Overwrite, Command::SaveAs,      Command::PrintInput, Command::Title,
    Command::SubTitle,  Command::Control,     Command::Unit,       Command::ForcedDisplacement,
    Command::Check,     Command::ModelFigure, Command::Analyse};
const std::set<Command> kWithTables = {
    Command::Node,        Command::Element,       Command::Section,         Command::NodalLoad,
    Command::ElementLoad, Command::CmqLoad,       Command::TemperatureLoad, Command::Spring,
    Command::RigidZone,   Command::Magnification, Command::SameDisplacement};
const std::set<Command> kWithForces = {
    Command::ReadListing,    Command::PrintListing,       Command::WriteCsv,       Command::DesignSteel,
    Command::DesignConcrete, Command::DesignTimber,       Command::SteelFigure,    Command::ConcreteFigure,
    Command::LoadFigure,     Command::DisplacementFigure, Command::NormalFigure,   Command::ShearFigure,
    Command::MomentFigure,   Command::PrintFigures,       Command::DisplayOptions, Command::ResultOptions};
const std::set<Command> kWithTableForm = {
    Command::Cut, Command::Copy,      Command::Paste, Command::InsertRow, Command::DeleteRow, Command::Assign,
    Command::Add, Command::InputHelp, Command::Undo,  Command::Redo,      Command::FindFault};

std::set<Command> Union(std::initializer_list<std::set<Command>> sets) {
  std::set<Command> all;
  for (const std::set<Command>& set : sets) all.insert(set.begin(), set.end());
  return all;
}

TEST(MenuState, WithoutAModelWhatNeedsOneIsOff) {
  EXPECT_EQ(EntriesOn({}), kAlways);
  MenuFacts left;  // facts of results don't matter without a model
  left.forces = left.listing = left.steelDesign = left.concreteDesign = true;
  left.modelCode = left.maxLoadCase = 1;
  EXPECT_EQ(EntriesOn(left), kAlways);
}

TEST(MenuState, ModelWithoutControlDataHasTheFixedEntries) {
  MenuFacts facts;
  facts.modelOpen = true;
  EXPECT_EQ(EntriesOn(facts), Union({kAlways, kWithModel}));
  facts.modelCode = 1;
  EXPECT_EQ(EntriesOn(facts), Union({kAlways, kWithModel}));
  facts.modelCode = 0;
  facts.maxLoadCase = 1;
  EXPECT_EQ(EntriesOn(facts), Union({kAlways, kWithModel}));
}

MenuFacts WithTables() {
  MenuFacts facts;
  facts.modelOpen = true;
  facts.modelCode = facts.maxLoadCase = 1;
  return facts;
}

TEST(MenuState, ControlDataSwitchTheTablesOn) {
  EXPECT_EQ(EntriesOn(WithTables()), Union({kAlways, kWithModel, kWithTables}));
}

TEST(MenuState, PlaneGridHasNoForcedDisplacements) {
  MenuFacts facts = WithTables();
  facts.modelCode = kPlaneGrid;
  std::set<Command> expected = Union({kAlways, kWithModel, kWithTables});
  expected.erase(Command::ForcedDisplacement);
  EXPECT_EQ(EntriesOn(facts), expected);
}

TEST(MenuState, InclinedRollersHaveNoMagnification) {
  MenuFacts facts = WithTables();
  facts.rollerFlag = 1;
  std::set<Command> expected = Union({kAlways, kWithModel, kWithTables});
  expected.erase(Command::Magnification);
  EXPECT_EQ(EntriesOn(facts), expected);
}

TEST(MenuState, ForcesSwitchListingsDesignsAndFiguresOn) {
  MenuFacts facts = WithTables();
  facts.forces = true;
  EXPECT_EQ(EntriesOn(facts), Union({kAlways, kWithModel, kWithTables, kWithForces}));
}

TEST(MenuState, StoredListingSwitchesTheListingEntriesOn) {
  MenuFacts facts = WithTables();
  facts.listing = true;
  EXPECT_EQ(EntriesOn(facts),
            Union({kAlways, kWithModel, kWithTables, {Command::ReadListing, Command::PrintListing}}));
}

TEST(MenuState, DesignResultsSwitchTheirPrintingOn) {
  MenuFacts facts = WithTables();
  facts.steelDesign = true;
  EXPECT_EQ(EntriesOn(facts), Union({kAlways, kWithModel, kWithTables, {Command::PrintSteelDesign}}));
  facts.steelDesign = false;
  facts.concreteDesign = true;
  EXPECT_EQ(EntriesOn(facts), Union({kAlways, kWithModel, kWithTables, {Command::PrintConcreteDesign}}));
}

TEST(MenuState, EditingIsOnWithATableFormInFront) {
  MenuFacts facts = WithTables();
  facts.tableForm = facts.undo = facts.redo = true;
  EXPECT_EQ(EntriesOn(facts), Union({kAlways, kWithModel, kWithTables, kWithTableForm}));
}

TEST(MenuState, UndoAndRedoAreOnWhereThereIsAStep) {
  MenuFacts facts = WithTables();
  facts.undo = true;
  EXPECT_EQ(EntriesOn(facts), Union({kAlways, kWithModel, kWithTables, {Command::Undo}}));
  facts.undo = false;
  facts.redo = true;
  EXPECT_EQ(EntriesOn(facts), Union({kAlways, kWithModel, kWithTables, {Command::Redo}}));
}

TEST(MenuState, MenuThatOpensIsOnWithAnyOfItsEntries) {
  const MenuRow* prints = nullptr;
  for (const MenuRow& row : kMenu)
    if (row.control == "mnuDesignPrn") prints = &row;
  ASSERT_NE(prints, nullptr);
  MenuFacts facts = WithTables();
  EXPECT_FALSE(IsOn(*prints, facts));
  facts.concreteDesign = true;
  EXPECT_TRUE(IsOn(*prints, facts));
  for (const MenuRow& row : kMenu) {
    if (row.level == 0) {
      EXPECT_TRUE(IsOn(row, {})) << row.caption;
    }
  }
}

/// Whether a caption holds one of the words for tables that wait for the control data.
bool WaitsForControlData(std::string_view caption) {
  constexpr std::string_view kWords[] = {"節点", "要素", "断面",         "荷重",
                                         "支点", "剛域", "フレーム倍率", "同一"};
  return std::any_of(std::begin(kWords), std::end(kWords),
                     [&](std::string_view word) { return caption.find(word) != std::string_view::npos; });
}

TEST(MenuState, TablesThatWaitForTheControlDataAreToldByTheirCaptions) {
  for (const MenuRow& row : kMenu) {
    if (row.control != "mnuDataItem" && row.control != "mnuLoad") continue;
    const bool waits = row.needs == Needs::Tables || row.needs == Needs::Magnified;
    EXPECT_EQ(waits, WaitsForControlData(row.caption)) << row.caption;
  }
}

TEST(TableFormOf, NamesTheFormsOfTheDataMenu) {
  std::set<std::string_view> names;
  for (const MenuRow& row : kMenu) {
    const std::string_view form = TableFormOf(row.command);
    if (form.empty()) continue;
    EXPECT_TRUE(IsTableForm(form)) << form;
    EXPECT_TRUE(names.insert(form).second) << form;
  }
  EXPECT_EQ(names.size(), 16U);
  EXPECT_EQ(TableFormOf(Command::ForcedDisplacement), "InpSPEC");
  EXPECT_EQ(TableFormOf(Command::Magnification), "InpALFA");
}

TEST(InputMenu, HasAButtonForEachTable) {
  std::vector<std::string_view> captions;
  for (const InputButton& button : kInputButtons) captions.push_back(button.caption);
  EXPECT_THAT(captions,
              ElementsAre("タイトル", "サブタイトル", "コントロール", "単位", "節点", "要素", "断面", "荷重",
                          "支点ばね", "強制変位", "剛域", "フレーム倍率", "同一変形"));
}

TEST(InputMenu, ButtonsAreOffWithoutAModel) {
  for (const InputButton& button : kInputButtons) EXPECT_FALSE(IsOn(button, {})) << button.caption;
}

TEST(MenuFactsOfTheModelInHand, AreItsHeaderAndItsResults) {
  InpModel = ModelRec();
  InpModel.ModelCode = 2;
  InpModel.MaxLoadCase = 3;
  InpModel.RollerFlag = 1;
  ModelIsOpen = true;
  Results = {true, false, true, false, true};
  const MenuFacts facts = CurrentMenuFacts(true);
  ModelIsOpen = false;
  Results = {};
  EXPECT_TRUE(facts.modelOpen && facts.tableForm && facts.forces && facts.concreteDesign && facts.listing);
  EXPECT_FALSE(facts.steelDesign);
  EXPECT_EQ(facts.modelCode * 100 + facts.maxLoadCase * 10 + facts.rollerFlag, 231);
}

}  // namespace
}  // namespace zorlan::test
