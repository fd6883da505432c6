#pragma once

#include <span>
#include <string>
#include <string_view>

namespace korvex::cli {

/// The candidate that `text` was probably meant to be: the one with the fewest changed letters, case left
/// aside, when that is at most a third of its length; empty when none is near.
std::string NearestName(std::string_view text, std::span<const std::string_view> candidates);

/// "a, b and c"; empty for none.
std::string JoinNames(std::span<const std::string> names);

}  // namespace korvex::cli
