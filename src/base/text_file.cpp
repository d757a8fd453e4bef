#include "base/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <system_error>
#include <utility>

#include "base/cp932.h"
#include "base/fault.h"
#include "base/text.h"

namespace zorlan {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view kNeighbour = ".~";
constexpr std::size_t kDrainAt = std::size_t{1} << 18;  // bytes gathered before a write

[[noreturn]] void Fail(const std::string& path, int error) {
  throw FileFault(path, FileReason(error));
}

/// The name beside a file under which it is written anew: each process has its own.
std::string NeighbourName(const std::string& path) {
  return path + std::string(kNeighbour) + std::to_string(::getpid());
}

/// The process that writes a file of such a name; nothing for any other name.
std::optional<pid_t> WriterOf(std::string_view name) {
  const std::size_t at = name.rfind(kNeighbour);
  if (at == std::string_view::npos || at == 0) return std::nullopt;
  const char* const first = name.data() + at + kNeighbour.size();
  const char* const last = name.data() + name.size();
  pid_t process = 0;
  const auto [end, fault] = std::from_chars(first, last, process);
  if (fault != std::errc() || end != last || process <= 0) return std::nullopt;
  return process;
}

void WriteAll(int file, std::string_view bytes, const std::string& path) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      Fail(path, errno);
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

/// A file beside `path` that is removed again unless it is renamed to it; or the file itself, cut back to its
/// former size unless what was added is to stay.
class FileWriter::Output {
 public:
  Output(const std::string& path, Start start) : path_(path), continued_(start == Start::Continued) {
    name_ = continued_ ? path : NeighbourName(path);
    file_ = ::open(name_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (continued_ ? O_APPEND : O_TRUNC), 0666);
    if (file_ < 0) Fail(path_, errno);
    if (continued_) size_ = ::lseek(file_, 0, SEEK_END);
  }
  ~Output() {
    if (file_ >= 0) {
      if (continued_ && ::ftruncate(file_, size_) != 0) ::unlink(name_.c_str());
      ::close(file_);
    }
    if (!continued_ && !kept_) ::unlink(name_.c_str());
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  void Write(std::string_view bytes) { WriteAll(file_, bytes, path_); }
  void TakePlace(bool flush) {
    if (flush && ::fsync(file_) != 0 && errno != EINVAL) Fail(path_, errno);
    if (::close(std::exchange(file_, -1)) != 0) Fail(path_, errno);
    // A rename over a file makes ext4 write the data out at once, which takes milliseconds: what isn't
    // flushed takes a place that is free.
    if (!continued_ && !flush) ::unlink(path_.c_str());
    if (!continued_ && ::rename(name_.c_str(), path_.c_str()) != 0) Fail(path_, errno);
    kept_ = true;
  }

 private:
  std::string path_, name_;
  bool continued_;
  int file_ = -1;
  off_t size_ = 0;
  bool kept_ = false;
};

FileFault::FileFault(const std::string& path, const std::string& reason) : Fault(path + " ： " + reason) {}

std::string FileReason(int error) {
  switch (error) {
    case ENOENT:
      return "ファイルまたはフォルダがありません";
    case EACCES:
    case EPERM:
      return "アクセスが許可されていません";
    case EROFS:
      return "書き込み禁止の場所です";
    case ENOSPC:
    case EDQUOT:
      return "ディスクの空き容量が不足しています";
    case EFBIG:
      return "ファイルの大きさが制限を超えています";
    case EISDIR:
      return "フォルダです";
    case ENOTDIR:
      return "フォルダではありません";
    case ENAMETOOLONG:
      return "名前が長すぎます";
    default:
      return std::strerror(error);
  }
}

fs::path NativePath(std::string_view path) {
  return fs::path(std::u8string(path.begin(), path.end()));
}

std::string PathText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string FolderText(std::string_view folder) {
  std::string text(folder);
  const char separator = static_cast<char>(fs::path::preferred_separator);
  if (!text.empty() && text.back() != separator && text.back() != '/') text += separator;
  return text;
}

bool FileExists(std::string_view path) {
  std::error_code ignored;  // what can't be looked at isn't there for us
  return fs::is_regular_file(NativePath(path), ignored);
}

bool FolderExists(std::string_view path) {
  std::error_code ignored;  // as above
  return fs::is_directory(NativePath(path), ignored);
}

std::optional<std::string> FindName(const std::string& folder, std::string_view name) {
  // A name that another program gave may hold characters that are turned into our own where names are typed.
  const auto plain = [](std::string_view text) { return UpperCase(WithOwnCharacters(text)); };
  const std::string wanted = plain(name);
  std::optional<std::string> found;
  std::error_code error;  // a folder that can't be looked into has no such name
  fs::directory_iterator entry(NativePath(folder), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string known = PathText(entry->path().filename());
    if (known == name) return known;
    if (plain(known) == wanted && (!found || known < *found)) found = known;
  }
  return found;
}

std::string PathIn(const std::string& folder, std::string_view name) {
  std::string path = folder + std::string(name);
  if (FileExists(path)) return path;
  return folder + FindName(folder, name).value_or(std::string(name));
}

bool IsUnfinishedFile(std::string_view name) {
  return WriterOf(name).has_value();
}

void RemoveAbandonedFiles(const std::string& folder) {
  std::error_code error;
  fs::directory_iterator entry(NativePath(folder), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::optional<pid_t> writer = WriterOf(PathText(entry->path().filename()));
    if (writer && ::kill(*writer, 0) != 0 && errno == ESRCH) ::unlink(entry->path().c_str());
  }
}

void ShareFileOver(const std::string& from, const std::string& to) {
  ::unlink(to.c_str());
  if (::link(from.c_str(), to.c_str()) != 0)
    CopyFileOver(from, to);  // another file system, or one without links
}

FileReader::FileReader(const std::string& path) : path_(path) {
  file_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file_ < 0) Fail(path, errno);
  struct stat state {};
  if (::fstat(file_, &state) == 0 && state.st_size > 0) size_ = static_cast<std::size_t>(state.st_size);
}

FileReader::~FileReader() {
  ::close(file_);
}

std::size_t FileReader::Read(char* room, std::size_t size) {
  while (!ended_) {
    const ssize_t got = ::read(file_, room, size);
    ended_ = got == 0;
    if (got >= 0) return static_cast<std::size_t>(got);
    if (errno != EINTR) Fail(path_, errno);
  }
  return 0;
}

std::string ReadBytes(const std::string& path) {
  FileReader file(path);
  std::string bytes;
  std::size_t have = 0;
  bytes.resize(file.Size() + 1);  // one more: the end shows without another round
  while (const std::size_t got = file.Read(bytes.data() + have, bytes.size() - have)) {
    have += got;
    if (have == bytes.size()) bytes.resize(2 * have + kDrainAt);
  }
  bytes.resize(have);
  return bytes;
}

std::string ReadTextFile(const std::string& path) {
  const std::string bytes = ReadBytes(path);
  return Utf8FromCp932(BeforeEndMark(bytes));
}

std::optional<std::string> ReadTextFileIfAny(const std::string& path) {
  if (!FileExists(path)) return std::nullopt;
  try {
    return ReadTextFile(path);
  } catch (const Fault&) {
    return std::nullopt;  // the caller goes on without it
  }
}

void ReplaceBytes(const std::string& path, std::string_view bytes, Flush flush) {
  FileWriter file(path);
  file.Buffer() = bytes;
  file.Commit(flush);
}

void ReplaceTextFile(const std::string& path, std::string_view text, Flush flush) {
  const Cp932Text converted = Cp932FromUtf8(text);
  if (!converted.lost.empty())
    throw FileFault(path, "文字 「" + converted.lost + "」 はシフトＪＩＳで表せないため、保存できません");
  ReplaceBytes(path, converted.bytes, flush);
}

bool CanWriteFile(const std::string& path) {
  const bool there = FileExists(path);
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
  if (file < 0) return false;
  ::close(file);
  if (!there) ::unlink(path.c_str());
  return true;
}

std::vector<fs::directory_entry> EntriesOf(const std::string& folder) {
  std::error_code error;
  std::vector<fs::directory_entry> entries;
  fs::directory_iterator entry(NativePath(folder), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) entries.push_back(*entry);
  std::error_code ignored;  // of a folder that isn't there
  if (error && fs::status(NativePath(folder), ignored).type() != fs::file_type::not_found)
    Fail(folder, error.value());
  return entries;
}

void MakeFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(NativePath(folder), error);
  if (error && !FolderExists(folder)) Fail(folder, error.value());
}

void RemoveFile(const std::string& path) {
  if (::unlink(path.c_str()) != 0 && errno != ENOENT) Fail(path, errno);
}

void RenameFile(const std::string& from, const std::string& to) {
  if (::rename(from.c_str(), to.c_str()) != 0) Fail(from, errno);
}

void RemoveFilesIn(const std::string& folder) {
  std::error_code ignored;  // what can't be looked at isn't a folder
  for (const fs::directory_entry& entry : EntriesOf(folder))
    if (!entry.is_directory(ignored)) RemoveFile(PathText(entry.path()));
}

void CopyFileOver(const std::string& from, const std::string& to) {
  FileReader source(from);
  FileWriter file(to);
  std::array<char, std::size_t{1} << 16U> piece;
  while (const std::size_t got = source.Read(piece.data(), piece.size())) {
    file.Buffer().append(piece.data(), got);
    file.Drain();
  }
  // Whatever breaks in between, the older file is there or the newer one.
  file.Commit(FileExists(to) ? Flush::Yes : Flush::No);
}

FileWriter::FileWriter(const std::string& path, Start start) : file_(std::make_unique<Output>(path, start)) {
  buffer_.reserve(kDrainAt + 4096);
}

FileWriter::~FileWriter() = default;

void FileWriter::Drain() {
  if (buffer_.size() >= kDrainAt) DrainAll();
}

void FileWriter::DrainAll() {
  file_->Write(buffer_);
  buffer_.clear();
}

void FileWriter::Commit(Flush flush) {
  DrainAll();
  file_->TakePlace(flush == Flush::Yes);
}

}  // namespace zorlan
