// The companion solver of the analysis: takes no arguments, everything stands in the control file of the
// current folder.
#include <cstdio>

#include "companion/run.h"

int main(int argc, char**) {
  if (argc > 1) {
    std::fprintf(stderr, "anaZorlan: 引数はありません。入力は現在のフォルダーの ANAZOR.CTL で指定します\n");
    return zorlan::companion::kRefused;
  }
  return zorlan::companion::Run();
}
