#pragma once

#include <span>
#include <string>

namespace korvex::cli {

/// "a, b and c", at most twenty of them; empty for none.
std::string JoinNames(std::span<const std::string> names);

}  // namespace korvex::cli
