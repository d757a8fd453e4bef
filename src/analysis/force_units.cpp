#include "analysis/force_units.h"

#include "model/model_state.h"

namespace zorlan {

OutputForce OutputForceInHand() {
  return {OutUnit, ForceUnit, GravityFactor};
}

int ForceIndex() {
  return OutputForceInHand().Index();
}

double ConvertForce(double value) {
  return OutputForceInHand().Of(value);
}

}  // namespace zorlan
