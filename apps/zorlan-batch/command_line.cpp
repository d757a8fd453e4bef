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
    const std::string name = app.get_subcommands().front()->get_name();
    for (const Command& command : Commands())
      if (name == command.name) return command.incomplete;
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) return "オプションの値がありません";
  return std::string("引数が正しくありません ： ") + error.what();
}

void AddWord(CLI::App& level, const Word& word, Request& request) {
  const bool isOption = std::string_view(word.name).starts_with("--");
  const std::string description = word.description + (word.choices != nullptr ? word.choices() : "");
  CLI::Option* added = nullptr;
  if (const auto* const list = std::get_if<std::vector<std::string> Request::*>(&word.target)) {
    const auto takeOne = [&request, list](const std::string& one) { request.** list = {one}; };
    added = word.many ? level.add_option(word.name, request.**list, description)
                      : level.add_option_function<std::string>(word.name, takeOne, description);
  } else if (const auto* const text = std::get_if<std::string Request::*>(&word.target)) {
    added = level.add_option(word.name, request.**text, description);
  } else if (const auto* const number = std::get_if<int Request::*>(&word.target)) {
    added = level.add_option(word.name, request.**number, description)->check(WholeNumberRefusal, "");
  }
  added->type_name(word.type);
  if (isOption)
    added->group(kOptionGroup);
  else
    added->required();
}

void AddHelp(CLI::App& level) {
  level.set_help_flag("-h,--help", "この説明を表示します")->group(kOptionGroup);
  level.set_version_flag("--version", std::string(kProgram) + " " + VersionText(), "版を表示します")
      ->group(kOptionGroup);
}

void AddCommands(CLI::App& app, Request& request) {
  for (const Command& command : Commands()) {
    CLI::App* const level = app.add_subcommand(command.name, command.description);
    level->group("コマンド");
    level->fallthrough();
    AddHelp(*level);
    level->callback([&request, &command] { request.command = &command; });
    for (const Word& word : command.words) AddWord(*level, word, request);
  }
}

}  // namespace

std::variant<Request, ExitCode> ParseCommandLine(int argc, char** argv) {
  Request request;
  CLI::App app("任意平面骨組の応力解析をウィンドウなしで行います", kProgram);
  app.formatter(JapaneseFormatter());
  app.require_subcommand(1);
  AddHelp(app);
  app.add_option("--documents", request.documents, "ドキュメントフォルダ（断面テーブルの場所）")
      ->type_name("DIR")
      ->group(kOptionGroup);
  AddCommands(app, request);
  try {
    app.parse(argc, argv);
    const auto refusalOf = request.command->refusal;
    const std::string refusal = refusalOf != nullptr ? refusalOf(request) : std::string();
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
