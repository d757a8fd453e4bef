#include "output/print_flag.h"

#include <array>

#include "base/text.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

enum class Place { Work, Results, BesideDeck };

struct Listing {
  int flag;
  std::string_view pageHeading, readerHeading;
  Place place;
  std::string_view file;
};

constexpr std::array kListings = {
    Listing{kPrintCheck, "<<エラーチェック>>", "<<エラーチェック>>", Place::Work, "InputErr.txt"},
    Listing{kPrintInputList, "<<入力ファイル>>", "<<入力ファイル>>", Place::Work, "TmpFile.inp"},
    Listing{kPrintListing, "<<解析結果ファイル>>", "<<解析結果ファイル>> ", Place::BesideDeck,
            kListingEnding},
    Listing{kPrintSteelDesign, "", "<<Ｓ断面算定>> ", Place::Results, "DSNS"},
    Listing{kPrintConcreteDesign, "", "<<ＲＣ断面算定>> ", Place::Results, "DSNRC"},
    Listing{kPrintCombinations, "", "<<荷重の組み合わせ>>", Place::Work, "KUMI"},
    Listing{kPrintTimberDesign, "", "<<木造トラス断面算定>> ", Place::Results, "DSNW"},
    Listing{kPrintOther, "", "", Place::Work, "TmpFile"},
};

const Listing* Find(int flag) {
  if (flag == kPrintCheckRead) flag = kPrintCheck;
  for (const Listing& listing : kListings)
    if (listing.flag == flag) return &listing;
  return nullptr;
}

}  // namespace

std::string PrintFile(int flag) {
  const Listing* const listing = Find(flag);
  if (listing == nullptr) return {};
  switch (listing->place) {
    case Place::Work:
      return WorkPath + std::string(listing->file);
    case Place::Results:
      return ResultFolder() + std::string(listing->file);
    case Place::BesideDeck:
      return ListingPath();
  }
  return {};
}

std::string_view PageHeading(int flag) {
  const Listing* const listing = Find(flag);
  return listing == nullptr ? std::string_view() : listing->pageHeading;
}

std::string_view ReaderHeading(int flag) {
  const Listing* const listing = Find(flag);
  return listing == nullptr ? std::string_view() : listing->readerHeading;
}

TextStyle StyleOfFlag(int flag) {
  return {PageHeading(flag), flag == kPrintTimberDesign};
}

int FlagOfListing(std::string_view path) {
  const std::string name = UpperCase(path.substr(path.find_last_of("/\\") + 1));
  for (const Listing& listing : kListings) {
    if (name == UpperCase(listing.file)) return listing.flag;
    if (listing.place == Place::BesideDeck && name.ends_with(UpperCase(listing.file))) return listing.flag;
  }
  return kPrintOther;
}

}  // namespace zorlan
