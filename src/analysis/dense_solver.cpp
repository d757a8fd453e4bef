#include "analysis/dense_solver.h"

#include <cmath>
#include <utility>

#include "analysis/layer_system.h"

namespace zorlan {
namespace {

constexpr double kPivotLimit = 1e-18;  // not the file road's 1e-20

/// A square or oblong matrix, a row after the other.
class Matrix {
 public:
  Matrix(int rows, int columns)
      : columns_(columns), values_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {}
  double* operator[](int row) { return values_.data() + static_cast<std::ptrdiff_t>(row) * columns_; }
  std::vector<double> Values() && { return std::move(values_); }

 private:
  int columns_;
  std::vector<double> values_;
};

/// target -= f x source from place `from` to `to`; what comes out with a magnitude of `drop` or less becomes
/// 0.
void SubtractAndDrop(double* target, const double* source, double f, int from, int to, double drop) {
  for (int j = from; j < to; ++j) {
    target[j] -= f * source[j];
    if (std::abs(target[j]) <= drop) target[j] = 0;
  }
}

void Divide(double* row, double p, int from, int to) {
  for (int j = from; j < to; ++j) row[j] /= p;
}

/// Adds every record into the matrix of all equations.
Matrix Assembled(const Equations& equations) {
  Matrix K(equations.Count(), equations.Count());
  for (const ElementRecord& record : equations.records)
    for (std::size_t r = 0; r < 6; ++r)
      for (std::size_t c = 0; c < 6; ++c) {
        const int rowNode = r < 3 ? record.rowI : record.rowJ, columnNode = c < 3 ? record.rowI : record.rowJ;
        K[3 * (rowNode - 1) + static_cast<int>(r % 3)][3 * (columnNode - 1) + static_cast<int>(c % 3)] +=
            record.k[TrianglePlace(r, c)];
      }
  return K;
}

/// Eliminates below the diagonal. False: an unstable structure.
bool Eliminate(const Equations& equations, double drop, Matrix& K, CaseTable& F, NoStiffness& fault) {
  const int n = equations.Count(), cases = equations.cases;
  for (int i = 0; i < n - 1; ++i) {
    if (equations.Code(i) == kFixed) continue;
    const double p = K[i][i];
    if (std::abs(p) < kPivotLimit) {
      if (IsRotation(equations.kind, i % 3)) continue;
      fault = {i + 1, equations.number[static_cast<std::size_t>(i / 3 + 1)],
               DirectionOf(equations.kind, i % 3)};
      return false;
    }
    Divide(K[i], p, i, n);
    Divide(F[i], p, 0, cases);
    for (int r = i + 1; r < n; ++r) {
      const double f = K[r][i];
      if (K[r][r] == 0 || equations.Code(r) == kFixed || f == 0) continue;
      SubtractAndDrop(K[r], K[i], f, i, n, drop);
      SubtractAndDrop(F[r], F[i], f, 0, cases, drop);
    }
  }
  return true;
}

}  // namespace

std::optional<DenseSolution> SolveDense(const Equations& equations, double dropTolerance,
                                        NoStiffness& fault) {
  const int n = equations.Count(), cases = equations.cases;
  Matrix K = Assembled(equations);
  CaseTable F = equations.loads;
  if (!Eliminate(equations, dropTolerance, K, F, fault)) return std::nullopt;

  DenseSolution solution{CaseTable(n, cases), CaseTable(n, cases)};
  CaseTable& x = solution.displacements;
  for (int i = n - 1; i >= 0; --i) {
    if (K[i][i] == 0 || equations.Code(i) == kFixed) continue;
    // The last equation was never a pivot row: the only division of the back substitution.
    const double p = i == n - 1 ? K[i][i] : 1;
    for (int c = 0; c < cases; ++c) {
      double sum = F[i][c];
      for (int j = i + 1; j < n; ++j) sum -= K[i][j] * x[j][c];
      x[i][c] = sum / p;
    }
  }
  for (int e = 0; e < n; ++e) {
    if (equations.Code(e) == kFree) continue;
    for (int c = 0; c < cases; ++c) {
      double sum = 0;
      for (int j = 0; j < n; ++j) sum += K[e][j] * x[j][c];
      solution.reactions[e][c] = sum - F[e][c];
    }
  }
  return solution;
}

namespace {

/// The in-memory system of a same-displacement frame. Node equations: V and θ of row r at 2(r-1) and
/// 2(r-1)+1; layers from 0.
struct LayeredSystem {
  explicit LayeredSystem(const Equations& equations)
      : n(2 * equations.nodes),
        layers(equations.layers),
        cases(equations.cases),
        front(n, n),
        border(n, layers),
        borderT(layers, n),
        story(layers, layers),
        load(n, cases),
        layerLoad(layers, cases) {}
  int n, layers, cases;
  Matrix front;    // node rows, node columns
  Matrix border;   // node rows, layer columns
  Matrix borderT;  // layer rows, node columns
  Matrix story;    // layer rows, layer columns
  CaseTable load, layerLoad;
};

LayeredSystem AssembledWithLayers(const Equations& equations) {
  LayeredSystem s(equations);
  const auto layerOf = [&](int node) { return equations.layer[static_cast<std::size_t>(node)] - 1; };
  for (const ElementRecord& record : equations.records)
    for (std::size_t r = 0; r < 6; ++r)
      for (std::size_t c = 0; c < 6; ++c) {
        const int rowNode = r < 3 ? record.rowI : record.rowJ, columnNode = c < 3 ? record.rowI : record.rowJ;
        const int row = r % 3 == 0 ? layerOf(rowNode) : 2 * (rowNode - 1) + static_cast<int>(r % 3) - 1;
        const int column =
            c % 3 == 0 ? layerOf(columnNode) : 2 * (columnNode - 1) + static_cast<int>(c % 3) - 1;
        if (row < 0 || column < 0) continue;  // a fixed U outside the groups
        Matrix& part = r % 3 == 0 ? (c % 3 == 0 ? s.story : s.borderT) : (c % 3 == 0 ? s.border : s.front);
        part[row][column] += record.k[TrianglePlace(r, c)];
      }
  for (int node = 1; node <= equations.nodes; ++node)
    for (int c = 0; c < s.cases; ++c) {
      const int first = 3 * (node - 1);
      if (layerOf(node) >= 0) s.layerLoad[layerOf(node)][c] += equations.loads[first][c];
      s.load[2 * (node - 1)][c] = equations.loads[first + 1][c];
      s.load[2 * (node - 1) + 1][c] = equations.loads[first + 2][c];
    }
  return s;
}

std::int16_t NodeCode(const Equations& equations, int q) {
  return equations.code[static_cast<std::size_t>(q / 2 + 1)][static_cast<std::size_t>(q % 2 + 1)];
}

bool EliminateNodes(const Equations& equations, double tolerance, LayeredSystem& s, NoStiffness& fault) {
  for (int q = 0; q < s.n; ++q) {
    if (NodeCode(equations, q) == kFixed) continue;
    const double p = s.front[q][q];
    if (std::abs(p) < tolerance) {
      if (q % 2 == 1) continue;
      fault = {q + 1, equations.number[static_cast<std::size_t>(q / 2 + 1)], NoStiffness::What::Y};
      return false;
    }
    Divide(s.front[q], p, q, s.n);
    Divide(s.border[q], p, 0, s.layers);
    Divide(s.load[q], p, 0, s.cases);
    for (int r = q + 1; r < s.n; ++r) {
      const double f = s.front[r][q];
      if (s.front[r][r] == 0 || NodeCode(equations, r) == kFixed || f == 0) continue;
      SubtractAndDrop(s.front[r], s.front[q], f, q, s.n, tolerance);
      SubtractAndDrop(s.border[r], s.border[q], f, 0, s.layers, tolerance);
      SubtractAndDrop(s.load[r], s.load[q], f, 0, s.cases, tolerance);
    }
    for (int h = 0; h < s.layers; ++h) {
      const double f = s.borderT[h][q];
      if (f == 0) continue;
      for (int j = q; j < s.n; ++j) s.borderT[h][j] -= f * s.front[q][j];
      for (int j = 0; j < s.layers; ++j) s.story[h][j] -= f * s.border[q][j];
      for (int c = 0; c < s.cases; ++c) s.layerLoad[h][c] -= f * s.load[q][c];
    }
  }
  return true;
}

/// Which layers are held: those whose last node in node table order has the U code 1.
std::vector<bool> HeldLayers(const Equations& equations) {
  std::vector<bool> held(static_cast<std::size_t>(equations.layers));
  for (int node = 1; node <= equations.nodes; ++node)
    if (const int layer = equations.layer[static_cast<std::size_t>(node)]; layer != 0)
      held[static_cast<std::size_t>(layer - 1)] = equations.code[static_cast<std::size_t>(node)][0] == kFixed;
  return held;
}

}  // namespace

std::optional<CaseTable> SolveDenseWithLayers(const Equations& equations, double tolerance,
                                              NoStiffness& fault) {
  LayeredSystem s = AssembledWithLayers(equations);
  if (!EliminateNodes(equations, tolerance, s, fault)) return std::nullopt;
  const std::optional<CaseTable> y = SolveLayers(
      {std::move(s.story).Values(), std::move(s.layerLoad), HeldLayers(equations)}, fault, [](double) {});
  if (!y) return std::nullopt;

  CaseTable x(equations.Count(), s.cases);
  for (int q = s.n - 1; q >= 0; --q) {
    // A rotation without stiffness was not divided; on this road it is 0.
    if (NodeCode(equations, q) == kFixed || std::abs(s.front[q][q]) < tolerance) continue;
    double* const own = x[3 * (q / 2) + q % 2 + 1];
    for (int c = 0; c < s.cases; ++c) {
      double sum = s.load[q][c];
      for (int j = q + 1; j < s.n; ++j) sum -= s.front[q][j] * x[3 * (j / 2) + j % 2 + 1][c];
      for (int h = 0; h < s.layers; ++h) sum -= s.border[q][h] * (*y)[h][c];
      own[c] = sum;
    }
  }
  for (int node = 1; node <= equations.nodes; ++node)
    if (const int layer = equations.layer[static_cast<std::size_t>(node)]; layer != 0)
      for (int c = 0; c < s.cases; ++c) x[3 * (node - 1)][c] = (*y)[layer - 1][c];
  return x;
}

}  // namespace zorlan
