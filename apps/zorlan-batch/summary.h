// What a person reads after an analysis: what was solved, and whether it can be trusted.
#pragma once

namespace zorlan::batch {

/// Tells of the last analysis on standard error: nodes, elements, cases, road, time; for each case the
/// largest displacement, the sums of loads and reactions in the output units and the greatest residual; where
/// the results lie. Warns by case and node where the residual is lost.
void TellSummary(double seconds);

}  // namespace zorlan::batch
