// Symbols of the supports.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "graphics/plot.h"

namespace zorlan {

/// The symbol's code of a node: three digits for x, y and rotation; "3" becomes "1", "1", "2" in the first,
/// second and third place; what is not recognised is "000", which draws nothing.
std::string_view SupportSymbol(const std::array<std::int16_t, 3>& code);

/// Where the ground of a support stands that holds its node in x.
enum class SupportSide : std::uint8_t { Left, Right };

/// Draws the symbol of `code` at a point of the figure (twips). `size` is the height of a pin's triangle
/// (twips), `angle` the inclination of codes "440" and "441" in degrees counter-clockwise.
void DrawSupport(Plot& plot, Point at, std::string_view code, double size, double angle, Rgb colour,
                 SupportSide side = SupportSide::Left);

/// The room that it takes: below the node, at its side, and about it; a box without size where there is
/// nothing.
std::array<Rectangle, 3> SupportBoxes(Point at, std::string_view code, double size, double angle,
                                      SupportSide side);

/// The spring symbols of the three directions, on their own.
void DrawSpringX(Plot& plot, Point at, double size, Rgb colour, SupportSide side = SupportSide::Left);
void DrawSpringY(Plot& plot, Point at, double size, Rgb colour);
void DrawSpringRotation(Plot& plot, Point at, double size, Rgb colour);

}  // namespace zorlan
