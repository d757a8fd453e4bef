// The commands of zorlan-batch, each on one deck.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zorlan::batch {

/// Exit codes of the program, the graver the greater.
enum ExitCode : int { kDone = 0, kFailed = 1, kUsage = 2 };

struct Command;

/// What stands on the command line.
struct Request {
  const Command* command = nullptr;
  std::vector<std::string> decks;  // what the command works on in turn: decks, or a listing
  std::string documents;           // the documents folder; empty: the user's
  std::string oldModel;            // the folder that a conversion reads
  std::string csvFolder, csvName;
  std::string output;
  std::string figureKind;  // a word of FigureKindOf
  int loadCase = 1;
};

/// A word behind a command: an option if its name begins with "--", else one that must be there.
struct Word {
  const char* name;
  const char* description;
  std::variant<std::vector<std::string> Request::*, std::string Request::*, int Request::*> target;
  const char* type = "";               // of an option's value
  bool many = false;                   // of a list: it takes all words that come
  std::string (*choices)() = nullptr;  // stand behind the description
};

struct Command {
  const char* name;
  const char* description;
  ExitCode (*run)(const Request& request);  // on the model in hand; a Fault is a failure
  std::span<const Word> words;
  const char* incomplete;  // said when a word that must be there is missing
  const char* absent;      // said of a file to work on that isn't there; null: it is yet to be made
  /// What keeps well-formed words from being carried out; empty: nothing.
  std::string (*refusal)(const Request& request) = nullptr;
  bool becomesAnother = false;  // it ends as another program, behind which no folder can be removed
};

std::span<const Command> Commands();

/// The form of a figure's file, by its ending; nothing for an unknown one.
enum class FigureForm { DrawingList, Dxf, Painted };
std::optional<FigureForm> FigureFormOf(std::string_view path);

/// Runs the command on every deck in turn; a failure of one doesn't stop the next. Answers the gravest exit
/// code.
ExitCode RunCommand(const Request& request);

}  // namespace zorlan::batch
