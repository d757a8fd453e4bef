#include "frames.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <random>
#include <utility>

namespace zorlan::bench {
namespace {

constexpr double kBay = 6.0, kStorey = 3.5;  // m
constexpr int kMaxLoadRows = 1000;           // of one kind in a deck

/// Adds the nodes and elements that divide the straight member from i to j into equal parts.
void AddMember(Frame& frame, int i, int j, int parts, int section) {
  const Frame::Node from = frame.nodes[std::size_t(i)], to = frame.nodes[std::size_t(j)];
  int last = i;
  for (int part = 1; part <= parts; ++part) {
    int next = j;
    if (part < parts) {
      const double t = double(part) / parts;
      next = int(frame.nodes.size());
      frame.nodes.push_back({from.x + t * (to.x - from.x), from.y + t * (to.y - from.y), {}});
    }
    frame.elements.push_back({last, next, section});
    last = next;
  }
}

/// Loads the horizontal elements: all of them in every case, or as many as the rows of a deck allow, spread
/// evenly and others in each case.
void LoadBeams(Frame& frame, double p) {
  std::vector<int> beams;
  for (std::size_t e = 0; e < frame.elements.size(); ++e)
    if (frame.nodes[std::size_t(frame.elements[e].i)].y == frame.nodes[std::size_t(frame.elements[e].j)].y)
      beams.push_back(int(e));
  const std::size_t perCase = std::min(beams.size(), std::size_t(kMaxLoadRows / frame.cases));
  for (int c = 0; c < frame.cases; ++c)
    for (std::size_t b = 0; b < perCase; ++b) {
      const std::size_t place = (b * beams.size() / perCase + std::size_t(c)) % beams.size();
      frame.beamLoads.push_back({c, beams[place], p + c});
    }
}

/// Moves node n to place[n].
void Renumber(Frame& frame, const std::vector<int>& place) {
  const std::vector<Frame::Node> before = frame.nodes;
  for (std::size_t n = 0; n < before.size(); ++n) frame.nodes[std::size_t(place[n])] = before[n];
  for (Frame::Element& element : frame.elements) {
    element.i = place[std::size_t(element.i)];
    element.j = place[std::size_t(element.j)];
  }
  for (Frame::NodalLoad& load : frame.nodalLoads) load.node = place[std::size_t(load.node)];
  for (std::vector<int>& group : frame.groups)
    for (int& node : group) node = place[std::size_t(node)];
}

/// Places by the method of Cuthill and McKee from node 0: neighbours of a numbered node come next, those with
/// few neighbours first.
std::vector<int> PlacesByWaves(const Frame& frame) {
  std::vector<std::vector<int>> neighbours(frame.nodes.size());
  for (const Frame::Element& element : frame.elements) {
    neighbours[std::size_t(element.i)].push_back(element.j);
    neighbours[std::size_t(element.j)].push_back(element.i);
  }
  std::vector<int> place(frame.nodes.size(), -1);
  std::vector<int> order = {0};
  place[0] = 0;
  for (std::size_t n = 0; n < order.size(); ++n) {
    std::vector<int>& next = neighbours[std::size_t(order[n])];
    std::ranges::stable_sort(next, {}, [&](int node) { return neighbours[std::size_t(node)].size(); });
    for (const int node : next)
      if (place[std::size_t(node)] < 0) {
        place[std::size_t(node)] = int(order.size());
        order.push_back(node);
      }
  }
  return place;
}

std::string Named(std::string name, int cases) {
  return fmt::format("{}-{:02}", name, cases);
}

}  // namespace

Frame RegularFrame(int bays, int storeys, int cases, int columnParts, int beamParts) {
  constexpr int kColumn = 0, kBeam = 1;
  Frame frame;
  frame.cases = cases;
  frame.sections = {{400, 120000}, {190, 80000}};
  const int columns = bays + 1;
  for (int level = 0; level <= storeys; ++level)
    for (int column = 0; column < columns; ++column)
      frame.nodes.push_back({kBay * column, kStorey * level, {level == 0, level == 0, level == 0}});
  const auto node = [&](int level, int column) { return level * columns + column; };
  for (int level = 1; level <= storeys; ++level) {
    for (int column = 0; column < columns; ++column)
      AddMember(frame, node(level - 1, column), node(level, column), columnParts, kColumn);
    for (int bay = 0; bay < bays; ++bay)
      AddMember(frame, node(level, bay), node(level, bay + 1), beamParts, kBeam);
  }
  std::mt19937 random(20);
  std::uniform_int_distribution<int> kilonewtons(10, 200);
  for (int c = 0; c < cases; ++c)
    for (int level = 1; level <= storeys; ++level)
      frame.nodalLoads.push_back({c, node(level, 0), {double(kilonewtons(random)), 0, 0}});
  LoadBeams(frame, 20);
  if (columnParts > 1 || beamParts > 1) Renumber(frame, PlacesByWaves(frame));
  return frame;
}

Frame RegularGrid(int nodesX, int nodesY, int cases) {
  constexpr double kSpacing = 2.0;  // m
  Frame frame;
  frame.kind = 3;
  frame.cases = cases;
  frame.sections = {{83.37, 23500}};
  for (int column = 0; column < nodesX; ++column)
    for (int row = 0; row < nodesY; ++row) {
      const bool edge = column == 0 || row == 0 || column == nodesX - 1 || row == nodesY - 1;
      frame.nodes.push_back({kSpacing * column, kSpacing * row, {edge, false, false}});
    }
  const auto node = [&](int column, int row) { return column * nodesY + row; };
  for (int column = 0; column < nodesX; ++column)
    for (int row = 0; row < nodesY; ++row) {
      if (row + 1 < nodesY) AddMember(frame, node(column, row), node(column, row + 1), 1, 0);
      if (column + 1 < nodesX) AddMember(frame, node(column, row), node(column + 1, row), 1, 0);
    }
  std::mt19937 random(25);
  std::uniform_int_distribution<int> kilonewtons(1, 20);
  std::uniform_int_distribution<int> anyNode(0, int(frame.nodes.size()) - 1);
  for (int c = 0; c < cases; ++c)
    for (int load = 0; load < kMaxLoadRows / cases; ++load)
      frame.nodalLoads.push_back({c, anyNode(random), {-double(kilonewtons(random)), 0, 0}});
  LoadBeams(frame, 5);
  return frame;
}

Frame WithFloorGroups(Frame frame) {
  frame.kind = 2;
  std::vector<std::pair<double, int>> levels;
  for (std::size_t n = 0; n < frame.nodes.size(); ++n)
    if (frame.nodes[n].y > 0) levels.emplace_back(frame.nodes[n].y, int(n));
  std::ranges::sort(levels);
  for (std::size_t n = 0; n < levels.size(); ++n) {
    if (n == 0 || levels[n].first != levels[n - 1].first) frame.groups.emplace_back();
    frame.groups.back().push_back(levels[n].second);
  }
  return frame;
}

Frame Shuffled(Frame frame, std::uint32_t seed) {
  std::vector<int> place(frame.nodes.size());
  std::iota(place.begin(), place.end(), 0);
  std::mt19937 random(seed);
  std::ranges::shuffle(place, random);
  Renumber(frame, place);
  return frame;
}

int HalfBand(const Frame& frame) {
  int widest = 0;
  for (const Frame::Element& element : frame.elements)
    widest = std::max(widest, std::abs(element.i - element.j));
  return widest + 1;
}

std::string DeckText(const Frame& frame) {
  std::string text;
  const auto out = std::back_inserter(text);
  fmt::format_to(out, "@TITL\r\n{}\r\n\r\n@SUBT\r\nBENCH\r\n\r\n", frame.name);
  fmt::format_to(out, "@CONT\r\n{},{},0,0\r\n\r\n@UNIT\r\n1,1,9.80665,0\r\n\r\n@NODE\r\n", frame.kind,
                 frame.cases);
  for (std::size_t n = 0; n < frame.nodes.size(); ++n) {
    const Frame::Node& node = frame.nodes[n];
    fmt::format_to(out, "{},{},{},{:d},{:d},{:d}\r\n", n + 1, node.x, node.y, node.fixed[0], node.fixed[1],
                   node.fixed[2]);
  }
  text += "\r\n@ELEM\r\n";
  for (std::size_t e = 0; e < frame.elements.size(); ++e) {
    const Frame::Element& element = frame.elements[e];
    fmt::format_to(out, "{},{},{},0,0,{}\r\n", e + 1, element.i + 1, element.j + 1, element.section + 1);
  }
  text += "\r\n@SECT\r\n";
  for (std::size_t s = 0; s < frame.sections.size(); ++s)
    fmt::format_to(out, "{},0,{},{},0,0,1,{},0\r\n", s + 1, frame.sections[s].area, frame.sections[s].inertia,
                   frame.E);
  text += "\r\n@PLOD\r\n";
  for (const Frame::NodalLoad& load : frame.nodalLoads)
    fmt::format_to(out, "{},{},{},{},{}\r\n", load.loadCase + 1, load.node + 1, load.force[0], load.force[1],
                   load.force[2]);
  text += "\r\n@ELOD\r\n";
  for (const Frame::BeamLoad& load : frame.beamLoads)
    fmt::format_to(out, "{},{},{},0,0,1,{}\r\n", load.loadCase + 1, load.element + 1, -load.p,
                   frame.kind == 3 ? 0 : 1);
  if (!frame.groups.empty()) text += "\r\n@DISP\r\n";
  for (std::size_t g = 0; g < frame.groups.size(); ++g) {
    fmt::format_to(out, "{}", g + 1);
    for (const int node : frame.groups[g]) fmt::format_to(out, ",{}", node + 1);
    text += "\r\n";
  }
  return text;
}

std::vector<Frame> BenchFrames() {
  struct Size {
    const char* name;
    int bays, storeys, columnParts, beamParts;
  };
  constexpr Size kSizes[] = {
      {"f0100", 9, 9, 1, 1},   {"f0500", 21, 22, 1, 1}, {"f1000", 31, 31, 1, 1},
      {"f2500", 49, 49, 1, 1}, {"f5000", 5, 20, 8, 40},
  };
  std::vector<Frame> frames;
  const auto add = [&](Frame frame, const char* name) {
    frame.name = Named(name, frame.cases);
    frames.push_back(std::move(frame));
  };
  for (const Size& size : kSizes)
    for (const int cases : {1, 20})
      add(RegularFrame(size.bays, size.storeys, cases, size.columnParts, size.beamParts), size.name);
  add(Shuffled(RegularFrame(31, 31, 20), 1000), "shuffled1000");
  add(RegularGrid(50, 50, 20), "grid2500");
  add(WithFloorGroups(RegularFrame(10, 20, 20)), "floors20");
  return frames;
}

}  // namespace zorlan::bench
