// How the core speaks to the program around it. An app installs its own table once, at its start: the desktop
// shows boxes, the batch program writes lines and gives the safe answer, a test records.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zorlan {

/// The title of every message box that names no other.
inline constexpr std::string_view kApplicationTitle = "ＺＯＲＬＡＮ For Windows";

enum class Buttons { YesNo, YesNoCancel, OkCancel };
enum class Answer { Yes, No, Cancel, Ok };

/// How a program that was started and waited for came to its end.
struct ProgramEnd {
  enum class How { Exited, Killed, NotStarted, Cancelled } how = How::NotStarted;
  int code = 0;        // exit code, or the signal that killed it
  std::string reason;  // why it could not be started
};

/// All that the core may ask of the program around it. Texts are UTF-8 and reach the user unchanged. Entries
/// left alone do nothing, say No or Cancel, and start no program, so no caller tests for an empty one.
struct Host {
  std::function<void(std::string_view text, std::string_view title)> message = [](std::string_view,
                                                                                  std::string_view) {};
  std::function<Answer(std::string_view text, std::string_view title, Buttons buttons)> question =
      [](std::string_view, std::string_view, Buttons buttons) {
        return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
      };
  /// What takes long, in the user's words, and how much of it is done: 0 to 1. Lets window events run.
  std::function<void(std::string_view what, double share)> progress = [](std::string_view, double) {};
  std::function<void(bool busy)> hourglass = [](bool) {};
  /// Starts a program with `folder` as its current folder, and waits for it. The user may stop the wait.
  std::function<ProgramEnd(const std::string& program, const std::string& folder)> runAndWait =
      [](const std::string&, const std::string&) { return ProgramEnd{}; };
  /// Shows a listing: a text file of the system.
  std::function<void(const std::string& path)> showListing = [](const std::string&) {};
};

/// Replaces the table in force.
void InstallHost(Host host);
const Host& TheHost();

/// Listens while it lives: keeps the first message that the user is told, or would be told if it weren't
/// hushed. Those that overlap end in turn, the youngest first.
class MessageWatch {
 public:
  enum class Messages { Shown, Hushed };
  explicit MessageWatch(Messages messages);
  ~MessageWatch();
  MessageWatch(const MessageWatch&) = delete;
  MessageWatch& operator=(const MessageWatch&) = delete;

  /// Empty without one.
  const std::string& Message() const { return message_; }
  bool Told() const { return !message_.empty(); }

 private:
  Host host_;
  std::string message_;
};

/// A message under the application title.
void Tell(std::string_view text);

/// The report of an unexpected error: "エラーが発生しました" with the routine's name and what it says.
void ReportError(std::string_view routine, std::string_view what);

}  // namespace zorlan
