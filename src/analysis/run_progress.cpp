#include "analysis/run_progress.h"

#include "base/host.h"

namespace zorlan {
namespace {

RunPart Part;
double Said = 0;  // of the run

}  // namespace

void BeginPart(const RunPart& part) {
  Part = part;
  SayShare(0);
}

void EndParts() {
  Part = {};
}

void SayShare(double share) {
  Said = Part.from + (Part.to - Part.from) * share;
  SayGoingOn();
}

void SayGoingOn() {
  if (!Part.what.empty()) TheHost().progress(Part.what, Said);
}

}  // namespace zorlan
