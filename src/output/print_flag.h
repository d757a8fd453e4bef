// The listings that the text reader and the page preview show, told apart by `PrintFlag`.
#pragma once

#include <string>
#include <string_view>

#include "output/text_pages.h"

namespace zorlan {

/// Values of `PrintFlag`, as they go through the settings store.
enum PrintFlag : int {
  kPrintCheck = 0,
  kPrintInputList = 1,
  kPrintListing = 2,
  kPrintSteelDesign = 3,
  kPrintConcreteDesign = 4,
  kPrintCombinations = 5,
  kPrintTimberDesign = 6,
  kPrintOther = 7,
  kPrintCheckRead = -1,  // the input check's own mark for the text reader
  kPrintFigures = -1,    // the preview's for a choice of figures: no listing
};

/// The path of a flag's listing for the model in hand; empty for an unknown flag.
std::string PrintFile(int flag);

/// Its heading on pages, and in the text reader; empty: none.
std::string_view PageHeading(int flag);
std::string_view ReaderHeading(int flag);

/// Heading and page breaks of a flag's pages.
TextStyle StyleOfFlag(int flag);

/// The flag of a listing that is known by its path alone; kPrintOther for a foreign file.
int FlagOfListing(std::string_view path);

}  // namespace zorlan
