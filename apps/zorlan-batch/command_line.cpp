#include "command_line.h"

#include <charconv>
#include <CLI/CLI.hpp>
#include <cstdio>

#include "base/host.h"
#include "shell/documents_folder.h"
#include "shell/figure_deck.h"

namespace zorlan::batch {
namespace {

constexpr const char* kProgram = "zorlan-batch";
constexpr const char* kOptionGroup = "オプション";

/// Help in the user's language.
std::shared_ptr<CLI::Formatter> JapaneseFormatter() {
  auto formatter = std::make_shared<CLI::Formatter>();
  formatter->label("Usage", "使い方");
  formatter->label("OPTION", "オプション");
  formatter->label("OPTIONS", "オプション");
  formatter->label("SUBCOMMAND", "コマンド");
  formatter->label("SUBCOMMANDS", "コマンド");
  formatter->label("Positionals", "引数");
  formatter->label("TEXT", "文字列");
  formatter->label("REQUIRED", "（必須）");
  return formatter;
}

/// What is wrong with the word of an option that is a whole number; empty: nothing.
std::string WholeNumberRefusal(const std::string& word) {
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  const bool whole = error == std::errc() && end == word.data() + word.size();
  return whole ? std::string() : "「" + word + "」 は整数ではありません";
}

/// What is wrong with the words of the command line.
std::string Complaint(const CLI::App& app, const CLI::ParseError& error) {
  const std::vector<std::string> remaining = app.remaining(/*recurse=*/true);
  if (!remaining.empty()) return "引数 「" + remaining.front() + "」 は使えません";
  if (app.get_subcommands().empty()) return "コマンドを指定してください";
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
    if (app.get_subcommands().front()->get_option_no_throw("FILE") != nullptr)
      return "リストのファイルを指定してください";
    const bool convert = app.get_subcommands().front()->get_option_no_throw("FOLDER") != nullptr;
    return convert ? "旧版のモデルのフォルダと入力データファイル（.inp）を指定してください"
                   : "入力データファイル（.inp）を指定してください";
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) return "オプションの値がありません";
  return std::string("引数が正しくありません ： ") + error.what();
}

std::string FigureRefusal(const Request& request) {
  if (request.decks.size() > 1) return "図は、入力データファイルを一つだけ指定して出力します";
  if (request.output.empty()) return "出力するファイル（--output）を指定してください";
  if (!FigureFormOf(request.output))
    return request.output + " ： ファイルの種類は .dxf .pdf .svg .png .tmp のどれかです";
  if (!FigureKindOf(request.figureKind))
    return "図の種類（--kind）を " + FigureKindWords() + " から指定してください";
  return {};
}

/// What keeps a well-formed command from being carried out; empty: nothing.
std::string Refusal(const Request& request) {
  if (request.command->words == Command::Words::ListingAndPdf && request.output.empty())
    return "ＰＤＦファイル（--output）を指定してください";
  if (request.command->words == Command::Words::DeckAndFigure) return FigureRefusal(request);
  if (request.command->words != Command::Words::DecksAndCsv) return {};
  if (request.csvFolder.empty()) return "出力先フォルダを指定してください";
  if (!request.csvName.empty() && request.decks.size() > 1)
    return "ファイル名（--name）は、入力データファイルが一つの時だけ指定できます";
  return {};
}

}  // namespace

std::variant<Request, ExitCode> ParseCommandLine(int argc, char** argv) {
  Request request;
  CLI::App app("任意平面骨組の応力解析をウィンドウなしで行います", kProgram);
  app.formatter(JapaneseFormatter());
  app.require_subcommand(1);
  const std::string version = std::string(kProgram) + " " + VersionText();
  const auto addCommon = [&](CLI::App& level) {
    level.set_help_flag("-h,--help", "この説明を表示します")->group(kOptionGroup);
    level.set_version_flag("--version", version, "版を表示します")->group(kOptionGroup);
  };
  addCommon(app);
  app.add_option("--documents", request.documents, "ドキュメントフォルダ（断面テーブルの場所）")
      ->type_name("DIR")
      ->group(kOptionGroup);
  for (const Command& command : Commands()) {
    CLI::App* const level = app.add_subcommand(command.name, command.description);
    level->group("コマンド");
    level->fallthrough();
    addCommon(*level);
    level->callback([&request, &command] { request.command = &command; });
    if (command.words == Command::Words::OldModelAndDeck) {
      level->add_option("FOLDER", request.oldModel, "旧版のモデルのフォルダ")->required()->type_name("");
      level
          ->add_option_function<std::string>(
              "DECK", [&request](const std::string& deck) { request.decks = {deck}; },
              "作成する入力データファイル")
          ->required()
          ->type_name("");
    } else if (command.words == Command::Words::ListingAndPdf) {
      level
          ->add_option_function<std::string>(
              "FILE", [&request](const std::string& listing) { request.decks = {listing}; },
              "リストのファイル")
          ->required()
          ->type_name("");
      level->add_option("--output", request.output, "作成するＰＤＦファイル")
          ->type_name("FILE.pdf")
          ->group(kOptionGroup);
    } else {
      level->add_option("DECK", request.decks, "入力データファイル <model>.inp（いくつでも）")
          ->required()
          ->type_name("");
    }
    if (command.words == Command::Words::DeckAndFigure) {
      level->add_option("--kind", request.figureKind, "図の種類 ： " + FigureKindWords())
          ->type_name("KIND")
          ->group(kOptionGroup);
      level->add_option("--case", request.loadCase, "荷重ケース（省略時は 1）")
          ->check(WholeNumberRefusal, "")
          ->type_name("N")
          ->group(kOptionGroup);
      level->add_option("--output", request.output, "出力するファイル .dxf .pdf .svg .png .tmp")
          ->type_name("FILE")
          ->group(kOptionGroup);
    }
    if (command.words == Command::Words::DecksAndCsv) {
      level->add_option("--folder", request.csvFolder, "出力先フォルダ")
          ->type_name("DIR")
          ->group(kOptionGroup);
      level->add_option("--name", request.csvName, "ファイル名（省略時はモデル名）")
          ->type_name("BASE")
          ->group(kOptionGroup);
    }
  }

  try {
    app.parse(argc, argv);
    const std::string refusal = Refusal(request);
    if (refusal.empty()) return request;
    Tell(refusal);
    return kUsage;
  } catch (const CLI::Success& answer) {  // --help or --version
    app.exit(answer);
    return kDone;
  } catch (const CLI::ParseError& error) {
    Tell(Complaint(app, error) + "（" + kProgram + " --help で使い方を表示します）");
    return kUsage;
  }
}

}  // namespace zorlan::batch
