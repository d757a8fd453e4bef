// The deck: a model's sixteen tables joined into one text file, a section line before each table. "%" starts
// a comment that runs to the end of its line, "@" in the first column of what is left starts a section.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/model_rec.h"

namespace zorlan {

/// The comma fields of a deck line, from place 1 on; a place behind the last field is the empty text, so its
/// value is 0.
inline constexpr int kMaxFields = 101;
using Fields = std::array<std::string_view, kMaxFields + 1>;

/// Cuts a deck line at its commas, trims each piece, and answers how many there are: a trailing comma counts
/// as one more. The pieces point into `line`. More than kMaxFields are a Fault.
int SplitFields(std::string_view line, Fields& fields);

/// What is left of a deck line: without its comment and the blanks around it.
std::string_view DeckLine(std::string_view line);

/// A table of a deck: its name in upper case, and its rows as the text of a table file. A section that comes
/// again starts its table anew, as a deck is split into table files; ReadDeck takes the rows of them all, the
/// earlier ones first.
struct DeckTable {
  std::string name, text;
  std::string earlier;  // rows of the sections ahead of the last
  int sections = 1;
};

/// The tables of a deck's text, in the order in which their sections come first. Comments are left out, and
/// sections whose name can't be that of a file.
std::vector<DeckTable> SplitDeck(std::string_view deck);

/// Whether there is nothing in a file that could be lost.
bool IsBlankDeck(std::string_view bytes);

/// Why the bytes of a file aren't a deck, in the user's words: no table in them, or an encoding that would
/// lose some. Empty for a deck.
std::string WhyNoDeck(std::string_view bytes);

/// Joins the table files of the work folder into a deck. `path` empty: the deck of the model in hand. With
/// `deleteTables` each table file is removed once the deck stands. A deck that already stands so isn't
/// written again and keeps its time. Throws Fault when tables have vanished from the work folder, when
/// nothing at all would take a deck's place, and when the deck of the model in hand would lose its control
/// data or was no deck; throws FileFault. The old deck is whole then, and the tables are there.
void SaveDeck(bool deleteTables = false, const std::string& path = {});

/// Empties the work folder and splits the deck of the model in hand into table files; a missing deck leaves
/// none. Comments are lost. (The shell keeps the path of the model in hand; it calls SaveDataPath behind
/// this.) Throws FileFault; the work folder is empty then.
void LoadDeck();

/// Reads the deck at `path` into RawModel, InpModel and CalcModel, and sets the units in force. Without the
/// file RawModel is empty and all else stays as it was. With `checkMode` the input check's messages are
/// written to `InputErr.txt` in the work folder, in place of a former check's. A row with too few fields is
/// dropped, and a spring against a direction without spring code is zeroed, in either mode. Throws Fault with
/// file and line, in the work folder table and row, and words for a number that doesn't fit 16 bits, a value
/// out of range, or a table beyond its limit; RawModel is empty then, and InpModel, CalcModel and the units
/// stay as they were.
void ReadDeck(const std::string& path, bool checkMode = true);

/// Arrays at their limits, contents kept.
void StretchToLimits(ModelRec& model);

/// From the user's units into tons, metres and radians; g in kN per t. Coordinates, temperature loads, rigid
/// zones, forced displacements and magnifications stay; springs become t/cm and t*cm/rad.
void ConvertToAnalysisUnits(ModelRec& model, double g);

}  // namespace zorlan
