#include "batch/batch_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "base/cp932.h"
#include "base/text_file.h"

namespace zorlan {
namespace {

/// Waits for the end of a process, and notes how it ended.
void WaitFor(pid_t process, BatchResult& result) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) result.signal = WTERMSIG(status);
}

std::string WithCrLf(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

}  // namespace

BatchProgram::BatchProgram() {
  folder_ = root_.Path() + "project/";
  temporary_ = root_.Path() + "tmp/";
  output_ = root_.Path() + "output/";
  home_ = root_.Path() + "home/";
  for (const std::string& folder : {folder_, temporary_, output_, home_}) MakeFolder(folder);
}

std::string BatchProgram::Deck(const std::string& name, const std::string& text) const {
  File(name, Cp932FromUtf8(WithCrLf(text)).bytes);
  return name;
}

void BatchProgram::File(const std::string& name, const std::string& bytes) const {
  ReplaceBytes(folder_ + name, bytes, Flush::No);
}

bool BatchProgram::Exists(const std::string& name) const {
  return std::filesystem::exists(NativePath(folder_ + name));
}

std::string BatchProgram::Bytes(const std::string& name) const {
  return ReadBytes(folder_ + name);
}

std::vector<std::string> BatchProgram::Words(const std::vector<std::string>& arguments) const {
  std::vector<std::string> words = {ZORLAN_BATCH};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return words;
}

BatchResult BatchProgram::Run(const std::vector<std::string>& arguments) const {
  const pid_t process = Start(arguments);
  return Wait(process);
}

BatchResult BatchProgram::Shell(const std::string& script) const {
  const pid_t process = Spawn({"/bin/sh", "-c", script}, ++runs_);
  return Wait(process);
}

BatchResult BatchProgram::Wait(pid_t process) const {
  return Collect(process, runs_);
}

std::string BatchProgram::OutputFile(const char* stream, int run) const {
  return output_ + std::to_string(run) + "." + stream;
}

BatchResult BatchProgram::RunOnTerminal(const std::vector<std::string>& arguments) const {
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0) {
    ADD_FAILURE() << "no pseudo-terminal";
    return {};
  }
  const std::string name = ::ptsname(terminal);
  const pid_t process = Spawn(Words(arguments), {.in = name, .out = name, .err = name});
  BatchResult result;
  std::array<char, 4096> bytes;
  // The read fails once the program, which alone has the other end open, is gone.
  for (ssize_t count = 0; (count = ::read(terminal, bytes.data(), bytes.size())) > 0;)
    result.out.append(bytes.data(), static_cast<std::size_t>(count));
  ::close(terminal);
  WaitFor(process, result);
  return result;
}

pid_t BatchProgram::Spawn(std::vector<std::string> words, int run) const {
  return Spawn(std::move(words), {"/dev/null", OutputFile("out", run), OutputFile("err", run)});
}

pid_t BatchProgram::Spawn(std::vector<std::string> words, const Streams& streams) const {
  posix_spawn_file_actions_t files;
  ::posix_spawn_file_actions_init(&files);
  ::posix_spawn_file_actions_addopen(&files, STDIN_FILENO, streams.in.c_str(), O_RDONLY | O_NOCTTY, 0);
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_NOCTTY;
  ::posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, streams.out.c_str(), kFlags, 0666);
  ::posix_spawn_file_actions_addopen(&files, STDERR_FILENO, streams.err.c_str(), kFlags, 0666);
  ::posix_spawn_file_actions_addchdir_np(&files, folder_.c_str());

  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  std::vector<std::string> variables = {"TMPDIR=" + temporary_, "HOME=" + home_, "PATH=/usr/bin:/bin",
                                        "ZORLAN=" ZORLAN_BATCH};
  std::vector<char*> environment;
  for (std::string& variable : variables) environment.push_back(variable.data());
  environment.push_back(nullptr);

  pid_t process = -1;
  if (::posix_spawn(&process, arguments[0], &files, nullptr, arguments.data(), environment.data()) != 0)
    ADD_FAILURE() << arguments[0] << " can't be started";
  ::posix_spawn_file_actions_destroy(&files);
  return process;
}

BatchResult BatchProgram::Collect(pid_t process, int run) const {
  BatchResult result;
  WaitFor(process, result);
  result.out = ReadBytes(OutputFile("out", run));
  result.err = ReadBytes(OutputFile("err", run));
  return result;
}

std::vector<std::string> BatchProgram::Names(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(NativePath(folder)))
    names.push_back(PathText(entry.path().filename()));
  std::ranges::sort(names);
  return names;
}

std::string CantileverDeck() {
  return LongCantileverDeck(2, 1);
}

std::string HiddenMechanismDeck() {
  return "@CONT\n1,1,0,0\n@UNIT\n1,1,9.80665,0\n"
         "@NODE\n1,0,0,1,1,0\n2,3,0.7,0,0,0\n3,7,1.9,0,1,0\n4,9,4.1,0,0,0\n"
         "@ELEM\n1,1,2,0,1,1\n2,2,3,1,0,1\n3,3,4,0,0,1\n@SECT\n1,0,100,20000,0,0,1,205000,79000\n"
         "@PLOD\n1,2,0,-10,0\n1,4,0,-10,0\n";
}

std::string LongCantileverDeck(int nodes, int cases) {
  std::string text =
      "@TITL\n片持梁\n@SUBT\n\n@CONT\n1," + std::to_string(cases) + ",0,0\n@UNIT\n1,1,9.80665,0\n@NODE\n";
  for (int n = 1; n <= nodes; ++n)
    text += std::to_string(n) + "," + std::to_string(n - 1) + ",0," + (n == 1 ? "1,1,1" : "0,0,0") + "\n";
  text += "@ELEM\n";
  for (int e = 1; e < nodes; ++e)
    text += std::to_string(e) + "," + std::to_string(e) + "," + std::to_string(e + 1) + ",0,0,1\n";
  text += "@SECT\n1,0,100,20000,0,0,1,205000,0\n@PLOD\n";
  for (int c = 1; c <= cases; ++c) text += std::to_string(c) + "," + std::to_string(nodes) + ",0,-10,0\n";
  return text;
}

}  // namespace zorlan
