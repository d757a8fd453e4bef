// The output unit of forces and moments. Results are in t and t*m until they are shown.
#pragma once

#include <array>
#include <string_view>

#include "model/model_rec.h"

namespace zorlan {

/// The output unit of a model.
struct OutputForce {
  int outUnit = 0;     // 0 gravitational, 1 SI
  int forceUnit = 0;   // 0 t or kN, 1 kg or N
  double gravity = 0;  // kN per t

  /// 0 t, 1 kg, 2 kN, 3 N.
  int Index() const { return (forceUnit != 0 ? 1 : 0) + (IsSI(outUnit) ? 2 : 0); }
  /// A force in t, or a moment in t*m, in the output unit.
  double Of(double value) const {
    if (IsSI(outUnit)) value *= gravity;
    return forceUnit != 0 ? value * 1000 : value;
  }
};

/// The output unit in force, from the globals that ReadDeck sets.
OutputForce OutputForceInHand();

/// Its index, and a result in it.
int ForceIndex();
double ConvertForce(double value);

/// Force and moment as the head of a listing names them, by ForceIndex.
inline constexpr std::array<std::string_view, 4> kForceLabels = {"(T , T･M)", "(kg , kg･M)", "(kN , kN･M)",
                                                                 "(N , N･M)"};

}  // namespace zorlan
