// zorlan-print listing TREE LISTING PDF: a listing on the pages that the desktop prints.
// zorlan-print figure TREE DECK KIND CASE FILE: a figure of a deck as PDF, SVG or PNG.
// The printer settings and display options are those of the program's tree. It serves `zorlan-batch`, which
// has looked at the words already.
#include <charconv>
#include <cstdio>
#include <exception>
#include <new>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <span>
#include <string>
#include <string_view>

#include "base/host.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "output/print_flag.h"
#include "render/figure_painter.h"
#include "render/fonts.h"
#include "render/text_page_painter.h"
#include "shell/figure_deck.h"
#include "shell/page_setup.h"
#include "shell/settings.h"

namespace {

using namespace zorlan;

constexpr int kDone = 0, kFailed = 1, kUsage = 2;

void PrintMessage(std::string_view text, std::string_view title) {
  const std::string line = std::string(title) + ": " + std::string(text) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

void WritePages(std::span<char*> words) {
  const std::string listing = words[0];
  const std::string text = ReadTextFile(listing);
  const TextPages pages =
      LayOutTextPages(text, StyleOfFlag(FlagOfListing(listing)), PageSetupOf(StoredPrinterInfo()));
  ReplaceBytes(words[1], TextPagesPdf(pages));
}

std::string FigureFile(const FigurePicture& picture, const std::string& path) {
  const std::string name = UpperCase(path);
  if (name.ends_with(".SVG")) return PictureSvg(picture);
  if (name.ends_with(".PNG")) return PicturePng(picture);
  return PicturesPdf({&picture, 1});
}

/// A word that is no whole number is no case.
int CaseOf(std::string_view word) {
  int loadCase = 0;
  std::from_chars(word.data(), word.data() + word.size(), loadCase);
  return loadCase;
}

void WriteFigure(std::span<char*> words) {
  SetModelInHand(words[0]);
  const SelectedFigure choice{FigureKindOf(words[1]).value_or(kModelFigure), CaseOf(words[2])};
  FigurePicture picture(SheetOfFigure(choice).sheet);
  DrawFigureOfDeck(picture, choice);
  ReplaceBytes(words[3], FigureFile(picture, words[3]), Flush::No);
}

struct Job {
  std::string_view name;
  int words;  // behind the tree
  void (*run)(std::span<char*> words);
};
constexpr Job kJobs[] = {{"listing", 2, WritePages}, {"figure", 4, WriteFigure}};

const Job* JobOf(int argc, char** argv) {
  for (const Job& job : kJobs)
    if (argc == job.words + 3 && job.name == argv[1]) return &job;
  return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  Host host;
  host.message = PrintMessage;
  InstallHost(std::move(host));
  const Job* const job = JobOf(argc, argv);
  if (job == nullptr) {
    Tell("zorlan-batch print または zorlan-batch figure を使ってください");
    return kUsage;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "*.debug=false;*.warning=false");
  // Without a runtime folder the toolkit would make one among the temporary files and leave it there.
  const QTemporaryDir runtime;
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
  const QGuiApplication application(argc, argv);
  if (!InstallFonts()) {
    Tell("フォント「IPAGothic」がありません（fonts-ipafont-gothic）");
    return kFailed;
  }
  try {
    AppPath = argv[2];
    job->run(std::span(argv, static_cast<std::size_t>(argc)).subspan(3));
    return kDone;
  } catch (const std::bad_alloc&) {
    Tell(std::string(argv[3]) + " ： メモリが不足しています");
  } catch (const std::exception& fault) {
    Tell(fault.what());
  }
  return kFailed;
}
