#include "analysis/member_forces.h"

#include <algorithm>

#include "analysis/member_load_terms.h"
#include "analysis/result_files.h"

namespace zorlan {
namespace {

/// The sign of the simple beam's centre moment: the span of a global load runs against the member.
double CentreSign(const ElodRec& load, const Member& member) {
  const bool against = (load.MG == 1 && member.xj < member.xi) || (load.MG == 2 && member.yj < member.yi);
  return against ? -1 : 1;
}

/// The forces of one model, with the load rows that count.
class ForceTable {
 public:
  ForceTable(const ModelRec& model, const std::vector<Member>& members, std::vector<double>& forces)
      : members_(members),
        elements_(model.Elem, model.ElemCount),
        cases_(model.MaxLoadCase),
        forces_(forces) {}

  /// Calls add(member, its seven values) for each row of a load table on a known element and case.
  template <class Load, class Add>
  void ForEach(const Rows<Load>& loads, int count, Add add) {
    for (int r = 1; r <= count; ++r) {
      const int row = elements_.Row(loads[r].element);
      if (row != 0 && loads[r].loadCase >= 1 && loads[r].loadCase <= cases_)
        add(loads[r], members_[static_cast<std::size_t>(row - 1)], Values(loads[r].loadCase, row));
    }
  }
  double* Values(int loadCase, int elementRow) {
    return &forces_[ForcePlace(loadCase, static_cast<int>(members_.size()), elementRow, 1)];
  }
  int Cases() const { return cases_; }

 private:
  const std::vector<Member>& members_;
  const NumberMap elements_;
  const int cases_;
  std::vector<double>& forces_;
};

void AddEndTerms(const LoadTerms& t, double* values) {
  const double terms[] = {t.Ni, t.Qi, t.Ci, t.Nj, t.Qj, t.Cj};
  for (const double term : terms) *values++ += term;
}

}  // namespace

std::vector<double> ElasticForces(const std::vector<Member>& members, bool grid,
                                  const CaseTable& displacements) {
  const int elements = static_cast<int>(members.size());
  std::vector<double> forces(static_cast<std::size_t>(displacements.Cases()) * members.size() *
                             kForcesPerElement);
  for (int row = 1; row <= elements; ++row) {
    const Member& member = members[static_cast<std::size_t>(row - 1)];
    const FrameStiffness frame = grid ? FrameStiffness() : LocalFrameStiffness(member);
    const GridStiffness plate = grid ? LocalGridStiffness(member) : GridStiffness();
    for (int c = 0; c < displacements.Cases(); ++c) {
      double I[3], J[3];
      for (int d = 0; d < 3; ++d) {
        I[d] = displacements[3 * (member.rowI - 1) + d][c];
        J[d] = displacements[3 * (member.rowJ - 1) + d][c];
      }
      const std::array<double, 6> ends =
          grid ? GridEndForces(member, plate, I, J) : FrameEndForces(member, frame, I, J);
      std::copy(ends.begin(), ends.end(), &forces[ForcePlace(c + 1, elements, row, 1)]);
    }
  }
  return forces;
}

void AddLoadForces(const ModelRec& model, const std::vector<Member>& members, AddedForces added,
                   std::vector<double>& forces) {
  const bool all = added == AddedForces::All, grid = model.ModelCode == kPlaneGrid;
  ForceTable table(model, members, forces);
  if (!all)
    for (int c = 1; c <= table.Cases(); ++c)
      for (int row = 1; row <= static_cast<int>(members.size()); ++row) table.Values(c, row)[6] = 0;

  table.ForEach(model.Elod, model.ElodCount, [&](const ElodRec& load, const Member& member, double* values) {
    const LoadTerms t = MemberLoadTerms(AsLoaded(member), load.TYPE, load.P * load.K, load.Ly, load.MG);
    if (all) {
      AddEndTerms(t, values);
      if (grid) values[0] = values[3] = 0;  // a grid has no N, whatever the loads
    }
    values[6] += CentreSign(load, member) * t.Mo;
  });
  table.ForEach(model.Clod, model.ClodCount, [&](const ClodRec& load, const Member& member, double* values) {
    const LoadTerms t = CmqTerms(load, member, grid ? EndMoments::AsTyped : EndMoments::Turned);
    if (all) {
      AddEndTerms(t, values);
      if (grid) values[0] = values[3] = 0;
    }
    values[6] += t.Mo;
  });
  if (all && !grid)
    table.ForEach(model.Tlod, model.TlodCount,
                  [&](const TlodRec& load, const Member& member, double* values) {
                    AddEndTerms(TemperatureAxialTerms(load, member), values);
                  });
  for (int c = 1; c <= table.Cases(); ++c)
    for (int row = 1; row <= static_cast<int>(members.size()); ++row) {
      double* const values = table.Values(c, row);
      values[6] = values[6] - 0.5 * (values[2] - values[5]);
    }
}

}  // namespace zorlan
