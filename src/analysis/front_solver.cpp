#include "analysis/front_solver.h"

#include <algorithm>
#include <cmath>

#include "analysis/row_reduction.h"

namespace zorlan {
namespace {

constexpr int kNoDiagonal = -1;

/// Columns up to which a node's three rows are reduced together: the six rows of the sweep then stay in the
/// processor's nearest cache. Wider ones are faster row by row, each read in one stream.
constexpr int kSharedWidth = 512;

constexpr std::size_t kWorkOfANode = kWorkBetweenTells / 64;  // multiplications beside its reductions

/// Which slot each node takes, found without numbers: the first free one when the first record meets it.
struct SlotPlan {
  std::vector<int> slotOf;  // of each node row, from place 1; -1 if no record meets the node
  int slots = 0;            // the widest front, in slots
};

SlotPlan PlanSlots(const Equations& equations) {
  SlotPlan plan;
  plan.slotOf.assign(static_cast<std::size_t>(equations.nodes) + 1, -1);
  std::vector<bool> used;
  const auto take = [&](int node) {
    int& slot = plan.slotOf[static_cast<std::size_t>(node)];
    if (slot >= 0) return;
    slot = static_cast<int>(std::find(used.begin(), used.end(), false) - used.begin());
    if (slot == static_cast<int>(used.size())) used.push_back(true);
    used[static_cast<std::size_t>(slot)] = true;
  };
  std::size_t record = 0;
  for (int node = 1; node <= equations.nodes; ++node) {
    for (int k = 0; k < equations.recordsAtRow[static_cast<std::size_t>(node)]; ++k, ++record) {
      take(equations.records[record].rowI);
      take(equations.records[record].rowJ);
    }
    if (const int slot = plan.slotOf[static_cast<std::size_t>(node)]; slot >= 0)
      used[static_cast<std::size_t>(slot)] = false;
  }
  plan.slots = static_cast<int>(used.size());
  return plan;
}

class FrontSweep {
 public:
  FrontSweep(const Equations& equations, double pivotTolerance, const Progress& progress)
      : eq_(equations),
        tolerance_(pivotTolerance),
        progress_(progress),
        grouped_(equations.layers > 0),
        dofs_(grouped_ ? 2 : 3),
        cases_(equations.cases),
        columns_(cases_ + equations.layers),
        plan_(PlanSlots(equations)),
        stride_(static_cast<std::size_t>(columns_ + plan_.slots * dofs_)),
        front_(stride_ * static_cast<std::size_t>(plan_.slots * dofs_)),
        nodeAt_(static_cast<std::size_t>(plan_.slots)),
        layerRow_(static_cast<std::size_t>(equations.layers) + 1) {}

  std::optional<EliminatedRows> Run(NoStiffness& fault) {
    EliminatedRows rows;
    rows.nodes.reserve(static_cast<std::size_t>(eq_.nodes));
    for (int node = 1; node <= eq_.nodes; ++node) {
      for (int k = 0; k < eq_.recordsAtRow[static_cast<std::size_t>(node)]; ++k)
        Assemble(eq_.records[nextRecord_++]);
      if (!EliminateNode(node, rows, fault)) return std::nullopt;
      Worked(kWorkOfANode, node);
    }
    if (grouped_) rows.layers = TakeLayerSystem();
    return rows;
  }

 private:
  int SlotOf(int node) const { return plan_.slotOf[static_cast<std::size_t>(node)]; }
  int FirstRowOf(int node) const { return SlotOf(node) * dofs_; }
  double* FrontRow(int row) { return front_.data() + static_cast<std::size_t>(row) * stride_; }
  /// The first of the node's equations that stands in the front: with groups U belongs to the layer.
  int FirstDof() const { return 3 - dofs_; }
  std::int16_t CodeOf(int node, int d) const {
    return eq_.code[static_cast<std::size_t>(node)][static_cast<std::size_t>(FirstDof() + d)];
  }
  int LayerOf(int node) const { return grouped_ ? eq_.layer[static_cast<std::size_t>(node)] : 0; }

  /// The row of a layer, made when it is first met; null for layer 0, the sink of fixed U.
  double* LayerRow(int layer) {
    if (layer == 0) return nullptr;
    std::vector<double>& row = layerRow_[static_cast<std::size_t>(layer)];
    if (row.empty()) row.resize(stride_);
    layersInUse_ = std::max(layersInUse_, layer);
    return row.data();
  }

  void Worked(std::size_t multiplications, int node) {
    work_ += multiplications;
    if (work_ < kWorkBetweenTells) return;
    work_ = 0;
    progress_(static_cast<double>(node) / eq_.nodes);
  }
  void Assemble(const ElementRecord& record);
  void AddRow(double* row, const ElementRecord& record, std::size_t elementRow);
  void AddLoads(int node);
  bool EliminateNode(int node, EliminatedRows& rows, NoStiffness& fault);
  bool Pivot(int node, int d, NoStiffness& fault);
  const double* StoreRow(const double* row, EliminatedRows& rows) const;
  void ReduceOthers(int node);
  std::array<double, 3> Factors(const double* row, int diagonal) const;
  void Reduce(double* row, int diagonal);
  void ReduceNode(int firstRow);
  void ReduceSpan(double* row, const std::array<double, 3>& f, const std::array<const double*, 3>& p,
                  int count) const;
  LayerSystem TakeLayerSystem();

  const Equations& eq_;
  const double tolerance_;
  const Progress& progress_;
  std::size_t work_ = 0;  // since it was told
  const bool grouped_;
  const int dofs_;  // equations of a node in the front
  const int cases_;
  const int columns_;  // of a row in front of its first slot: load terms, layer coefficients
  const SlotPlan plan_;
  const std::size_t stride_;
  std::vector<double> front_;
  std::vector<int> nodeAt_;                    // node row held by each slot, 0 free
  std::vector<std::vector<double>> layerRow_;  // from place 1
  std::size_t nextRecord_ = 0;
  int slotsInUse_ = 0;   // the widest slot in use, plus 1
  int layersInUse_ = 0;  // the highest layer met so far

  // The node in hand: column of its first equation, and its pivot rows, null where nothing is eliminated.
  int ownColumn_ = 0;
  std::array<const double*, 3> pivot_{};
};

/// A fixed equation is neither a pivot nor reduced: its row stays empty, so that the slot's next node finds
/// it so.
void FrontSweep::Assemble(const ElementRecord& record) {
  for (const int node : {record.rowI, record.rowJ}) {
    nodeAt_[static_cast<std::size_t>(SlotOf(node))] = node;
    slotsInUse_ = std::max(slotsInUse_, SlotOf(node) + 1);
    LayerRow(LayerOf(node));
  }
  for (std::size_t end = 0; end < 2; ++end) {
    const int node = end == 0 ? record.rowI : record.rowJ;
    for (int d = 0; d < dofs_; ++d)
      if (CodeOf(node, d) != kFixed)
        AddRow(FrontRow(FirstRowOf(node) + d), record, 3 * end + static_cast<std::size_t>(FirstDof() + d));
    if (double* const row = LayerRow(LayerOf(node))) AddRow(row, record, 3 * end);
  }
  if (record.loadsI) AddLoads(record.rowI);
  if (record.loadsJ) AddLoads(record.rowJ);
}

/// Adds one row of the element's matrix into a row of the front or of a layer.
void FrontSweep::AddRow(double* row, const ElementRecord& record, std::size_t elementRow) {
  for (std::size_t end = 0; end < 2; ++end) {
    const int node = end == 0 ? record.rowI : record.rowJ;
    double* const own = row + columns_ + FirstRowOf(node);
    for (int d = 0; d < dofs_; ++d)
      own[d] += record.k[TrianglePlace(elementRow, 3 * end + static_cast<std::size_t>(FirstDof() + d))];
    if (const int layer = LayerOf(node); layer != 0)
      row[cases_ + layer - 1] += record.k[TrianglePlace(elementRow, 3 * end)];
  }
}

void FrontSweep::AddLoads(int node) {
  const auto add = [&](double* row, int equation) {
    for (int c = 0; c < cases_; ++c) row[c] += eq_.loads[equation][c];
  };
  const int first = 3 * (node - 1);
  for (int d = 0; d < dofs_; ++d)
    if (CodeOf(node, d) != kFixed) add(FrontRow(FirstRowOf(node) + d), first + FirstDof() + d);
  if (double* const row = LayerRow(LayerOf(node))) add(row, first);
}

bool FrontSweep::EliminateNode(int node, EliminatedRows& rows, NoStiffness& fault) {
  if (SlotOf(node) < 0) {  // nothing is connected to the node: its pivot lies behind the front
    fault = {plan_.slots * dofs_ + 1, eq_.number[static_cast<std::size_t>(node)],
             DirectionOf(eq_.kind, FirstDof())};
    return false;
  }
  EliminatedNode eliminated;
  eliminated.node = node;
  eliminated.layers = layersInUse_;
  eliminated.slot.assign(nodeAt_.begin(), nodeAt_.begin() + slotsInUse_);
  ownColumn_ = columns_ + FirstRowOf(node);
  for (int d = 0; d < dofs_; ++d) {
    pivot_[static_cast<std::size_t>(d)] = nullptr;
    double* const own = FrontRow(FirstRowOf(node) + d);
    if (CodeOf(node, d) == kFixed) continue;
    if (!Pivot(node, d, fault)) return false;
    eliminated.row[static_cast<std::size_t>(d)] = StoreRow(own, rows);
  }
  ReduceOthers(node);
  for (int d = 0; d < dofs_; ++d) {
    double* const own = FrontRow(FirstRowOf(node) + d);
    std::fill(own, own + columns_ + slotsInUse_ * dofs_, 0.0);
  }
  nodeAt_[static_cast<std::size_t>(SlotOf(node))] = 0;
  while (slotsInUse_ > 0 && nodeAt_[static_cast<std::size_t>(slotsInUse_ - 1)] == 0) --slotsInUse_;
  rows.nodes.push_back(std::move(eliminated));
  return true;
}

/// Divides the row of the node's equation d by its pivot and reduces the node's later rows. False: an
/// unstable structure.
bool FrontSweep::Pivot(int node, int d, NoStiffness& fault) {
  double* const own = FrontRow(FirstRowOf(node) + d);
  const double p = own[ownColumn_ + d];
  if (std::abs(p) < tolerance_) {
    const int dof = FirstDof() + d;
    if (IsRotation(eq_.kind, dof)) return true;  // tolerated: its row stays undivided
    fault = {FirstRowOf(node) + d + 1, eq_.number[static_cast<std::size_t>(node)],
             DirectionOf(eq_.kind, dof)};
    return false;
  }
  const auto divide = [p](double* from, double* to) {
    for (; from != to; ++from) *from /= p;
  };
  divide(own, own + cases_ + layersInUse_);
  divide(own + columns_, own + columns_ + slotsInUse_ * dofs_);
  for (int later = d + 1; later < dofs_; ++later) {
    double* const row = FrontRow(FirstRowOf(node) + later);
    const double f = row[ownColumn_ + d];
    if (row[ownColumn_ + later] == 0 || CodeOf(node, later) == kFixed || f == 0) continue;
    ReduceSpan(row, {f}, {own}, 1);
  }
  pivot_[static_cast<std::size_t>(d)] = own;
  return true;
}

const double* FrontSweep::StoreRow(const double* row, EliminatedRows& rows) const {
  const int slotColumns = slotsInUse_ * dofs_;
  double* const stored = rows.store.Take(static_cast<std::size_t>(cases_ + layersInUse_ + slotColumns));
  double* const end = std::copy_n(row, cases_ + layersInUse_, stored);
  std::copy_n(row + columns_, slotColumns, end);
  return stored;
}

/// Reduces every other row by the node's pivot rows: all of the front, then the layers'.
void FrontSweep::ReduceOthers(int node) {
  const bool narrow = columns_ + slotsInUse_ * dofs_ <= kSharedWidth;
  const bool allPivots =
      narrow && dofs_ == 3 && pivot_[0] != nullptr && pivot_[1] != nullptr && pivot_[2] != nullptr;
  const std::size_t workOfASlot = static_cast<std::size_t>(3 * dofs_) * stride_;
  for (int slot = 0; slot < slotsInUse_; ++slot) {
    Worked(workOfASlot, node);
    const int other = nodeAt_[static_cast<std::size_t>(slot)];
    if (other == 0 || other == node) continue;
    const int first = slot * dofs_;
    if (allPivots && CodeOf(other, 0) != kFixed && CodeOf(other, 1) != kFixed && CodeOf(other, 2) != kFixed) {
      ReduceNode(first);
      continue;
    }
    for (int d = 0; d < dofs_; ++d)
      if (CodeOf(other, d) != kFixed)
        Reduce(FrontRow(first + d), columns_ + first + d);  // a fixed one is never reduced
  }
  for (int layer = 1; layer <= layersInUse_; ++layer)
    if (std::vector<double>& row = layerRow_[static_cast<std::size_t>(layer)]; !row.empty())
      Reduce(row.data(), kNoDiagonal);
}

/// How often a row takes each of the node's pivot rows: what the reductions before it have left of the row's
/// coefficient. 0 where there is no pivot, or the row's diagonal has come to 0 (a layer's row has no such
/// test).
std::array<double, 3> FrontSweep::Factors(const double* row, int diagonal) const {
  std::array<double, 3> f{};
  for (int d = 0; d < dofs_; ++d) f[static_cast<std::size_t>(d)] = row[ownColumn_ + d];
  double diagonalLeft = diagonal == kNoDiagonal ? 1 : row[diagonal];
  for (int d = 0; d < dofs_; ++d) {
    const double* const pivot = pivot_[static_cast<std::size_t>(d)];
    double& factor = f[static_cast<std::size_t>(d)];
    if (pivot == nullptr || diagonalLeft == 0) factor = 0;
    if (factor == 0) continue;
    for (int later = d + 1; later < dofs_; ++later)
      f[static_cast<std::size_t>(later)] -= factor * pivot[ownColumn_ + later];
    if (diagonal != kNoDiagonal) diagonalLeft -= factor * pivot[diagonal];
  }
  return f;
}

/// row -= f1 x pivot row 1, then 2, then 3, in one sweep.
void FrontSweep::Reduce(double* row, int diagonal) {
  const std::array<double, 3> factors = Factors(row, diagonal);
  std::array<double, 3> f{};
  std::array<const double*, 3> p{};
  int count = 0;
  for (std::size_t d = 0; d < 3; ++d) {
    if (factors[d] == 0) continue;
    f[static_cast<std::size_t>(count)] = factors[d];
    p[static_cast<std::size_t>(count++)] = pivot_[d];
  }
  if (count > 0) ReduceSpan(row, f, p, count);
  std::fill_n(row + ownColumn_, dofs_, 0.0);
}

/// The three rows of a node of which none is fixed, by all three pivots at once. A factor of 0 changes
/// nothing.
void FrontSweep::ReduceNode(int firstRow) {
  std::array<double*, 3> rows{};
  std::array<double, 9> f{};
  for (int d = 0; d < 3; ++d) {
    double* const row = FrontRow(firstRow + d);
    rows[static_cast<std::size_t>(d)] = row;
    const std::array<double, 3> factors = Factors(row, columns_ + firstRow + d);
    std::copy(factors.begin(), factors.end(), f.begin() + 3 * d);
  }
  ReduceThreeRows(rows.data(), pivot_.data(), f.data(),
                  static_cast<std::size_t>(columns_ + slotsInUse_ * dofs_));
  for (double* const row : rows) std::fill_n(row + ownColumn_, 3, 0.0);
}

void FrontSweep::ReduceSpan(double* row, const std::array<double, 3>& f,
                            const std::array<const double*, 3>& p, int count) const {
  const auto slotColumns = static_cast<std::size_t>(slotsInUse_ * dofs_);
  if (!grouped_) {
    ReduceRow(row, p.data(), f.data(), count, static_cast<std::size_t>(columns_) + slotColumns);
    return;
  }
  ReduceRow(row, p.data(), f.data(), count, static_cast<std::size_t>(cases_ + layersInUse_));
  std::array<const double*, 3> behind{};
  for (int k = 0; k < count; ++k)
    behind[static_cast<std::size_t>(k)] = p[static_cast<std::size_t>(k)] + columns_;
  ReduceRow(row + columns_, behind.data(), f.data(), count, slotColumns);
}

LayerSystem FrontSweep::TakeLayerSystem() {
  const auto layers = static_cast<std::size_t>(eq_.layers);
  LayerSystem system{std::vector<double>(layers * layers), CaseTable(eq_.layers, cases_), {}};
  for (std::size_t h = 0; h < layers; ++h) {
    const std::vector<double>& row = layerRow_[h + 1];
    if (row.empty()) continue;
    std::copy_n(row.data(), cases_, system.loads[static_cast<int>(h)]);
    std::copy_n(row.data() + cases_, layers, system.stiffness.data() + h * layers);
  }
  return system;
}

}  // namespace

double* RowStore::Take(std::size_t count) {
  if (count > left_) {
    left_ = std::max(count, kBlock);
    blocks_.push_back(std::make_unique_for_overwrite<double[]>(left_));
    next_ = blocks_.back().get();
  }
  double* const taken = next_;
  next_ += count;
  left_ -= count;
  return taken;
}

std::optional<EliminatedRows> EliminateFront(const Equations& equations, double pivotTolerance,
                                             NoStiffness& fault, const Progress& progress) {
  return FrontSweep(equations, pivotTolerance, progress).Run(fault);
}

CaseTable SubstituteBack(const Equations& equations, const EliminatedRows& rows,
                         const CaseTable& layerDisplacements, const Progress& progress) {
  const int cases = equations.cases;
  const int dofs = equations.layers > 0 ? 2 : 3, firstDof = 3 - dofs;
  CaseTable x(equations.Count(), cases);
  std::size_t work = 0, done = 0;
  for (auto node = rows.nodes.rbegin(); node != rows.nodes.rend(); ++node) {
    for (int d = dofs - 1; d >= 0; --d) {
      const double* const row = node->row[static_cast<std::size_t>(d)];
      if (row == nullptr) continue;
      double* const own = x[3 * (node->node - 1) + firstDof + d];
      std::copy_n(row, cases, own);
      const double* coefficient = row + cases + node->layers;
      for (const int other : node->slot) {  // every node in the front is this one or a later one
        const int first = other == node->node ? d + 1 : 0;
        if (other != 0 && first < dofs)
          SubtractProducts(own, coefficient + first, x[3 * (other - 1) + firstDof + first], dofs - first,
                           cases);
        coefficient += dofs;
      }
      for (int h = 0; h < node->layers; ++h)
        SubtractProducts(own, row + cases + h, layerDisplacements[h], 1, cases);
    }
    ++done;
    work += kWorkOfANode + node->slot.size() * static_cast<std::size_t>(dofs * dofs * cases);
    if (work < kWorkBetweenTells) continue;
    work = 0;
    progress(static_cast<double>(done) / static_cast<double>(rows.nodes.size()));
  }
  if (equations.layers > 0)
    for (int row = 1; row <= equations.nodes; ++row)
      if (const int layer = equations.layer[static_cast<std::size_t>(row)]; layer != 0)
        std::copy_n(layerDisplacements[layer - 1], cases, x[3 * (row - 1)]);
  return x;
}

}  // namespace zorlan
