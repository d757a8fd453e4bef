#include "graphics/supports.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zorlan {
namespace {

// Symbols stand in units of their size about the node: x to the right, y downward, the ground below. A
// quarter turn to the right holds a node in x as the upright symbol holds it in y.

struct Stroke {
  double x1, y1, x2, y2;
};

constexpr double kHalfBase = 0.6;       // of the triangle, which is 1 high
constexpr double kHalfWideBase = 0.75;  // of the inclined roller's
constexpr double kHalf = 0.9;           // of the line that the others stand on: the ground
constexpr double kRollerGround = 1.25;  // below the node
constexpr double kSlideGround = 0.25;   // below the line at the node
constexpr double kWheel = 0.11;         // radius of a roller's wheels
constexpr double kHatch = 0.3;          // across and down
constexpr double kTurn = 0.65;          // outer radius of a rotational spring
constexpr double kReach = 1.5;          // of a symbol's box below or beside the node

constexpr Stroke kTriangle[] = {{0, 0, -kHalfBase, 1}, {0, 0, kHalfBase, 1}, {-kHalfBase, 1, kHalfBase, 1}};
/// The inclined roller: a wider triangle, on its own ground.
constexpr Stroke kWideTriangle[] = {
    {0, 0, -kHalfWideBase, 1}, {0, 0, kHalfWideBase, 1}, {-kHalfWideBase, 1, kHalfWideBase, 1}};
constexpr Stroke kSquare[] = {
    {-0.3, -0.3, 0.3, -0.3}, {0.3, -0.3, 0.3, 0.3}, {0.3, 0.3, -0.3, 0.3}, {-0.3, 0.3, -0.3, -0.3}};
constexpr Stroke kSpring[] = {{0, 0, 0, 0.3},        {0, 0.3, -0.3, 0.4},    {-0.3, 0.4, 0.3, 0.6},
                              {0.3, 0.6, -0.3, 0.8}, {-0.3, 0.8, 0.3, 1.0},  {0.3, 1.0, 0, 1.1},
                              {0, 1.1, 0, 1.4},      {-0.45, 1.4, 0.45, 1.4}};

/// A symbol's frame on the figure: where it stands, how large and how it is turned.
struct Place {
  Place(Point node, double theSize, double angle)
      : at(node),
        size(theSize),
        c(std::cos(angle * std::numbers::pi / 180)),
        s(std::sin(angle * std::numbers::pi / 180)) {}

  Point Of(double x, double y) const {
    return {at.x + size * (x * c + y * s), at.y + size * (y * c - x * s)};
  }

  Point at;
  double size, c, s;
};

void DrawStrokes(Plot& plot, const Place& place, std::span<const Stroke> strokes, Rgb colour) {
  for (const Stroke& stroke : strokes) {
    const Point from = place.Of(stroke.x1, stroke.y1), to = place.Of(stroke.x2, stroke.y2);
    PlotLine(plot, from.x, from.y, to.x, to.y, colour);
  }
}

/// A line of the ground `y` below the node, hatched or bare.
void DrawGround(Plot& plot, const Place& place, double y, bool hatched, Rgb colour) {
  constexpr int kHatches = 5;
  const Stroke line = {-kHalf, y, kHalf, y};
  DrawStrokes(plot, place, {&line, 1}, colour);
  if (!hatched) return;
  for (int k = 0; k < kHatches; ++k) {
    const double x = -kHalf + kHatch + k * (2 * kHalf - kHatch) / (kHatches - 1);
    const Stroke hatch = {x, y, x - kHatch, y + kHatch};
    DrawStrokes(plot, place, {&hatch, 1}, colour);
  }
}

void DrawPin(Plot& plot, const Place& place, Rgb colour) {
  DrawStrokes(plot, place, kTriangle, colour);
  DrawGround(plot, place, 1, true, colour);
}

void DrawRoller(Plot& plot, const Place& place, Rgb colour) {
  DrawStrokes(plot, place, kTriangle, colour);
  for (const double x : {-0.35, 0.35}) {
    const Point wheel = place.Of(x, (1 + kRollerGround) / 2);
    PlotCircle(plot, wheel.x, wheel.y, kWheel * place.size, colour);
  }
  DrawGround(plot, place, kRollerGround, false, colour);
}

void DrawFixed(Plot& plot, const Place& place, Rgb colour) {
  DrawGround(plot, place, 0, true, colour);
}

/// Held against turning and across the ground, free along it.
void DrawSlide(Plot& plot, const Place& place, Rgb colour) {
  DrawGround(plot, place, 0, false, colour);
  DrawGround(plot, place, kSlideGround, true, colour);
}

void DrawSquare(Plot& plot, const Place& place, Rgb colour) {
  DrawStrokes(plot, place, kSquare, colour);
}

void DrawInclined(Plot& plot, const Place& place, Rgb colour) {
  DrawStrokes(plot, place, kWideTriangle, colour);
  DrawGround(plot, place, kRollerGround, false, colour);
}

void DrawInclinedFixed(Plot& plot, const Place& place, Rgb colour) {
  DrawStrokes(plot, place, kWideTriangle, colour);
  DrawGround(plot, place, kRollerGround, true, colour);
}

/// How a symbol is turned: the ground below the node, at its side, or along the support's own angle.
enum class Ground : std::uint8_t { Below, Aside, Inclined };

double AngleOf(Ground ground, double inclination, SupportSide side) {
  if (ground == Ground::Aside) return side == SupportSide::Left ? -90 : 90;
  return ground == Ground::Inclined ? inclination : 0;
}

/// What a code draws behind its springs. A spring's digit counts as 0 here.
struct Symbol {
  std::string_view code;
  void (*draw)(Plot&, const Place&, Rgb);
  Ground ground;
};
constexpr Symbol kSymbols[] = {
    {"001", DrawSquare, Ground::Below},
    {"010", DrawRoller, Ground::Below},
    {"011", DrawSlide, Ground::Below},
    {"100", DrawRoller, Ground::Aside},
    {"101", DrawSlide, Ground::Aside},
    {"110", DrawPin, Ground::Below},
    {"111", DrawFixed, Ground::Below},
    {"440", DrawInclined, Ground::Inclined},
    {"441", DrawInclinedFixed, Ground::Inclined},
};

constexpr std::string_view kCodes[] = {
    "000", "001", "002", "010", "011", "012", "020", "021", "022", "100", "101", "102", "110", "111", "112",
    "120", "121", "122", "200", "201", "202", "210", "211", "212", "220", "221", "222", "440", "441",
};

}  // namespace

std::string_view SupportSymbol(const std::array<std::int16_t, 3>& code) {
  constexpr std::array kForThree = {'1', '1', '2'};
  char digits[3];
  for (std::size_t d = 0; d < 3; ++d) {
    if (code[d] < 0 || code[d] > 9) return kCodes[0];
    digits[d] = code[d] == 3 ? kForThree[d] : static_cast<char>('0' + code[d]);
  }
  const auto* const known = std::ranges::find(kCodes, std::string_view(digits, 3));
  return known == std::end(kCodes) ? kCodes[0] : *known;
}

void DrawSpringX(Plot& plot, Point at, double size, Rgb colour, SupportSide side) {
  DrawStrokes(plot, Place(at, size, AngleOf(Ground::Aside, 0, side)), kSpring, colour);
}

void DrawSpringY(Plot& plot, Point at, double size, Rgb colour) {
  DrawStrokes(plot, Place(at, size, 0), kSpring, colour);
}

void DrawSpringRotation(Plot& plot, Point at, double size, Rgb colour) {
  constexpr int kChords = 27;
  constexpr double kTurns = 1.5, kInner = 0.2;
  const auto spiral = [&](int k) {
    const double t = static_cast<double>(k) / kChords, a = 2 * std::numbers::pi * kTurns * t;
    const double radius = size * (kInner + (kTurn - kInner) * t);
    return Point{at.x + radius * std::cos(a), at.y - radius * std::sin(a)};
  };
  Point from = spiral(0);
  for (int k = 1; k <= kChords; ++k) {
    const Point to = spiral(k);
    PlotLine(plot, from.x, from.y, to.x, to.y, colour);
    from = to;
  }
}

void DrawSupport(Plot& plot, Point at, std::string_view code, double size, double angle, Rgb colour,
                 SupportSide side) {
  if (code.size() != 3) return;
  std::array<char, 3> held = {code[0], code[1], code[2]};
  std::ranges::replace(held, '2', '0');
  for (const Symbol& symbol : kSymbols)
    if (symbol.code == std::string_view(held.data(), held.size()))
      symbol.draw(plot, Place(at, size, AngleOf(symbol.ground, angle, side)), colour);
  if (code[0] == '2') DrawSpringX(plot, at, size, colour, side);
  if (code[1] == '2') DrawSpringY(plot, at, size, colour);
  if (code[2] == '2') DrawSpringRotation(plot, at, size, colour);
}

std::array<Rectangle, 3> SupportBoxes(Point at, std::string_view code, double size, double angle,
                                      SupportSide side) {
  const auto box = [&](double left, double top, double right, double bottom) {
    return Rectangle{at.x + left * size, at.y + top * size, at.x + right * size, at.y + bottom * size};
  };
  std::array<Rectangle, 3> boxes = {box(0, 0, 0, 0), box(0, 0, 0, 0), box(0, 0, 0, 0)};
  if (code.size() != 3) return boxes;
  if (code[0] == '4') {
    // The triangle, and the corners of its ground with the hatches.
    boxes[0] = box(0, 0, 0, 0);
    const Place place(at, size, angle);
    const Stroke& base = kWideTriangle[2];
    for (const Point corner : {place.Of(base.x1, base.y1), place.Of(base.x2, base.y2),
                               place.Of(-kHalf, kReach), place.Of(kHalf, kReach)})
      boxes[0] = {std::min(boxes[0].left, corner.x), std::min(boxes[0].top, corner.y),
                  std::max(boxes[0].right, corner.x), std::max(boxes[0].bottom, corner.y)};
    return boxes;
  }
  if (code[1] != '0') boxes[0] = box(-kHalf, 0, kHalf, kReach);
  if (code[0] == '2' || (code[0] == '1' && code[1] != '1'))
    boxes[1] = side == SupportSide::Left ? box(-kReach, -kHalf, 0, kHalf) : box(0, -kHalf, kReach, kHalf);
  if (code[2] == '2' || (code[2] == '1' && code[0] != '1' && code[1] != '1'))
    boxes[2] = box(-kTurn, -kTurn, kTurn, kTurn);
  return boxes;
}

}  // namespace zorlan
