// The small files of settings: what the program reads at its start, and what counts as none of its own.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace zorlan {

/// No file of settings but the store of all of them (Setting.Ini) comes near this size.
inline constexpr std::size_t kLargestSettingsFile = std::size_t{64} << 10;

/// The text of a file of settings (code page 932). Nothing without one that can be read, and for a file
/// larger than `limit` bytes: whatever it holds is none of ours and would only hold up the start.
std::optional<std::string> ReadSettingsFile(const std::string& path,
                                            std::size_t limit = kLargestSettingsFile);

}  // namespace zorlan
