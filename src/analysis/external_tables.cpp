#include "analysis/external_tables.h"

#include <algorithm>
#include <map>
#include <utility>

#include "analysis/external_loads.h"
#include "analysis/external_supports.h"
#include "analysis/members.h"
#include "base/fault.h"
#include "sections/section_properties.h"

namespace zorlan {
namespace {

constexpr int kInMemoryNodes = 29;  // more nodes take the file road's tolerance
constexpr double kNone = 1e-14;     // stands for a shear area or an inertia that the section doesn't have
constexpr double kHelperE = 7e12;   // t/m2
constexpr double kHelperNu = 0.3;
constexpr double kHelperA = 0.25;          // m2
constexpr double kHelperI = 0.0052;        // m4
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

template <class End>
Point Between(const End& from, const End& to, double share) {
  return {from.X + share * (to.X - from.X), from.Y + share * (to.Y - from.Y)};
}

/// Builds the tables of one case, one table after the other.
class TableBuilder {
 public:
  TableBuilder(const ModelRec& model, int loadCase)
      : model_(model),
        loadCase_(loadCase),
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
    tables_.ExtNodalLoads = CollectNodalLoads(model_, members_, actions_, loadCase_);
    ExternalSupports supports = CollectSupports(model_, loadCase_);
    tables_.ExtBoundary = std::move(supports.boundary);
    tables_.supportRows = std::move(supports.rows);
    tables_.movedNodes = std::move(supports.movedNodes);
    RequireDeckNumbers();
    return std::move(tables_);
  }

 private:
  void AddModelNodes();
  void AddMaterials();
  void AddSections();
  void AddHelperSection();
  void AddElement(int row);
  ExtBeam BeamOf(int row) const;
  bool IsBar(int row) const;
  void AddRigidZones(int row, ExtBeam& beam, ExtElement& element);
  int AddRigidZone(int node, int otherNode, double share, int endCode, bool atEndJ);
  int ZonedSection(int sectionRow, double share);
  std::pair<ExtBeam, ExtBeam> Divided(const ExtBeam& beam);
  int AddLoads(int row, const ExtElement& element);
  void AddLinks();
  void RequireDeckNumbers() const;

  int AddNode(int modelNumber, Point at) {
    const int number = static_cast<int>(tables_.ExtNodes.size()) + 1;
    tables_.ExtNodes.push_back({number, modelNumber, at.x, at.y});
    return number;
  }
  const ExtNode& NodeOf(int number) const { return tables_.ExtNodes[static_cast<std::size_t>(number - 1)]; }
  /// Its number.
  int AddBeam(ExtBeam beam) {
    beam.number = NextBeam();
    tables_.ExtBeams.push_back(beam);
    return beam.number;
  }
  int NextBeam() const { return static_cast<int>(tables_.ExtBeams.size()) + 1; }
  double MagnificationOf(const Member& member) const {
    return MagnificationBetween(model_, member.xi, member.xj, MagnificationTolerance(model_));
  }
  const Member& MemberOf(int row) const { return members_[static_cast<std::size_t>(row - 1)]; }
  const EndActions& ActionsOf(int row) const { return actions_[static_cast<std::size_t>(row - 1)]; }
  int SectionRow(int row) const { return sections_.Row(model_.Elem[row].section); }
  /// The material of a section that carries the factor of a member; its section stays plain, so that the
  /// factor counts once.
  int MagnifiedMaterial(int sectionRow, double magnification) const;
  int HelperMaterial() const { return (model_.AlfaCount + 1) * model_.SectCount + 1; }

  const ModelRec& model_;
  const int loadCase_;
  const std::vector<Member> members_;
  const std::vector<EndActions> actions_;
  const NumberMap nodes_, sections_;
  std::vector<ExtSection> plainSections_;                // by section row, from 0, zeros kept
  std::map<std::pair<int, double>, int> zonedSections_;  // by section row and flexible share
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

/// Without bending stiffness.
bool TableBuilder::IsBar(int row) const {
  return plainSections_[static_cast<std::size_t>(SectionRow(row) - 1)].I <= 0;
}

void TableBuilder::AddElement(int row) {
  ExtBeam beam = BeamOf(row);
  ExtElement element;
  AddRigidZones(row, beam, element);
  const bool loaded = ActionsOf(row).Any();
  // A bar can't hold a node at its middle, so it takes the actions of both its ends itself.
  if (loaded && !IsBar(row)) {
    auto [first, second] = Divided(beam);
    first.loadI = second.loadJ = AddLoads(row, element);
    element.beamI = AddBeam(first);
    element.beamJ = AddBeam(second);
  } else {
    if (loaded) beam.loadI = beam.loadJ = AddLoads(row, element);
    element.beamI = element.beamJ = AddBeam(beam);
  }
  tables_.elements.push_back(element);
}

/// The element in one piece between its nodes.
ExtBeam TableBuilder::BeamOf(int row) const {
  const Member& member = MemberOf(row);
  // Two ends whose conditions aren't both among 0 and 1 are rigid.
  const bool known = (member.II == 0 || member.II == 1) && (member.JJ == 0 || member.JJ == 1);
  ExtBeam beam;
  beam.modelElement = member.number;
  beam.nodeI = member.rowI;
  beam.nodeJ = member.rowJ;
  beam.endI = known && member.II == 1 ? kExtPin : kExtRigid;
  beam.endJ = known && member.JJ == 1 ? kExtPin : kExtRigid;
  beam.section = SectionRow(row);
  beam.material = MagnifiedMaterial(beam.section, MagnificationOf(member));
  return beam;
}

/// Leaves the flexible part of the beam between helper beams. A rigid zone acts on bending alone: a member
/// without bending is the same bar with or without.
void TableBuilder::AddRigidZones(int row, ExtBeam& beam, ExtElement& element) {
  const Member& member = MemberOf(row);
  const double I = member.lambdaI, J = member.lambdaJ;
  if (IsBar(row) || member.BothPinned() || (I == 0 && J == 0)) return;
  if (I < 0 || J < 0 || I + J >= 1)
    throw Fault("要素番号 " + std::to_string(member.number) + " ： 剛域の長さが正しくありません");
  beam.section = ZonedSection(beam.section, 1 - I - J);
  if (I > 0)
    beam.nodeI = AddRigidZone(member.rowI, member.rowJ, I, std::exchange(beam.endI, kExtRigid), false);
  if (J > 0)
    beam.nodeJ = AddRigidZone(member.rowJ, member.rowI, J, std::exchange(beam.endJ, kExtRigid), true);
  element.armI = I * member.L;
  element.armJ = J * member.L;
}

/// A beam of the helper section from a node over a share of the way to the other. Answers the node at its
/// face.
int TableBuilder::AddRigidZone(int node, int otherNode, double share, int endCode, bool atEndJ) {
  const int face = AddNode(0, Between(NodeOf(node), NodeOf(otherNode), share));
  helperBeams_.push_back(tables_.ExtBeams.size());
  ExtBeam zone;
  zone.material = HelperMaterial();
  zone.nodeI = atEndJ ? face : node;
  zone.nodeJ = atEndJ ? node : face;
  (atEndJ ? zone.endJ : zone.endI) = endCode;
  AddBeam(zone);
  return face;
}

/// The section of a member between its rigid zones. The member's axial stiffness is that of its whole length,
/// so the area shrinks with the length.
int TableBuilder::ZonedSection(int sectionRow, double share) {
  int& number = zonedSections_[{sectionRow, share}];
  if (number == 0) {
    ExtSection section = plainSections_[static_cast<std::size_t>(sectionRow - 1)];
    section.A *= share;
    number = section.number = static_cast<int>(tables_.ExtSections.size()) + 1;
    tables_.ExtSections.push_back(WithoutZeros(section));
  }
  return number;
}

/// The halves of a beam, twins, about a helper node at its middle. They are to be added next.
std::pair<ExtBeam, ExtBeam> TableBuilder::Divided(const ExtBeam& beam) {
  ExtBeam first = beam, second = beam;
  first.nodeJ = second.nodeI = AddNode(0, Between(NodeOf(beam.nodeI), NodeOf(beam.nodeJ), 0.5));
  first.endJ = second.endI = kExtRigid;
  first.twin = NextBeam() + 1;
  second.twin = -NextBeam();
  return {first, second};
}

/// The actions at the ends of the flexible part that give the member's own at its nodes, times its
/// magnification. Answers the number of the pair.
int TableBuilder::AddLoads(int row, const ExtElement& element) {
  const EndActions& actions = ActionsOf(row);
  const double m = MagnificationOf(MemberOf(row));
  const double momentI = actions.I[2] - actions.I[1] * element.armI,
               momentJ = actions.J[2] + actions.J[1] * element.armJ;
  tables_.ExtLoads.push_back({m * actions.I[0], 0, m * actions.I[1], 0, -m * momentI, 0, 0, 0});
  tables_.ExtLoads.push_back({m * actions.J[0], 0, m * actions.J[1], 0, -m * momentJ, 0, 0, 0});
  return static_cast<int>(tables_.ExtLoads.size() / 2);
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

void TableBuilder::RequireDeckNumbers() const {
  const std::size_t largest = std::max({tables_.ExtNodes.size(), tables_.ExtMaterials.size(),
                                        tables_.ExtSections.size(), tables_.ExtBeams.size()});
  if (largest > static_cast<std::size_t>(kHighestDeckNumber))
    throw Fault("外部解析プログラムの入力データが大きすぎます（" + std::to_string(largest) + "）");
}

}  // namespace

bool IsMoved(const NodeRec& node) {
  return std::any_of(node.code.begin(), node.code.end(),
                     [](std::int16_t code) { return code == kMovedCode || code == kMovedSpringCode; });
}

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
