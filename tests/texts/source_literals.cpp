#include "texts/source_literals.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "base/text.h"
#include "base/text_file.h"

namespace zorlan::test {
namespace {

namespace fs = std::filesystem;

/// Walks over a source, literal by literal.
class LiteralReader {
 public:
  explicit LiteralReader(std::string_view source) : rest_(source) {}

  std::vector<std::string> Read() {
    bool joins = false;  // nothing but blanks and comments since the last literal
    while (!rest_.empty()) {
      if (rest_.starts_with("//")) {
        Skip(rest_.find('\n'));
      } else if (rest_.starts_with("/*")) {
        Skip(End("*/", 2));
      } else if (rest_.starts_with("R\"")) {
        Add(RawLiteral(), joins);
        joins = true;
      } else if (rest_[0] == '"') {
        Add(Literal(), joins);
        joins = true;
      } else if (rest_[0] == '\'') {
        Skip(std::max<std::size_t>(CharacterLength(), 1));
        joins = false;
      } else {
        if (std::string_view(" \t\r\n").find(rest_[0]) == std::string_view::npos) joins = false;
        Skip(1);
      }
    }
    return std::move(literals_);
  }

 private:
  void Skip(std::size_t length) { rest_.remove_prefix(std::min(length, rest_.size())); }

  /// Length up to and with `mark`, which is looked for from a place on.
  std::size_t End(std::string_view mark, std::size_t from) const {
    const std::size_t at = rest_.find(mark, from);
    return at == std::string_view::npos ? rest_.size() : at + mark.size();
  }

  /// Length of 'x' or '\x'; 1 for the mark between the digits of a number.
  std::size_t CharacterLength() const {
    if (rest_.size() > 3 && rest_[1] == '\\') return End("'", 3);
    return rest_.size() > 2 && rest_[2] == '\'' ? 3 : 1;
  }

  std::string RawLiteral() {
    const std::size_t open = rest_.find('(');
    const std::string close = ")" + std::string(rest_.substr(2, open - 2)) + "\"";
    const std::size_t end = End(close, open);
    std::string text(rest_.substr(open + 1, end - close.size() - open - 1));
    Skip(end);
    return text;
  }

  std::string Literal() {
    std::string text;
    Skip(1);
    while (!rest_.empty() && rest_[0] != '"') {
      if (rest_[0] == '\\')
        text += Escape();
      else
        text += rest_[0], Skip(1);
    }
    Skip(1);
    return text;
  }

  char Escape() {
    const char letter = rest_.size() > 1 ? rest_[1] : '\\';
    Skip(2);
    switch (letter) {
      case 'n':
        return '\n';
      case 'r':
        return '\r';
      case 't':
        return '\t';
      case 'x': {
        const std::size_t length = std::min(rest_.find_first_not_of("0123456789abcdefABCDEF"), rest_.size());
        const int code = length == 0 ? 0 : std::stoi(std::string(rest_.substr(0, length)), nullptr, 16);
        Skip(length);
        return static_cast<char>(code);
      }
      case '0':
        return '\0';
      default:
        return letter;
    }
  }

  void Add(std::string text, bool joins) {
    if (joins)
      literals_.back() += text;
    else
      literals_.push_back(std::move(text));
  }

  std::string_view rest_;
  std::vector<std::string> literals_;
};

bool StartsWithBlank(std::string_view text) {
  return text.starts_with(" ") || text.starts_with("　");
}
bool EndsWithBlank(std::string_view text) {
  return text.ends_with(" ") || text.ends_with("　");
}

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const std::size_t length = byte < 0x80 ? 1 : byte < 0xC2 ? 0 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
    if (length == 0 || at + length > text.size()) return false;
    for (std::size_t i = 1; i < length; ++i)
      if ((static_cast<unsigned char>(text[at + i]) & 0xC0U) != 0x80U) return false;
    at += length;
  }
  return true;
}

}  // namespace

std::vector<std::string> StringLiterals(std::string_view source) {
  return LiteralReader(source).Read();
}

bool StandsIn(std::string_view text, std::string_view literal) {
  while (const std::optional<std::string_view> line = TakeLine(literal))
    for (std::size_t at = line->find(text); at != std::string_view::npos; at = line->find(text, at + 1))
      if (!EndsWithBlank(line->substr(0, at)) && !StartsWithBlank(line->substr(at + text.size())))
        return true;
  return false;
}

std::vector<std::string> TextsBelow(const std::vector<std::string>& folders) {
  std::vector<std::string> texts;
  for (const std::string& folder : folders)
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
      if (!entry.is_regular_file()) continue;
      const std::string path = entry.path().string();
      const std::string bytes = ReadBytes(path);
      if (path.ends_with(".cpp") || path.ends_with(".h")) {
        for (std::string& literal : StringLiterals(bytes)) texts.push_back(std::move(literal));
      } else {
        texts.push_back(IsUtf8(bytes) ? bytes : ReadTextFile(path));
      }
    }
  return texts;
}

}  // namespace zorlan::test
