#include "batch_host.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/host.h"

namespace zorlan::batch {
namespace {

constexpr std::array kEndingSignals = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t signalSeen = 0;
volatile std::sig_atomic_t childProcess = 0;  // the program that is waited for, or 0

extern "C" void NoteSignal(int signal) {
  signalSeen = signal;
  if (childProcess != 0) ::kill(static_cast<pid_t>(childProcess), SIGKILL);
}

void InstallSignalHandlers() {
  struct sigaction action {};
  action.sa_handler = NoteSignal;
  action.sa_flags = SA_RESETHAND;  // without SA_RESTART: who waits shall wake up
  for (const int signal : kEndingSignals) ::sigaction(signal, &action, nullptr);
  // A reader that went away and a file grown too large are failed writes, told like any other.
  action.sa_handler = SIG_IGN;
  action.sa_flags = 0;
  ::sigaction(SIGPIPE, &action, nullptr);
  ::sigaction(SIGXFSZ, &action, nullptr);
  // Whoever started this program may have ignored the ends of its children: these would then leave no status.
  action.sa_handler = SIG_DFL;
  ::sigaction(SIGCHLD, &action, nullptr);
}

/// The line of progress on a terminal.
class ProgressLine {
 public:
  void Show(std::string_view what, double share) {
    const auto now = std::chrono::steady_clock::now();
    if (!terminal_ || now - shown_ < std::chrono::milliseconds(50)) return;
    shown_ = now;
    const std::string line = "\r\x1b[K" + std::string(what) + " " + std::to_string(int(share * 100)) + " %";
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr);
    visible_ = true;
  }
  void Wipe() {
    if (visible_) std::fputs("\r\x1b[K", stderr);  // which nothing buffers
    visible_ = false;
  }

 private:
  bool terminal_ = ::isatty(STDERR_FILENO) != 0;
  bool visible_ = false;
  std::chrono::steady_clock::time_point shown_ =
      std::chrono::steady_clock::now();  // what is quick stays quiet
};

ProgressLine& TheProgressLine() {
  static ProgressLine line;
  return line;
}

/// Holds signals back while a child is between its start and its note in `childProcess`.
class SignalsHeld {
 public:
  SignalsHeld() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : kEndingSignals) sigaddset(&signals, signal);
    ::sigprocmask(SIG_BLOCK, &signals, &before_);
  }
  ~SignalsHeld() { ::sigprocmask(SIG_SETMASK, &before_, nullptr); }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;
  const sigset_t& Before() const { return before_; }

 private:
  sigset_t before_{};
};

/// Starts a program in a folder: nothing to read, its output on standard error, signals as usual. Answers 0
/// or the error.
int Spawn(const std::string& program, const std::string& folder, const sigset_t& mask, pid_t& child) {
  posix_spawn_file_actions_t files;
  posix_spawnattr_t attributes;
  ::posix_spawn_file_actions_init(&files);
  ::posix_spawnattr_init(&attributes);
  ::posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_adddup2(&files, STDERR_FILENO, STDOUT_FILENO);
  ::posix_spawn_file_actions_addchdir_np(&files, folder.c_str());
  sigset_t defaults;
  sigemptyset(&defaults);
  for (const int signal : {SIGPIPE, SIGXFSZ}) sigaddset(&defaults, signal);
  ::posix_spawnattr_setsigdefault(&attributes, &defaults);
  ::posix_spawnattr_setsigmask(&attributes, &mask);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  std::string name = program;
  const std::array<char*, 2> arguments = {name.data(), nullptr};
  const int error = ::posix_spawn(&child, program.c_str(), &files, &attributes, arguments.data(), ::environ);
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&files);
  return error;
}

/// Waits for a child's end. The child stays unreaped until the signal handler knows no longer of it: up to
/// then its number is that of no other process.
ProgramEnd EndOf(pid_t child) {
  siginfo_t seen{};
  while (::waitid(P_PID, static_cast<id_t>(child), &seen, WEXITED | WNOWAIT) < 0 && errno == EINTR) {
  }
  childProcess = 0;
  int status = 0;
  if (::waitpid(child, &status, 0) < 0) return {ProgramEnd::How::Killed, 0, std::strerror(errno)};
  if (WIFSIGNALED(status)) return {ProgramEnd::How::Killed, WTERMSIG(status), {}};
  return {ProgramEnd::How::Exited, WEXITSTATUS(status), {}};
}

ProgramEnd RunAndWait(const std::string& program, const std::string& folder) {
  pid_t child = 0;
  {
    const SignalsHeld held;
    if (const int error = Spawn(program, folder, held.Before(), child); error != 0) {
      return {ProgramEnd::How::NotStarted, 0, std::strerror(error)};
    }
    childProcess = child;
  }
  const ProgramEnd end = EndOf(child);
  ThrowIfInterrupted();
  return end;
}

void ShowMessage(std::string_view text, std::string_view title) {
  PrintError(std::string(title) + ": " + std::string(text));
}

}  // namespace

void InstallBatchHost() {
  InstallSignalHandlers();
  Host host;
  host.message = ShowMessage;
  host.question = [](std::string_view text, std::string_view title, Buttons buttons) {
    ShowMessage(text, title);
    return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
  };
  host.progress = [](std::string_view what, double share) {
    ThrowIfInterrupted();
    TheProgressLine().Show(what, share);
  };
  host.runAndWait = RunAndWait;
  InstallHost(std::move(host));
}

void ThrowIfInterrupted() {
  if (signalSeen != 0) throw Interrupted{static_cast<int>(signalSeen)};
}

void DieBySignal(int signal) {
  std::fflush(nullptr);
  ::signal(signal, SIG_DFL);
  ::raise(signal);
  std::_Exit(128 + signal);
}

void WipeProgress() {
  TheProgressLine().Wipe();
}

void PrintError(std::string_view line) {
  WipeProgress();
  const std::string text = std::string(line) + "\n";
  std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace zorlan::batch
