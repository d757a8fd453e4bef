// zorlan-batch: the engine without a window.
#include <exception>
#include <variant>

#include "base/host.h"
#include "batch_host.h"
#include "command_line.h"
#include "commands.h"
#include "private_folder.h"

int main(int argc, char** argv) {
  using namespace zorlan;
  using namespace zorlan::batch;
  InstallBatchHost();
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
