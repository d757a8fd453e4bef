// The listings that the text reader and the page preview show, told apart by `PrintFlag`.
#pragma once

#include <string>
#include <string_view>

#include "output/text_pages.h"

namespace zorlan {

/// Values of `PrintFlag`, as they go through the settings store.
enum PrintFlag : int {
  kPrintInputErrors = 0,
  kPrintInputList = 1,
  kPrintAnalysis = 2,
  kPrintSteel = 3,
  kPrintConcrete = 4,
  kPrintCombinations = 5,
  kPrintTimber = 6,
  kPrintTemporary = 7,
  kReadInputErrors = -1,  // the input check's own mark for the text reader
};

/// The path of a flag's listing for the model in hand; empty for an unknown flag.
std::string ListingOfFlag(int flag);

/// Its heading on pages, and in the text reader; empty: none.
std::string_view PageHeading(int flag);
std::string_view ReaderHeading(int flag);

/// Heading and page breaks of a flag's pages.
TextStyle StyleOfFlag(int flag);

/// The flag of a listing that is known by its path alone; kPrintTemporary for a foreign file.
int FlagOfListing(std::string_view path);

}  // namespace zorlan
