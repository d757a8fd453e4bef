#include "model/model_state.h"

#include "model/table_file.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

struct NameCase {
  const char* name;
  const char* base;
};

const NameCase kNameCases[] = {
    {"frame.inp", "frame"},
    {"frame.INP", "frame"},
    {"２階梁.inp", "２階梁"},
    {"２階梁．ｉｎｐ", "２階梁"},   // a full-width extension is cut too
    {"２階梁．INP.bak", "２階梁"},  // and what follows it
    {"frame", "frame"},
    {"frame.in", "frame.in"},
    {"a.inp.inp", "a"},
    {"ガード．ｉｎｐ", "ガード"},
    {".inp", ""},
    {"", ""},
};

TEST(ModelBaseName, CutsTheExtensionInHalfAndFullWidth) {
  for (const NameCase& c : kNameCases) EXPECT_EQ(ModelBaseName(c.name), c.base) << c.name;
}

class ModelStateTest : public test::ModelFolderTest {};

TEST_F(ModelStateTest, TheBaseNameIsTheModelInHandsWithoutAName) {
  ModelFile = "梁.inp";
  EXPECT_EQ(ModelBaseName(), "梁");
  EXPECT_EQ(DeckPath(), DataPath + ProjectName + "梁.inp");
  EXPECT_EQ(ListingPath(), DataPath + ProjectName + "梁.out");
  EXPECT_EQ(ResultFolder(), DataPath + ProjectName + "梁.ANA/");
}

TEST_F(ModelStateTest, ADeckTakenInHandHasItsFolderForAProject) {
  SetModelInHand("/例題/梁.inp");
  EXPECT_EQ(DataPath, "/例題/");
  EXPECT_EQ(ProjectName, "");
  EXPECT_EQ(ModelFile, "梁.inp");
  SetModelInHand("梁.inp");
  EXPECT_EQ(DeckPath(), "梁.inp");
}

TEST_F(ModelStateTest, ANewModelHasItsDefaultsAndOnlyTheTableOfUnits) {
  InitModelDefaults();
  EXPECT_EQ(InpModel.Title, "新規");
  EXPECT_EQ(InpModel.SubTitle, "New");
  EXPECT_EQ(InpModel.ModelCode, 1);
  EXPECT_EQ(InpModel.MaxLoadCase, 1);
  EXPECT_EQ(InpModel.InUnit, 1);
  EXPECT_EQ(InpModel.OutUnit, 1);
  EXPECT_EQ(InpModel.SIFactor, 9.80665);
  EXPECT_EQ(InpModel.ForceUnit, 0);
  EXPECT_EQ(InpModel.Node.UpperBound(), 5000);
  EXPECT_EQ(InpModel.Disp.UpperBound(), 1000);
  EXPECT_EQ(ReadTable("UNIT"), "1,1,9.80665,0\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(WorkPath), {}), 1);
}

TEST_F(ModelStateTest, ANewModelHasNothingOfTheOneBefore) {
  InpModel.NodeCount = 5;
  InpModel.ListFlag = InpModel.RollerFlag = 1;
  InitModelDefaults();
  EXPECT_EQ(InpModel.NodeCount, 0);
  EXPECT_EQ(InpModel.ListFlag, 0);
  EXPECT_EQ(InpModel.RollerFlag, 0);
}

TEST_F(ModelStateTest, ClearingAFolderLeavesTheOther) {
  WriteTable("NODE", "1\n");
  Write(AnalysisPath + "FT031", "1\n");
  ClearWork();
  EXPECT_FALSE(FileExists(WorkPath + "NODE"));
  EXPECT_TRUE(FileExists(AnalysisPath + "FT031"));
  ClearAnalysis();
  EXPECT_FALSE(FileExists(AnalysisPath + "FT031"));
}

}  // namespace
}  // namespace zorlan
