#include "analysis/stiffness.h"

#include <cmath>
#include <string>

#include "analysis/members.h"
#include "base/fault.h"

namespace zorlan {
namespace {

double Cube(double x) {
  return x * x * x;
}

/// Whether the member has a bending part at all.
bool Bends(const Member& member) {
  return member.section.I != 0 && !member.BothPinned();
}

enum class Ends { Rigid, PinAtI, PinAtJ };
Ends EndsOf(const Member& member) {
  if (member.II == 1 && member.JJ == 0) return Ends::PinAtI;
  if (member.II == 0 && member.JJ == 1) return Ends::PinAtJ;
  return Ends::Rigid;  // any other pair of values
}

/// What is left of the bending stiffness at the far end when one end is released, without EI/L.
double Released(const StiffnessFactors& f, double releasedFactor) {
  return 2 * (f.kii * f.kjj - f.kij * f.kij) / releasedFactor;
}

}  // namespace

StiffnessFactors FactorsOf(const Member& member) {
  const double li = member.lambdaI, lj = member.lambdaJ;
  const MemberSection& section = member.section;
  double a = 2, b = 1, c = 2;
  if (li != 0 || lj != 0) {
    a = 2 * (Cube(1 - li) - Cube(lj));
    b = 1 - 3 * (li * li + lj * lj) + 2 * (Cube(li) + Cube(lj));
    c = 2 * (Cube(1 - lj) - Cube(li));
  }
  double psi = 0;
  if (section.G > 0 && section.As > 0)
    psi = 6 * section.E * section.I * section.kappa * (1 - li - lj) /
          (member.L * member.L * section.G * section.As);
  const double D = (a + psi) * (c + psi) - (b - psi) * (b - psi);
  // Zones that meet make D 0; in doubles a rounding error may be all that is left of it.
  constexpr double kNoFlexibleLength = 1e-12;
  if (D == 0 || std::abs(1 - li - lj) < kNoFlexibleLength)
    throw Fault("要素番号 " + std::to_string(member.number) + " ： 剛域の比率により、たわむ部分がありません");
  return {3 * (c + psi) / D, 3 * (a + psi) / D, 3 * (b - psi) / D};
}

FrameStiffness LocalFrameStiffness(const Member& member) {
  const double L = member.L;
  FrameStiffness k;
  k.k11 = member.section.A * member.section.E / L;
  if (!Bends(member)) return k;
  const StiffnessFactors f = FactorsOf(member);
  const double EI = member.section.E * member.section.I;
  const double L2 = L * L, L3 = L2 * L;
  switch (EndsOf(member)) {
    case Ends::Rigid:
      k.k22 = 2 * EI * (f.kii + f.kjj + 2 * f.kij) / L3;
      k.k23 = 2 * EI * (f.kii + f.kij) / L2;
      k.k33 = 2 * f.kii * EI / L;
      k.k26 = 2 * EI * (f.kjj + f.kij) / L2;
      k.k36 = 2 * f.kij * EI / L;
      k.k66 = 2 * f.kjj * EI / L;
      break;
    case Ends::PinAtI: {
      const double T = Released(f, f.kii);
      k.k22 = T * EI / L3;
      k.k26 = T * EI / L2;
      k.k66 = T * EI / L;
      break;
    }
    case Ends::PinAtJ: {
      const double T = Released(f, f.kjj);
      k.k22 = T * EI / L3;
      k.k23 = T * EI / L2;
      k.k33 = T * EI / L;
      break;
    }
  }
  k.k25 = -k.k22;
  k.k35 = -k.k23;
  k.k55 = k.k22;
  k.k56 = -k.k26;
  return k;
}

GridStiffness LocalGridStiffness(const Member& member) {
  GridStiffness k;
  if (!Bends(member)) return k;
  const StiffnessFactors f = FactorsOf(member);
  const double L = member.L;
  const double EI = member.section.E * member.section.I;
  const double L2 = L * L, L3 = L2 * L;
  switch (EndsOf(member)) {
    case Ends::Rigid:
      k.k11 = 2 * EI * (f.kii + f.kjj + 2 * f.kij) / L3;
      k.k21 = -2 * EI * (f.kii + f.kij) / L2;
      k.k41 = -2 * EI * (f.kjj + f.kij) / L2;
      k.k22 = 2 * f.kii * EI / L;
      k.k42 = 2 * f.kij * EI / L;
      k.k44 = 2 * f.kjj * EI / L;
      break;
    case Ends::PinAtI: {
      const double T = Released(f, f.kii) * EI;
      k.k11 = T / L3;
      k.k41 = -T / L2;
      k.k44 = T / L;
      break;
    }
    case Ends::PinAtJ: {
      const double T = Released(f, f.kjj) * EI;
      k.k11 = T / L3;
      k.k21 = -T / L2;
      k.k22 = T / L;
      break;
    }
  }
  k.k31 = -k.k11;
  k.k32 = -k.k21;
  k.k33 = k.k11;
  k.k43 = -k.k41;
  return k;
}

Triangle GlobalFrameStiffness(const Member& member) {
  const FrameStiffness k = LocalFrameStiffness(member);
  const double c = member.c, s = member.s;
  const double cc = c * c, ss = s * s, cs = c * s;
  return {
      cc * k.k11 + ss * k.k22,  // U_i
      cs * (k.k11 - k.k22),
      ss * k.k11 + cc * k.k22,  // V_i
      -s * k.k23,
      c * k.k23,
      k.k33,  // θ_i
      -cc * k.k11 + ss * k.k25,
      -cs * (k.k11 + k.k25),
      -s * k.k35,
      cc * k.k11 + ss * k.k55,  // U_j
      -cs * (k.k11 + k.k25),
      -ss * k.k11 + cc * k.k25,
      c * k.k35,
      cs * (k.k11 - k.k55),
      ss * k.k11 + cc * k.k55,  // V_j
      -s * k.k26,
      c * k.k26,
      k.k36,
      -s * k.k56,
      c * k.k56,
      k.k66,  // θ_j
  };
}

Triangle GlobalGridStiffness(const Member& member) {
  const GridStiffness k = LocalGridStiffness(member);
  const double c = member.c, s = member.s;
  const double cc = c * c, ss = s * s, cs = c * s;
  return {
      k.k11,                                                                      // W_i
      -s * k.k21, ss * k.k22,                                                     // θx_i
      c * k.k21,  -cs * k.k22, cc * k.k22,                                        // θy_i
      k.k31,      -s * k.k32,  c * k.k32,   k.k33,                                // W_j
      -s * k.k41, ss * k.k42,  -cs * k.k42, -s * k.k43, ss * k.k44,               // θx_j
      c * k.k41,  -cs * k.k42, cc * k.k42,  c * k.k43,  -cs * k.k44, cc * k.k44,  // θy_j
  };
}

std::array<double, 6> FrameEndForces(const Member& member, const FrameStiffness& k, const double* I,
                                     const double* J) {
  const double c = member.c, s = member.s;
  const double a1 = c * I[0] + s * I[1], a2 = -s * I[0] + c * I[1], a3 = I[2];
  const double a4 = c * J[0] + s * J[1], a5 = -s * J[0] + c * J[1], a6 = J[2];
  return {
      k.k11 * a1 - k.k11 * a4,
      k.k22 * a2 + k.k23 * a3 + k.k25 * a5 + k.k26 * a6,
      k.k23 * a2 + k.k33 * a3 + k.k35 * a5 + k.k36 * a6,
      -k.k11 * a1 + k.k11 * a4,
      k.k25 * a2 + k.k35 * a3 + k.k55 * a5 + k.k56 * a6,
      k.k26 * a2 + k.k36 * a3 + k.k56 * a5 + k.k66 * a6,
  };
}

std::array<double, 6> GridEndForces(const Member& member, const GridStiffness& k, const double* I,
                                    const double* J) {
  const double c = member.c, s = member.s;
  const double a1 = I[0], a2 = -s * I[1] + c * I[2];
  const double a3 = J[0], a4 = -s * J[1] + c * J[2];
  return {
      0,
      k.k11 * a1 + k.k21 * a2 + k.k31 * a3 + k.k41 * a4,
      -(k.k21 * a1 + k.k22 * a2 + k.k32 * a3 + k.k42 * a4),
      0,
      k.k31 * a1 + k.k32 * a2 + k.k33 * a3 + k.k43 * a4,
      -(k.k41 * a1 + k.k42 * a2 + k.k43 * a3 + k.k44 * a4),
  };
}

}  // namespace zorlan
