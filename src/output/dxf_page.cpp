#include "output/dxf_page.h"

#include "base/fault.h"
#include "base/host.h"
#include "base/text_file.h"
#include "graphics/dxf.h"
#include "model/model_state.h"

namespace zorlan {
std::string DxfPageName(int pageNumber) {
  return "Page-" + std::to_string(pageNumber);
}

std::string DxfPageFault(int pageNumber) {
  return "ページNo=" + std::to_string(pageNumber) + "のDXFファイルは、作成できませんでした";
}

bool WriteDxfPage(int pageNumber, const std::vector<DrawOperation>& drawingList, const std::string& chosen) {
  std::string reason;
  const bool written = [&] {
    if (drawingList.empty()) return false;
    const std::string path = WorkPath + DxfPageName(pageNumber), dxf = path + ".dxf";
    try {
      WriteDrawingList(path + ".tmp", drawingList);
      if (!WriteDXF(path + ".tmp", dxf, &reason)) return false;
      CopyFileOver(dxf, chosen);
      return true;
    } catch (const Fault& fault) {
      reason = fault.what();
      return false;
    }
  }();
  if (!written) Tell(DxfPageFault(pageNumber) + (reason.empty() ? "" : "\n" + reason));
  return written;
}

}  // namespace zorlan
