#include "analysis/listing_results.h"

#include "analysis/listing_table.h"

namespace zorlan {
namespace {

constexpr std::string_view kDisplacements = "◆NODE DISPLACEMENTS/ROTATIONS";
constexpr std::array<std::string_view, 2> kDisplacementHeads[] = {
    {"  NODE   LOAD          U           V             θ",
     "    NO   CASE        (CM)        (CM)          (RAD)"},
    {"  NODE   LOAD          W            θx            θy",
     "    NO   CASE        (CM)          (RAD)          (RAD)"},
};

/// Heading of a section whose unit line follows the output unit, by ForceIndex.
struct ForceHeads {
  std::string_view names;
  std::array<std::string_view, 4> units;
};

constexpr std::string_view kReactions = "◆NODAL REACTION LOAD";
constexpr ForceHeads kReactionHeads[] = {
    {"  NODE   LOAD         F-X         F-Y        M-Z",
     {"    NO   CASE         (T)         (T)       (T*M)",
      "    NO   CASE        (kg)        (kg)      (kg*M)",
      "    NO   CASE        (kN)        (kN)      (kN*M)",
      "    NO   CASE         (N)         (N)       (N*M)"}},
    {"  NODE   LOAD         F-Z        M-X         M-Y",
     {"    NO   CASE         (T)       (T*M)       (T*M)",
      "    NO   CASE        (kg)      (kg*M)      (kg*M)",
      "    NO   CASE        (kN)      (kN*M)      (kN*M)",
      "    NO   CASE         (N)       (N*M)       (N*M)"}},
};

constexpr std::string_view kForces = "◆BEAM ELEMENT STRESSES";
constexpr ForceHeads kForceHeads = {
    "  ELEM NODE NODE LOAD       M(I)       M(C)       M(J)       Q(I)       Q(J)       N(I)       N(J)     ",
    {"    NO   -I   -J CASE      (T*M)      (T*M)      (T*M)        (T)        (T)        (T)        (T)",
     "    NO   -I   -J CASE     (kg*M)     (kg*M)     (kg*M)       (kg)       (kg)       (kg)       (kg)",
     "    NO   -I   -J CASE     (kN*M)     (kN*M)     (kN*M)       (kN)       (kN)       (kN)       (kN)",
     "    NO   -I   -J CASE      (N*M)      (N*M)      (N*M)        (N)        (N)        (N)        (N)"}};

constexpr NumberPattern kNumber = "  ###0";
constexpr NumberPattern kCase = "   ###0";
constexpr NumberPattern kMember = " ###0";  // the ends of an element and its case
constexpr NumberPattern kValue = " ######0.000";
constexpr NumberPattern kRotation = "    0.00000E+00";
constexpr NumberPattern kForce = "######0.000";
constexpr std::string_view kNoReaction = "           0";
constexpr std::string_view kRule = " ------------------------------------------------";
constexpr std::string_view kSum = "    Σ";

/// The places of a row of FT031, and the columns that show them: M(I) M(C) M(J) Q(I) Q(J) N(I) N(J).
enum ForcePosition : std::size_t { kNI, kQI, kMI, kNJ, kQJ, kMJ, kMC };
constexpr std::array<ForcePosition, 7> kForceColumns = {kMI, kMC, kMJ, kQI, kQJ, kNI, kNJ};

std::string Heading(std::string_view title, std::string_view names, std::string_view units) {
  std::string heading;
  for (const std::string_view line : {title, names, units}) AppendLine(heading, line);
  return heading;
}

/// A number that stands on the first line of its block alone.
void AppendOnce(std::string& out, bool first, double number, const NumberPattern& pattern) {
  if (first)
    AppendField(out, number, pattern);
  else
    out.append(static_cast<std::size_t>(pattern.Width()), ' ');
}

}  // namespace

std::string DisplacementHeading(bool grid) {
  const auto& heads = kDisplacementHeads[grid ? 1 : 0];
  return Heading(kDisplacements, heads[0], heads[1]);
}

std::string ReactionHeading(bool grid, int forceIndex) {
  const ForceHeads& heads = kReactionHeads[grid ? 1 : 0];
  return Heading(kReactions, heads.names, heads.units[static_cast<std::size_t>(forceIndex)]);
}

std::string ForceHeading(int forceIndex) {
  return Heading(kForces, kForceHeads.names, kForceHeads.units[static_cast<std::size_t>(forceIndex)]);
}

void AppendDisplacements(std::string& out, int node, const ResultTable& displacements, int index, bool grid) {
  for (int c = 1; c <= displacements.cases; ++c) {
    const double* const u = displacements.Row(c, index);
    AppendOnce(out, c == 1, node, kNumber);
    AppendField(out, c, kCase);
    AppendField(out, u[0] * kCmPerM, kValue);
    if (grid)
      AppendField(out, u[1], kRotation);
    else
      AppendField(out, u[1] * kCmPerM, kValue);
    AppendField(out, u[2], kRotation);
    out += kLineEnd;
  }
}

void AppendReactions(std::string& out, int node, std::array<bool, 3> shown, const ResultTable& reactions,
                     int index, const OutputForce& unit) {
  for (int c = 1; c <= reactions.cases; ++c) {
    AppendOnce(out, c == 1, node, kNumber);
    AppendField(out, c, kCase);
    for (std::size_t d = 0; d < shown.size(); ++d)
      if (shown[d])
        AppendField(out, unit.Of(reactions.Row(c, index)[d]), kValue);
      else
        out += kNoReaction;
    out += kLineEnd;
  }
}

std::string ReactionSums(const ResultTable& reactions, const OutputForce& unit) {
  std::string out;
  AppendLine(out, kRule);
  for (int c = 1; c <= reactions.cases; ++c) {
    std::array<double, 3> sum{};
    for (int index = 0; index < reactions.rows; ++index)
      for (std::size_t d = 0; d < sum.size(); ++d) sum[d] += reactions.Row(c, index)[d];
    out += kSum;
    AppendField(out, c, kCase);
    for (const double component : sum) AppendField(out, unit.Of(component), kValue);
    out += kLineEnd;
  }
  return out;
}

void AppendMemberForces(std::string& out, const ElemRec& element, const ResultTable& forces, int index,
                        const OutputForce& unit, const AxialMarks& marks) {
  for (int c = 1; c <= forces.cases; ++c) {
    const double* const force = forces.Row(c, index);
    AppendOnce(out, c == 1, element.number, kNumber);
    AppendOnce(out, c == 1, element.I, kMember);
    AppendOnce(out, c == 1, element.J, kMember);
    AppendField(out, c, kMember);
    for (const ForcePosition position : kForceColumns) AppendField(out, unit.Of(force[position]), kForce);
    const double axial = force[kNJ] - force[kNI];
    if (axial < 0) out += marks.compression;
    if (axial > 0) out += marks.tension;
    out += kLineEnd;
  }
}

}  // namespace zorlan
