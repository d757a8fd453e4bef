// The models last opened or saved, for the File menu. Kept in Setting.Ini; what fails there is passed over,
// as the list is worth no message.
#pragma once

#include <string>
#include <vector>

namespace zorlan {

inline constexpr std::size_t kMaxRecentModels = 9;

/// Full paths of decks, the latest first.
std::vector<std::string> RecentModels();
/// Puts a deck on top of the list; takes it off.
void NoteRecentModel(const std::string& deck);
void ForgetRecentModel(const std::string& deck);

}  // namespace zorlan
