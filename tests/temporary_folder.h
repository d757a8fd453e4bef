// A folder of a test's own, gone with the test.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace zorlan {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    path_ = testing::TempDir() + "zorlan-test-XXXXXX";
    if (::mkdtemp(path_.data()) == nullptr) std::abort();
    path_ += '/';
  }
  ~TemporaryFolder() {
    std::error_code ignored;  // what can't be removed harms no other test
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// With a closing separator.
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace zorlan
