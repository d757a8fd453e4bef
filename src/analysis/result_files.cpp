#include "analysis/result_files.h"

#include <charconv>
#include <cmath>

#include "base/fault.h"
#include "base/number.h"
#include "base/text_file.h"
#include "model/model_rec.h"

namespace zorlan {
namespace {

constexpr bool IsSeparator(char c) {
  return c == ' ' || c == ',' || c == '\r' || c == '\n' || c == '\t';
}

/// Free-form number input over a file's text.
class NumberReader {
 public:
  explicit NumberReader(std::string path) : path_(std::move(path)), text_(ReadBytes(path_)) {}

  double Next() {
    const char* at = text_.data() + place_;
    const char* const end = text_.data() + text_.size();
    while (at != end && IsSeparator(*at)) ++at;
    if (at == end) throw FileFault(path_, "ファイルが途中で終わっています");
    double value = 0;
    const std::from_chars_result result = std::from_chars(at, end, value);
    if (result.ec != std::errc() || (result.ptr != end && !IsSeparator(*result.ptr)) || !std::isfinite(value))
      throw FileFault(path_, "数値でないデータがあります");
    place_ = static_cast<std::size_t>(result.ptr - text_.data());
    return value;
  }

  /// A whole number from 0 to `limit`.
  int NextCount(int limit) {
    const double value = Next();
    if (value < 0 || value > limit || value != std::trunc(value))
      throw FileFault(path_, "データの個数が正しくありません");
    return static_cast<int>(value);
  }

 private:
  std::string path_;
  std::string text_;
  std::size_t place_ = 0;
};

constexpr int kHighestNodeNumber = 5000;

void WriteLines(const std::string& path, std::span<const double> values) {
  FileWriter file(path);
  for (const double value : values) {
    AppendPrinted(file.Buffer(), value);
    file.Buffer() += "\r\n";
    file.Drain();
  }
  file.Commit();
}

}  // namespace

std::vector<double> ReadReals(const std::string& path, std::size_t count) {
  NumberReader reader(path);
  std::vector<double> values(count);
  for (double& value : values) value = reader.Next();
  return values;
}

Reactions ReadReactions(const std::string& folder) {
  NumberReader index(folder + "FT022A");
  Reactions reactions;
  reactions.cases = index.NextCount(kMaxLoadCases);
  reactions.nodes.resize(static_cast<std::size_t>(index.NextCount(kMaxNodes)));
  for (int& node : reactions.nodes) node = index.NextCount(kHighestNodeNumber);
  NumberReader reader(folder + "FT022");
  reactions.values.reserve(static_cast<std::size_t>(reactions.cases) * reactions.nodes.size() * 3);
  for (int c = 1; c <= reactions.cases; ++c)
    for (std::size_t s = 0; s < reactions.nodes.size(); ++s) {
      reader.Next();  // the node's number again
      for (int d = 0; d < 3; ++d) reactions.values.push_back(reader.Next());
    }
  return reactions;
}

void WriteDisplacements(const std::string& folder, std::span<const double> values) {
  WriteLines(folder + "FT021", values);
}

void WriteForces(const std::string& folder, std::span<const double> values) {
  WriteLines(folder + "FT031", values);
}

void WriteReactions(const std::string& folder, const Reactions& reactions, ReactionLines lines) {
  const std::string_view separator = lines == ReactionLines::Four ? "\r\n" : "";
  FileWriter file(folder + "FT022");
  std::string& text = file.Buffer();
  const double* value = reactions.values.data();
  for (int c = 1; c <= reactions.cases; ++c)
    for (const int node : reactions.nodes) {
      AppendPrinted(text, node);
      for (int d = 0; d < 3; ++d) {
        text += separator;
        AppendPrinted(text, *value++);
      }
      text += "\r\n";
      file.Drain();
    }
  file.Commit();

  std::vector<double> index = {static_cast<double>(reactions.cases),
                               static_cast<double>(reactions.nodes.size())};
  index.insert(index.end(), reactions.nodes.begin(), reactions.nodes.end());
  WriteLines(folder + "FT022A", index);
}

}  // namespace zorlan
