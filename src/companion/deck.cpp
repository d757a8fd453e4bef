#include "companion/deck.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "base/fault.h"
#include "base/text.h"

namespace zorlan::companion {
namespace {

constexpr std::string_view kVersion = "%Ver.4";
constexpr std::size_t kVersionColumn = 86;
constexpr std::string_view kEndOfBeams = "0        -1";
constexpr std::string_view kEndOfCase = "         1";
constexpr int kBeamGroup = 2, kBoundaryGroup = 7;
constexpr int kGroups = 2, kLoadCases = 1;
constexpr int kFixity[] = {0, 1, 0, 1, 0, 1};
constexpr std::size_t kIntegerWidth = 5, kRealWidth = 10;

/// One line, with its columns from 1. A blank field is 0.
class Line {
 public:
  Line(std::string_view text, int number) : text_(text), number_(number) {}

  [[noreturn]] void Fail(const std::string& what) const {
    throw Fault(std::to_string(number_) + "行目 ： " + what);
  }
  std::string_view Columns(std::size_t column, std::size_t width) const {
    return column > text_.size() ? std::string_view() : text_.substr(column - 1, width);
  }
  int Integer(std::size_t column) const { return Number<int>(column, kIntegerWidth, "整数"); }
  double Real(std::size_t column) const {
    const double value = Number<double>(column, kRealWidth, "実数");
    if (!std::isfinite(value)) Fail("数値が範囲を超えています");
    return value;
  }
  /// An integer from `lowest` to `highest`.
  int Integer(std::size_t column, int lowest, int highest, const char* what) const {
    const int value = Integer(column);
    if (value < lowest || value > highest)
      Fail(std::string(what) + " " + std::to_string(value) + " が範囲外です");
    return value;
  }
  double RealFrom(std::size_t column, double lowest, const char* what) const {
    const double value = Real(column);
    if (value < lowest) Fail(std::string(what) + "が範囲外です");
    return value;
  }
  /// A row's number, which must be its place in the table.
  void RequireNumber(std::size_t place) const {
    if (Integer(1) != static_cast<int>(place)) Fail("番号が " + std::to_string(place) + " ではありません");
  }
  bool IsEmpty() const { return NoSpc(text_).empty(); }
  std::string_view Text() const { return text_; }

 private:
  template <class Value>
  Value Number(std::size_t column, std::size_t width, const char* what) const {
    const std::string_view field = NoSpc(Columns(column, width));
    Value value = 0;
    if (field.empty()) return value;
    const std::from_chars_result result = std::from_chars(field.data(), field.data() + field.size(), value);
    if (result.ec != std::errc() || result.ptr != field.data() + field.size())
      Fail(std::to_string(column) + "桁目が" + what + "ではありません");
    return value;
  }
  std::string_view text_;
  int number_;
};

class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  Deck Read() {
    ReadHead();
    ReadBeamGroup();
    ReadBoundaryGroup();
    ReadNodalLoads();
    ReadEnd();
    return std::move(deck_);
  }

 private:
  struct ActionPair {
    EndAction I{}, J{};
  };

  Line Next() {
    ++number_;
    const std::optional<std::string_view> line = TakeLine(rest_);
    if (!line) throw Fault(std::to_string(number_) + "行目 ： 入力データが途中で終わっています");
    return Line(*line, number_);
  }
  /// How many lines a table has.
  int Count(const Line& line, std::size_t column, int lowest) const {
    const int count = line.Integer(column);
    if (count < lowest) line.Fail("個数 " + std::to_string(count) + " が正しくありません");
    return count;
  }

  void ReadHead();
  void ReadNode();
  void ReadBeamGroup();
  void ReadMaterial();
  void ReadSection();
  EndAction ReadAction(const Line& line) const { return {line.Real(6), line.Real(26), -line.Real(46)}; }
  void ReadBeam(const std::vector<ActionPair>& actions);
  EndCode ReadEndCode(const Line& line, std::size_t column) const;
  void ReadBoundaryGroup();
  void ReadBoundary();
  void ReadNodalLoads();
  void ReadEnd();
  int NodeAt(const Line& line, std::size_t column) const {
    return line.Integer(column, 1, static_cast<int>(deck_.nodes.size()), "節点番号") - 1;
  }

  std::string_view rest_;
  int number_ = 0;
  Deck deck_;
};

void Reader::ReadHead() {
  const Line version = Next();
  if (!NoSpc(version.Columns(1, kVersionColumn - 1)).empty() ||
      NoSpc(version.Columns(kVersionColumn, version.Text().size())) != kVersion)
    version.Fail("入力データの版が " + std::string(kVersion) + " ではありません");
  const Line control = Next();
  const int nodes = Count(control, 1, 1);
  if (control.Integer(6) != kGroups || control.Integer(11) != kLoadCases)
    control.Fail("要素グループ数または荷重ケース数が正しくありません");
  for (int n = 0; n < nodes; ++n) ReadNode();
  deck_.loads.resize(deck_.nodes.size());
}

void Reader::ReadNode() {
  const Line line = Next();
  line.RequireNumber(deck_.nodes.size() + 1);
  for (std::size_t d = 0; d < 6; ++d)
    if (line.Integer(6 + kIntegerWidth * d) != kFixity[d]) line.Fail("平面骨組みの節点ではありません");
  deck_.nodes.push_back({line.Real(36), line.Real(56)});
}

void Reader::ReadBeamGroup() {
  const Line head = Next();
  if (head.Integer(1) != kBeamGroup) head.Fail("梁要素グループではありません");
  const int beams = Count(head, 6, 0), materials = Count(head, 11, 0), sections = Count(head, 16, 0),
            pairs = Count(head, 21, 0);
  for (int m = 0; m < materials; ++m) ReadMaterial();
  for (int s = 0; s < sections; ++s) ReadSection();
  for (int empty = 0; empty < 3; ++empty)
    if (const Line line = Next(); !line.IsEmpty()) line.Fail("空行ではありません");
  std::vector<ActionPair> actions;
  for (int p = 0; p < pairs; ++p) {
    const Line first = Next();
    first.RequireNumber(actions.size() + 1);
    const EndAction I = ReadAction(first);
    actions.push_back({I, ReadAction(Next())});
  }
  for (int b = 0; b < beams; ++b) ReadBeam(actions);
  if (const Line end = Next(); NoSpc(end.Text()) != kEndOfBeams)
    end.Fail("梁要素グループの終わりではありません");
}

void Reader::ReadMaterial() {
  const Line line = Next();
  line.RequireNumber(deck_.materials.size() + 1);
  deck_.materials.push_back({line.RealFrom(6, 0, "ヤング係数"), line.RealFrom(16, -1, "ポアソン比")});
}

void Reader::ReadSection() {
  const Line line = Next();
  line.RequireNumber(deck_.sections.size() + 1);
  deck_.sections.push_back({line.RealFrom(6, 0, "断面積"), line.RealFrom(26, 0, "せん断断面積"),
                            line.RealFrom(46, 0, "断面２次モーメント")});
}

EndCode Reader::ReadEndCode(const Line& line, std::size_t column) const {
  struct Entry {
    std::string_view text;
    EndCode code;
  };
  constexpr Entry kCodes[] = {
      {"000000", EndCode::Rigid}, {"000010", EndCode::Pin}, {"000090", EndCode::Link}};
  const std::string_view text = line.Columns(column, 6);
  for (const Entry& entry : kCodes)
    if (entry.text == text) return entry.code;
  line.Fail("材端条件が正しくありません");
}

void Reader::ReadBeam(const std::vector<ActionPair>& actions) {
  const Line line = Next();
  line.RequireNumber(deck_.beams.size() + 1);
  Beam beam;
  beam.nodeI = NodeAt(line, 6);
  beam.nodeJ = NodeAt(line, 11);
  beam.material = line.Integer(16, 1, static_cast<int>(deck_.materials.size()), "材料番号") - 1;
  beam.section = line.Integer(21, 1, static_cast<int>(deck_.sections.size()), "断面番号") - 1;
  const int pairs = static_cast<int>(actions.size());
  const int loadI = line.Integer(26, 0, pairs, "荷重番号"), loadJ = line.Integer(31, 0, pairs, "荷重番号");
  if (loadI != 0) beam.actionI = actions[static_cast<std::size_t>(loadI - 1)].I;
  if (loadJ != 0) beam.actionJ = actions[static_cast<std::size_t>(loadJ - 1)].J;
  beam.endI = ReadEndCode(line, 51);
  beam.endJ = ReadEndCode(line, 57);
  if ((beam.endI == EndCode::Link) != (beam.endJ == EndCode::Link)) line.Fail("材端条件が正しくありません");
  const Node &I = At(deck_.nodes, beam.nodeI), &J = At(deck_.nodes, beam.nodeJ);
  if (beam.nodeI == beam.nodeJ || (!beam.IsLink() && I.x == J.x && I.z == J.z)) line.Fail("部材長が０です");
  deck_.beams.push_back(beam);
}

void Reader::ReadBoundaryGroup() {
  const Line head = Next();
  if (head.Integer(1) != kBoundaryGroup) head.Fail("境界要素グループではありません");
  const int count = Count(head, 6, 0);
  for (int b = 0; b < count; ++b) ReadBoundary();
}

void Reader::ReadBoundary() {
  const Line line = Next();
  Boundary element;
  element.node = NodeAt(line, 1);
  const int kind = line.Integer(6, 1, 2, "境界要素の種別");
  element.kind = kind == 1 ? Boundary::Kind::Displacement : Boundary::Kind::Rotation;
  const int code = line.Integer(11, 0, 4, "境界要素の条件");
  if (code == 3) line.Fail("境界要素の条件 3 が範囲外です");
  element.code = static_cast<Boundary::Code>(code);
  element.prescribed = line.Real(41);
  element.stiffness = line.RealFrom(51, 0, "ばね定数");

  const Line values = Next();
  const double X = values.Real(1), Y = values.Real(11), Z = values.Real(21);
  const bool rotation = element.kind == Boundary::Kind::Rotation;
  const double length = rotation ? std::abs(Y) : std::hypot(X, Z);
  if (!(length > 0) || !std::isfinite(length) || (rotation ? X != 0 || Z != 0 : Y != 0))
    values.Fail("境界要素の方向が正しくありません");
  if (rotation)
    element.direction[2] = -Y / length;
  else
    element.direction = {X / length, Z / length, 0};
  deck_.boundaries.push_back(element);
}

void Reader::ReadNodalLoads() {
  for (Line line = Next(); !line.IsEmpty(); line = Next()) {
    std::array<double, 3>& load = deck_.loads[static_cast<std::size_t>(NodeAt(line, 1))];
    if (line.Integer(6) != kLoadCases) line.Fail("荷重ケースが正しくありません");
    load[0] += line.Real(11);
    load[1] += line.Real(31);
    load[2] -= line.Real(51);
  }
}

void Reader::ReadEnd() {
  const Line end = Next();
  if (!end.Text().starts_with(kEndOfCase) || NoSpc(end.Text()) != NoSpc(kEndOfCase))
    end.Fail("入力データの終わりではありません");
  while (!rest_.empty())
    if (const Line line = Next(); !line.IsEmpty()) line.Fail("入力データの終わりより後にデータがあります");
}

}  // namespace

Deck ReadDeck(std::string_view bytes) {
  return Reader(bytes).Read();
}

}  // namespace zorlan::companion
