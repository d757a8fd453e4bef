// How far the run in hand is, for the host's progress. A run is a row of parts with a name each; the stages
// say how far they are within the part in hand. Between runs nothing is said.
#pragma once

#include <string_view>

namespace zorlan {

/// A part of a run: what it does, in the user's words, and the shares of the run at its beginning and end.
struct RunPart {
  std::string_view what;
  double from = 0, to = 1;
};
/// Begins a part, and says so.
void BeginPart(const RunPart& part);
/// The run has ended, or broken off.
void EndParts();

/// Says how much of the part in hand is done, 0 to 1. Lets window events run: the user may stop the run here,
/// so whatever a caller has half done is undone when this throws.
void SayShare(double share);
/// The same share once more, from a loop that doesn't know the whole.
void SayGoingOn();

/// Item `item` (from 1) of `count`: says it now and then, often enough for a window to stay alive.
inline void SayItem(int item, int count) {
  constexpr int kItems = 256;
  if (item % kItems == 0) SayShare(static_cast<double>(item) / count);
}

}  // namespace zorlan
