// The texts that the sources hold: the string literals of C++ files, and the lines of data files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorlan::test {

/// The string literals of a C++ source, escapes resolved, neighbours joined as the compiler joins them.
std::vector<std::string> StringLiterals(std::string_view source);

/// Whether `text` stands in one of the lines of `literal` with nothing added: at each of its ends the line
/// ends too or goes on with something else than a blank.
bool StandsIn(std::string_view text, std::string_view literal);

/// All texts below some folders: literals of .cpp and .h files, the lines of the others in UTF-8 or code page
/// 932.
std::vector<std::string> TextsBelow(const std::vector<std::string>& folders);

}  // namespace zorlan::test
