// The fault handler of the drawing routines.
#pragma once

#include <exception>
#include <string_view>

namespace zorlan {

/// The box for a fault within a drawing routine: its number, module and routine, and what it says.
void ReportFigureFault(std::string_view routine, const std::exception& fault);

/// Runs one drawing routine; false when it ended by a fault, which the user has been told then.
template <class Body>
bool RunFigureRoutine(std::string_view routine, Body body) try {
  body();
  return true;
} catch (const std::exception& fault) {
  ReportFigureFault(routine, fault);
  return false;
}

}  // namespace zorlan
