// Stiffness of one member: local matrices of frame and grid, and the matrix in global axes. t, m, rad.
//
// Frame, local order: u_i (along the member), v_i, θ_i, u_j, v_j, θ_j; global: U_i, V_i, θ_i, U_j, V_j, θ_j.
// Grid, local order: w_i, φ_i, w_j, φ_j, φ about the member's horizontal normal; global: W_i, θx_i, θy_i,
// W_j, θx_j, θy_j.
#pragma once

#include <array>

namespace zorlan {

struct Member;

/// Flexibility constants of a member with rigid zones and shear deformation; 2, 2, 1 without either.
struct StiffnessFactors {
  double kii = 2, kjj = 2, kij = 1;
};

/// Throws Fault for rigid zones that leave no flexible length.
StiffnessFactors FactorsOf(const Member& member);

/// The different entries of a frame member's local matrix; what is not named follows from symmetry or is 0.
struct FrameStiffness {
  double k11 = 0;  // = k44 = -k14
  double k22 = 0, k23 = 0, k25 = 0, k26 = 0;
  double k33 = 0, k35 = 0, k36 = 0;
  double k55 = 0, k56 = 0, k66 = 0;
};
FrameStiffness LocalFrameStiffness(const Member& member);

/// Lower triangle of a grid member's local matrix, k(row, column).
struct GridStiffness {
  double k11 = 0, k21 = 0, k31 = 0, k41 = 0;
  double k22 = 0, k32 = 0, k42 = 0;
  double k33 = 0, k43 = 0, k44 = 0;
};
GridStiffness LocalGridStiffness(const Member& member);

/// Lower triangle of a symmetric 6 by 6 matrix, column by column: for column c from 1 to 6, rows 1 to c of
/// its mirror.
using Triangle = std::array<double, 21>;

/// Place of entry (row, column), both 0 to 5, in a Triangle.
constexpr std::size_t TrianglePlace(std::size_t row, std::size_t column) {
  const std::size_t low = row < column ? row : column, high = row < column ? column : row;
  return high * (high + 1) / 2 + low;
}

/// The member's matrix in global axes.
Triangle GlobalFrameStiffness(const Member& member);
Triangle GlobalGridStiffness(const Member& member);

/// Member end forces from the global displacements of its ends (six values): positions 1 to 6 of the seven,
/// signs as end forces on the member; in the grid N is 0.
std::array<double, 6> FrameEndForces(const Member& member, const FrameStiffness& k, const double* I,
                                     const double* J);
std::array<double, 6> GridEndForces(const Member& member, const GridStiffness& k, const double* I,
                                    const double* J);

}  // namespace zorlan
