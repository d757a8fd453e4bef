// A temporary folder of section tables for one test, and a record of what the user was told.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/host.h"
#include "base/text_file.h"
#include "sections/steel_tables.h"
#include "sections/timber_tables.h"
#include "temporary_folder.h"

namespace zorlan {

class TableFolder : public testing::Test {
 protected:
  TableFolder() {
    SteelTableFolder = TimberTableFolder = folder_.Path();
    Host host;
    host.message = [this](std::string_view text, std::string_view) { told_.emplace_back(text); };
    InstallHost(host);
    StartAnew();
  }
  ~TableFolder() override {
    SteelTableFolder.clear();
    TimberTableFolder.clear();
    StartAnew();
    InstallHost({});
  }

  static void StartAnew() {  // as the next start of the program finds the tables
    ForgetSectionTables();
    ForgetTimberTables();
  }
  void Write(const std::string& name, std::string_view text) const {
    ReplaceTextFile(Path(name), text, Flush::No);
  }
  std::string Read(const std::string& name) const { return ReadTextFile(Path(name)); }
  bool Exists(const std::string& name) const { return FileExists(Path(name)); }
  std::string Path(const std::string& name) const { return folder_.Path() + name; }
  const std::vector<std::string>& Told() const { return told_; }

 private:
  TemporaryFolder folder_;
  std::vector<std::string> told_;
};

/// Three head lines, as the tables have them.
inline constexpr std::string_view kHead = "表\r\n列\r\n単位\r\n";

}  // namespace zorlan
