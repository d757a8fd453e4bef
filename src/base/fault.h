// Run-time faults: what ends a stage or a command by an exception, with words for the user.
#pragma once

#include <stdexcept>
#include <string>

namespace zorlan {

/// A fault with its text in the user's language (UTF-8): what is wrong and where (file, line, row).
class Fault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A fault of the file system: the path and the reason are in the text.
class FileFault : public Fault {
 public:
  FileFault(const std::string& path, const std::string& reason);
};

}  // namespace zorlan
