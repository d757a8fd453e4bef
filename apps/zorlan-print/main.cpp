// zorlan-print LISTING PDF TREE: a listing on the pages that the desktop prints, by the printer settings of
// the program's tree. It serves `zorlan-batch print`.
#include <cstdio>
#include <exception>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <string>

#include "base/host.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "output/print_flag.h"
#include "render/fonts.h"
#include "render/text_page_painter.h"
#include "shell/page_setup.h"
#include "shell/settings.h"

namespace {

using namespace zorlan;

constexpr int kDone = 0, kFailed = 1, kUsage = 2;

void PrintMessage(std::string_view text, std::string_view title) {
  const std::string line = std::string(title) + ": " + std::string(text) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

void WritePages(const std::string& listing, const std::string& pdf) {
  const std::string text = ReadTextFile(listing);
  const TextPages pages =
      LayOutTextPages(text, StyleOfFlag(FlagOfListing(listing)), PageSetupOf(StoredPrinterInfo()));
  ReplaceBytes(pdf, TextPagesPdf(pages));
}

}  // namespace

int main(int argc, char** argv) {
  Host host;
  host.message = PrintMessage;
  InstallHost(std::move(host));
  if (argc != 4) {
    Tell("zorlan-batch print を使ってください");
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
    AppPath = argv[3];
    WritePages(argv[1], argv[2]);
    return kDone;
  } catch (const std::exception& fault) {
    Tell(fault.what());
    return kFailed;
  }
}
