#include "shell/recent_models.h"

#include <algorithm>

#include "base/fault.h"
#include "shell/settings.h"

namespace zorlan {
namespace {

constexpr const char* kApp = "ZOR";
constexpr const char* kSection = "RecentModel";

/// `before`: how many there were; what is no longer used is emptied.
void Keep(std::vector<std::string> models, std::size_t before) {
  models.resize(std::min(std::max(models.size(), before), kMaxRecentModels));
  std::vector<Setting> settings;
  for (std::size_t i = 0; i < models.size(); ++i)
    settings.push_back({kApp, kSection, std::to_string(i + 1), models[i]});
  try {
    SavePrivateSettings(settings);
  } catch (const Fault&) {
    // the list stays as it was
  }
}

}  // namespace

std::vector<std::string> RecentModels() {
  std::vector<std::string> keys;
  for (std::size_t i = 1; i <= kMaxRecentModels; ++i) keys.push_back(std::to_string(i));
  std::vector<std::string> models = GetPrivateSettings(kApp, kSection, keys);
  std::erase(models, std::string());
  return models;
}

void NoteRecentModel(const std::string& deck) {
  std::vector<std::string> models = RecentModels();
  const std::size_t before = models.size();
  std::erase(models, deck);
  models.insert(models.begin(), deck);
  Keep(std::move(models), before);
}

void ForgetRecentModel(const std::string& deck) {
  std::vector<std::string> models = RecentModels();
  const std::size_t before = models.size();
  if (std::erase(models, deck) > 0) Keep(std::move(models), before);
}

}  // namespace zorlan
