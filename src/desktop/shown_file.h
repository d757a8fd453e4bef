// A file that a window shows, and whether it is still the one that was read.
#pragma once

#include <cstdint>
#include <string>

namespace zorlan {

class ShownFile {
 public:
  /// The file at `path` as it is now, there or not.
  void Look(const std::string& path);
  const std::string& Path() const { return path_; }
  /// Whether another file, a newer one or none stands at the path since.
  bool Changed() const;
  /// It couldn't be read: it counts as changed until it is looked at again.
  void Forget() { state_.size = kForgotten; }

 private:
  static constexpr std::int64_t kForgotten = -2;

  struct State {
    std::uint64_t file = 0;
    std::int64_t size = -1, seconds = 0, nanoseconds = 0;  // -1: no file
    bool operator==(const State&) const = default;
  };
  static State StateOf(const std::string& path);

  std::string path_;
  State state_;
};

}  // namespace zorlan
