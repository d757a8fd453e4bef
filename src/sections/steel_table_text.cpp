#include "sections/steel_table_text.h"

#include <cmath>
#include <unordered_map>

#include "base/number.h"
#include "base/text.h"
#include "sections/table_lines.h"

namespace zorlan {
namespace {

/// Hands over each row up to the line that ends them. Answers the text from that line on.
template <class Take>
std::string_view ForEachRow(std::string_view text, Take take) {
  SkipTableHead(text);
  std::string_view tail = text;
  while (const std::optional<std::string_view> line = TakeLine(text)) {
    std::string_view fields = *line;
    if (ReadReal(TakeCell(fields)) == 0) return tail;
    take(*line);
    tail = text;
  }
  return {};
}

/// The general number form. Nearly every dimension has at most two decimals: those are put down from their
/// hundredths, which is ten times as fast as the general printing. The bound is half of the last of fifteen
/// digits less the rounding of the product, so both ways give one text.
void AppendDimension(std::string& out, double mm) {
  const double product = mm * 100;
  const double nearest = std::nearbyint(product);
  if (!(nearest > 0 && nearest < 1e9 && std::abs(product - nearest) <= 2e-16 * nearest)) {
    AppendReal(out, mm);
    return;
  }
  const int hundredths = static_cast<int>(nearest);
  char digits[10];
  int n = 0;
  for (int whole = hundredths / 100; whole > 0 || n == 0; whole /= 10)
    digits[n++] = static_cast<char>('0' + whole % 10);
  while (n > 0) out += digits[--n];
  const int decimals = hundredths % 100;
  if (decimals == 0) return;
  out += '.';
  out += static_cast<char>('0' + decimals / 10);
  if (decimals % 10 != 0) out += static_cast<char>('0' + decimals % 10);
}

SteelRow ParseRow(SteelFamily family, std::string_view line) {
  const SteelFamilyForm& form = FormOf(family);
  SteelRow row;
  for (std::size_t i = 0; i < form.columns.size(); ++i) {
    const std::string_view field = TakeCell(line);
    row.values[i] = form.columns[i].whole ? ReadInt16(field).value_or(0) : ReadReal(field);
  }
  row.name = SteelSectionName(family, row.values);
  return row;
}

/// The cells of a line, trimmed, as many as the family has columns or more if the line has more.
std::string TrimmedLine(SteelFamily family, std::string_view line) {
  std::string text;
  const std::size_t columns = FormOf(family).columns.size();
  for (std::size_t i = 0; i < columns || !line.empty(); ++i) {
    if (i > 0) text += ',';
    text += TakeCell(line);
  }
  return text;
}

/// The sheet in which a merge works.
class WorkingTable {
 public:
  explicit WorkingTable(SteelFamily family) : family_(family) {}

  void Append(std::string_view line) { Append(line, ParseRow(family_, line).name); }
  void Merge(std::string_view line) {
    std::string name = ParseRow(family_, line).name;
    if (const auto found = firstOfName_.find(name); found != firstOfName_.end())
      lines_[found->second] = TrimmedLine(family_, line);
    else
      Append(line, std::move(name));
  }
  const std::vector<std::string>& Lines() const { return lines_; }
  int WithoutPlace() const { return withoutPlace_; }

 private:
  void Append(std::string_view line, std::string name) {
    if (lines_.size() == kMaxSteelRows) {
      ++withoutPlace_;
      return;
    }
    firstOfName_.emplace(std::move(name), lines_.size());
    lines_.push_back(TrimmedLine(family_, line));
  }

  SteelFamily family_;
  std::vector<std::string> lines_;
  std::unordered_map<std::string, std::size_t> firstOfName_;
  int withoutPlace_ = 0;
};

}  // namespace

std::string SteelSectionName(SteelFamily family, std::span<const double> dimensions, double scale) {
  const SteelFamilyForm& form = FormOf(family);
  std::string name(form.word);
  for (std::size_t i = 0; i < form.keyColumns; ++i) {
    name += i == 0 ? '-' : 'x';
    AppendDimension(name, dimensions[i] * scale);
  }
  return name;
}

std::vector<SteelRow> ParseSteelRows(SteelFamily family, std::string_view bytes) {
  std::vector<SteelRow> rows;
  ForEachRow(bytes, [&](std::string_view line) { rows.push_back(ParseRow(family, line)); });
  return rows;
}

int UnreadSteelRows(std::string_view bytes) {
  return CountUnreadRows(ForEachRow(bytes, [](std::string_view) {}));
}

MergedSteelTable MergeSteelTables(SteelFamily family, std::string_view main, std::string_view supplement) {
  WorkingTable table(family);
  const std::string_view tail = ForEachRow(main, [&](std::string_view line) { table.Append(line); });
  const std::string_view unread = ForEachRow(supplement, [&](std::string_view line) { table.Merge(line); });

  MergedSteelTable merged;
  merged.rows = static_cast<int>(table.Lines().size());
  merged.withoutPlace = table.WithoutPlace();
  merged.unread = CountUnreadRows(unread);
  for (int i = 0; i < kTableHeadLines; ++i) {
    merged.bytes += TakeLine(main).value_or("");
    merged.bytes += kLineEnd;
  }
  for (const std::string& line : table.Lines()) {
    merged.bytes += line;
    merged.bytes += kLineEnd;
  }
  merged.bytes += tail;
  return merged;
}

}  // namespace zorlan
