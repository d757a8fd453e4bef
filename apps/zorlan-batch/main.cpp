// zorlan-batch: the engine without a window.
#include <malloc.h>

#include <exception>
#include <optional>
#include <variant>

#include "base/host.h"
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
  try {
    const std::variant<Request, ExitCode> parsed = ParseCommandLine(argc, argv);
    if (const ExitCode* const code = std::get_if<ExitCode>(&parsed)) return *code;
    const Request& request = std::get<Request>(parsed);
    std::optional<PrivateFolder> folder;
    if (!request.command->becomesAnother) folder.emplace();
    return RunCommand(request);
  } catch (const Interrupted& interrupted) {
    DieBySignal(interrupted.signal);
  } catch (const std::exception& fault) {
    Tell(fault.what());
    return kFailed;
  }
}
