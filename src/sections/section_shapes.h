// Closed-form constants of plane sections. Pure functions: lengths in any unit u, answers in u, u2, u3, u4.
// A shape whose area is 0 or below answers all zeros: a blank cell reads as 0, and callers test A alone.
#pragma once

namespace zorlan {

struct ShapeConstants {
  double A = 0;
  double Ix = 0, Iy = 0;  // about the axis across the height, and the one along it
  double ix = 0, iy = 0;
  double Zx = 0, Zy = 0;  // at the outermost fibre
  double iq = 0;          // of the compression part, flange and a sixth of the web: H alone
};

/// Solid rectangle, B wide and D deep.
ShapeConstants RectangleConstants(double B, double D);

/// Hollow rectangle, H tall and B wide, of one plate thickness, sharp corners.
ShapeConstants BoxConstants(double H, double B, double t);

/// Ring of outer diameter D.
ShapeConstants PipeConstants(double D, double t);

/// H section with root radius r (0: built up, no fillet). The four fillets are summed by strips for the
/// second moments; Iy and iq take them at the width of the quarter circle itself and not of the corner
/// outside it.
ShapeConstants SectionH(double H, double B, double tw, double tf, double r);

/// Channel without radii. Iy is that of an H section of the same plates, about the web's centre line and not
/// about the centroid.
ShapeConstants SectionChannel(double H, double B, double t1, double t2);

/// Angle with the legs a and b and sharp corners. x is the axis that leg a bends about.
struct AngleConstants : ShapeConstants {
  double c1 = 0, c2 = 0;  // centroid from the heel, along leg a and along leg b
};
AngleConstants SectionAngle(double a, double b, double t);

}  // namespace zorlan
