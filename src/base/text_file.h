// Whole files: reading, safe replacing, and a buffered writer for the large ones. Paths and texts are UTF-8;
// the files are in code page 932 with CR LF line ends. Every failure is a FileFault that names the path and
// the reason.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// The path that a UTF-8 text names. Folders are held as text with a closing separator.
std::filesystem::path NativePath(std::string_view path);
std::string PathText(const std::filesystem::path& path);

/// "DIR" -> "DIR/", with the platform's separator; an empty text stays empty.
std::string FolderText(std::string_view folder);

bool FileExists(std::string_view path);
bool FolderExists(std::string_view path);

/// The name that a folder has for `name`, case aside (A to Z); the exact one first. Nothing without one.
std::optional<std::string> FindName(const std::string& folder, std::string_view name);
/// The path of that name, or of `name` itself without one. The folder has its closing separator.
std::string PathIn(const std::string& folder, std::string_view name);

/// Whether a name is one under which a file is written before it takes its own.
bool IsUnfinishedFile(std::string_view name);
/// Removes such files that a program which is no more has left in a folder; what fails is passed over.
void RemoveAbandonedFiles(const std::string& folder);

/// The system's error number in the user's words.
std::string FileReason(int error);

/// The bytes of a file; the text of one in code page 932, up to its end mark (BeforeEndMark).
std::string ReadBytes(const std::string& path);
std::string ReadTextFile(const std::string& path);
/// The same for a file that may be missing or spoilt: nothing where there is none that can be read.
std::optional<std::string> ReadTextFileIfAny(const std::string& path);

/// Whether a new file is flushed to the disk before it takes its name: for all that can't be made again by
/// another run.
enum class Flush { No, Yes };

/// Writes a file anew: beside it, flushed, renamed over. When it fails the old file is still there, whole.
void ReplaceBytes(const std::string& path, std::string_view bytes, Flush flush = Flush::Yes);

/// ReplaceBytes of a text in code page 932. The text has its line ends already. A character that the code
/// page lacks is a fault that names it, and nothing is written.
void ReplaceTextFile(const std::string& path, std::string_view text, Flush flush = Flush::Yes);

/// Whether a file can be written at this path. What stands there stays as it is.
bool CanWriteFile(const std::string& path);

/// What lies directly in a folder, files and folders; nothing without the folder. One that is there and can't
/// be looked into is a fault.
std::vector<std::filesystem::directory_entry> EntriesOf(const std::string& folder);

/// Makes the folder and those above it; removes a file if it is there; removes every file directly in a
/// folder, which need not be there.
void MakeFolder(const std::string& folder);
void RemoveFile(const std::string& path);
void RemoveFilesIn(const std::string& folder);

/// Gives a file another name in the same file system; a file of that name is replaced.
void RenameFile(const std::string& from, const std::string& to);

/// Copies a file over another, by a neighbouring name. At every moment one of the two stands there whole.
void CopyFileOver(const std::string& from, const std::string& to);

/// Gives `to` the contents of `from` without writing them again, as a second name of the same file, where the
/// file system can; else copies. For files that are only ever replaced whole, never changed in place.
void ShareFileOver(const std::string& from, const std::string& to);

/// A large file read piece by piece.
class FileReader {
 public:
  explicit FileReader(const std::string& path);
  ~FileReader();
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;

  /// Reads up to `size` bytes into `room`; answers how many came, 0 at the file's end.
  std::size_t Read(char* room, std::size_t size);
  /// How many bytes the file holds, as far as it tells.
  std::size_t Size() const { return size_; }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  int file_ = -1;
  std::size_t size_ = 0;
  bool ended_ = false;  // nobody asks the system again
};

/// A large file written piece by piece. Anew, it takes its name only at Commit, and without it leaves nothing
/// behind; continued, the pieces follow what the file holds, and without Commit it is cut back to that.
class FileWriter {
 public:
  enum class Start { Anew, Continued };
  explicit FileWriter(const std::string& path, Start start = Start::Anew);
  ~FileWriter();
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;

  /// Bytes to come; call Drain from time to time, it writes them once they are many. Behind DrainAll only the
  /// name is left for Commit: of files that belong together all are drained before the first takes its name.
  std::string& Buffer() { return buffer_; }
  void Drain();
  void DrainAll();
  void Commit(Flush flush = Flush::No);

 private:
  class Output;
  std::unique_ptr<Output> file_;
  std::string buffer_;
};

}  // namespace zorlan
