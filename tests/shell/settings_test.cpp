#include "shell/settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/delimited.h"
#include "base/fault.h"
#include "shell/recent_models.h"
#include "support/shell_folder.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SettingsTest : public ShellTest {
 protected:
  SettingsTest() {
    SetFolders(Documents());
    MakeFolder(Tree());
  }
  std::string Settings() const { return Tree() + "Setting.Ini"; }
};

TEST_F(SettingsTest, ValueIsKeptUnderThreeNamesWithColons) {
  SavePrivateSetting("ZOR", "PrnText", "PrintFlag", "2");
  EXPECT_EQ(Read(Settings()), "\"ZOR:PrnText:PrintFlag:\",\"2\"\r\n");
  EXPECT_EQ(GetPrivateSetting("ZOR", "PrnText", "PrintFlag", "0"), "2");
}

TEST_F(SettingsTest, MissingKeyOrFileReadsAsTheDefault) {
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "b", "7"), "7");
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "b"), "");
  SavePrivateSetting("ZOR", "a", "b", "1");
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "c", "7"), "7");
}

TEST_F(SettingsTest, WritingReplacesTheValueInItsPlaceOrAppends) {
  SavePrivateSetting("ZOR", "a", "1", "x");
  SavePrivateSetting("ZOR", "a", "2", "y");
  SavePrivateSetting("ZOR", "a", "1", "z");
  EXPECT_EQ(Read(Settings()), "\"ZOR:a:1:\",\"z\"\r\n\"ZOR:a:2:\",\"y\"\r\n");
}

TEST_F(SettingsTest, ValuesWithCommasAndQuotesComeBack) {
  const std::string row = "1,\"Ｈ-400\", ,\"\"";
  SavePrivateSetting("ZOR", "row", "1", row);
  EXPECT_EQ(Read(Settings()), "\"ZOR:row:1:\",\"1,\"\"Ｈ-400\"\", ,\"\"\"\"\"\r\n");
  EXPECT_EQ(GetPrivateSetting("ZOR", "row", "1"), row);
}

TEST_F(SettingsTest, SeveralValuesGoInByOneWriting) {
  const Setting settings[] = {{"ZOR", "a", "1", "x"}, {"ZOR", "a", "2", "y"}};
  SavePrivateSettings(settings);
  EXPECT_EQ(Read(Settings()), "\"ZOR:a:1:\",\"x\"\r\n\"ZOR:a:2:\",\"y\"\r\n");
}

TEST_F(SettingsTest, SeveralValuesComeByOneReading) {
  SavePrivateSetting("ZOR", "a", "2", "y");
  const std::string keys[] = {"1", "2"};
  EXPECT_THAT(GetPrivateSettings("ZOR", "a", keys), ElementsAre("", "y"));
}

TEST_F(SettingsTest, BrokenLinesAreLeftOutAndTheOthersHold) {
  ReplaceBytes(Settings(), "\"ZOR:a:1:\",\"x\"\r\n\"ZOR:a:2:\r\n\xFF\xFE\x81\r\n,,,\r\n\"ZOR:a:3:\",\"z");
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "1"), "x");
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "2", "none"), "none");
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "3"), "z");
  SavePrivateSetting("ZOR", "a", "4", "w");
  EXPECT_EQ(Read(Settings()), "\"ZOR:a:1:\",\"x\"\r\n\"ZOR:a:3:\",\"z\"\r\n\"ZOR:a:4:\",\"w\"\r\n");
}

TEST_F(SettingsTest, AStoreTooLargeToBeOursReadsAsTheDefaultsAndIsKept) {
  const std::string rubbish = "\"ZOR:a:1:\",\"x\"\r\n" + std::string(5'000'000, ' ');
  ReplaceBytes(Settings(), rubbish);
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "1", "7"), "7");
  EXPECT_THROW(SavePrivateSetting("ZOR", "a", "1", "y"), FileFault);
  EXPECT_EQ(Read(Settings()).size(), rubbish.size());
}

TEST_F(SettingsTest, AStoreOfAllItsEntriesIsRead) {
  std::string text;
  for (int i = 1; i <= 3000; ++i)
    text += "\"ZOR:a:" + std::to_string(i) + ":\",\"" + std::string(300, 'x') + "\"\r\n";
  ReplaceBytes(Settings(), text);
  SavePrivateSetting("ZOR", "a", "3000", "y");
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "3000"), "y");
}

TEST_F(SettingsTest, EntryBeyondThreeThousandIsRefusedAndNothingLost) {
  std::string text;
  for (int i = 1; i <= 3000; ++i) text += "\"ZOR:a:" + std::to_string(i) + ":\",\"x\"\r\n";
  ReplaceBytes(Settings(), text);
  SavePrivateSetting("ZOR", "a", "3000", "y");
  EXPECT_THROW(SavePrivateSetting("ZOR", "a", "3001", "x"), Fault);
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "3000"), "y");
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "3001", "none"), "none");
  EXPECT_EQ(DelimitedItems(Read(Settings())).size(), 6000U);
}

TEST_F(SettingsTest, CharacterOutsideTheCodePageIsRefusedAndNothingLost) {
  SavePrivateSetting("ZOR", "a", "1", "x");
  EXPECT_THAT(FaultOf([] { SavePrivateSetting("ZOR", "a", "1", "é"); }), HasSubstr("「é」"));
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "1"), "x");
}

TEST_F(SettingsTest, FolderInThePlaceOfTheFileIsAFaultOnWritingOnly) {
  MakeFolder(Settings());
  EXPECT_EQ(GetPrivateSetting("ZOR", "a", "1", "default"), "default");
  EXPECT_THAT(FaultOf([] { SavePrivateSetting("ZOR", "a", "1", "x"); }), HasSubstr(Settings()));
}

TEST_F(SettingsTest, DataPathIsThreePlainLines) {
  DataPath = Data();
  ProjectName = "架構.zor/";
  ModelFile = "門形.inp";
  SaveDataPath();
  EXPECT_EQ(Read(Tree() + "DataPath.Ini"), Data() + "\r\n架構.zor/\r\n門形.inp\r\n");
}

TEST_F(SettingsTest, DataPathIsReadBack) {
  MakeFolder(Account() + "他/");
  DataPath = Account() + "他/";
  ProjectName = "架構.zor/";
  ModelFile = "門形.inp";
  SaveDataPath();
  DataPath = ProjectName = ModelFile = "";
  LoadDataPath();
  EXPECT_EQ(DataPath, Account() + "他/");
  EXPECT_EQ(ProjectName, "架構.zor/");
  EXPECT_EQ(ModelFile, "門形.inp");
}

TEST_F(SettingsTest, DataPathWithoutItsFileIsTheDefault) {
  DataPath = "/elsewhere/";
  LoadDataPath();
  EXPECT_EQ(DataPath, Data());
}

TEST_F(SettingsTest, RemovedDataPathFallsBackToTheDefault) {
  Write(Tree() + "DataPath.Ini", "/no/such/folder/\n架構.zor/\n門形.inp\n");
  LoadDataPath();
  EXPECT_EQ(DataPath, Data());
  EXPECT_EQ(ProjectName, "架構.zor/");
}

TEST_F(SettingsTest, DataPathFileOfOneLineSetsTheDataPathOnly) {
  MakeFolder(Account() + "他");
  Write(Tree() + "DataPath.Ini", Account() + "他");
  ProjectName = "p/";
  ModelFile = "m.inp";
  LoadDataPath();
  EXPECT_EQ(DataPath, Account() + "他/");
  EXPECT_EQ(ProjectName, "p/");
  EXPECT_EQ(ModelFile, "m.inp");
}

TEST_F(SettingsTest, DataPathWithACommaSplits) {
  MakeFolder(Account() + "a,b/");
  DataPath = Account() + "a,b/";
  ProjectName = "p.zor/";
  SaveDataPath();
  LoadDataPath();
  EXPECT_EQ(DataPath, Data()) << "the part before the comma is no folder";
  EXPECT_EQ(ProjectName, "b/");
  EXPECT_EQ(ModelFile, "p.zor/");
}

TEST_F(SettingsTest, UnreadableDataPathFileCountsAsMissing) {
  MakeFolder(Tree() + "DataPath.Ini");
  LoadDataPath();
  EXPECT_EQ(DataPath, Data());
}

TEST_F(SettingsTest, PartsClosedByAForeignSeparatorAreClosedByOurs) {
  Write(Tree() + "DataPath.Ini", Documents() + "\\\n例題－１.zor\\\n門形.inp\n");
  LoadDataPath();
  EXPECT_EQ(DataPath, Documents());
  EXPECT_EQ(ProjectName, "例題－１.zor/");
}

TEST_F(SettingsTest, ConversionPathsAreKeptThePlainWay) {
  std::string a = "x", b = "y", c = "z";
  LoadVer1Path(a, b, c);
  EXPECT_EQ(a + b + c, "");
  SaveVer1Path("/旧/", "案件/", "ラーメン/");
  EXPECT_EQ(Read(Tree() + "Ver1DataPath.Ini"), "/旧/\r\n案件/\r\nラーメン/\r\n");
  LoadVer1Path(a, b, c);
  EXPECT_EQ(a, "/旧/");
  EXPECT_EQ(b, "案件/");
  EXPECT_EQ(c, "ラーメン/");
}

TEST_F(SettingsTest, ShortConversionFileLeavesTheRestEmpty) {
  Write(Tree() + "Ver1DataPath.Ini", "/旧/\n");
  std::string a, b = "y", c = "z";
  LoadVer1Path(a, b, c);
  EXPECT_EQ(a, "/旧/");
  EXPECT_EQ(b + c, "");
}

const SystemPrinters kOffice = {{"二階", "一階"}, "一階", "B4", kLandscape};

struct PrinterCase {
  const char* name;
  const char* text;
  PrinterRec printer;
};

const PrinterCase kPrinterCases[] = {
    {"eight values", "\"二階\"\n\"A3\"\n2\n2\n3\n2\n0\n12\n", {"二階", "A3", 2, 2, 3, 2, 0, 12}},
    {"the older four", "\"二階\"\n\"A3\"\n2\n2\n", {"二階", "A3", 2, 2, 1, 1, 1, 1}},
    {"the older six", "\"二階\"\n\"A3\"\n2\n2\n3\n2\n", {"二階", "A3", 2, 2, 3, 2, 1, 1}},
    {"a name with comma and quote", "\"一階, 南\"\"A\"\"\"\n\"A4\"\n1\n1\n1\n1\n1\n1\n", {"一階, 南\"A\""}},
    {"one line", "\"二階\",\"A3\",2,2,3,2,0,12", {"二階", "A3", 2, 2, 3, 2, 0, 12}},
    {"a first page below 0", "\"二階\"\n\"A3\"\n2\n2\n3\n2\n1\n-5\n", {"二階", "A3", 2, 2, 3, 2, 1, 1}},
    {"a first page of 0", "\"二階\"\n\"A3\"\n2\n2\n3\n2\n1\n0\n", {"二階", "A3", 2, 2, 3, 2, 1, 0}},
    {"nothing at all", "", {"一階", "B4", 2, 1, 1, 1, 1, 1}},
    {"no numbers", "\"二階\"\n\"A4\"\nx\ny\n\n99999\n-\n?\n", {"二階", "A4", 1, 1, 1, 1, 1, 1}},
};

TEST(PrinterInfo, OlderAndDamagedFilesAreFilledUp) {
  for (const PrinterCase& c : kPrinterCases) {
    const PrinterRec printer = ParsePrinterInfo(c.text, kOffice);
    EXPECT_EQ(printer, c.printer) << c.name;
    EXPECT_EQ(ParsePrinterInfo(PrinterInfoText(printer), {}), printer) << c.name;
  }
}

TEST(PrinterInfo, FileHasAValueALineWithTextsInQuotes) {
  EXPECT_EQ(PrinterInfoText({"二階", "A3", 2, 1, 3, 2, 0, 12}),
            "\"二階\"\r\n\"A3\"\r\n2\r\n1\r\n3\r\n2\r\n0\r\n12\r\n");
}

TEST_F(SettingsTest, PrinterWithoutAFileIsTheSystemPrinterAndIsWritten) {
  PrinterInfo(/*write=*/false, kOffice);
  EXPECT_EQ(PrinterSettings, (PrinterRec{"一階", "B4", 2, 1, 1, 1, 1, 1}));
  EXPECT_EQ(Read(Tree() + "PrinterInf.Ini"), "\"一階\"\r\n\"B4\"\r\n2\r\n1\r\n1\r\n1\r\n1\r\n1\r\n");
}

TEST_F(SettingsTest, PrinterNoLongerInstalledGivesWayToTheSystemPrinter) {
  Write(Tree() + "PrinterInf.Ini", "\"三階\"\n\"A3\"\n1\n2\n1\n1\n1\n5\n");
  PrinterInfo(/*write=*/false, kOffice);
  EXPECT_EQ(PrinterSettings, (PrinterRec{"一階", "A3", 1, 2, 1, 1, 1, 5}));
}

TEST_F(SettingsTest, InstalledPrinterStays) {
  Write(Tree() + "PrinterInf.Ini", "\"二階\"\n\"A3\"\n1\n2\n");
  PrinterInfo(/*write=*/false, kOffice);
  EXPECT_EQ(PrinterSettings.name, "二階");
}

TEST_F(SettingsTest, MachineWithoutPrintersHasSettingsAllTheSame) {
  PrinterInfo(/*write=*/false, {});
  EXPECT_EQ(PrinterSettings, PrinterRec{});
}

TEST_F(SettingsTest, PrinterSettingsThatCannotBeWrittenAreTold) {
  MakeFolder(Tree() + "PrinterInf.Ini");
  PrinterInfo(/*write=*/false, kOffice);
  EXPECT_EQ(PrinterSettings.name, "一階");
  EXPECT_THAT(FaultOf([] { PrinterInfo(/*write=*/true); }), HasSubstr("PrinterInf.Ini"));
}

TEST_F(SettingsTest, WindowPlaceIsKeptUnderTheFormsName) {
  WindowPlace place{1, 2, 3, 4};
  EXPECT_FALSE(LoadWindowPlace("InpNODE", place));
  EXPECT_EQ(place, (WindowPlace{1, 2, 3, 4}));
  SaveWindowPlace("InpNODE", {-10, 20, 640, 480, true});
  EXPECT_TRUE(LoadWindowPlace("InpNODE", place));
  EXPECT_EQ(place, (WindowPlace{-10, 20, 640, 480, true}));
  EXPECT_FALSE(LoadWindowPlace("InpELEM", place));
}

TEST_F(SettingsTest, WindowPlaceThatIsNoPlaceIsPassedOver) {
  WindowPlace place;
  for (const char* const text : {"", "1,2,3", "1,2,0,4", "1,2,3,-4", "a,b,c,d", "1,2,99999,99999"}) {
    SavePrivateSetting("ZOR", "WindowPlace", "InpNODE", text);
    EXPECT_FALSE(LoadWindowPlace("InpNODE", place)) << text;
  }
}

TEST_F(SettingsTest, RecentModelsStandLatestFirstEachOnce) {
  NoteRecentModel("/a.inp");
  NoteRecentModel("/b.inp");
  NoteRecentModel("/a.inp");
  EXPECT_THAT(RecentModels(), ElementsAre("/a.inp", "/b.inp"));
  ForgetRecentModel("/a.inp");
  EXPECT_THAT(RecentModels(), ElementsAre("/b.inp"));
  ForgetRecentModel("/b.inp");
  EXPECT_THAT(RecentModels(), IsEmpty());
}

TEST_F(SettingsTest, RecentModelsAreNineAtMost) {
  for (int i = 1; i <= 12; ++i) NoteRecentModel("/" + std::to_string(i) + ".inp");
  EXPECT_EQ(RecentModels().size(), 9U);
  EXPECT_EQ(RecentModels().front(), "/12.inp");
  EXPECT_EQ(RecentModels().back(), "/4.inp");
}

TEST_F(SettingsTest, RecentModelThatCannotBeKeptIsPassedOver) {
  NoteRecentModel("/a.inp");
  NoteRecentModel("/é.inp");
  EXPECT_THAT(RecentModels(), ElementsAre("/a.inp"));
}

}  // namespace
}  // namespace zorlan::test
