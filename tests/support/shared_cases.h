// Models with results and reports worked out by others, where they lie beside the source tree.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace zorlan::test {

/// The folders of one kind of cases ("analysis", "reports"), with closing separators; none without the cases.
inline std::vector<std::string> CaseFolders(const std::string& kind) {
  std::vector<std::string> folders;
  for (const char* const shared : {"/../shared/cases/", "/../../shared/cases/"}) {
    std::error_code none;
    for (const auto& entry :
         std::filesystem::directory_iterator(ZORLAN_SOURCE_DIR + std::string(shared) + kind, none))
      folders.push_back(entry.path().string() + "/");
    if (!folders.empty()) break;
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

/// Whether two lines are the same but for the last digit of a number in the same columns: numbers rounded
/// from values that differ far behind it. "0.000" and "-0.001" are neighbours too.
inline bool SameButForLastDigits(std::string_view a, std::string_view b) {
  if (a == b) return true;
  if (a.size() != b.size()) return false;
  std::size_t at = 0;
  while (at < a.size()) {
    const std::size_t end = std::min(a.find(' ', at), b.find(' ', at));
    const std::size_t stop = std::min(end, a.size());
    const std::string left(a.substr(at, stop - at)), right(b.substr(at, stop - at));
    if (left != right) {
      const auto units = [](std::string_view text) {
        long long value = 0;
        for (const char c : text.substr(0, text.find('E')))
          if (std::isdigit(static_cast<unsigned char>(c)) != 0) value = value * 10 + (c - '0');
        return text.find('-') == 0 ? -value : value;
      };
      const auto exponent = [](std::string_view text) {
        return text.substr(std::min(text.find('E'), text.size()));
      };
      if (exponent(left) != exponent(right) || std::abs(units(left) - units(right)) > 1) return false;
    }
    at = stop + 1;
  }
  return true;
}

/// Two texts line by line; tells the first line that differs.
inline testing::AssertionResult SameLines(const std::string& actual, const std::string& expected) {
  std::size_t a = 0, b = 0;
  for (int line = 1; a < actual.size() || b < expected.size(); ++line) {
    const std::size_t endA = std::min(actual.find('\n', a), actual.size());
    const std::size_t endB = std::min(expected.find('\n', b), expected.size());
    const std::string_view left = std::string_view(actual).substr(std::min(a, actual.size()), endA - a);
    const std::string_view right = std::string_view(expected).substr(std::min(b, expected.size()), endB - b);
    if (!SameButForLastDigits(left, right))
      return testing::AssertionFailure()
             << "line " << line << "\n  is       |" << left << "|\n  expected |" << right << "|";
    a = endA + 1;
    b = endB + 1;
  }
  if (actual.empty() != expected.empty()) return testing::AssertionFailure() << "one text is empty";
  return testing::AssertionSuccess();
}

}  // namespace zorlan::test
