#include "desktop/hush.h"

#include <utility>

namespace zorlan {

Hush::Hush() : host_(TheHost()) {
  Host quiet = host_;
  quiet.message = [this](std::string_view text, std::string_view) {
    if (message_.empty()) message_ = text;
  };
  InstallHost(std::move(quiet));
}

Hush::~Hush() {
  InstallHost(std::move(host_));
}

}  // namespace zorlan
