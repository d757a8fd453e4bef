// How a figure looks, taken from the rows of an option set: plain values that the drawing routines read.
#pragma once

#include <array>
#include <limits>

#include "graphics/plot_target.h"

namespace zorlan {

/// A line of the figure: "要素,1dot,実線,&H0000FF,ON".
struct LineOption {
  bool visible = true;
  double width = 1;  // dots; of the node: the size of its circle
  LineStyle style = LineStyle::Solid;
  Rgb colour = kBlack;
};

/// A number or value: "節点番号,ＭＳ ゴシック(8pt),&H000000,ON", and the mark around it.
struct TextOption {
  bool visible = true;
  double points = 8;
  Rgb colour = kBlack;
  bool mark = false;  // element number: a circle; section number: a frame

  double Height() const { return points * kTwipsPerPoint; }
};

/// A class of the design ratio figure: lower bound ≤ ratio < upper bound.
struct RatioClass {
  double lower = 0, upper = std::numeric_limits<double>::infinity();
  LineOption line;
};

struct FigureOptions {
  TextOption nodeNumber, elementNumber, sectionNumber;
  LineOption node;  // `width` is the size of the circle; symbols of supports follow it
  LineOption element{.colour = 0x0000FF};
  LineOption nodalLoad{.colour = 0x0000FF}, elementLoad{.colour = 0x0000FF};
  TextOption loadValue;  // the numbers at the loads

  LineOption displacement{.colour = 0x0000FF}, axial{.colour = 0x0000FF}, shear{.colour = 0x0000FF},
      moment{.colour = 0x0000FF};
  Rgb axialTension = 0xFF0000, axialCompression = 0x0000FF;  // in place of one colour of the axial force
  TextOption axialValue, shearValue, momentValue;
  float HeightDisplacement = 1, HeightNormal = 1, HeightShear = 1, HeightMoment = 1;  // cm
  int DecimalsNormal = 2, DecimalsShear = 2, DecimalsMoment = 2;
  bool ScaleOverAllCases = true;

  std::array<RatioClass, 6> ratioClass;

  // The oblique view of a plane grid, degrees: turn about the vertical axis, tilt of the plane towards the
  // eye.
  double viewTurn = 30, viewTilt = 30;
};

}  // namespace zorlan
