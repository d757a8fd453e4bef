#include "analysis/external_tables.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <utility>

#include "analysis/member_load_terms.h"
#include "analysis/members.h"
#include "base/fault.h"
#include "sections/section_properties.h"

namespace zorlan {
namespace {

constexpr int kInMemoryNodes = 29;  // more nodes take the file road's tolerance
constexpr double kMmPerM = 1000;    // the unit that the section tables are kept in
constexpr double kNone = 1e-14;     // stands for a shear area or an inertia that the section doesn't have
constexpr double kHelperE = 7e12;   // t/m2
constexpr double kHelperNu = 0.3;
constexpr double kHelperA = 0.25;    // m2
constexpr double kHelperI = 0.0052;  // m4
constexpr double kCmPerM = 100;
constexpr int kHighestDeckNumber = 99999;  // five columns

/// Poisson's ratio that makes E / (2 (1 + ν)) the shear modulus.
double PoissonRatio(double E, double G) {
  if (G == 0) return 0.5;
  const double nu = E / (2 * G) - 1;
  return nu < -1 ? -0.5 : nu;
}

/// A, effective shear area and inertia of a section, 0 where it has none.
ExtSection PlainSection(const SectRec& section) {
  ExtSection result;
  result.modelSection = section.number;
  if (section.TYPE < 0 || section.TYPE > 12) return result;  // no element uses it
  const SectionConstants constants = SectionProperties(section.TYPE, section.timberSection, section.P1,
                                                       section.P2, section.P3, section.P4, kMmPerM);
  result.A = constants.A;
  if (section.G > 0 && constants.As > 0) result.As = constants.As / constants.kappa;
  // The inertia by TYPE, not the section's own choice: a weak angle (12) comes with its strong axis.
  const bool weak = section.TYPE == 5 || section.TYPE == 6 || section.TYPE == 8 || section.TYPE == 10;
  result.I = weak ? constants.Iy : constants.Ix;
  if (section.TYPE >= 1 && section.phi != 0) result.I *= section.phi;
  return result;
}

ExtSection WithoutZeros(ExtSection section) {
  if (section.As <= 0) section.As = kNone;
  if (section.I <= 0) section.I = kNone;
  return section;
}

struct Point {
  double x, y;
};

Point Between(const Member& member, double share) {
  return {member.xi + share * (member.xj - member.xi), member.yi + share * (member.yj - member.yi)};
}

/// End actions of all loads on a member in one case.
struct EndActions {
  std::array<double, 3> I{}, J{};  // N, Q, C
  void Add(const LoadTerms& t) {
    const std::array<double, 3> termsI{t.Ni, t.Qi, t.Ci}, termsJ{t.Nj, t.Qj, t.Cj};
    for (std::size_t k = 0; k < 3; ++k) {
      I[k] += termsI[k];
      J[k] += termsJ[k];
    }
  }
  bool Any() const {
    const auto isNotZero = [](double value) { return value != 0; };
    return std::any_of(I.begin(), I.end(), isNotZero) || std::any_of(J.begin(), J.end(), isNotZero);
  }
};

std::vector<EndActions> CollectEndActions(const ModelRec& model, const std::vector<Member>& members,
                                          int loadCase) {
  std::vector<EndActions> actions(members.size());
  const NumberMap elements(model.Elem, model.ElemCount);
  const auto forEach = [&](const auto& loads, int count, auto terms) {
    for (int r = 1; r <= count; ++r) {
      const int row = elements.Row(loads[r].element);
      if (row == 0 || loads[r].loadCase != loadCase) continue;
      const auto place = static_cast<std::size_t>(row - 1);
      actions[place].Add(terms(loads[r], members[place]));
    }
  };
  forEach(model.Elod, model.ElodCount, [](const ElodRec& load, const Member& member) {
    return MemberLoadTerms(AsLoaded(member), load.TYPE, load.P * load.K, load.Ly, load.MG);
  });
  forEach(model.Clod, model.ClodCount, [](const ClodRec& load, const Member& member) {
    return CmqTerms(load, member, EndMoments::Turned);
  });
  forEach(model.Tlod, model.TlodCount, [](const TlodRec& load, const Member& member) {
    return TemperatureTerms(load, member, /*grid=*/false);
  });
  return actions;
}

/// Builds the tables of one case, one table after the other.
class TableBuilder {
 public:
  TableBuilder(const ModelRec& model, int loadCase)
      : model_(model),
        loadCase_(loadCase),
        tolerance_(MagnificationTolerance(model)),
        members_(CollectMembers(model)),
        actions_(CollectEndActions(model, members_, loadCase)),
        nodes_(model.Node, model.NodeCount),
        sections_(model.Sect, model.SectCount) {}

  ExternalTables Build() {
    AddModelNodes();
    AddMaterials();
    AddSections();
    for (int row = 1; row <= model_.ElemCount; ++row) AddElement(row);
    AddLinks();
    AddHelperSection();
    AddNodalLoads();
    AddSupports();
    RequireDeckNumbers();
    return std::move(tables_);
  }

 private:
  void AddModelNodes();
  void AddMaterials();
  void AddSections();
  void AddHelperSection();
  void AddElement(int row);
  int AddRigidZone(int node, Point face, int endCode, bool atEndJ);
  int ZonedSection(int sectionRow, const Member& member);
  void AddLoads(ExtBeam& first, ExtBeam& last, const Member& member, const EndActions& actions,
                const ExtElement& arms);
  void AddLinks();
  void AddNodalLoads();
  void AddSupports();
  void AddSupport(int row, const std::array<double, 3>& moved, const std::array<double, 3>& spring);
  void AddRoller(int row, const std::array<double, 3>& moved);
  void RequireDeckNumbers() const;

  int AddNode(int modelNumber, Point at) {
    const int number = static_cast<int>(tables_.ExtNodes.size()) + 1;
    tables_.ExtNodes.push_back({number, modelNumber, at.x, at.y});
    return number;
  }
  ExtBeam& AddBeam(const ExtBeam& beam) {
    tables_.ExtBeams.push_back(beam);
    tables_.ExtBeams.back().number = static_cast<int>(tables_.ExtBeams.size());
    return tables_.ExtBeams.back();
  }
  double MagnificationOf(int nodeRow) const {
    return MagnificationAt(model_, model_.Node[nodeRow].X, tolerance_);
  }
  double MagnificationOf(const Member& member) const {
    return MagnificationBetween(model_, member.xi, member.xj, tolerance_);
  }
  /// The material of a section that carries the factor of a member; its section stays plain, so that the
  /// factor counts once.
  int MagnifiedMaterial(int sectionRow, double magnification) const;
  int HelperMaterial() const { return (model_.AlfaCount + 1) * model_.SectCount + 1; }

  const ModelRec& model_;
  const int loadCase_;
  const double tolerance_;
  const std::vector<Member> members_;
  const std::vector<EndActions> actions_;
  const NumberMap nodes_, sections_;
  std::vector<ExtSection> plainSections_;               // by section row, from 0, zeros kept
  std::map<std::array<double, 2>, int> zonedSections_;  // by section row and flexible share
  std::vector<std::size_t>
      helperBeams_;  // whose section number is known once the helper section stands, last
  ExternalTables tables_;
};

void TableBuilder::AddModelNodes() {
  for (int row = 1; row <= model_.NodeCount; ++row) {
    const NodeRec& node = model_.Node[row];
    AddNode(node.number, {node.X, node.Y});
  }
}

// The tables of materials and sections hold every section plain and then once for each magnification row.

void TableBuilder::AddMaterials() {
  std::vector<ExtMaterial>& materials = tables_.ExtMaterials;
  const auto number = [&] { return static_cast<int>(materials.size()) + 1; };
  for (int k = 0; k <= model_.AlfaCount; ++k)
    for (int row = 1; row <= model_.SectCount; ++row) {
      const SectRec& section = model_.Sect[row];
      const double factor = k == 0 ? 1 : model_.Alfa[k].alpha;
      materials.push_back({number(), section.number, factor * section.E, PoissonRatio(section.E, section.G)});
    }
  materials.push_back({number(), 0, kHelperE, kHelperNu});
}

void TableBuilder::AddSections() {
  for (int row = 1; row <= model_.SectCount; ++row) plainSections_.push_back(PlainSection(model_.Sect[row]));
  for (int k = 0; k <= model_.AlfaCount; ++k)
    for (ExtSection section : plainSections_) {
      const double factor = k == 0 ? 1 : model_.Alfa[k].alpha;
      section.A *= factor;
      section.As *= factor;
      section.I *= factor;
      section.number = static_cast<int>(tables_.ExtSections.size()) + 1;
      tables_.ExtSections.push_back(WithoutZeros(section));
    }
}

void TableBuilder::AddHelperSection() {
  ExtSection helper;
  helper.number = static_cast<int>(tables_.ExtSections.size()) + 1;
  helper.A = kHelperA;
  helper.I = kHelperI;
  tables_.ExtSections.push_back(helper);
  for (const std::size_t place : helperBeams_) tables_.ExtBeams[place].section = helper.number;
}

int TableBuilder::MagnifiedMaterial(int sectionRow, double magnification) const {
  for (int k = 1; k <= model_.AlfaCount && magnification != 1; ++k)
    if (model_.Alfa[k].alpha == magnification) return k * model_.SectCount + sectionRow;
  return sectionRow;
}

/// The section of a member between its rigid zones. Its axial stiffness is that of the whole length, so its
/// area shrinks with its length.
int TableBuilder::ZonedSection(int sectionRow, const Member& member) {
  const double share = 1 - member.lambdaI - member.lambdaJ;
  int& number = zonedSections_[{static_cast<double>(sectionRow), share}];
  if (number == 0) {
    ExtSection section = plainSections_[static_cast<std::size_t>(sectionRow - 1)];
    section.A *= share;
    number = section.number = static_cast<int>(tables_.ExtSections.size()) + 1;
    tables_.ExtSections.push_back(WithoutZeros(section));
  }
  return number;
}

/// A beam of the helper section between a node and the face of its rigid zone. Answers the face's node.
int TableBuilder::AddRigidZone(int node, Point face, int endCode, bool atEndJ) {
  const int faceNode = AddNode(0, face);
  helperBeams_.push_back(tables_.ExtBeams.size());
  ExtBeam zone;
  zone.material = HelperMaterial();
  zone.nodeI = atEndJ ? faceNode : node;
  zone.nodeJ = atEndJ ? node : faceNode;
  (atEndJ ? zone.endJ : zone.endI) = endCode;
  AddBeam(zone);
  return faceNode;
}

void TableBuilder::AddElement(int row) {
  const Member& member = members_[static_cast<std::size_t>(row - 1)];
  const EndActions& actions = actions_[static_cast<std::size_t>(row - 1)];
  const int sectionRow = sections_.Row(model_.Elem[row].section);
  const bool bar = plainSections_[static_cast<std::size_t>(sectionRow - 1)].I <= 0;
  // Two ends whose conditions aren't both among 0 and 1 are rigid.
  const bool known = (member.II == 0 || member.II == 1) && (member.JJ == 0 || member.JJ == 1);

  ExtBeam beam;
  beam.modelElement = member.number;
  beam.nodeI = member.rowI;
  beam.nodeJ = member.rowJ;
  beam.endI = known && member.II == 1 ? kExtPin : kExtRigid;
  beam.endJ = known && member.JJ == 1 ? kExtPin : kExtRigid;
  beam.material = MagnifiedMaterial(sectionRow, MagnificationOf(member));
  beam.section = sectionRow;

  ExtElement element;
  // A rigid zone acts on bending alone: a member without it is the same bar with or without.
  if (!bar && !member.BothPinned() && (member.lambdaI > 0 || member.lambdaJ > 0)) {
    if (member.lambdaI + member.lambdaJ >= 1)
      throw Fault("要素番号 " + std::to_string(member.number) + " ： 剛域の長さが部材長以上です");
    beam.section = ZonedSection(sectionRow, member);
    if (member.lambdaI > 0) {
      beam.nodeI = AddRigidZone(member.rowI, Between(member, member.lambdaI),
                                std::exchange(beam.endI, kExtRigid), false);
      element.armI = member.lambdaI * member.L;
    }
    if (member.lambdaJ > 0) {
      beam.nodeJ = AddRigidZone(member.rowJ, Between(member, 1 - member.lambdaJ),
                                std::exchange(beam.endJ, kExtRigid), true);
      element.armJ = member.lambdaJ * member.L;
    }
  }
  // A bar can't hold a node at its middle, so it takes the actions of both its ends itself.
  if (actions.Any() && !bar) {
    ExtBeam half = beam;
    beam.nodeJ = half.nodeI = AddNode(0, Between(member, 0.5 * (1 + member.lambdaI - member.lambdaJ)));
    beam.endJ = half.endI = kExtRigid;
    element.beamI = AddBeam(beam).number;
    element.beamJ = AddBeam(half).number;
    ExtBeam& first = tables_.ExtBeams[tables_.ExtBeams.size() - 2];
    ExtBeam& second = tables_.ExtBeams.back();
    first.twin = second.number;
    second.twin = -first.number;
    AddLoads(first, second, member, actions, element);
  } else {
    ExtBeam& whole = AddBeam(beam);
    element.beamI = element.beamJ = whole.number;
    if (actions.Any()) AddLoads(whole, whole, member, actions, element);
  }
  tables_.elements.push_back(element);
}

/// The actions at the ends of the flexible part that give the member's own at its nodes, times its
/// magnification. What the nodes' magnifications make different goes onto the nodes themselves.
void TableBuilder::AddLoads(ExtBeam& first, ExtBeam& last, const Member& member, const EndActions& actions,
                            const ExtElement& arms) {
  const double m = MagnificationOf(member);
  const double momentI = actions.I[2] - actions.I[1] * arms.armI,
               momentJ = actions.J[2] + actions.J[1] * arms.armJ;
  tables_.ExtLoads.push_back({m * actions.I[0], 0, m * actions.I[1], 0, -m * momentI, 0, 0, 0});
  tables_.ExtLoads.push_back({m * actions.J[0], 0, m * actions.J[1], 0, -m * momentJ, 0, 0, 0});
  first.loadI = last.loadJ = static_cast<int>(tables_.ExtLoads.size() / 2);
}

/// The nodes of a group in their order, each joined to the next. A node that stands in two groups belongs to
/// the later.
void TableBuilder::AddLinks() {
  if (model_.ModelCode != kSameDisplacementFrame) return;
  std::vector<int> groupOf(static_cast<std::size_t>(model_.NodeCount) + 1);
  const auto forEachNode = [&](auto use) {
    for (int g = 1; g <= model_.DispCount; ++g)
      for (int n = 1; n <= model_.Disp[g].count; ++n)
        if (const int row = nodes_.Row(model_.Disp[g].node[static_cast<std::size_t>(n)]); row != 0)
          use(g, row);
  };
  forEachNode([&](int group, int row) { groupOf[static_cast<std::size_t>(row)] = group; });
  int former = 0, formerGroup = 0;
  std::vector<bool> joined(groupOf.size());
  forEachNode([&](int group, int row) {
    const auto place = static_cast<std::size_t>(row);
    if (groupOf[place] != group || joined[place]) return;
    joined[place] = true;
    if (formerGroup == group) {
      helperBeams_.push_back(tables_.ExtBeams.size());
      ExtBeam link;
      link.nodeI = former;
      link.nodeJ = row;
      link.endI = link.endJ = kExtLink;
      link.material = HelperMaterial();
      AddBeam(link);
    }
    former = row;
    formerGroup = group;
  });
}

void TableBuilder::AddNodalLoads() {
  std::vector<std::array<double, 3>> sums(static_cast<std::size_t>(model_.NodeCount) + 1);
  for (int r = 1; r <= model_.PlodCount; ++r) {
    const PlodRec& load = model_.Plod[r];
    const int row = nodes_.Row(load.node);
    if (row == 0 || load.loadCase != loadCase_) continue;
    const double m = MagnificationOf(row);
    std::array<double, 3>& sum = sums[static_cast<std::size_t>(row)];
    sum[0] += load.F1 * m;
    sum[1] += load.F2 * m;
    sum[2] -= load.F3 * m;
  }
  for (std::size_t e = 0; e < members_.size() && model_.AlfaCount > 0; ++e) {
    const Member& member = members_[e];
    for (const auto& [row, action] :
         {std::pair(member.rowI, actions_[e].I), std::pair(member.rowJ, actions_[e].J)}) {
      const double excess = MagnificationOf(row) - MagnificationOf(member);
      std::array<double, 3>& sum = sums[static_cast<std::size_t>(row)];
      sum[0] -= excess * (member.c * action[0] - member.s * action[1]);
      sum[1] -= excess * (member.c * action[1] + member.s * action[0]);
      sum[2] += excess * action[2];
    }
  }
  for (int row = 1; row <= model_.NodeCount; ++row) {
    const std::array<double, 3>& sum = sums[static_cast<std::size_t>(row)];
    if (sum != std::array<double, 3>{})
      tables_.ExtNodalLoads.push_back({row, model_.Node[row].number, sum[0], sum[1], sum[2]});
  }
}

// Boundary elements. The axes of a node's three directions in the deck: along X, upward, and the rotation's,
// which points at the viewer, so that a rotation about it is counter-clockwise.

constexpr std::array<std::array<double, 3>, 3> kAxes{{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}}};

std::array<double, 3> Along(std::size_t dof, double cosine) {
  std::array<double, 3> direction{};
  for (std::size_t k = 0; k < 3; ++k)
    if (kAxes[dof][k] != 0) direction[k] = cosine * kAxes[dof][k];
  return direction;
}

void TableBuilder::AddSupports() {
  const auto count = static_cast<std::size_t>(model_.NodeCount) + 1;
  std::vector<std::array<double, 3>> moved(count), springs(count);
  std::vector<bool> listed(count);
  for (int r = 1; r <= model_.SpecCount; ++r) {
    const SpecRec& spec = model_.Spec[r];
    const int row = nodes_.Row(spec.node);
    if (row == 0 || spec.loadCase != loadCase_) continue;
    const auto place = static_cast<std::size_t>(row);
    moved[place][0] += spec.S1 / kCmPerM;
    moved[place][1] += spec.S2 / kCmPerM;
    moved[place][2] += spec.S3;
    listed[place] = true;
  }
  for (const NodeSpring& spring : CollectSprings(model_))
    for (std::size_t d = 0; d < 3; ++d) springs[static_cast<std::size_t>(spring.row)][d] += spring.k[d];
  for (int row = 1; row <= model_.NodeCount; ++row) {
    const auto place = static_cast<std::size_t>(row);
    AddSupport(row, moved[place], springs[place]);
    const auto& code = model_.Node[row].code;
    if (listed[place] || std::any_of(code.begin(), code.end(), [](std::int16_t c) { return c != kFree; }))
      tables_.supportRows.push_back(row);
  }
}

void TableBuilder::AddSupport(int row, const std::array<double, 3>& moved,
                              const std::array<double, 3>& spring) {
  const NodeRec& node = model_.Node[row];
  const double m = MagnificationOf(row);
  ExtMovedNode marked{row, node.code};
  const bool roller =
      model_.RollerFlag == 1 && (node.code[0] == kInclinedRoller || node.code[1] == kInclinedRoller);
  if (roller) AddRoller(row, moved);
  for (std::size_t d = 0; d < 3; ++d) {
    ExtBoundaryElement element;
    element.node = row;
    element.kind = d == 2 ? kExtRotation : kExtDisplacement;
    element.magnification = m;
    element.code = node.code[d];
    if (element.code != kFixed && element.code != kSpring) element.code = kFree;
    element.cosine = element.code == kFree ? 1 : -1;
    element.prescribed = moved[d];
    if (element.code == kSpring) {
      element.prescribed = -moved[d];
      element.stiffness = spring[d] * m;
      if (element.stiffness == 0) continue;
    } else if (element.code != kFixed && (moved[d] == 0 || (roller && d < 2))) {
      continue;
    }
    element.direction = Along(d, element.cosine);
    tables_.ExtBoundary.push_back(element);
    if (moved[d] != 0) marked.code[d] = element.code == kSpring ? kMovedSpringCode : kMovedCode;
  }
  if (marked.code != node.code) tables_.movedNodes.push_back(marked);
}

/// One boundary element along the normal of the rolling plane; the support moves by the forced displacement's
/// part along it.
void TableBuilder::AddRoller(int row, const std::array<double, 3>& moved) {
  const double normal = (model_.Node[row].rollerAngle + 90) * std::numbers::pi / 180;
  ExtBoundaryElement element;
  element.node = row;
  element.code = kInclinedRoller;
  element.prescribed = moved[0] * std::cos(normal) + moved[1] * std::sin(normal);
  element.cosine = 1;
  element.direction = {std::cos(normal), 0, std::sin(normal)};
  element.magnification = MagnificationOf(row);
  tables_.ExtBoundary.push_back(element);
}

void TableBuilder::RequireDeckNumbers() const {
  const std::size_t largest = std::max({tables_.ExtNodes.size(), tables_.ExtMaterials.size(),
                                        tables_.ExtSections.size(), tables_.ExtBeams.size()});
  if (largest > static_cast<std::size_t>(kHighestDeckNumber))
    throw Fault("外部解析プログラムの入力データが大きすぎます（" + std::to_string(largest) + "）");
}

}  // namespace

double MagnificationTolerance(const ModelRec& model) {
  return model.NodeCount > kInMemoryNodes ? kMagnificationToleranceFileRoad
                                          : kMagnificationToleranceInMemoryRoad;
}

ExternalTables BuildExternalTables(const ModelRec& model, int loadCase) {
  if (model.ModelCode != kPlaneFrame && model.ModelCode != kSameDisplacementFrame)
    throw Fault("平面格子梁モデルの場合は、傾斜ローラー及び強制変位の解析はできません");
  return TableBuilder(model, loadCase).Build();
}

}  // namespace zorlan
