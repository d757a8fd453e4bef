// Where the toolkit may be included.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

const std::set<std::string> kWidgetHeaders = {"QApplication", "QWidget", "QMainWindow", "QDialog",
                                              "QPrinter"};

/// The toolkit's headers that a file includes.
std::set<std::string> ToolkitHeaders(const fs::path& path) {
  std::set<std::string> headers;
  std::ifstream file(path);
  const std::string mark = "#include <Q";
  for (std::string line; std::getline(file, line);)
    if (line.starts_with(mark))
      headers.insert(line.substr(mark.size() - 1, line.find('>') - mark.size() + 1));
  return headers;
}

TEST(Floors, TheToolkitStandsInRenderAndDesktopAlone) {
  for (const auto& entry : fs::recursive_directory_iterator(ZORLAN_SOURCE_DIR "/src")) {
    const std::string floor = fs::relative(entry.path(), ZORLAN_SOURCE_DIR "/src").begin()->string();
    if (!entry.is_regular_file() || floor == "desktop") continue;
    const std::set<std::string> headers = ToolkitHeaders(entry.path());
    if (floor != "render") {
      EXPECT_TRUE(headers.empty()) << entry.path();
    }
    for (const std::string& header : headers) EXPECT_FALSE(kWidgetHeaders.contains(header)) << entry.path();
  }
}

TEST(Floors, TheSearchWouldFindAnInclude) {
  EXPECT_TRUE(ToolkitHeaders(ZORLAN_SOURCE_DIR "/src/desktop/main_window.h").contains("QMainWindow"));
}

}  // namespace
