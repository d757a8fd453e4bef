// window_gaps [DECK]: the longest time that the main window stood still in the work of a day: opening a deck,
// checking it, analysing it, reading and printing its listing. Without a deck a frame of 2500 nodes and 20
// cases.
#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include "base/text_file.h"
#include "desktop/application.h"
#include "desktop/main_window.h"
#include "frames.h"
#include "render/qt_text.h"
#include "shell/start_up.h"

namespace zorlan {
namespace {

double Ms(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Ticks as often as the event loop lets it.
class GapWatch {
 public:
  GapWatch() {
    since_.start();
    QObject::connect(&timer_, &QTimer::timeout, [this] { Note(); });
    timer_.start(0);
  }
  void Begin() {
    QApplication::processEvents();
    longest_ = 0;
    whole_.start();
    since_.start();
  }
  void End(const char* what) {
    for (int i = 0; i < 20; ++i) QApplication::processEvents();  // the windows paint what is new
    fmt::print("{:<10} {:7.1f} ms, longest gap {:6.1f} ms\n", what, Ms(whole_), longest_);
  }

 private:
  void Note() {
    longest_ = std::max(longest_, Ms(since_));
    since_.restart();
  }
  QElapsedTimer since_, whole_;
  QTimer timer_;
  double longest_ = 0;
};

int Measure(const std::string& deck, const std::string& documents) {
  MainWindow window;
  StartUp start;
  start.documents = documents;
  start.install = InstallFolder(ZORLAN_SOURCE_DATA);
  if (window.Load(start) != Started::Ready) return 1;
  window.show();
  GapWatch watch;
  const auto step = [&](const char* what, auto&& work) {
    watch.Begin();
    work();
    watch.End(what);
  };
  step("open", [&] { window.OpenDeck(ToQt(deck)); });
  step("save", [&] { window.Run(Command::Overwrite); });
  step("input list", [&] { window.Run(Command::PrintInput); });
  step("analyse", [&] { window.Run(Command::Analyse); });
  step("preview", [&] { window.Run(Command::PrintListing); });
  window.Leave();
  return 0;
}

}  // namespace
}  // namespace zorlan

int main(int argc, char** argv) {
  using namespace zorlan;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  Application application(argc, argv);
  SetUpApplication(application);
  const QTemporaryDir documents;
  const std::string folder = FolderText(FromQt(documents.path()));
  try {
    const std::string deck = folder + "bench.zor/f2500.inp";
    MakeFolder(folder + "bench.zor");
    if (argc > 1)
      ReplaceBytes(deck, ReadBytes(argv[1]));
    else
      ReplaceTextFile(deck, bench::DeckText(bench::RegularFrame(49, 49, 20)));
    return Measure(deck, folder);
  } catch (const std::exception& fault) {
    fmt::print(stderr, "{}\n", fault.what());
    return 1;
  }
}
