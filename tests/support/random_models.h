// Sound random models of the three kinds: a jittered lattice of rigid and pinned members with supports,
// springs, rigid zones, shear deformation and loads of every TYPE. Case 3 has the loads of the cases 1 and 2.
#pragma once

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "support/model_builder.h"

namespace zorlan::test {

struct RandomShape {
  ModelKind kind = kPlaneFrame;
  int columns = 4, storeys = 4;  // nodes across and up
  std::uint32_t seed = 1;
  int Nodes() const { return columns * storeys; }
  std::string Name() const {
    static constexpr const char* kKinds[] = {"", "frame", "floors", "grid"};
    return std::string(kKinds[kind]) + " " + std::to_string(columns) + " x " + std::to_string(storeys) +
           " seed " + std::to_string(seed);
  }
};

class RandomModel {
 public:
  explicit RandomModel(const RandomShape& shape)
      : shape_(shape), grid_(shape.kind == kPlaneGrid), random_(shape.seed), built_(shape.kind, 3) {
    for (int s = 0; s < 4; ++s)
      built_.Section(Between(5e5, 3e6), Between(0.01, 0.05), Between(1e-4, 3e-3), s % 2 == 0 ? 0 : 8e5, 0.01);
    for (int r = 0; r < 3; ++r) built_.RigidZones(Between(0, 0.2), Between(0, 0.2));
    PlaceNodes();
    for (int up = 0; up < shape.storeys; ++up)
      for (int across = 0; across < shape.columns; ++across) Connect(across, up);
    if (shape.kind == kSameDisplacementFrame) GroupTheFloors();
    for (const int loadCase : {1, 2}) Load(loadCase);
    DoubleTheLoadsIntoCaseThree();
  }
  const ModelRec& Model() const { return built_.model; }

 private:
  double Between(double low, double high) {
    return low + (high - low) * (static_cast<double>(random_()) / 4294967296.0);
  }
  int Below(int count) { return static_cast<int>(random_() % static_cast<std::uint64_t>(count)); }
  bool Chance(double share) { return Between(0, 1) < share; }
  int At(int across, int up) const {
    return place_[static_cast<std::size_t>(up * shape_.columns + across)] + 1;
  }

  /// The node table in a shuffled order, so that nothing follows from the numbers.
  void PlaceNodes() {
    std::vector<int> order(static_cast<std::size_t>(shape_.Nodes()));
    std::iota(order.begin(), order.end(), 0);
    for (std::size_t i = order.size(); i > 1; --i)
      std::swap(order[i - 1], order[static_cast<std::size_t>(Below(static_cast<int>(i)))]);
    place_.resize(order.size());
    for (std::size_t p = 0; p < order.size(); ++p)
      place_[static_cast<std::size_t>(order[p])] = static_cast<int>(p);
    for (const int lattice : order) {
      const int across = lattice % shape_.columns, up = lattice / shape_.columns;
      const bool supported = up == 0 || (grid_ && up == shape_.storeys - 1);
      const Codes code = supported ? SupportCodes() : kLoose;
      const int node = built_.Node(5 * across + Between(-0.8, 0.8), 4 * up + Between(-0.6, 0.6), code);
      if (std::count(code.begin(), code.end(), kSpring) > 0) {
        const auto k = [&](int d, double stiffness) {
          return code[static_cast<std::size_t>(d)] == kSpring ? stiffness : 0;
        };
        const double turning = Between(1e4, 1e5);
        built_.Spring(node, k(0, Between(20, 200)), k(1, grid_ ? turning : Between(20, 200)), k(2, turning));
      }
    }
  }
  Codes SupportCodes() {
    static constexpr Codes kFrame[] = {kClamped, kClamped, kHinged, {1, 2, 1}, {2, 1, 2}, {2, 2, 0}};
    static constexpr Codes kGrid[] = {kClamped, {1, 0, 0}, {1, 2, 0}, {2, 0, 0}, {1, 0, 2}};
    return grid_ ? kGrid[Below(std::size(kGrid))] : kFrame[Below(std::size(kFrame))];
  }

  void Connect(int across, int up) {
    if (up + 1 < shape_.storeys) Member(At(across, up), At(across, up + 1), false);
    if (across + 1 == shape_.columns || (up == 0 && !grid_)) return;
    // A beam may be pinned at its left end where another one holds the node's rotation.
    Member(At(across, up), At(across + 1, up), across > 0 && Chance(0.25));
    if (!grid_ && Chance(0.2)) built_.Element(At(across, up - 1), At(across + 1, up), 1, 1, 1);
  }
  void Member(int from, int to, bool pinnedFrom) {
    const int section = 1 + Below(4), rigid = Below(4);
    if (Chance(0.5))
      built_.Element(from, to, section, pinnedFrom ? 1 : 0, 0, rigid);
    else
      built_.Element(to, from, section, 0, pinnedFrom ? 1 : 0, rigid);
  }
  /// Some nodes and some floors stay on their own.
  void GroupTheFloors() {
    for (int up = 1; up < shape_.storeys; ++up) {
      DispRec group;
      group.group = static_cast<std::int16_t>(up);
      for (int across = 0; across < shape_.columns; ++across)
        if (Chance(0.8))
          group.node[static_cast<std::size_t>(++group.count)] = static_cast<std::int16_t>(At(across, up));
      if (group.count > 1) AppendRow(built_.model.Disp, built_.model.DispCount, group);
    }
    if (built_.model.DispCount == 0) built_.Group({At(0, 1)});
  }

  void Load(int loadCase) {
    for (int k = 0; k < 4; ++k) {
      const int node = 1 + Below(shape_.Nodes());
      built_.NodalLoad(node, Between(-5, 5), Between(-5, 5), Between(-2, 2), loadCase);
    }
    for (int k = 0; k < 2 * shape_.Nodes(); ++k)
      built_.ElementLoad(1 + Below(built_.model.ElemCount), Between(-3, 3), Below(21) - 1,
                         Chance(0.3) ? 0 : Between(0.2, 1.5), grid_ ? 0 : Below(4) - 1, loadCase);
    for (int k = 0; k < 4 && !grid_; ++k)
      built_.CmqLoad(1 + Below(built_.model.ElemCount), Between(-3, 3), Between(-3, 3), Between(-3, 3),
                     Between(-3, 3), Between(-3, 3), Below(2), loadCase);
  }
  template <class Load>
  static void Double(Rows<Load>& loads, std::int16_t& count) {
    for (int r = 1, last = count; r <= last; ++r) {
      Load load = loads[r];
      load.loadCase = 3;
      AppendRow(loads, count, load);
    }
  }
  void DoubleTheLoadsIntoCaseThree() {
    ModelRec& model = built_.model;
    Double(model.Plod, model.PlodCount);
    Double(model.Elod, model.ElodCount);
    Double(model.Clod, model.ClodCount);
  }

  RandomShape shape_;
  bool grid_;
  std::mt19937 random_;
  ModelBuilder built_;
  std::vector<int> place_;  // node row - 1 of each place of the lattice
};

}  // namespace zorlan::test
