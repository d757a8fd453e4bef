#include "commands.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/fault.h"
#include "base/host.h"
#include "base/text_file.h"
#include "batch_host.h"
#include "model/deck.h"
#include "model/model_state.h"

namespace zorlan::batch {
namespace {

void PrintProduct(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0)
    throw FileFault("標準出力", std::strerror(errno));
}

/// The deck's folder serves as the project folder.
void SetModelInHand(const std::string& deck) {
  const std::size_t nameAt = deck.rfind('/') == std::string::npos ? 0 : deck.rfind('/') + 1;
  DataPath = deck.substr(0, nameAt);
  ProjectName.clear();
  ModelFile = deck.substr(nameAt);
}

ExitCode Check() {
  ReadDeck(DeckPath(), /*checkMode=*/true);
  std::string text = ReadTextFile(WorkPath + "InputErr.txt");
  if (text.empty()) {
    TheHost().message("エラーはありませんでした。", "エラーチェック");
    return kDone;
  }
  std::erase(text, '\r');
  PrintProduct(text);
  return kFailed;
}

struct Command {
  std::string_view name;
  ExitCode (*run)();
};

constexpr Command kCommands[] = {
    {"check", Check},
};

ExitCode RunOnDeck(const Command& command, const std::string& deck) {
  try {
    if (!FileExists(deck)) {
      Tell(deck + (FolderExists(deck) ? " ： フォルダです" : " ： 入力データファイルがありません"));
      return kUsage;
    }
    SetModelInHand(deck);
    return command.run();
  } catch (const std::bad_alloc&) {
    Tell(deck + " ： メモリが不足しています");
  } catch (const std::exception& fault) {
    Tell(fault.what());
  }
  return kFailed;
}

}  // namespace

ExitCode RunCommand(const Request& request) {
  const auto* const command = std::ranges::find(kCommands, std::string_view(request.command), &Command::name);
  ExitCode gravest = kDone;
  for (const std::string& deck : request.decks) {
    ThrowIfInterrupted();
    gravest = std::max(gravest, RunOnDeck(*command, deck));
  }
  return gravest;
}

}  // namespace zorlan::batch
