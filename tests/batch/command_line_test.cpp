// What stands on the command line, and what the program answers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text_file.h"
#include "batch/batch_program.h"

namespace zorlan {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const char* const kDeckCommands[] = {"analyze", "check", "input-list"};  // that read decks
const char* const kCommands[] = {"analyze", "check", "input-list", "csv", "convert"};

std::vector<std::string> Times(std::size_t count, const char* command, const char* deck) {
  std::vector<std::string> words = {command};
  words.insert(words.end(), count, deck);
  return words;
}

TEST(BatchCommandLine, HelpAnswersAtEachLevel) {
  const BatchProgram program;
  const BatchResult help = program.Run({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_THAT(help.err, IsEmpty());
  for (const char* const command : kCommands) {
    EXPECT_THAT(help.out, HasSubstr(command));
    const BatchResult ofCommand = program.Run({command, "--help"});
    EXPECT_EQ(ofCommand.exitCode, 0);
    EXPECT_THAT(ofCommand.out, HasSubstr("DECK")) << command;
  }
}

TEST(BatchCommandLine, VersionAnswersAtEachLevel) {
  const BatchProgram program;
  EXPECT_EQ(program.Run({"--version"}).out, "zorlan-batch Version 6.00 [Rev.0]\n");
  for (const char* const command : kCommands) {
    const BatchResult version = program.Run({command, "--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out, "zorlan-batch Version 6.00 [Rev.0]\n");
  }
}

TEST(BatchCommandLine, BadUsageIsTwoAndSaysWhatIsWrong) {
  struct Case {
    std::vector<std::string> words;
    const char* message;
  };
  const Case cases[] = {
      {{}, "コマンドを指定してください"},
      {{"solve", "model.inp"}, "「solve」"},
      {{"check"}, "入力データファイル（.inp）を指定してください"},
      {{"check", "model.inp", "--fast"}, "「--fast」"},
      {{"csv", "model.inp"}, "出力先フォルダを指定してください"},
      {{"csv", "model.inp", "model.inp", "--folder", ".", "--name", "a"}, "（--name）"},
      {{"convert"}, "旧版のモデルのフォルダと入力データファイル（.inp）を指定してください"},
      {{"convert", "old"}, "旧版のモデルのフォルダと入力データファイル（.inp）を指定してください"},
      {{"convert", "old", "a.inp", "b.inp"}, "「b.inp」"},
      {{"convert", "old", "a.inp"}, "old ： フォルダがありません"},
      {{"--documents"}, "コマンドを指定してください"},
      {{"check", "model.inp", "--documents"}, "オプションの値がありません"},
  };
  const BatchProgram program;
  program.Deck("model.inp", CantileverDeck());
  for (const Case& c : cases) {
    const BatchResult result = program.Run(c.words);
    EXPECT_EQ(result.exitCode, 2) << c.message;
    EXPECT_THAT(result.out, IsEmpty());
    EXPECT_THAT(result.err, HasSubstr(c.message));
  }
}

TEST(BatchCommandLine, ADeckThatIsNotThereIsTwoAndNamed) {
  const BatchProgram program;
  for (const char* const command : kDeckCommands) {
    const BatchResult result = program.Run({command, "無い/model.inp"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err, "ＺＯＲＬＡＮ For Windows: 無い/model.inp ： 入力データファイルがありません\n");
  }
}

TEST(BatchCommandLine, AFailureOfOneDeckDoesNotStopTheNext) {
  const BatchProgram program;
  program.Deck("good.inp", CantileverDeck());
  program.Deck("bad.inp", "@NODE\n99999,0,0,0,0,0\n");
  EXPECT_THAT(program.Run({"check", "none.inp", "bad.inp", "good.inp"}).err,
              AllOf(HasSubstr("none.inp"), HasSubstr("bad.inp"), HasSubstr("エラーはありませんでした。")));
  EXPECT_EQ(program.Run({"check", "good.inp", "bad.inp", "good.inp"}).exitCode, 1);
  EXPECT_EQ(program.Run({"check", "good.inp", "none.inp", "bad.inp", "good.inp"}).exitCode, 2);
  EXPECT_EQ(program.Run({"check", "good.inp", "good.inp"}).exitCode, 0);
}

TEST(BatchCommandLine, AFolderIsNoDeck) {
  const BatchProgram program;
  const BatchResult result = program.Run({"check", "."});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.err, HasSubstr(". ： フォルダです"));
}

TEST(BatchCommandLine, ADeckBehindTwoDashesMayBeginWithADash) {
  const BatchProgram program;
  program.Deck("-model.inp", CantileverDeck());
  EXPECT_EQ(program.Run({"check", "--", "-model.inp"}).exitCode, 0);
}

TEST(BatchCheck, PrintsItsLinesAndAnswersOneWhenThereAreAny) {
  const BatchProgram program;
  program.Deck("bad.inp", CantileverDeck() + "@ELOD\n1,7,-1,0,0,1\n");
  const BatchResult result = program.Run({"check", "bad.inp"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.out,
            "要素荷重データ　　　： 未定義の要素に荷重入力があります　　荷重ケース番号=1   要素番号＝7\n");
  EXPECT_THAT(result.err, IsEmpty());
}

TEST(BatchCheck, SaysThatNothingIsWrongAndPrintsNothing) {
  const BatchProgram program;
  program.Deck("good.inp", CantileverDeck());
  const BatchResult result = program.Run({"check", "good.inp"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.out, IsEmpty());
  EXPECT_EQ(result.err, "エラーチェック: エラーはありませんでした。\n");
}

TEST(BatchCheck, AFileWithContentsThatIsNoDeckIsToldAndAnswersOne) {
  const BatchProgram program;
  const std::string deck = CantileverDeck();  // UTF-8 here
  std::string wide = "\xFF\xFE";
  for (const char c : std::string("@CONT\r\n1,1,0\r\n")) wide += {c, '\0'};
  program.File("u16.inp", wide);
  program.File("bin.inp", std::string("\x7F"
                                      "ELF\x02\x01\0\0\x81\xFF\r@@@\xFE",
                                      16));
  program.File("bom.inp", "\xEF\xBB\xBF" + deck);
  program.File("utf8.inp", "%節点と要素の表\n" + deck);
  for (const char* const name : {"u16.inp", "bin.inp", "bom.inp", "utf8.inp"}) {
    const std::string before = program.Bytes(name);
    const BatchResult check = program.Run({"check", name});
    EXPECT_EQ(check.exitCode, 1) << name;
    EXPECT_THAT(check.err, HasSubstr(std::string(name) + " ： ")) << name;
    EXPECT_THAT(check.err, testing::Not(HasSubstr("エラーはありませんでした"))) << name;
    for (const char* const command : {"input-list", "analyze"})
      EXPECT_THAT(program.Run({command, name}).err, HasSubstr(std::string(name) + " ： ")) << command << name;
    EXPECT_EQ(program.Bytes(name), before);
  }
  program.File("blank.inp", "\r\n\x1A");
  EXPECT_EQ(program.Run({"check", "blank.inp"}).exitCode, 0);
}

TEST(BatchCheck, TellsWhatIsReadOtherwiseThanItMayBeMeantAndAnswersByItsLinesAlone) {
  const BatchProgram program;
  program.Deck("odd.inp", CantileverDeck() + "@ELOD\n1,1,－2,0,0,1\n@ELOD\n1,1,-3,0,0,1\n");
  for (const char* const command : {"check", "analyze", "input-list"}) {
    const BatchResult result = program.Run({command, "odd.inp"});
    EXPECT_EQ(result.exitCode, 0) << command;
    EXPECT_THAT(result.err,
                AllOf(HasSubstr("odd.inp ： "), HasSubstr("@ELOD のP 「－2」 は数値ではありません"),
                      HasSubstr("@ELOD が 2 回あります")))
        << command;
  }
  EXPECT_THAT(program.Run({"input-list", "odd.inp"}).err, HasSubstr("後のものだけをリストに出します"));
}

TEST(BatchCheck, NamesEachOfSeveralDecksAheadOfItsLines) {
  const BatchProgram program;
  program.Deck("a.inp", CantileverDeck() + "@ALFA\n0,1\n");
  program.Deck("b.inp", CantileverDeck());
  program.Deck("c.inp", CantileverDeck() + "@ALFA\n0,2\n");
  const BatchResult result = program.Shell("\"$ZORLAN\" check a.inp b.inp c.inp 2>&1");
  const std::string message = "フレーム倍率データ ： フレーム倍率データにエラー";
  EXPECT_EQ(result.out, "a.inp\n" + message +
                            "0,1\nb.inp\nエラーチェック: エラーはありませんでした。\nc.inp\n" + message +
                            "0,2\n");
  EXPECT_EQ(program.Run({"check", "b.inp"}).err, "エラーチェック: エラーはありませんでした。\n");
}

TEST(BatchCheck, PrintsWhatItFoundAheadOfARowThatEndsIt) {
  const BatchProgram program;
  program.Deck("end.inp", "@NODE\n1\n40000,0,0,0,0,0\n");
  const BatchResult result = program.Run({"check", "end.inp"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.out, "節点データ　　　　　： 節点データにエラー　　　　1\n");
  EXPECT_THAT(result.err, HasSubstr("（3行目）"));
}

TEST(BatchCheck, LeavesNothingInTheProject) {
  const BatchProgram program;
  program.Deck("good.inp", CantileverDeck());
  const std::string before = program.Bytes("good.inp");
  program.Run({"check", "good.inp"});
  EXPECT_THAT(BatchProgram::Names(program.Folder()), testing::ElementsAre("good.inp"));
  EXPECT_EQ(program.Bytes("good.inp"), before);
  EXPECT_THAT(BatchProgram::Names(program.Temporary()), IsEmpty());
}

TEST(BatchInputList, PrintsTheListOfEachDeckAndLeavesTheProjectAsItWas) {
  const BatchProgram program;
  program.Deck("model.inp", CantileverDeck());
  const BatchResult result = program.Run({"input-list", "model.inp", "model.inp"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.err, IsEmpty());
  EXPECT_EQ(result.out.substr(0, result.out.size() / 2), result.out.substr(result.out.size() / 2));
  EXPECT_THAT(result.out, AllOf(HasSubstr("片持梁"), HasSubstr("NODAL POINT LOADS"), Not(HasSubstr("\r"))));
  EXPECT_THAT(BatchProgram::Names(program.Folder()), testing::ElementsAre("model.inp"));
  EXPECT_THAT(BatchProgram::Names(program.Temporary()), IsEmpty());
}

TEST(BatchCsv, WritesThreeFilesOfTheStoredResultsAndSaysWhere) {
  const BatchProgram program;
  program.Deck("model.inp", CantileverDeck());
  MakeFolder(program.Folder() + "表");
  ASSERT_EQ(program.Run({"analyze", "model.inp"}).exitCode, 0);
  const BatchResult result = program.Run({"csv", "model.inp", "--folder", "表"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.out, IsEmpty());
  EXPECT_THAT(result.err, AllOf(HasSubstr("CSVファイルを作成しました"), HasSubstr("表/model_D.CSV")));
  EXPECT_EQ(program.Run({"csv", "model.inp", "--folder", "表/", "--name", "応力"}).exitCode, 0);
  EXPECT_THAT(BatchProgram::Names(program.Folder() + "表"),
              testing::ElementsAre("model_D.CSV", "model_R.CSV", "model_S.CSV", "応力_D.CSV", "応力_R.CSV",
                                   "応力_S.CSV"));
  EXPECT_EQ(program.Bytes("表/model_R.CSV"), program.Bytes("表/応力_R.CSV"));
}

TEST(BatchCsv, WithoutResultsItFails) {
  const BatchProgram program;
  program.Deck("model.inp", CantileverDeck());
  const BatchResult result = program.Run({"csv", "model.inp", "--folder", "."});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, AllOf(HasSubstr("model.ANA/FT021 ： "), HasSubstr("静解析を行ってください"),
                                Not(HasSubstr(program.Temporary()))));
}

// The names come from the deck, the values from the results.
TEST(BatchCsv, ResultsOfADeckThatHasLostARowAreAFailure) {
  const BatchProgram program;
  program.Deck("model.inp", LongCantileverDeck(4, 1));
  ASSERT_EQ(program.Run({"analyze", "model.inp"}).exitCode, 0);
  program.Deck("model.inp", LongCantileverDeck(3, 1));
  const BatchResult result = program.Run({"csv", "model.inp", "--folder", "."});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, AllOf(HasSubstr("入力データに合う解析結果がありません。静解析を行ってください"),
                                HasSubstr("model.ANA/FT021 ： データの個数が正しくありません")));
  EXPECT_THAT(BatchProgram::Names(program.Folder()),
              testing::ElementsAre("model.ANA", "model.inp", "model.out"));
}

TEST(BatchCsv, ResultsOlderThanTheDeckAreToldAndWritten) {
  const BatchProgram program;
  program.Deck("model.inp", CantileverDeck());
  ASSERT_EQ(program.Run({"analyze", "model.inp"}).exitCode, 0);
  EXPECT_THAT(program.Run({"csv", "model.inp", "--folder", "."}).err, Not(HasSubstr("変更前")));
  program.Shell("touch -d '1 hour' model.inp");
  const BatchResult result = program.Run({"csv", "model.inp", "--folder", "."});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.err, HasSubstr("model.inp ： 解析結果は変更前のものです"));
}

TEST(BatchCsv, ResultsThatCannotBeTrustedAreToldAndWritten) {
  const BatchProgram program;
  program.Deck("model.inp", HiddenMechanismDeck());
  program.Deck("sound.inp", CantileverDeck());
  ASSERT_EQ(program.Run({"analyze", "model.inp", "sound.inp"}).exitCode, 0);
  const BatchResult result = program.Run({"csv", "model.inp", "sound.inp", "--folder", "."});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.err, HasSubstr("model.inp ： 解析結果は信頼できません"));
  EXPECT_THAT(result.err, Not(HasSubstr("sound.inp ： 解析結果")));
  EXPECT_TRUE(program.Exists("model_D.CSV"));
}

// Each deck's results are its own: what a former deck of the command left doesn't serve the next.
TEST(BatchCsv, NeverTakesTheResultsOfTheDeckBefore) {
  const BatchProgram program;
  program.Deck("first.inp", CantileverDeck());
  program.Deck("second.inp", CantileverDeck());
  ASSERT_EQ(program.Run({"analyze", "first.inp"}).exitCode, 0);
  EXPECT_EQ(program.Run({"csv", "first.inp", "second.inp", "--folder", "."}).exitCode, 1);
  EXPECT_FALSE(program.Exists("second_D.CSV"));
}

TEST(BatchConvert, MakesADeckOfAnOldModel) {
  const BatchProgram program;
  MakeFolder(program.Folder() + "old");
  program.File("old/ft001", "2\r\n1,0,0,1,1,1\r\n2,3,0,0,0,0\r\n");
  const BatchResult result = program.Run({"convert", "old", "new.inp"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.out, IsEmpty());
  EXPECT_EQ(program.Run({"check", "new.inp"}).exitCode, 0);
}

TEST(BatchConvert, KeepsNoResultsOfTheDeckThatWasThere) {
  const BatchProgram program;
  MakeFolder(program.Folder() + "old");
  program.File("old/ft001", "2\r\n1,0,0,1,1,1\r\n2,3,0,0,0,0\r\n");
  program.Deck("new.inp", CantileverDeck());
  EXPECT_EQ(program.Run({"analyze", "new.inp"}).exitCode, 0);
  EXPECT_TRUE(program.Exists("new.ANA"));
  EXPECT_EQ(program.Run({"convert", "old", "new.inp"}).exitCode, 0);
  EXPECT_FALSE(program.Exists("new.ANA"));
  EXPECT_FALSE(program.Exists("new.out"));
}

TEST(BatchConvert, MakesNoFolderUnasked) {
  const BatchProgram program;
  MakeFolder(program.Folder() + "old");
  program.File("old/ft001", "1\r\n1,0,0,1,1,1\r\n");
  const BatchResult result = program.Run({"convert", "old", "新/new.inp"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("を作成してよろしいですか？"));
  EXPECT_FALSE(program.Exists("新"));
}

TEST(BatchProgramOutput, AFullStandardOutputIsAFailure) {
  const BatchProgram program;
  program.Deck("bad.inp", CantileverDeck() + "@ELEM\n2,1,7,0,0,1\n");
  const BatchResult result = program.Shell("$ZORLAN check bad.inp > /dev/full");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("標準出力"));
}

TEST(BatchProgramOutput, AReaderThatGoesAwayLeavesNoTemporaryFiles) {
  const BatchProgram program;
  std::string many = CantileverDeck() + "@ELEM\n";
  for (int e = 2; e < 4000; ++e) many += std::to_string(e) + ",1,7,0,0,1\n";
  program.Deck("bad.inp", many);
  program.Shell("$ZORLAN check bad.inp bad.inp bad.inp | head -n 1");
  EXPECT_THAT(BatchProgram::Names(program.Temporary()), IsEmpty());
}

TEST(BatchProgramOutput, HasNoProgressWhereThereIsNoTerminal) {
  const BatchProgram program;
  program.Deck("model.inp", LongCantileverDeck(3000, 20));
  EXPECT_THAT(program.Run({"analyze", "model.inp"}).err, Not(HasSubstr("\r")));
}

// Five decks take well over the 50 ms that pass in silence. Behind whichever line of progress is a deck's
// last comes its summary.
TEST(BatchProgramOutput, DrawsProgressOnATerminalAndWipesItForMessages) {
  const BatchProgram program;
  program.Deck("model.inp", LongCantileverDeck(5000, 20));
  const BatchResult result = program.RunOnTerminal(Times(5, "analyze", "model.inp"));
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.out, ContainsRegex("\r\x1b\\[K[^\r]* [0-9]+ %\r\x1b\\[Kmodel.inp\r\n"));
}

TEST(BatchProgramOutput, WipesProgressInFrontOfWhatItPrints) {
  const BatchProgram program;
  program.Deck("bad.inp", LongCantileverDeck(5000, 1) + "@ELEM\n5000,1,7000,0,0,1\n");
  const BatchResult result = program.RunOnTerminal(Times(40, "check", "bad.inp"));
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.out, ContainsRegex(" [0-9]+ %\r\x1b\\[K[^ \r]"));
}

}  // namespace
}  // namespace zorlan
