#include "shell/convert.h"

#include <random>

#include "base/host.h"
#include "model/deck.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

using test::FaultOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// An old model of texts with LF, each as if it lay in the file of its number.
OldModel Model(std::initializer_list<std::pair<const int, const char*>> files) {
  OldModel model;
  for (const auto& [number, text] : files) model[number] = {"ft" + std::to_string(number), test::CrLf(text)};
  return model;
}

std::string Converted(const OldModel& model, const char* subtitle = "") {
  std::string text;
  for (const char c : ConvertedDeck(model, subtitle).deck)
    if (c != '\r') text += c;
  return text;
}
std::vector<std::string> Notes(const OldModel& model, const char* subtitle = "") {
  return ConvertedDeck(model, subtitle).notes;
}

constexpr const char* kPlainEnd = "@CONT   %コントロールデータ\n1,0,0\n\n@UNIT   %単位\n0,0,9.80665\n\n";

TEST(ConvertedDeck, LaysEveryFileOutInOrder) {
  const OldModel model = Model({
      {77, "二階建て倉庫\n古い行\n"},
      {1, "2\n1,0,0,1,1,1\n2, 6.000 ,0,0,1,0\n"},
      {2, "1\n1,1,2,0,0,1,0\n"},
      {3, "2\n1,0,100,10000,0,50,0,2100,810\n2,2,400,200,8,13,1.5,2100,810\n"},
      {4, "2\n1\n2,1.5,-2,0\n0\n"},
      {5, "3\n0\n1\n1,-2,0,0,1,0\n2\n1,-1,3,2.5,1,1\n1,-.5,0,,,\n"},
      {6, "1\n1\n1,-1,2,1,-3,-3,0\n"},
      {7, "1\n1\n1,20,30,10,0.000012,20,0\n"},
      {8, "1\n1,0.1,0.2\n"},
      {9, "1\n2,10,20,30\n"},
      {10, "2\n2\n2,1,2\n1,2\n"},
      {11, "1\n0,6,1.1\n"},
  });
  EXPECT_EQ(Converted(model), R"(@TITL   %タイトル
二階建て倉庫

@NODE   %節点データ
1,0,0,1,1,1
2,6.000,0,0,1,0

@ELEM   %要素データ
1,1,2,0,0,1,0

@SECT   %断面性能データ
1,0,100,10000,0,50,1.0,2100,810
2,2,400,200,8,13,1.5,2100,810

@PLOD   %節点荷重データ
1,2,1.5,-2,0

@ELOD   %部材荷重データ
2,1,-2,0,0,1,0
3,1,-1,3,2.5,1,1
3,1,-.5,0,,,

@CLOD   %ＣＭＱ荷重データ
1,1,-1,2,1,-3,-3,0

@TLOD   %温度荷重データ
1,1,20,30,10,0.000012,20,0

@RIGD   %剛域データ
1,0.1,0.2

@SPRG   %支点ばねデータ
2,10,20,30

@DISP   %同一変形グループデータ
1,1,2
2,2

@ALFA   %フレーム倍率データ
0,6,1.1

@CONT   %コントロールデータ
2,3,0

@UNIT   %単位
0,0,9.80665

)");
}

TEST(ConvertedDeck, AMissingFileLeavesItsSectionOut) {
  EXPECT_EQ(Converted({}), kPlainEnd);
  EXPECT_EQ(Converted(Model({{8, "1\n1,0,0\n"}})), std::string("@RIGD   %剛域データ\n1,0,0\n\n") + kPlainEnd);
}

TEST(ConvertedDeck, AFileWithoutRecordsLeavesAnEmptySection) {
  EXPECT_EQ(Converted(Model({{1, "0\n"}})), std::string("@NODE   %節点データ\n\n") + kPlainEnd);
}

TEST(ConvertedDeck, AModelNumberOfZeroIsAPlaneFrameWithoutGroups) {
  EXPECT_EQ(Converted(Model({{10, "0\n7,7,7\n"}})),
            std::string("@DISP   %同一変形グループデータ\n\n") + kPlainEnd);
}

TEST(ConvertedDeck, AModelNumberAboveZeroIsTheModel) {
  for (const char* number : {"1", "2", "3"})
    EXPECT_THAT(Converted(Model({{10, (std::string(number) + "\n0\n").c_str()}})),
                HasSubstr("@CONT   %コントロールデータ\n" + std::string(number) + ",0,0\n"));
}

TEST(ConvertedDeck, TheNumberOfLoadCasesIsTheLargestOfTheLoadFiles) {
  EXPECT_THAT(Converted(Model({{4, "2\n0\n0\n"}, {5, "5\n0\n0\n0\n0\n0\n"}, {7, "1\n0\n"}})),
              HasSubstr("@CONT   %コントロールデータ\n1,5,0\n"));
}

TEST(ConvertedDeck, ASubtitleStandsBehindTheTitle) {
  EXPECT_EQ(Converted(Model({{77, "題\n"}}), "副題"),
            std::string("@TITL   %タイトル\n題\n\n@SUBT   %サブタイトル\n副題\n\n") + kPlainEnd);
}

TEST(ConvertedDeck, ATitleIsTheWholeFirstLine) {
  EXPECT_THAT(Converted(Model({{77, " A,B \"C\" \n"}})), HasSubstr("\nA,B \"C\"\n"));
  EXPECT_THAT(Converted(Model({{77, ""}})), testing::StartsWith("@TITL   %タイトル\n\n\n"));
}

TEST(ConvertedDeck, RecordsMayRunOverLinesAndEmptyLinesAreNone) {
  EXPECT_THAT(Converted(Model({{8, "2,1,0.1\n0.2\n\n  \n2\n0.3,0.4"}})),
              HasSubstr("\n1,0.1,0.2\n2,0.3,0.4\n\n"));
}

struct CommaCase {
  const char* name;
  int number;
  const char* text;
  const char* rows;
};
const CommaCase kCommaCases[] = {
    {"behind a count and a record", 1, "2,\n1,0,0,1,1,1,\n2,3,0,0,0,0,\n", "\n1,0,0,1,1,1\n2,3,0,0,0,0\n\n"},
    {"as many as a spreadsheet writes", 8, "1,,\n1,0.1,0.2,, ,\n", "\n1,0.1,0.2\n\n"},
    {"a last value left empty counts", 8, "2\n1,0.1,\n2,,\n", "\n1,0.1,\n2,,\n\n"},
    {"a record over lines goes on behind it", 8, "1\n1,\n0.2\n", "\n1,,0.2\n\n"},
    {"behind the counts of cases", 4, "2,\n1,\n1,2,3,4,\n1 ,\n5,6,7,8,\n", "\n1,1,2,3,4\n2,5,6,7,8\n\n"},
    {"behind the nodes of a group", 10, "2,\n1,\n2,\n3,4,\n", "\n1,3,4\n\n"},
};
TEST(ConvertedDeck, ACommaAtALinesEndShiftsNothing) {
  for (const CommaCase& c : kCommaCases) {
    const OldModel model = Model({{c.number, c.text}});
    EXPECT_THAT(Converted(model), HasSubstr(c.rows)) << c.name;
    EXPECT_THAT(Notes(model), IsEmpty()) << c.name;
  }
}

TEST(ConvertedDeck, ValuesBeyondTheCountAreTold) {
  const char* const words = "データ数を超える項目があります。変換されません";
  EXPECT_THAT(Notes(Model({{8, "1\n1,0.1,0.2\n\n2,0.3,0.4\n"}})),
              ElementsAre(std::string("ft8 （4行目） ： ") + words));
  EXPECT_THAT(
      Notes(Model({{8, "1\n1,0.1,0.2,9\n"}, {10, "0\n7,7,7\n"}})),
      ElementsAre(std::string("ft8 （2行目） ： ") + words, std::string("ft10 （2行目） ： ") + words));
  EXPECT_THAT(Notes(Model({{8, "1\n1,0.1,0.2\n \n,,\n"}})), IsEmpty());
}

TEST(ConvertedDeck, ATitleThatADeckCannotHoldIsTold) {
  EXPECT_THAT(Notes(Model({{77, "@題\n"}})), ElementsAre(HasSubstr("「@」")));
  EXPECT_THAT(Notes(Model({{77, "率 50%\n"}})),
              ElementsAre(testing::AllOf(HasSubstr("ft77"), HasSubstr("「%」"))));
  EXPECT_THAT(Notes(Model({{77, "題@\n"}}), "@副題"), ElementsAre(HasSubstr("「@」")));
  EXPECT_THAT(Notes(Model({{77, "題\n"}}), "副題"), IsEmpty());
}

struct BrokenFile {
  const char* name;
  int number;
  const char* text;
  int line;
  const char* words;
};

const BrokenFile kBrokenFiles[] = {
    {"an empty file", 1, "", 0, "途中で終わっています"},
    {"a record too few", 1, "2\n1,0,0,1,1,1\n", 2, "途中で終わっています"},
    {"a record that ends early", 2, "1\n1,1,2,0\n", 2, "途中で終わっています"},
    {"a load case too few", 4, "2\n1\n1,0,0,0\n", 3, "途中で終わっています"},
    {"no groups behind the model number", 10, "2\n", 1, "途中で終わっています"},
    {"a group that ends early", 10, "2\n1\n3,1,2\n", 3, "途中で終わっています"},
    {"a word among the numbers", 1, "1\n1,x,0,1,1,1\n", 2, "「x」"},
    {"bytes of a picture", 3, "\x7F\x45\x4C\x46\x01", 1, "数値ではない"},
    {"a sign alone", 9, "1\n1,-,0,0\n", 2, "「-」"},
    {"a number within a number", 1, "1\n1,1-2,0,1,1,1\n", 2, "「1-2」"},
    {"two points in a number", 1, "1\n1,0,1.2.3,1,1,1\n", 2, "「1.2.3」"},
    {"a real without end", 1, "2\n1,0,0,1,1,1\n2,1e999,0,1,1,1\n", 3, "「1e999」 は数値の範囲を超えています"},
    {"a node number beyond 16 bits", 1, "1\n70000,0,0,1,1,1\n", 2,
     "「70000」 は整数の範囲（-32768～32767）を超えています"},
    {"a type beyond 16 bits", 5, "1\n1\n1,-1,99999,0,0,0\n", 3, "「99999」"},
    {"a last field beyond 16 bits", 6, "1\n1\n1,-1,2,1,-3,-3,-32769\n", 3, "「-32769」"},
    {"a node of a group beyond 16 bits", 10, "2\n1\n2\n1,40000\n", 4, "「40000」"},
    {"a count below 0", 1, "-1\n", 1, "「-1」"},
    {"more nodes than a model holds", 1, "5001\n", 1, "5000"},
    {"more sections than a model holds", 3, "1001\n", 1, "1000"},
    {"more load cases than a model holds", 5, "21\n", 1, "荷重ケース数"},
    {"more load rows than a table holds", 8, "99999999\n", 1, "1000"},
    {"a model number without a model", 10, "4\n", 1, "モデル番号"},
    {"more nodes than a group holds", 10, "2\n1\n101\n", 3, "100"},
};

TEST(ConvertedDeck, AShortOrBrokenFileNamesItselfAndItsLine) {
  for (const BrokenFile& c : kBrokenFiles) {
    const std::string fault = FaultOf([&] { Converted(Model({{c.number, c.text}})); });
    EXPECT_THAT(fault, testing::StartsWith("ft" + std::to_string(c.number) + " ")) << c.name;
    EXPECT_THAT(fault, HasSubstr("（" + std::to_string(c.line) + "行目）")) << c.name;
    EXPECT_THAT(fault, HasSubstr(c.words)) << c.name;
  }
}

TEST(ConvertedDeck, TheLoadRowsOfAllCasesShareTheTablesLimit) {
  std::string text = "2\n600\n";
  for (int r = 0; r < 600; ++r) text += "1,0,0,0\n";
  EXPECT_THAT(FaultOf([&] { Converted(Model({{4, (text + "401\n").c_str()}})); }), HasSubstr("（603行目）"));
}

TEST(ConvertedDeck, WhateverTheFilesHoldADeckOrAFaultComesOfIt) {
  constexpr std::string_view kCharacters = "0123,,,,\n\n.-+eE %@\"x節\x1A";
  std::mt19937 random(77);
  int decks = 0;
  for (int trial = 0; trial < 3000; ++trial) {
    OldModel model;
    for (const int number : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 77}) {
      if (random() % 4 != 0) continue;
      std::string text = std::to_string(random() % 3) + "\n";
      for (std::size_t n = random() % 40; n > 0; --n)
        text += kCharacters[random() % (random() % 2 ? 8 : kCharacters.size())];
      model[number] = {"ft", text};
    }
    const std::string fault =
        FaultOf([&] { decks += ConvertedDeck(model).deck.ends_with("9.80665\r\n\r\n") ? 1 : 0; });
    EXPECT_TRUE(fault.empty() || fault.starts_with("ft （")) << "trial " << trial << ": " << fault;
  }
  EXPECT_GT(decks, 100);  // both outcomes were met
  EXPECT_LT(decks, 2900);
}

/// Records what is told and asked, and gives the answers of a script.
class ConvertOldModelTest : public test::ModelFolderTest {
 protected:
  ConvertOldModelTest() {
    Host host;
    host.message = [this](std::string_view text, std::string_view) { messages_.emplace_back(text); };
    host.question = [this](std::string_view text, std::string_view title, Buttons buttons) {
      EXPECT_EQ(title, "ＺＯＲＬＡＮ For Windows");
      EXPECT_EQ(buttons, Buttons::YesNo);
      questions_.emplace_back(text);
      return answer_;
    };
    InstallHost(host);
    MakeFolder(OldFolder());
  }
  ~ConvertOldModelTest() override { InstallHost({}); }

  std::string OldFolder() const { return Root() + "OLD/"; }
  void WriteOld(const std::string& name, std::string_view text) const { Write(OldFolder() + name, text); }

  Answer answer_ = Answer::No;
  std::vector<std::string> messages_, questions_;
};

TEST_F(ConvertOldModelTest, WritesADeckThatOpens) {
  WriteOld("ft077", "倉庫\n");
  WriteOld("ft001", "2\n1,0,0,1,1,1\n2,6,0,0,0,0\n");
  WriteOld("ft002", "1\n1,1,2,0,0,1,0\n");
  WriteOld("ft003", "1\n1,0,100,10000,0,50,0,2100,810\n");
  ASSERT_TRUE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_THAT(messages_, IsEmpty());
  EXPECT_THAT(questions_, IsEmpty());
  LoadDeck();
  SaveDeck();
  ReadDeck(DeckPath());
  EXPECT_EQ(Read(WorkPath + "InputErr.txt"), "");
  EXPECT_EQ(InpModel.Title, "倉庫");
  EXPECT_EQ(InpModel.ModelCode, 1);
  EXPECT_EQ(InpModel.Elem[1].length, 6);
  EXPECT_EQ(InpModel.InUnit, 0);
}

TEST_F(ConvertOldModelTest, WhatIsNotConvertedIsToldAndTheDeckStands) {
  WriteOld("ft001", "1\n70000.5,0,0,1,1,1\n");
  EXPECT_FALSE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_THAT(messages_, ElementsAre(HasSubstr("「70000.5」")));
  WriteOld("ft001", "1\n1,70000,0,1,1,1\n2,0,0,0,0,0\n");
  WriteOld("ft077", "率 50%\n");
  EXPECT_TRUE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_THAT(messages_, testing::SizeIs(2));
  EXPECT_THAT(messages_.back(), testing::AllOf(HasSubstr("ft077"), HasSubstr("ft001 （3行目）")));
  ReadDeck(DeckPath());
  EXPECT_EQ(InpModel.Node[1].X, 70000);
}

TEST_F(ConvertOldModelTest, AFolderWithoutATitleFileStillConverts) {
  WriteOld("ft001", "1\n1,0,0,1,1,1\n");
  ASSERT_TRUE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_THAT(Read(DeckPath()), testing::StartsWith("@NODE   %節点データ\n"));
}

TEST_F(ConvertOldModelTest, FileNamesMayBeInCapitals) {
  WriteOld("FT077", "題\n");
  WriteOld("Ft001", "1\n1,0,0,1,1,1\n");
  WriteOld("FT0010", "not one of them\n");
  ASSERT_TRUE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_EQ(Read(DeckPath()),
            std::string("@TITL   %タイトル\n題\n\n@NODE   %節点データ\n1,0,0,1,1,1\n\n") + kPlainEnd);
}

TEST_F(ConvertOldModelTest, AMissingTargetFolderIsMadeWithTheUsersConsent) {
  WriteOld("ft077", "題\n");
  const std::string folder = DataPath + "新しい.zor";
  answer_ = Answer::Yes;
  EXPECT_TRUE(ConvertOldModel(OldFolder(), folder + "/a.inp"));
  EXPECT_THAT(questions_, ElementsAre("新しいフォルダ" + folder + "を作成してよろしいですか？"));
  EXPECT_TRUE(FileExists(folder + "/a.inp"));
}

TEST_F(ConvertOldModelTest, WithoutConsentNothingIsMade) {
  WriteOld("ft077", "題\n");
  const std::string folder = DataPath + "新しい.zor";
  EXPECT_FALSE(ConvertOldModel(OldFolder(), folder + "/a.inp"));
  EXPECT_THAT(questions_, testing::SizeIs(1));
  EXPECT_FALSE(FolderExists(folder));
}

TEST_F(ConvertOldModelTest, ABrokenOldModelLeavesAGoodDeckAsItWas) {
  WriteDeck("@TITL\n良いモデル\n");
  WriteOld("ft001", "2\n1,0,0,1,1,1\n");
  EXPECT_FALSE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_THAT(messages_, ElementsAre(OldFolder() + "ft001 （2行目） ： データが途中で終わっています"));
  EXPECT_EQ(Read(DeckPath()), "@TITL\n良いモデル\n");
}

TEST_F(ConvertOldModelTest, AGoodOldModelReplacesTheDeck) {
  WriteDeck("@TITL\n前のモデル\n");
  WriteOld("ft077", "題\n");
  EXPECT_TRUE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_THAT(Read(DeckPath()), testing::StartsWith("@TITL   %タイトル\n題\n"));
}

TEST_F(ConvertOldModelTest, TheResultsOfTheDeckThatWasThereGoWithIt) {
  const auto store = [] {
    MakeFolder(ResultFolder());
    ReplaceBytes(ResultFolder() + "FT031", "1 \r\n");
    ReplaceBytes(ResultFolder() + "DSN.S1", "00002\r\n");
    ReplaceBytes(ListingPath(), "listing");
  };
  WriteDeck("@TITL\n前のモデル\n");
  store();
  WriteOld("ft001", "2\n1,0,0,1,1,1\n");  // ends early
  EXPECT_FALSE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_TRUE(FileExists(ResultFolder() + "FT031"));
  EXPECT_TRUE(FileExists(ListingPath()));
  WriteOld("ft001", "1\n1,0,0,1,1,1\n");
  EXPECT_TRUE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_FALSE(FolderExists(ResultFolder()));
  EXPECT_FALSE(FileExists(ListingPath()));
}

TEST_F(ConvertOldModelTest, ResultsThatCannotBeRemovedAreToldBesideTheNotesAndTheDeckStands) {
  WriteDeck("@TITL\n前のモデル\n");
  MakeFolder(ListingPath());  // no file that could be removed
  ReplaceBytes(ListingPath() + "/kept", "x");
  WriteOld("ft077", "率 50%\n");
  EXPECT_TRUE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_THAT(messages_, ElementsAre(HasSubstr(ListingPath()), HasSubstr("ft077")));
  EXPECT_THAT(Read(DeckPath()), testing::StartsWith("@TITL   %タイトル\n率"));
}

TEST_F(ConvertOldModelTest, AFolderWithoutAnOldModelIsToldAndReplacesNothing) {
  WriteDeck("@TITL\n良いモデル\n");
  WriteOld("model.inp", "");
  EXPECT_FALSE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_FALSE(ConvertOldModel(Root() + "none/", DeckPath()));
  ASSERT_THAT(messages_, testing::SizeIs(2));
  EXPECT_THAT(messages_[0], HasSubstr(OldFolder()));
  EXPECT_THAT(messages_[1], HasSubstr(Root() + "none/"));
  EXPECT_EQ(Read(DeckPath()), "@TITL\n良いモデル\n");
}

TEST_F(ConvertOldModelTest, ATargetThatCannotBeWrittenIsToldWithItsPath) {
  WriteOld("ft077", "題\n");
  answer_ = Answer::Yes;
  EXPECT_FALSE(ConvertOldModel(OldFolder(), BlockedFolder() + "a.inp"));
  ASSERT_THAT(messages_, testing::SizeIs(1));
  EXPECT_THAT(messages_[0], HasSubstr(Root() + "file"));
}

TEST_F(ConvertOldModelTest, ACharacterThatTheCodePageLacksCannotComeFromAnOldFile) {
  ReplaceBytes(OldFolder() + "ft077", "\x85\x40\xFF\r\n");  // bytes without a character
  EXPECT_TRUE(ConvertOldModel(OldFolder(), DeckPath()));
  EXPECT_THAT(messages_, IsEmpty());
}

}  // namespace
}  // namespace zorlan
