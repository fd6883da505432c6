#pragma once

#include "hosts/cli/shell/command_tree.h"

#include <map>
#include <string>

namespace korvex::cli {

/// The manual pages, by file name: korvex.1, and one for each command beneath it, with all of a group in the
/// group's own. `date` stands in their footers; it may be empty.
std::map<std::string, std::string> ManPages(const CommandDescription& root, const std::string& version,
                                            const std::string& date);

}  // namespace korvex::cli
