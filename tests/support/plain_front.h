// The frontal elimination in its plainest form: a whole square front, one pivot and one row at a time,
// nothing left out, nothing kept between the rows. Slow, and what the fast one must equal to the last bit.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "analysis/equations.h"

namespace zorlan::test {

class PlainFront {
 public:
  explicit PlainFront(const Equations& equations)
      : eq_(equations),
        grouped_(equations.layers > 0),
        dofs_(grouped_ ? 2 : 3),
        width_(dofs_ * equations.nodes),
        slot_(static_cast<std::size_t>(equations.nodes)),
        front_(Square(width_)),
        load_(Table(width_ + equations.layers, equations.cases)),
        border_(Table(width_, equations.layers)),
        borderT_(Table(equations.layers, width_)),
        story_(Square(equations.layers)) {}

  /// The displacements of all equations; nothing, and `fault`, for an unstable structure.
  std::optional<CaseTable> Solve(double tolerance, NoStiffness& fault) {
    std::size_t next = 0;
    for (int node = 1; node <= eq_.nodes; ++node) {
      for (int k = 0; k < eq_.recordsAtRow[At(node)]; ++k) Assemble(eq_.records[next++]);
      const int s = static_cast<int>(std::find(slot_.begin(), slot_.end(), node) - slot_.begin());
      for (int d = 0; d < dofs_; ++d)
        if (!Eliminate(node, d, dofs_ * s + d, tolerance, fault)) return std::nullopt;
      slot_[At(s)] = 0;
    }
    if (!SolveStory(fault)) return std::nullopt;
    return SubstituteBack();
  }

 private:
  using Values = std::vector<double>;
  using Rows = std::vector<Values>;
  struct StoredRow {
    std::vector<int> slot;
    int node, d;
    bool fixed;
    Values front, border, load;
  };

  static std::size_t At(int place) { return static_cast<std::size_t>(place); }
  static Rows Table(int rows, int columns) { return Rows(At(rows), Values(At(columns))); }
  static Rows Square(int size) { return Table(size, size); }
  int FirstDof() const { return 3 - dofs_; }
  bool IsFixed(int node, int d) const { return eq_.code[At(node)][At(FirstDof() + d)] == kFixed; }
  int LayerOf(int node) const { return grouped_ ? eq_.layer[At(node)] : 0; }

  int PositionOf(int node) {
    auto slot = std::find(slot_.begin(), slot_.end(), node);
    if (slot == slot_.end()) slot = std::find(slot_.begin(), slot_.end(), 0);
    *slot = node;
    return dofs_ * static_cast<int>(slot - slot_.begin());
  }

  void Assemble(const ElementRecord& record) {
    const int position[] = {PositionOf(record.rowI), PositionOf(record.rowJ)};
    const int nodes[] = {record.rowI, record.rowJ};
    const bool loads[] = {record.loadsI, record.loadsJ};
    for (int r = 0; r < 6; ++r) {
      const int rowNode = nodes[r / 3], rowDof = r % 3 - FirstDof(), rowLayer = LayerOf(rowNode) - 1;
      for (int c = 0; c < 6; ++c) {
        const double k = record.k[TrianglePlace(At(r), At(c))];
        const int dof = c % 3 - FirstDof(), layer = LayerOf(nodes[c / 3]) - 1;
        if (rowDof >= 0 && dof >= 0) front_[At(position[r / 3] + rowDof)][At(position[c / 3] + dof)] += k;
        if (rowDof >= 0 && dof < 0 && layer >= 0) border_[At(position[r / 3] + rowDof)][At(layer)] += k;
        if (rowDof < 0 && rowLayer >= 0 && dof >= 0) borderT_[At(rowLayer)][At(position[c / 3] + dof)] += k;
        if (rowDof < 0 && rowLayer >= 0 && dof < 0 && layer >= 0) story_[At(rowLayer)][At(layer)] += k;
      }
      if (!loads[r / 3] || (rowDof < 0 && rowLayer < 0)) continue;
      Values& target = load_[At(rowDof >= 0 ? position[r / 3] + rowDof : width_ + rowLayer)];
      for (int c = 0; c < eq_.cases; ++c) target[At(c)] += eq_.loads[3 * (rowNode - 1) + r % 3][c];
    }
  }

  static void Subtract(Values& target, double f, const Values& source) {
    for (std::size_t j = 0; j < target.size(); ++j) target[j] -= f * source[j];
  }

  bool Eliminate(int node, int d, int q, double tolerance, NoStiffness& fault) {
    const double p = front_[At(q)][At(q)];
    const bool fixed = IsFixed(node, d);
    if (!fixed && std::abs(p) < tolerance) {
      const int dof = FirstDof() + d;
      if (dof != 2 && !(eq_.kind == kPlaneGrid && dof == 1)) {
        fault = {q + 1, eq_.number[At(node)], DirectionOf(eq_.kind, dof)};
        return false;
      }
    } else if (!fixed) {
      for (Values* const row : {&front_[At(q)], &border_[At(q)], &load_[At(q)]})
        for (double& value : *row) value /= p;
      for (int r = 0; r < width_; ++r) {
        const int other = slot_[At(r / dofs_)];
        if (other == 0 || r == q || front_[At(r)][At(r)] == 0 || IsFixed(other, r % dofs_)) continue;
        const double f = front_[At(r)][At(q)];
        if (f == 0) continue;
        Subtract(front_[At(r)], f, front_[At(q)]);
        Subtract(border_[At(r)], f, border_[At(q)]);
        Subtract(load_[At(r)], f, load_[At(q)]);
      }
      for (int h = 0; h < eq_.layers; ++h) {
        const double f = borderT_[At(h)][At(q)];
        if (f == 0) continue;
        Subtract(borderT_[At(h)], f, front_[At(q)]);
        Subtract(story_[At(h)], f, border_[At(q)]);
        Subtract(load_[At(width_ + h)], f, load_[At(q)]);
      }
    }
    stored_.push_back({slot_, node, d, fixed, front_[At(q)], border_[At(q)], load_[At(q)]});
    for (Values* const row : {&front_[At(q)], &border_[At(q)], &load_[At(q)]})
      std::fill(row->begin(), row->end(), 0.0);
    for (Values& row : front_) row[At(q)] = 0;
    for (Values& row : borderT_) row[At(q)] = 0;
    return true;
  }

  bool SolveStory(NoStiffness& fault) {
    y_ = Rows(load_.begin() + width_, load_.end());
    for (int h = 0; h < eq_.layers; ++h) {
      const double p = story_[At(h)][At(h)];
      if (std::abs(p) <= 0.001) {
        fault = {h + 1, h + 1, NoStiffness::What::Layer};
        return false;
      }
      for (double& value : story_[At(h)]) value /= p;
      for (double& value : y_[At(h)]) value /= p;
      for (int r = h + 1; r < eq_.layers; ++r) {
        const double f = story_[At(r)][At(h)];
        if (f == 0) continue;
        Subtract(story_[At(r)], f, story_[At(h)]);
        Subtract(y_[At(r)], f, y_[At(h)]);
      }
    }
    for (int h = eq_.layers - 2; h >= 0; --h)
      for (int k = h + 1; k < eq_.layers; ++k) Subtract(y_[At(h)], story_[At(h)][At(k)], y_[At(k)]);
    return true;
  }

  CaseTable SubstituteBack() const {
    CaseTable x(eq_.Count(), eq_.cases);
    for (auto row = stored_.rbegin(); row != stored_.rend(); ++row) {
      if (row->fixed) continue;
      for (int c = 0; c < eq_.cases; ++c) {
        double value = row->load[At(c)];
        for (std::size_t t = 0; t < row->slot.size(); ++t) {
          const int node = row->slot[t];
          if (node < row->node) continue;
          for (int d = node == row->node ? row->d + 1 : 0; d < dofs_; ++d)
            value -= row->front[dofs_ * t + At(d)] * x[3 * (node - 1) + FirstDof() + d][c];
        }
        for (int h = 0; h < eq_.layers; ++h) value -= row->border[At(h)] * y_[At(h)][At(c)];
        x[3 * (row->node - 1) + FirstDof() + row->d][c] = value;
      }
    }
    for (int node = 1; node <= eq_.nodes; ++node)
      for (int c = 0; c < eq_.cases && LayerOf(node) != 0; ++c)
        x[3 * (node - 1)][c] = y_[At(LayerOf(node) - 1)][At(c)];
    return x;
  }

  const Equations& eq_;
  const bool grouped_;
  const int dofs_, width_;
  std::vector<int> slot_;
  Rows front_, load_, border_, borderT_, story_, y_;
  std::vector<StoredRow> stored_;
};

}  // namespace zorlan::test
