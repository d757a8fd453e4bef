#include "base/cp932.h"

#include <array>
#include <cstdint>
#include <vector>

namespace zorlan {
namespace {

constexpr int kTrails = 188;
constexpr char32_t kMiddleDot = 0x30FB;
constexpr int kFirstUserLead = 0xF0, kLastUserLead = 0xF9;  // user-defined: U+E000 to U+E757 in order

struct LeadRow {
  std::uint8_t lead;
  std::array<std::uint16_t, kTrails> unicode;
};
constexpr LeadRow kRows[] = {
#include "base/cp932_table.inc"
};

/// Row of a lead byte in kRows, -1 if it has none.
constexpr std::array<std::int8_t, 256> kRowOfLead = [] {
  std::array<std::int8_t, 256> rows{};
  rows.fill(-1);
  std::int8_t row = 0;
  for (const LeadRow& entry : kRows) rows[entry.lead] = row++;
  return rows;
}();

constexpr int TrailIndex(unsigned trail) {
  if (trail >= 0x40 && trail <= 0x7E) return static_cast<int>(trail) - 0x40;
  if (trail >= 0x80 && trail <= 0xFC) return static_cast<int>(trail) - 0x41;
  return -1;
}
constexpr unsigned TrailByte(int index) {
  return static_cast<unsigned>(index < 0x3F ? index + 0x40 : index + 0x41);
}

constexpr bool IsLead(unsigned byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

char32_t DoubleByte(unsigned lead, int trailIndex) {
  if (lead >= kFirstUserLead && lead <= kLastUserLead)
    return 0xE000 + static_cast<char32_t>((lead - kFirstUserLead) * kTrails) +
           static_cast<char32_t>(trailIndex);
  const int row = kRowOfLead[lead];
  return row < 0 ? 0 : kRows[row].unicode[static_cast<std::size_t>(trailIndex)];
}

char32_t SingleByte(unsigned byte) {
  if (byte <= 0x80) return byte;
  if (byte >= 0xA1 && byte <= 0xDF) return 0xFF61 + (byte - 0xA1);  // half-width katakana
  if (byte == 0xA0) return 0xF8F0;
  return 0xF8F1 + (byte - 0xFD);
}

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

/// Where one character is defined twice: JIS X 0208 before NEC's row 13, that before IBM's, NEC's selection
/// of IBM's last.
int Preference(unsigned lead) {
  if (lead == 0x87) return 1;
  if (lead == 0xED || lead == 0xEE) return 3;
  return lead >= 0xFA ? 2 : 0;
}

/// Code of each character of the basic plane: 0 none, below 256 a single byte, otherwise lead and trail.
const std::vector<std::uint16_t>& CodeOfUnicode() {
  static const std::vector<std::uint16_t> table = [] {
    std::vector<std::uint16_t> codes(0x10000);
    for (unsigned byte = 1; byte < 0x100; ++byte)
      if (!IsLead(byte)) codes[SingleByte(byte)] = static_cast<std::uint16_t>(byte);
    for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
      if (!IsLead(lead)) continue;
      for (int trail = 0; trail < kTrails; ++trail) {
        std::uint16_t& code = codes[DoubleByte(lead, trail)];
        if (code == 0 || (code > 0xFF && Preference(lead) < Preference(code >> 8U)))
          code = static_cast<std::uint16_t>(lead << 8U | TrailByte(trail));
      }
    }
    codes[0] = 0;  // pairs that are not defined
    return codes;
  }();
  return table;
}

/// Length in bytes of the UTF-8 sequence that starts at text[at]; a broken one counts a byte, with c =
/// U+FFFD.
std::size_t DecodeUtf8(std::string_view text, std::size_t at, char32_t& c) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned first = byte(at);
  c = first;
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  c = 0xFFFD;
  if (first < 0xC0 || at + length > text.size()) return 1;
  char32_t value = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0U) != 0x80U) return 1;
    value = value << 6U | (byte(at + i) & 0x3FU);
  }
  c = value;
  return length;
}

/// Length of the plain run (bytes below 80, the same in both encodings) that starts at text[at].
std::size_t PlainRun(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && static_cast<unsigned char>(text[end]) < 0x80) ++end;
  return end - at;
}

std::uint16_t CodeOf(char32_t c) {
  return c < 0x10000 ? CodeOfUnicode()[c] : std::uint16_t{0};
}

/// Characters that the JIS mapping has where the Microsoft one has another of the same look.
struct Twin {
  char32_t other, ours;
};
constexpr std::array kTwins = {Twin{0x301C, 0xFF5E}, Twin{0x2212, 0xFF0D}, Twin{0x2016, 0x2225},
                               Twin{0x2014, 0x2015}, Twin{0x00A2, 0xFFE0}, Twin{0x00A3, 0xFFE1},
                               Twin{0x00AC, 0xFFE2}};

char32_t OwnCharacter(char32_t c) {
  for (const Twin& twin : kTwins)
    if (twin.other == c) return twin.ours;
  return c;
}

std::size_t ColumnsOf(char32_t c) {
  return c >= 0x80 && CodeOf(OwnCharacter(c)) > 0xFF ? 2 : 1;
}

/// Whether bytes are whole and defined characters of code page 932. 80, A0 and FD to FF stand in no text.
bool IsCp932(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const unsigned byte = static_cast<unsigned char>(bytes[at]);
    if (byte < 0x80 || (byte >= 0xA1 && byte <= 0xDF)) continue;
    if (!IsLead(byte) || ++at == bytes.size()) return false;
    const int trail = TrailIndex(static_cast<unsigned char>(bytes[at]));
    if (trail < 0 || DoubleByte(byte, trail) == 0) return false;
  }
  return true;
}

/// Whether a decoded sequence is one of UTF-8: whole, no longer than it needs to be, a character.
bool IsSequence(char32_t c, std::size_t length) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  return length > 1 && c >= kLeast[length] && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

constexpr std::uint16_t kSecondLevel = 0x989F;  // first code of the kanji beyond everyday ones

}  // namespace

std::string WithOwnCharacters(std::string_view text) {
  std::string result;
  result.reserve(text.size() + text.size() / 2);
  for (std::size_t at = 0; at < text.size();) {
    char32_t c = 0;
    const std::size_t run = PlainRun(text, at);
    const std::size_t length = run > 0 ? run : DecodeUtf8(text, at, c);
    if (const char32_t own = OwnCharacter(c); own != c)
      AppendUtf8(result, own);
    else
      result.append(text, at, length);
    at += length;
  }
  return result;
}

Cp932Text Cp932FromUtf8(std::string_view text) {
  Cp932Text result;
  result.bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (const std::size_t run = PlainRun(text, at); run > 0) {
      result.bytes.append(text, at, run);
      at += run;
      continue;
    }
    char32_t c = 0;
    const std::size_t length = DecodeUtf8(text, at, c);
    const std::uint16_t code = CodeOf(c);
    if (code == 0) {
      if (result.lost.empty()) result.lost = text.substr(at, length);
      result.bytes += '?';
    } else {
      if (code > 0xFF) result.bytes += static_cast<char>(code >> 8U);
      result.bytes += static_cast<char>(code & 0xFFU);
    }
    at += length;
  }
  return result;
}

bool IsMeantAsUtf8(std::string_view bytes) {
  int wide = 0;
  bool everyday = true;
  for (std::size_t at = 0; at < bytes.size();) {
    if (const std::size_t run = PlainRun(bytes, at); run > 0) {
      at += run;
      continue;
    }
    char32_t c = 0;
    const std::size_t length = DecodeUtf8(bytes, at, c);
    if (!IsSequence(c, length)) return false;
    at += length;
    if (length == 2) continue;
    ++wide;
    const std::uint16_t code = CodeOf(c);
    everyday = everyday && code != 0 && code < kSecondLevel;
  }
  return wide > 0 && (!IsCp932(bytes) || (wide >= 3 && everyday));
}

std::string Utf8FromCp932(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const unsigned byte = static_cast<unsigned char>(bytes[i]);
    if (const std::size_t run = PlainRun(bytes, i); run > 0) {
      out.append(bytes, i, run);
      i += run - 1;
    } else if (!IsLead(byte)) {
      AppendUtf8(out, SingleByte(byte));
    } else {
      const int trail = i + 1 < bytes.size() ? TrailIndex(static_cast<unsigned char>(bytes[i + 1])) : -1;
      const char32_t c = trail < 0 ? 0 : DoubleByte(byte, trail);
      AppendUtf8(out, c == 0 ? kMiddleDot : c);
      if (trail >= 0) ++i;  // a byte that can't be a trail byte (a line end, say) stands for itself
    }
  }
  return out;
}

std::string Cp932ForPrint(std::string_view text) {
  return Cp932FromUtf8(WithOwnCharacters(text)).bytes;
}

std::size_t HalfWidth(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t at = 0; at < text.size();) {
    char32_t c = 0;
    at += DecodeUtf8(text, at, c);
    width += ColumnsOf(c);
  }
  return width;
}

std::string_view FrontWithin(std::string_view text, std::size_t width) {
  std::size_t at = 0;
  while (at < text.size()) {
    char32_t c = 0;
    const std::size_t length = DecodeUtf8(text, at, c), columns = ColumnsOf(c);
    if (columns > width) break;
    width -= columns;
    at += length;
  }
  return text.substr(0, at);
}

std::string PadLeft(std::string_view text, std::size_t width) {
  const std::size_t own = HalfWidth(text);
  return std::string(own < width ? width - own : 0, ' ') + std::string(text);
}

std::string PadRight(std::string_view text, std::size_t width) {
  const std::size_t own = HalfWidth(text);
  return std::string(text) + std::string(own < width ? width - own : 0, ' ');
}

std::vector<std::string_view> InPiecesOf(std::string_view text, std::size_t width) {
  std::vector<std::string_view> pieces;
  std::size_t from = 0, filled = 0;
  for (std::size_t at = 0; at < text.size();) {
    char32_t c = 0;
    const std::size_t next = at + DecodeUtf8(text, at, c), own = HalfWidth(text.substr(at, next - at));
    if (at > from && filled + own > width) {
      pieces.push_back(text.substr(from, at - from));
      from = at;
      filled = 0;
    }
    filled += own;
    at = next;
  }
  pieces.push_back(text.substr(from));
  return pieces;
}

}  // namespace zorlan
