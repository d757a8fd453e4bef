#include "commands.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "analysis/external_road.h"
#include "analysis/static_analysis.h"
#include "base/fault.h"
#include "base/host.h"
#include "base/text.h"
#include "base/text_file.h"
#include "batch_host.h"
#include "model/deck.h"
#include "model/deck_notes.h"
#include "model/input_list.h"
#include "model/model_state.h"
#include "output/csv_output.h"
#include "program_folders.h"
#include "shell/convert.h"
#include "shell/figure_deck.h"
#include "shell/model_status.h"
#include "summary.h"

namespace zorlan::batch {
namespace {

/// Prints a text of the system on standard output, with the line ends of the terminal.
void PrintProduct(std::string text) {
  std::erase(text, '\r');
  WipeProgress();
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0)
    throw FileFault("標準出力", std::strerror(errno));
}

/// Holds a deck while its results are written: who wants to write them at the same time waits. Where the file
/// system has no locks nobody waits.
class DeckHeld {
 public:
  explicit DeckHeld(const std::string& deck) : file_(::open(deck.c_str(), O_RDONLY | O_CLOEXEC)) {
    while (file_ >= 0 && ::flock(file_, LOCK_EX) != 0 && errno == EINTR) {
      ThrowIfInterrupted();
    }
  }
  ~DeckHeld() {
    if (file_ >= 0) ::close(file_);
  }
  DeckHeld(const DeckHeld&) = delete;
  DeckHeld& operator=(const DeckHeld&) = delete;

 private:
  int file_;
};

/// Tells what the file of the deck in hand isn't, and what of it is read otherwise than it may be meant.
/// False for one with contents that are no deck.
bool TellOfDeck(DeckUse use) {
  std::string bytes;
  try {
    bytes = ReadBytes(DeckPath());
  } catch (const Fault&) {
    return true;  // the command itself can't read it either, and tells why
  }
  if (IsBlankDeck(bytes)) return true;
  if (const std::string why = WhyNoDeck(bytes); !why.empty()) {
    Tell(DeckPath() + " ： " + why);
    return false;
  }
  for (const std::string& note : DeckNotes(bytes, use)) Tell(DeckPath() + " ： " + note);
  return true;
}

ExitCode Analyze(const Request&) {
  const DeckHeld held(DeckPath());
  TellOfDeck(DeckUse::Read);
  const auto start = std::chrono::steady_clock::now();
  if (RunStaticAnalysis() == kFalse) {
    const bool empty = LastAnalysis().deckRead && RawModel.NodeCount == 0;
    Tell(DeckPath() + " ： 解析できませんでした" + (empty ? "（節点データを１行も読み込めません）" : ""));
    return kFailed;
  }
  TellSummary(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  return kDone;
}

/// Prints the messages of the input check, as many as there are; false without any.
bool PrintCheckMessages() {
  const std::string path = WorkPath + "InputErr.txt";
  const std::string text = FileExists(path) ? ReadTextFile(path) : std::string();
  if (text.empty()) return false;
  PrintProduct(text);
  return true;
}

ExitCode Check(const Request& request) {
  if (request.decks.size() > 1) PrintError(DeckPath());  // its messages don't name it
  const bool deck = TellOfDeck(DeckUse::Read);
  try {
    ReadDeck(DeckPath(), /*checkMode=*/true);
  } catch (const Fault&) {
    PrintCheckMessages();  // of the rows ahead of the one that ended the reading
    throw;
  }
  if (PrintCheckMessages() || !deck) return kFailed;
  TheHost().message("エラーはありませんでした。", "エラーチェック");
  return kDone;
}

ExitCode InputList(const Request&) {
  TellOfDeck(DeckUse::Listed);
  LoadDeck();
  MakeInputList();
  PrintProduct(ReadTextFile(WorkPath + "TmpFile.inp"));
  return kDone;
}

ExitCode Csv(const Request& request) {
  CleanResults(0);
  CopyResults();
  const CsvResult result =
      WriteCsvFiles(request.csvFolder, request.csvName.empty() ? CsvBaseName() : request.csvName);
  if (!result.written) return kFailed;
  for (const std::string& path : result.paths) PrintError("  " + path);
  TellResultRemark();
  return kDone;
}

ExitCode Convert(const Request& request) {
  if (!FolderExists(request.oldModel)) {
    Tell(request.oldModel + " ： フォルダがありません");
    return kUsage;
  }
  return ConvertOldModel(request.oldModel, DeckPath()) ? kDone : kFailed;
}

/// Becomes the program that knows pages: the others stay free of its libraries, whose start alone takes
/// longer than the analysis of a small deck.
[[noreturn]] void BecomePrinter(std::vector<std::string> words) {
  const std::string program = ProgramFolder + "zorlan-print";
  std::vector<char*> arguments = {const_cast<char*>(program.c_str())};
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  WipeProgress();
  ::execv(program.c_str(), arguments.data());
  throw FileFault(program, std::strerror(errno));
}

ExitCode Print(const Request& request) {
  BecomePrinter({"listing", AppPath, request.decks.front(), request.output});
}

ExitCode DrawFigure(const Request& request) {
  const SelectedFigure choice{*FigureKindOf(request.figureKind), request.loadCase};
  switch (*FigureFormOf(request.output)) {
    case FigureForm::DrawingList:
      WriteFigureList(choice, request.output);
      return kDone;
    case FigureForm::Dxf:
      WriteFigureDxf(choice, request.output);
      return kDone;
    case FigureForm::Painted:
      break;
  }
  BecomePrinter({"figure", AppPath, request.decks.front(), request.figureKind,
                 std::to_string(request.loadCase), request.output});
}

std::string CsvRefusal(const Request& request) {
  if (request.csvFolder.empty()) return "出力先フォルダを指定してください";
  if (!request.csvName.empty() && request.decks.size() > 1)
    return "ファイル名（--name）は、入力データファイルが一つの時だけ指定できます";
  return {};
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

std::string PrintRefusal(const Request& request) {
  return request.output.empty() ? "ＰＤＦファイル（--output）を指定してください" : "";
}

constexpr Word kDecks{"DECK", "入力データファイル <model>.inp（いくつでも）", &Request::decks, "",
                      /*many=*/true};
constexpr Word kDeckWords[] = {kDecks};
constexpr Word kCsvWords[] = {
    kDecks,
    {"--folder", "出力先フォルダ", &Request::csvFolder, "DIR"},
    {"--name", "ファイル名（省略時はモデル名）", &Request::csvName, "BASE"},
};
constexpr Word kConvertWords[] = {
    {"FOLDER", "旧版のモデルのフォルダ", &Request::oldModel},
    {"DECK", "作成する入力データファイル", &Request::decks},
};
constexpr Word kFigureWords[] = {
    kDecks,
    {"--kind", "図の種類 ： ", &Request::figureKind, "KIND", false, FigureKindWords},
    {"--case", "荷重ケース（省略時は 1）", &Request::loadCase, "N"},
    {"--output", "出力するファイル .dxf .pdf .svg .png .tmp", &Request::output, "FILE"},
};
constexpr Word kPrintWords[] = {
    {"FILE", "リストのファイル", &Request::decks},
    {"--output", "作成するＰＤＦファイル", &Request::output, "FILE.pdf"},
};

constexpr const char* kNoDeckWord = "入力データファイル（.inp）を指定してください";
constexpr const char* kNoDeck = " ： 入力データファイルがありません";
constexpr const char* kNoListing = " ： リストのファイルがありません";

constexpr Command kCommands[] = {
    {"analyze", "静解析を行い、<model>.ANA と <model>.out を作成します", Analyze, kDeckWords, kNoDeckWord,
     kNoDeck},
    {"check", "入力データのエラーチェックを行います", Check, kDeckWords, kNoDeckWord, kNoDeck},
    {"input-list", "入力データリストを標準出力に書きます", InputList, kDeckWords, kNoDeckWord, kNoDeck},
    {"csv", "解析結果を３つのＣＳＶファイルに出力します", Csv, kCsvWords, kNoDeckWord, kNoDeck, CsvRefusal},
    {"convert", "旧版（Ver1）のモデルのフォルダを入力データファイルに変換します", Convert, kConvertWords,
     "旧版のモデルのフォルダと入力データファイル（.inp）を指定してください", nullptr},
    {"figure", "図を１つ、ファイル（.dxf .pdf .svg .png .tmp）に出力します", DrawFigure, kFigureWords,
     kNoDeckWord, kNoDeck, FigureRefusal, /*becomesAnother=*/true},
    {"print", "リストを印刷の形でＰＤＦファイルに出力します", Print, kPrintWords,
     "リストのファイルを指定してください", kNoListing, PrintRefusal, /*becomesAnother=*/true},
};

ExitCode RunOnDeck(const Request& request, const std::string& deck) {
  try {
    if (request.command->absent != nullptr && !FileExists(deck)) {
      Tell(deck + (FolderExists(deck) ? " ： フォルダです" : request.command->absent));
      return kUsage;
    }
    SetModelInHand(deck);
    return request.command->run(request);
  } catch (const std::bad_alloc&) {
    Tell(deck + " ： メモリが不足しています");
  } catch (const std::exception& fault) {
    Tell(fault.what());
  }
  return kFailed;
}

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

std::optional<FigureForm> FigureFormOf(std::string_view path) {
  const std::string name = UpperCase(path);
  if (name.ends_with(".TMP")) return FigureForm::DrawingList;
  if (name.ends_with(".DXF")) return FigureForm::Dxf;
  for (const std::string_view ending : {".PDF", ".SVG", ".PNG"})
    if (name.ends_with(ending)) return FigureForm::Painted;
  return std::nullopt;
}

ExitCode RunCommand(const Request& request) {
  FindProgramFolders(request.documents);
  ExitCode gravest = kDone;
  const std::size_t count = request.decks.size();
  for (std::size_t d = 0; d < count; ++d) {
    const std::string place =
        count > 1 ? " (" + std::to_string(d + 1) + "/" + std::to_string(count) + ")" : "";
    TheHost().progress(request.decks[d] + place, static_cast<double>(d) / static_cast<double>(count));
    gravest = std::max(gravest, RunOnDeck(request, request.decks[d]));
  }
  WipeProgress();
  return gravest;
}

}  // namespace zorlan::batch
