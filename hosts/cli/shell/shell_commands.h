#pragma once

#include "hosts/cli/console.h"

#include <CLI/CLI.hpp>

/// The commands that help a shell and its user; as those of commands.h.
namespace korvex::cli {

/// help [COMMAND]...
void AddHelpCommand(CLI::App& root, Console& console);
/// completion bash | zsh | storages R
void AddCompletionCommands(CLI::App& root, Console& console);
/// man FOLDER
void AddManCommand(CLI::App& root, Console& console);

}  // namespace korvex::cli
