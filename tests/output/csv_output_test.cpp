#include "output/csv_output.h"

#include "base/host.h"
#include "support/model_folder.h"
#include "support/shared_cases.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A beam whose results lie in the analysis folder, and what the user is told.
class CsvOutput : public test::ModelFolderTest {
 protected:
  CsvOutput() {
    Host host;
    host.message = [this](std::string_view text, std::string_view title) {
      told_.push_back(std::string(title) + ": " + std::string(text));
    };
    InstallHost(std::move(host));
    MakeFolder(Folder());
  }
  ~CsvOutput() override { InstallHost({}); }

  std::string Folder() const { return Root() + "CSV出力/"; }
  std::string File(const char* ending) const { return Folder() + "beam" + ending; }
  const std::vector<std::string>& Told() const { return told_; }

  /// Two nodes, one element, two cases; node 10 is supported. Units as in the table UNIT.
  static void Beam(std::string_view units, int model = 1) {
    WriteDeck("@CONT\n" + std::to_string(model) + ",2,0,0\n@UNIT\n" + std::string(units) +
              "\n@NODE\n10,0,0,1,1,1\n20,4,0,0,0,0\n@ELEM\n5,10,20,0,0,1\n");
    WriteDisplacements(AnalysisPath, std::vector<double>{0, 0, 0, 0.01, -0.002, 3e-7, 0, 0, 0, 1, 2, -0.5});
    WriteReactions(AnalysisPath, {2, {10}, {1, -2, 3, 0, 0.5, 0}}, ReactionLines::One);
    WriteForces(AnalysisPath, std::vector<double>{1, 2, 3, 4, 5, 6, 7, -1, -2, -3, 0, 0, 0, 1e-17});
  }

 private:
  std::vector<std::string> told_;
};

constexpr const char* kDone = "ＺＯＲＬＡＮ For Windows: CSVファイルを作成しました";

TEST_F(CsvOutput, WritesALineForEachRowAndCaseInTons) {
  Beam("0,0,9.80665,0");
  EXPECT_TRUE(WriteCsvFiles(Folder(), "beam").written);
  EXPECT_EQ(Read(File("_D.CSV")),
            "Node, Load, dx, dy, dr\n"
            "No, Case, (cm), (cm), (rad)\n"
            "10, 1, 0, 0, 0\n"
            "10, 2, 0, 0, 0\n"
            "20, 1, 1, -0.2, 3E-07\n"
            "20, 2, 100, 200, -0.5\n");
  EXPECT_EQ(Read(File("_S.CSV")),
            "Element, Load, Ni, Qi, Mi, Nj, Qj, Mj, Mc\n"
            "No, Case, (T), (T), (T･M), (T), (T), (T･M), (T･M)\n"
            "5, 1, 1, 2, 3, 4, 5, 6, 7\n"
            "5, 2, -1, -2, -3, 0, 0, 0, 1E-17\n");
  EXPECT_EQ(Read(File("_R.CSV")),
            "Node, Load, Fx, Fy, Fr\n"
            "No, Case, (T), (T), (T･M)\n"
            "10, 1, 1, -2, 3\n"
            "10, 2, 0, 0.5, 0\n");
  EXPECT_THAT(Told(), ElementsAre(kDone));
}

struct UnitCase {
  const char* units;
  const char* forces;
  const char* reactions;
};

// 10 kN per t.
const UnitCase kUnits[] = {
    {"0,0,10,1",
     "No, Case, (Kg), (Kg), (Kg･M), (Kg), (Kg), (Kg･M), (Kg･M)\n5, 1, 1000, 2000, 3000, 4000, 5000, 6000, 7000\n",
     "No, Case, (Kg), (Kg), (Kg･M)\n10, 1, 1000, -2000, 3000\n"},
    {"0,1,10,0",
     "No, Case, (kN), (kN), (kN･M), (kN), (kN), (kN･M), (kN･M)\n5, 1, 10, 20, 30, 40, 50, 60, 70\n",
     "No, Case, (kN), (kN), (kN･M)\n10, 1, 10, -20, 30\n"},
    {"0,1,10,1",
     "No, Case, (N), (N), (N･M), (N), (N), (N･M), (N･M)\n5, 1, 10000, 20000, 30000, 40000, 50000, 60000, 70000\n",
     "No, Case, (N), (N), (N･M)\n10, 1, 10000, -20000, 30000\n"},
};

TEST_F(CsvOutput, ForcesAreInTheOutputUnit) {
  for (const UnitCase& c : kUnits) {
    Beam(c.units);
    EXPECT_TRUE(WriteCsvFiles(Folder(), "beam").written);
    EXPECT_THAT(Read(File("_S.CSV")), HasSubstr(c.forces));
    EXPECT_THAT(Read(File("_R.CSV")), HasSubstr(c.reactions));
    EXPECT_THAT(Read(File("_D.CSV")), HasSubstr("\n20, 1, 1, -0.2, 3E-07\n"));
  }
}

TEST_F(CsvOutput, AGridKeepsTheHeadingAndTheFactorsOfAFrame) {
  Beam("0,0,9.80665,0", /*model=*/3);
  EXPECT_TRUE(WriteCsvFiles(Folder(), "beam").written);
  EXPECT_THAT(Read(File("_D.CSV")), StartsWith("Node, Load, dx, dy, dr\nNo, Case, (cm), (cm), (rad)\n"));
  EXPECT_THAT(Read(File("_D.CSV")), HasSubstr("\n20, 2, 100, 200, -0.5\n"));
}

TEST_F(CsvOutput, AMissingFolderOrNameIsAskedFor) {
  Beam("0,0,9.80665,0");
  const CsvResult folder = WriteCsvFiles(" ", "beam");
  EXPECT_FALSE(folder.written);
  EXPECT_EQ(folder.focus, CsvEntry::Folder);
  const CsvResult name = WriteCsvFiles(Folder(), "");
  EXPECT_FALSE(name.written);
  EXPECT_EQ(name.focus, CsvEntry::Name);
  EXPECT_EQ(WriteCsvFiles("", "").focus, CsvEntry::Folder);
  EXPECT_THAT(Told(), ElementsAre("ＺＯＲＬＡＮ For Windows: 出力先フォルダを指定してください",
                                  "ＺＯＲＬＡＮ For Windows: ファイル名を指定してください",
                                  "ＺＯＲＬＡＮ For Windows: 出力先フォルダを指定してください"));
}

TEST_F(CsvOutput, TheFolderNeedsNoClosingSeparatorAndTheResultNamesTheFiles) {
  Beam("0,0,9.80665,0");
  std::string folder = Folder();
  folder.pop_back();
  EXPECT_THAT(WriteCsvFiles(folder, "beam").paths,
              ElementsAre(File("_D.CSV"), File("_S.CSV"), File("_R.CSV")));
  EXPECT_TRUE(FileExists(File("_R.CSV")));
}

TEST_F(CsvOutput, AFolderThatTakesNoFileIsTold) {
  Beam("0,0,9.80665,0");
  for (const std::string& folder : {Root() + "none/", BlockedFolder()})
    EXPECT_FALSE(WriteCsvFiles(folder, "beam").written);
  constexpr const char* kTold =
      "ＺＯＲＬＡＮ For Windows: ファイルを書き込めませんでした\nフォルダ名またはファイル名を確認してください";
  EXPECT_THAT(Told(), ElementsAre(kTold, kTold));
}

TEST_F(CsvOutput, AMissingResultFileIsReportedAndTheOldFilesStay) {
  for (const char* const missing : {"FT021", "FT031", "FT022"}) {
    Beam("0,0,9.80665,0");
    RemoveFile(AnalysisPath + missing);
    ReplaceBytes(File("_D.CSV"), "old");
    EXPECT_FALSE(WriteCsvFiles(Folder(), "beam").written);
    EXPECT_THAT(Told().back(), StartsWith("エラーが発生しました: "));
    EXPECT_THAT(Told().back(), HasSubstr(DataPath + ProjectName + "model.ANA/" + missing + " ： "));
    EXPECT_THAT(Told().back(), HasSubstr("静解析を行ってください"));
    EXPECT_THAT(Told().back(), Not(HasSubstr(AnalysisPath)));
    EXPECT_EQ(ReadBytes(File("_D.CSV")), "old");
    EXPECT_FALSE(FileExists(File("_S.CSV")));
  }
}

TEST_F(CsvOutput, AFailureLeavesNoNewFile) {
  Beam("0,0,9.80665,0");
  RemoveFile(AnalysisPath + "FT021");
  EXPECT_FALSE(WriteCsvFiles(Folder(), "beam").written);
  EXPECT_TRUE(std::filesystem::is_empty(NativePath(Folder())));
}

TEST_F(CsvOutput, AModelThatNeverReachedItsReactionsHasTheirHeadingsAlone) {
  Beam("0,0,9.80665,0");
  RemoveFile(AnalysisPath + "FT022A");
  EXPECT_TRUE(WriteCsvFiles(Folder(), "beam").written);
  EXPECT_EQ(Read(File("_R.CSV")), "Node, Load, Fx, Fy, Fr\nNo, Case, (T), (T), (T･M)\n");
  EXPECT_THAT(Told(), ElementsAre(kDone));
}

TEST_F(CsvOutput, ResultsThatDoNotFitTheModelAreReported) {
  Beam("0,0,9.80665,0");
  WriteForces(AnalysisPath, std::vector<double>{1, 2, 3});
  EXPECT_FALSE(WriteCsvFiles(Folder(), "beam").written);
  EXPECT_THAT(Told().back(), HasSubstr("FT031 ： ファイルが途中で終わっています"));
  Beam("0,0,9.80665,0");
  WriteReactions(AnalysisPath, {1, {10}, {1, 2, 3}}, ReactionLines::One);
  EXPECT_FALSE(WriteCsvFiles(Folder(), "beam").written);
  EXPECT_THAT(Told().back(), HasSubstr("FT022A ： 荷重ケース数がモデルと一致しません"));
}

// The numbers come from the model, the values from the results: with a row more or less since the analysis
// the values would stand on other members.
TEST_F(CsvOutput, ResultsOfTheModelBeforeARowWasRemovedAreRefused) {
  const struct {
    const char *name, *nodes, *elements, *file;
  } cases[] = {
      {"a node", "10,0,0,1,1,1\n", "5,10,20,0,0,1\n", "FT021"},
      {"an element", "10,0,0,1,1,1\n20,4,0,0,0,0\n", "", "FT031"},
      {"the number of a supported node", "11,0,0,1,1,1\n20,4,0,0,0,0\n", "5,11,20,0,0,1\n", "FT022A"},
  };
  for (const auto& c : cases) {
    Beam("0,0,9.80665,0");
    WriteDeck("@CONT\n1,2,0,0\n@UNIT\n0,0,9.80665,0\n@NODE\n" + std::string(c.nodes) + "@ELEM\n" +
              c.elements);
    EXPECT_FALSE(WriteCsvFiles(Folder(), "beam").written) << c.name;
    EXPECT_THAT(Told().back(), HasSubstr("入力データに合う解析結果がありません。静解析を行ってください"))
        << c.name;
    EXPECT_THAT(Told().back(), HasSubstr("model.ANA/" + std::string(c.file) + " ： ")) << c.name;
    EXPECT_TRUE(std::filesystem::is_empty(NativePath(Folder()))) << c.name;
  }
}

TEST_F(CsvOutput, AnyOfTheThreeNamesThatTakesNoFileIsToldBeforeAnyIsWritten) {
  for (const char* const blocked : {"_D.CSV", "_S.CSV", "_R.CSV"}) {
    Beam("0,0,9.80665,0");
    MakeFolder(File(blocked));
    EXPECT_FALSE(WriteCsvFiles(Folder(), "beam").written) << blocked;
    EXPECT_THAT(Told().back(), HasSubstr("ファイルを書き込めませんでした")) << blocked;
    std::filesystem::remove(NativePath(File(blocked)));
    EXPECT_TRUE(std::filesystem::is_empty(NativePath(Folder()))) << blocked;
  }
}

TEST_F(CsvOutput, WithoutADeckItIsReported) {
  Beam("0,0,9.80665,0");
  RemoveFile(DeckPath());
  EXPECT_FALSE(WriteCsvFiles(Folder(), "beam").written);
  EXPECT_THAT(Told().back(), HasSubstr("model.inp"));
}

TEST_F(CsvOutput, ProposesTheDecksNameWithoutItsEnding) {
  EXPECT_EQ(CsvBaseName(), "model");
  ModelFile = "倉庫Ａ.INP";
  EXPECT_EQ(CsvBaseName(), "倉庫Ａ");
}

TEST_F(CsvOutput, TheFilesOfSharedCasesAreTheExpectedOnesWhereTheCasesAreThere) {
  const std::vector<std::string> folders = test::CaseFolders("reports");
  if (folders.empty()) GTEST_SKIP() << "no shared cases beside the source tree";
  for (const std::string& report : folders) {
    const std::string name = std::filesystem::path(report).parent_path().filename().string();
    CopyFileOver(report + "model.inp", DeckPath());
    for (const char* const file : {"FT021", "FT022", "FT022A", "FT031"})
      CopyFileOver(report + "../../analysis/" + name + "/" + file, AnalysisPath + file);
    EXPECT_TRUE(WriteCsvFiles(Folder(), "model").written);
    for (const char* const file : {"model_D.CSV", "model_S.CSV", "model_R.CSV"})
      EXPECT_TRUE(test::SameLines(ReadBytes(Folder() + file), ReadBytes(report + file))) << report << file;
  }
}

}  // namespace
}  // namespace zorlan
