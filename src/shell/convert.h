// Models of the older release into decks: the logic behind the conversion dialog and the batch command.
//
// An old model is a folder of text files "ft" + a three-digit number, in capitals or not. Values stand
// between commas and line ends; records may run over lines.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// One file of an old model: where it lies, for messages, and its text.
struct OldFile {
  std::string path;
  std::string text;
};

/// The files of an old model by their numbers.
using OldModel = std::map<int, OldFile>;

/// Reads the numbered files that the folder has. Throws FileFault; a folder without any of them is a fault
/// too.
OldModel ReadOldModel(const std::string& folder);

/// What comes of an old model: the deck's text, and what the user should know of things that it doesn't hold.
struct Conversion {
  std::string deck;
  std::vector<std::string> notes;
};

/// The deck of an old model, lines with CR LF: title, subtitle unless it is empty, the tables that have a
/// file, then control data (model, number of load cases, no input list) and gravitational units. Values are
/// kept as typed; the factor φ of a direct-input section becomes 1.0. Commas at the end of a line behind the
/// last value of a count or record are passed over. Throws Fault with file and line for a file that ends
/// early, or holds something else than numbers that the deck's table can take.
Conversion ConvertedDeck(const OldModel& model, std::string_view subtitle = {});

/// Converts the model in `folder` into the deck at `deckPath`, and answers whether it stands. A missing
/// target folder is made if the user consents. Results and listing of a deck that stood there go once the new
/// one stands; those that can't be removed are told. What fails before that is told to the user, and a deck
/// that is already there then stays as it was.
bool ConvertOldModel(const std::string& folder, const std::string& deckPath, std::string_view subtitle = {});

}  // namespace zorlan
