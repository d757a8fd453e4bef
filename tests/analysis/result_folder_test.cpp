// What the analysis clears, keeps and copies in its two folders, and what it counts in a model beforehand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "analysis/analysis_state.h"
#include "analysis/merge.h"
#include "analysis/stages.h"
#include "support/analysis_folder.h"
#include "support/model_builder.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ResultFolders : public AnalysisTest {
 protected:
  static std::vector<std::string> Names(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  static void Fill(const std::string& folder) {
    MakeFolder(folder);
    for (const char* const name :
         {"DSNRC", "DSNS", "DSNW", "FT021", "FT022", "FT022A", "FT031", "SIG_RC", "SIG_S", "WCOND"})
      Write(folder + name, std::string(name) + "\n");
  }
};

TEST_F(ResultFolders, CleaningTheWorkInHandRemovesEveryFile) {
  Fill(AnalysisPath);
  Fill(ResultFolder());
  CleanResults(0);
  EXPECT_THAT(Names(AnalysisPath), IsEmpty());
  EXPECT_EQ(Names(ResultFolder()).size(), 10U);
}

TEST_F(ResultFolders, CleaningTheModelsRemovesWhatANewAnalysisMakesStale) {
  Fill(AnalysisPath);
  Fill(ResultFolder());
  CleanResults(1);
  EXPECT_THAT(Names(ResultFolder()), ElementsAre("DSNW", "FT022", "FT022A", "SIG_RC", "WCOND"));
  EXPECT_EQ(Names(AnalysisPath).size(), 10U);
}

TEST_F(ResultFolders, CleaningMakesTheModelsFolder) {
  EXPECT_FALSE(FolderExists(ResultFolder()));
  CleanResults(1);
  EXPECT_TRUE(FolderExists(ResultFolder()));
}

TEST_F(ResultFolders, CopyingBringsEveryFileOfTheModelsToTheWorkInHand) {
  Fill(ResultFolder());
  Write(AnalysisPath + "FT021", "other\n");
  Write(AnalysisPath + "FT008", "stays\n");
  CopyResults();
  EXPECT_EQ(Names(AnalysisPath).size(), 11U);
  EXPECT_EQ(Read(AnalysisPath + "FT021"), "FT021\n");
  EXPECT_EQ(Read(AnalysisPath + "DSNW"), "DSNW\n");
}

TEST_F(ResultFolders, CopyingWithoutStoredResultsDoesNothing) {
  CopyResults();
  EXPECT_THAT(Names(AnalysisPath), IsEmpty());
}

TEST_F(ResultFolders, AModelsFolderThatCannotBeLookedIntoIsTold) {
  LinkToItself(DataPath + ProjectName + "model.ANA");
  EXPECT_THAT(test::FaultOf([] { CopyResults(); }), testing::HasSubstr("model.ANA"));
}

TEST_F(ResultFolders, AWorkFolderThatCannotBeLookedIntoIsNotCleaned) {
  LinkToItself(Root() + "loop");
  AnalysisPath = Root() + "loop/";
  EXPECT_THAT(test::FaultOf([] { CleanResults(0); }), testing::HasSubstr(AnalysisPath));
}

TEST_F(ResultFolders, AnInclinedRollerIsFourFourAndARotation) {
  struct Case {
    Codes code;
    bool inclined;
  };
  for (const Case& c : {Case{{4, 4, 0}, true},
                        {{4, 4, 1}, true},
                        {{4, 4, 2}, false},
                        {{4, 4, 4}, false},
                        {{4, 0, 0}, false},
                        {{0, 4, 1}, false},
                        {{1, 1, 1}, false},
                        {{44, 0, 0}, false}}) {
    ModelBuilder b;
    b.Node(0, 0);
    b.Node(1, 0, c.code);
    CalcModel = b.model;
    EXPECT_EQ(HasInclinedRoller(), c.inclined ? kTrue : kFalse) << testing::PrintToString(c.code);
  }
}

TEST_F(ResultFolders, AForcedDisplacementCountsInItsCaseAndSupportsItsNodeThere) {
  ModelBuilder b(kPlaneFrame, 3);
  b.Node(0, 0, {0, 0, 2});
  b.Node(1, 0, kClamped);
  b.Node(2, 0);
  b.Node(3, 0);
  b.ForcedDisplacement(1, 2);
  b.ForcedDisplacement(3, 2);
  b.ForcedDisplacement(3, 2);
  CalcModel = b.model;
  EXPECT_EQ(HasForcedDisplacement(1), kFalse);
  EXPECT_EQ(HasForcedDisplacement(2), kTrue);
  EXPECT_EQ(HasForcedDisplacement(3), kFalse);
  EXPECT_EQ(CountSupports(CalcModel, 0), 2);
  EXPECT_EQ(CountSupports(CalcModel, 1), 2);
  EXPECT_EQ(CountSupports(CalcModel, 2), 3) << "each node once";
}

/// Two nodes, one element of direction (0.6, 0.8), two cases.
class MergedCases : public AnalysisTest {
 protected:
  MergedCases() {
    ModelBuilder b(kPlaneFrame, 2);
    b.Section(2e6, 0.01, 1e-4);
    b.Node(0, 0, kClamped);
    b.Node(3, 4, kRolling);
    b.Element(1, 2);
    b.model.Node[1].number = b.model.Elem[1].I = 50;
    CalcModel = b.model;
    WriteDisplacements(AnalysisPath, std::vector<double>{1, 2, 3, 4, 5, 6, 11, 12, 13, 14, 15, 16});
    WriteForces(AnalysisPath, std::vector<double>{1, 2, 3, 4, 5, 6, 7, 10, 20, 30, 40, 50, 60, 70});
  }
};

TEST_F(MergedCases, TakeOneCaseAtATimeAndComeOutInAscendingOrderOfNodes) {
  MergedResults results(2, 2, 1);
  WriteReactions(AnalysisPath, {2, {50, 2}, {1, 2, 3, 4, 5, 6, 10, 20, 30, 40, 50, 60}}, ReactionLines::One);
  CollectCaseResults(2, results);
  WriteReactions(AnalysisPath, {2, {2, 7}, {-4, -5, -6, -7, -8, -9, 0, 0, 0, 0, 0, 0}}, ReactionLines::One);
  CollectCaseResults(1, results);
  EXPECT_THAT(results.supports, ElementsAre(50, 2, 7)) << "in the order met";
  WriteMergedResults(results);
  EXPECT_EQ(Read(AnalysisPath + "FT022A"), " 2 \n 3 \n 2 \n 7 \n 50 \n");
  EXPECT_EQ(Read(AnalysisPath + "FT022"),
            " 2 \n-4 \n-5 \n-6 \n 7 \n-7 \n-8 \n-9 \n 50 \n 0 \n 0 \n 0 \n"
            " 2 \n 40 \n 50 \n 60 \n 7 \n 0 \n 0 \n 0 \n 50 \n 10 \n 20 \n 30 \n");
  EXPECT_EQ(Read(AnalysisPath + "FT021"),
            " 1 \n 2 \n 3 \n 4 \n 5 \n 6 \n 11 \n 12 \n 13 \n 14 \n 15 \n 16 \n");
  EXPECT_EQ(Read(AnalysisPath + "FT031"),
            " 1 \n 2 \n 3 \n 4 \n 5 \n 6 \n 7 \n 10 \n 20 \n 30 \n 40 \n 50 \n 60 \n 70 \n");
}

// N, Q, M of end I in case 2 are 10, 20, 30: 0.6 * 10 - 0.8 * 20, 0.8 * 10 + 0.6 * 20, 30; of end J 40,
// 50, 60.
TEST_F(MergedCases, SumTheMemberForcesWhereTheNodeStandsAtABoundary) {
  for (const std::int16_t code : {std::int16_t{3}, std::int16_t{23}})
    for (const std::size_t d : {0U, 1U, 2U}) {
      CalcModel.Node[1].code = CalcModel.Node[2].code = kLoose;
      CalcModel.Node[1].code[d] = CalcModel.Node[2].code[d] = code;
      WriteReactions(AnalysisPath, {2, {50, 2}, std::vector<double>(12, 999)}, ReactionLines::One);
      MergedResults results(2, 2, 1);
      CollectCaseResults(2, results);
      const std::vector<double> ofI(results.Reaction(2, 0), results.Reaction(2, 0) + 3);
      const std::vector<double> ofJ(results.Reaction(2, 1), results.Reaction(2, 1) + 3);
      EXPECT_THAT(ofI, ElementsAre(-10, 20, 30));
      EXPECT_THAT(ofJ, ElementsAre(-16, 62, 60));
    }
}

TEST_F(MergedCases, ThatAreMissingAreAFaultThatNamesTheFile) {
  MergedResults results(2, 2, 1);
  WriteDisplacements(AnalysisPath, std::vector<double>{1, 2, 3});
  EXPECT_THAT(FaultOf([&] { CollectCaseResults(2, results); }), testing::HasSubstr("FT021"));
}

// A held beam of 5 m under 3 t/m: Mo = 3 * 25/8; the end moments of the file close it.
TEST_F(MergedCases, HaveTheirMidspanMomentsComputedAnew) {
  ModelBuilder b(kPlaneFrame, 2);
  b.model = CalcModel;
  b.ElementLoad(1, -3, 0, 0, 0, 2);
  CalcModel = b.model;
  RecomputeMidspan();
  EXPECT_EQ(Read(AnalysisPath + "FT031"),
            " 1 \n 2 \n 3 \n 4 \n 5 \n 6 \n 1.5 \n 10 \n 20 \n 30 \n 40 \n 50 \n 60 \n 24.375 \n");
}

TEST_F(MergedCases, WithoutTheirForcesFailAsTheStageThatAddsTheLoads) {
  AnalysisError.clear();
  RemoveFile(AnalysisPath + "FT031");
  RecomputeMidspan();
  EXPECT_EQ(AnalysisError, "エラー発生（IN DSTRESS2）");
  EXPECT_THAT(AnalysisErrorDetail, testing::HasSubstr("FT031"));
}

}  // namespace
}  // namespace zorlan::test
