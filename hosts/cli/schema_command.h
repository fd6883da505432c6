#pragma once

#include "hosts/cli/console.h"

#include <CLI/CLI.hpp>

namespace korvex::cli {

/// As the commands of commands.h.
void AddSchemaCommand(CLI::App& parent, Console& console);

}  // namespace korvex::cli
