// Displacements by a textbook assembly and Eigen's sparse factorization. Nothing here is shared with the
// engine.
#include <cmath>
#include <Eigen/SparseCholesky>
#include <stdexcept>

#include "frames.h"

namespace zorlan::bench {
namespace {

using Matrix6 = Eigen::Matrix<double, 6, 6>;
using Vector6 = Eigen::Matrix<double, 6, 1>;
using Extended = Eigen::Matrix<long double, Eigen::Dynamic, 1>;

/// An element in the plane: length and direction.
struct Line {
  double L, c, s;
  Line(const Frame& frame, const Frame::Element& element) {
    const Frame::Node& i = frame.nodes[std::size_t(element.i)];
    const Frame::Node& j = frame.nodes[std::size_t(element.j)];
    L = std::hypot(j.x - i.x, j.y - i.y);
    c = (j.x - i.x) / L;
    s = (j.y - i.y) / L;
  }
};

/// Local bending matrix for deflection and slope at both ends.
Eigen::Matrix4d Bending(double EI, double L) {
  Eigen::Matrix4d k;
  k << 12, 6 * L, -12, 6 * L,               //
      6 * L, 4 * L * L, -6 * L, 2 * L * L,  //
      -12, -6 * L, 12, -6 * L,              //
      6 * L, 2 * L * L, -6 * L, 4 * L * L;
  return EI / (L * L * L) * k;
}

/// Deflection and slope at both ends from the six global displacements. In a frame the deflection is along
/// the local y axis; in a grid it is W, and the slope is the negative rotation about the horizontal normal.
Eigen::Matrix<double, 4, 6> BendingDirections(const Line& line, int kind) {
  Eigen::Matrix<double, 4, 6> T = Eigen::Matrix<double, 4, 6>::Zero();
  for (int end = 0; end < 2; ++end) {
    if (kind == 3) {
      T(2 * end, 3 * end) = 1;
      T(2 * end + 1, 3 * end + 1) = line.s;
      T(2 * end + 1, 3 * end + 2) = -line.c;
    } else {
      T(2 * end, 3 * end) = -line.s;
      T(2 * end, 3 * end + 1) = line.c;
      T(2 * end + 1, 3 * end + 2) = 1;
    }
  }
  return T;
}

Matrix6 Stiffness(const Frame& frame, const Frame::Element& element) {
  const Line line(frame, element);
  const Frame::Section& section = frame.sections[std::size_t(element.section)];
  const double E = frame.E * 1e3;  // kN/m2
  const auto T = BendingDirections(line, frame.kind);
  Matrix6 k = T.transpose() * Bending(E * section.inertia * 1e-8, line.L) * T;
  if (frame.kind != 3) {
    Vector6 stretch;
    stretch << -line.c, -line.s, 0, line.c, line.s, 0;
    k += E * section.area * 1e-4 / line.L * stretch * stretch.transpose();
  }
  return k;
}

/// The nodal loads that do the work of a uniform vertical load p downward on a horizontal element.
Vector6 BeamLoadTerms(const Frame& frame, const Frame::Element& element, double p) {
  const Line line(frame, element);
  const double L = line.L;
  const Eigen::Vector4d local(-p * L / 2, -p * L * L / 12, -p * L / 2, p * L * L / 12);
  Eigen::Matrix<double, 4, 6> T = BendingDirections(line, frame.kind);
  return T.transpose() * local;
}

/// The unknown of every node's three directions, -1 where held; the nodes of a group share the first.
std::vector<int> Unknowns(const Frame& frame, int& count) {
  std::vector<int> unknown(frame.nodes.size() * 3, -1);
  count = 0;
  for (const std::vector<int>& group : frame.groups) {
    for (const int node : group) unknown[std::size_t(node) * 3] = count;
    ++count;
  }
  for (std::size_t n = 0; n < frame.nodes.size(); ++n)
    for (std::size_t d = 0; d < 3; ++d)
      if (!frame.nodes[n].fixed[d] && unknown[3 * n + d] < 0) unknown[3 * n + d] = count++;
  return unknown;
}

/// b - K x with K symmetric, all in extended precision.
Extended Residual(const Eigen::SparseMatrix<double>& K, const Extended& b, const Extended& x) {
  Extended r = b;
  for (int column = 0; column < K.outerSize(); ++column)
    for (Eigen::SparseMatrix<double>::InnerIterator entry(K, column); entry; ++entry)
      r[entry.row()] -= static_cast<long double>(entry.value()) * x[column];
  return r;
}

}  // namespace

std::vector<double> IndependentDisplacements(const Frame& frame) {
  int count = 0;
  const std::vector<int> unknown = Unknowns(frame, count);
  const auto place = [&](const Frame::Element& element, int k) {
    return unknown[std::size_t(k < 3 ? 3 * element.i + k : 3 * element.j + k - 3)];
  };
  std::vector<Eigen::Triplet<double>> entries;
  for (const Frame::Element& element : frame.elements) {
    const Matrix6 k = Stiffness(frame, element);
    for (int row = 0; row < 6; ++row)
      for (int column = 0; column < 6; ++column)
        if (place(element, row) >= 0 && place(element, column) >= 0)
          entries.emplace_back(place(element, row), place(element, column), k(row, column));
  }
  Eigen::SparseMatrix<double> K(count, count);
  K.setFromTriplets(entries.begin(), entries.end());
  const Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> factors(K);
  if (factors.info() != Eigen::Success) throw std::runtime_error(frame.name + ": singular");

  std::vector<Extended> loads(std::size_t(frame.cases), Extended::Zero(count));
  for (const Frame::NodalLoad& load : frame.nodalLoads)
    for (std::size_t d = 0; d < 3; ++d)
      if (const int at = unknown[std::size_t(load.node) * 3 + d]; at >= 0)
        loads[std::size_t(load.loadCase)][at] += load.force[d];
  for (const Frame::BeamLoad& load : frame.beamLoads) {
    const Frame::Element& element = frame.elements[std::size_t(load.element)];
    const Vector6 terms = BeamLoadTerms(frame, element, load.p);
    for (int k = 0; k < 6; ++k)
      if (const int at = place(element, k); at >= 0) loads[std::size_t(load.loadCase)][at] += terms[k];
  }

  std::vector<double> displacements;
  displacements.reserve(unknown.size() * std::size_t(frame.cases));
  for (const Extended& b : loads) {
    Extended x = Extended::Zero(count);
    for (int pass = 0; pass < 4; ++pass) {
      const Eigen::VectorXd r = Residual(K, b, x).cast<double>();
      x += Eigen::VectorXd(factors.solve(r)).cast<long double>();
    }
    for (const int at : unknown) displacements.push_back(at < 0 ? 0.0 : double(x[at]));
  }
  return displacements;
}

}  // namespace zorlan::bench
