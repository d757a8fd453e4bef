#include "base/host.h"

#include <utility>

namespace zorlan {
namespace {

Host WithDefaults(Host host) {
  if (!host.message) host.message = [](std::string_view, std::string_view) {};
  if (!host.question)
    host.question = [](std::string_view, std::string_view, Buttons buttons) {
      return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    };
  if (!host.progress) host.progress = [](std::string_view, double) {};
  if (!host.hourglass) host.hourglass = [](bool) {};
  if (!host.runAndWait) host.runAndWait = [](const std::string&, const std::string&) { return ProgramEnd{}; };
  if (!host.showListing) host.showListing = [](const std::string&) {};
  return host;
}

Host& Installed() {
  static Host host = WithDefaults({});
  return host;
}

}  // namespace

void InstallHost(Host host) {
  Installed() = WithDefaults(std::move(host));
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
