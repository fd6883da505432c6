#pragma once

#include "hosts/cli/shell/command_tree.h"

#include <string>

namespace korvex::cli {

/// The program text that makes a shell complete the words of korvex: commands, options, what options take,
/// files, and storage names, for which it asks "korvex completion storages".
std::string BashCompletion(const CommandDescription& root);
std::string ZshCompletion(const CommandDescription& root);

}  // namespace korvex::cli
