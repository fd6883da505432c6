#pragma once

#include "hosts/cli/console.h"

namespace korvex::cli {

/// Exit codes of the command.
inline constexpr int ExitDone = 0;
inline constexpr int ExitFailed = 1;
inline constexpr int ExitUsage = 2;

/// Runs the command line; the exit code. Every failure ends in one message.
int RunCommandLine(int argc, const char* const* argv, Console& console);

}  // namespace korvex::cli
