#include "base/host.h"

#include <utility>

namespace zorlan {
namespace {

Host& Installed() {
  static Host host;
  return host;
}

}  // namespace

void InstallHost(Host host) {
  Installed() = std::move(host);
}

const Host& TheHost() {
  return Installed();
}

MessageWatch::MessageWatch(Messages messages) : host_(TheHost()) {
  Host watched = host_;
  watched.message = [this, messages](std::string_view text, std::string_view title) {
    if (message_.empty()) message_ = text;
    if (messages == Messages::Shown) host_.message(text, title);
  };
  InstallHost(std::move(watched));
}

MessageWatch::~MessageWatch() {
  InstallHost(std::move(host_));
}

void Tell(std::string_view text) {
  TheHost().message(text, kApplicationTitle);
}

void ReportError(std::string_view routine, std::string_view what) {
  TheHost().message("関数名： " + std::string(routine) + "\n" + std::string(what), "エラーが発生しました");
}

}  // namespace zorlan
