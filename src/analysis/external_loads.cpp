#include "analysis/external_loads.h"

#include <algorithm>
#include <tuple>

#include "analysis/member_load_terms.h"

namespace zorlan {

bool EndActions::Any() const {
  const auto isNotZero = [](double value) { return value != 0; };
  return std::any_of(I.begin(), I.end(), isNotZero) || std::any_of(J.begin(), J.end(), isNotZero);
}

std::vector<EndActions> CollectEndActions(const ModelRec& model, const std::vector<Member>& members,
                                          int loadCase) {
  std::vector<EndActions> actions(members.size());
  const NumberMap elements(model.Elem, model.ElemCount);
  const auto addAll = [&](const auto& loads, int count, auto terms) {
    for (int r = 1; r <= count; ++r) {
      const int row = elements.Row(loads[r].element);
      if (row == 0 || loads[r].loadCase != loadCase) continue;
      const auto place = static_cast<std::size_t>(row - 1);
      const LoadTerms t = terms(loads[r], members[place]);
      const std::array<double, 3> termsI{t.Ni, t.Qi, t.Ci}, termsJ{t.Nj, t.Qj, t.Cj};
      for (std::size_t k = 0; k < 3; ++k) {
        actions[place].I[k] += termsI[k];
        actions[place].J[k] += termsJ[k];
      }
    }
  };
  addAll(model.Elod, model.ElodCount, [](const ElodRec& load, const Member& member) {
    return MemberLoadTerms(AsLoaded(member), load.TYPE, load.P * load.K, load.Ly, load.MG);
  });
  addAll(model.Clod, model.ClodCount, [](const ClodRec& load, const Member& member) {
    return CmqTerms(load, member, EndMoments::Turned);
  });
  addAll(model.Tlod, model.TlodCount, [](const TlodRec& load, const Member& member) {
    return TemperatureTerms(load, member, /*grid=*/false);
  });
  return actions;
}

std::vector<ExtNodalLoad> CollectNodalLoads(const ModelRec& model, const std::vector<Member>& members,
                                            const std::vector<EndActions>& actions, int loadCase) {
  const double tolerance = MagnificationTolerance(model);
  const NumberMap nodes(model.Node, model.NodeCount);
  std::vector<std::array<double, 3>> sums(static_cast<std::size_t>(model.NodeCount) + 1);
  const auto add = [&](int row, double factor, double x, double y, double moment) {
    std::array<double, 3>& sum = sums[static_cast<std::size_t>(row)];
    sum[0] += factor * x;
    sum[1] += factor * y;
    sum[2] -= factor * moment;  // the deck counts clockwise
  };
  for (int r = 1; r <= model.PlodCount; ++r) {
    const PlodRec& load = model.Plod[r];
    if (const int row = nodes.Row(load.node); row != 0 && load.loadCase == loadCase)
      add(row, MagnificationAt(model, model.Node[row].X, tolerance), load.F1, load.F2, load.F3);
  }
  for (std::size_t e = 0; e < members.size() && model.AlfaCount > 0; ++e) {
    const Member& member = members[e];
    const double own = MagnificationBetween(model, member.xi, member.xj, tolerance);
    for (const auto& [row, N, Q, C] :
         {std::tuple(member.rowI, actions[e].I[0], actions[e].I[1], actions[e].I[2]),
          std::tuple(member.rowJ, actions[e].J[0], actions[e].J[1], actions[e].J[2])})
      add(row, own - MagnificationAt(model, model.Node[row].X, tolerance), member.c * N - member.s * Q,
          member.c * Q + member.s * N, C);
  }
  std::vector<ExtNodalLoad> loads;
  for (int row = 1; row <= model.NodeCount; ++row)
    if (const auto& [x, y, moment] = sums[static_cast<std::size_t>(row)]; x != 0 || y != 0 || moment != 0)
      loads.push_back({row, model.Node[row].number, x, y, moment});
  return loads;
}

}  // namespace zorlan
