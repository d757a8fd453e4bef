#include "analysis/trust.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zorlan {
namespace {

/// K u - F of every equation, springs included.
CaseTable Residuals(const Equations& equations, const CaseTable& u) {
  CaseTable r(equations.Count(), equations.cases);
  for (int e = 0; e < equations.Count(); ++e)
    for (int c = 0; c < equations.cases; ++c) r[e][c] = -equations.loads[e][c];
  for (const ElementRecord& record : equations.records) {
    const int ends = record.rowI == record.rowJ ? 3 : 6;  // a spring has three equations
    for (int p = 0; p < ends; ++p) {
      double* const target = r[3 * ((p < 3 ? record.rowI : record.rowJ) - 1) + p % 3];
      for (int q = 0; q < ends; ++q) {
        const double k = record.k[TrianglePlace(static_cast<std::size_t>(p), static_cast<std::size_t>(q))];
        const double* const x = u[3 * ((q < 3 ? record.rowI : record.rowJ) - 1) + q % 3];
        for (int c = 0; c < equations.cases; ++c) target[c] += k * x[c];
      }
    }
  }
  return r;
}

/// The stiffness of every equation against its own displacement.
std::vector<double> Diagonal(const Equations& equations) {
  std::vector<double> diagonal(static_cast<std::size_t>(equations.Count()));
  for (const ElementRecord& record : equations.records)
    for (std::size_t p = 0; p < 6; ++p)
      diagonal[3 * static_cast<std::size_t>((p < 3 ? record.rowI : record.rowJ) - 1) + p % 3] +=
          record.k[TrianglePlace(p, p)];
  return diagonal;
}

int LayerOf(const Equations& equations, int row) {
  return equations.layers > 0 ? equations.layer[static_cast<std::size_t>(row)] : 0;
}

/// Gathers each layer's residual at the layer's first node; the other nodes' become 0.
void SumLayers(const Equations& equations, CaseTable& r) {
  std::vector<int> first(static_cast<std::size_t>(equations.layers) + 1);
  for (int row = 1; row <= equations.nodes; ++row) {
    const int layer = LayerOf(equations, row);
    if (layer == 0) continue;
    int& place = first[static_cast<std::size_t>(layer)];
    if (place == 0) {
      place = row;
      continue;
    }
    for (int c = 0; c < equations.cases; ++c) {
      r[3 * (place - 1)][c] += r[3 * (row - 1)][c];
      r[3 * (row - 1)][c] = 0;
    }
  }
}

/// Which equations something holds, and which of them report a support force.
class HeldEquations {
 public:
  HeldEquations(const Equations& equations, const CaseTable& u, const TrustRules& rules)
      : eq_(equations), u_(u), rules_(rules), layerHeld_(static_cast<std::size_t>(equations.layers) + 1) {
    for (int row = 1; row <= eq_.nodes; ++row) {
      const int layer = LayerOf(eq_, row);
      const bool held = Also(row, 0) || (rules.external && eq_.Code(3 * (row - 1)) == kFixed);
      if (layer != 0 && held) layerHeld_[static_cast<std::size_t>(layer)] = true;
    }
  }

  /// Whether the solver was to satisfy this equation of a node.
  bool IsSatisfied(int row, int d) const {
    if (Also(row, d)) return false;
    if (const int layer = LayerOf(eq_, row); d == 0 && layer != 0) {
      // A layer that the in-memory road holds has the displacement 0 in all cases.
      const double* const x = u_[3 * (row - 1)];
      return !layerHeld_[static_cast<std::size_t>(layer)] &&
             std::any_of(x, x + eq_.cases, [](double value) { return value != 0; });
    }
    return eq_.Code(3 * (row - 1) + d) != kFixed;
  }

  /// Whether the reaction of this equation is a support's: not in a free equation, and not at a node whose U
  /// its group moves.
  bool ReportsForce(int row, int d) const {
    const std::int16_t code = eq_.Code(3 * (row - 1) + d);
    if (Also(row, d)) return true;
    if (d == 0 && LayerOf(eq_, row) != 0) return code == kSpring || (rules_.external && code == kFixed);
    return code != kFree;
  }

 private:
  bool Also(int row, int d) const {
    return !rules_.alsoHeld.empty() && rules_.alsoHeld[static_cast<std::size_t>(3 * (row - 1) + d)];
  }

  const Equations& eq_;
  const CaseTable& u_;
  const TrustRules& rules_;
  std::vector<bool> layerHeld_;
};

/// What the sums of a case differ by, and what they are to be measured by.
struct Balance {
  std::array<double, 2> difference{}, loads{}, reactions{};
  void AddLoad(std::size_t d, double load) {
    difference[d] += load;
    loads[d] += std::abs(load);
  }
  void AddReaction(std::size_t d, double reaction) {
    difference[d] += reaction;
    reactions[d] += std::abs(reaction);
  }
  bool IsLost(double share, double least) const {
    for (std::size_t d = 0; d < 2; ++d)
      if (std::abs(difference[d]) > share * std::max({loads[d], reactions[d], least})) return true;
    return false;
  }
};

}  // namespace

std::vector<CaseTrust> AssessSolution(const Equations& equations, const CaseTable& displacements,
                                      const CaseTable& reactions, const TrustRules& rules) {
  std::vector<CaseTrust> trust(static_cast<std::size_t>(equations.cases));
  std::vector<Balance> balance(trust.size());
  CaseTable r = Residuals(equations, displacements);
  if (equations.layers > 0) SumLayers(equations, r);
  const std::vector<double> diagonal = Diagonal(equations);
  const HeldEquations held(equations, displacements, rules);
  const int directions = equations.kind == kPlaneGrid ? 1 : 2;
  for (int row = 1; row <= equations.nodes; ++row)
    for (int c = 0; c < equations.cases; ++c) {
      CaseTrust& result = trust[static_cast<std::size_t>(c)];
      const int first = 3 * (row - 1), number = equations.number[static_cast<std::size_t>(row)];
      double square = 0;
      for (int d = 0; d < 3; ++d) {
        const double load = equations.loads[first + d][c];
        result.largestLoad = std::max(result.largestLoad, std::abs(load));
        // No sum is known better than to the rounding of its terms.
        constexpr double kRounding = std::numeric_limits<double>::epsilon();
        const double unknown =
            kRounding * std::abs(diagonal[static_cast<std::size_t>(first + d)] * displacements[first + d][c]);
        const double residual = std::max(std::abs(r[first + d][c]), unknown);
        if (held.IsSatisfied(row, d) && residual > result.residual) {
          result.residual = residual;
          result.residualNode = number;
        }
        if (d >= directions) continue;
        square += displacements[first + d][c] * displacements[first + d][c];
        const auto place = static_cast<std::size_t>(d);
        result.loadSum[place] += load;
        balance[static_cast<std::size_t>(c)].AddLoad(place, load);
        if (!held.ReportsForce(row, d)) continue;
        const double reaction = reactions[first + d][c];
        const bool spring = equations.Code(first + d) == kSpring && !rules.springFactor.empty();
        result.reactionSum[place] += reaction;
        balance[static_cast<std::size_t>(c)].AddReaction(
            place, spring ? reaction * rules.springFactor[static_cast<std::size_t>(row)] : reaction);
      }
      if (std::sqrt(square) > result.largestDisplacement) {
        result.largestDisplacement = std::sqrt(square);
        result.displacementNode = number;
      }
    }
  // A settlement alone has no load to measure by, and its rounding must not raise the alarm.
  constexpr double kLeastMeasure = 1;  // t, t*m
  const double share = rules.external ? kLostPrintedResidual : kLostResidual;
  for (std::size_t c = 0; c < trust.size(); ++c) {
    CaseTrust& result = trust[c];
    result.lost = result.residual > share * std::max({result.largestLoad, rules.largestForce, kLeastMeasure});
    result.unbalanced = balance[c].IsLost(share, kLeastMeasure);
  }
  return trust;
}

Doubts DoubtsAbout(const std::vector<CaseTrust>& trust) {
  Doubts doubts;
  for (std::size_t c = 0; c < trust.size(); ++c) {
    const std::string loadCase = "荷重ケース " + std::to_string(c + 1);
    if (trust[c].lost) {
      doubts.verdict = "解析結果は信頼できません";
      doubts.sentences.push_back(
          loadCase + " の節点 " + std::to_string(trust[c].residualNode) +
          " で釣り合いが失われています。不安定な構造の可能性があり、結果は信頼できません");
    } else if (trust[c].unbalanced) {
      if (doubts.verdict.empty()) doubts.verdict = "荷重と反力の合計が一致しません";
      doubts.sentences.push_back(
          loadCase +
          " の荷重と反力の合計が一致しません。反力のリストに現れない支持力がないか、確かめてください");
    }
  }
  return doubts;
}

}  // namespace zorlan
