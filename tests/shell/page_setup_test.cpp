#include "shell/page_setup.h"

#include <gtest/gtest.h>

namespace zorlan {
namespace {

TEST(PageSetup, AnUprightSheetHasOneColumn) {
  const PageSetup setup = PageSetupOf(PrinterRec());
  EXPECT_EQ(setup.paperWidth, 210);
  EXPECT_FALSE(setup.landscape);
  EXPECT_FALSE(setup.twoColumns);
  EXPECT_TRUE(setup.pageNumbers);
}

TEST(PageSetup, ASheetOnItsSideAndAReducedOneHaveTwo) {
  PrinterRec side, reduced;
  side.orientation = kLandscape;
  reduced.reduction = kHalfSize;
  for (const PrinterRec& printer : {side, reduced}) {
    EXPECT_TRUE(PageSetupOf(printer).landscape);
    EXPECT_TRUE(PageSetupOf(printer).twoColumns);
  }
}

TEST(PageSetup, TakesPaperAndNumbersFromTheRecord) {
  PrinterRec printer;
  printer.paper = "B4";
  printer.pageNumbers = kNoPageNumbers;
  printer.firstPage = 31;
  const PageSetup setup = PageSetupOf(printer);
  EXPECT_EQ(setup.paperWidth, 257);
  EXPECT_EQ(setup.paperHeight, 364);
  EXPECT_FALSE(setup.pageNumbers);
  EXPECT_EQ(setup.firstPage, 31);
}

TEST(PageSetup, AnUnknownPaperIsA4) {
  PrinterRec printer;
  printer.paper = "Letter";
  EXPECT_EQ(PageSetupOf(printer).paperHeight, 297);
}

}  // namespace
}  // namespace zorlan
