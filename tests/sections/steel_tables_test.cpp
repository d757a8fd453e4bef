#include "sections/steel_tables.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>

#include "base/fault.h"
#include "sections/table_folder.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Dimensions = std::array<double, 4>;

class SteelTablesTest : public TableFolder {
 protected:
  static bool Holds(double D, double t) { return FindSection("PIPE", Dimensions{D, t}).has_value(); }
};

TEST_F(SteelTablesTest, AMissingFileLeavesItsFamilyEmpty) {
  Write("PIPE.CSV", std::string(kHead) + "10,1,1,1,1,1\r\n");
  LoadSectionTables();
  EXPECT_TRUE(SteelRows(SteelFamily::H).empty());
  EXPECT_FALSE(FindSection("H", Dimensions{400, 200, 8, 13}));
  EXPECT_EQ(SteelRows(SteelFamily::Pipe).size(), 1U);
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(SteelTablesTest, AFolderThatIsNotSetHoldsNoTables) {
  SteelTableFolder.clear();
  EXPECT_FALSE(FindSection("H", Dimensions{400, 200, 8, 13}));
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(SteelTablesTest, AnHRowAnswersItsValuesAndItsRadius) {
  Write("H.CSV", std::string(kHead) + "400,200,8,13,14,83.37,23500,1740,16.8,4.56,1170,174\r\n");
  const auto section = FindSection("H", Dimensions{400, 200, 8, 13});
  ASSERT_TRUE(section);
  EXPECT_EQ(section->A, 83.37);
  EXPECT_EQ(section->Ix, 23500);
  EXPECT_EQ(section->Iy, 1740);
  EXPECT_EQ(section->ix, 16.8);
  EXPECT_EQ(section->iy, 4.56);
  EXPECT_EQ(section->Zx, 1170);
  EXPECT_EQ(section->Zy, 174);
  EXPECT_EQ(section->r, 14);
}

TEST_F(SteelTablesTest, AFileInSmallLettersIsTheTable) {
  Write("h.csv", std::string(kHead) + "400,200,8,13,14,83.37,23500,1740,16.8,4.56,1170,174\r\n");
  EXPECT_TRUE(FindSection("H", Dimensions{400, 200, 8, 13}));
  EXPECT_EQ(SteelTablePath(SteelFamily::H), Path("h.csv"));
  EXPECT_EQ(SteelTablePath(SteelFamily::Box), Path("BOX.CSV"));
}

TEST_F(SteelTablesTest, AnAngleRowAnswersAllItHolds) {
  Write("YAMA.CSV",
        std::string(kHead) +
            "125,75,7,10,5,13.62,219,60.4,4.01,2.11,26.1,10.3,4.10,1.64,243,36.4,4.23,1.64,0.362\r\n");
  const auto section = FindSection("YAMA", Dimensions{125, 75, 7, 10});
  ASSERT_TRUE(section);
  EXPECT_EQ(section->r, 10);
  EXPECT_EQ(section->r2, 5);
  EXPECT_EQ(section->Zy, 10.3);
  EXPECT_EQ(section->Cx, 4.10);
  EXPECT_EQ(section->Cy, 1.64);
  EXPECT_EQ(section->Iu, 243);
  EXPECT_EQ(section->Iv, 36.4);
  EXPECT_EQ(section->iu, 4.23);
  EXPECT_EQ(section->iv, 1.64);
  EXPECT_EQ(section->tanAlpha, 0.362);
}

TEST_F(SteelTablesTest, AChannelRowAnswersItsCentroidAndAPipeRowItsAxisTwice) {
  Write("MIZO.CSV", std::string(kHead) + "100,50,5,7.5,8,4,11.92,188,26.0,3.97,1.48,37.6,7.52,1.54\r\n");
  Write("PIPE.CSV", std::string(kHead) + "101.6,4.2,12.85,153,3.45,30.1\r\n");
  EXPECT_EQ(FindSection("MIZO", Dimensions{100, 50, 5, 7.5})->Cy, 1.54);
  EXPECT_EQ(FindSection("MIZO", Dimensions{100, 50, 5, 7.5})->r, 8);
  const auto pipe = FindSection("PIPE", Dimensions{101.6, 4.2});
  ASSERT_TRUE(pipe);
  EXPECT_EQ(pipe->Iy, 153);
  EXPECT_EQ(pipe->iy, 3.45);
  EXPECT_EQ(pipe->Zy, 30.1);
}

TEST_F(SteelTablesTest, AScaleOfAThousandTakesMetresAndAnswersMetres) {
  Write("H.CSV", std::string(kHead) + "400,200,8,13,14,83,23500,1740,17,4.5,1170,174\r\n");
  const auto section = FindSection("H", Dimensions{0.4, 0.2, 0.008, 0.013}, 1000);
  ASSERT_TRUE(section);
  EXPECT_DOUBLE_EQ(section->A, 83e-4);
  EXPECT_DOUBLE_EQ(section->Ix, 23500e-8);
  EXPECT_DOUBLE_EQ(section->iy, 0.045);
  EXPECT_DOUBLE_EQ(section->Zx, 1170e-6);
  EXPECT_DOUBLE_EQ(section->r, 0.014);
}

TEST_F(SteelTablesTest, ALookUpNeedsTheExactDimensions) {
  Write("BOX.CSV", std::string(kHead) + "200,100,5.5,1,1,1,1,1,1,1\r\n");
  EXPECT_TRUE(FindSection("BOX", Dimensions{200, 100, 5.5, 77}));  // no fourth in the name
  EXPECT_TRUE(FindSection("YBOX", Dimensions{200, 100, 5.5}));
  EXPECT_FALSE(FindSection("BOX", Dimensions{100, 200, 5.5}));
  EXPECT_FALSE(FindSection("BOX", Dimensions{200, 100, 5}));
  EXPECT_FALSE(FindSection("BOX", Dimensions{200, 100, 5.5001}));
  EXPECT_FALSE(FindSection("PLATE", Dimensions{200, 100, 5.5}));
  EXPECT_FALSE(FindSection("BOX", std::array<double, 2>{200, 100}));
}

TEST_F(SteelTablesTest, TheFirstOfTwoRowsOfOneNameAnswers) {
  Write("PIPE.CSV", std::string(kHead) + "10,1,5,1,1,1\r\n10,1,6,1,1,1\r\n");
  EXPECT_EQ(FindSection("PIPE", Dimensions{10, 1})->A, 5);
}

TEST_F(SteelTablesTest, TablesAreReadOnceUntilTheyAreForgotten) {
  Write("PIPE.CSV", std::string(kHead) + "10,1,5,1,1,1\r\n");
  LoadSectionTables();
  Write("PIPE.CSV", std::string(kHead) + "20,2,5,1,1,1\r\n");
  LoadSectionTables();
  EXPECT_TRUE(Holds(10, 1));
  EXPECT_FALSE(Holds(20, 2));
  ForgetSectionTables();
  EXPECT_FALSE(Holds(10, 1));
  EXPECT_TRUE(Holds(20, 2));
}

TEST_F(SteelTablesTest, ASupplementIsMergedAndGone) {
  Write("PIPE.CSV", std::string(kHead) + "10,1,5,1,1,1\r\n20,2,5,1,1,1\r\n");
  Write("PIPE-2.CSV", "x\r\ny\r\nz\r\n10,1,6,1,1,1\r\n30, 3 ,7,1,1,1\r\n");
  LoadSectionTables();
  EXPECT_EQ(FindSection("PIPE", Dimensions{10, 1})->A, 6);
  EXPECT_TRUE(Holds(20, 2));
  EXPECT_EQ(FindSection("PIPE", Dimensions{30, 3})->A, 7);
  EXPECT_EQ(Read("PIPE.CSV"), std::string(kHead) + "10,1,6,1,1,1\r\n20,2,5,1,1,1\r\n30,3,7,1,1,1\r\n");
  EXPECT_EQ(Read("PIPE.BAK"), std::string(kHead) + "10,1,5,1,1,1\r\n20,2,5,1,1,1\r\n");
  EXPECT_FALSE(Exists("PIPE-2.CSV"));
  EXPECT_FALSE(Exists("PIPE.$$$"));
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(SteelTablesTest, ASecondStartDoesNoMerge) {
  Write("PIPE.CSV", std::string(kHead) + "10,1,5,1,1,1\r\n");
  Write("PIPE-2.CSV", std::string(kHead) + "20,2,6,1,1,1\r\n");
  LoadSectionTables();
  RemoveFile(Path("PIPE.BAK"));
  StartAnew();
  LoadSectionTables();
  EXPECT_TRUE(Holds(20, 2));
  EXPECT_FALSE(Exists("PIPE.BAK"));
}

TEST_F(SteelTablesTest, AnOldBackupGivesWay) {
  Write("PIPE.BAK", "old");
  Write("PIPE.$$$", "left over");
  Write("PIPE.CSV", std::string(kHead) + "10,1,5,1,1,1\r\n");
  Write("PIPE-2.CSV", std::string(kHead) + "20,2,6,1,1,1\r\n");
  LoadSectionTables();
  EXPECT_EQ(Read("PIPE.BAK"), std::string(kHead) + "10,1,5,1,1,1\r\n");
  EXPECT_FALSE(Exists("PIPE.$$$"));
}

TEST_F(SteelTablesTest, TheFirstLookUpMergesTheSupplementsOfAllFamilies) {
  for (const std::string word : {"H", "BOX", "PIPE", "MIZO", "YAMA"}) {
    Write(word + ".CSV", std::string(kHead) + "10,1\r\n");
    Write(word + "-2.CSV", std::string(kHead) + "20,2\r\n");
  }
  EXPECT_TRUE(FindSection("H", Dimensions{20, 2, 0, 0}));
  for (const std::string word : {"H", "BOX", "PIPE", "MIZO", "YAMA"}) {
    EXPECT_FALSE(Exists(word + "-2.CSV")) << word;
    EXPECT_THAT(Read(word + ".CSV"), HasSubstr("\r\n20,2,")) << word;
  }
}

TEST_F(SteelTablesTest, ASupplementWithoutItsTableWaits) {
  Write("PIPE-2.CSV", std::string(kHead) + "20,2,6,1,1,1\r\n");
  EXPECT_FALSE(Holds(20, 2));
  EXPECT_TRUE(Exists("PIPE-2.CSV"));
}

TEST_F(SteelTablesTest, AMergeThatCannotBeSavedIsToldAndServesInMemory) {
  const std::string table = std::string(kHead) + "10,1,5,1,1,1\r\n";
  Write("PIPE.CSV", table);
  Write("PIPE-2.CSV", std::string(kHead) + "20,2,6,1,1,1\r\n");
  MakeFolder(Path("PIPE.$$$"));  // no file can take this name
  EXPECT_TRUE(Holds(10, 1));
  EXPECT_TRUE(Holds(20, 2));
  EXPECT_THAT(Told(), ElementsAre(testing::AllOf(HasSubstr("PIPE-2.CSV"), HasSubstr("PIPE.$$$"))));
  EXPECT_EQ(Read("PIPE.CSV"), table);
  EXPECT_TRUE(Exists("PIPE-2.CSV"));
  EXPECT_FALSE(Exists("PIPE.BAK"));
}

TEST_F(SteelTablesTest, RowsBeyondThreeThousandAreToldAndKeptAside) {
  std::string rows;
  for (int i = 1; i <= 3000; ++i) rows += std::to_string(i) + ",1,1,1,1,1\r\n";
  Write("PIPE.CSV", std::string(kHead) + rows);
  const std::string supplement = std::string(kHead) + "7,1,2,2,2,2\r\n3001,1,2,2,2,2\r\n";
  Write("PIPE-2.CSV", supplement);
  EXPECT_EQ(FindSection("PIPE", Dimensions{7, 1})->A, 2);
  EXPECT_FALSE(Holds(3001, 1));
  EXPECT_EQ(SteelRows(SteelFamily::Pipe).size(), 3000U);
  EXPECT_FALSE(Exists("PIPE-2.CSV"));
  EXPECT_EQ(Read("PIPE-2.BAK"), supplement);
  EXPECT_THAT(Told(),
              ElementsAre(testing::AllOf(HasSubstr("3000"), HasSubstr("1 断面"), HasSubstr("PIPE-2.BAK"))));
}

TEST_F(SteelTablesTest, RowsBehindABlankLineAreToldOnce) {
  Write("PIPE.CSV", std::string(kHead) + "10,1,5,1,1,1\r\n\r\n20,2,5,1,1,1\r\n30,3,5,1,1,1\r\n");
  LoadSectionTables();
  LoadSectionTables();
  EXPECT_TRUE(Holds(10, 1));
  EXPECT_FALSE(Holds(20, 2));
  EXPECT_THAT(Told(), ElementsAre(testing::AllOf(HasSubstr("PIPE.CSV"), HasSubstr(" 2 行"))));
}

TEST_F(SteelTablesTest, AMergeKeepsTheRowsBehindABlankLine) {
  Write("PIPE.CSV", std::string(kHead) + "10,1,5,1,1,1\r\n\r\n20,2,5,1,1,1\r\n");
  Write("PIPE-2.CSV", std::string(kHead) + "30,3,5,1,1,1\r\n");
  LoadSectionTables();
  EXPECT_EQ(Read("PIPE.CSV"), std::string(kHead) + "10,1,5,1,1,1\r\n30,3,5,1,1,1\r\n\r\n20,2,5,1,1,1\r\n");
  EXPECT_FALSE(Exists("PIPE-2.CSV"));
  EXPECT_FALSE(Exists("PIPE-2.BAK"));
  EXPECT_THAT(Told(), ElementsAre(HasSubstr(" 1 行")));
}

TEST_F(SteelTablesTest, ASupplementThatIsNotReadThroughIsToldAndKeptAside) {
  Write("PIPE.CSV", std::string(kHead) + "10,1,5,1,1,1\r\n");
  const std::string supplement = std::string(kHead) + "20,2,5,1,1,1\r\n\r\n30,3,5,1,1,1\r\n";
  Write("PIPE-2.CSV", supplement);
  LoadSectionTables();
  EXPECT_TRUE(Holds(20, 2));
  EXPECT_FALSE(Holds(30, 3));
  EXPECT_FALSE(Exists("PIPE-2.CSV"));
  EXPECT_EQ(Read("PIPE-2.BAK"), supplement);
  EXPECT_THAT(Told(), ElementsAre(testing::AllOf(HasSubstr("PIPE-2.CSV"), HasSubstr(" 1 行"),
                                                 HasSubstr("PIPE-2.BAK"))));
}

TEST_F(SteelTablesTest, AReplacedTableKeepsTheFormerOneAsItsBackup) {
  Write("H.CSV", "old");
  ReplaceTableFile(Path("H.CSV"), Path("H.CSV_$$$"), Path("H.CSV_bak"), "new");
  EXPECT_EQ(Read("H.CSV"), "new");
  EXPECT_EQ(Read("H.CSV_bak"), "old");
  EXPECT_FALSE(Exists("H.CSV_$$$"));
  ReplaceTableFile(Path("H.CSV"), Path("H.CSV_$$$"), Path("H.CSV_bak"), "newer");
  EXPECT_EQ(Read("H.CSV_bak"), "new");
}

TEST_F(SteelTablesTest, ANewTableNeedsNoFormerOne) {
  ReplaceTableFile(Path("H.CSV"), Path("H.CSV_$$$"), Path("H.CSV_bak"), "new");
  EXPECT_EQ(Read("H.CSV"), "new");
  EXPECT_FALSE(Exists("H.CSV_bak"));
}

TEST_F(SteelTablesTest, ATableThatCannotBeReplacedStaysAndLeavesNoTemporaryFile) {
  Write("H.CSV", "old");
  MakeFolder(Path("H.CSV_bak"));  // neither deleted nor written over
  EXPECT_THROW(ReplaceTableFile(Path("H.CSV"), Path("H.CSV_$$$"), Path("H.CSV_bak"), "new"), FileFault);
  EXPECT_EQ(Read("H.CSV"), "old");
  EXPECT_FALSE(Exists("H.CSV_$$$"));
}

}  // namespace
}  // namespace zorlan
