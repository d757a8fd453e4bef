// zorlan-batch: the engine without a window.
#include <malloc.h>

#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>
#include <variant>

#include "analysis/external_road.h"
#include "base/host.h"
#include "base/text_file.h"
#include "batch_host.h"
#include "command_line.h"
#include "commands.h"
#include "private_folder.h"

namespace {

/// What one solve gives back the next one takes again: without this the allocator returns it to the system in
/// between, and every page of it costs a fault and a clearing.
void KeepFreedMemory() {
#ifdef __GLIBC__
  constexpr int kKept = 64 << 20;  // bytes
  mallopt(M_MMAP_THRESHOLD, kKept);
  mallopt(M_TRIM_THRESHOLD, kKept);
#endif
}

}  // namespace

int main(int argc, char** argv) {
  using namespace zorlan;
  using namespace zorlan::batch;
  KeepFreedMemory();
  InstallBatchHost();
  std::error_code
      ignored;  // without its own place the companion isn't found, and that is told when it is needed
  ProgramFolder =
      FolderText(PathText(std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path()));
  try {
    const std::variant<Request, ExitCode> parsed = ParseCommandLine(argc, argv);
    if (const ExitCode* const code = std::get_if<ExitCode>(&parsed)) return *code;
    const Request& request = std::get<Request>(parsed);
    std::optional<PrivateFolder> folder;
    if (request.command->words != Command::Words::ListingAndPdf) folder.emplace();
    return RunCommand(request);
  } catch (const Interrupted& interrupted) {
    DieBySignal(interrupted.signal);
  } catch (const std::exception& fault) {
    Tell(fault.what());
    return kFailed;
  }
}
