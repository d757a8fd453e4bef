#include "shell/page_setup.h"

namespace zorlan {

PageSetup PageSetupOf(const PrinterRec& printer) {
  PageSetup setup;
  PaperSize(printer.paper, setup.paperWidth, setup.paperHeight);
  setup.landscape = setup.twoColumns = printer.orientation == kLandscape || printer.reduction == kHalfSize;
  setup.pageNumbers = printer.pageNumbers != kNoPageNumbers;
  setup.firstPage = printer.firstPage;
  return setup;
}

}  // namespace zorlan
