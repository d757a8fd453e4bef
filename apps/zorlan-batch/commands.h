// The commands of zorlan-batch, each on one deck.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan::batch {

/// Exit codes of the program, the graver the greater.
enum ExitCode : int { kDone = 0, kFailed = 1, kUsage = 2 };

struct Request;

struct Command {
  const char* name;
  const char* description;
  ExitCode (*run)(const Request& request);  // on the model in hand; a Fault is a failure
  /// What stands behind the command: decks; decks, and where the CSV files go; an old model and the deck to
  /// make of it; a listing, and the PDF file to make of it; a deck, and the figure to make of it.
  enum class Words { Decks, DecksAndCsv, OldModelAndDeck, ListingAndPdf, DeckAndFigure } words = Words::Decks;
};

/// What stands on the command line.
struct Request {
  const Command* command = nullptr;
  std::vector<std::string> decks;
  std::string documents;  // the documents folder; empty: the user's
  std::string oldModel;   // the folder that a conversion reads
  std::string csvFolder, csvName;
  std::string output;
  std::string figureKind;  // a word of FigureKindOf
  int loadCase = 1;
};

std::span<const Command> Commands();

/// The form of a figure's file, by its ending; nothing for an unknown one.
enum class FigureForm { DrawingList, Dxf, Painted };
std::optional<FigureForm> FigureFormOf(std::string_view path);

/// Runs the command on every deck in turn; a failure of one doesn't stop the next. Answers the gravest exit
/// code.
ExitCode RunCommand(const Request& request);

}  // namespace zorlan::batch
