// Keeps the core's messages from the user for a while.
#pragma once

#include "base/host.h"

namespace zorlan {

/// While one lives no message is shown; it keeps the first.
class Hush : public MessageWatch {
 public:
  Hush() : MessageWatch(Messages::Hushed) {}
};

}  // namespace zorlan
