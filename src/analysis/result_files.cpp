#include "analysis/result_files.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "analysis/run_progress.h"
#include "base/fault.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_rec.h"

namespace zorlan {
namespace {

constexpr bool IsSeparator(char c) {
  return c == ' ' || c == ',' || c == '\r' || c == '\n' || c == '\t';
}

/// Free-form number input over a file, a piece of it at a time.
class NumberReader {
 public:
  explicit NumberReader(const std::string& path) : file_(path), piece_(kPiece) {}

  double Next() {
    SkipSeparators();
    if (end_ - at_ < kLongestNumber) Refill();  // the number may go on behind this piece
    if (at_ == end_) Refuse("ファイルが途中で終わっています");
    double value = 0;
    const std::from_chars_result result = std::from_chars(at_, end_, value);
    if (result.ec != std::errc() || (result.ptr != end_ && !IsSeparator(*result.ptr)) ||
        !std::isfinite(value))
      Refuse("数値でないデータがあります");
    at_ = result.ptr;
    // Every writer sets something behind a number: one that the file's end cuts off may have had more digits.
    if (at_ == end_ && !Refill()) Refuse("ファイルが途中で終わっています");
    if (!IsSeparator(*at_)) Refuse("数値でないデータがあります");
    return value;
  }

  /// A whole number from 0 to `limit`.
  int NextCount(int limit) {
    const double value = Next();
    if (value < 0 || value > limit || value != std::trunc(value)) Refuse("データの個数が正しくありません");
    return static_cast<int>(value);
  }

  /// Refuses a file that goes on.
  void ExpectEnd() {
    SkipSeparators();
    if (at_ != end_) Refuse("データの個数が正しくありません");
  }

  /// Refuses a file that can't hold so many numbers.
  void Expect(std::size_t count) {
    if (count > file_.Size()) Refuse("ファイルが途中で終わっています");
  }

 private:
  static constexpr std::size_t kPiece = std::size_t{1} << 16U;
  static constexpr std::ptrdiff_t kLongestNumber = 400;

  [[noreturn]] void Refuse(const char* reason) { throw FileFault(file_.Path(), reason); }

  void SkipSeparators() {
    for (;;) {
      while (at_ != end_ && IsSeparator(*at_)) ++at_;
      if (at_ != end_ || !Refill()) return;
    }
  }

  /// Moves what is left to the front and reads on behind it; false at the file's end.
  bool Refill() {
    const auto left = static_cast<std::size_t>(end_ - at_);
    if (left > 0) std::memmove(piece_.data(), at_, left);
    const std::size_t got = file_.Read(piece_.data() + left, piece_.size() - left);
    at_ = piece_.data();
    end_ = at_ + left + got;
    return got > 0;
  }

  FileReader file_;
  std::vector<char> piece_;
  const char* at_ = nullptr;
  const char* end_ = nullptr;
};

constexpr int kHighestNodeNumber = 5000;
constexpr std::size_t kValuesBetweenTells = std::size_t{1} << 14;

void WriteLines(const std::string& path, std::span<const double> values) {
  FileWriter file(path);
  std::size_t written = 0;
  for (const double value : values) {
    AppendPrinted(file.Buffer(), value);
    file.Buffer() += kLineEnd;
    file.Drain();
    if (++written % kValuesBetweenTells == 0) SayGoingOn();
  }
  file.Commit();
}

}  // namespace

std::vector<double> ReadReals(const std::string& path, std::size_t count, Behind behind) {
  NumberReader reader(path);
  reader.Expect(count);
  std::vector<double> values(count);
  for (std::size_t i = 0; i < count; ++i) {
    values[i] = reader.Next();
    if ((i + 1) % kValuesBetweenTells == 0) SayGoingOn();
  }
  if (behind == Behind::Nothing) reader.ExpectEnd();
  return values;
}

Reactions ReadReactions(const std::string& folder) {
  NumberReader index(folder + "FT022A");
  Reactions reactions;
  reactions.cases = index.NextCount(kMaxLoadCases);
  reactions.nodes.resize(static_cast<std::size_t>(index.NextCount(kMaxNodes)));
  for (int& node : reactions.nodes) node = index.NextCount(kHighestNodeNumber);
  index.ExpectEnd();
  NumberReader reader(folder + "FT022");
  const std::size_t records = static_cast<std::size_t>(reactions.cases) * reactions.nodes.size();
  reader.Expect(records * 4);
  reactions.values.reserve(records * 3);
  for (int c = 1; c <= reactions.cases; ++c)
    for (std::size_t s = 0; s < reactions.nodes.size(); ++s) {
      reader.Next();  // the node's number again
      for (int d = 0; d < 3; ++d) reactions.values.push_back(reader.Next());
    }
  reader.ExpectEnd();
  return reactions;
}

Reactions ReadReactions(const std::string& folder, int cases) {
  Reactions reactions = ReadReactions(folder);
  if (reactions.cases != cases) throw FileFault(folder + "FT022A", "荷重ケース数がモデルと一致しません");
  return reactions;
}

void WriteDisplacements(const std::string& folder, std::span<const double> values) {
  WriteLines(folder + "FT021", values);
}

void WriteForces(const std::string& folder, std::span<const double> values) {
  WriteLines(folder + "FT031", values);
}

void WriteReactions(const std::string& folder, const Reactions& reactions, ReactionLines lines) {
  const std::string_view separator = lines == ReactionLines::Four ? kLineEnd : std::string_view();
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
      text += kLineEnd;
      file.Drain();
    }
  SayGoingOn();
  file.Commit();

  std::vector<double> index = {static_cast<double>(reactions.cases),
                               static_cast<double>(reactions.nodes.size())};
  index.insert(index.end(), reactions.nodes.begin(), reactions.nodes.end());
  WriteLines(folder + "FT022A", index);
}

}  // namespace zorlan
