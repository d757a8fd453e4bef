// A value whose box shows it rounded.
#pragma once

#include <optional>
#include <utility>

namespace zorlan {

/// Keeps the value beside what its box showed of it, so that one that nobody touches keeps its last digit.
template <class Value, class Shown>
class ShownValue {
 public:
  /// The value, and what the box shows of it now.
  void Set(Value value, Shown shown) {
    value_ = std::move(value);
    shown_ = std::move(shown);
  }
  /// The value while the box still shows the same; nothing once it shows something else.
  std::optional<Value> Untouched(const Shown& now) const {
    return now == shown_ ? std::optional<Value>(value_) : std::nullopt;
  }

 private:
  Value value_{};
  Shown shown_{};
};

}  // namespace zorlan
