// A table form with 5000 rows, offscreen: opening with its first picture, pasting a spreadsheet's text, a
// step of the cursor, and the commit. Goals: 100 ms to open and to commit, 300 ms to paste.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>
#include <QTest>
#include <string>

#include "base/text_file.h"
#include "desktop/application.h"
#include "desktop/main_window.h"
#include "desktop/table_window.h"
#include "model/model_state.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr int kRows = 5000;

std::string NodeRows(const char* separator) {
  std::string text;
  for (int row = 1; row <= kRows; ++row) {
    text += std::to_string(row);
    for (const std::string& cell : {std::to_string(row % 50 * 6.25), std::to_string(row / 50 * 3.5)})
      text.append(separator).append(cell);
    for (int code = 0; code < 3; ++code) text.append(separator).append("0");
    text += "\r\n";
  }
  return text;
}

/// The main window with a model in hand whose node table has 5000 rows.
class OpenProgram {
 public:
  OpenProgram() {
    StartUp start;
    start.documents = FromQt(documents_.path()) + "/";
    start.install = ZORLAN_SOURCE_DATA "/";
    if (window_.Load(start) != Started::Ready) std::abort();
    window_.resize(1280, 720);
    window_.show();
    const std::string deck = DefaultDataPath + "bench.inp";
    ReplaceBytes(deck, "@CONT\r\n1,1,0,0\r\n\r\n@UNIT\r\n0,0\r\n\r\n@NODE\r\n" + NodeRows(",") + "\r\n");
    MakeFolder(DefaultDataPath + "bench.zor");
    RenameFile(deck, DefaultDataPath + "bench.zor/bench.inp");
    window_.OpenDeck(ToQt(DefaultDataPath + "bench.zor/bench.inp"));
  }
  TableWindow* OpenNodes() {
    window_.Run(Command::Node);
    QApplication::processEvents();
    return qobject_cast<TableWindow*>(window_.Forms().Find("InpNODE"));
  }
  static void Close(TableWindow* form) {
    form->Unload();
    QApplication::processEvents();
  }

 private:
  QTemporaryDir documents_;
  MainWindow window_;
};

void Open(benchmark::State& state) {
  OpenProgram program;
  for (auto _ : state) {
    TableWindow* const form = program.OpenNodes();
    state.PauseTiming();
    OpenProgram::Close(form);
    state.ResumeTiming();
  }
}
BENCHMARK(Open)->Unit(benchmark::kMillisecond);

void Paste(benchmark::State& state) {
  OpenProgram program;
  TableWindow* const form = program.OpenNodes();
  QApplication::clipboard()->setText(ToQt(NodeRows("\t")));
  for (auto _ : state) {
    form->View().GoTo({1, 1, 1});
    form->Edit(Command::Paste);
    QApplication::processEvents();
    state.PauseTiming();
    form->View().SelectUsedRows();
    QTest::keyClick(&form->View(), Qt::Key_Delete);
    state.ResumeTiming();
  }
  OpenProgram::Close(form);
}
BENCHMARK(Paste)->Unit(benchmark::kMillisecond);

void StepDown(benchmark::State& state) {
  OpenProgram program;
  TableWindow* const form = program.OpenNodes();
  for (auto _ : state) {
    QTest::keyClick(&form->View(), Qt::Key_Down);
    QApplication::processEvents();
  }
  OpenProgram::Close(form);
}
BENCHMARK(StepDown)->Unit(benchmark::kMillisecond);

void Commit(benchmark::State& state) {
  OpenProgram program;
  for (auto _ : state) {
    state.PauseTiming();
    TableWindow* const form = program.OpenNodes();
    form->Editor().MarkChanged();
    state.ResumeTiming();
    if (!form->CloseForm()) state.SkipWithError("refused");
    QApplication::processEvents();
  }
}
BENCHMARK(Commit)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zorlan

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  zorlan::Application application(argc, argv);
  zorlan::SetUpApplication(application);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
