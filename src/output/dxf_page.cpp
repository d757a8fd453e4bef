#include "output/dxf_page.h"

#include <optional>

#include "base/fault.h"
#include "base/host.h"
#include "base/text_file.h"
#include "graphics/dxf.h"
#include "model/model_state.h"
#include "output/text_pages.h"

namespace zorlan {
namespace {

/// Why a page could not be written: empty, where nothing more than that is known.
struct PageFault {
  std::string reason;
};

/// Writes the page; nothing where it is written.
std::optional<PageFault> WritePage(int pageNumber, const std::vector<DrawOperation>& drawingList,
                                   const std::string& chosen) try {
  if (drawingList.empty()) return PageFault();
  const std::string path = WorkPath + DxfPageName(pageNumber), list = path + ".tmp", dxf = path + ".dxf";
  WriteDrawingList(list, drawingList);
  std::string reason;
  if (!WriteDXF(list, dxf, &reason)) return PageFault{reason};
  CopyFileOver(dxf, chosen);
  return std::nullopt;
} catch (const Fault& fault) {
  return PageFault{fault.what()};
}

}  // namespace

std::string DxfPageName(int pageNumber) {
  return PageName(pageNumber);
}

std::string DxfPageFault(int pageNumber) {
  return "ページNo=" + std::to_string(pageNumber) + "のDXFファイルは、作成できませんでした";
}

bool WriteDxfPage(int pageNumber, const std::vector<DrawOperation>& drawingList, const std::string& chosen) {
  const std::optional<PageFault> fault = WritePage(pageNumber, drawingList, chosen);
  if (fault) Tell(DxfPageFault(pageNumber) + (fault->reason.empty() ? "" : "\n" + fault->reason));
  return !fault;
}

}  // namespace zorlan
