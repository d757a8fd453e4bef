// The companion program: finds its control file in the current folder, solves the deck that it names, prints
// the output.
#pragma once

namespace zorlan::companion {

/// Exit codes. Every code but kSolved comes with a message on standard error and in the error file.
enum ExitCode { kSolved = 0, kRefused = 1, kUnstable = 2 };

/// ANAZOR.CTL has four lines: the names of input, output and error file, and their folder. The output and
/// error files of an earlier run are removed first.
ExitCode Run();

}  // namespace zorlan::companion
