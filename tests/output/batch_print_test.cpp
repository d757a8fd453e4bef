#include "output/batch_print.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "base/fault.h"
#include "base/text_file.h"
#include "graphics/frame_figure.h"
#include "model/model_state.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FigureSelection Batch(int layout, std::vector<int> loadCheck, std::vector<int> moment) {
  FigureSelection selection;
  selection.layout = layout;
  selection.types[0] = {!loadCheck.empty(), std::move(loadCheck)};
  selection.types[4] = {!moment.empty(), std::move(moment)};
  return selection;
}

FigureSelection Single(int kind, std::vector<int> cases) {
  FigureSelection selection;
  selection.batch = false;
  selection.figureKind = kind;
  selection.cases = std::move(cases);
  return selection;
}

TEST(FigureSelection, BatchIsWrittenTypeByType) {
  FigureSelection selection = Batch(5, {1, 3}, {2});
  selection.orientation = 2;
  selection.types[1].cases = {4};  // chosen, but the type is off
  EXPECT_EQ(SelectionText(selection),
            "\"-1\"\r\n\"5\"\r\n\"2\"\r\n"
            "\"1\",\"-1\",\"2\",\"1\",\"3\"\r\n"
            "\"2\",\"0\",\"1\",\"4\"\r\n"
            "\"3\",\"0\",\"0\"\r\n"
            "\"4\",\"0\",\"0\"\r\n"
            "\"5\",\"-1\",\"1\",\"2\"\r\n");
  EXPECT_EQ(ParseSelection(SelectionText(selection)), selection);
}

TEST(FigureSelection, SingleFigureIsWrittenWithItsCases) {
  const FigureSelection selection = Single(kShearFigure, {1, 2, 20});
  EXPECT_EQ(SelectionText(selection), "\"4\"\r\n\"0\"\r\n\"1\"\r\n\"1\",\"2\",\"20\"\r\n");
  EXPECT_EQ(ParseSelection(SelectionText(selection)), selection);
  EXPECT_EQ(ParseSelection(SelectionText(Single(kModelFigure, {}))), Single(kModelFigure, {}));
}

TEST(FigureSelection, ValuesMayStandOnLinesOfTheirOwnAndPlain) {
  EXPECT_EQ(ParseSelection("-1\n5\n1\n1\n-1\n2\n1\n3\n"), Batch(5, {1, 3}, {}));
}

TEST(FigureSelection, WhatCannotBeMeantIsLeftOut) {
  EXPECT_EQ(ParseSelection(""), FigureSelection());
  EXPECT_EQ(ParseSelection("\"x\",\"9\",\"3\""), FigureSelection());
  EXPECT_EQ(ParseSelection("-1,99999999,-1,1,-1,4,0,21,2,2").types[0].cases, std::vector<int>{2});
  EXPECT_EQ(ParseSelection("-1,0,1,9,-1,1,1"), FigureSelection());
  EXPECT_EQ(ParseSelection("-1,0,1,1,-1,32000,1").types[0].cases, std::vector<int>{1});
  EXPECT_EQ(ParseSelection("5,0,1,x,-1,30,3,\"").cases, std::vector<int>{3});
}

TEST(FigureSelection, CutOffAnywhereItStillReads) {
  const std::string text = SelectionText(Batch(4, {1, 2, 3}, {4, 5}));
  const std::array cases = {std::vector{1, 2, 3}, std::vector<int>(), std::vector<int>(), std::vector<int>(),
                            std::vector{4, 5}};
  std::size_t seen = 0;  // cases read, of all types
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const FigureSelection read = ParseSelection(text.substr(0, length));
    EXPECT_TRUE(read.batch) << length;
    EXPECT_EQ(read.layout, length < 8 ? 0 : 4) << length;  // "-1", its line end and "4
    std::size_t count = 0;
    for (std::size_t k = 0; k < cases.size(); ++k) {
      const std::vector<int>& some = read.types[k].cases;
      ASSERT_LE(some.size(), cases[k].size()) << length;
      EXPECT_TRUE(std::equal(some.begin(), some.end(), cases[k].begin())) << length;  // the first of them
      EXPECT_TRUE(some.empty() || read.types[k].checked) << length;
      count += some.size();
    }
    EXPECT_TRUE(count == seen || count == seen + 1) << length;  // none is lost again
    seen = count;
  }
  EXPECT_EQ(seen, 5U);
}

TEST(FigureSelection, CasesThatTheModelLacksAreLeftOut) {
  EXPECT_EQ(WithinCases(Batch(0, {1, 2, 3}, {3}), 2).types[0].cases, (std::vector<int>{1, 2}));
  EXPECT_THAT(WithinCases(Batch(0, {1}, {3}), 2).types[4].cases, IsEmpty());
  EXPECT_EQ(WithinCases(Single(kShearFigure, {1, 9}), 8).cases, std::vector<int>{1});
}

TEST(FigureSelection, NeedsACaseOfACheckedType) {
  EXPECT_EQ(SelectionFault(FigureSelection()),
            "プレビューする図面タイプの荷重ケースを選択してください！！！");
  FigureSelection checkedAlone;
  checkedAlone.types[0].checked = true;
  EXPECT_EQ(SelectionFault(checkedAlone), "プレビューする図面タイプの荷重ケースを選択してください！！！");
  FigureSelection casesAlone;
  casesAlone.types[0].cases = {1};
  EXPECT_EQ(SelectionFault(casesAlone), "プレビューする図面タイプの荷重ケースを選択してください！！！");
  EXPECT_EQ(SelectionFault(Batch(0, {1}, {})), std::nullopt);
}

TEST(FigureSelection, SingleFigureNeedsACaseWhereItHasCases) {
  EXPECT_EQ(SelectionFault(Single(kMomentFigure, {})), "プレビューする荷重ケースを選択してください！！！");
  EXPECT_EQ(SelectionFault(Single(kMomentFigure, {1})), std::nullopt);
  EXPECT_EQ(SelectionFault(Single(kModelFigure, {})), std::nullopt);
  EXPECT_EQ(SelectionFault(Single(kSteelRatioFigure, {})), std::nullopt);
}

TEST(SelectedFigures, AreThoseOfTheCheckedTypesInOrder) {
  EXPECT_THAT(SelectedFigures(Batch(5, {1, 3}, {2})),
              ElementsAre(SelectedFigure{kLoadCheck, 1}, SelectedFigure{kLoadCheck, 3},
                          SelectedFigure{kMomentFigure, 2}));
  FigureSelection selection = Batch(0, {1}, {2});
  selection.types[0].checked = false;
  EXPECT_THAT(SelectedFigures(selection), ElementsAre(SelectedFigure{kMomentFigure, 2}));
  EXPECT_THAT(SelectedFigures(FigureSelection()), IsEmpty());
}

TEST(SelectedFigures, OfASingleFigureAreItsCasesOrItAlone) {
  EXPECT_THAT(SelectedFigures(Single(kAxialFigure, {3, 1})),
              ElementsAre(SelectedFigure{kAxialFigure, 3}, SelectedFigure{kAxialFigure, 1}));
  EXPECT_THAT(SelectedFigures(Single(kModelFigure, {})), ElementsAre(SelectedFigure{kModelFigure, 1}));
}

class SelectionFiles : public testing::Test {
 protected:
  void SetUp() override { AppPath = folder_.Path(); }
  std::string Handed() const { return folder_.Path() + "SelctLC.Txt"; }
  std::string Kept() const { return folder_.Path() + "AllPrnSet.txt"; }
  TemporaryFolder folder_;
};

TEST_F(SelectionFiles, BatchIsHandedOverAndKept) {
  const FigureSelection selection = Batch(2, {1}, {1, 2});
  HandOverSelection(selection);
  EXPECT_EQ(HandedSelection(), selection);
  EXPECT_EQ(KeptBatch(1), selection);
  EXPECT_EQ(ReadBytes(Handed()), ReadBytes(Kept()));
  RemoveSelection();
  EXPECT_FALSE(FileExists(Handed()));
  EXPECT_EQ(HandedSelection(), std::nullopt);
  EXPECT_EQ(KeptBatch(1), selection);
}

TEST_F(SelectionFiles, SingleFigureLeavesTheKeptBatch) {
  HandOverSelection(Batch(2, {1}, {}));
  HandOverSelection(Single(kMomentFigure, {1}));
  EXPECT_EQ(HandedSelection(), Single(kMomentFigure, {1}));
  EXPECT_EQ(KeptBatch(1), Batch(2, {1}, {}));
}

TEST_F(SelectionFiles, WithoutTheKeptFileAllTypesAreOff) {
  EXPECT_EQ(KeptBatch(1), FigureSelection());
  ReplaceTextFile(Kept(), SelectionText(Single(kMomentFigure, {1})));
  EXPECT_EQ(KeptBatch(1), FigureSelection());
}

TEST_F(SelectionFiles, WithoutTheKeptFileTheSheetIsThatOfThePrinter) {
  EXPECT_EQ(KeptBatch(2).orientation, 2);
  ReplaceTextFile(Kept(), SelectionText(Single(kMomentFigure, {1})));
  EXPECT_EQ(KeptBatch(2).orientation, 2);
  ReplaceTextFile(Kept(), "\"-1\"\r\n\"3\"\r\n");  // cut off before the orientation
  EXPECT_EQ(KeptBatch(2).orientation, 2);
  EXPECT_EQ(KeptBatch(2).layout, 3);
  HandOverSelection(Batch(2, {1}, {}));
  EXPECT_EQ(KeptBatch(2).orientation, 1);
}

TEST_F(SelectionFiles, AFileTooLargeToBeOursIsPassedOver) {
  ReplaceTextFile(Kept(), SelectionText(Batch(2, {1}, {})) + std::string(100'000, ' '));
  EXPECT_EQ(KeptBatch(1), FigureSelection());
}

TEST_F(SelectionFiles, FoldersInTheirPlacesAreToldOrPassedOver) {
  MakeFolder(Handed());
  MakeFolder(Kept());
  EXPECT_EQ(HandedSelection(), std::nullopt);
  EXPECT_EQ(KeptBatch(1), FigureSelection());
  EXPECT_THROW(HandOverSelection(Batch(0, {1}, {})), FileFault);
  RemoveSelection();
}

}  // namespace
}  // namespace zorlan
