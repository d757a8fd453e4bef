#include "sections/section_shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zorlan {
namespace {

constexpr double kPi10 = 3.141592654;  // the ten digits of the fillet terms, kept to the last printed digit
constexpr double kMaxStrips = 1e6;     // of one pass; a real fillet settles with some ten thousand

double Cube(double x) {
  return x * x * x;
}

double HalfRing(double r, double y) {  // height of the circle r at the distance y
  const double square = r * r - y * y;
  return square <= 0 ? 0 : std::sqrt(square);
}

/// Second moment of one fillet about an axis at the distance s from where the fillet starts, in strips across
/// its extent s to e. The strips become ten times finer until two sums differ by no more than `tolerance`.
/// A fillet out of all proportion (more than kMaxStrips) keeps the last sum there was.
template <class Width>
double StripSum(double H, double s, double e, double tolerance, Width width) {
  double step = H / 100, former = 1.1 * tolerance, sum = 0;
  while (std::abs(sum - former) > tolerance) {
    step = step / 10;
    const double n = (e - s) / step;
    if (!(std::abs(n) <= kMaxStrips)) break;
    former = sum;
    sum = 0;
    for (int i = 1; i <= n; ++i) {
      const double y = (i - 1) * step + step / 2;
      sum = sum + (y + s) * (y + s) * (width(y) * step);
    }
  }
  return sum;
}

/// Two flanges and the web between them, of half height h, about the axis across the web.
double PlatesAboutX(double h, double B, double web, double flange) {
  return 2 * (B * Cube(h) / 3 - (B - web) * Cube(h - flange) / 3);
}

/// The same about the web's centre line.
double PlatesAboutY(double H, double B, double web, double flange) {
  return 2 * (2 * flange * Cube(B / 2) / 3 + (H - 2 * flange) * Cube(web / 2) / 3);
}

/// Radii of gyration, and moduli at half of the outer dimensions, for a symmetric shape.
ShapeConstants Completed(ShapeConstants c, double H, double B) {
  c.ix = std::sqrt(c.Ix / c.A);
  c.iy = std::sqrt(c.Iy / c.A);
  c.Zx = c.Ix / (H / 2);
  c.Zy = c.Iy / (B / 2);
  return c;
}

/// Radius of gyration of the compression part of an H section: a flange, and of the web what is left of a
/// sixth of the height below flange and fillet.
double CompressionRadius(double H, double B, double tw, double tf, double r) {
  const double c = std::max(H / 6 - tf - r, 0.0);
  double Aq = B * tf + tw * c;
  if (r > 0) Aq = Aq + (4 * r * r - kPi10 * r * r) / 2;
  const double Iq0 = 2 * (Cube(B / 2) * tf / 3 + Cube(tw / 2) * c / 3);
  double Iq = Iq0;
  if (r > 0)
    Iq = Iq0 + 2 * StripSum(H, tw / 2, tw / 2 + r, Iq0 / 500000, [r](double y) { return HalfRing(r, y); });
  return std::sqrt(Iq / Aq);
}

}  // namespace

ShapeConstants RectangleConstants(double B, double D) {
  ShapeConstants c;
  c.A = B * D;
  if (!(c.A > 0)) return {};
  c.Ix = B * Cube(D) / 12;
  c.Iy = D * Cube(B) / 12;
  return Completed(c, D, B);
}

ShapeConstants BoxConstants(double H, double B, double t) {
  ShapeConstants c;
  c.A = H * B - (H - 2 * t) * (B - 2 * t);
  if (!(c.A > 0)) return {};
  c.Ix = PlatesAboutX(H / 2, B, 2 * t, t);
  c.Iy = PlatesAboutX(B / 2, H, 2 * t, t);
  return Completed(c, H, B);
}

ShapeConstants PipeConstants(double D, double t) {
  constexpr double pi = std::numbers::pi;
  const double d = D - 2 * t;
  ShapeConstants c;
  c.A = pi * (D * D - d * d) / 4;
  if (!(c.A > 0)) return {};
  c.Ix = c.Iy = pi * (D * D * D * D - d * d * d * d) / 64;
  return Completed(c, D, D);
}

ShapeConstants SectionH(double H, double B, double tw, double tf, double r) {
  const double h = H / 2;
  ShapeConstants c;
  c.A = H * B - (B - tw) * (H - 2 * tf);
  if (r > 0) c.A = c.A + 4 * r * r - kPi10 * r * r;
  if (!(c.A > 0)) return {};
  const double Ix0 = PlatesAboutX(h, B, tw, tf);
  const double Iy0 = PlatesAboutY(H, B, tw, tf);
  c.Ix = Ix0;
  c.Iy = Iy0;
  if (r > 0) {
    c.Ix =
        Ix0 + 4 * StripSum(H, h - tf - r, h - tf, Ix0 / 500000, [r](double y) { return r - HalfRing(r, y); });
    // On purpose the width of the quarter circle and not of the corner outside it: existing designs were
    // checked with these values.
    c.Iy = Iy0 + 4 * StripSum(H, tw / 2, tw / 2 + r, Iy0 / 500000, [r](double y) { return HalfRing(r, y); });
  }
  c = Completed(c, H, B);
  c.iq = CompressionRadius(H, B, tw, tf, r);
  return c;
}

ShapeConstants SectionChannel(double H, double B, double t1, double t2) {
  ShapeConstants c;
  c.A = H * B - (B - t1) * (H - 2 * t2);
  if (!(c.A > 0)) return {};
  c.Ix = PlatesAboutX(H / 2, B, t1, t2);
  c.Iy = PlatesAboutY(H, B, t1, t2);
  return Completed(c, H, B);
}

AngleConstants SectionAngle(double a, double b, double t) {
  AngleConstants c;
  c.A = a * b - (a - t) * (b - t);
  if (!(c.A > 0)) return {};
  c.c1 = (a * a * t + (b - t) * t * t) / (2 * c.A);
  c.c2 = (b * b * t + (a - t) * t * t) / (2 * c.A);
  c.Ix = (Cube(a) * t + Cube(t) * (b - t)) / 3 - c.c1 * c.c1 * c.A;
  c.Iy = (Cube(b) * t + Cube(t) * (a - t)) / 3 - c.c2 * c.c2 * c.A;
  c.ix = std::sqrt(c.Ix / c.A);
  c.iy = std::sqrt(c.Iy / c.A);
  c.Zx = std::min(c.Ix / (a - c.c1), c.Ix / c.c1);
  c.Zy = std::min(c.Iy / (b - c.c2), c.Iy / c.c2);
  return c;
}

}  // namespace zorlan
