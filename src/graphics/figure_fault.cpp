#include "graphics/figure_fault.h"

#include <new>
#include <string>

#include "base/fault.h"
#include "base/host.h"

namespace zorlan {
namespace {

/// Numbers by which users know the kinds of fault: out of memory, a file that can't be used, any other.
int FaultNumber(const std::exception& fault) {
  if (dynamic_cast<const std::bad_alloc*>(&fault) != nullptr) return 7;
  if (dynamic_cast<const FileFault*>(&fault) != nullptr) return 75;
  return 5;
}

}  // namespace

void ReportFigureFault(std::string_view routine, const std::exception& fault) {
  TheHost().message("エラー番号： " + std::to_string(FaultNumber(fault)) +
                        "\nモジュール名： ModelData\n関数名： " + std::string(routine) + "\n" + fault.what(),
                    "エラーが発生しました");
}

}  // namespace zorlan
