// Keeps the core's messages from the user for a while.
#pragma once

#include <string>

#include "base/host.h"

namespace zorlan {

/// While one lives no message is shown; it keeps the first.
class Hush {
 public:
  Hush();
  ~Hush();
  Hush(const Hush&) = delete;
  Hush& operator=(const Hush&) = delete;

  const std::string& Message() const { return message_; }

 private:
  Host host_;
  std::string message_;
};

}  // namespace zorlan
