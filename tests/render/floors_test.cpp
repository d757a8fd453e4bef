// Where the toolkit may be included.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

/// What a line includes, without the folders in front, if it is the toolkit's: "<QtWidgets/QLabel>" ->
/// "QLabel".
std::string ToolkitHeader(const std::string& line) {
  if (!line.starts_with("#include ")) return {};
  const std::size_t open = line.find_first_of("<\""), close = line.find_first_of(">\"", open + 1);
  if (open == std::string::npos || close == std::string::npos) return {};
  const std::string path = line.substr(open + 1, close - open - 1), name = fs::path(path).filename();
  return name.starts_with('Q') || path.starts_with("Qt") || (name.starts_with('q') && line[open] == '<')
             ? name
             : std::string();
}

std::set<std::string> ToolkitHeaders(const fs::path& path) {
  std::set<std::string> headers;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);)
    if (const std::string header = ToolkitHeader(line); !header.empty()) headers.insert(header);
  return headers;
}

/// Whether a header is one of widgets or their printing: the toolkit keeps these in folders of their own.
bool IsOfWidgets(const std::string& header) {
  std::istringstream folders(ZORLAN_WIDGET_HEADERS);
  for (std::string folder; std::getline(folders, folder, ':');) {
    const std::string name = fs::path(folder).filename();
    if ((name == "QtWidgets" || name == "QtPrintSupport") && fs::exists(fs::path(folder) / header))
      return true;
  }
  return header == "QtWidgets" || header == "QtPrintSupport";
}

TEST(Floors, TheToolkitStandsInRenderAndDesktopAlone) {
  for (const auto& entry : fs::recursive_directory_iterator(ZORLAN_SOURCE_DIR "/src")) {
    const std::string floor = fs::relative(entry.path(), ZORLAN_SOURCE_DIR "/src").begin()->string();
    if (!entry.is_regular_file() || floor == "desktop") continue;
    const std::set<std::string> headers = ToolkitHeaders(entry.path());
    if (floor != "render") {
      EXPECT_TRUE(headers.empty()) << entry.path();
    }
    for (const std::string& header : headers) EXPECT_FALSE(IsOfWidgets(header)) << entry.path() << header;
  }
}

TEST(Floors, TheSearchWouldFindAnInclude) {
  EXPECT_TRUE(ToolkitHeaders(ZORLAN_SOURCE_DIR "/src/desktop/main_window.h").contains("QMainWindow"));
  EXPECT_EQ(ToolkitHeader("#include <QtWidgets/QLabel>"), "QLabel");
  EXPECT_EQ(ToolkitHeader("#include <qlabel.h>"), "qlabel.h");
  EXPECT_EQ(ToolkitHeader("#include \"render/qt_text.h\""), "");
  EXPECT_EQ(ToolkitHeader("#include <string>"), "");
  for (const char* const header : {"QWidget", "QTableView", "QLabel", "qlabel.h", "QPrinter", "QtWidgets"})
    EXPECT_TRUE(IsOfWidgets(header)) << header;
  for (const char* const header : {"QPainter", "QString", "QPdfWriter"})
    EXPECT_FALSE(IsOfWidgets(header)) << header;
}

}  // namespace
