// zorlan-batch: the engine without a window.
#include <exception>
#include <filesystem>
#include <system_error>
#include <variant>

#include "analysis/external_road.h"
#include "base/host.h"
#include "base/text_file.h"
#include "batch_host.h"
#include "command_line.h"
#include "commands.h"
#include "private_folder.h"

int main(int argc, char** argv) {
  using namespace zorlan;
  using namespace zorlan::batch;
  InstallBatchHost();
  std::error_code
      ignored;  // without its own place the companion isn't found, and that is told when it is needed
  ProgramFolder =
      FolderText(PathText(std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path()));
  try {
    const std::variant<Request, ExitCode> parsed = ParseCommandLine(argc, argv);
    if (const ExitCode* const code = std::get_if<ExitCode>(&parsed)) return *code;
    const PrivateFolder folder;
    return RunCommand(std::get<Request>(parsed));
  } catch (const Interrupted& interrupted) {
    DieBySignal(interrupted.signal);
  } catch (const std::exception& fault) {
    Tell(fault.what());
    return kFailed;
  }
}
