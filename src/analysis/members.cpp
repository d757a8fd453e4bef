#include "analysis/members.h"

#include <string>

#include "base/fault.h"
#include "sections/section_properties.h"

namespace zorlan {
namespace {

constexpr int kLastType = 12;

[[noreturn]] void FailElement(const ElemRec& element, const std::string& what) {
  throw Fault("要素番号 " + std::to_string(element.number) + " ： " + what);
}

/// The section constants of each row that an element uses; the others stay empty.
class SectionCache {
 public:
  explicit SectionCache(const ModelRec& model)
      : model_(model), known_(static_cast<std::size_t>(model.SectCount) + 1) {}
  const MemberSection& Of(int row) {
    Entry& entry = known_[static_cast<std::size_t>(row)];
    if (!entry.filled) entry = {true, SectionOf(model_.Sect[row])};
    return entry.section;
  }

 private:
  struct Entry {
    bool filled = false;
    MemberSection section;
  };
  const ModelRec& model_;
  std::vector<Entry> known_;
};

template <class Record>
void RequireNumbersInRange(const Rows<Record>& rows, int count, const char* what) {
  for (int r = 1; r <= count; ++r)
    if (!NumberMap::InRange(rows[r].number))
      throw Fault(std::string(what) + " " + std::to_string(rows[r].number) + " は範囲外です");
}

template <class Inside>
double FirstMagnification(const ModelRec& model, Inside inside) {
  for (int r = 1; r <= model.AlfaCount; ++r)
    if (inside(model.Alfa[r])) return model.Alfa[r].alpha;
  return 1;
}

bool LiesIn(const AlfaRec& row, double x, double tolerance) {
  return !(row.X1 - tolerance > x) && !(row.X2 + tolerance < x);
}

}  // namespace

MemberSection SectionOf(const SectRec& section) {
  if (section.TYPE < 0 || section.TYPE > kLastType)
    throw Fault("断面番号 " + std::to_string(section.number) + " ： TYPE " + std::to_string(section.TYPE) +
                " は定義されていません");
  const SectionConstants constants = SectionProperties(section.TYPE, section.timberSection, section.P1,
                                                       section.P2, section.P3, section.P4, kMmPerM);
  MemberSection result;
  result.A = constants.A;
  result.As = constants.As;
  result.kappa = constants.kappa;
  result.I = section.TYPE >= 1 ? constants.I * section.phi : constants.I;
  result.E = section.E;
  result.G = section.G;
  result.P2 = section.P2;
  return result;
}

double MagnificationAt(const ModelRec& model, double x, double tolerance) {
  return FirstMagnification(model, [&](const AlfaRec& row) { return LiesIn(row, x, tolerance); });
}

double MagnificationBetween(const ModelRec& model, double xi, double xj, double tolerance) {
  return FirstMagnification(
      model, [&](const AlfaRec& row) { return LiesIn(row, xi, tolerance) && LiesIn(row, xj, tolerance); });
}

std::vector<Member> CollectMembers(const ModelRec& model) {
  RequireNumbersInRange(model.Node, model.NodeCount, "節点番号");
  RequireNumbersInRange(model.Elem, model.ElemCount, "要素番号");
  RequireNumbersInRange(model.Sect, model.SectCount, "断面番号");
  RequireNumbersInRange(model.Rigd, model.RigdCount, "剛域タイプ番号");
  const NumberMap nodes(model.Node, model.NodeCount);
  const NumberMap sections(model.Sect, model.SectCount);
  const NumberMap rigids(model.Rigd, model.RigdCount);
  SectionCache cache(model);

  std::vector<Member> members;
  members.reserve(static_cast<std::size_t>(model.ElemCount));
  for (int r = 1; r <= model.ElemCount; ++r) {
    const ElemRec& element = model.Elem[r];
    Member member;
    member.number = element.number;
    member.rowI = nodes.Row(element.I);
    member.rowJ = nodes.Row(element.J);
    for (const auto& [row, number] : {std::pair(member.rowI, element.I), std::pair(member.rowJ, element.J)})
      if (row == 0) FailElement(element, "節点番号 " + std::to_string(number) + " が存在しません");
    member.L = element.length;
    if (member.L == 0) FailElement(element, "部材長が０です");
    const NodeRec& i = model.Node[member.rowI];
    const NodeRec& j = model.Node[member.rowJ];
    member.xi = i.X;
    member.yi = i.Y;
    member.xj = j.X;
    member.yj = j.Y;
    member.c = (j.X - i.X) / member.L;
    member.s = (j.Y - i.Y) / member.L;
    member.II = element.II;
    member.JJ = element.JJ;
    const int sectionRow = sections.Row(element.section);
    if (sectionRow == 0)
      FailElement(element, "断面番号 " + std::to_string(element.section) + " が存在しません");
    member.section = cache.Of(sectionRow);
    if (const int rigid = element.rigid == 0 ? 0 : rigids.Row(element.rigid); rigid != 0) {
      member.lambdaI = model.Rigd[rigid].lambdaI;
      member.lambdaJ = model.Rigd[rigid].lambdaJ;
    }
    members.push_back(member);
  }
  return members;
}

std::vector<NodeSpring> CollectSprings(const ModelRec& model) {
  constexpr double kPerMFromPerCm = 100;   // t/cm -> t/m
  constexpr double kTonMFromTonCm = 0.01;  // t*cm/rad -> t*m/rad
  const double second = model.ModelCode == kPlaneGrid ? kTonMFromTonCm : kPerMFromPerCm;
  const NumberMap nodes(model.Node, model.NodeCount);
  std::vector<NodeSpring> springs;
  for (int r = 1; r <= model.SprgCount; ++r) {
    const SprgRec& spring = model.Sprg[r];
    const int row = nodes.Row(spring.node);
    if (row != 0)
      springs.push_back({row, {kPerMFromPerCm * spring.K1, second * spring.K2, kTonMFromTonCm * spring.K3}});
  }
  return springs;
}

}  // namespace zorlan
